// Form9: never shown; it carries the one file dialog that all commands share.
#pragma once

#include <optional>
#include <string>

#include "forms/form.h"
#include "forms/runtime.h"
#include "workspace/workspace.h"

namespace koprax {

class Form9 final : public Form {
 public:
  Form9(Desktop& desk, Workspace& data) : Form(desk, "Form9", "Form9"), data_(data) {}

  /// Asks for a file; the path goes to FileName. Nothing on cancel, and FileName stays as it was.
  std::optional<std::string> Ask(const FileDialogRequest& request);

 private:
  Workspace& data_;
};

}  // namespace koprax
