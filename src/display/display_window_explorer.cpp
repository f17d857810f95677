// Manual Explorer of the Display and Work window: the cursor with its read-out, the picked peaks with their
// list and markers, and the zoom of a paused explorer.
#include <functional>
#include <string>

#include "display/display_window.h"
#include "display/peak_markers.h"
#include "display/plot_axes.h"
#include "display/zoom.h"
#include "forms/desktop.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

constexpr const char* ResumeCaption = "Resume";
constexpr const char* ExplorerCaption = "Manual Explorer";

Message NothingToZoom() {
  return {.Text = "The selected range is too narrow to be shown.\r\nSelect a wider one.",
          .Title = "Warning",
          .Icon = MessageIcon::Information};
}

}  // namespace

bool Form6::ExplorerPaused() const { return cmdManExpl.Caption == ResumeCaption; }

void Form6::StartExplorer() {
  if (!HoldsProfile()) {
    return;
  }
  GiveUpArithmetic();
  const bool ask_wavelength = Buffer().Wavelength == 0;
  Frame3.Visible = ask_wavelength;
  if (!ask_wavelength) {
    Line1.Visible = Frame2.Visible = true;
    Picture1.MousePointer = Pointer::Cross;
  }
  context_.Data.ExplorerMode = true;
  state_.AtCursor = {};
  SetSelection(false, false);
  Buffer().PeakListText = PeakRows(Buffer());
  Text17.Text = Buffer().PeakListText;
  EnableListCommands();
  Frame4.Visible = true;
  EnterMode(DisplayMode::Explorer);
  HideSelection();
  Frame1.Visible = false;
  ResetCursorLine();
  optNO.Value = false;
  optOK.Value = false;
  KeepExplorerScale();
  MarkPeaks();
}

void Form6::ResumeExplorer() {
  cmdManExpl.Caption = ExplorerCaption;
  cmdZoom.Enabled = false;
  Line1.Visible = true;
  context_.Data.ExplorerMode = true;
  Picture1.MousePointer = Pointer::Cross;
  EnableListCommands();
}

void Form6::PauseExplorer() {
  ResetCursorLine();
  Line1.Visible = false;
  cmdManExpl.Caption = ResumeCaption;
  EnterMode(DisplayMode::ExplorerPaused);
}

void Form6::QuitExplorer() {
  CloseZoom();
  if (Selecting()) {
    CancelSelection();
  }
  context_.Data.ExplorerMode = false;
  Frame4.Visible = Frame2.Visible = Frame3.Visible = false;
  EnterMode(DisplayMode::ExplorerLeft);
  cmdManExpl.Caption = ExplorerCaption;
  Picture1.MousePointer = Pointer::Arrow;
  ResetCursorLine();
  Line1.Visible = false;
  Buffer().PeakListText = Text17.Text;
  Text17.Text = "";
  RubOutPeaks();
}

void Form6::FollowExplorer(float picture_x, float x) {
  Line1.X1 = Line1.X2 = picture_x;
  state_.AtCursor = ReadOutAt(Buffer(), x);
  Text10.Text = state_.AtCursor.Channel;
  Text14.Text = state_.AtCursor.Theta;
  Text15.Text = state_.AtCursor.D;
}

void Form6::ResetCursorLine() { Line1.Move(0, 15, 0, 90); }

void Form6::EnableListCommands() {
  cmdErsLaIt.Enabled = cmdClearPeaks.Enabled = cmdSavePeaks.Enabled = Buffer().NPeaks > 0;
}

// The picked peaks.

void Form6::PickPeak(float x, float y) {
  if (!HasPlot()) {
    return;
  }
  if (const auto refusal = WhyNotPicked(Buffer())) {
    Desk().Host().MsgBox(*refusal);
    return;
  }
  if (state_.AtCursor.Theta.empty()) {
    ShowReadOut(x, y);
  }
  const PeakPick pick = PickedAt(Buffer(), state_.AtCursor);
  AddPeak(Buffer(), pick);
  EnableListCommands();
  ShowPick(pick);
}

/// The peak has joined the list already.
void Form6::ShowPick(const PeakPick& pick) {
  Text17.Text = Text17.Text.Get() + PickedRow(Buffer(), Buffer().NPeaks, pick);
  DrawMarker(ShownPlot(), Origin(), PositionOf(Buffer(), pick), MarkerLength, Picture1);
}

