// The formats of instruments, which give back the header that was read with the profile.
#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <string_view>
#include <utility>

#include "files/profile_title.h"
#include "files/profile_writers.h"
#include "files/profile_writing.h"
#include "files/tokeniser.h"
#include "forms/fixed_text.h"

namespace koprax {

namespace {

constexpr std::size_t NumbersPerLine = 8;

// ---- CPS-120 ---------------------------------------------------------------------------------------

constexpr std::size_t Channels = 4096;
constexpr std::size_t ChannelFieldWidth = 9;

/// Adds eight intensities a line, in fields without anything between them. Returns how many of them don't
/// read back: they have lost their end, or fill their field and run into the number before.
int AddChannels(const ProfileBuffer& buffer, Lines& lines) {
  int too_long = 0;
  for (std::size_t i = 1; i <= Channels; ++i) {
    const bool first_on_line = i % NumbersPerLine == 1;
    if (first_on_line) lines.emplace_back();
    const std::string text = Rounded(buffer.PermY[i], 1);
    lines.back() += FixedField(RightAlignText(text, ChannelFieldWidth), ChannelFieldWidth);
    if (text.size() > ChannelFieldWidth || (text.size() == ChannelFieldWidth && !first_on_line)) ++too_long;
  }
  return too_long;
}

// ---- PHILIPS ---------------------------------------------------------------------------------------

constexpr std::size_t CountFieldWidth = 8;

/// The whole number next to an intensity, with all its digits.
std::string WholeCount(float intensity) {
  std::array<char, 64> text{};
  const double whole = RoundHalfEven(intensity) + 0.0;  // no "-0"
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), whole, std::chars_format::fixed, 0).ptr;
  return RightAlignText({text.data(), end}, CountFieldWidth);
}

/// Adds eight counts a line with commas between them, and ",/" behind the last one. With counts too long for
/// their fields a line ends earlier, where a reader would not see the next one.
void AddCounts(const ProfileBuffer& buffer, Lines& lines) {
  constexpr std::size_t columns_read = LineWidth - 1;
  std::string line;
  std::size_t on_line = 0;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(buffer.WorkNpts); ++i) {
    const std::string count = WholeCount(buffer.PermY[i]);
    if (on_line == NumbersPerLine || (on_line > 0 && line.size() + 1 + count.size() > columns_read)) {
      lines.push_back(std::exchange(line, {}));
      on_line = 0;
    }
    line += on_line > 0 ? "," + count : count;
    ++on_line;
  }
  if (on_line > 0) lines.push_back(line + ",/");
}

std::string HeaderValue(float value) {
  constexpr int decimals = 4;
  constexpr std::size_t width = 9;
  return "," + AlignDecimal(Rounded(value, decimals), width, decimals);
}

/// Adds the header up to and including its last line, with the values that the profile has now; false if
/// there is no last line.
bool AddUdfHeader(const ProfileBuffer& buffer, Lines& lines) {
  LineWords words;
  for (std::size_t i = 1; i < buffer.UdfHeader.size(); ++i) {
    const std::string& line = buffer.UdfHeader[i];
    SplitLine(line, words);
    const std::string key(words.Text(1));
    if (key == "DataAngleRange") {
      lines.push_back(key + HeaderValue(buffer.PermXMin) + HeaderValue(buffer.PermXMax) + ",/");
    } else if (key == "ScanStepSize") {
      lines.push_back(key + HeaderValue(buffer.XStep) + ",/");
    } else {
      lines.push_back(line);
    }
    if (key == "RawScan") return true;
  }
  return false;
}

// ---- SIEMENS/BRUKER --------------------------------------------------------------------------------

using UxdHeaderTable = decltype(ProfileBuffer::UxdHeader);

