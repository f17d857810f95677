#include "fit/refined_peaks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <vector>

#include "fit/fit_setup.h"
#include "fit/peak_model.h"
#include "forms/number_text.h"
#include "workspace/bragg.h"

namespace koprax {

namespace {

constexpr float SmallestTwoTheta = 0.001F;  // degrees; closer to 0 a peak has no d

std::size_t IndexOf(int number) { return static_cast<std::size_t>(number); }

/// Takes an entry out of a list; the later ones move down. A number above the length takes the last one.
template <std::size_t Size>
void RemoveEntry(std::array<std::string, Size>& texts, int number, int length) {
  if (number < length) {
    std::rotate(texts.begin() + number, texts.begin() + number + 1, texts.begin() + length + 1);
  }
  texts[IndexOf(std::max(1, length))] = "";
}
void Shorten(std::int16_t& length) { length = static_cast<std::int16_t>(std::max(0, length - 1)); }

// ---- The temporary list ------------------------------------------------------------------------------

double BackgroundAt(const PeakFit& fit, float x) {
  if (fit.FitPolyBackground) {
    return PolynomialBackground(fit.FitParam, static_cast<double>(x) - fit.FitOrigin());
  }
  const float last = fit.FitBackgroundY[IndexOf(fit.FitPointCount)];
  return static_cast<double>(MeasuredBackgroundAt(fit, x).value_or(last)) * fit.FitParam[ScaleFactor];
}

void RemoveTemporary(TemporaryPeaks& peaks, int number) {
  RemoveEntry(peaks.TempPos, number, peaks.NTemp);
  RemoveEntry(peaks.TempHeight, number, peaks.NTemp);
  Shorten(peaks.NTemp);
}

// ---- The permanent list ------------------------------------------------------------------------------

void PlacePeak(ProfileBuffer& buffer, std::size_t n, const TemporaryPeaks& peaks, std::size_t temporary) {
  buffer.PeakTheta[n] = peaks.TempPos[temporary];
  float two_theta = LeadingFloat(buffer.PeakTheta[n]);
  if (buffer.InChannels()) {
    buffer.PeakChannel[n] = peaks.TempPos[temporary];
    two_theta = TwoThetaOfChannel(buffer.CalPar, two_theta);
    buffer.PeakTheta[n] = GeneralText(two_theta);
  }
  if (std::abs(two_theta) > SmallestTwoTheta) {
    const double sine = std::sin(two_theta / 2.0 * RadiansPerDegree);
    buffer.PeakD[n] = GeneralText(static_cast<float>(RoundDecimals(buffer.Wavelength / (2 * sine), 4)));
  }
  buffer.PeakY[n] = peaks.TempHeight[temporary];
}

bool NoTemporaryPeak(int number) { return number == 0 || number > MaxFitPeaks; }

bool NoListHas(int permanent) { return permanent < 0 || permanent > MaxPeaks; }

std::string Line(std::size_t number, const char* gap, const std::string& position,
                 const std::string& height) {
  return std::to_string(number) + ")" + gap + position + "   " + height + "\r\n";
}

}  // namespace

TemporaryPeaks PeaksOfFit(const PeakFit& fit) {
  TemporaryPeaks peaks;
  peaks.NTemp = fit.FitPeakCount;
  for (int peak = 1; peak <= fit.FitPeakCount; ++peak) {
    const float x = fit.FitParam[NumberOf(peak, PeakParameter::Position)];
    const double height = fit.FitParam[NumberOf(peak, PeakParameter::Intensity)];
    peaks.TempPos[IndexOf(peak)] = RoundedText(x, 4);
    peaks.TempHeight[IndexOf(peak)] =
        GeneralText(static_cast<float>(RoundDecimals(height, 2) + BackgroundAt(fit, x)));
  }
  return peaks;
}

ListChange AddRefinedPeak(ProfileBuffer& buffer, TemporaryPeaks& peaks, int temporary) {
  if (NoTemporaryPeak(temporary)) return ListChange::Nothing;
  if (temporary < 0) return ListChange::OutOfRange;
  if (buffer.NPeaks >= MaxPeaks) return ListChange::ListFull;
  PlacePeak(buffer, IndexOf(buffer.NPeaks + 1), peaks, IndexOf(temporary));
  ++buffer.NPeaks;
  RemoveTemporary(peaks, temporary);
  return ListChange::Done;
}

ListChange SubstitutePeak(ProfileBuffer& buffer, TemporaryPeaks& peaks, int permanent, int temporary) {
  if (permanent == 0 || NoTemporaryPeak(temporary)) return ListChange::Nothing;
  if (NoListHas(permanent) || temporary < 0) return ListChange::OutOfRange;
  PlacePeak(buffer, IndexOf(permanent), peaks, IndexOf(temporary));
  RemoveTemporary(peaks, temporary);
  return ListChange::Done;
}

ListChange DeletePeak(ProfileBuffer& buffer, int permanent) {
  if (permanent == 0) return ListChange::Nothing;
  if (NoListHas(permanent)) return ListChange::OutOfRange;
  for (auto* texts : {&buffer.PeakTheta, &buffer.PeakY, &buffer.PeakD, &buffer.PeakChannel}) {
    RemoveEntry(*texts, permanent, buffer.NPeaks);
  }
  Shorten(buffer.NPeaks);
  return ListChange::Done;
}

void OrderPeaks(ProfileBuffer& buffer) {
  struct Peak {
    float Theta, Channel, Y, D;
  };
  std::vector<Peak> peaks;
  for (std::size_t i = 1; i <= IndexOf(buffer.NPeaks); ++i) {
    peaks.push_back({.Theta = LeadingFloat(buffer.PeakTheta[i]),
                     .Channel = buffer.InChannels() ? LeadingFloat(buffer.PeakChannel[i]) : 0,
                     .Y = LeadingFloat(buffer.PeakY[i]),
                     .D = LeadingFloat(buffer.PeakD[i])});
  }
  std::ranges::stable_sort(peaks, {}, buffer.InChannels() ? &Peak::Channel : &Peak::Theta);
  for (std::size_t i = 1; i <= peaks.size(); ++i) {
    const Peak& peak = peaks[i - 1];
    buffer.PeakTheta[i] = GeneralText(peak.Theta);
    buffer.PeakChannel[i] = GeneralText(peak.Channel);
    buffer.PeakY[i] = GeneralText(peak.Y);
    buffer.PeakD[i] = GeneralText(peak.D);
  }
}

std::string PermanentLines(const ProfileBuffer& buffer) {
  const bool channels = buffer.InChannels();
  const auto& positions = channels ? buffer.PeakChannel : buffer.PeakTheta;
  std::string lines;
  for (std::size_t i = 1; i <= IndexOf(buffer.NPeaks); ++i) {
    lines += Line(i, channels ? "" : " ", positions[i], buffer.PeakY[i]);
  }
  return lines;
}

std::string TemporaryLines(const TemporaryPeaks& peaks) {
  std::string lines;
  for (std::size_t i = 1; i <= IndexOf(peaks.NTemp); ++i) {
    lines += Line(i, " ", peaks.TempPos[i], peaks.TempHeight[i]);
  }
  return lines;
}

}  // namespace koprax
