// Carries out single commands of a script on the workbench: acts as a person at the windows would, queues
// answers, looks values up. Reading commands and writing answers is left to the player.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/script_command.h"
#include "app/script_values.h"
#include "forms/desktop.h"
#include "forms/platform.h"
#include "forms/scripted_runtime.h"
#include "workspace/workspace.h"

namespace koprax {

/// What a command came to: a value, if it has one, or an error, after which nothing has changed.
struct ScriptOutcome {
  std::optional<Json> Value{};
  std::optional<std::string> Error{};
};

/// What a script is played on.
struct ScriptStage {
  Desktop& Desk;
  Workspace& Data;
  const std::vector<std::string>& FormNames;  ///< of all windows, loaded or not
  ScriptedRuntime& Runtime;
  Platform& Host;
};

class ScriptActions {
 public:
  explicit ScriptActions(const ScriptStage& stage) : stage_(stage) {}

  /// Carries a command out, all but `modal`. What a handler throws comes through, ScriptEnded for one.
  [[nodiscard]] ScriptOutcome Do(const ScriptCommand& command);

 private:
  /// A control with the form that keeps it alive, or the words why there is none.
  struct FoundControl {
    std::shared_ptr<Form> Owner{};
    Control* Item = nullptr;
    std::string Error{};
  };

  ScriptOutcome Do(const ClickCommand& command);
  ScriptOutcome Do(const SetCommand& command);
  ScriptOutcome Do(const MouseCommand& command);
  ScriptOutcome Do(const CloseCommand& command);
  ScriptOutcome Do(const InputCommand& command);
  ScriptOutcome Do(const AnswerCommand& command);
  ScriptOutcome Do(const FileCommand& command);
  ScriptOutcome Do(const PrinterCommand& command);
  ScriptOutcome Do(const GetFormCommand& command);
  ScriptOutcome Do(const GetControlCommand& command);
  ScriptOutcome Do(const GetPrinterCommand& command);
  ScriptOutcome Do(const FormsCommand& command);
  ScriptOutcome Do(const StateCommand& command);
  ScriptOutcome Do(const BufferCommand& command);
  ScriptOutcome Do(const PictureCommand& command);
  ScriptOutcome Do(const PrinterPictureCommand& command);
  ScriptOutcome Do(const SnapshotCommand& command);
  ScriptOutcome Do(const std::shared_ptr<const ModalCommand>& command);

  [[nodiscard]] std::string WhyNoForm(const std::string& name) const;
  [[nodiscard]] FoundControl FindControl(const ControlName& name) const;
  template <class Action>
  ScriptOutcome Act(Control& control, Action action);
  [[nodiscard]] ScriptOutcome StateOfSlot(const std::string& field, int slot) const;
  [[nodiscard]] ScriptOutcome StateOfAllSlots(const std::string& field) const;

  ScriptStage stage_;
};

}  // namespace koprax
