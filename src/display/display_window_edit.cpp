// Edit mode of the Display and Work window: the points of a short portion as text, their changes shown in
// the plot, accepted or rejected. The numbers are the work of edit_portion.
#include <optional>
#include <string>

#include "display/constant_question.h"
#include "display/display_window.h"
#include "forms/desktop.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

Message TooLongPortion() {
  return {.Text =
              "A too long portion of the profile has been selected.\r\n"
              "For speeding up operations it is better to chose one short portion at a time.",
          .Title = "Warning",
          .Icon = MessageIcon::Information};
}

Message CutInList(const std::string& number) {
  return {.Text = "The number " + number +
                  " is too long for its column of the list, where its end is missing.\r\n"
                  "Write such numbers out before \"Show changes\", which takes the list as it stands.",
          .Title = "Warning",
          .Icon = MessageIcon::Information};
}

Message UnusableLine(int line) {
  return {.Text = "Line " + std::to_string(line) +
                  " of the list holds a number that is out of range.\r\n"
                  "Give two numbers between -3E+38 and 3E+38, X and Y.",
          .Title = "Error",
          .Icon = MessageIcon::Stop};
}

}  // namespace

void Form6::AcceptEditRange() {
  const std::optional<EditRange> range = SelectedPortion();
  if (!range) {
    CancelSelection();
    return;
  }
  SetSelection(false, false);
  Frame1.Visible = true;
  EnableDecision(false);
  optOK.Visible = optNO.Visible = false;
  MousePointer = Pointer::Hourglass;
  ShowEditList(*range, FillEditList(context_.Data, context_.Data.CurBuf, *range));
  MousePointer = Pointer::Arrow;
}

/// The points in the selected range; nothing, which the user is told, where there is none.
std::optional<EditRange> Form6::SelectedPortion() {
  const auto range = RangeToEdit(Buffer(), {state_.SelXLow, state_.SelXHigh});
  if (!range) {
    Desk().Host().MsgBox({.Text = "No point of the profile lies between " + GeneralText(state_.SelXLow) +
                                  " and " + GeneralText(state_.SelXHigh) +
                                  ".\r\nSelect a portion that holds one point at least.",
                          .Title = "Warning",
                          .Icon = MessageIcon::Information});
  }
  return range;
}

void Form6::ShowEditList(const EditRange& range, const EditList& list) {
  state_.Edited = range;
  state_.EditedPoints = PointsOf(Buffer(), range);
  Text8.Text = list.Text;
  if (list.TooLong) {
    Desk().Host().MsgBox(TooLongPortion());
  }
  if (!list.CutNumber.empty()) {
    Desk().Host().MsgBox(CutInList(list.CutNumber));
  }
}

/// Whether the points of the list are still those of the profile, which another window may have changed; told
/// if not.
bool Form6::PortionIsThere() {
  const bool there = PointsOf(Buffer(), state_.Edited) == state_.EditedPoints;
  if (!there) {
    Desk().Host().MsgBox(
        ErrorMessage("The profile has been changed in another window since this portion was selected.\r\n"
                     "Quit Edit and select the portion again."));
  }
  return there;
}

void Form6::ShowChanges() {
  if (!PortionIsThere()) {
    return;
  }
  SetSelection(false, false);
  MousePointer = Pointer::Hourglass;
  const std::optional<int> bad_line = Apply(EditDrawing::Changes);
  MousePointer = Pointer::Arrow;
  if (bad_line) {
    Desk().Host().MsgBox(UnusableLine(*bad_line));
    return;
  }
  Shape1.Visible = false;
  EnableDecision(true);
}

void Form6::RejectChanges() {
  if (!PortionIsThere()) {
    return;
  }
  HideSelection();
  SetSelection(false, false);
  MousePointer = Pointer::Hourglass;
  Apply(EditDrawing::RubOut);  // numbers that can't be taken were never drawn
  Apply(EditDrawing::AsChosen);
  MousePointer = Pointer::Arrow;
  EnableDecision(false);
}

std::optional<int> Form6::Apply(EditDrawing drawing) {
  state_.Shown.PutBack(context_.Data);
  std::string box = Text8.Text;
  const auto bad_line = ApplyEdit(context_.Data, context_.Data.CurBuf, state_.Edited, drawing, box, Picture1,
                                  [this](const Message& message) { Desk().Host().MsgBox(message); });
  Text8.Text = box;
  return bad_line;
}

void Form6::AcceptChanges() {
  if (!PortionIsThere()) {
    return;
  }
  for (Button* command : {&cmdZoom, &cmdSave, &cmdMod, &cmdMain, &cmdEdit}) {
    command->Enabled = false;
  }
  MousePointer = Pointer::Hourglass;
  AcceptEdit(context_.Data, context_.Data.CurBuf, state_.Edited);
  state_.EditedPoints = PointsOf(Buffer(), state_.Edited);
  RedrawProfile();
  MousePointer = Pointer::Arrow;
}

void Form6::ChangeAll() {
  if (!PortionIsThere()) {
    return;
  }
  const std::optional<float> k = AskForConstant(Desk().Host(), "Y = K");
  const std::optional<EditRange> range = k ? SelectedPortion() : std::nullopt;
  if (range) {
    MousePointer = Pointer::Hourglass;
    ShowEditList(*range, ChangeAllY(context_.Data, context_.Data.CurBuf, *range, *k));
    MousePointer = Pointer::Arrow;
  }
}

void Form6::QuitEdit() {
  if (MousePointer == Pointer::Hourglass) {
    return;
  }
  Shape1.Visible = Frame1.Visible = false;
  Shape1.Width = Shape1.Height = AcceptedBandSize;
  EnterMode(DisplayMode::EditLeft);
  cmdManExpl.Enabled = state_.SavedExplEnabled;
  Boxes.Text6.Text = state_.SavedText6;
  Boxes.Text7.Text = state_.SavedText7;
}

void Form6::EnableDecision(bool enabled) { cmdAccept.Enabled = cmdEditNO.Enabled = enabled; }

}  // namespace koprax
