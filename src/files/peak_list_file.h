// Peak lists as lines of a file: the list of a buffer as lines, and the peaks that lines hold taken into a
// buffer. Asking for the file and showing it first are left to others.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "files/read_outcome.h"
#include "workspace/workspace.h"

namespace koprax {

/// The list sorted upward by 2-theta, or by channel for a buffer in channels; of equal ones the earlier entry
/// comes first. A line holds position, intensity and d, in channels also 2-theta, rounded to 3, 1, 4 and 3
/// decimals. The buffer keeps its own order.
[[nodiscard]] std::vector<std::string> SortedPeakLines(const ProfileBuffer& buffer);
/// The list in its own order, with the texts as they are held, in the same columns.
[[nodiscard]] std::vector<std::string> HeldPeakLines(const ProfileBuffer& buffer);

/// The first lines of a text, at most `most`, each in a field of 80 characters.
[[nodiscard]] std::vector<std::string> FirstLines(std::string_view contents, std::size_t most);

/// The first four numbers of a line, 0 where it holds fewer.
struct ListedPeak {
  float Position = 0;  ///< 2-theta in degrees, or a channel
  float Intensity = 0;
  float Spacing = 0;  ///< d in angstrom
  float Theta2 = 0;   ///< of a list in channels
};

enum class PeakListEnd {
  LastLine,
  ZeroPosition,  ///< the first line without a position, or with the position 0, ends the list
};

struct PeakLinesRead {
  std::vector<ListedPeak> Peaks;
  /// The line, from 1, with a number beyond 32 bits, where the reading stopped; 0 if there is none.
  int BadLine = 0;
};

/// Reads the peaks of a list, one a line. More than MaxWords words in a line are told, and the first ones
/// kept. `words` are the tables as the last line leaves them.
[[nodiscard]] PeakLinesRead ReadPeakLines(const std::vector<std::string>& lines, PeakListEnd end,
                                          TokenisedWords& words, const TellUser& tell);

/// The peaks, at most MaxPeaks, become the list of the buffer; positions count as channels.
void TakePeaksForCalibration(ProfileBuffer& buffer, const std::vector<ListedPeak>& peaks);
/// The same for the cell refinement: without a position above 180 the positions are 2-theta. Sets CellFormat.
void TakePeaksForCell(ProfileBuffer& buffer, const std::vector<ListedPeak>& peaks);

}  // namespace koprax
