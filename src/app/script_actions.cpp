#include "app/script_actions.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "app/script_names.h"
#include "forms/form.h"

namespace koprax {

namespace {

ScriptOutcome Done() { return {}; }
ScriptOutcome Valued(Json value) { return {.Value = std::move(value)}; }
ScriptOutcome Failed(std::string error) { return {.Error = std::move(error)}; }

std::string_view KindWords(ControlKind kind) {
  switch (kind) {
    case ControlKind::Button:
      return "a button";
    case ControlKind::OptionButton:
      return "an option button";
    case ControlKind::CheckBox:
      return "a check box";
    case ControlKind::TextBox:
      return "a text box";
    case ControlKind::ComboBox:
      return "a combo box";
    case ControlKind::Label:
      return "a label";
    case ControlKind::Frame:
      return "a frame";
    case ControlKind::PictureBox:
      return "a picture box";
    case ControlKind::Shape:
      return "a shape";
    case ControlKind::Line:
      return "a line";
    case ControlKind::Image:
      break;
  }
  return "an image";
}

ScriptOutcome WrongKind(const ControlName& name, const Control& control, std::string_view wanted) {
  return Failed(name.Text() + " is " + std::string(KindWords(control.Kind())) + "; " + std::string(wanted));
}

/// A text as a box of several lines holds it: every line break is CR LF.
std::string WithWholeLineBreaks(std::string_view text) {
  std::string whole;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') {
      whole += text[i];
      continue;
    }
    whole += "\r\n";
    i += text.substr(i, 2) == "\r\n" ? 1U : 0U;
  }
  return whole;
}

/// A text as a box of one line takes it: nothing from the first line break on.
std::string FirstLine(std::string_view text) {
  return std::string(text.substr(0, text.find_first_of("\r\n")));
}

}  // namespace

ScriptOutcome ScriptActions::Do(const ScriptCommand& command) {
  return std::visit([this](const auto& one) { return Do(one); }, command);
}

std::string ScriptActions::WhyNoForm(const std::string& name) const {
  if (std::ranges::find(stage_.FormNames, name) != stage_.FormNames.end()) {
    return name + " is not loaded";
  }
  return "there is no form " + name + "; near names are " + CommaList(NearestNames(name, stage_.FormNames));
}

ScriptActions::FoundControl ScriptActions::FindControl(const ControlName& name) const {
  FoundControl found{.Owner = stage_.Desk.Find(name.Form)};
  if (!found.Owner) {
    found.Error = WhyNoForm(name.Form);
    return found;
  }
  found.Item = found.Owner->Find(name.Control, name.Index);
  if (found.Item == nullptr) {
    std::vector<std::string> names;
    for (const Control* control : found.Owner->Controls()) {
      names.push_back(control->FullName());
    }
    found.Error = name.Form + " has no control " + name.ControlText() + "; near names are " +
                  CommaList(NearestNames(name.ControlText(), names));
  }
  return found;
}

template <class Action>
ScriptOutcome ScriptActions::Act(Control& control, Action action) {
  if (auto reason = stage_.Desk.WhyUnusable(control)) {
    return Failed(std::move(*reason));
  }
  control.OwnerForm().BringToFront();
  action();
  return Done();
}

ScriptOutcome ScriptActions::Do(const ClickCommand& command) {
  const FoundControl found = FindControl(command.Target);
  if (found.Item == nullptr) {
    return Failed(found.Error);
  }
  if (auto* button = dynamic_cast<Button*>(found.Item)) {
    return Act(*button, [&] { button->Click(); });
  }
  if (auto* option = dynamic_cast<OptionButton*>(found.Item)) {
    return Act(*option, [&] { option->Click(); });
  }
  if (auto* box = dynamic_cast<CheckBox*>(found.Item)) {
    return Act(*box, [&] { box->Click(); });
  }
  return WrongKind(command.Target, *found.Item, "click is for buttons, option buttons and check boxes");
}

ScriptOutcome ScriptActions::Do(const SetCommand& command) {
  const FoundControl found = FindControl(command.Target);
  if (found.Item == nullptr) {
    return Failed(found.Error);
  }
  if (auto* box = dynamic_cast<TextBox*>(found.Item)) {
    if (box->Locked) {
      return Failed(command.Target.Text() + " is locked, it can't be typed in");
    }
    return Act(*box, [&] {
      box->Type(box->MultiLine ? WithWholeLineBreaks(command.Text) : FirstLine(command.Text));
    });
  }
  if (auto* box = dynamic_cast<ComboBox*>(found.Item)) {
    return Act(*box, [&] { box->Type(FirstLine(command.Text)); });
  }
  return WrongKind(command.Target, *found.Item, "set is for text boxes and combo boxes");
}

ScriptOutcome ScriptActions::Do(const MouseCommand& command) {
  const FoundControl found = FindControl(command.Target);
  if (found.Item == nullptr) {
    return Failed(found.Error);
  }
  auto* picture = dynamic_cast<PictureBox*>(found.Item);
  if (picture == nullptr) {
    return WrongKind(command.Target, *found.Item, "down, move and up are for picture boxes");
  }
  return Act(*picture, [&] {
    switch (command.Event) {
      case MouseCommand::Kind::Down:
        picture->MouseDown(command.Button, command.X, command.Y);
        break;
      case MouseCommand::Kind::Move:
        picture->MouseMove(command.X, command.Y);
        break;
      case MouseCommand::Kind::Up:
        picture->MouseUp(command.Button, command.X, command.Y);
        break;
    }
  });
}

