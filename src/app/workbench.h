// The composition: builds the workspace, the desktop and all windows, hands each window what it needs,
// and is the only place that knows all windows.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "forms/desktop.h"
#include "forms/runtime.h"
#include "workspace/workspace.h"

namespace koprax {

class Workbench {
 public:
  explicit Workbench(Runtime& runtime);
  Workbench(const Workbench&) = delete;
  Workbench& operator=(const Workbench&) = delete;
  ~Workbench();

  /// Loads and shows the main menu. Observers of the desktop are attached before.
  void Start();

  [[nodiscard]] Desktop& Desk();
  [[nodiscard]] Workspace& Data();
  /// A new window of each kind that has pictures, none of them loaded: for the scales and design sizes.
  [[nodiscard]] std::vector<std::shared_ptr<const Form>> WindowsWithPictures() const;
  /// The names of all windows that the workbench has, loaded or not.
  [[nodiscard]] static const std::vector<std::string>& FormNames();

 private:
  class Windows;
  Workspace data_;
  Desktop desk_;
  std::unique_ptr<Windows> windows_;
};

}  // namespace koprax