/// Adds the header up to and including its last line, and puts the values that the profile has now into it;
/// false if there is no last line.
bool AddUxdHeader(const ProfileBuffer& buffer, UxdHeaderTable& header, Lines& lines) {
  for (std::size_t i = 1; i <= static_cast<std::size_t>(buffer.UxdHeaderLines); ++i) {
    std::string& line = header[i];
    const bool at_end = line.starts_with("_2THETAC");
    if (line.starts_with("_SAMPLE=")) {
      line = buffer.Title;
    } else if (line.starts_with("_STEPSIZ")) {
      line = "_STEPSIZE=" + GeneralText(buffer.XStep);
    } else if (line.starts_with("_RANGE_W")) {
      line = "_RANGE_WL=" + GeneralText(buffer.Wavelength);
    } else if (line.starts_with('_') && !at_end) {
      lines.push_back(FixedField(line, LineWidth));
      continue;
    }
    lines.push_back(line);
    if (at_end) return true;
  }
  return false;
}

/// The title as a reader finds it.
std::string TitleOf(const UxdHeaderTable& header, int count) {
  std::string title = FixedField(NoTitle, TitleWidth);
  for (std::size_t i = 1; i <= static_cast<std::size_t>(count); ++i) {
    if (header[i].starts_with("_SAMPLE=")) title = FixedField(header[i], TitleWidth);
  }
  return title;
}

}  // namespace

std::optional<Message> SaveAdf(Workspace& workspace) {
  const ProfileBuffer& buffer = workspace.Current();
  Lines lines{std::to_string(Channels), buffer.CpsLine2, std::to_string(buffer.CpsRecNo), buffer.CpsLine4};
  lines.resize(9);
  const int too_long = AddChannels(buffer, lines);
  if (auto problem = WriteProfile(workspace, buffer, lines)) return problem;
  if (too_long == 0) return std::nullopt;
  return NotReadBack(workspace, std::to_string(too_long) +
                                    " of its intensities don't fit into fields of 9 characters.\r\n"
                                    "Save the profile in two columns to keep them.");
}

std::optional<Message> SaveUdf(Workspace& workspace) {
  const ProfileBuffer& buffer = workspace.Current();
  Lines lines;
  if (!AddUdfHeader(buffer, lines)) {
    return NotWritten(workspace, "the header of the profile has no line \"RawScan\"");
  }
  if (buffer.PermNpts > 0) AddCounts(buffer, lines);
  if (auto problem = WriteProfile(workspace, buffer, lines)) return problem;
  if (buffer.PermNpts == 0 || buffer.WorkNpts == buffer.PermNpts) return std::nullopt;
  return NotReadBack(workspace, "it has " + std::to_string(buffer.WorkNpts) + " of the " +
                                    std::to_string(buffer.PermNpts) +
                                    " points, as many as the profile had when it was last shown.\r\n"
                                    "Display the profile, and save it again without a zoom.");
}

std::optional<Message> SaveUxd(Workspace& workspace) {
  ProfileBuffer& buffer = workspace.Current();
  UxdHeaderTable header = buffer.UxdHeader;
  Lines lines;
  if (!AddUxdHeader(buffer, header, lines)) {
    return NotWritten(workspace, "the header of the profile has no line \"_2THETAC\"");
  }
  for (std::size_t i = 1; i <= static_cast<std::size_t>(buffer.PermNpts); ++i) {
    lines.push_back(" " + Rounded(buffer.PermX[i], 4) + "  " + Rounded(buffer.PermY[i], 2));
  }
  if (auto problem = WriteProfile(workspace, buffer, lines)) return problem;
  buffer.UxdHeader = header;
  const std::string title = TitleOf(header, buffer.UxdHeaderLines);
  if (buffer.PermNpts == 0 || title == buffer.Title) return std::nullopt;
  return NotReadBack(workspace,
                     "its title will be \"" + RightTrimmed(title) +
                         "\".\r\nThe format has a title only where the loaded file had one, and it "
                         "must start with _SAMPLE= at each saving.");
}

}  // namespace koprax
