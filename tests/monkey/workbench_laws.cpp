#include "tests/monkey/workbench_laws.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <concepts>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "forms/control.h"
#include "forms/fixed_text.h"
#include "forms/form.h"
#include "forms/text_encoding.h"
#include "fuzz/law.h"
#include "workspace/workspace_fields.h"

namespace koprax {

namespace {

/// How the messages begin that have always been without a full stop, and those of them without a title.
constexpr std::array<std::string_view, 16> WithoutStop{"Are you sure?",
                                                       "PDS files",
                                                       " CPS-120 data cannot",
                                                       "Negative or null argument",
                                                       "Wrong definition of crystal",
                                                       "Something wrong in",
                                                       "Undefined wave length",
                                                       "Singular matrix",
                                                       "Unacceptable peak",
                                                       "Profile with variable step",
                                                       "The display settings changed",
                                                       "The computer must be restarted",
                                                       "The display driver failed",
                                                       "The graphics mode is",
                                                       "Unable to write settings",
                                                       "You Passed invalid"};
constexpr std::array<std::string_view, 7> WithoutTitle{
    "The display settings changed", "The computer must be restarted", "The display driver failed",
    "The graphics mode is",         "Unable to write settings",       "You Passed invalid",
    "This screen has no mode"};

template <class List>
bool BeginsLikeOne(const List& openings, std::string_view text) {
  return std::ranges::any_of(openings, [&](std::string_view opening) { return text.starts_with(opening); });
}

bool Finite(const LineOperation& line) {
  return std::isfinite(line.X1) && std::isfinite(line.Y1) && std::isfinite(line.X2) && std::isfinite(line.Y2);
}
bool Finite(const PointOperation& point) { return std::isfinite(point.X) && std::isfinite(point.Y); }
bool Finite(const TextOperation& text) { return std::isfinite(text.X) && std::isfinite(text.Y); }
bool Finite(const ImageOperation& image) {
  return std::isfinite(image.X) && std::isfinite(image.Y) && std::isfinite(image.Width) &&
         std::isfinite(image.Height);
}
bool Finite(const DrawingOperation& operation) {
  return std::visit([](const auto& one) { return Finite(one); }, operation);
}

bool Finite(std::floating_point auto value) { return std::isfinite(value); }
bool Finite(std::integral auto /*value*/) { return true; }
bool Finite(const std::string& /*text*/) { return true; }
template <class Table>
requires requires(const Table& table) { table.size(); }
bool Finite(const Table& table) {
  return std::ranges::all_of(table, [](const auto& entry) { return Finite(entry); });
}

/// Whether a number that is none stands in a text, as a word of its own. What the user typed is told in
/// quotes.
bool TellsNoNumber(std::string_view text) {
  const auto letter = [&](std::size_t at) {
    return at < text.size() && std::isalpha(static_cast<unsigned char>(text[at])) != 0;
  };
  for (const std::string_view word : {"nan", "inf"}) {
    for (auto at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
      const bool typed = at > 0 && text[at - 1] == '"';
      if (!typed && (at == 0 || !letter(at - 1)) && !letter(at + word.size())) return true;
    }
  }
  return false;
}

void RequirePoints(const PointTable& x, const PointTable& y, int count) {
  const auto used = static_cast<std::size_t>(count);
  Require(Finite(std::span(x).first(used + 1)) && Finite(std::span(y).first(used + 1)), "points are numbers");
}

void RequireSoundBuffer(const ProfileBuffer& buffer) {
  Require(CharacterCount(buffer.Title) == TitleWidth, "a title has 80 characters");
  Require(IsUtf8(buffer.Title), "a title is text");
  Require(buffer.NPeaks >= 0 && buffer.NPeaks <= MaxPeaks, "the peak list keeps its limit");
  for (const int count : {buffer.PermNpts, buffer.WorkNpts}) {
    Require(count >= 0 && count <= MaxPoints, "a profile keeps its limit");
  }
  Require(
      Finite(buffer.Wavelength) && Finite(buffer.XStep) && Finite(buffer.CalPar) && Finite(buffer.CardCell),
      "numbers of a buffer are finite");
}

}  // namespace

void RequireWholeMessage(const Message& message) {
  Require(!message.Text.empty(), "a message has words");
  Require(IsUtf8(message.Text), "a message is text: " + message.Text);
  Require(!message.Title.empty() || BeginsLikeOne(WithoutTitle, message.Text),
          "a message has a title: " + message.Text);
  Require(std::string_view(".?!").find(message.Text.back()) != std::string_view::npos ||
              BeginsLikeOne(WithoutStop, message.Text),
          "a message comes to an end: " + message.Text);
  Require(!TellsNoNumber(message.Text), "a message tells numbers: " + message.Text);
}

void RequireWholeQuestion(const InputRequest& request) {
  Require(!request.Prompt.empty() && !request.Title.empty(), "a question has words: " + request.Prompt);
}

void RequireWholeDialog(const FileDialogRequest& request) {
  const auto bars = std::ranges::count(request.Filter, '|');
  Require(request.FilterIndex >= 1 && request.FilterIndex <= (bars + 1) / 2,
          "one of the pairs of a filter is chosen: " + request.Filter);
}

void RequireFiniteDrawing(const Surface& surface) {
  Require(std::ranges::all_of(surface.Operations(), [](const auto& operation) { return Finite(operation); }),
          "what is drawn has a place");
}

void RequireSoundBuffers(const Workspace& data, std::size_t turn) {
  Require(data.CurBuf >= 0 && data.CurBuf <= NumBuffers, "the current buffer is one of them");
  for (int slot = 0; slot <= NumBuffers; ++slot) RequireSoundBuffer(data.Buffer(slot));
  const ProfileBuffer& buffer = data.Buffer(1 + static_cast<int>(turn % NumBuffers));
  RequirePoints(buffer.PermX, buffer.PermY, buffer.PermNpts);
  RequirePoints(buffer.WorkX, buffer.WorkY, buffer.WorkNpts);
}

void RequireRest(const Form& form) {
  constexpr std::size_t most_drawn = 500000;
  Require(form.MousePointer.Get() != Pointer::Hourglass, "a form waits for no command that has ended");
  for (const Control* control : form.Controls()) {
    if (control->Kind() != ControlKind::PictureBox) continue;
    const auto* picture = dynamic_cast<const PictureBox*>(control);
    Require(picture->MousePointer.Get() != Pointer::Hourglass,
            "a picture waits for no command that has ended");
    Require(picture->Operations().size() < most_drawn, "what is drawn doesn't grow without end");
  }
}

void RequireFiniteWorkspace(const Workspace& data) {
  VisitWorkspaceFields(data, [](const std::string& name, const auto& field) {
    // A result that is refused, because it isn't finite, has been computed or read there.
    const bool scratch = name.starts_with("Scratch") || name == "WordVal";
    Require(scratch || Finite(field), "numbers of the workspace are finite: " + name);
  });
}

void WindowLaws::FormShown(Form& form, bool /*modal*/) {
  Require(form.Loaded() && !form.Caption.Get().empty(), "a window that is shown has a name: " + form.Name());
}

void WindowLaws::ControlChanged(Control& control, PropertyName name) {
  if (name == PropertyName::Geometry) {
    for (const auto& [edge, value] : control.Properties()) {
      const auto* number = std::get_if<float>(&value);
      Require(number == nullptr || std::isfinite(*number), "a cursor has a place: " + control.FullName());
    }
  }
  const auto* box = dynamic_cast<const TextBox*>(&control);
  if (name == PropertyName::Text && box != nullptr && box->Locked) {
    Require(IsUtf8(box->Text.Get()) && !TellsNoNumber(box->Text.Get()),
            "a box tells numbers: " + control.OwnerForm().Name() + "." + control.FullName() + " " +
                box->Text.Get());
  }
}

void WindowLaws::PictureDrawn(PictureBox& picture) {
  const auto& drawn = picture.Operations();
  if (!drawn.empty() && !Finite(drawn.back())) {
    Require(false, "what is drawn has a place: " + picture.OwnerForm().Name() + "." + picture.FullName());
  }
}

}  // namespace koprax