ScriptOutcome ScriptActions::Do(const CloseCommand& command) {
  const auto form = stage_.Desk.Find(command.Form);
  if (!form) {
    return Failed(WhyNoForm(command.Form));
  }
  if (auto reason = stage_.Desk.WhyUnusable(*form)) {
    return Failed(std::move(*reason));
  }
  if (!form->MayClose()) {
    return Failed(form->Name() + " can't be closed now; end what is under way in it first");
  }
  form->BringToFront();
  form->CloseBox();
  return Done();
}

ScriptOutcome ScriptActions::Do(const InputCommand& command) {
  stage_.Runtime.QueueInput(command.Text);
  return Done();
}

ScriptOutcome ScriptActions::Do(const AnswerCommand& command) {
  stage_.Runtime.QueueAnswer(command.Answer);
  return Done();
}

ScriptOutcome ScriptActions::Do(const FileCommand& command) {
  stage_.Runtime.QueueFile(command.Path);
  return Done();
}

ScriptOutcome ScriptActions::Do(const PrinterCommand& command) {
  stage_.Runtime.QueuePrinter(command.Choice);
  return Done();
}

ScriptOutcome ScriptActions::Do(const GetFormCommand& command) {
  if (const auto form = stage_.Desk.Find(command.Form)) {
    return Valued(JsonOfForm(*form));
  }
  if (std::ranges::find(stage_.FormNames, command.Form) == stage_.FormNames.end()) {
    return Failed(WhyNoForm(command.Form));
  }
  return Valued({{"Loaded", false}, {"Visible", false}});
}

ScriptOutcome ScriptActions::Do(const GetControlCommand& command) {
  const FoundControl found = FindControl(command.Target);
  if (found.Item == nullptr) {
    return Failed(found.Error);
  }
  const Json properties = JsonOfControl(*found.Item);
  if (!command.Property) {
    return Valued(properties);
  }
  if (const auto property = properties.find(*command.Property); property != properties.end()) {
    return Valued(*property);
  }
  std::vector<std::string> names;
  for (const auto& [name, value] : properties.items()) {
    names.push_back(name);
  }
  return WrongKind(command.Target, *found.Item,
                   "it has no " + *command.Property + ", it has " + CommaList(names));
}

ScriptOutcome ScriptActions::Do(const GetPrinterCommand& /*command*/) {
  return Valued(JsonOfPrinter(stage_.Desk.ThePrinter()));
}

ScriptOutcome ScriptActions::Do(const FormsCommand& /*command*/) {
  Json names = Json::array();
  for (const auto& form : stage_.Desk.ShownForms()) {
    names.push_back(form->Name());
  }
  return Valued(std::move(names));
}

ScriptOutcome ScriptActions::Do(const StateCommand& command) {
  if (command.Slot) {
    return StateOfSlot(command.Field, *command.Slot);
  }
  if (auto value = JsonOfWorkspaceField(stage_.Data, command.Field)) {
    return Valued(std::move(*value));
  }
  return StateOfAllSlots(command.Field);
}

ScriptOutcome ScriptActions::StateOfSlot(const std::string& field, int slot) const {
  if (auto value = JsonOfBufferField(stage_.Data.Buffer(slot), field)) {
    return Valued(std::move(*value));
  }
  const auto value = JsonOfWorkspaceField(stage_.Data, field);
  if (!value) {
    return StateOfAllSlots(field);
  }
  // The one table of the workspace that is numbered by the buffers.
  if (field == "SelBuf") {
    return Valued((*value)[static_cast<std::size_t>(slot)]);
  }
  return Failed(field + " is no field of a buffer; write state " + field);
}

ScriptOutcome ScriptActions::StateOfAllSlots(const std::string& field) const {
  Json slots = Json::array();
  for (const ProfileBuffer& buffer : stage_.Data.Buffers) {
    auto value = JsonOfBufferField(buffer, field);
    if (!value) {
      return Failed("there is no workspace field " + field + "; near names are " +
                    CommaList(NearestNames(field, WorkspaceFieldNames())));
    }
    if (value->is_array()) {
      std::string error = field;
      error += " is a table of each buffer; name one by a letter a to f, such as state " + field + "(a)";
      return Failed(std::move(error));
    }
    slots.push_back(std::move(*value));
  }
  return Valued(std::move(slots));
}

ScriptOutcome ScriptActions::Do(const BufferCommand& command) {
  return Valued(JsonOfBuffer(stage_.Data.Buffer(command.Slot)));
}

ScriptOutcome ScriptActions::Do(const PictureCommand& command) {
  const FoundControl found = FindControl(command.Target);
  if (found.Item == nullptr) {
    return Failed(found.Error);
  }
  const auto* picture = dynamic_cast<const PictureBox*>(found.Item);
  if (picture == nullptr) {
    return WrongKind(command.Target, *found.Item, "picture is for picture boxes and Printer");
  }
  return Valued(JsonOfOperations(picture->Operations()));
}

ScriptOutcome ScriptActions::Do(const PrinterPictureCommand& /*command*/) {
  return Valued(JsonOfOperations(stage_.Desk.ThePrinter().Operations()));
}

ScriptOutcome ScriptActions::Do(const SnapshotCommand& command) {
  const auto form = stage_.Desk.Find(command.Form);
  if (!form) {
    return Failed(WhyNoForm(command.Form));
  }
  if (!form->Visible()) {
    return Failed(command.Form + " is not shown");
  }
  if (auto failure = stage_.Host.Snapshot(*form, command.Path)) {
    return Failed(command.Path + ": " + *failure);
  }
  return Done();
}

ScriptOutcome ScriptActions::Do(const std::shared_ptr<const ModalCommand>& /*command*/) {
  return Failed("a command for a modal window is carried out when one is up");
}

}  // namespace koprax
