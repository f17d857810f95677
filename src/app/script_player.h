// Plays a script: reads commands line by line, carries them out one after the other and answers each with
// one line of JSON. What a command does is left to the actions.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

#include "app/script_actions.h"
#include "app/script_command.h"
#include "app/script_events.h"

namespace koprax {

class ScriptPlayer {
 public:
  /// Answers go to `answers`, which is flushed after each.
  ScriptPlayer(const ScriptStage& stage, std::ostream& answers);

  /// Starts the workbench by `start`, then plays the script to its end. Returns the exit status: 0 when
  /// every command could be carried out, 2 when the script ended early for want of an answer, else 1.
  [[nodiscard]] int Play(const std::function<void()>& start, std::istream& script);

  /// Called after each answer, for what the view has put off until no command runs.
  std::function<void()> AfterAnswer;

 private:
  struct Place {
    int Line = 0;
    std::string Command{};
  };

  void PlayLine(const Place& place);
  void Queue(const Place& place, const std::shared_ptr<const ModalCommand>& modal);
  /// Does something and answers with what came of it and what happened meanwhile.
  void Carry(const Place& place, const std::function<ScriptOutcome()>& action);
  void Answer(const Place& place, const ScriptOutcome& outcome, const Json& events);
  void ReportLeftOver();

  ScriptStage stage_;
  ScriptActions actions_;
  ScriptEvents events_;
  std::ostream& answers_;
  bool failed_ = false;
};

}  // namespace koprax
