#include "app/script_lines.h"

#include <variant>

#include "app/script_values.h"
#include "forms/form.h"

namespace koprax {

namespace {

std::string NameOf(const Control& control) { return control.OwnerForm().Name() + "." + control.FullName(); }

std::string Coordinate(float value) { return JsonLine(JsonNumber(value)); }

std::string Line(const ClickAction& click) { return "click " + NameOf(click.Target); }

std::string Line(const TypeAction& type) {
  return "set " + NameOf(type.Target) + " " + ScriptText(type.Text);
}

std::string Line(const MouseAction& mouse) {
  const std::string button = mouse.Button == MouseButton::Left ? " left" : " right";
  const std::string name = NameOf(mouse.Target);
  const std::string place = " " + Coordinate(mouse.X) + " " + Coordinate(mouse.Y);
  switch (mouse.Event) {
    case MouseAction::Kind::Down:
      return "down " + name + button + place;
    case MouseAction::Kind::Up:
      return "up " + name + button + place;
    case MouseAction::Kind::Move:
      break;
  }
  return "move " + name + place;
}

std::string Line(const CloseAction& close) { return "close " + close.Target.Name(); }

std::string TextOrCancel(const std::optional<std::string>& text) {
  return text ? ScriptText(*text) : "cancel";
}

}  // namespace

std::string ScriptText(const std::string& text) { return JsonLine(text); }

std::string ScriptLine(const UserAction& action) {
  return std::visit([](const auto& one) { return Line(one); }, action);
}

std::string AnswerLine(MessageAnswer answer) { return "answer " + std::string(AnswerWord(answer)); }

std::string InputLine(const std::optional<std::string>& text) { return "input " + TextOrCancel(text); }

std::string FileLine(const std::optional<std::string>& path) { return "file " + TextOrCancel(path); }

std::string PrinterLine(const std::optional<PrinterChoice>& choice) {
  if (!choice) {
    return "printer cancel";
  }
  std::string line = "printer " + ScriptText(choice->File);
  for (const std::string& font : choice->MissingFonts) {
    line += " without " + ScriptText(font);
  }
  return choice->Copies == 1 ? line : line + " copies " + std::to_string(choice->Copies);
}

}  // namespace koprax
