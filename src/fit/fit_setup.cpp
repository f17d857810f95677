#include "fit/fit_setup.h"

#include <cstddef>
#include <limits>

#include "display/peak_picking.h"
#include "fit/fit_parameters.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

constexpr float HalfGaussian = 0.5F;  // the eta that every peak starts with

float RoundedNumber(const std::string& text, int decimals) {
  return static_cast<float>(RoundDecimals(LeadingNumber(text), decimals));
}

}  // namespace

void ClearFit(PeakFit& fit) { fit = PeakFit{}; }

void CollectFitRange(const ProfileBuffer& buffer, const XRange& range, PeakFit& fit) {
  std::size_t count = 0;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(buffer.PermNpts); ++i) {
    if (range.Holds(buffer.WorkX[i])) {
      ++count;
      fit.FitX[count] = buffer.WorkX[i];
      fit.FitY[count] = buffer.WorkY[i];
    }
  }
  fit.FitPointCount = static_cast<std::int16_t>(count);
}

void SetBackgroundLine(const PlotPoint& first, const PlotPoint& second, float origin, PeakFit& fit) {
  const auto slope = static_cast<float>((static_cast<double>(second.Y) - first.Y) /
                                        (static_cast<double>(second.X) - first.X));
  const auto height =
      static_cast<float>(static_cast<double>(slope) * (static_cast<double>(origin) - first.X) + first.Y);
  fit.FitLine[1] = origin;
  fit.FitLine[2] = fit.FitParam[ConstantTerm] = height;
  fit.FitLine[3] = fit.FitParam[LinearTerm] = slope;
}

float BackgroundLineAt(const PeakFit& fit, float x) {
  return static_cast<float>(static_cast<double>(fit.FitLine[3]) * (static_cast<double>(x) - fit.FitOrigin()) +
                            fit.FitLine[2]);
}

void TakeMeasuredBackground(Workspace& data, const ProfileBuffer& source) {
  for (std::size_t i = 1; i <= MaxPoints; ++i) {
    const bool has_point = i <= static_cast<std::size_t>(source.PermNpts);
    data.BackgroundX[i] = has_point ? source.PermX[i] : 0;
    data.BackgroundY[i] = has_point ? source.PermY[i] : 0;
  }
}

void CollectFitBackground(Workspace& data, int point_count, const XRange& range) {
  PeakFit& fit = data.Fit;
  fit.FitBackgroundY.assign(MaxPoints + 1, 0);
  std::size_t count = 0;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(point_count); ++i) {
    if (range.Holds(data.BackgroundX[i])) {
      fit.FitBackgroundY[++count] = data.BackgroundY[i];
    }
  }
  fit.FitParam[ScaleFactor] = 1;
}

std::optional<float> MeasuredBackgroundAt(const PeakFit& fit, float x) {
  const auto count = static_cast<std::size_t>(fit.FitPointCount);
  std::size_t i = 1;
  while (i <= count && fit.FitX[i] < x) ++i;
  if (i > count) return std::nullopt;
  if (i == 1 || fit.FitX[i] == x) return fit.FitBackgroundY[i];
  const double rise = static_cast<double>(fit.FitBackgroundY[i]) - fit.FitBackgroundY[i - 1];
  const double step = static_cast<double>(fit.FitX[i]) - fit.FitX[i - 1];
  return static_cast<float>(fit.FitBackgroundY[i - 1] +
                            (static_cast<double>(x) - fit.FitX[i - 1]) * rise / step);
}

// The height that the explorer finds is the one that the fit starts from.
float GetProfileY(const ProfileBuffer& buffer, float x) { return PeakHeightAt(buffer, x); }

std::optional<float> HeightAboveBackground(const PeakFit& fit, float x, float y) {
  const auto background = fit.FitPolyBackground ? BackgroundLineAt(fit, x) : MeasuredBackgroundAt(fit, x);
  if (!background) return std::nullopt;
  return y - *background;
}

void AddFitPeak(const StartingPeak& peak, PeakFit& fit) {
  const int n = ++fit.FitPeakCount;
  fit.FitParam[NumberOf(n, PeakParameter::Position)] = peak.X;
  fit.FitParam[NumberOf(n, PeakParameter::Intensity)] = peak.Height;
  fit.FitParam[NumberOf(n, PeakParameter::WidthLeft)] = peak.Width;
  fit.FitParam[NumberOf(n, PeakParameter::WidthRight)] = peak.Width;
  fit.FitParam[NumberOf(n, PeakParameter::EtaLeft)] = HalfGaussian;
  fit.FitParam[NumberOf(n, PeakParameter::EtaRight)] = HalfGaussian;
}

std::optional<float> WidthFromAnswer(const std::string& answer) {
  const double width = RoundDecimals(LeadingNumber(answer), 3);
  if (!(width > 0) || width > std::numeric_limits<float>::max()) return std::nullopt;
  return static_cast<float>(width);
}

PeakPosition ListedPeakAt(const ProfileBuffer& buffer, int number) {
  const auto i = static_cast<std::size_t>(number);
  return {.X = buffer.InChannels() ? RoundedNumber(buffer.PeakChannel[i], 1)
                                   : RoundedNumber(buffer.PeakTheta[i], 3),
          .Y = RoundedNumber(buffer.PeakY[i], 2)};
}

}  // namespace koprax
