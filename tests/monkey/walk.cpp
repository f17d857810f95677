#include "tests/monkey/walk.h"

#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>
#include <variant>

#include "app/script_command.h"
#include "app/script_lines.h"
#include "forms/control.h"
#include "forms/form.h"
#include "fuzz/law.h"

namespace koprax {

namespace {

std::string NameOf(const Control& control) { return control.OwnerForm().Name() + "." + control.FullName(); }

const Form& FormOf(const UserAction& action) {
  if (const auto* close = std::get_if<CloseAction>(&action)) return close->Target;
  if (const auto* click = std::get_if<ClickAction>(&action)) return click->Target.OwnerForm();
  if (const auto* type = std::get_if<TypeAction>(&action)) return type->Target.OwnerForm();
  return std::get<MouseAction>(action).Target.OwnerForm();
}

bool IsStill(const Control& control) {
  return control.Kind() == ControlKind::Label || control.Kind() == ControlKind::Image ||
         control.Kind() == ControlKind::Frame || control.Kind() == ControlKind::Shape ||
         control.Kind() == ControlKind::Line;
}

bool IsLocked(const Control& control) {
  const auto* box = dynamic_cast<const TextBox*>(&control);
  return box != nullptr && box->Locked;
}

}  // namespace

Walk::Walk(Decisions& decisions, SampleFiles& files, WalkRecord& record)
    : decisions_(decisions), files_(files), record_(record), user_(decisions, files, record) {
  user_.ActOn = [this](Form& form) { ActOn(form); };
  user_.Do = [this](const std::string& line) { Do(line); };
  bench_.Desk().AddObserver(*this);
  bench_.Desk().AddObserver(laws_);
}

Walk::~Walk() {
  bench_.Desk().RemoveObserver(laws_);
  bench_.Desk().RemoveObserver(*this);
}

void Walk::Start() {
  bench_.Start();
  RequireLaws();
}

void Walk::Step() {
  const auto shown = bench_.Desk().ShownForms();
  // Most of what a window leads to comes up in front.
  const auto form = decisions_.OneIn(3)
                        ? shown.front()
                        : Rarer(shown, [this](const auto& each) { return uses_[each->Name()]; });
  ++uses_[form->Name()];
  if (decisions_.OneIn(16)) {
    Press(*form);
  } else if (decisions_.OneIn(16)) {
    RequireRefusal(*form);
  } else {
    ActOn(*form);
  }
  RequireLaws();
}

void Walk::Play(const std::string& line) {
  const auto parsed = ParseScriptCommand(line);
  Require(std::holds_alternative<ScriptCommand>(parsed), line + " is a command");
  if (user_.Plan(std::get<ScriptCommand>(parsed))) return;
  Do(line);
  RequireLaws();
}

void Walk::Leave() {
  constexpr int patience = 20;
  for (int round = 0; round < patience && !Ended(); ++round) {
    for (const auto& form : bench_.Desk().ShownForms()) {
      if (form->Name() == "Form1") continue;
      if (form->MayClose()) {
        Play("close " + form->Name());
      } else {
        ActOn(*form);
      }
    }
    Play("click Form1.cmdStop");
  }
  Require(Ended() && bench_.Desk().ShownForms().empty(), "there is a way to the end");
}

void Walk::UserActs(const UserAction& action) {
  constexpr unsigned patience = 60;  // seconds, after which whoever watches speaks of a standstill
  ::alarm(patience);
  record_.Begin(ScriptLine(action), FormOf(action).Name());
}

template <class List, class Uses>
typename List::value_type Walk::Rarer(const List& list, Uses uses) {
  auto one = decisions_.Of(list);
  auto other = decisions_.Of(list);
  return uses(other) < uses(one) ? other : one;
}

/// What a user can do something to. Labels and images only take up room in a row of decisions.
std::vector<const Control*> Walk::UsableControls(const Form& form) {
  std::vector<const Control*> usable;
  std::ranges::copy_if(form.Controls(), std::back_inserter(usable), [this](const Control* control) {
    return !IsStill(*control) && !IsLocked(*control) && !bench_.Desk().WhyUnusable(*control);
  });
  return usable;
}

/// Closes a form, or does to one of its controls what can be done to one of its kind.
void Walk::ActOn(Form& form) {
  const auto kept = form.shared_from_this();
  auto usable = UsableControls(form);
  usable.push_back(nullptr);  // the close box
  const auto name_of = [&](const Control* control) {
    return control == nullptr ? form.Name() + " close" : NameOf(*control);
  };
  const Control* control = Rarer(usable, [&](const Control* each) { return uses_[name_of(each)]; });
  ++uses_[name_of(control)];
  if (control == nullptr) {
    Do("close " + form.Name());
  } else {
    ActOn(*control);
  }
}

void Walk::ActOn(const Control& control) {
  const std::string name = NameOf(control);
  if (const auto* picture = dynamic_cast<const PictureBox*>(&control)) {
    Drag(*picture);
  } else if (const auto* combo = dynamic_cast<const ComboBox*>(&control);
             combo != nullptr && decisions_.OneIn(2)) {
    Do("set " + name + " " + ScriptText(decisions_.Of(combo->Items.Get())));
  } else if (combo != nullptr || control.Kind() == ControlKind::TextBox) {
    Do("set " + name + " " + ScriptText(user_.SomeText()));
  } else {
    Do("click " + name);
  }
}

/// Presses, moves and lets go; where the first is all that is wanted the others do no harm.
void Walk::Drag(const PictureBox& picture) {
  const std::string name = NameOf(picture);
  const std::string button = decisions_.OneIn(2) ? " left " : " right ";
  const UserScale scale = picture.Scale();
  const std::string from = Place(scale);
  const std::string to = Place(scale);
  Do("move " + name + " " + from);
  Do("down " + name + button + from);
  Do("move " + name + " " + to);
  Do("up " + name + button + to);
}

/// A place in a picture, or a little beside it, and now and then far away.
std::string Walk::Place(const UserScale& scale) {
  const auto along = [this] { return static_cast<float>(decisions_.Below(256)) / 240 - 0.03F; };
  const float far = decisions_.OneIn(128) ? 1E6F : 1;
  const float x = scale.Left + scale.Width * along() * far;
  const float y = scale.Top + scale.Height * along() * far;
  return std::to_string(x) + " " + std::to_string(y);
}

/// A key on the form, or in one of its boxes.
void Walk::Press(Form& form) {
  const auto kept = form.shared_from_this();
  user_.StartAction();
  form.BringToFront();
  if (decisions_.OneIn(2)) {
    form.PressEscape();
    return;
  }
  const auto usable = UsableControls(form);
  form.PressEnter(usable.empty() ? nullptr : decisions_.Of(usable));
}

void Walk::Do(const std::string& line) {
  if (Ended()) return;
  user_.StartAction();
  static_cast<void>(actions_.Do(std::get<ScriptCommand>(ParseScriptCommand(line))));
}

/// What is hidden or greyed takes no click.
void Walk::RequireRefusal(const Form& form) {
  const Control* control = decisions_.Of(form.Controls());
  if (IsStill(*control) || !bench_.Desk().WhyUnusable(*control)) return;
  const long before = record_.Actions();
  const auto refused = actions_.Do(std::get<ScriptCommand>(ParseScriptCommand("click " + NameOf(*control))));
  Require(refused.Error && record_.Actions() == before, "a control that can't be used does nothing");
}

void Walk::RequireLaws() {
  constexpr std::size_t seldom = 64;
  if (!Ended()) {
    Require(!bench_.Desk().ShownForms().empty(), "there is a window while the run lasts");
  }
  Require(bench_.Desk().ModalForm() == nullptr, "a modal window ends with its command");
  for (const auto& form : bench_.Desk().ShownForms()) RequireRest(*form);
  RequireSoundBuffers(bench_.Data(), ++steps_);
  if (steps_ % seldom == 0) RequireFiniteWorkspace(bench_.Data());
  files_.RequireWholeFiles();
}

}  // namespace koprax
