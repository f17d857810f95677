// Form4: the beginning and the end of the file that is about to be loaded.
#pragma once

#include "files/file_preview.h"
#include "forms/form.h"
#include "workspace/services.h"

namespace koprax {

class Form4 final : public Form {
 public:
  explicit Form4(const WindowContext& context);

 private:
  void OnLoad() override;
  void OnCloseBox() override { Cancel(); }
  void Accept();
  void Cancel();

  WindowContext context_;
  FilePreview preview_;

  TextBox Text1{
      *this, "Text1", {.Font = "Courier", .Locked = true, .MultiLine = true, .Columns = 84, .Rows = 22}};
  Button cmdOK{*this, "cmdOK", {.Caption = "OK"}};
  Button cmdCancel{*this, "cmdCancel", {.Caption = "Cancel"}};
};

}  // namespace koprax
