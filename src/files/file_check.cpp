#include "files/file_check.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <utility>
#include <variant>

#include "files/file_mending.h"
#include "forms/fixed_text.h"

namespace koprax {

namespace {

FindingKind KindOf(Trouble trouble) {
  switch (trouble) {
    case Trouble::Tabs:
      return FindingKind::Tabs;
    case Trouble::CommasInNumbers:
      return FindingKind::CommasInNumbers;
    case Trouble::LongLines:
      return FindingKind::LongLines;
    default:
      return FindingKind::ControlCharacters;
  }
}

/// One format, and the file as it is.
struct Subject {
  std::string FileName;
  const TextFile& File;
  const TextLines& Lines;
  int Format = 0;
};

TrialReading ReadLines(const Subject& subject, const TextLines& lines) {
  return ReadOnTrial(subject.FileName, TextFile(TextOf(lines), subject.File.Encoding()), subject.Format);
}

int CountWarnings(const std::vector<CheckFinding>& findings) {
  return static_cast<int>(std::ranges::count(findings, true, &CheckFinding::Warning));
}

// ---- What the file would be without a trouble ------------------------------------------------------

/// Numbers that a reader has not written are the same, too.
bool Same(float a, float b) { return a == b || (a != a && b != b); }

/// The first point that differs, or the first that only one of them has; 0 if there is none.
int FirstDifference(const TrialReading& a, const TrialReading& b) {
  const std::size_t both = std::min(a.X.size(), b.X.size());
  for (std::size_t i = 1; i < both; ++i) {
    if (!Same(a.X[i], b.X[i]) || !Same(a.Y[i], b.Y[i])) return static_cast<int>(i);
  }
  return a.X.size() == b.X.size() ? 0 : static_cast<int>(both);
}

/// Of two that are refused, `b` is another one where its reader comes further into the points.
bool SameProfile(const TrialReading& a, const TrialReading& b) {
  if (a.Summary.Read != b.Summary.Read) return false;
  if (!a.Summary.Read) return b.PointLines.empty() || b.LastLine <= a.LastLine;
  return (FirstDifference(a, b) == 0 && a.Summary.Step == b.Summary.Step &&
          a.Summary.Wavelength == b.Summary.Wavelength);
}

std::optional<CheckedPoint> PointOf(const TrialReading& trial, int number) {
  if (number < 1 || number > trial.Summary.Points) return std::nullopt;
  return trial.Point(number);
}

/// Where one of the changed lines stands: the one that the first changed point comes from, or that the reader
/// stopped at, else the first.
std::size_t PlaceOfTrouble(const TrialReading& trial, int point, const std::vector<std::size_t>& changed) {
  int line = trial.LastLine;
  if (trial.Summary.Read) {
    const auto i = static_cast<std::size_t>(std::max(point, 1)) - 1;
    line = point > 0 && i < trial.PointLines.size() ? trial.PointLines[i] : 0;
  }
  const bool there = line > 0 && std::ranges::count(changed, static_cast<std::size_t>(line) - 1) > 0;
  return there ? static_cast<std::size_t>(line) - 1 : changed.front();
}

std::vector<std::size_t> ChangedLines(const TextLines& lines, const TextLines& mended) {
  std::vector<std::size_t> changed;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i >= mended.size() || lines[i] != mended[i]) changed.push_back(i);
  }
  return changed;
}

/// The text that makes the trouble, in a line that has been mended.
void PointAt(Trouble trouble, const std::string& line, const std::string& mended, CheckFinding& finding) {
  std::size_t at = LineWidth - 1;
  if (trouble != Trouble::LongLines) {
    at = static_cast<std::size_t>(std::ranges::mismatch(line, mended).in1 - line.begin());
  }
  std::size_t start = at;
  if (trouble == Trouble::Tabs || trouble == Trouble::CommasInNumbers) {
    start = line.find_last_of(" ;", at) + 1;  // the word with it
  }
  const std::size_t end = trouble == Trouble::LongLines ? line.size() : line.find_first_of(" ;", at);
  finding.Column = static_cast<int>(CharacterCount(line.substr(0, at))) + 1;
  finding.Found = trouble == Trouble::ControlCharacters
                      ? line.substr(at, 1)
                      : std::string(FirstCharacters(line.substr(start, end - start), 40));
}

/// The lines without any trouble, or with a single one.
TextLines MendedLines(const Subject& subject, std::optional<Trouble> but = std::nullopt) {
  TextLines mended = subject.Lines;
  for (const Trouble trouble : AllTroubles) {
    if (trouble != but) mended = LinesOf(TextOf(Mended(mended, trouble, subject.Format)));
  }
  return mended;
}

