// Form30: shows a profile computed from two others, which lands in a buffer only if the user saves it.
#pragma once

#include <functional>

#include "display/drawn_plot.h"
#include "display/plot_transform.h"
#include "display/profile_sum.h"
#include "forms/form.h"
#include "workspace/services.h"
#include "workspace/workspace.h"

namespace koprax {

/// What the window shows, and what follows when it has been left.
struct ComputedProfileOpening {
  TwoProfileOperation Operation;
  ProfilePair Sources;         ///< CurBuf is the first of them
  float Wavelength;            ///< their mean, angstrom
  std::function<void()> Left;  ///< the computed profile is gone by then
};

/// Loads the window anew, shows it, and draws data.Sum in it.
void OpenComputedProfile(const WindowContext& context, ComputedProfileOpening opening);

class Form30 final : public Form {
 public:
  Form30(const WindowContext& context, ComputedProfileOpening opening);

  void DrawResult();

 private:
  void OnUnload() override;
  void OnCloseBox() override { Return(); }
  void ShowReadOut(float x, float y);
  void OpenPicker();
  void Return();

  WindowContext context_;
  ComputedProfileOpening opening_;
  DrawnPlot shown_;

  PictureBox Picture1{*this, "Picture1", TallPlotPicture("Plot of the computed profile")};
  PictureBox Picture2{*this, "Picture2", LegendPicture()};
  TextBox Text1{
      *this, "Text1", {.Meaning = "2-theta or channel under the mouse", .Locked = true, .Columns = 18}};
  TextBox Text2{
      *this, "Text2", {.Meaning = "Lattice spacing d under the mouse", .Locked = true, .Columns = 18}};
  TextBox Text3{*this, "Text3", {.Meaning = "Intensity under the mouse", .Locked = true, .Columns = 18}};
  Button cmdSave{*this, "cmdSave", {.Caption = "Save"}};
  Button cmdCancel{*this, "cmdCancel", {.Caption = "Return"}};
};

}  // namespace koprax
