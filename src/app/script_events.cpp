#include "app/script_events.h"

#include <optional>
#include <string_view>
#include <utility>
#include <variant>

#include "forms/form.h"

namespace koprax {

namespace {

std::string_view IconWord(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Stop:
      return "stop";
    case MessageIcon::Question:
      return "question";
    case MessageIcon::Exclamation:
      return "exclamation";
    case MessageIcon::Information:
      return "information";
    case MessageIcon::None:
      break;
  }
  return "none";
}

Json TextOrNull(const std::optional<std::string>& text) { return text ? Json(*text) : Json(); }

Json EventJson(const MessageEvent& event) {
  return {{"event", "message"},
          {"text", event.Box.Text},
          {"title", event.Box.Title},
          {"buttons", event.Box.Buttons == MessageButtons::YesNo ? "yesno" : "ok"},
          {"icon", IconWord(event.Box.Icon)},
          {"answer", AnswerWord(event.Answer)}};
}

Json EventJson(const InputEvent& event) {
  return {{"event", "input"},
          {"prompt", event.Request.Prompt},
          {"title", event.Request.Title},
          {"default", event.Request.Default},
          {"answer", TextOrNull(event.Answer)}};
}

Json DialogJson(std::string_view kind, const FileDialogRequest& request,
                const std::optional<std::string>& answer) {
  return {{"event", "dialog"},        {"kind", kind},
          {"filter", request.Filter}, {"filterIndex", request.FilterIndex},
          {"name", request.Name},     {"answer", TextOrNull(answer)}};
}

Json EventJson(const FileDialogEvent& event) {
  const bool opens = event.Request.Type == FileDialogRequest::Kind::Open;
  return DialogJson(opens ? "open" : "save", event.Request, event.Answer);
}

Json EventJson(const PrinterDialogEvent& event) {
  return DialogJson("printer", FileDialogRequest{.FilterIndex = 0}, event.Answer);
}

Json EventJson(const PrintedEvent& event) { return {{"event", "printed"}, {"file", event.File}}; }

Json EventJson(const ShellEvent& event) { return {{"event", "shell"}, {"command", event.Command}}; }

Json EventJson(const QuitEvent& /*event*/) { return {{"event", "quit"}}; }

Json FormJson(std::string_view event, const Form& form) { return {{"event", event}, {"form", form.Name()}}; }

Json PointerJson(const std::string& of, Pointer pointer) {
  return {{"event", "pointer"}, {"of", of}, {"pointer", static_cast<int>(pointer)}};
}

std::string NameOf(const Control& control) { return control.OwnerForm().Name() + "." + control.FullName(); }

}  // namespace

ScriptEvents::ScriptEvents(Desktop& desk, ScriptedRuntime& runtime) : desk_(desk), runtime_(runtime) {
  desk_.AddObserver(*this);
  runtime_.OnEvent = [this](const RuntimeEvent& event) {
    Record(std::visit([](const auto& one) { return EventJson(one); }, event));
  };
}

ScriptEvents::~ScriptEvents() {
  runtime_.OnEvent = nullptr;
  desk_.RemoveObserver(*this);
}

Json ScriptEvents::End() {
  Json events = std::move(records_.back());
  records_.pop_back();
  return events;
}

void ScriptEvents::Record(Json event) {
  if (!records_.empty()) {
    records_.back().push_back(std::move(event));
  }
}

void ScriptEvents::FormShown(Form& form, bool modal) {
  Json event = FormJson("shown", form);
  event["modal"] = modal;
  Record(std::move(event));
}

void ScriptEvents::FormHidden(Form& form) { Record(FormJson("hidden", form)); }

void ScriptEvents::FormUnloaded(Form& form) { Record(FormJson("unloaded", form)); }

void ScriptEvents::FormFronted(Form& form, bool /*keyboard*/) { Record(FormJson("front", form)); }

void ScriptEvents::FormChanged(Form& form, PropertyName name) {
  if (name == PropertyName::MousePointer) {
    Record(PointerJson(form.Name(), form.MousePointer));
  }
}

void ScriptEvents::ControlChanged(Control& control, PropertyName name) {
  const auto* picture = dynamic_cast<const PictureBox*>(&control);
  if (picture != nullptr && name == PropertyName::MousePointer) {
    Record(PointerJson(NameOf(control), picture->MousePointer));
  }
}

void ScriptEvents::ControlRefreshed(Control& control) {
  Json event{{"event", "refresh"}, {"control", NameOf(control)}};
  event.update(JsonOfControl(control));
  Record(std::move(event));
}

}  // namespace koprax
