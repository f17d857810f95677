#include "files/preview_window.h"

#include "files/calibration_file.h"
#include "files/format_window.h"
#include "forms/desktop.h"
#include "workspace/workspace.h"

namespace koprax {

Form4::Form4(const WindowContext& context) : Form(context.Desk, "Form4", "Form4"), context_(context) {
  SetLayout(Column({Stretched(Text1), Row({Space(), cmdOK, cmdCancel})}), true);
  cmdOK.OnClick = [this] { Accept(); };
  cmdCancel.OnClick = [this] { Cancel(); };
  EnterClicks(cmdOK);
  EscapeClicks(cmdCancel);
}

void Form4::OnLoad() {
  for_calibration_ = context_.Data.ReadingCal;
  file_name_ = context_.Data.FileName;
  preview_ = PreviewOfFile(file_name_);
  Text1.Text = preview_.Text;
}

void Form4::Accept() {
  if (for_calibration_) {
    TakeCalibration();
    return;
  }
  Unload();
  Desk().Load<Form7>(context_)->Show();
}

void Form4::Cancel() {
  Unload();
  if (for_calibration_) {
    context_.Data.ReadingCal = false;
  } else {
    context_.Main.BringMainMenuToFront();
  }
}

void Form4::TakeCalibration() {
  context_.Data.ReadingCal = false;
  const auto tell = [this](const Message& message) { Desk().Host().MsgBox(message); };
  const CoefficientsRead read =
      TakeCoefficients(preview_, file_name_, context_.Data.Current().CalPar, context_.Data.Words, tell);
  if (read.Problem) tell(*read.Problem);
  if (!read.Irregular) Unload();
}

}  // namespace koprax
