#include "display/peak_picking.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "forms/fixed_text.h"
#include "forms/number_text.h"
#include "workspace/bragg.h"

namespace koprax {

namespace {

constexpr double LargestDegreeStep = 0.98;  // a larger step is one of channels
constexpr const char* LineBreak = "\r\n";

/// The 2-theta at an X, and whether it comes from a channel; 0 in channels without calibration.
struct TwoThetaAtX {
  float Value;
  bool FromChannel;
};

TwoThetaAtX TwoThetaAt(const ProfileBuffer& buffer, double step, float x) {
  if (!(step > LargestDegreeStep)) return {.Value = x, .FromChannel = false};
  if (buffer.CalPar[1] == 0) return {.Value = 0, .FromChannel = false};
  return {.Value = TwoThetaOfChannel(buffer.CalPar, x), .FromChannel = true};
}

std::string SpacingText(const ProfileBuffer& buffer, float two_theta) {
  return RoundedText(SpacingOf(two_theta, buffer.Wavelength), 4);
}

/// A text in its field, cut to it before and after it is aligned.
std::string DecimalField(const std::string& text, std::size_t decimals) {
  constexpr std::size_t width = 8;
  return FixedField(AlignDecimal(FirstCharacters(text, width), width, decimals), width);
}
std::string RightField(const std::string& text, std::size_t width) {
  return FixedField(RightAlignText(text, width), width);
}

std::string Row(int number, const std::string& position, const std::string& d, const std::string& y) {
  return RightField(std::to_string(number), 3) + ")" + position + " " + DecimalField(d, 4) + " " +
         DecimalField(y, 1) + LineBreak;
}

std::size_t IndexOf(int peak) { return static_cast<std::size_t>(peak); }

}  // namespace

PeakPick ReadOutAt(const ProfileBuffer& buffer, float x) {
  return ReadOutAt(buffer, buffer.PermX[2] - buffer.PermX[1], x);
}

PeakPick ReadOutAt(const ProfileBuffer& buffer, double step, float x) {
  const TwoThetaAtX two_theta = TwoThetaAt(buffer, step, x);
  const std::string shown = RoundedText(x, 4);
  return {.Theta = two_theta.FromChannel ? GeneralText(two_theta.Value) : shown,
          .D = SpacingText(buffer, two_theta.Value),
          .Channel = shown,
          .Y = {}};
}

PeakPick ZoomedReadOutAt(const ProfileBuffer& buffer, float step, float x) {
  const float rounded = RoundDecimals(x, 3);
  const TwoThetaAtX two_theta = TwoThetaAt(buffer, step, rounded);
  const std::string shown = GeneralText(rounded);
  return {.Theta = two_theta.FromChannel ? RoundedText(two_theta.Value, 4) : shown,
          .D = SpacingText(buffer, two_theta.Value),
          .Channel = shown,
          .Y = {}};
}

float PeakHeightAt(const ProfileBuffer& buffer, float x) {
  float height = 0;
  for (std::size_t i = 2; i <= IndexOf(buffer.WorkNpts); ++i) {
    if (buffer.WorkX[i - 1] <= x && x <= buffer.WorkX[i]) {
      height = std::max(buffer.WorkY[i - 1], buffer.WorkY[i]);
    }
  }
  return height;
}

PeakPick PickedAt(const ProfileBuffer& buffer, PeakPick read_out) {
  read_out.Y = GeneralText(RoundDecimals(PeakHeightAt(buffer, PositionOf(buffer, read_out).X), 1));
  return read_out;
}

std::optional<Message> WhyNotPicked(const ProfileBuffer& buffer) {
  const auto refusal = [](std::string text) {
    return Message{.Text = std::move(text), .Title = "Warning", .Icon = MessageIcon::Information};
  };
  if (buffer.Empty() || buffer.IsCard()) {
    return refusal("Buffer " + buffer.BufLetter +
                   " holds no profile any more, so no peak can be picked.\r\nDisplay a profile first.");
  }
  if (buffer.Wavelength == 0) {
    return refusal(
        "There is no wave length, so no peak can be picked.\r\nStart the explorer again and give one.");
  }
  if (buffer.NPeaks >= MaxPeaks) {
    return refusal("The list holds " + std::to_string(MaxPeaks) +
                   " peaks already, so this one is not taken.\r\nErase some of them, or save the list and "
                   "clear it.");
  }
  return std::nullopt;
}

void AddPeak(ProfileBuffer& buffer, const PeakPick& pick) {
  const std::size_t n = IndexOf(++buffer.NPeaks);
  buffer.PeakTheta[n] = pick.Theta;
  buffer.PeakY[n] = pick.Y;
  buffer.PeakD[n] = pick.D;
  if (buffer.InChannels()) {
    buffer.PeakChannel[n] = pick.Channel;
  }
}

void RemoveLastPeak(ProfileBuffer& buffer) {
  const std::size_t n = IndexOf(buffer.NPeaks);
  buffer.PeakTheta[n] = buffer.PeakY[n] = buffer.PeakD[n] = "";
  if (buffer.InChannels()) {
    buffer.PeakChannel[n] = "";
  }
  --buffer.NPeaks;
}

void ClearPeaks(ProfileBuffer& buffer) {
  for (std::size_t i = 1; i <= IndexOf(buffer.NPeaks); ++i) {
    buffer.PeakTheta[i] = buffer.PeakY[i] = "";
  }
  buffer.NPeaks = 0;
}

PeakPosition PositionOf(const ProfileBuffer& buffer, int peak) {
  const std::size_t i = IndexOf(peak);
  return {.X = LeadingFloat(buffer.InChannels() ? buffer.PeakChannel[i] : buffer.PeakTheta[i]),
          .Y = LeadingFloat(buffer.PeakY[i])};
}

PeakPosition PositionOf(const ProfileBuffer& buffer, const PeakPick& pick) {
  return {.X = LeadingFloat(buffer.InChannels() ? pick.Channel : pick.Theta), .Y = LeadingFloat(pick.Y)};
}

std::vector<PeakPosition> PeaksWithin(const ProfileBuffer& buffer, const XRange& range) {
  std::vector<PeakPosition> peaks;
  for (std::size_t i = 1; i <= IndexOf(buffer.NPeaks); ++i) {
    const PeakPosition peak{.X = LeadingFloat(buffer.PeakTheta[i]), .Y = LeadingFloat(buffer.PeakY[i])};
    if (range.Holds(peak.X)) {
      peaks.push_back(peak);
    }
  }
  return peaks;
}

std::string PickedRow(const ProfileBuffer& buffer, int number, const PeakPick& pick) {
  const std::string position =
      buffer.InChannels() ? RightField(pick.Channel, 8) : DecimalField(pick.Theta, 4);
  return Row(number, position, pick.D, pick.Y);
}

std::string PeakRows(const ProfileBuffer& buffer) {
  const auto& positions = buffer.InChannels() ? buffer.PeakChannel : buffer.PeakTheta;
  std::string rows;
  for (int i = 1; i <= buffer.NPeaks; ++i) {
    const std::size_t k = IndexOf(i);
    rows += Row(i, DecimalField(positions[k], 4), buffer.PeakD[k], buffer.PeakY[k]);
  }
  return rows;
}

std::string WithoutLastRow(const std::string& rows) {
  if (rows.size() < 2) {
    return "";
  }
  const std::size_t end_before = rows.rfind(LineBreak, rows.size() - 3);
  return end_before == std::string::npos ? "" : rows.substr(0, end_before + 2);
}

}  // namespace koprax
