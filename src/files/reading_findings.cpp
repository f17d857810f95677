#include "files/reading_findings.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <map>
#include <string_view>
#include <utility>

#include "files/profile_readers.h"
#include "files/profile_title.h"
#include "files/tokeniser.h"
#include "forms/fixed_text.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

constexpr int all_numbers = MaxWords;
constexpr int in_front_of_running_number = 69;  ///< columns of a line of reflections
constexpr float half_turn = 180;
constexpr float least_plotted_range = 0.00001F;
/// A first step that is so many times the next ones comes from a line of the head.
constexpr float far_apart = 10;
constexpr float step_tolerance = 0.02F;  ///< of the step: X is often written with few digits

/// How many numbers of a line make points.
int NumbersOfALine(int format) {
  switch (format) {
    case input_format::TwoColumns:
    case input_format::Uxd:
      return 2;
    case input_format::Adf:
      return 8;
    case input_format::Udf:
      return all_numbers;
    default:
      return 1;
  }
}

/// Whether X comes from the first one and a step.
bool HasStep(int format) {
  return format == input_format::ItalDat || format == input_format::OneColumn || format == input_format::Udf;
}

// ---- The words of a line ---------------------------------------------------------------------------

struct PlacedWord {
  std::string_view Text;
  int Column = 0;  ///< from 1, in characters
  bool Number = false;
};

/// The words of a line from a place on. What is a number is asked of the tokeniser itself.
std::vector<PlacedWord> WordsFrom(std::string_view line, std::size_t start) {
  std::vector<PlacedWord> words;
  LineWords one;
  for (std::size_t at = line.find_first_not_of(" ,", start); at < line.size() && words.size() < MaxWords;) {
    const std::size_t end = std::min(line.find_first_of(" ,", at), line.size());
    const std::string_view word = line.substr(at, end - at);
    SplitLine(word, one);
    words.push_back({word, static_cast<int>(CharacterCount(line.substr(0, at))) + 1, one.NNum == 1});
    at = line.find_first_not_of(" ,", end);
  }
  return words;
}

/// Those that count.
std::vector<PlacedWord> CountedWords(std::string_view line) {
  return WordsFrom(FirstCharacters(line, LineWidth - 1), 0);
}

/// Those that begin behind the columns that count.
std::vector<PlacedWord> WordsBehind(std::string_view line) {
  return WordsFrom(line, line.find_first_of(" ,", FirstCharacters(line, LineWidth - 2).size()));
}

bool IsWholeNumber(std::string_view word) {
  if (word.starts_with('+')) word.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  return error != std::errc::invalid_argument && end == word.data() + word.size();
}

int CountNumbers(const std::vector<PlacedWord>& words) {
  return static_cast<int>(std::ranges::count(words, true, &PlacedWord::Number));
}

/// So many characters of a line behind so many others, as far as it has them.
std::string_view Columns(std::string_view line, std::size_t before, std::size_t width) {
  return FirstCharacters(line.substr(FirstCharacters(line, before).size()), width);
}

std::string Shown(std::string_view text) { return std::string(FirstCharacters(text, 40)); }

// ---- The findings of a reading ---------------------------------------------------------------------

class Findings {
 public:
  Findings(const TrialReading& trial, const TextLines& lines, int format)
      : trial_(trial), lines_(lines), format_(format) {}

  std::vector<CheckFinding> All() {
    if (trial_.Summary.Read) {
      LookAtPointLines();
      LookAtX();
      LookAtCounts();
      LookAtHead();
      LookAtRest();
      LookAtTitle();
    }
    LookAtRemarks();
    std::vector<CheckFinding> found;
    for (auto& [kind, finding] : found_) found.push_back(std::move(finding));
    return found;
  }

 private:
  /// The first one of a kind stands for all.
  void Note(FindingKind kind, CheckFinding finding) {
    finding.Kind = kind;
    const auto [place, first] = found_.try_emplace(kind, std::move(finding));
    if (!first) ++place->second.Lines;
  }
  [[nodiscard]] std::string_view Line(int number) const {
    return number <= LineCount() ? std::string_view(lines_[static_cast<std::size_t>(number) - 1]) : "";
  }
  [[nodiscard]] int LineCount() const { return static_cast<int>(lines_.size()); }
  [[nodiscard]] int LineOfPoint(int number) const {
    const auto i = static_cast<std::size_t>(number) - 1;
    return i < trial_.PointLines.size() ? trial_.PointLines[i] : 0;
  }

  void LookAtPointLines() {
    if (trial_.PointLines.empty()) return;
    const bool flowing = format_ == input_format::Udf;
    const int last = flowing ? trial_.LastLine : trial_.PointLines.back();
    std::size_t next = 0;
    for (int number = trial_.PointLines.front(); number <= last; ++number) {
      std::optional<CheckedPoint> point;
      if (next < trial_.PointLines.size() && trial_.PointLines[next] == number) {
        point = trial_.Point(static_cast<int>(next) + 1);
      }
      while (next < trial_.PointLines.size() && trial_.PointLines[next] == number) ++next;
      LookAtPointLine(number, point);
    }
  }

