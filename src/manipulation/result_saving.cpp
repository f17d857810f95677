#include "manipulation/result_saving.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "forms/fixed_text.h"

namespace koprax {

namespace {

/// Puts the result into the permanent copy, over the X of the temporary copy of its source. Of the
/// temporary copy of the target only the number of points is set: the window that shows it takes it anew.
void TakeResult(const ProfileBuffer& source, const PointTable& y, ProfileBuffer& target) {
  const int count = source.PermNpts;
  std::copy_n(y.begin() + 1, count, target.PermY.begin() + 1);
  std::copy_n(source.WorkX.begin() + 1, count, target.PermX.begin() + 1);
  target.PermNpts = target.WorkNpts = source.PermNpts;
  target.PermXMin = target.PermX[1];
  target.PermXMax = target.PermX[static_cast<std::size_t>(count)];
  target.PermYMin = source.PermYMin;
  target.PermYMax = source.PermYMax;
  target.XStep = source.XStep;
}

/// The lowest point of the permanent copy, 0 where none lies below it.
float LowestBelowZero(const ProfileBuffer& buffer) {
  float lowest = 0;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(buffer.PermNpts); ++i) {
    lowest = std::min(lowest, buffer.PermY[i]);
  }
  return lowest;
}

/// The title of the source with what has been done to it; the end of a long one is lost.
void TakeTitle(const ProfileBuffer& source, std::string_view suffix, ProfileBuffer& target) {
  target.Title = FixedField(RightTrimmed(source.Title).append(suffix), TitleWidth);
  target.Latin1Text = source.Latin1Text;
}

/// How the source was measured, its calibration and its peak list.
void TakeFacts(const ProfileBuffer& source, ProfileBuffer& target) {
  target.FileXMin = source.FileXMin;
  target.FileXMax = source.FileXMax;
  target.Wavelength = source.Wavelength;
  target.NegativeY = source.NegativeY;
  target.CpsLine2 = source.CpsLine2;
  target.CpsRecNo = source.CpsRecNo;
  target.CpsLine4 = source.CpsLine4;
  target.PeakListText = source.PeakListText;
  target.CalPar = source.CalPar;
  target.PeakTheta = source.PeakTheta;
  target.PeakY = source.PeakY;
  target.PeakChannel = source.PeakChannel;
  target.PeakD = source.PeakD;
  target.NPeaks = source.NPeaks;
  target.FormatCode = source.FormatCode;
}

void TakePhilipsHeader(const ProfileBuffer& source, ProfileBuffer& target) {
  if (source.FormatCode == static_cast<std::int16_t>(FormatCodes::Philips)) {
    target.UdfHeader = source.UdfHeader;
  }
}

void TakeSiemensHeader(const ProfileBuffer& source, ProfileBuffer& target) {
  if (source.FormatCode == static_cast<std::int16_t>(FormatCodes::Siemens)) {
    target.UxdHeaderLines = source.UxdHeaderLines;
    for (std::size_t i = 1; i <= static_cast<std::size_t>(source.UxdHeaderLines); ++i) {
      target.UxdHeader[i] = source.UxdHeader[i];
    }
  }
}

}  // namespace

void SaveBackgroundResult(Workspace& data) {
  const ProfileBuffer& source = data.Buffer(data.SumSource);
  ProfileBuffer& target = data.Current();
  const bool subtracted = data.BackgroundSubtracted != 0;
  TakeResult(source, subtracted ? data.NetY : data.BackgroundY, target);
  if (const float lowest = LowestBelowZero(target); lowest < 0) {
    target.PermYMin = lowest;
  }
  TakeTitle(source, subtracted ? " WITHOUT BACKGROUND" : " BACKGROUND", target);
  TakeFacts(source, target);
  TakePhilipsHeader(source, target);
  TakeSiemensHeader(source, target);
  data.CurBuf = data.SumSource;
}

void SaveSmoothedResult(Workspace& data) {
  const ProfileBuffer& source = data.Buffer(data.SumSource);
  ProfileBuffer& target = data.Current();
  std::ranges::fill(target.PermX, 0.0F);
  std::ranges::fill(target.PermY, 0.0F);
  TakeResult(source, source.WorkY, target);
  TakeTitle(source, data.SaveDft ? " SMOOTHED by DFT" : " SMOOTHED", target);
  data.SaveDft = false;
  TakeFacts(source, target);
  TakePhilipsHeader(source, target);
}

}  // namespace koprax
