#include "files/peak_list_commands.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "files/file_choice.h"
#include "files/file_writing.h"
#include "files/peak_list_file.h"
#include "files/peak_list_window.h"
#include "files/read_outcome.h"
#include "forms/desktop.h"
#include "forms/text_file.h"
#include "workspace/buffer_commands.h"
#include "workspace/workspace.h"

namespace koprax {

namespace {

constexpr const char* SaveFilter = "All Files (*.*)|*.*| .pks Files (*.pks)|*.pks";
constexpr const char* OpenFilter = "All Files (*.*)|*.*| calib. Files (*.pks)|*.pks";
constexpr const char* AnyList = "*.pks";

void SaveLines(const WindowContext& context, const std::vector<std::string>& lines) {
  const auto path = ChooseFileToWrite(context, {.Filter = SaveFilter, .FilterIndex = 2, .Name = AnyList});
  if (!path) return;
  if (const auto problem = WriteLines(*path, lines, TextEncoding::Utf8)) {
    context.Desk.Host().MsgBox(*problem);
  }
}

/// Whether the user wants to read the list that CurBuf lacks.
bool WantsListFromDisk(const WindowContext& context) {
  const std::string answer = context.Desk.Host().InputBox(
      {.Prompt = "No peak was selected or refined in buffer " + std::to_string(context.Data.CurBuf) +
                 ".\r\nDo you want to load peak list from disk ? (Y/N)",
       .Title = "Input"});
  return answer == "Y" || answer == "y";
}

enum class ListOpening { Opened, Ended, Refused };

/// Asks for the list and opens its preview. An empty name ends the reading without a refusal.
ListOpening OpenList(const WindowContext& context, const PeakListWindowKind& kind, const char* name,
                     PeakListActions actions) {
  context.Desk.Unload(kind.Name);  // one that still waits belongs to a start that is over
  if (!WantsListFromDisk(context)) return ListOpening::Refused;
  const auto path = ChooseFile(context, {.Filter = OpenFilter, .FilterIndex = 2, .Name = name});
  if (!path) return ListOpening::Refused;
  if (path->empty()) return ListOpening::Ended;
  const auto file = ReadTextFile(*path);
  if (const auto* error = std::get_if<FileError>(&file)) {
    context.Desk.Host().MsgBox(*UnreadableFile(*path, error->Reason).Problem);
    return ListOpening::Refused;
  }
  context.Desk.Load<PeakListWindow>(context, kind, std::get<TextFile>(file).Contents(), std::move(actions))
      ->Show();
  return ListOpening::Opened;
}

/// No buffer is at work any more, so nothing that still waits for an answer may end up in one.
void LeaveBuffer(const WindowContext& context) { MakeCurrent(context, 0); }

}  // namespace

void SavePeakListSorted(const WindowContext& context) {
  const ProfileBuffer& buffer = context.Data.Current();
  if (buffer.NPeaks != 0) SaveLines(context, SortedPeakLines(buffer));
}

void SavePeakListAsHeld(const WindowContext& context) {
  SaveLines(context, HeldPeakLines(context.Data.Current()));
}

bool ReadPeakListForCalibration(const WindowContext& context, std::function<void()> draw_peaks,
                                std::function<void()> given_up) {
  return OpenList(context, peak_list_windows::Calibration, "",
                  {.Taken = std::move(draw_peaks), .GivenUp = std::move(given_up)}) == ListOpening::Opened;
}

bool ReadPeakListForCell(const WindowContext& context, std::function<void()> draw_peaks,
                         std::function<void()> given_up) {
  const auto give_up = [context, given_up = std::move(given_up)] {
    LeaveBuffer(context);
    given_up();
  };
  const ListOpening opening = OpenList(context, peak_list_windows::Cell, AnyList,
                                       {.Taken = std::move(draw_peaks), .GivenUp = give_up});
  if (opening == ListOpening::Refused) {
    LeaveBuffer(context);
    context.Data.CalCancelled = 1;
  }
  return opening == ListOpening::Opened;
}

}  // namespace koprax
