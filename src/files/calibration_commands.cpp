#include "files/calibration_commands.h"

#include <string>

#include "files/calibration_file.h"
#include "files/file_choice.h"
#include "files/file_writing.h"
#include "files/preview_window.h"
#include "forms/desktop.h"
#include "workspace/workspace.h"

namespace koprax {

namespace {

constexpr const char* SaveFilter = "All Files (*.*)|*.*| .cal Files (*.cal)|*.cal";
constexpr const char* OpenFilter = "All Files (*.*)|*.*| calib. Files (*.cal)|*.cal";

constexpr const char* WhyCalibrationIsNeeded =
    "Read now calibration parameters for converting 'channel' units into 2-theta units.\r\n"
    "Calibration parameters are stored in a  *.cal  file.\r\n"
    "Locate, in the following dialog window, the proper calibration file and load it.\r\n"
    "If no file is chosen and no conversion occurs then 'd' data (crystal spacings) in the \r\n"
    "Explorer Window are not displayed.";

}  // namespace

void SaveCalibration(const WindowContext& context, std::span<const float> coefficients) {
  const auto path = ChooseFileToWrite(context, {.Filter = SaveFilter, .FilterIndex = 2});
  if (!path) return;
  const std::string title = context.Desk.Host().InputBox(
      {.Prompt = "Type a title for the file containing calibration parameters (max 80 char.)",
       .Title = "Input title"});
  const auto problem = WriteLines(*path, CalibrationLines(title, coefficients), TextEncoding::Utf8);
  if (problem) context.Desk.Host().MsgBox(*problem);
}

void ReadCalFile(const WindowContext& context) {
  Workspace& data = context.Data;
  data.ReadingCal = true;
  data.CalCancelled = 0;
  context.Desk.Host().MsgBox({.Text = WhyCalibrationIsNeeded, .Title = "Communication"});
  const auto path = ChooseFile(context, {.Filter = OpenFilter, .FilterIndex = 2, .Name = "*.cal"});
  data.CalCancelled = path ? 0 : 1;
  data.ReadingCal = path && !path->empty();  // the choice of a file has ended an earlier reading
  if (data.ReadingCal) context.Desk.Load<Form4>(context)->Show();
}

}  // namespace koprax