/// A trouble that another one hides: the profile changes only where both are mended.
std::optional<CheckFinding> FindHidden(const Subject& subject, const TrialReading& as_read,
                                       const TextLines& mended, Trouble trouble) {
  const TextLines alone = MendedLines(subject, trouble);
  if (alone == subject.Lines) return std::nullopt;
  const TrialReading without = ReadLines(subject, MendedLines(subject));
  if (SameProfile(ReadLines(subject, alone), without)) return std::nullopt;
  const auto changed = ChangedLines(subject.Lines, mended);
  const std::size_t place = PlaceOfTrouble(as_read, 0, changed);
  CheckFinding finding{.Kind = KindOf(trouble),
                       .Line = static_cast<int>(place) + 1,
                       .Lines = static_cast<int>(changed.size()),
                       .Without = without.Summary,
                       .Together = true};
  PointAt(trouble, subject.Lines[place], place < mended.size() ? mended[place] : "", finding);
  return finding;
}

std::optional<CheckFinding> FindTrouble(const Subject& subject, const TrialReading& as_read,
                                        Trouble trouble) {
  const TextLines mended = Mended(subject.Lines, trouble, subject.Format);
  const auto changed = ChangedLines(subject.Lines, mended);
  if (changed.empty()) return std::nullopt;
  const TrialReading without = ReadLines(subject, mended);
  const bool in_title =
      trouble == Trouble::ControlCharacters && as_read.Summary.Title != without.Summary.Title;
  const bool same = SameProfile(as_read, without);
  if (same && !in_title) return FindHidden(subject, as_read, mended, trouble);

  const int point = FirstDifference(as_read, without);
  const std::size_t place = PlaceOfTrouble(as_read, point, changed);
  CheckFinding finding{.Kind = KindOf(trouble),
                       .Warning = !same,
                       .Line = static_cast<int>(place) + 1,
                       .Lines = static_cast<int>(changed.size()),
                       .Point = PointOf(as_read, point),
                       .Without = without.Summary,
                       .PointWithout = PointOf(without, point)};
  PointAt(trouble, subject.Lines[place], place < mended.size() ? mended[place] : "", finding);
  return finding;
}

// ---- All of a format -------------------------------------------------------------------------------

/// A title that came as Latin-1 and needs it.
std::optional<CheckFinding> FindLatin1(const Subject& subject, const TrialReading& trial) {
  const auto foreign = [](char c) { return static_cast<unsigned char>(c) > 127; };
  const bool in_title = std::ranges::any_of(trial.Summary.Title, foreign);
  if (subject.File.Encoding() != TextEncoding::Latin1 || !in_title) return std::nullopt;
  const auto line = std::ranges::find_if(
      subject.Lines, [&](const std::string& each) { return std::ranges::any_of(each, foreign); });
  const auto at = static_cast<std::size_t>(std::ranges::find_if(*line, foreign) - line->begin());
  return CheckFinding{.Kind = FindingKind::Latin1,
                      .Warning = false,
                      .Line = static_cast<int>(line - subject.Lines.begin()) + 1,
                      .Column = static_cast<int>(CharacterCount(line->substr(0, at))) + 1,
                      .Found = std::string(FirstCharacters(line->substr(at), 1))};
}

/// What is odd in the file as it is, as far as it isn't a mere consequence of the troubles.
std::vector<CheckFinding> OwnFindings(const Subject& subject, const TrialReading& as_read,
                                      const std::vector<CheckFinding>* when_mended) {
  std::vector<CheckFinding> own = FindingsOf(as_read, subject.Lines, subject.Format);
  if (when_mended == nullptr) return own;
  std::erase_if(own, [&](const CheckFinding& each) {
    return std::ranges::count(*when_mended, each.Kind, &CheckFinding::Kind) == 0;
  });
  return own;
}

/// The file without its troubles, as a format reads it. A reader that stopped behind points is asked once
/// more for what stands in front of that line.
struct MendedReading {
  std::vector<CheckFinding> Findings{};
  int Points = 0;
  int PointLines = 0;  ///< 0 for cards
  int LinesLeft = 0;
  bool Whole = true;
};

/// How many different ones there are; they go up.
int CountLines(const std::vector<int>& point_lines) {
  int count = 0;
  int before = 0;
  for (const int line : point_lines) {
    count += line != before ? 1 : 0;
    before = line;
  }
  return count;
}

