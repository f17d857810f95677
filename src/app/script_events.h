// Records what happens while a command of a script is carried out, in order, as JSON. Commands may lie
// within each other, when a modal window is up; each has events of its own.
#pragma once

#include <string>
#include <vector>

#include "app/script_values.h"
#include "forms/desktop.h"
#include "forms/scripted_runtime.h"

namespace koprax {

class ScriptEvents final : public DesktopObserver {
 public:
  /// Listens to both from now on, until it is destroyed.
  ScriptEvents(Desktop& desk, ScriptedRuntime& runtime);
  ~ScriptEvents() override;

  /// A command begins; what happens now belongs to it.
  void Begin() { records_.push_back(Json::array()); }
  /// The command that began last has ended: an array of what happened in it.
  [[nodiscard]] Json End();

  void FormShown(Form& form, bool modal) override;
  void FormHidden(Form& form) override;
  void FormUnloaded(Form& form) override;
  void FormFronted(Form& form, bool keyboard) override;
  void FormChanged(Form& form, PropertyName name) override;
  void ControlChanged(Control& control, PropertyName name) override;
  void ControlRefreshed(Control& control) override;

 private:
  void Record(Json event);

  Desktop& desk_;
  ScriptedRuntime& runtime_;
  std::vector<Json> records_;
};

}  // namespace koprax
