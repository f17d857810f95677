#include "files/load_pipeline.h"

#include <cstddef>
#include <cstdint>

#include "files/file_choice.h"
#include "files/preview_window.h"
#include "files/profile_readers.h"
#include "files/wavelength_window.h"
#include "forms/desktop.h"
#include "workspace/buffer_commands.h"
#include "workspace/temporary_copy.h"
#include "workspace/workspace.h"

namespace koprax {

namespace {

constexpr const char* ProfileFilter =
    "All Files (*.*)|*.*| dat Files (*.dat)|*.dat| adf Files (*.adf)|*.adf| udf Files (*.udf)|*.udf| "
    "uxd Files (*.uxd)|*.uxd| aid Files (*.aid)|*.aid";

/// Asks for the wavelength of a card; the answer stands in CurBuf, which is the buffer of the load.
float AskForWavelength(const WindowContext& context) {
  context.Desk.Load<Form33>(context)->ShowModal();
  return context.Data.Current().Wavelength;
}

bool LoadProfile(const WindowContext& context, int slot) {
  const auto tell = [&](const Message& message) { context.Desk.Host().MsgBox(message); };
  const ReadOutcome outcome =
      ReadByFormat(context.Data, slot, tell, [&] { return AskForWavelength(context); });
  if (outcome.Problem) {
    tell(*outcome.Problem);
  }
  if (outcome.FrontMainMenu) {
    context.Main.BringMainMenuToFront();
  }
  return !outcome.Failed;
}

/// The limits of X are the first and the last point, not the extremes.
void TakeXLimits(ProfileBuffer& buffer) {
  buffer.PermXMax = buffer.PermX[static_cast<std::size_t>(buffer.PermNpts)];
  buffer.PermXMin = buffer.PermX[1];
}

}  // namespace

void StartLoadSequence(const WindowContext& context) {
  context.Data.NumSelected = 1;
  const auto path = ChooseFile(context, {.Filter = ProfileFilter, .FilterIndex = 2});
  if (path && !path->empty()) {
    context.Desk.Load<Form4>(context)->Show();
  }
}

bool ShowBuffer(const WindowContext& context, int slot, bool for_display) {
  const bool load = !for_display && !context.Data.ModeAnal && !context.Data.ModeFit;
  if (load) {
    context.Files.GiveUpAnswers();  // about the profile of before
    MakeCurrent(context, slot);     // a list that was given up leaves no buffer at work
  } else {
    context.Files.GiveUpTitle();
  }
  if (load && !LoadProfile(context, slot)) {
    return false;
  }
  ProfileBuffer& buffer = context.Data.Buffer(slot);
  TakeXLimits(buffer);
  TakeTemporaryCopy(buffer);
  if (context.Data.ModeAnal) {
    return context.Manipulation.OpenManipulationWindow(slot);
  }
  if (context.Data.ModeFit) {
    return context.Fit.OpenFitWindow(slot);
  }
  if (buffer.IsCard()) {
    context.Cards.OpenCardWindow();
    return true;
  }
  return context.Display.OpenDisplayWindow(slot);
}

}  // namespace koprax
