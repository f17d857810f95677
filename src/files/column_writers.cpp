// The three column formats.
#include <cmath>
#include <cstddef>

#include "files/column_formats.h"
#include "files/profile_writers.h"
#include "files/profile_writing.h"
#include "files/tokeniser.h"
#include "workspace/bragg.h"

namespace koprax {

namespace {

void AddListedIntensities(const ProfileBuffer& buffer, Lines& lines) {
  for (int i = 1; i <= buffer.PermNpts; ++i) {
    lines.push_back(Listed(buffer.PermY[static_cast<std::size_t>(i)]));
  }
}

/// A title without a word that is no number, which readers take for data if it has so many numbers. An empty
/// buffer has nothing to lose by it.
bool TitleLooksLikeData(const ProfileBuffer& buffer, int least_numbers, int most_numbers) {
  if (buffer.PermNpts == 0) return false;
  LineWords words;
  SplitLine(buffer.Title, words);
  return words.NText == 0 && words.NNum >= least_numbers && words.NNum <= most_numbers;
}

Message TitleTakenForData(const Workspace& workspace) {
  return NotReadBack(workspace,
                     "without a word that is no number its title is taken for data.\r\n"
                     "Give the profile another title and save it again.");
}

/// What the user is told when X as a reader makes it, from the first point and the step in the file, misses
/// the last point by more than half a step: a step that is none, or that has lost decimals.
std::optional<Message> StepMissesLastPoint(Workspace& workspace, float first, float step) {
  const ProfileBuffer& buffer = workspace.Current();
  if (buffer.PermNpts < 2) return std::nullopt;
  const auto last = static_cast<float>(first + (buffer.PermNpts - 1) * static_cast<double>(step));
  if (std::abs(static_cast<double>(last) - buffer.PermXMax) <= std::abs(step) / 2) return std::nullopt;
  return NotReadBack(workspace,
                     "the step " + GeneralText(step) + " leads to " + GeneralText(last) +
                         " at the last point, which lies at " + GeneralText(buffer.PermXMax) +
                         ".\r\nSave the profile in two columns to keep its points in their places.");
}

bool WantsTwoTheta(const ProfileBuffer& buffer, const AskForText& ask) {
  if (!buffer.InChannels()) return false;
  const std::string answer =
      ask({.Prompt = "File type \"CPS-120 (4096 channels)\" will be saved in TWO COLUMNS format.\r\n"
                     "Channels are to be changed into 2-theta units? (Y/N)",
           .Title = "Input"});
  return answer == "Y" || answer == "y";
}

}  // namespace

std::optional<Message> SaveItalDat(Workspace& workspace) {
  const ProfileBuffer& buffer = workspace.Current();
  Lines lines{buffer.Title, std::to_string(buffer.PermNpts),
              Listed(buffer.PermXMin, buffer.PermXMax, buffer.XStep)};
  AddListedIntensities(buffer, lines);
  lines.push_back(Listed(buffer.PermYMax, buffer.PermYMin));
  lines.push_back(Listed(buffer.Wavelength));
  if (auto problem = WriteProfile(workspace, buffer, lines)) return problem;
  return StepMissesLastPoint(workspace, buffer.PermXMin, buffer.XStep);
}

std::optional<Message> SaveOneColumn(Workspace& workspace) {
  const ProfileBuffer& buffer = workspace.Current();
  const float first = RoundDecimals(buffer.PermXMin, 4);
  const float step = RoundDecimals(buffer.XStep, 5);
  Lines lines{buffer.Title,
              " " + GeneralText(first) + " " + GeneralText(step) + " " + Rounded(buffer.Wavelength, 6)};
  AddListedIntensities(buffer, lines);
  if (auto problem = WriteProfile(workspace, buffer, lines)) return problem;
  if (TitleLooksLikeData(buffer, 0, MaxWords)) return TitleTakenForData(workspace);
  return StepMissesLastPoint(workspace, first, step);
}

std::optional<Message> SaveTwoColumns(Workspace& workspace, const AskForText& ask) {
  const ProfileBuffer& buffer = workspace.Current();
  const bool convert = WantsTwoTheta(buffer, ask);
  bool ends_early = false;
  Lines lines{buffer.Title, " " + GeneralText(buffer.Wavelength) + " "};
  for (std::size_t i = 1; i <= static_cast<std::size_t>(buffer.PermNpts); ++i) {
    const float channel = buffer.PermX[i];
    const float x = convert ? TwoThetaOfChannel(buffer.CalPar, channel) : channel;
    if (!std::isfinite(x)) {
      return NotWritten(workspace, "the calibration gives no 2-theta for channel " + GeneralText(channel));
    }
    ends_early = ends_early || (i >= 3 && x < LeastXOfData);
    const std::string x_text = convert ? Rounded(x, 5) : GeneralText(x);
    lines.push_back(" " + x_text + "   " + Rounded(buffer.PermY[i], 2));
  }
  if (auto problem = WriteProfile(workspace, buffer, lines)) return problem;
  if (ends_early) {
    return NotReadBack(workspace, "an X below 0.0001 ends the data, from the third point on.");
  }
  if (TitleLooksLikeData(buffer, 1, 2)) return TitleTakenForData(workspace);
  return std::nullopt;
}

}  // namespace koprax
