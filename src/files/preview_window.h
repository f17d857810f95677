// Form4: the beginning and the end of the file that is about to be loaded, or of the calibration file that
// is about to be read into CurBuf.
#pragma once

#include <string>

#include "files/file_preview.h"
#include "forms/form.h"
#include "workspace/services.h"

namespace koprax {

class Form4 final : public Form {
 public:
  /// Whether it is for a calibration is settled at the load, by ReadingCal.
  explicit Form4(const WindowContext& context);

  /// Whether the file is a calibration for CurBuf. A line that can't be read ends ReadingCal, not this.
  [[nodiscard]] bool ForCalibration() const { return for_calibration_; }

 private:
  void OnLoad() override;
  void OnCloseBox() override { Cancel(); }
  void Accept();
  void Cancel();
  void TakeCalibration();

  WindowContext context_;
  FilePreview preview_;
  std::string file_name_;
  bool for_calibration_ = false;

  TextBox Text1{*this,
                "Text1",
                {.Meaning = "Beginning and end of the file",
                 .Font = "Courier",
                 .Locked = true,
                 .MultiLine = true,
                 .Columns = 84,
                 .Rows = 22}};
  Button cmdOK{*this, "cmdOK", {.Caption = "OK"}};
  Button cmdCancel{*this, "cmdCancel", {.Caption = "Cancel"}};
};

}  // namespace koprax