  void LookAtPointLine(int number, const std::optional<CheckedPoint>& point) {
    const auto words = CountedWords(Line(number));
    if (words.empty()) {
      if (point) Note(FindingKind::BlankLines, {.Line = number, .Point = point});
      return;
    }
    const int expected = NumbersOfALine(format_);
    int numbers = 0;
    for (const PlacedWord& word : words) {
      const CheckFinding here{
          .Line = number, .Column = word.Column, .Found = std::string(word.Text), .Point = point};
      if (!word.Number) {
        if (numbers >= expected || IsEndMark(word)) continue;
        return Note(FindingKind::Texts, here);
      }
      if (++numbers > expected) return NoteMoreNumbers(here);
      if (!IsWholeNumber(word.Text)) Note(FindingKind::OddNumbers, here);
    }
    if (numbers < expected && expected != all_numbers) {
      return Note(FindingKind::FewNumbers, {.Line = number, .Found = Shown(Line(number)), .Point = point});
    }
    const auto behind = WordsBehind(Line(number));
    const auto more = std::ranges::find(behind, true, &PlacedWord::Number);
    if (expected != all_numbers && more != behind.end()) {
      NoteMoreNumbers(
          {.Line = number, .Column = more->Column, .Found = std::string(more->Text), .Point = point});
    }
  }

  /// Files of two columns often have a third one, with errors of the intensities.
  void NoteMoreNumbers(CheckFinding here) {
    here.Warning = format_ != input_format::TwoColumns;
    Note(FindingKind::MoreNumbers, std::move(here));
  }

  [[nodiscard]] bool IsEndMark(const PlacedWord& word) const {
    return format_ == input_format::Udf && word.Text == "/";
  }

  void LookAtX() {
    const bool degrees = HasStep(format_) || format_ == input_format::Uxd;
    for (int i = 1; i <= trial_.Summary.Points; ++i) {
      const CheckedPoint point = trial_.Point(i);
      const CheckFinding here{.Line = HasStep(format_) ? 0 : LineOfPoint(i), .Point = point};
      if (degrees && std::abs(point.X) > half_turn) Note(FindingKind::XBeyondDegrees, here);
      if (i == 1) continue;
      const float before = trial_.Point(i - 1).X;
      if (point.X < before) Note(FindingKind::DownwardX, here);
      if (point.X == before && format_ != input_format::Aid) Note(FindingKind::RepeatedX, here);
    }
    LookAtRange();
    if (!HasStep(format_)) LookAtSteps();
  }

  void LookAtRange() {
    const int points = trial_.Summary.Points;
    if (points == 0 || format_ == input_format::Aid) return;
    const float range = std::abs(trial_.Point(points).X - trial_.Point(1).X);
    if (range < least_plotted_range) Note(FindingKind::NoRange, {});
  }

  void LookAtSteps() {
    const int points = trial_.Summary.Points;
    const auto step = [this](int from) { return std::abs(trial_.Point(from + 1).X - trial_.Point(from).X); };
    const bool columns = format_ == input_format::TwoColumns || format_ == input_format::Uxd;
    if (columns && points > 3 && step(1) > far_apart * std::max(step(2), step(3))) {
      Note(FindingKind::FirstPointApart,
           {.Warning = false, .Line = LineOfPoint(1), .Point = trial_.Point(1)});
    }
    const float told = std::abs(trial_.Summary.Step);
    if (told == 0 || points < 2) return;
    const float mean = std::abs(trial_.Point(points).X - trial_.Point(1).X) / static_cast<float>(points - 1);
    if (std::abs(mean - told) > step_tolerance * told) {
      Note(FindingKind::AnotherStep, {.Point = CheckedPoint{.X = mean}});
    }
  }

  void LookAtCounts() {
    const int points = trial_.Summary.Points;
    if (format_ == input_format::ItalDat) LookAtNumberOfPoints();
    if (points == 0) return Note(FindingKind::NoPoints, {});
    for (int i = 1; i <= points; ++i) {
      if (std::isnan(trial_.Point(i).Y))
        Note(FindingKind::MissingPoints, {.Point = CheckedPoint{.Number = i}});
    }
    if (found_.contains(FindingKind::MissingPoints)) return;
    const float end = trial_.Point(points).X;
    if (const auto stated = StatedEnd();
        std::abs(stated.value_or(end) - end) > std::abs(trial_.Summary.Step) / 2) {
      Note(FindingKind::AnotherEnd, {.Point = CheckedPoint{.X = *stated}});
    }
  }

  void LookAtNumberOfPoints() {
    int number = 2;
    while (number < LineCount() && CountedWords(Line(number)).empty()) ++number;
    const auto words = CountedWords(Line(number));
    if (words.empty() || words[0].Text.find_first_not_of("0123456789") == std::string_view::npos) return;
    Note(FindingKind::OddNumbers,
         {.Line = number, .Column = words[0].Column, .Found = std::string(words[0].Text)});
  }

