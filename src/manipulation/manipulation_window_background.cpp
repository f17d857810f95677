// The estimate of the background in the manipulation window, and what is done with it.
#include <algorithm>
#include <string>
#include <utility>
#include <variant>

#include "display/colours_window.h"
#include "display/constant_question.h"
#include "display/named_colours.h"
#include "forms/desktop.h"
#include "forms/number_text.h"
#include "manipulation/background_printing.h"
#include "manipulation/finite_points.h"
#include "manipulation/manipulation_window.h"
#include "manipulation/net_profile.h"
#include "manipulation/robust_background.h"

namespace koprax {

// The estimate.

void Form12::EstimateBackground() {
  if (Buffer().PermNpts < LeastProfileForBackground) {
    Tell(ErrorMessage("The background of a profile of " + std::to_string(Buffer().PermNpts) +
                      " points can't be estimated.\r\nIt takes at least " +
                      std::to_string(LeastProfileForBackground) + " points."));
    return;
  }
  EnterBackgroundMode();
  const auto window = AskForAveragingWindow();
  if (window && RunCycles(*window)) {
    DrawBackgroundAndProfile();
  }
}

void Form12::EnterBackgroundMode() {
  state_.BackgroundMode = true;
  Frame1.Visible = Frame3.Visible = false;
  Frame2.Visible = true;
  cmdMain.Enabled = cmdSmo.Enabled = cmdBckg.Enabled = false;
  UseBackgroundColours();
  if (state_.ShowsCoefficients || state_.ZoomSelect) {  // the cycles are drawn over the profile
    DrawWholeFrame();
    DrawOverX(Buffer().WorkY, state_.ProfileColour);
  }
}

/// Nothing for an empty answer; asks again where an answer gives no window.
std::optional<int> Form12::AskForAveragingWindow() {
  for (;;) {
    const std::string answer = Desk().Host().InputBox(
        {.Prompt =
             "Give approximate FWHM (2-theta units) of Bragg peaks  or number of points for the averaging "
             "procedure (30-40 suggested, 6 min, 300 max)",
         .Title = "Background estimate"});
    if (answer.empty()) {
      return std::nullopt;
    }
    const auto window = AveragingWindow(LeadingFloat(answer), Buffer().XStep);
    if (const int* const points = std::get_if<int>(&window)) {
      return *points;
    }
    if (std::get<WindowProblem>(window) == WindowProblem::VariableStep) {
      Tell({.Text = "Profile with variable step!!! Give number of POINTS!", .Title = "Warning"});
    } else {
      Tell({.Text = "\"" + answer + "\" gives no window of " + std::to_string(LeastWindow) + " to " +
                    std::to_string(LargestWindow) +
                    " points.\r\nGive a number of points above 5, or a width in 2-theta units up to 5: "
                    "the window is three times as wide.",
            .Title = "Warning",
            .Icon = MessageIcon::Information});
    }
  }
}

/// Tells the user, and leaves the background as it was, when a sum goes beyond 32 bits.
bool Form12::RunCycles(int window) {
  Workspace& data = context_.Data;
  PointTable background = data.BackgroundY;
  PointTable padded = data.PaddedY;
  const int half_window = std::exchange(state_.HalfWindow, window / 2);
  if (Cycle(window)) {
    return true;
  }
  data.BackgroundY = std::move(background);
  data.PaddedY = std::move(padded);
  state_.HalfWindow = half_window;
  TellBeyondRange("A sum of intensities");
  return false;
}

/// False when a sum goes beyond 32 bits.
bool Form12::Cycle(int window) {
  Workspace& data = context_.Data;
  const PointTable& y = Buffer().WorkY;
  const int points = Buffer().PermNpts;
  const EndMeans ends = MeansAtEnds(y, points);
  if (!HasBackground(data.BackgroundY) && !StartBackground(y, points, data.BackgroundY)) {
    return false;
  }
  for (;;) {
    SmoothBackground(data.BackgroundY, points, window, ends, data.PaddedY);
    if (!PointsAreFinite(data.PaddedY, points + window)) {
      return false;
    }
    ReadBackSmoothCurve();
    DrawCycle();
    if (!WantsAnotherCycle()) {
      return true;
    }
    ClipToMeasurement(y, data.PaddedY, points, state_.HalfWindow, data.BackgroundY);
  }
}

void Form12::ReadBackSmoothCurve() {
  Workspace& data = context_.Data;
  std::copy_n(data.PaddedY.begin() + state_.HalfWindow + 1, Buffer().WorkNpts, data.BackgroundY.begin() + 1);
}

/// On top of what is there, so that the cycles can be compared.
void Form12::DrawCycle() {
  if (!state_.Shown.Readable()) {
    return;
  }
  const ProfileBuffer& buffer = Buffer();
  DrawCurve(context_.Data.Plot, {buffer.WorkX, context_.Data.BackgroundY, buffer.WorkNpts}, Origin(),
            {buffer.WorkXMin, buffer.WorkXMax}, colours::Red, Picture1);
}

bool Form12::WantsAnotherCycle() {
  const std::string answer =
      Desk().Host().InputBox({.Prompt = "Repeat smoothing? (Y/N)", .Title = "Continue?", .Default = "y"});
  return answer == "Y" || answer == "y";
}

void Form12::DrawBackgroundAndProfile() {
  if (!DrawWholeFrame()) {
    return;
  }
  const ProfileBuffer& buffer = Buffer();
  DrawDashedCurve(context_.Data.Plot, {buffer.PermX, context_.Data.BackgroundY, buffer.WorkNpts}, Origin(),
                  state_.BackgroundColour, Picture1);
  DrawOverX(buffer.WorkY, state_.ProfileColour);
}

void Form12::UseBackgroundColours() {
  state_.ProfileColour = colours::Black;
  state_.BackgroundColour = colours::Red;
}

// What is done with it.

void Form12::ResumeEstimate() {
  Workspace& data = context_.Data;
  if (data.BackgroundSubtracted == 1) {
    EndSubtraction();
    DrawBackgroundAndProfile();
  }
  EstimateBackground();
}

void Form12::EndSubtraction() {
  if (context_.Data.BackgroundSubtracted == 1) {
    context_.Data.BackgroundSubtracted = 0;
    EnableUnsubtracted(true);
    std::ranges::fill(context_.Data.NetY, 0.0F);
  }
}

void Form12::Subtract() {
  Workspace& data = context_.Data;
  PlotLimits limits = state_.Whole;
  limits.YMin = SubtractBackground(Buffer().WorkY, data.BackgroundY, Buffer().PermNpts, data.NetY);
  if (!PointsAreFinite(data.NetY, Buffer().PermNpts)) {
    std::ranges::fill(data.NetY, 0.0F);
    TellBeyondRange("The profile without its background");
    return;
  }
  EnableUnsubtracted(false);
  data.BackgroundSubtracted = 1;
  if (DrawNewFrame(limits)) {
    DrawOverX(data.NetY, state_.ProfileColour);
  }
}

void Form12::EnableUnsubtracted(bool enabled) {
  for (Button* command : {&cmdPrint, &cmdZoom, &cmdSubtr, &cmdRes}) {
    command->Enabled = enabled;
  }
}

void Form12::Rescale() {
  const auto factor = AskForConstant(Desk().Host(), "bckg = bckg*K");
  if (!factor) {
    return;
  }
  if (!ScaleBackground(context_.Data.BackgroundY, Buffer().PermNpts, *factor)) {
    TellBeyondRange("The background");
    return;
  }
  DrawBackgroundAndProfile();
}

void Form12::QuitBackground() {
  cmdMain.Enabled = cmdSmo.Enabled = cmdBckg.Enabled = true;
  EnableUnsubtracted(true);
  context_.Data.BackgroundSubtracted = 0;
  ClearBackground();
  state_.BackgroundMode = false;
  Frame2.Visible = false;
  for (Frame* tool : {&Frame1, &Frame3}) {
    tool->Visible = tool->Enabled = true;
  }
  if (!HoldsItsPoints()) {
    Picture1.Cls();
  } else if (state_.Plotted && DrawWholeFrame()) {
    DrawOverX(Buffer().WorkY, state_.ProfileColour);
  }
}

void Form12::ClearBackground() {
  Workspace& data = context_.Data;
  for (PointTable* table : {&data.NetY, &data.BackgroundY, &data.PaddedY}) {
    std::ranges::fill(*table, 0.0F);
  }
}

void Form12::PrintBackground() {
  const auto colours = Desk().Load<Form31>(context_);
  colours->ShowModal();
  if (!colours->Accepted()) {
    return;
  }
  state_.ProfileColour = ColourOfName(context_.Data.ProfileColourName).value_or(state_.ProfileColour);
  state_.BackgroundColour =
      ColourOfName(context_.Data.BackgroundColourName).value_or(state_.BackgroundColour);
  PrintBackgroundPlot(context_, {state_.ProfileColour, state_.BackgroundColour});
}

}  // namespace koprax
