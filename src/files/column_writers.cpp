// The three column formats.
#include <cmath>
#include <cstddef>

#include "files/profile_writers.h"
#include "files/profile_writing.h"
#include "workspace/bragg.h"

namespace koprax {

namespace {

void AddListedIntensities(const ProfileBuffer& buffer, Lines& lines) {
  for (int i = 1; i <= buffer.PermNpts; ++i) {
    lines.push_back(Listed(buffer.PermY[static_cast<std::size_t>(i)]));
  }
}

bool WantsTwoTheta(const ProfileBuffer& buffer, const AskForText& ask) {
  if (buffer.FormatCode != static_cast<std::int16_t>(FormatCodes::CpsChannels)) return false;
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
  return WriteProfile(workspace, buffer, lines);
}

std::optional<Message> SaveOneColumn(Workspace& workspace) {
  const ProfileBuffer& buffer = workspace.Current();
  Lines lines{buffer.Title, " " + Rounded(buffer.PermXMin, 4) + " " + Rounded(buffer.XStep, 5) + " " +
                                Rounded(buffer.Wavelength, 6)};
  AddListedIntensities(buffer, lines);
  return WriteProfile(workspace, buffer, lines);
}

std::optional<Message> SaveTwoColumns(Workspace& workspace, const AskForText& ask) {
  const ProfileBuffer& buffer = workspace.Current();
  const bool convert = WantsTwoTheta(buffer, ask);
  Lines lines{buffer.Title, " " + GeneralText(buffer.Wavelength) + " "};
  for (std::size_t i = 1; i <= static_cast<std::size_t>(buffer.PermNpts); ++i) {
    const float channel = buffer.PermX[i];
    const float x = convert ? TwoThetaOfChannel(buffer.CalPar, channel) : channel;
    if (!std::isfinite(x)) {
      return NotWritten(workspace, "the calibration gives no 2-theta for channel " + GeneralText(channel));
    }
    const std::string x_text = convert ? Rounded(x, 5) : GeneralText(x);
    lines.push_back(" " + x_text + "   " + Rounded(buffer.PermY[i], 2));
  }
  return WriteProfile(workspace, buffer, lines);
}

}  // namespace koprax
