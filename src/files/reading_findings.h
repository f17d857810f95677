// What is odd in what a reader has made of a file: points that come from no number, X that goes back, lines
// that are left out. It looks at one reading and at the lines that were read.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "files/file_mending.h"
#include "files/trial_reading.h"

namespace koprax {

enum class FindingKind {
  // Told by a second reading of the file without them.
  ControlCharacters,
  Tabs,
  CommasInNumbers,
  LongLines,
  // Told by the points and the lines that they come from.
  BlankLines,   ///< read as points
  Texts,        ///< words that are no numbers, where numbers are read
  OddNumbers,   ///< words that count as numbers and are more than one: 1.2.3, 12-5
  FewNumbers,   ///< less than the format has on a line; 0 stands for the rest
  MoreNumbers,  ///< more than the format has on a line, or behind the columns that count; they are left out
  DownwardX,
  RepeatedX,
  XBeyondDegrees,  ///< a 2-theta of more than 180 degrees
  MissingPoints,   ///< intensities that the file ends before; the buffer keeps what it held
  AnotherEnd,      ///< the head tells another last X than the points have
  NoPoints,
  NoRange,          ///< X of all points within what no plot can show
  FirstPointApart,  ///< the first step is far larger than the next ones
  AnotherStep,      ///< the head tells another step than the points have
  // Told by the other lines.
  NumbersAsTitle,   ///< a line of numbers is taken for the title
  HeadLineLeftOut,  ///< a line in front of the points tells nothing
  LinesLeftOut,     ///< the reader stops before the end of the file
  CutLine,          ///< a line of the head is kept as far as column 80
  BlankTitle,       ///< the buffer counts as empty
  // Told by the reader.
  ManyWords,
  Told,    ///< anything else that it tells on its way
  Latin1,  ///< the title is no plain ASCII, and the file no UTF-8
};

struct CheckFinding {
  FindingKind Kind{};
  bool Warning = true;  ///< the profile isn't what it looks like in the file; else it is just worth knowing
  int Line = 0;         ///< the first one with it, from 1; 0 is the whole file
  int Column = 0;       ///< from 1, in characters; 0 is the whole line
  int Lines = 1;        ///< how many lines or points have it
  std::string Found{};  ///< what stands there, or what the reader told
  std::optional<CheckedPoint> Point{};         ///< the first point that it makes or changes
  std::optional<ReadSummary> Without{};        ///< what the file would be without it
  std::optional<CheckedPoint> PointWithout{};  ///< that point without it
  bool Together = false;                       ///< Without is without the other troubles, which hide this one
};

/// What is odd in the reading of these lines by the reader of a format, in the order of the kinds.
[[nodiscard]] std::vector<CheckFinding> FindingsOf(const TrialReading& trial, const TextLines& lines,
                                                   int format);

}  // namespace koprax
