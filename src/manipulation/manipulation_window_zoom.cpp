// What the mouse does over the picture of the manipulation window: the read-out, and the zoom of a profile
// with its background.
#include <algorithm>
#include <cstddef>
#include <span>

#include "display/mouse_tips.h"
#include "display/plot_axes.h"
#include "forms/desktop.h"
#include "forms/number_text.h"
#include "manipulation/manipulation_window.h"

namespace koprax {

namespace {

/// Whether there is something to enlarge: a range of X and of Y.
bool SpansBoth(const PlotLimits& limits) {
  return SpansX(limits) && limits.YMax > std::min(limits.YMin, 0.0F);
}

}  // namespace

// The mouse over the picture.

std::string Form12::MouseTip() const {
  if (!state_.Shown.Readable()) {
    return mouse_tips::NoPlot;
  }
  if (!state_.ZoomSelect) {
    return mouse_tips::ReadOut;
  }
  if (optOK.Visible) {
    return mouse_tips::Selected;
  }
  return state_.Zoomed
             ? "Drag with the left button to enlarge a part of what is shown.\r\n\"Un-zoom\" shows the "
               "whole profile again."
             : mouse_tips::SelectPart;
}

void Form12::MousePressed(float x, float y) {
  optOK.Visible = optNO.Visible = false;
  if (state_.ZoomSelect) {
    TakeUp();
    state_.ZoomDrag = true;
    Shape1.Visible = true;
    PlaceRubberBand(context_.Data.Plot, Shape1, x, y);
  }
  ShowMouseTip();
}

void Form12::MouseMoved(float x, float y) {
  if (!state_.Shown.Readable()) {
    return;
  }
  ShowReadOut(x, y);
  if (state_.ZoomSelect && state_.ZoomDrag) {
    const PlotTransform& plot = state_.Shown.Transform();
    FollowMouse(plot, Shape1, ClampedX(plot, x));
  }
}

void Form12::ShowReadOut(float x, float y) {
  const PlotTransform& plot = state_.Shown.Transform();
  Text3.Text = "x = " + RoundedText(DataX(plot, ClampedX(plot, x), state_.PictureXMin), 3);
  const float base = PlotBase(plot, state_.NegativeY == 1);
  Text4.Text = "y = " + GeneralText(DataY(plot, ClampedY(plot, y), base));
}

void Form12::MouseReleased(float x) {
  if (!state_.ZoomDrag) {
    return;
  }
  state_.ZoomDrag = false;
  TakeUp();
  if (!HasContent()) {
    return;
  }
  optOK.Visible = optNO.Visible = true;
  ShowMouseTip();
  Picture1.MousePointer = Pointer::Arrow;
  const PlotTransform& plot = context_.Data.Plot;
  const XRange range = SelectedX(plot, Shape1, x, state_.PictureXMin, state_.Whole.XMax);
  state_.ZoomTop = SelectedTop(plot, Shape1);
  state_.ZoomBottom = state_.Whole.YMin;
  Buffer().WorkYMax = state_.ZoomTop;
  state_.ZoomLow = RoundDecimals(range.Low, 3);
  state_.ZoomHigh = RoundDecimals(range.High, 3);
  Boxes.ShowRange({state_.ZoomLow, state_.ZoomHigh});
}

// The zoom.

void Form12::StartZoom() {
  if (!state_.Shown.Readable()) {
    Tell(NothingToSelectFrom());
    return;
  }
  if (!HasContent()) {
    return;
  }
  UseBackgroundColours();
  if (state_.ShowsCoefficients) {
    DrawWithSmoothCurve(state_.Whole);  // a range of X is chosen in a picture over X
  }
  Frame1.Visible = Frame1.Enabled = false;
  EnableBackgroundCommands(false);
  cmdMain.Enabled = cmdBckg.Enabled = cmdSmo.Enabled = false;
  ShowAtRest(Shape1);
  optNO.Value = false;
  optOK.Value = false;
  Picture1.MousePointer = Pointer::Cross;
  state_.ZoomLow = state_.PictureXMin;
  state_.ZoomSelect = true;
  cmdZoom.Caption = "Un-zoom";
  ShowMouseTip();
}

PlotLimits Form12::SelectedLimits() const {
  return {.XMin = state_.ZoomLow, .XMax = state_.ZoomHigh, .YMin = state_.ZoomBottom, .YMax = state_.ZoomTop};
}

void Form12::AcceptZoom() {
  if (!SpansBoth(SelectedLimits())) {
    optOK.Value = false;
    Tell({.Text = "The portion has no width or no height.\r\nPress the mouse at its upper left "
                  "corner, and move it to the right.",
          .Title = "Warning",
          .Icon = MessageIcon::Information});
    return;
  }
  UseBackgroundColours();
  state_.Zoomed = true;
  EnableBackgroundCommands(false);
  cmdZoom.Enabled = true;
  cmdBckg.Enabled = cmdMain.Enabled = false;
  HideSelection();
  Shape1.Width = Shape1.Height = AcceptedBandSize;
  DrawWithSmoothCurve(SelectedLimits());
}

void Form12::CancelZoom() {
  if (state_.Zoomed) {  // another portion of an enlarged one was given up
    DrawWithSmoothCurve(state_.Whole);
  }
  ForgetZoom();
  Shape1.Width = BandSize;
  cmdMain.Enabled = false;
}

void Form12::Unzoom() {
  UseBackgroundColours();
  if (state_.Plotted) {
    DrawWithSmoothCurve(state_.Whole);
  }
  ForgetZoom();
  Shape1.Left = Shape1.Top = RestingBandEdge;
}

/// Ends a zoom, selected or in force; the picture stays.
void Form12::ForgetZoom() {
  if (!state_.ZoomSelect) {
    return;
  }
  state_.ZoomSelect = state_.ZoomDrag = state_.Zoomed = false;
  cmdZoom.Caption = "Zoom";
  Boxes.ShowRange({state_.Whole.XMin, state_.Whole.XMax});
  HideSelection();
  Picture1.MousePointer = Pointer::Arrow;
  EnableBackgroundCommands(true);
}

void Form12::HideSelection() {
  optOK.Visible = optNO.Visible = Shape1.Visible = false;
  optOK.Value = false;
  optNO.Value = false;
  ShowMouseTip();
}

void Form12::EnableBackgroundCommands(bool enabled) {
  for (Button* command : {&cmdResume, &cmdSubtr, &cmdRes, &cmdSave, &cmdPrint, &cmdQuitBckg}) {
    command->Enabled = enabled;
  }
}

void Form12::DrawWithSmoothCurve(const PlotLimits& limits) {
  if (!HoldsItsPoints()) {  // which leaves nothing to show
    Picture1.Cls();
    state_.Shown.Keep(context_.Data, false);
    ShowMouseTip();
    return;
  }
  if (!DrawFrame(limits)) {
    return;
  }
  const ProfileBuffer& buffer = Buffer();
  const auto smooth =
      std::span<const float>(context_.Data.PaddedY).subspan(static_cast<std::size_t>(state_.HalfWindow));
  DrawProfileWithBackground(
      context_.Data.Plot,
      {.X = buffer.PermX, .Profile = buffer.WorkY, .Background = smooth, .Count = buffer.WorkNpts}, Origin(),
      {limits.XMin, limits.XMax}, {state_.ProfileColour, state_.BackgroundColour}, Picture1);
}

}  // namespace koprax
