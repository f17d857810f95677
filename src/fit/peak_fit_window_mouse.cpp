// What the mouse does over the picture of the peak fit window: the read-out, the clicks of the stages, and
// the range.
#include <algorithm>

#include "display/mouse_tips.h"
#include "display/peak_picking.h"
#include "fit/fit_plot.h"
#include "fit/peak_fit_window.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

void PutAcross(LineShape& line, float x) {
  line.X1 = x;
  line.X2 = x;
}

}  // namespace

std::string Form19::MouseTip() const {
  if (!state_.Shown.Readable()) {
    return mouse_tips::NoPlot;
  }
  if (state_.SelPeaksMode) {
    return "The left button takes the peak at the red line.\r\nThe right button ends the selection.";
  }
  const bool line = state_.DrawBkgMode;
  switch (state_.ClickCount) {
    case 0:
      return "The boxes beside and below show position, d and y under the mouse.";
    case 1:
      return line ? "Click with the left button where the background line begins."
                  : "Click with the left button at one end of the range to fit.";
    case 2:
      return line ? "Click with the left button where the background line ends."
                  : "Click with the left button at the other end of the range.";
    default:
      return line ? "\"OK\" takes the line as the background.\r\n\"Cancel\" lets you draw it again."
                  : "\"OK\" takes the range between the lines.\r\n\"Cancel\" lets you select it again.";
  }
}

void Form19::MousePressed(MouseButton button, float x, float y) {
  if (state_.SelPeaksMode) {
    button == MouseButton::Left ? SelectPeak(x) : EndPeakSelection();
    return;
  }
  if (button != MouseButton::Left || state_.ClickCount == 0) {
    return;
  }
  TakeUp();
  if (!HasContent()) {
    return;
  }
  ++state_.ClickCount;
  state_.DrawBkgMode ? ClickForBackground(x, y) : ClickForRange(x);
  ShowMouseTip();
}

void Form19::MouseMoved(float x, float y) {
  if (!state_.Shown.Readable()) {
    return;
  }
  if (state_.SelPeaksMode) {
    PutAcross(Line4, x);
  } else if (state_.DrawBkgMode) {
    if (state_.ClickCount == 2) {
      Line3.Move(state_.LineX1, state_.LineY1, x, y);
    }
  } else {
    ShowReadOut(x, y);
  }
}

void Form19::ShowReadOut(float x, float y) {
  const PlotTransform& plot = state_.Shown.Transform();
  const float px = ClampedX(plot, x);
  const float data_x = DataX(plot, px, state_.PictureXMin);
  Text3.Text = "x = " + RoundedText(data_x, 3);
  const float base = PlotBase(plot, state_.NegativeY == 1);
  Text4.Text = "y = " + GeneralText(DataY(plot, ClampedY(plot, y), base));
  if (state_.FollowLow) {
    PutAcross(Line1, px);
  }
  if (state_.FollowHigh) {
    PutAcross(Line2, px);
  }
  const ProfileBuffer& buffer = Buffer();
  const double step = RoundDecimals(static_cast<double>(buffer.PermX[2] - buffer.PermX[1]), 3);
  const PeakPick at_mouse = ReadOutAt(buffer, step, data_x);
  Text10.Text = at_mouse.Channel;
  Text14.Text = at_mouse.Theta;
  Text15.Text = at_mouse.D;
}

void Form19::OfferAnswers(bool offered) {
  optOK.Visible = optNO.Visible = offered;
  optOK.Value = false;
  optNO.Value = false;
}

void Form19::AcceptSelection() {
  if (!SpansX({.XMin = state_.RangeLow, .XMax = state_.RangeHigh, .YMin = 0, .YMax = 0})) {
    Tell({.Text = "The range has no width.\r\nClick at its left end and at its right end.",
          .Title = "Warning",
          .Icon = MessageIcon::Information});
    RefuseSelection();
    return;
  }
  state_.DrawBkgMode = false;
  EndRangeSelection();
  DrawRange();
  cmdSelectRange.Enabled = false;
  Frame1.Visible = true;
}

void Form19::RefuseSelection() {
  if (state_.DrawBkgMode) {
    RestartBackgroundLine();
    return;
  }
  EndRangeSelection();
  Text16.Text = " ";
  Text17.Text = " ";
  SelectRange();
}

// The range.

void Form19::SelectRange() {
  EndRangeSelection();
  state_.RangeLow = Buffer().WorkXMin;
  state_.RangeHigh = Buffer().WorkXMax;
  state_.FollowLow = true;
  state_.ClickCount = 1;
  for (LineShape* limit : {&Line1, &Line2}) {
    limit->Move(0, 15, 0, 90);
  }
  Line1.Visible = true;
  Picture1.MousePointer = Pointer::EastWest;
  ShowMouseTip();
}

void Form19::ClickForRange(float x) {
  const PlotTransform& plot = context_.Data.Plot;
  if (state_.ClickCount == 2) {
    const float px = std::max(x, plot.PlotLeft);
    state_.RangeLow = DataX(plot, px, state_.PictureXMin);
    PutAcross(Line1, px);
    Line2.Visible = true;
    state_.FollowHigh = true;
    state_.FollowLow = false;
  } else if (state_.ClickCount == 3) {
    const float px = std::min(x, plot.PlotRight);
    state_.RangeHigh = DataX(plot, px, state_.PictureXMin);
    PutAcross(Line2, px);
    state_.FollowLow = state_.FollowHigh = false;
    if (state_.RangeHigh < state_.RangeLow) {
      std::swap(state_.RangeLow, state_.RangeHigh);
    }
    Text16.Text = "lower limit = " + RoundedText(state_.RangeLow, 3);
    Text17.Text = "upper limit = " + RoundedText(state_.RangeHigh, 3);
    Picture1.MousePointer = Pointer::Arrow;
    OfferAnswers(true);
  }
}

void Form19::EndRangeSelection() {
  Line1.Visible = Line2.Visible = false;
  state_.FollowLow = state_.FollowHigh = false;
  state_.ClickCount = 0;
  OfferAnswers(false);
  Picture1.MousePointer = Pointer::Arrow;
  ShowMouseTip();
}

void Form19::DrawRange() {
  DrawFrame(Range());
  CollectFitRange(Buffer(), Range(), Fit());
  DrawFitRange(context_.Data.Plot, Fit(), Origin(), Picture1);
  Boxes.ShowRange(Range());
}

}  // namespace koprax