std::optional<MendedReading> ReadMended(const Subject& subject) {
  TextLines mended = MendedLines(subject);
  TrialReading trial = ReadLines(subject, mended);
  const bool whole = trial.Summary.Read;
  const std::size_t all = mended.size();
  if (!whole) {
    if (trial.PointLines.empty()) return std::nullopt;
    mended.resize(std::min(all, static_cast<std::size_t>(std::max(trial.LastLine - 1, 1))));
    trial = ReadLines(subject, mended);
    if (!trial.Summary.Read || trial.Summary.Points == 0) return std::nullopt;
  }
  return MendedReading{.Findings = FindingsOf(trial, mended, subject.Format),
                       .Points = trial.Summary.Points,
                       .PointLines = CountLines(trial.PointLines),
                       .LinesLeft = static_cast<int>(all - mended.size()),
                       .Whole = whole};
}

/// Whether most lines of points aren't lines of the format: such a file is another one.
bool IsForeign(const MendedReading& reading) {
  int odd = 0;
  for (const CheckFinding& each : reading.Findings) {
    const bool of_a_line = each.Kind == FindingKind::BlankLines || each.Kind == FindingKind::Texts ||
                           each.Kind == FindingKind::OddNumbers || each.Kind == FindingKind::FewNumbers;
    odd += of_a_line ? each.Lines : 0;
  }
  return reading.PointLines > 0 && 2 * odd > reading.PointLines;
}

/// How many lines and points speak against a format. A reader that finds no point misfits every line. An X
/// that goes down all the way is a scan that went down; one that goes up and down comes from other numbers.
int MisfitOf(const MendedReading& reading, int lines) {
  int misfit = reading.LinesLeft;
  for (const CheckFinding& each : reading.Findings) {
    if (!each.Warning || each.Kind == FindingKind::AnotherStep) continue;
    if (each.Kind == FindingKind::NoPoints) {
      misfit += lines;
    } else if (each.Kind == FindingKind::DownwardX) {
      misfit += std::min(each.Lines, reading.Points - each.Lines);
    } else {
      misfit += each.Lines;
    }
  }
  return misfit;
}

FormatCheck CheckFormat(const Subject& subject) {
  FormatCheck check;
  const TrialReading as_read = ReadOnTrial(subject.FileName, subject.File, subject.Format);
  check.Summary = as_read.Summary;
  const auto refused_at = static_cast<std::size_t>(check.Summary.RefusalLine);
  check.Summary.RefusalLineBlank =
      refused_at > 0 && refused_at <= subject.Lines.size() &&
      subject.Lines[refused_at - 1].find_first_not_of(" \t") == std::string::npos;
  for (const Trouble trouble : AllTroubles) {
    if (auto finding = FindTrouble(subject, as_read, trouble)) check.Findings.push_back(std::move(*finding));
  }
  const auto mended = ReadMended(subject);
  if (mended && !IsForeign(*mended)) check.Misfit = MisfitOf(*mended, static_cast<int>(subject.Lines.size()));
  const auto* when_mended = mended && mended->Whole ? &mended->Findings : nullptr;
  std::ranges::move(OwnFindings(subject, as_read, when_mended), std::back_inserter(check.Findings));
  if (auto latin1 = FindLatin1(subject, as_read)) check.Findings.push_back(std::move(*latin1));
  return check;
}

/// Those that would have the fewest warnings without the troubles, and of these those that have the fewest
/// now.
std::vector<int> BestOf(const FileCheck& check) {
  using Rank = std::tuple<int, bool, int>;
  std::vector<std::pair<Rank, int>> candidates;
  for (int format = 1; format <= NumFormats; ++format) {
    const FormatCheck& each = check.Formats[static_cast<std::size_t>(format)];
    if (each.Misfit < 0) continue;
    candidates.push_back({{each.Misfit, !each.Summary.Read, each.Warnings()}, format});
  }
  std::vector<int> best;
  if (candidates.empty()) return best;
  const Rank least = std::ranges::min(candidates).first;
  for (const auto& [rank, format] : candidates) {
    if (rank == least) best.push_back(format);
  }
  return best;
}

}  // namespace

int FormatCheck::Warnings() const { return CountWarnings(Findings); }

bool FileCheck::Good() const {
  return !Unreadable && std::ranges::any_of(Formats, [](const FormatCheck& each) {
    return each.Summary.Read && each.Warnings() == 0;
  });
}

FileCheck CheckFile(const std::string& file_name) {
  FileCheck check{.FileName = file_name};
  const auto opened = OpenRecords(file_name);
  if (const auto* failure = std::get_if<ReadOutcome>(&opened)) {
    check.Unreadable = failure->Problem->Text;
    return check;
  }
  const auto& file = std::get<TextFile>(opened);
  const TextLines lines = LinesOf(file.Contents());
  check.Encoding = file.Encoding();
  check.Lines = static_cast<int>(lines.size());
  for (int format = 1; format <= NumFormats; ++format) {
    check.Formats[static_cast<std::size_t>(format)] = CheckFormat({file_name, file, lines, format});
  }
  check.Best = BestOf(check);
  return check;
}

}  // namespace koprax
