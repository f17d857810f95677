// What the mouse does over the picture of the Display and Work window: the read-out, and the selection for
// zoom and edit. Manual Explorer stands in display_window_explorer.cpp.
#include "display/display_window.h"
#include "display/mouse_tips.h"
#include "display/plot_axes.h"
#include "display/zoom.h"
#include "forms/desktop.h"
#include "forms/number_text.h"
#include "workspace/temporary_copy.h"

namespace koprax {

// The selection with the rubber band.

void Form6::SetSelection(bool zoom, bool edit) {
  context_.Data.ZoomMode = state_.ZoomSelecting = zoom;
  state_.EditMode = edit;
}

void Form6::StartSelection(DisplayMode mode) {
  if (!state_.Shown.Readable()) {
    Desk().Host().MsgBox(NothingToSelectFrom());
    return;
  }
  if (!HoldsProfile()) {
    return;
  }
  CloseZoom();
  GiveUpArithmetic();
  const bool from_pause = mode == DisplayMode::ZoomSelection && ExplorerPaused();
  if (Frame4.Visible && !from_pause) {
    QuitExplorer();  // which runs on the whole profile alone
  }
  if (!Selecting()) {
    state_.SavedYMax = Buffer().WorkYMax;
    state_.SavedText6 = Boxes.Text6.Text;
    state_.SavedText7 = Boxes.Text7.Text;
    state_.DragActive = state_.IgnoreUp = false;
  }
  SetSelection(mode == DisplayMode::ZoomSelection, mode == DisplayMode::EditSelection);
  if (state_.EditMode) {
    state_.SavedExplEnabled = cmdManExpl.Enabled;
    state_.SavedUnzoomEnabled = cmdUnzoom.Enabled;
  } else {
    Frame1.Visible = false;
  }
  EnterMode(mode);
  ShowAtRest(Shape1);
  optNO.Value = false;
  optOK.Value = false;
  Picture1.MousePointer = Pointer::Cross;
}

void Form6::PressInSelection(float x, float y) {
  state_.DragActive = true;
  optOK.Visible = optNO.Visible = false;
  Picture1.MousePointer = Pointer::Cross;
  Picture1.MoveTo(x, y);
  if (!StartRubberBand(context_.Data.Plot, Shape1, x, y)) {
    state_.IgnoreUp = true;
  }
}

void Form6::ReleaseInSelection(float x) {
  state_.DragActive = false;
  if (state_.IgnoreUp) {
    state_.IgnoreUp = false;
    return;
  }
  optOK.Visible = optNO.Visible = true;
  Picture1.MousePointer = Pointer::Arrow;
  const PlotTransform& plot = context_.Data.Plot;
  const XRange range = SelectedX(plot, Shape1, x, state_.Shown.Limits().XMin, state_.Shown.Limits().XMax);
  if (range.Low >= range.High) {
    optOK.Visible = optNO.Visible = false;
    return;
  }
  state_.SelYTop = SelectedTop(plot, Shape1);
  state_.SelYBottom = Buffer().WorkYMin;
  if (state_.ZoomSelecting && !ExplorerPaused()) {
    Buffer().WorkYMax = state_.SelYTop;
  }
  ShowSelectedRange(range);
}

void Form6::ShowSelectedRange(const XRange& range) {
  const XRange shown = AsShown(range);
  state_.SelXLow = shown.Low;
  state_.SelXHigh = shown.High;
  Boxes.ShowRange(shown);
}

void Form6::AcceptSelection() {
  if (state_.EditMode) {
    AcceptEditRange();
  } else if (ExplorerPaused()) {
    ZoomFromExplorer();
  } else {
    AcceptZoom();
  }
}

void Form6::AcceptZoom() {
  SetSelection(false, state_.EditMode);
  HideSelection();
  Shape1.Width = Shape1.Height = AcceptedBandSize;
  CutToRange(context_.Data, state_.SelXLow, state_.SelXHigh);
  EnterMode(DisplayMode::Zoomed);
  RedrawProfile();
}

void Form6::CancelSelection() {
  const bool from_edit = state_.EditMode;
  SetSelection(false, false);
  HideSelection();
  Picture1.MousePointer = Pointer::Arrow;
  Shape1.Width = BandSize;
  Buffer().WorkYMax = state_.SavedYMax;
  Boxes.Text6.Text = state_.SavedText6;
  Boxes.Text7.Text = state_.SavedText7;
  if (Frame4.Visible) {  // the selection was made from a paused explorer
    EnterMode(DisplayMode::ExplorerZoomCancelled);
    return;
  }
  EnterMode(DisplayMode::ZoomCancelled);
  if (from_edit) {  // which had switched it off; a zoomed view must stay able to go back
    cmdUnzoom.Enabled = state_.SavedUnzoomEnabled;
  }
}

void Form6::HideSelection() { optOK.Visible = optNO.Visible = Shape1.Visible = false; }

void Form6::UndoZoom() {
  SetSelection(false, state_.EditMode);
  EnterMode(DisplayMode::UndoZoomed);
  HideSelection();
  Shape1.Width = Shape1.Height = BandSize;
  Picture1.MousePointer = Pointer::Arrow;
  TakeTemporaryCopy(Buffer());
  state_.Kept.KeepPermanent(Buffer());
  RedrawProfile();
}

// The mouse over the picture.

void Form6::MousePressed(MouseButton button, float x, float y) {
  if (Selecting()) {
    TakeUp();
    PressInSelection(x, y);
  } else if (context_.Data.ExplorerMode && !Frame3.Visible) {
    TakeUp();
    if (button == MouseButton::Left) {
      PauseExplorer();
    } else {
      PickPeak(x, y);
    }
  }
  TellMouse();
}

void Form6::MouseMoved(float x, float y) {
  state_.Shown.PutBack(context_.Data);
  if (state_.Shown.Readable()) {
    ShowReadOut(x, y);
  }
  if (state_.DragActive && Selecting()) {
    FollowMouse(context_.Data.Plot, Shape1, ClampedX(context_.Data.Plot, x));
  }
}

void Form6::MouseReleased(MouseButton button, float x, float /*y*/) {
  if (button == MouseButton::Right) {
    return;
  }
  if (Selecting()) {
    TakeUp();
    ReleaseInSelection(x);
  } else if (!Frame3.Visible) {
    context_.Data.ExplorerMode = false;
  }
  TellMouse();
}

/// What the mouse does as things stand.
const char* Form6::MouseTip() const {
  if (!state_.Shown.Readable()) {
    return mouse_tips::NoPlot;
  }
  if (Selecting()) {
    if (optOK.Visible) {
      return mouse_tips::Selected;
    }
    return state_.EditMode ? mouse_tips::SelectPortion : mouse_tips::SelectPart;
  }
  if (Frame3.Visible || ZoomIsOpen()) {
    return mouse_tips::ReadOut;
  }
  if (ExplorerPaused()) {
    return mouse_tips::ExplorerPaused;
  }
  return context_.Data.ExplorerMode ? mouse_tips::Explore : mouse_tips::ReadOut;
}

void Form6::ShowReadOut(float x, float y) {
  const PlotTransform& plot = ShownPlot();
  const float picture_x = ClampedX(plot, x);
  const float value = DataX(plot, picture_x, state_.Shown.Limits().XMin);
  Text3.Text = "x = " + RoundedText(value, 4);
  const float base = PlotBase(plot, ReachesBelowZero(state_.Shown.Limits()));
  Text4.Text = "y = " + GeneralText(DataY(plot, ClampedY(plot, y), base));
  if (context_.Data.ExplorerMode && Buffer().Wavelength != 0) {
    FollowExplorer(picture_x, value);
  }
}

}  // namespace koprax
