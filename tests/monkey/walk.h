// A walk through the workbench by a user who clicks, types and drags at random, with the laws that hold after
// each action. Where the walk goes is decided step by step, or by the lines of a journey.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "app/script_actions.h"
#include "app/workbench.h"
#include "forms/scripted_runtime.h"
#include "tests/monkey/decisions.h"
#include "tests/monkey/random_user.h"
#include "tests/monkey/sample_files.h"
#include "tests/monkey/walk_record.h"
#include "tests/monkey/workbench_laws.h"

namespace koprax {

class Walk final : private DesktopObserver {
 public:
  Walk(Decisions& decisions, SampleFiles& files, WalkRecord& record);
  Walk(const Walk&) = delete;
  Walk& operator=(const Walk&) = delete;
  ~Walk() override;

  void Start();
  [[nodiscard]] bool Ended() { return bench_.Desk().HasQuit(); }
  /// Does something to one of the forms on show. Of two that chance offers, forms and controls alike, it
  /// takes the one that the walk has been at less often, so that it comes round.
  void Step();
  /// Plays a line of a script. An answer waits for its question, and a command that can't be carried out is
  /// refused, which is the way of the world.
  void Play(const std::string& line);
  void ForgetPlans() { user_.ForgetPlans(); }
  /// Closes windows until the main menu can be left, and leaves it.
  void Leave();

 private:
  void UserActs(const UserAction& action) override;
  void UserActed() override { record_.End(); }

  template <class List, class Uses>
  typename List::value_type Rarer(const List& list, Uses uses);
  [[nodiscard]] std::vector<const Control*> UsableControls(const Form& form);
  void ActOn(Form& form);
  void ActOn(const Control& control);
  void Drag(const PictureBox& picture);
  void Press(Form& form);
  [[nodiscard]] std::string Place(const UserScale& scale);
  void Do(const std::string& line);
  void RequireRefusal(const Form& form);
  void RequireLaws();

  Decisions& decisions_;
  SampleFiles& files_;
  WalkRecord& record_;
  WindowLaws laws_;
  RandomUser user_;
  Workbench bench_{user_};
  MemoryPlatform platform_;  // the scripts' actions want one for what a walk never does
  ScriptedRuntime no_script_{platform_};
  ScriptActions actions_{{.Desk = bench_.Desk(),
                          .Data = bench_.Data(),
                          .FormNames = Workbench::FormNames(),
                          .Runtime = no_script_,
                          .Host = platform_}};
  std::map<std::string, int> uses_;  ///< by form, and by form and control
  std::size_t steps_ = 0;
};

}  // namespace koprax
