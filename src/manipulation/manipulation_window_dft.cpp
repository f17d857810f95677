// The Fourier filter in the manipulation window.
#include <algorithm>

#include "forms/desktop.h"
#include "forms/number_text.h"
#include "manipulation/dft_plot.h"
#include "manipulation/finite_points.h"
#include "manipulation/manipulation_window.h"

namespace koprax {

namespace {

constexpr float ProgressStart = 2;
constexpr double ProgressLength = 2470;  // of the progress line, twips
constexpr float LargestFilterParameter = 9;

}  // namespace

void Form12::Transform() {
  Frame2.Visible = Frame3.Visible = cmdMain.Enabled = cmdBckg.Enabled = false;
  state_.ProfileColour = colours::Red;
  state_.BackgroundColour = colours::Blue;
  DftFilter& filter = state_.Dft;
  RunTransform([&] {
    TransformProfile(Buffer().PermY, Buffer().PermNpts, filter, [&](int coefficient) {
      ShowProgress(static_cast<float>(
          RoundHalfEven(static_cast<double>(coefficient) / filter.Highest() * ProgressLength)));
    });
  });
  ShowCoefficients();
}

/// With the signs of life of a long computation.
void Form12::RunTransform(const std::function<void()>& transform) {
  Line1.Visible = true;
  MousePointer = Pointer::Hourglass;
  transform();
  MousePointer = Pointer::Arrow;
  Line1.Visible = false;
  ShowProgress(ProgressStart);
}

void Form12::ShowProgress(float end) {
  Line1.X2 = end;
  Line1.Refresh();
}

void Form12::ShowCoefficients() {
  if (!DrawNewFrame(CoefficientLimits(state_.Dft))) {
    return;
  }
  state_.ShowsCoefficients = true;
  DrawCoefficients(context_.Data.Plot, state_.Dft, Origin().Base, Picture1);
}

bool Form12::HasCoefficients() {
  if (state_.Dft.Points == 0) {
    Tell({.Text = "There are no Fourier coefficients.\r\nPress \"DFT\" first.",
          .Title = "Warning",
          .Icon = MessageIcon::Information});
    return false;
  }
  return true;
}

void Form12::Filter() {
  if (!HasCoefficients()) {
    return;
  }
  const float parameter = AskForFilterParameter();
  AttenuateCoefficients(parameter, state_.Dft);
  if (parameter != 0) {
    ShowCoefficients();
  }
}

/// There is no way out but a number in the range.
float Form12::AskForFilterParameter() {
  for (;;) {
    const double parameter = LeadingNumber(
        Desk().Host().InputBox({.Prompt = "Give filter parameter (0 --- 9)", .Title = "Filter Parameter"}));
    if (parameter >= 0 && parameter <= LargestFilterParameter) {
      return static_cast<float>(parameter);
    }
  }
}

void Form12::TransformInverse() {
  if (!HasCoefficients()) {
    return;
  }
  const int points = Buffer().PermNpts;
  RunTransform([&] {
    TransformBack(points, state_.Dft, [&](int point) {
      ShowProgress(static_cast<float>(static_cast<double>(point) / points * ProgressLength));
    });
  });
  ShowFiltered();
}

void Form12::ShowFiltered() {
  if (!PointsAreFinite(state_.Dft.DftY, state_.Dft.ResultPoints)) {
    state_.Dft.ResultPoints = 0;
    TellBeyondRange("The filtered profile");
    return;
  }
  if (DrawNewFrame(FilteredLimits(Buffer(), state_.Dft))) {
    DrawWholeCurve(context_.Data.Plot, {Buffer().PermX, state_.Dft.DftY, state_.Dft.ResultPoints}, Origin(),
                   colours::Black, Picture1);
  }
}

void Form12::SaveFiltered() {
  if (state_.Dft.ResultPoints == 0) {
    Tell({.Text = "There is no filtered profile.\r\nPress \"DFT\" and \"DFT inv.\" first.",
          .Title = "Warning",
          .Icon = MessageIcon::Information});
    return;
  }
  std::copy_n(state_.Dft.DftY.begin() + 1, Buffer().PermNpts, Buffer().WorkY.begin() + 1);
  state_.Kept.KeepTemporary(Buffer());
  EndSubtraction();
  SaveSmoothed(true);
}

void Form12::QuitDft() {
  Frame1.Visible = Frame2.Visible = Frame3.Visible = true;
  cmdBckg.Enabled = cmdMain.Enabled = true;
}

}  // namespace koprax
