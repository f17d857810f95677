// The last stage of the peak fit window: the parameters, the cycles of the refinement, what comes of them.
#include <cstddef>
#include <string>
#include <utility>

#include "fit/fit_parameters.h"
#include "fit/fit_plot.h"
#include "fit/parameters_window.h"
#include "fit/peak_fit_window.h"
#include "fit/refined_peaks_window.h"
#include "fit/refinement_results_window.h"
#include "forms/desktop.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

Message ImproperList() { return ErrorMessage("Improper permutation in LISTA"); }

Message Singular() { return {.Text = "Singular matrix", .Title = "Warning", .Icon = MessageIcon::Stop}; }

Message BeyondRange(const std::string& what, const std::string& remedy) {
  return ErrorMessage(what + " beyond 3.4E+38, the largest that the fit can hold.\r\n" + remedy);
}

constexpr const char* ChangeParameters = "Look at the parameters with \"Parameters\", and change them.";

Message StepBeyondRange() {
  return BeyondRange(
      "This step led to numbers",
      "The parameters stay as they were before it. If CHI square has long been the same, the fit "
      "is at its best: press \"Stop \".");
}

Message TooFewPoints() {
  return ErrorMessage(
      "The range holds fewer than two points of the profile, so there is nothing to fit.\r\n"
      "Return to the main menu, and start the fit again with a wider range.");
}

Message DeletedPeak() {
  return ErrorMessage(
      "A peak has been deleted, but the fit still has its parameters.\r\n"
      "Accept those that are left with \"OK\" in \"Parameters\".");
}

}  // namespace

void Form19::ShowParameters() {
  if (const auto shown = Desk().Find("Form20")) {
    shown->Show();
    return;
  }
  ParameterActions actions;
  actions.Deleted = WhileLoaded(std::function<void()>([this] {
    state_.DeletionOpen = true;
    Fit().FitRunning = false;
  }));
  actions.Taken = WhileLoaded(std::function<void(bool)>([this](bool others) {
    state_.DeletionOpen = false;
    if (others) {  // which the equations of an open refinement don't fit
      Fit().FitRunning = false;
    }
  }));
  actions.Confirmed =
      WhileLoaded(std::function<void()>([this] { cmdStartFit.Enabled = cmdSave.Enabled = true; }));
  Desk().Load<Form20>(context_, std::move(actions))->Show();
}

void Form19::StartFit() {
  state_.StepTold = false;
  if (Fit().FitStopping) {
    CloseRefinement();
  } else if (Fit().FitPointCount < 2) {
    Tell(TooFewPoints());
  } else if (state_.DeletionOpen) {
    Tell(DeletedPeak());
  } else if (Fit().FitRunning || OpenRefinement()) {
    RunCycles();
  }
}

/// False when the refinement can't start from the parameters as they are, which is told.
bool Form19::OpenRefinement() {
  MousePointer = Pointer::Hourglass;
  Picture2.Visible = Line5.Visible = true;
  Line5.Move(1, 5, 2, 5);
  Fit().FitRunning = true;
  state_.Refinement.Lambda = -1;
  const bool in_range = Step();
  if (state_.Refinement.Lambda < 0) {
    LeaveRefinement();
    MousePointer = Pointer::Arrow;
    if (!in_range) {
      Tell(BeyondRange("The parameters to start from lead to numbers", ChangeParameters));
    }
    return false;
  }
  if (!in_range) {
    TellStepBeyondRange();
  }
  state_.StartChi = GeneralText(state_.Refinement.StartingChiSquare);
  return true;
}

void Form19::RunCycles() {
  Desk().Unload("Form20");  // which would go on showing the parameters of before
  for (int cycle = 1;; ++cycle) {
    ShowProgress(static_cast<float>(cycle) / CyclesPerRun * ProgressWidth);
    if (cycle > CyclesPerRun) {
      break;
    }
    if (!Step()) {
      TellStepBeyondRange();
    }
    state_.CycleChi[static_cast<std::size_t>(cycle)] = GeneralText(state_.Refinement.ChiSquare);
  }
  MousePointer = Pointer::Arrow;
  Line5.X2 = 2;
  ShowResults();
}

/// One step. False where its numbers leave the range of 32 bits, which is left to the caller to tell.
bool Form19::Step() {
  const StepFindings findings = LmStep(Fit(), Fit().FitPointCount, FitParameterCount, state_.Refinement);
  if (findings.ImproperPermutation) {
    Tell(ImproperList());
  }
  if (findings.SingularMatrix) {
    Tell(Singular());
  }
  return !findings.BeyondRange;
}

/// A run goes on through all of its steps; one message tells of them.
void Form19::TellStepBeyondRange() {
  if (!std::exchange(state_.StepTold, true)) {
    Tell(StepBeyondRange());
  }
}

void Form19::ShowProgress(float end) {
  Line5.X2 = end;
  Line5.Refresh();
}

void Form19::ShowResults() {
  auto results = std::dynamic_pointer_cast<Form22>(Desk().Find("Form22"));
  if (!results) {
    RefinementActions actions;
    actions.Continue = WhileLoaded(std::function<void()>([this] { cmdStartFit.Click(); }));
    actions.Stop = WhileLoaded(std::function<void()>([this] { StopRefinement(); }));
    results = Desk().Load<Form22>(context_, std::move(actions));
  }
  results->ShowResults(state_.StartChi, state_.CycleChi);
}

/// The windows of an open refinement go.
void Form19::LeaveRefinement() {
  Fit().FitRunning = false;
  Desk().Unload("Form22");
  Picture2.Visible = false;
}

void Form19::StopRefinement() {
  if (state_.DeletionOpen) {
    Tell(DeletedPeak());
    return;
  }
  if (!Fit().FitRunning) {  // other parameters have been taken since the last step
    Minimiser& state = state_.Refinement;
    LmEquations(Fit(), Fit().FitPointCount, Fit().FitParam, state.AlphaMatrix, state.BetaVector,
                state.ChiSquare);
  }
  LeaveRefinement();
  Fit().FitStopping = true;
  cmdStartFit.Click();
}

void Form19::CloseRefinement() {
  state_.Refinement.Lambda = 0;
  const bool calculated = Step();
  Fit().FitStopping = false;
  cmdStartFit.Enabled = false;
  Line3.Visible = false;
  Line3.Move(0, 0, 1, 1);
  DrawFrame(Range());
  const auto draw = calculated ? DrawFitResult : DrawFitRange;
  draw(context_.Data.Plot, Fit(), Origin(), Picture1);
  if (!calculated) {
    Tell(BeyondRange("No result is drawn: the parameters lead to numbers", ChangeParameters));
  }
}

/// Only the list of the buffer is needed, whatever becomes of the temporary copy.
void Form19::SavePeaks() {
  if (!state_.Kept.PermanentMatches(Buffer())) {
    Tell(ProfileGone(Buffer(), "Fit"));
  } else if (state_.DeletionOpen) {
    Tell(DeletedPeak());
  } else {
    Desk().Load<Form23>(context_)->Show();
  }
}

}  // namespace koprax
