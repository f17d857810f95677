#include "app/file_report.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <optional>
#include <utility>

#include "app/script_names.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

constexpr std::size_t line_width = 100;

constexpr std::array<std::string_view, NumFormats + 1> format_names{"",
                                                                    "ITAL STRUCTURES",
                                                                    "One column",
                                                                    "Two columns",
                                                                    "CPS-120 Detector",
                                                                    "PHILIPS",
                                                                    "SIEMENS/BRUKER",
                                                                    "Powder Diffraction File"};

// ---- Words -----------------------------------------------------------------------------------------

std::string Number(float value) { return std::isnan(value) ? "nothing" : GeneralText(value); }

/// A text with what can't be seen written out.
std::string Visible(std::string_view text) {
  std::string visible;
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if (c == '\t') {
      visible += "\\t";
    } else if (code < ' ' || code == 0x7F) {
      std::array<char, 8> written{};
      std::snprintf(written.data(), written.size(), "\\x%02X", code);
      visible += written.data();
    } else {
      visible += c;
    }
  }
  return visible;
}

std::string Quoted(std::string_view text) { return '"' + Visible(text) + '"'; }

std::string QuotedName(int format) { return '"' + std::string(FormatName(format)) + '"'; }

std::string Counted(int count, const std::string& one) {
  return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

std::string Values(const CheckedPoint& point) { return Number(point.X) + ", " + Number(point.Y); }

std::string ReadAs(const std::optional<CheckedPoint>& point) {
  if (!point) return "";
  return "; point " + std::to_string(point->Number) + " is read as " + Values(*point);
}

std::string StepText(const ReadSummary& summary) {
  return summary.Step == 0 ? "no step" : "step " + Number(summary.Step);
}

std::string WavelengthText(const ReadSummary& summary) {
  if (!summary.Wavelength) return "the wavelength of before";
  return *summary.Wavelength == 0 ? "no wavelength" : "wavelength " + Number(*summary.Wavelength);
}

std::string SummaryText(const ReadSummary& summary) {
  std::string text = Counted(summary.Points, "point");
  if (summary.Points > 0) text += ", X from " + Number(summary.First.X) + " to " + Number(summary.Last.X);
  return text + ", " + StepText(summary) + ", " + WavelengthText(summary) + ", title " +
         Quoted(summary.Title);
}

// ---- What a second reading told --------------------------------------------------------------------

/// Why a file is refused, behind a verb.
std::string RefusalText(const ReadSummary& summary) {
  std::string place;
  if (summary.RefusalLine > 0) place += " at line " + std::to_string(summary.RefusalLine);
  if (summary.RefusalLineBlank) place += ", which is blank";
  return place + ": " + Visible(summary.Refusal);
}

std::string WithoutText(const CheckFinding& finding, const std::string& alone) {
  const ReadSummary& mended = *finding.Without;
  const std::string without = finding.Together ? "once all such troubles are mended" : alone;
  if (!mended.Read) return "; " + without + " the file is refused" + RefusalText(mended);
  if (finding.Point && finding.PointWithout) {
    return ReadAs(finding.Point) + ", " + without + " as " + Values(*finding.PointWithout);
  }
  return "; " + without + " the file has " + SummaryText(mended);
}

std::optional<std::string> TroubleText(const CheckFinding& finding) {
  const std::string found = Quoted(finding.Found);
  switch (finding.Kind) {
    case FindingKind::ControlCharacters:
      return "the control character " + found + " counts" + WithoutText(finding, "without it");
    case FindingKind::Tabs:
      return "the tab in " + found + " separates nothing" + WithoutText(finding, "with a blank");
    case FindingKind::CommasInNumbers:
      return "the comma in " + found + " separates two numbers" + WithoutText(finding, "with a period");
    case FindingKind::LongLines:
      return found + " stands behind column 79 and is left out" + WithoutText(finding, "on a shorter line");
    default:
      return std::nullopt;
  }
}

// ---- What the points and lines told ----------------------------------------------------------------

std::string MissingText(const CheckFinding& finding) {
  return "the file ends before point " + std::to_string(finding.Point->Number) + "; " +
         Counted(finding.Lines, "point") + " would be what the buffer held before";
}

std::optional<std::string> PointText(const CheckFinding& finding) {
  const std::string found = Quoted(finding.Found);
  switch (finding.Kind) {
    case FindingKind::BlankLines:
      return "a blank line counts" + ReadAs(finding.Point);
    case FindingKind::Texts:
      return found + " is no number and is left out" + ReadAs(finding.Point);
    case FindingKind::OddNumbers:
      return found + " counts as a number" + (finding.Point ? ReadAs(finding.Point) : " of points, rounded");
    case FindingKind::FewNumbers:
      return found + " has fewer numbers than a line of this format" + ReadAs(finding.Point);
    case FindingKind::MoreNumbers:
      return found + " is a number too many and is left out" + ReadAs(finding.Point);
    case FindingKind::DownwardX:
      return "X goes back" + ReadAs(finding.Point);
    case FindingKind::RepeatedX:
      return "X is that of the point before" + ReadAs(finding.Point);
    case FindingKind::XBeyondDegrees:
      return "X lies beyond 180 degrees" + ReadAs(finding.Point);
    case FindingKind::MissingPoints:
      return MissingText(finding);
    case FindingKind::AnotherEnd:
      return "the head tells " + Number(finding.Point->X) + " as the last X, and the points end elsewhere";
    case FindingKind::NoPoints:
      return "there is no point";
    case FindingKind::NoRange:
      return "X of all points is the same within 0.00001, which makes no plot";
    case FindingKind::FirstPointApart:
      return "the first point lies far from the next ones, as a line of the head would" +
             ReadAs(finding.Point);
    case FindingKind::AnotherStep:
      return "the head tells another step than the points have, which lie " + Number(finding.Point->X) +
             " apart on average";
    default:
      return std::nullopt;
  }
}

std::string LineText(const CheckFinding& finding) {
  const std::string found = Quoted(finding.Found);
  switch (finding.Kind) {
    case FindingKind::NumbersAsTitle:
      return "the numbers " + found + " are taken for the title";
    case FindingKind::HeadLineLeftOut:
      return found + " is neither a wavelength nor a point and is left out";
    case FindingKind::LinesLeftOut:
      return "the points have ended, and " + found + " is left out";
    case FindingKind::CutLine:
      return found + " stands behind column 80 and is cut off";
    case FindingKind::BlankTitle:
      return "the title is blank, so the buffer counts as empty";
    case FindingKind::Latin1:
      return found + " is read as Latin-1, since the file is no UTF-8";
    default:
      return "the user is told " + found;
  }
}

/// Findings that count points, not lines.
bool CountsPoints(FindingKind kind) {
  return kind == FindingKind::DownwardX || kind == FindingKind::RepeatedX ||
         kind == FindingKind::XBeyondDegrees;
}

std::string HowOften(const CheckFinding& finding) {
  if (finding.Lines == 1 || finding.Kind == FindingKind::MissingPoints) return "";
  return " (" + Counted(finding.Lines, CountsPoints(finding.Kind) ? "point" : "line") + ")";
}

// ---- The report ------------------------------------------------------------------------------------

/// Breaks a line between words; what follows is indented further.
std::string Wrapped(const std::string& text, std::size_t indent) {
  std::string wrapped;
  std::string line(indent, ' ');
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    const bool full = line.size() > indent + 2 && line.size() + (end - at) > line_width;
    if (full) {
      wrapped += line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
      line.assign(indent + 2, ' ');
    }
    line.append(text, at, end - at + 1);
    at = end + 1;
  }
  return wrapped + line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
}

