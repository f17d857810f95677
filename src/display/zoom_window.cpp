#include "display/zoom_window.h"

#include <algorithm>
#include <string>
#include <utility>

#include "display/bitmap_window.h"
#include "display/curve.h"
#include "display/mouse_tips.h"
#include "display/plot_axes.h"
#include "forms/desktop.h"
#include "forms/number_text.h"
#include "workspace/buffer_commands.h"

namespace koprax {

namespace {

constexpr int FormNumber = 15;

}  // namespace

Form15::Form15(const WindowContext& context, ZoomOpening opening)
    : Form(context.Desk, "Form15", "Zoom"),
      context_(context),
      opening_(std::move(opening)),
      slot_(context.Data.CurBuf) {
  ArrangeControls();
  cmdRet.OnClick = [this] { GoBack(opening_.Returned); };
  cmdCancel.OnClick = [this] { Cancel(); };
  Command1.OnClick = [this] { OpenBitmapWindow(context_, FormNumber); };
  Picture1.OnMouseMove = [this](float x, float y) { ShowReadOut(x, y); };
  Picture1.OnMouseDown = [this](MouseButton button, float x, float y) {
    if (button == MouseButton::Right && Picks() && shown_.Readable()) PickPeak(x, y);
  };
}

void Form15::ArrangeControls() {
  SetLayout(Column({Stretched(Picture1), Picture2,
                    Row({Text1, Text2, Text3, Space(), Command1, cmdCancel, cmdRet})}),
            true);
}

void Form15::OnLoad() {
  Line1.Visible = false;
  Picture2.Visible = static_cast<bool>(opening_.DrawLegend);
  cmdRet.Enabled = Picks();
  cmdCancel.Enabled = !Picks();
  if (!Picks()) {
    cmdCancel.Caption = "Undo Zoom";
  }
}

void Form15::OnCloseBox() { (Picks() ? cmdRet : cmdCancel).Click(); }

void Form15::ShowPart() {
  Show();
  Workspace& data = context_.Data;
  const PlotLimits& limits = opening_.Limits;
  data.ZoomXMin = limits.XMin;
  data.ZoomXMax = limits.XMax;
  data.ZoomYMin = limits.YMin;
  data.ZoomYMax = limits.YMax;
  if (!DrawAxes(data, limits, Picture1)) {
    Desk().Host().MsgBox(NoYSpan());
  }
  shown_.Keep(data, true);
  if (shown_.Readable()) {
    Picture1.ToolTip = Picks() ? mouse_tips::PickInZoom : mouse_tips::ReadOutWithD;
  }
  for (const ZoomedCurve& curve : opening_.Curves) {
    const auto draw = curve.Sticks ? DrawSticks : DrawCurve;
    draw(data.Plot, {curve.X, curve.Y, curve.Count}, Origin(), {limits.XMin, limits.XMax}, curve.CurveColour,
         Picture1);
  }
  for (const PeakPosition& peak : opening_.Peaks) {
    DrawMarker(data.Plot, Origin(), peak, ZoomedMarkerLength, Picture1);
  }
  if (opening_.DrawLegend) {
    opening_.DrawLegend(Picture2);
  }
  Line1.Visible = Picks();
}

CurveOrigin Form15::Origin() const {
  return {.XMin = opening_.Limits.XMin,
          .Base = PlotBase(shown_.Transform(), ReachesBelowZero(opening_.Limits))};
}

/// The difference of the first two X on show, or of the profile where fewer are. The sticks of a card have
/// none: they stand in degrees, however far apart.
float Form15::Step() const {
  const auto curve = std::ranges::find_if(
      opening_.Curves, [](const ZoomedCurve& shown) { return !shown.Sticks && shown.Count >= 2; });
  if (curve != opening_.Curves.end()) {
    return curve->X[2] - curve->X[1];
  }
  return Profile().IsCard() ? 0 : Profile().PermX[2] - Profile().PermX[1];
}

void Form15::ShowReadOut(float x, float y) {
  if (!shown_.Readable()) {
    return;
  }
  shown_.PutBack(context_.Data);
  const PlotTransform& plot = shown_.Transform();
  Line1.X1 = Line1.X2 = ClampedX(plot, x);
  at_cursor_ = ZoomedReadOutAt(Profile(), Step(), DataX(plot, ClampedX(plot, x), Origin().XMin));
  Text1.Text = "X-pos = " + at_cursor_.Theta;
  Text2.Text = "d = " + at_cursor_.D;
  Text3.Text = RoundedText(DataY(plot, ClampedY(plot, y), Origin().Base), 2);
}

void Form15::PickPeak(float x, float y) {
  if (at_cursor_.Theta.empty()) {  // the mouse has not moved here before
    ShowReadOut(x, y);
  }
  if (const auto refusal = WhyNotPicked(Profile())) {
    Desk().Host().MsgBox(*refusal);
    return;
  }
  MakeCurrent(context_, slot_);
  ProfileBuffer& buffer = context_.Data.Current();
  const PeakPick pick = PickedAt(buffer, at_cursor_);
  AddPeak(buffer, pick);
  DrawMarker(shown_.Transform(), Origin(), PositionOf(buffer, pick), MarkerLength, Picture1);
  opening_.Picked(pick);
}

void Form15::ErasePeak(const PeakPosition& peak) {
  if (XRange{opening_.Limits.XMin, opening_.Limits.XMax}.Holds(peak.X)) {
    EraseMarker(shown_.Transform(), Origin(), peak, Picture1);
  }
}

void Form15::Cancel() {
  context_.Data.ZoomMode = false;
  GoBack(opening_.Cancelled);
}

/// The window goes first: from then on the plot under it is the one at work.
void Form15::GoBack(const std::function<void()>& follow_up) {
  Unload();
  if (follow_up) {
    follow_up();
  }
}

std::shared_ptr<Form15> OpenZoomWindow(const WindowContext& context, ZoomOpening opening) {
  if (const auto open = context.Desk.Find("Form15")) {
    open->CloseBox();  // so that its opener is left as it should be
  }
  auto window = context.Desk.Load<Form15>(context, std::move(opening));
  window->ShowPart();
  return window;
}

}  // namespace koprax