void Form6::EraseLastPeak() {
  if (Buffer().NPeaks == 0) {
    return;
  }
  Text17.Text = WithoutLastRow(Text17.Text);
  RubOutPeak(Buffer().NPeaks);
  RemoveLastPeak(Buffer());
  EnableListCommands();
}

void Form6::ClearPeakList() {
  if (Buffer().NPeaks == 0) {
    return;
  }
  RubOutPeaks();
  ClearPeaks(Buffer());
  Text17.Text = "";
  EnableListCommands();
}

void Form6::KeepExplorerScale() {
  context_.Data.ExplorerScaleX = ShownPlot().ScaleX;
  context_.Data.ExplorerScaleY = ShownPlot().ScaleY;
}

/// Draws the markers of the peaks within the plot.
void Form6::MarkPeaks() {
  const XRange range{Buffer().WorkXMin, Buffer().WorkXMax};
  for (int i = 1; state_.Shown.Readable() && i <= Buffer().NPeaks; ++i) {
    const PeakPosition peak = PositionOf(Buffer(), i);
    if (range.Holds(peak.X)) {
      DrawMarker(ShownPlot(), Origin(), peak, MarkerLength, Picture1);
    }
  }
}

void Form6::RubOutPeak(int peak) {
  if (!state_.Shown.Readable()) {
    return;
  }
  EraseMarker(ShownPlot(), Origin(), PositionOf(Buffer(), peak), Picture1);
  if (const auto zoom = state_.Zoom.lock(); zoom && zoom->Loaded()) {
    zoom->ErasePeak(PositionOf(Buffer(), peak));
  }
}

void Form6::RubOutPeaks() {
  for (int i = 1; i <= Buffer().NPeaks; ++i) {
    RubOutPeak(i);
  }
}

CurveOrigin Form6::Origin() const {
  const PlotLimits& limits = state_.Shown.Limits();
  return {.XMin = limits.XMin, .Base = PlotBase(ShownPlot(), ReachesBelowZero(limits))};
}

// The zoom of a paused explorer.

void Form6::ZoomFromExplorer() {
  const XRange range{state_.SelXLow, state_.SelXHigh};
  if (range.Low >= range.High) {
    Desk().Host().MsgBox(NothingToZoom());
    return;
  }
  Shape1.Width = Shape1.Height = AcceptedBandSize;
  optOK.Visible = optNO.Visible = false;
  Workspace& data = context_.Data;
  const int count =
      CopyRange({Buffer().WorkX, Buffer().WorkY, Buffer().WorkNpts}, range, data.ScratchX, data.ScratchY);
  state_.Zoom = OpenZoomWindow(
      context_, {.Limits = {range.Low, range.High, state_.SelYBottom, state_.SelYTop},
                 .Curves = {{data.ScratchX, data.ScratchY, count, colours::Black, false}},
                 .Peaks = PeaksWithin(Buffer(), range),
                 .Picked = WhileLoaded(
                     std::function<void(const PeakPick&)>([this](const PeakPick& pick) { ShowPick(pick); })),
                 .Returned = WhileLoaded(std::function<void()>([this] { ReturnFromZoom(); }))});
}

void Form6::ReturnFromZoom() {
  Workspace& data = context_.Data;
  state_.Shown.PutBack(data);
  data.Plot.ScaleX = data.ExplorerScaleX;
  data.Plot.ScaleY = data.ExplorerScaleY;
  SetSelection(false, false);
  HideSelection();
  EnterMode(DisplayMode::ExplorerZoomLeft);
  EnableListCommands();
  Boxes.ShowRange({.Low = Buffer().WorkXMin, .High = Buffer().WorkXMax});
  TellMouse();
  BringToFront();
}

/// As by its close box; nothing where there is none.
void Form6::CloseZoom() {
  if (ZoomIsOpen()) {
    state_.Zoom.lock()->CloseBox();
  }
}

bool Form6::ZoomIsOpen() const {
  const auto zoom = state_.Zoom.lock();
  return zoom && zoom->Loaded();
}

const PlotTransform& Form6::ShownPlot() const { return state_.Shown.Transform(); }

}  // namespace koprax
