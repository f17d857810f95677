// What the mouse does over the picture of the Multiprofile window: the read-out, and the selection of the
// part that opens in the zoom window.
#include <functional>
#include <utility>
#include <vector>

#include "display/mouse_tips.h"
#include "display/multi_profile.h"
#include "display/plot_axes.h"
#include "display/profile_sum.h"
#include "display/rubber_band.h"
#include "display/several_profiles_window.h"
#include "display/zoom.h"
#include "display/zoom_window.h"
#include "forms/desktop.h"
#include "forms/number_text.h"
#include "workspace/buffer_commands.h"

namespace koprax {

namespace {

/// The points of the temporary copy that lie within the range.
ZoomedCurve ZoomedPart(const ProfileBuffer& buffer, const XRange& range) {
  ZoomedCurve part{.X = PointTable(MaxPoints + 1),
                   .Y = PointTable(MaxPoints + 1),
                   .Count = 0,
                   .CurveColour = static_cast<Colour>(buffer.BufColor),
                   .Sticks = buffer.IsCard()};
  part.Count = CopyRange({buffer.WorkX, buffer.WorkY, buffer.WorkNpts}, range, part.X, part.Y);
  return part;
}

XRange InDecimals(const XRange& range, int decimals) {
  return {.Low = RoundDecimals(range.Low, decimals), .High = RoundDecimals(range.High, decimals)};
}

}  // namespace

void Form2::StartSelection() {
  if (!state_.Shown.Readable()) {
    Tell(NothingToSelectFrom());
    return;
  }
  CloseZoom();
  GiveUpArithmetic();
  if (!state_.ZoomSelecting) {
    state_.DragActive = state_.IgnoreUp = false;
  }
  state_.ZoomSelecting = true;
  cmdMod.Enabled = cmdMain.Enabled = false;
  EnableOutput(false);
  ShowAtRest(Shape1);
  optNO.Value = false;
  optOK.Value = false;
  Picture1.MousePointer = Pointer::Cross;
  TellMouse();
}

void Form2::MousePressed(float x, float y) {
  state_.Shown.PutBack(context_.Data);
  state_.DragActive = true;
  optOK.Visible = optNO.Visible = false;
  Picture1.MoveTo(x, y);
  if (state_.ZoomSelecting && !StartRubberBand(context_.Data.Plot, Shape1, x, y)) {
    state_.IgnoreUp = true;
  }
  TellMouse();
}

void Form2::MouseMoved(float x, float y) {
  if (!state_.Shown.Readable()) {
    return;
  }
  state_.Shown.PutBack(context_.Data);
  const Workspace& data = context_.Data;
  const PlotTransform& plot = data.Plot;
  const float picture_x = ClampedX(plot, x);
  const double value = data.PlotXMin + (static_cast<double>(picture_x) - plot.PlotLeft) / plot.ScaleX;
  Text3.Text = "x = " + GeneralText(value);
  const float base = PlotBase(plot, ReachesBelowZero(state_.Shown.Limits()));
  Text4.Text = "y = " + GeneralText(DataY(plot, ClampedY(plot, y), base));
  if (state_.DragActive && state_.ZoomSelecting) {
    FollowMouse(plot, Shape1, picture_x);
  }
}

void Form2::MouseReleased(float x) {
  state_.DragActive = false;
  if (!state_.ZoomSelecting) {
    Picture1.MousePointer = Pointer::Arrow;
    return;
  }
  if (state_.IgnoreUp) {
    state_.IgnoreUp = false;
    return;
  }
  optOK.Visible = optNO.Visible = true;
  Picture1.MousePointer = Pointer::Arrow;
  state_.Shown.PutBack(context_.Data);
  const Workspace& data = context_.Data;
  const XRange range = AsShown(SelectedX(data.Plot, Shape1, x, data.PlotXMin, data.PlotXMax));
  state_.SelXLow = range.Low;
  state_.SelXHigh = range.High;
  state_.SelYTop = SelectedTop(data.Plot, Shape1);
  ShowRange(range);
  TellMouse();
}

PlotLimits Form2::SelectedLimits() const {
  return {.XMin = state_.SelXLow,
          .XMax = state_.SelXHigh,
          .YMin = state_.Shown.Limits().YMin,
          .YMax = state_.SelYTop};
}

void Form2::AcceptSelection() {
  if (state_.SelXLow >= state_.SelXHigh) {  // no plot can show such a part
    optOK.Value = false;
    Tell({.Text =
              "The selection holds no range of X.\r\nDrag the mouse from the upper left corner of a part to "
              "its right end.",
          .Title = "Warning",
          .Icon = MessageIcon::Information});
    return;
  }
  state_.ZoomSelecting = false;
  cmdZoom.Enabled = cmdMain.Enabled = true;
  EnableArithmetic();
  HideSelection();
  Shape1.Width = BandSize;
  OpenZoom();
}

void Form2::CancelSelection() {
  state_.ZoomSelecting = false;
  HideSelection();
  Picture1.MousePointer = Pointer::Arrow;
  Shape1.Height = BandSize;
  cmdMain.Enabled = cmdZoom.Enabled = true;
  EnableOutput(true);
  EnableArithmetic();
}

void Form2::HideSelection() {
  optOK.Visible = optNO.Visible = Shape1.Visible = false;
  TellMouse();
}

/// What the mouse does as things stand.
const char* Form2::MouseTip() const {
  if (!state_.Shown.Readable()) {
    return mouse_tips::NoPlot;
  }
  if (!state_.ZoomSelecting) {
    return mouse_tips::ReadOut;
  }
  return optOK.Visible ? mouse_tips::Selected : mouse_tips::SelectPart;
}

/// CurBuf ends at the last buffer of the plot.
void Form2::OpenZoom() {
  Workspace& data = context_.Data;
  if (const auto of_the_explorer = Desk().Find("Form15")) {
    of_the_explorer->CloseBox();
  }
  const PlotLimits limits = SelectedLimits();
  ZoomOpening opening{.Limits = limits, .Curves = {}};
  for (const int slot : state_.Slots) {
    MakeCurrent(context_, slot);
    opening.Curves.push_back(ZoomedPart(data.Current(), {.Low = limits.XMin, .High = limits.XMax}));
  }
  opening.Cancelled = WhileLoaded(std::function<void()>([this] { LeaveZoom(); }));
  opening.DrawLegend = [&data, slots = state_.Slots](Surface& legend) { DrawLegend(data, slots, legend); };
  state_.Zoom = OpenZoomWindow(context_, std::move(opening));
  ShareFrame(data, state_.Slots, limits);
}

void Form2::LeaveZoom() {
  Workspace& data = context_.Data;
  Show();
  if (!Desk().Find("Form30")) {  // where a result still waits to be saved
    ResetComputedProfile(data);
  }
  cmdMain.Enabled = cmdZoom.Enabled = true;
  EnableOutput(true);
  EnableArithmetic();
  TakePlotBack();
  const PlotLimits limits = LimitsOfDrawing(data);
  ShowRange(InDecimals({.Low = limits.XMin, .High = limits.XMax}, 3));
}

void Form2::CloseZoom() {
  if (const auto zoom = state_.Zoom.lock(); zoom && zoom->Loaded()) {
    zoom->CloseBox();
  }
}

}  // namespace koprax