  /// The last X as the head tells it: an angle, or the number of channels. A single column has none.
  [[nodiscard]] std::optional<float> StatedEnd() const {
    LineWords words;
    switch (format_) {
      case input_format::ItalDat:
      case input_format::Udf:
        return trial_.StatedEnd;
      case input_format::Adf:
        SplitLine(Line(1), words);
        return words.Number(1);
      default:
        return std::nullopt;
    }
  }

  void LookAtHead() {
    const int first = trial_.PointLines.empty() ? LineCount() + 1 : trial_.PointLines.front();
    if (format_ == input_format::TwoColumns && first > 1) LookAtTwoColumnHead(first);
    for (int number = 1; number < first && number <= LineCount(); ++number) {
      const std::string_view line = Line(number);
      const std::string_view rest = line.substr(FirstCharacters(line, LineWidth).size());
      if (!IsKept(number, line) || rest.find_first_not_of(' ') == std::string_view::npos) continue;
      Note(FindingKind::CutLine,
           {.Warning = false, .Line = number, .Column = LineWidth + 1, .Found = Shown(rest)});
    }
  }

  /// The title, and the wavelength behind it.
  void LookAtTwoColumnHead(int first_point_line) {
    const auto title = CountedWords(Line(1));
    // A word longer than any number is one to the reader; who wrote it meant a text.
    const bool numbers = !title.empty() && std::ranges::all_of(title, [](const PlacedWord& word) {
      return word.Number && CharacterCount(word.Text) <= MaxWords;
    });
    if (numbers) Note(FindingKind::NumbersAsTitle, {.Line = 1, .Found = Shown(Line(1))});
    const auto second = CountedWords(Line(2));
    if (first_point_line > 2 && !second.empty() && CountNumbers(second) != 1) {
      Note(FindingKind::HeadLineLeftOut, {.Line = 2, .Found = Shown(Line(2))});
    }
  }

  /// Whether a line of the head is kept with the profile, in a field of 80 characters.
  [[nodiscard]] bool IsKept(int number, std::string_view line) const {
    switch (format_) {
      case input_format::Adf:
        return number == 2 || number == 4;
      case input_format::Udf:
        return true;
      case input_format::Uxd:
        return line.starts_with("_SAMPLE=");
      case input_format::Aid:
        return number == 6;
      default:
        return number == 1;
    }
  }

  /// What stands behind the points of formats that have an end of them.
  void LookAtRest() {
    if (format_ == input_format::Aid) return LookAtRestOfCard();
    if (trial_.PointLines.empty()) return;
    int number = trial_.PointLines.back() + 1;
    if (format_ == input_format::ItalDat) {
      if (CountNumbers(CountedWords(Line(number))) == 2) number += 2;
    } else if (format_ != input_format::TwoColumns) {
      return;
    }
    for (; number <= LineCount(); ++number) {
      const auto words = CountedWords(Line(number));
      if (!words.empty()) Note(FindingKind::LinesLeftOut, {.Line = number, .Found = Shown(Line(number))});
    }
  }

  [[nodiscard]] std::string_view MarkOf(int number) const { return Columns(Line(number), LineWidth - 1, 1); }

  /// The first line of reflections stands behind the line marked "F".
  [[nodiscard]] int FirstLineOfReflections() const {
    int number = 1;
    for (const std::string_view mark : {"F", "I"}) {
      while (number <= LineCount() && MarkOf(number) != mark) ++number;
    }
    return number;
  }

  /// The reader of cards stops at the first line whose running number doesn't go on.
  void LookAtRestOfCard() {
    const int stopped = trial_.LastLine;
    const int expected = (stopped - FirstLineOfReflections() + 1) % 100;
    const bool taken = LeadingNumber(Columns(Line(stopped), in_front_of_running_number, 2)) == expected;
    for (int number = taken ? stopped + 1 : stopped; number <= LineCount(); ++number) {
      const bool unmarked =
          number == stopped && MarkOf(number).empty() && !CountedWords(Line(number)).empty();
      if (unmarked || MarkOf(number) == "I") {
        Note(FindingKind::LinesLeftOut, {.Line = number, .Found = Shown(Line(number))});
      }
    }
  }

  void LookAtTitle() {
    const std::string& title = trial_.Summary.Title;
    if (title.empty()) Note(FindingKind::BlankTitle, {});
  }

  /// Only a flowing format takes more words of a line than fit.
  void LookAtRemarks() {
    for (const auto& [line, text] : trial_.Told) {
      const bool many_words = text == TooManyWords().Text;
      const bool points = line >= LineOfPoint(1) && LineOfPoint(1) > 0;
      Note(many_words ? FindingKind::ManyWords : FindingKind::Told,
           {.Warning = !many_words || (format_ == input_format::Udf && points), .Line = line, .Found = text});
    }
  }

  const TrialReading& trial_;
  const TextLines& lines_;
  int format_;
  std::map<FindingKind, CheckFinding> found_;
};

}  // namespace

std::vector<CheckFinding> FindingsOf(const TrialReading& trial, const TextLines& lines, int format) {
  return Findings(trial, lines, format).All();
}

}  // namespace koprax
