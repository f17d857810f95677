// The third stage of the peak fit window: the peaks to fit, by the mouse or from the list of the buffer.
#include <string>

#include "display/peak_markers.h"
#include "fit/fit_parameters.h"
#include "fit/fit_plot.h"
#include "fit/peak_fit_window.h"
#include "forms/desktop.h"
#include "forms/number_text.h"

namespace koprax {

void Form19::StartPeakSelection() {
  Line4.Move(0, 15, 0, 90);
  Line4.Visible = true;
  state_.SelPeaksMode = true;
  Picture1.MousePointer = Pointer::Cross;
  OfferAnswers(false);
  ShowMouseTip();
}

void Form19::EndPeakSelection() {
  state_.SelPeaksMode = false;
  Line4.Visible = false;
  Line4.Move(0, 0, 1, 1);
  Picture1.MousePointer = Pointer::Arrow;
  ShowMouseTip();
}

void Form19::SelectPeak(float x) {
  TakeUp();
  if (!HasContent()) {
    return;
  }
  const float at = DataX(context_.Data.Plot, x, Origin().XMin);
  (void)TakePeak({.X = at, .Y = RoundDecimals(GetProfileY(Buffer(), at), 2)}, 0);
}

void Form19::LoadPeaks() {
  float height = 0;
  for (int i = 1; i <= Buffer().NPeaks && !state_.PeakLimitReached; ++i) {
    const PeakPosition top = ListedPeakAt(Buffer(), i);
    if (state_.RangeLow <= top.X && top.X < state_.RangeHigh) {
      height = TakePeak(top, height);
    }
  }
  state_.PeakLimitReached = false;
}

/// The height of the peak taken, which the next one of a list gets where its own isn't known.
float Form19::TakePeak(const PeakPosition& top, float height_before) {
  DrawMarker(context_.Data.Plot, Origin(), top, MarkerLength, Picture1, colours::Blue);
  const StartingPeak peak = AskForPeak(top, height_before);
  AddFitPeak(peak, Fit());
  if (Fit().FitPeakCount == MaxFitPeaks) {
    EndPeakInput();
  }
  ShowPeakCount();
  return peak.Height;
}

StartingPeak Form19::AskForPeak(const PeakPosition& top, float height_before) {
  const PlotTransform& plot = context_.Data.Plot;
  while (true) {
    const float width = AskForWidth();
    const StartingPeak peak{.X = top.X,
                            .Height = HeightAboveBackground(Fit(), top.X, top.Y).value_or(height_before),
                            .Width = width};
    DrawTrialPeak(plot, Fit(), peak, Origin(), colours::Red, Picture1);
    const MessageAnswer answer = Desk().Host().MsgBox({.Text = "OK?",
                                                       .Title = "Peak's FWHM",
                                                       .Buttons = MessageButtons::YesNo,
                                                       .Icon = MessageIcon::Question});
    if (answer != MessageAnswer::No) {
      return peak;
    }
    DrawTrialPeak(plot, Fit(), peak, Origin(), colours::White, Picture1);
  }
}

float Form19::AskForWidth() {
  while (true) {
    const std::string answer = Desk().Host().InputBox(
        {.Prompt = "Give approximate FWHM (2-theta units \r\nor channel units) of the selected peak.",
         .Title = "FWHM"});
    if (answer.empty()) {
      continue;
    }
    if (const auto width = WidthFromAnswer(answer)) {
      return *width;
    }
    Tell(ErrorMessage("\"" + answer +
                      "\" gives no width.\r\nType a number from 0.001 up, in the units of x."));
  }
}

void Form19::EndPeakInput() {
  Tell({.Text =
            "You have selected 12 peaks for the fitting routine.\r\nThis is the maximum number of refinable "
            "peaks in a single run.",
        .Title = "End input"});
  state_.PeakLimitReached = true;
  EndPeakSelection();
  cmdSelPeaks.Enabled = cmdLoadPeaks.Enabled = false;
}

void Form19::ShowPeakCount() { Text18.Text = std::to_string(Fit().FitPeakCount) + " selected peaks"; }

void Form19::QuitPeaks() {
  EndPeakSelection();
  cmdShowParam.Enabled = true;
  Frame3.Visible = false;
  Frame4.Visible = true;
  cmdStartFit.Enabled = cmdSave.Enabled = false;
}

}  // namespace koprax
