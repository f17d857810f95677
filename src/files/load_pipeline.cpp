#include "files/load_pipeline.h"

#include <cstddef>
#include <string>

#include "files/channel_format.h"
#include "files/column_formats.h"
#include "files/file_choice.h"
#include "files/philips_format.h"
#include "files/preview_window.h"
#include "files/siemens_format.h"
#include "forms/desktop.h"
#include "workspace/temporary_copy.h"
#include "workspace/workspace.h"

namespace koprax {

namespace {

constexpr const char* ProfileFilter =
    "All Files (*.*)|*.*| dat Files (*.dat)|*.dat| adf Files (*.adf)|*.adf| udf Files (*.udf)|*.udf| "
    "uxd Files (*.uxd)|*.uxd| aid Files (*.aid)|*.aid";

ReadOutcome ReadByFormat(Workspace& data, int slot, const TellUser& tell) {
  switch (data.InputFormat) {
    case 1:
      return ReadItalDat(data, slot, tell);
    case 2:
      return ReadOneColumn(data, slot, tell);
    case 3:
      return ReadTwoColumns(data, slot, tell);
    case 4:
      return ReadAdf(data, slot, tell);
    case 5:
      return ReadUdf(data, slot, tell);
    case 6:
      return ReadUxd(data, slot, tell);
    default:
      return FailedRead("There is no reader for format " + std::to_string(data.InputFormat) + ".");
  }
}

bool LoadProfile(const WindowContext& context, int slot) {
  const auto tell = [&](const Message& message) { context.Desk.Host().MsgBox(message); };
  const ReadOutcome outcome = ReadByFormat(context.Data, slot, tell);
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
  context.Files.GiveUpTitle();
  const bool load = !for_display && !context.Data.ModeAnal && !context.Data.ModeFit;
  if (load && !LoadProfile(context, slot)) {
    return false;
  }
  TakeXLimits(context.Data.Buffer(slot));
  TakeTemporaryCopy(context.Data.Buffer(slot));
  return context.Display.OpenDisplayWindow(slot);
}

}  // namespace koprax
