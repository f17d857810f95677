#include "app/figure_reading.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <utility>
#include <vector>

#include "app/script_command.h"
#include "forms/text_file.h"

namespace koprax {

namespace {

constexpr const char* PrinterName = "Printer";

/// What a command looks at: the name of a picture, the page of the printer, or neither.
struct LookedAt {
  std::optional<std::string> Picture{};
  bool Page = false;
};

LookedAt WhatIsLookedAt(const ScriptCommand& command) {
  if (const auto* picture = std::get_if<PictureCommand>(&command)) return {.Picture = picture->Target.Text()};
  if (std::holds_alternative<PrinterPictureCommand>(command)) return {.Picture = PrinterName};
  if (const auto* modal = std::get_if<std::shared_ptr<const ModalCommand>>(&command)) {
    return WhatIsLookedAt((*modal)->Command);
  }
  return {.Page = std::holds_alternative<GetPrinterCommand>(command)};
}

Json Parsed(std::string_view text) { return Json::parse(text, nullptr, false); }

template <class Type>
std::optional<Type> FieldOf(const Json& answer, const char* name) {
  const auto found = answer.find(name);
  if (found == answer.end()) return std::nullopt;
  const Type* const value = found->template get_ptr<const Type*>();
  return value == nullptr ? std::nullopt : std::optional(*value);
}

std::optional<PrinterPage> PageOfJson(const Json& answer) {
  const Json value = answer.value("value", Json());
  for (const char* name : {"ScaleMode", "ScaleWidth", "ScaleHeight"}) {
    if (!value.is_object() || !value.contains(name) || !value[name].is_number()) return std::nullopt;
  }
  return PrinterPage{.ScaleMode = value["ScaleMode"].get<int>(),
                     .Width = value["ScaleWidth"].get<float>(),
                     .Height = value["ScaleHeight"].get<float>()};
}

/// Goes through the answers and keeps the picture that is meant.
class AnswerReader {
 public:
  explicit AnswerReader(const PictureChoice& choice) : choice_(choice) {}

  /// False for what is no answer.
  bool Take(Json answer) {
    const auto command = FieldOf<std::string>(answer, "command");
    if (!command) return false;
    ++count_;
    const auto parsed = command->empty() ? ScriptError{} : ParseScriptCommand(*command);
    if (std::holds_alternative<ScriptError>(parsed)) return true;
    const LookedAt looked = WhatIsLookedAt(std::get<ScriptCommand>(parsed));
    if (const auto page = looked.Page ? PageOfJson(answer) : std::nullopt) {
      pages_.emplace_back(count_, *page);
    }
    if (looked.Picture && IsMeant(answer, *looked.Picture)) {
      name_ = *looked.Picture;
      picture_ = std::move(answer);
      place_ = count_;
    }
    return true;
  }

  [[nodiscard]] std::variant<ReadPicture, std::string> Outcome() const {
    if (!picture_) return WhyNone();
    if (const auto error = FieldOf<std::string>(*picture_, "error")) {
      return "the command \"" + picture_->value("command", "") + "\" failed: " + *error;
    }
    auto read = OperationsOfJson(picture_->value("value", Json()));
    if (auto* reason = std::get_if<std::string>(&read)) return std::move(*reason);
    return ReadPicture{.Name = name_,
                       .Drawn = std::get<OperationsRead>(std::move(read)),
                       .Page = name_ == PrinterName ? NearestPage() : std::nullopt};
  }

 private:
  [[nodiscard]] bool IsMeant(const Json& answer, const std::string& name) const {
    return (!choice_.Name || name == *choice_.Name) &&
           (!choice_.Line || answer.value("line", Json()) == Json(*choice_.Line));
  }

  [[nodiscard]] std::optional<PrinterPage> NearestPage() const {
    const auto nearest = std::ranges::min_element(
        pages_, {}, [this](const auto& page) { return std::abs(page.first - place_); });
    return nearest == pages_.end() ? std::nullopt : std::optional(nearest->second);
  }

  [[nodiscard]] std::string WhyNone() const {
    std::string reason = "there is no answer to a command \"picture";
    if (choice_.Name) reason += " " + *choice_.Name;
    reason += "\"";
    if (choice_.Line) reason += " in line " + std::to_string(*choice_.Line) + " of the script";
    return reason;
  }

  const PictureChoice& choice_;
  std::string name_;
  std::optional<Json> picture_;
  int place_ = 0;  // of the picture among the answers
  std::vector<std::pair<int, PrinterPage>> pages_;
  int count_ = 0;
};

std::variant<ReadPicture, std::string> PictureOfArray(const Json& array, const PictureChoice& choice) {
  if (choice.Line) return "an array of operations alone has no lines of a script to choose from";
  auto read = OperationsOfJson(array);
  if (auto* reason = std::get_if<std::string>(&read)) return std::move(*reason);
  return ReadPicture{.Name = choice.Name.value_or(""), .Drawn = std::get<OperationsRead>(std::move(read))};
}

bool IsBlank(std::string_view line) { return line.find_first_not_of(" \t") == std::string_view::npos; }

}  // namespace

std::variant<ReadPicture, std::string> ReadPictureAnswer(std::string_view text, const PictureChoice& choice) {
  // One that is laid out over many lines is a single one.
  Json whole = Parsed(text);
  if (whole.is_array()) return PictureOfArray(whole, choice);
  if (AnswerReader single(choice); whole.is_object() && single.Take(std::move(whole))) {
    return single.Outcome();
  }
  AnswerReader answers(choice);
  for (LineReader lines(text); !lines.AtEnd();) {
    const std::string_view line = lines.NextLine();
    if (!IsBlank(line) && !answers.Take(Parsed(line))) {
      return "line " + std::to_string(lines.LineNumber()) + " is no answer of koprax-script";
    }
  }
  return answers.Outcome();
}

}  // namespace koprax
