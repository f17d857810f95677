// The couples of the calibration window: picked with the mouse, accepted or refused, and the fit to them.
#include <optional>

#include "calibration/calibration_window.h"
#include "calibration/couples.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

Message OtherWavelength(const ProfileBuffer& buffer) {
  return ErrorMessage("The wave length of buffer " + buffer.BufLetter +
                      " is another one than that of the standard on show.\r\nChoose the standard again.");
}

Message TooManyCouples() {
  return ErrorMessage(
      "There are " + std::to_string(MaxCouples) +
      " couples, and there is no room for more.\r\nPress \"Quit\" and start the calibration.");
}

Message NoCalibration(const CalibrationDemand& demand) {
  const std::string remedy =
      demand.Couples == MaxCouples
          ? "There is no room for more couples: start \"Calibration\" of the main menu anew."
      : demand.Met() ? "Couple further peaks."
                     : "Couple more peaks.";
  const auto counts = [](std::size_t couples, std::size_t channels) {
    return std::to_string(couples) + (couples == 1 ? " couple" : " couples") + " of peaks, at " +
           std::to_string(channels) + (channels == 1 ? " channel" : " different channels");
  };
  const std::string needed =
      demand.Met() ? "Their channels lie too close together, or their numbers are too large."
                   : "At least " + counts(demand.NeededCouples, demand.NeededChannels) + ", are needed.";
  return ErrorMessage("The calibration can't be computed from " + counts(demand.Couples, demand.Channels) +
                      ".\r\n" + needed + "\r\n" + remedy);
}

}  // namespace

void Form24::StartCoupling() {
  if (Buffer().Wavelength != state_.Wavelength) {
    Tell(OtherWavelength(Buffer()));
    return;
  }
  state_.CouplingActive = true;
  Frame1.Visible = Text9.Visible = true;
  cmdCorundum.Enabled = cmdSi.Enabled = Command2.Enabled = false;
  OfferAnswers(false);
  context_.Data.Coupled.CoupleCount = 0;
  Text9.Text = CouplesText(context_.Data.Coupled);
}

void Form24::PickStandardPeak(float x) {
  if (!state_.CouplingActive || state_.PickStandard == 1) {
    return;
  }
  const auto sticks = state_.Standard.Sticks();
  const auto nearest = NearestStick(sticks, standard_plot_.XAt(x));
  if (!nearest) {
    Tell(NoPeakNear());
    return;
  }
  state_.PickStandard = 1;
  state_.StandardPick = *nearest + 1;
  state_.StandardLine = sticks[*nearest];
  standard_plot_.DrawStick(state_.StandardLine, colours::Blue, Picture1);
  CompletePair();
}

void Form24::PickSamplePeak(float x) {
  if (!state_.CouplingActive || state_.PickSample == 1) {
    return;
  }
  TakeUp();
  if (!HasContent()) {
    return;
  }
  if (state_.SampleSticks.empty()) {
    Tell(PeakListGone(Buffer(), "Calibration"));
    return;
  }
  const auto nearest = NearestStick(state_.SampleSticks, sample_plot_.XAt(x));
  if (!nearest) {
    Tell(NoPeakNear());
    return;
  }
  state_.PickSample = 1;
  state_.SamplePick = *nearest + 1;
  state_.SampleLine = state_.SampleSticks[*nearest];
  sample_plot_.DrawStick(state_.SampleLine, colours::Blue, Picture2);
  CompletePair();
}

void Form24::CompletePair() {
  if (state_.PickStandard == 1 && state_.PickSample == 1) {
    state_.PickStandard = state_.PickSample = 0;
    OfferAnswers(true);
  }
  ShowMouseTips();
}

void Form24::AcceptCouple() {
  Couples& couples = context_.Data.Coupled;
  const auto channel = LeadingFloat(Buffer().PeakChannel[state_.SamplePick]);
  if (!AddCouple(couples, state_.Standard.StandardTheta2[state_.StandardPick], channel)) {
    Tell(TooManyCouples());
    return;
  }
  SettleCouple();
  Text9.Text = CouplesText(couples);
}

/// Both picked sticks become red again, and nothing is picked: a peak that has replaced another one awaits no
/// partner any more.
void Form24::SettleCouple() {
  state_.PickStandard = state_.PickSample = 0;
  OfferAnswers(false);
  standard_plot_.DrawStick(state_.StandardLine, colours::Red, Picture1);
  sample_plot_.DrawStick(state_.SampleLine, colours::Red, Picture2);
}

void Form24::OfferAnswers(bool offered) {
  cmdAccept.Enabled = cmdSkip.Enabled = offered;
  ShowMouseTips();
}

void Form24::QuitCoupling() {
  Frame1.Visible = false;
  ShowMouseTips();
  Command3.Visible = true;
  cmdStartCou.Enabled = false;
}

void Form24::StartCalibration() {
  const Couples& couples = context_.Data.Coupled;
  const std::optional<Calibration> result = FitCalibration(couples);
  if (!result) {
    Tell(NoCalibration(DemandOf(couples)));
    Frame1.Visible = true;
    ShowMouseTips();
    return;
  }
  state_.Result = *result;
  Frame1.Visible = false;
  ShowMouseTips();
  Text10.Visible = Command4.Visible = true;
  Text10.Text = CalibrationText(state_.Result);
  Command3.Enabled = false;
}

}  // namespace koprax