std::string Place(const CheckFinding& finding) {
  if (finding.Line == 0) return "";
  std::string place = "line " + std::to_string(finding.Line);
  if (finding.Column > 0) place += ", column " + std::to_string(finding.Column);
  return place + ": ";
}

std::string FormatReport(const FormatCheck& check, int format) {
  const ReadSummary& summary = check.Summary;
  std::string outcome = QuotedName(format);
  if (summary.Read) {
    outcome += " reads " + SummaryText(summary);
  } else {
    outcome += " refuses" + RefusalText(summary);
  }
  std::string report = Wrapped(outcome, 2);
  for (const CheckFinding& finding : check.Findings) {
    const std::string text = Place(finding) + FindingText(finding) + HowOften(finding);
    report += Wrapped((finding.Warning ? "warning: " : "note: ") + text, 6);
  }
  return report;
}

std::string BestText(const FileCheck& check) {
  if (check.Best.empty()) return "Fits: none of the formats.";
  std::vector<std::string> names;
  for (const int format : check.Best) names.push_back(QuotedName(format));
  const FormatCheck& best = check.Formats[static_cast<std::size_t>(check.Best.front())];
  if (best.Summary.Read && best.Warnings() == 0) return "Fits: " + CommaList(names) + ".";
  return (best.Misfit == 0 ? "Fits once it is mended: " : "Fits best: ") + CommaList(names) + ".";
}

