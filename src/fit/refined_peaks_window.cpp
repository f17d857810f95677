#include "fit/refined_peaks_window.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "files/peak_list_commands.h"
#include "fit/fit_parameters.h"
#include "forms/desktop.h"
#include "forms/number_text.h"
#include "workspace/buffer_commands.h"

namespace koprax {

namespace {

/// The whole number that a box starts with. What no 16 bits hold is out of every range, whatever it is.
int NumberIn(const TextBox& box) {
  constexpr double largest = 32767;
  return static_cast<int>(std::clamp(RoundHalfEven(LeadingNumber(box.Text.Get())), -largest, largest));
}

LayoutNode AtRight(Control& control) { return Row({Space(), control}); }

}  // namespace

Form23::Form23(const WindowContext& context)
    : Form(context.Desk, "Form23", "Refined peak list"), context_(context) {
  ArrangeControls();
  ConnectHandlers();
}

void Form23::ArrangeControls() {
  const LayoutNode lists = Row({Stretched(Column({Label7, Stretched(Text1)})),  //
                                Stretched(Column({Label6, Stretched(Text2)}))});
  std::vector<LayoutNode> commands_on_a_peak{
      AtRight(Label3),  Row({Text3, Label5, Text4, Label4, Space(), cmdSubs}),
      AtRight(Label1),  Row({Text5, Stretched(Label8), cmdInsert}),
      AtRight(Label11), Row({Text6, Label12, Space(), cmdDelete})};
  commands_on_a_peak[1].Stretch = 1;
  SetLayout(
      Column({Label2, Stretched(lists), Grid(2, std::move(commands_on_a_peak)),
              Row({Label9, Space(), cmdOrder}), Row({Label10, Space(), cmdSave}), Row({Space(), cmdBack})}),
      true);
}

void Form23::ConnectHandlers() {
  cmdSubs.OnClick =
      OnItsProfile([this] { Finish(SubstitutePeak(Buffer(), peaks_, NumberIn(Text3), NumberIn(Text4))); });
  cmdInsert.OnClick = OnItsProfile([this] { Finish(AddRefinedPeak(Buffer(), peaks_, NumberIn(Text5))); });
  cmdDelete.OnClick = OnItsProfile([this] { Finish(DeletePeak(Buffer(), NumberIn(Text6))); });
  cmdOrder.OnClick = OnItsProfile([this] {
    OrderPeaks(Buffer());
    ShowLists();
  });
  cmdSave.OnClick = OnItsProfile([this] { SavePeakListAsHeld(context_); });
  cmdBack.OnClick = [this] { Unload(); };
  SetKeys();
}

void Form23::SetKeys() {
  cmdSubs.Meaning = "OK, substitute the peak";
  cmdInsert.Meaning = "OK, add the peak";
  cmdDelete.Meaning = "OK, delete the peak";
  cmdOrder.Meaning = "OK, order the permanent list";
  cmdSave.Meaning = "OK, save the permanent list on disk";
  // Not the substitution: Enter in the first of its boxes would take what stands in the second from before.
  EnterClicks(cmdInsert);
  EnterClicks(cmdDelete);
  EscapeCloses();
}

void Form23::OnLoad() {
  slot_ = context_.Data.CurBuf;
  kept_.KeepPermanent(Buffer());
  peaks_ = PeaksOfFit(context_.Data.Fit);
  ShowLists();
}

std::function<void()> Form23::OnItsProfile(std::function<void()> command) {
  return [this, command = std::move(command)] {
    if (!kept_.PermanentMatches(Buffer())) {
      Desk().Host().MsgBox(
          ErrorMessage("Buffer " + Buffer().BufLetter +
                       " doesn't hold the profile any more that these peaks were refined on.\r\nNothing is "
                       "changed. Fit the profile that it holds now, or load the other one anew."));
      return;
    }
    MakeCurrent(context_, slot_);
    command();
  };
}

void Form23::Finish(ListChange change) {
  switch (change) {
    case ListChange::Done:
      ShowLists();
      break;
    case ListChange::Nothing:
      break;
    case ListChange::OutOfRange:
      Desk().Host().MsgBox(ErrorMessage("A peak of the permanent list is numbered from 1 to " +
                                        std::to_string(MaxPeaks) + ", one of the temporary list from 1 to " +
                                        std::to_string(MaxFitPeaks) + ".\r\nNothing is changed."));
      break;
    case ListChange::ListFull:
      Desk().Host().MsgBox(ErrorMessage("The permanent list holds " + std::to_string(MaxPeaks) +
                                        " peaks already, so this one is not added.\r\nDelete a peak first, "
                                        "or substitute one."));
      break;
  }
}

void Form23::ShowLists() {
  Text1.Text = PermanentLines(Buffer());
  Text2.Text = TemporaryLines(peaks_);
}

}  // namespace koprax
