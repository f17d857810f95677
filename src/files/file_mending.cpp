#include "files/file_mending.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "files/profile_readers.h"
#include "forms/number_text.h"
#include "forms/text_file.h"

namespace koprax {

namespace {

constexpr std::string_view digits = "0123456789";
constexpr std::string_view blanks = " \t;";  ///< what stands between words, whether or not it separates them

bool IsNumeric(std::string_view line) {
  return line.find_first_of(digits) != std::string_view::npos &&
         line.find_first_not_of("0123456789.+-eE, \t;/\r\n") == std::string_view::npos;
}

// ---- Commas ----------------------------------------------------------------------------------------

/// The words of a line as a person sees them.
std::vector<std::string_view> Words(std::string_view line) {
  std::vector<std::string_view> words;
  for (std::size_t at = line.find_first_not_of(blanks); at != std::string_view::npos;) {
    const std::size_t end = std::min(line.find_first_of(blanks, at), line.size());
    words.push_back(line.substr(at, end - at));
    at = line.find_first_not_of(blanks, end);
  }
  return words;
}

/// A word of digits around one comma.
struct CommaNumber {
  std::string_view Whole;
  std::string_view Decimals;
};

std::optional<CommaNumber> AsCommaNumber(std::string_view word) {
  word.remove_prefix(std::min(word.rfind('=') + 1, word.size()));
  if (word.ends_with(",/")) word.remove_suffix(2);
  if (word.starts_with('+') || word.starts_with('-')) word.remove_prefix(1);
  const std::size_t comma = word.find(',');
  if (comma == 0 || comma == std::string_view::npos || comma + 1 == word.size()) return std::nullopt;
  const CommaNumber parts{word.substr(0, comma), word.substr(comma + 1)};
  for (const std::string_view part : {parts.Whole, parts.Decimals}) {
    if (part.find_first_not_of(digits) != std::string_view::npos) return std::nullopt;
  }
  return parts;
}

/// A step or a wavelength, such as 0,02 or 1,5406; two numbers with a comma between them hardly look so.
bool LooksLikeOneNumber(const CommaNumber& number) {
  if (number.Whole.size() != 1) return false;
  if (number.Whole == "0") return number.Decimals.find_first_not_of('0') != std::string_view::npos;
  return number.Decimals.size() >= 3;
}

/// What lines of nothing but a word like "20,104" mean.
enum class LoneWords {
  Few,         ///< most lines of numbers are not like that; each word tells by its looks
  OneNumber,   ///< a number with decimals
  TwoNumbers,  ///< what stands before the commas goes up, as X does
};

LoneWords MeaningOfLoneWords(const TextLines& lines) {
  std::size_t numeric = 0;
  std::size_t alone = 0;
  bool upward = true;
  double before = -1;
  for (const std::string& line : lines) {
    if (!IsNumeric(line)) continue;
    ++numeric;
    const auto words = Words(line);
    const auto number = words.size() == 1 ? AsCommaNumber(words[0]) : std::nullopt;
    if (!number) continue;
    ++alone;
    const double whole = LeadingNumber(number->Whole);
    upward = upward && whole > before;
    before = whole;
  }
  if (2 * alone <= numeric) return LoneWords::Few;
  return upward ? LoneWords::TwoNumbers : LoneWords::OneNumber;
}

/// Which commas of a line stand inside a number.
class CommaFinder {
 public:
  CommaFinder(const TextLines& lines, int format) : format_(format), lone_words_(MeaningOfLoneWords(lines)) {}

  std::string Mended(const std::string& line) const {
    std::string mended = line;
    const auto words = Words(line);
    const bool numeric = IsNumeric(line);
    for (const std::string_view word : words) {
      const auto number = AsCommaNumber(word);
      if (!number || !InsideNumber(line, words.size(), numeric, *number)) continue;
      mended[static_cast<std::size_t>(number->Decimals.data() - line.data()) - 1] = '.';
    }
    return mended;
  }

 private:
  [[nodiscard]] bool InsideNumber(std::string_view line, std::size_t words, bool numeric,
                                  const CommaNumber& number) const {
    const bool philips = format_ == input_format::Udf;  // its commas separate numbers, and end them
    if (philips && numeric) return false;
    if (words == 1 && numeric && lone_words_ != LoneWords::Few) return lone_words_ == LoneWords::OneNumber;
    if (LooksLikeOneNumber(number)) return true;
    if (philips || !numeric || words == 1) return false;
    return format_ != input_format::ItalDat || line.find('.') == std::string_view::npos;
  }

  int format_;
  LoneWords lone_words_;
};

// ---- Long lines ------------------------------------------------------------------------------------

/// Numbers with one blank between them; intensities that flow over the lines on lines of their own.
std::string Shortened(const std::string& line, int format) {
  constexpr std::size_t counted = LineWidth - 1;
  if (line.size() <= counted || !IsNumeric(line)) return line;
  std::string shortened;
  std::size_t line_start = 0;
  std::size_t at = line.find_first_not_of(' ');
  while (at < line.size()) {
    const std::size_t end = std::min(line.find_first_of(" ,", at), line.size());
    const std::size_t next = std::min(line.find_first_not_of(" ,", end), line.size());
    const std::string_view word(line.data() + at, end - at);
    const bool full =
        format == input_format::Udf && shortened.size() + word.size() - line_start > counted - 2;
    if (full) {
      shortened += '\n';
      line_start = shortened.size();
    }
    shortened.append(word).append(next < line.size() ? " " : "");
    at = next;
  }
  return shortened;
}

// ---- Control characters ----------------------------------------------------------------------------

bool IsControl(char c) {
  return (static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\n') || c == '\x7F';
}

std::string WithoutControls(std::string line) {
  std::ranges::replace(line, '\r', '\n');
  std::erase_if(line, IsControl);
  return line;
}

}  // namespace

TextLines LinesOf(std::string_view text) {
  TextLines lines;
  for (LineReader reader(text); !reader.AtEnd();) lines.emplace_back(reader.NextLine());
  return lines;
}

std::string TextOf(const TextLines& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append("\n");
  return text;
}

TextLines Mended(const TextLines& lines, Trouble trouble, int format) {
  TextLines mended = lines;
  const CommaFinder commas(lines, format);
  for (std::string& line : mended) {
    switch (trouble) {
      case Trouble::Tabs:
        std::ranges::replace(line, '\t', ' ');
        break;
      case Trouble::CommasInNumbers:
        line = commas.Mended(line);
        break;
      case Trouble::LongLines:
        line = Shortened(line, format);
        break;
      case Trouble::ControlCharacters:
        line = WithoutControls(std::move(line));
        break;
    }
  }
  // What ends a file, such as a Ctrl-Z, leaves no line behind.
  while (!mended.empty() && mended.back().empty() && !lines[mended.size() - 1].empty()) mended.pop_back();
  return mended;
}

}  // namespace koprax