// ---- JSON ------------------------------------------------------------------------------------------

std::string_view KindName(FindingKind kind) {
  constexpr std::array<std::string_view, 26> names{"control characters",
                                                   "tabs",
                                                   "commas in numbers",
                                                   "long lines",
                                                   "blank lines",
                                                   "texts",
                                                   "odd numbers",
                                                   "few numbers",
                                                   "more numbers",
                                                   "downward X",
                                                   "repeated X",
                                                   "X beyond 180",
                                                   "missing points",
                                                   "another end",
                                                   "no points",
                                                   "no range",
                                                   "first point apart",
                                                   "another step",
                                                   "numbers as title",
                                                   "head line left out",
                                                   "lines left out",
                                                   "cut line",
                                                   "blank title",
                                                   "many words",
                                                   "told",
                                                   "Latin-1"};
  return names[static_cast<std::size_t>(kind)];
}

Json JsonOfPoint(const CheckedPoint& point) {
  return {{"number", point.Number}, {"x", JsonNumber(point.X)}, {"y", JsonNumber(point.Y)}};
}

Json JsonOfSummary(const ReadSummary& summary) {
  Json object{{"read", summary.Read}};
  if (!summary.Read) {
    object["refusal"] = summary.Refusal;
    if (summary.RefusalLine > 0) object["line"] = summary.RefusalLine;
    return object;
  }
  object["points"] = summary.Points;
  if (summary.Points > 0) {
    object["first"] = JsonOfPoint(summary.First);
    object["last"] = JsonOfPoint(summary.Last);
  }
  object["step"] = JsonNumber(summary.Step);
  object["wavelength"] = summary.Wavelength ? JsonNumber(*summary.Wavelength) : Json();
  object["title"] = summary.Title;
  return object;
}

Json JsonOfFinding(const CheckFinding& finding) {
  Json object{{"kind", KindName(finding.Kind)}, {"severity", finding.Warning ? "warning" : "note"}};
  if (finding.Line > 0) object["line"] = finding.Line;
  if (finding.Column > 0) object["column"] = finding.Column;
  object["count"] = finding.Lines;
  if (!finding.Found.empty()) object["found"] = finding.Found;
  if (finding.Point) object["point"] = JsonOfPoint(*finding.Point);
  if (finding.PointWithout) object["point without it"] = JsonOfPoint(*finding.PointWithout);
  if (finding.Without) object["without it"] = JsonOfSummary(*finding.Without);
  object["text"] = FindingText(finding);
  return object;
}

}  // namespace

std::string_view FormatName(int format) { return format_names[static_cast<std::size_t>(format)]; }

std::string FindingText(const CheckFinding& finding) {
  if (auto text = TroubleText(finding)) return *text;
  if (auto text = PointText(finding)) return *text;
  return LineText(finding);
}

std::string FileReport(const FileCheck& check) {
  std::string report = Visible(check.FileName) + '\n';
  if (check.Unreadable) return report + Wrapped(Visible(*check.Unreadable), 2);
  const bool latin1 = check.Encoding == TextEncoding::Latin1;
  report += Wrapped(Counted(check.Lines, "line") + (latin1 ? ", in Latin-1" : ", in UTF-8"), 2);
  for (int format = 1; format <= NumFormats; ++format) {
    report += FormatReport(check.Formats[static_cast<std::size_t>(format)], format);
  }
  return report + Wrapped(BestText(check), 2);
}

Json JsonOfFileCheck(const FileCheck& check) {
  Json object{{"file", check.FileName}, {"good", check.Good()}};
  if (check.Unreadable) {
    object["error"] = *check.Unreadable;
    return object;
  }
  object["encoding"] = check.Encoding == TextEncoding::Latin1 ? "Latin-1" : "UTF-8";
  object["lines"] = check.Lines;
  for (int format = 1; format <= NumFormats; ++format) {
    const FormatCheck& each = check.Formats[static_cast<std::size_t>(format)];
    Json entry{{"format", FormatName(format)}};
    entry.update(JsonOfSummary(each.Summary));
    entry["findings"] = Json::array();
    for (const CheckFinding& finding : each.Findings) entry["findings"].push_back(JsonOfFinding(finding));
    object["formats"].push_back(std::move(entry));
  }
  object["best"] = Json::array();
  for (const int format : check.Best) object["best"].push_back(FormatName(format));
  return object;
}

}  // namespace koprax
