// Form15, "Zoom": a part of one or several curves, enlarged, with a read-out and a cursor line. Who opened
// it is told of picks and of the way back, and chooses what is shown.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "display/drawn_plot.h"
#include "display/peak_markers.h"
#include "display/peak_picking.h"
#include "display/plot_transform.h"
#include "forms/form.h"
#include "workspace/services.h"
#include "workspace/workspace.h"

namespace koprax {

/// One curve, or the sticks of a card: points 1 to Count.
struct ZoomedCurve {
  PointTable X;
  PointTable Y;
  int Count;
  Colour CurveColour;
  bool Sticks;
};

/// What the window is opened with. With Picked, which runs for each peak that a right press has added to the
/// list of CurBuf, it leads back by "Return"; without, by "Undo Zoom", and picks nothing.
struct ZoomOpening {
  PlotLimits Limits;  ///< XMin and XMax differ
  std::vector<ZoomedCurve> Curves{};
  std::vector<PeakPosition> Peaks{};  ///< those that are marked from the start
  std::function<void(const PeakPick&)> Picked{};
  std::function<void()> Returned{};
  std::function<void()> Cancelled{};
  std::function<void(Surface&)> DrawLegend{};
};

class Form15 final : public Form {
 public:
  Form15(const WindowContext& context, ZoomOpening opening);

  /// Shows the window and draws into it; sets ZoomXMin to ZoomYMax and the transform.
  void ShowPart();
  /// Rubs out the marker of a peak that has left the list.
  void ErasePeak(const PeakPosition& peak);

 private:
  void OnLoad() override;
  void OnCloseBox() override;

  void ArrangeControls();
  void ShowReadOut(float x, float y);
  void PickPeak(float x, float y);
  void Cancel();
  void GoBack(const std::function<void()>& follow_up);
  [[nodiscard]] bool Picks() const { return static_cast<bool>(opening_.Picked); }
  [[nodiscard]] CurveOrigin Origin() const;
  [[nodiscard]] float Step() const;
  [[nodiscard]] const ProfileBuffer& Profile() const { return context_.Data.Buffer(slot_); }

  WindowContext context_;
  ZoomOpening opening_;
  int slot_;  // of the profile that is read and picked in
  DrawnPlot shown_;
  PeakPick at_cursor_;  // what the boxes show

  PictureBox Picture1{*this, "Picture1", TallPlotPicture("Enlarged part of the plot")};
  LineShape Line1{Picture1, "Line1", colours::Blue, 0, 15, 0, 90};
  PictureBox Picture2{*this, "Picture2", LegendPicture()};
  TextBox Text1{
      *this, "Text1", {.Meaning = "2-theta or channel under the mouse", .Locked = true, .Columns = 18}};
  TextBox Text2{
      *this, "Text2", {.Meaning = "Lattice spacing d under the mouse", .Locked = true, .Columns = 14}};
  TextBox Text3{*this, "Text3", {.Meaning = "Intensity under the mouse", .Locked = true, .Columns = 14}};
  Button cmdRet{*this, "cmdRet", {.Caption = "Return", .ToolTip = "Return to the explorer"}};
  Button cmdCancel{*this, "cmdCancel", {.Caption = "Cancel "}};
  Button Command1{*this, "Command1", {.Caption = "Bitmap", .ToolTip = "Save image as a bitmap file"}};
};

/// Loads the window anew on a part of what its opener shows, and shows it.
std::shared_ptr<Form15> OpenZoomWindow(const WindowContext& context, ZoomOpening opening);

}  // namespace koprax
