#include "app/script_player.h"

#include <exception>
#include <istream>
#include <ostream>
#include <utility>
#include <variant>

#include "app/script_names.h"

namespace koprax {

namespace {

constexpr int AllDone = 0;
constexpr int SomeFailed = 1;
constexpr int EndedEarly = 2;

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

/// The text with everything that is no UTF-8 replaced.
std::string WithoutBadUtf8(const std::string& text) { return Json::parse(JsonLine(text)).get<std::string>(); }

/// Reads a line without its line end; false at the end of the script.
bool ReadScriptLine(std::istream& script, std::string& line) {
  if (!std::getline(script, line)) {
    return false;
  }
  if (line.ends_with('\r')) {
    line.pop_back();
  }
  line = WithoutBadUtf8(line);
  return true;
}

bool IsBlankOrComment(std::string_view line) {
  const auto first = line.find_first_not_of(" \t");
  return first == std::string_view::npos || line[first] == '#';
}

}  // namespace

ScriptPlayer::ScriptPlayer(const ScriptStage& stage, std::ostream& answers)
    : stage_(stage), actions_(stage), events_(stage.Desk, stage.Runtime), answers_(answers) {
  // The last document stays to be looked at, also by a player that goes on with the same workbench.
  if (stage_.Desk.ThePrinter().Fonts().empty()) {
    ScriptedRuntime::SetUpPrinter(stage_.Desk.ThePrinter(), {});
  }
}

int ScriptPlayer::Play(const std::function<void()>& start, std::istream& script) {
  bool ended = false;
  try {
    Carry({}, [&] {
      start();
      return ScriptOutcome{};
    });
    Place place;
    while (ReadScriptLine(script, place.Command)) {
      if (++place.Line == 1 && place.Command.starts_with(ByteOrderMark)) {
        place.Command.erase(0, ByteOrderMark.size());
      }
      if (!IsBlankOrComment(place.Command)) {
        PlayLine(place);
      }
    }
  } catch (const ScriptEnded&) {
    // The command that it ended in has been answered with its words.
    ended = true;
  }
  ReportLeftOver();
  if (ended) {
    return EndedEarly;
  }
  return failed_ ? SomeFailed : AllDone;
}

void ScriptPlayer::PlayLine(const Place& place) {
  if (stage_.Desk.HasQuit()) {
    Answer(place, {.Error = "the workbench has quit"}, Json::array());
    return;
  }
  const auto parsed = ParseScriptCommand(place.Command);
  if (const auto* error = std::get_if<ScriptError>(&parsed)) {
    Answer(place, {.Error = error->Reason}, Json::array());
    return;
  }
  const auto& command = std::get<ScriptCommand>(parsed);
  if (const auto* modal = std::get_if<std::shared_ptr<const ModalCommand>>(&command)) {
    Queue(place, *modal);
    return;
  }
  Carry(place, [&] { return actions_.Do(command); });
}

void ScriptPlayer::Queue(const Place& place, const std::shared_ptr<const ModalCommand>& modal) {
  stage_.Runtime.QueueModal(
      modal->Text, [this, place, modal] { Carry(place, [&] { return actions_.Do(modal->Command); }); });
}

void ScriptPlayer::Carry(const Place& place, const std::function<ScriptOutcome()>& action) {
  events_.Begin();
  ScriptOutcome outcome;
  try {
    outcome = action();
  } catch (const ScriptEnded& end) {
    Answer(place, {.Error = end.what()}, events_.End());
    throw;
  } catch (const std::exception& fault) {
    outcome.Error = std::string("the command failed inside the workbench: ") + fault.what();
  }
  Answer(place, outcome, events_.End());
}

void ScriptPlayer::Answer(const Place& place, const ScriptOutcome& outcome, const Json& events) {
  Json answer{{"line", place.Line}, {"command", place.Command}, {"ok", !outcome.Error}};
  if (outcome.Error) {
    failed_ = true;
    answer["error"] = *outcome.Error;
  }
  if (outcome.Value) {
    answer["value"] = *outcome.Value;
  }
  if (!events.empty()) {
    answer["events"] = events;
  }
  answers_ << JsonLine(answer) << '\n' << std::flush;
  if (AfterAnswer) {
    AfterAnswer();
  }
}

void ScriptPlayer::ReportLeftOver() {
  const auto left_over = stage_.Runtime.LeftOver();
  if (!left_over.empty()) {
    Answer({}, {.Error = "queued answers were left over: " + CommaList(left_over)}, Json::array());
  }
}

}  // namespace koprax
