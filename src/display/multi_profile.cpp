#include "display/multi_profile.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>

#include "display/curve.h"
#include "display/plot_axes.h"
#include "workspace/temporary_copy.h"

namespace koprax {

namespace {

constexpr std::array<Colour, NumBuffers + 1> BufferColours{
    colours::Black, colours::Magenta, colours::Blue, colours::Red, 32768, 16776960, colours::Black};

constexpr double LargestDeviation = 0.02;  // of a wavelength from the mean

std::vector<int> SelectedSlots(const BufferSelection& selection) {
  std::vector<int> slots;
  for (int slot = 1; slot <= NumBuffers; ++slot) {
    if (selection[static_cast<std::size_t>(slot)] == 1) {
      slots.push_back(slot);
    }
  }
  return slots;
}

/// Cards among profiles take the limits of the profiles.
PlotLimits CommonLimits(const Workspace& data, const std::vector<int>& slots) {
  const auto is_card = [&](int slot) { return data.Buffer(slot).IsCard(); };
  const bool only_cards = std::ranges::all_of(slots, is_card);
  PlotLimits limits{.XMin = 10000, .XMax = -10000, .YMin = 10000, .YMax = -10000};
  for (const int slot : slots) {
    const ProfileBuffer& buffer = data.Buffer(slot);
    if (only_cards || !buffer.IsCard()) {
      limits.XMin = std::min(limits.XMin, buffer.PermXMin);
      limits.XMax = std::max(limits.XMax, buffer.PermXMax);
      limits.YMin = std::min(limits.YMin, buffer.PermYMin);
      limits.YMax = std::max(limits.YMax, buffer.PermYMax);
    }
  }
  return limits;
}

float MeanWavelength(const Workspace& data, const std::vector<int>& slots) {
  float sum = 0;
  for (const int slot : slots) {
    sum += data.Buffer(slot).Wavelength;
  }
  return slots.empty() ? 0 : sum / static_cast<float>(slots.size());
}

std::optional<Message> WavelengthProblem(const Workspace& data, const std::vector<int>& slots, double mean) {
  bool mismatch = false;
  for (const int slot : slots) {
    const ProfileBuffer& buffer = data.Buffer(slot);
    if (buffer.Wavelength == 0) {
      return Message{.Text = "Undefined wave length for profile in buffer " + buffer.BufLetter,
                     .Title = "Warning",
                     .Icon = MessageIcon::Stop};
    }
    mismatch |= !(std::abs(mean - buffer.Wavelength) / buffer.Wavelength < LargestDeviation);
  }
  if (mismatch) {
    return ErrorMessage(
        "Profiles collected with radiation of different \r\n"
        "wavelengths cannot be displayed on the same figure.");
  }
  return std::nullopt;
}

std::optional<Message> AxisProblem(const Workspace& data, const std::vector<int>& slots) {
  const auto in_channels = [&](int slot) { return data.Buffer(slot).InChannels(); };
  if (std::ranges::any_of(slots, in_channels) && !std::ranges::all_of(slots, in_channels)) {
    return ErrorMessage(
        "Error!!\r\nProfiles in 2-theta cannot co-exsist with profiles in 'channels'.\r\n"
        "Change 'channel' units in 2-theta units prior to any common displaying.");
  }
  return std::nullopt;
}

std::optional<Message> RangeProblem(const PlotLimits& limits) {
  if (!SpansX(limits)) {
    return ErrorMessage(
        "The profiles have no common range of X in which they could be displayed.\r\n"
        "Select profiles whose X runs upward.");
  }
  return std::nullopt;
}

Colour ColourOf(const ProfileBuffer& buffer) { return static_cast<Colour>(buffer.BufColor); }

void DrawBuffer(const Workspace& data, const ProfileBuffer& buffer, Surface& picture) {
  const CurvePoints points{.X = buffer.WorkX, .Y = buffer.WorkY, .Count = buffer.PermNpts};
  const CurveOrigin origin{.XMin = data.PlotXMin, .Base = PlotBase(data.Plot, buffer.NegativeY == 1)};
  const XRange range{.Low = data.PlotXMin, .High = data.PlotXMax};
  const auto draw = buffer.IsCard() ? DrawSticks : DrawCurve;
  draw(data.Plot, points, origin, range, ColourOf(buffer), picture);
}

}  // namespace

std::variant<MultiProfile, Message> PlanMultiProfile(const Workspace& data,
                                                     const BufferSelection& selection) {
  const std::vector<int> slots = SelectedSlots(selection);
  MultiProfile plot{
      .Slots = slots, .Limits = CommonLimits(data, slots), .MeanWavelength = MeanWavelength(data, slots)};
  std::optional<Message> problem = WavelengthProblem(data, slots, plot.MeanWavelength);
  if (!problem) {
    problem = AxisProblem(data, slots);
  }
  if (!problem) {
    problem = RangeProblem(plot.Limits);
  }
  if (problem) {
    return *problem;
  }
  return plot;
}

void TakeMultiProfile(Workspace& data, const MultiProfile& plot) {
  for (std::size_t slot = 1; slot <= NumBuffers; ++slot) {
    ProfileBuffer& buffer = data.Buffers[slot];
    buffer.BufColor = static_cast<float>(BufferColours[slot]);
    buffer.SelList =
        slot <= plot.Slots.size() ? static_cast<std::int16_t>(plot.Slots[slot - 1]) : std::int16_t{0};
  }
  TakeLimitsOfDrawing(data, plot.Limits);
  if (plot.Slots.size() == 2) {
    data.SumWavelength = plot.MeanWavelength;
  }
  if (!data.MultiOp) {
    for (const int slot : plot.Slots) {
      TakeTemporaryCopy(data.Buffer(slot));
    }
  }
}

std::vector<int> SlotsInPlot(const Workspace& data) {
  std::vector<int> slots;
  for (int place = 1; place <= NumBuffers; ++place) {
    if (data.Buffer(place).SelList != 0) {
      slots.push_back(data.Buffer(place).SelList);
    }
  }
  return slots;
}

void DrawMultiProfile(Workspace& data, Surface& picture, const TellUser& tell) {
  const PlotLimits limits = LimitsOfDrawing(data);
  if (!DrawAxes(data, limits, picture)) {
    tell(NoYSpan());
  }
  const std::vector<int> slots = SlotsInPlot(data);
  ShareFrame(data, slots, limits);
  bool channels = false;
  for (const int slot : slots) {
    DrawBuffer(data, data.Buffer(slot), picture);
    channels |= data.Buffer(slot).InChannels();
  }
  PrintAxisLabels({.Channels = channels, .ThetaSize = 12, .ChannelX = 101, .ChannelY = 9}, picture);
}

void DrawLegend(const Workspace& data, const std::vector<int>& slots, Surface& legend) {
  for (std::size_t k = 1; k <= slots.size(); ++k) {
    const ProfileBuffer& buffer = data.Buffer(slots[k - 1]);
    const auto line = 3.0 * static_cast<double>(k);
    legend.MoveTo(23, line - 2);
    legend.Print("buffer  " + buffer.BufLetter + "  " + buffer.Title);
    legend.Line(1, line, 16, line, ColourOf(buffer));
    if (slots.size() < 3) {
      const Colour foreground = legend.ForeColor;
      legend.MoveTo(18, line - 2);
      legend.ForeColor = ColourOf(buffer);
      legend.Print("Y" + std::to_string(k));
      legend.ForeColor = foreground;
    }
  }
}

void ShareFrame(Workspace& data, const std::vector<int>& slots, const PlotLimits& limits) {
  for (const int slot : slots) {
    data.Buffer(slot).NegativeY = ReachesBelowZero(limits) ? 1 : 0;
  }
}

void SaveShownProfile(ProfileBuffer& buffer) {
  float lowest = 100000;
  float highest = -10000;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(buffer.WorkNpts); ++i) {
    buffer.PermX[i] = buffer.WorkX[i];
    buffer.PermY[i] = buffer.WorkY[i];
    lowest = std::min(lowest, buffer.PermY[i]);
    highest = std::max(highest, buffer.PermY[i]);
  }
  buffer.PermYMin = buffer.WorkYMin = lowest;
  buffer.PermYMax = buffer.WorkYMax = highest;
  buffer.PermXMin = buffer.WorkXMin;
  buffer.PermXMax = buffer.WorkXMax;
}

}  // namespace koprax
