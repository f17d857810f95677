// The formats that are read and saved, as the law of their targets needs to know them.
#pragma once

#include <cmath>
#include <cstddef>

#include "files/channel_format.h"
#include "files/column_formats.h"
#include "files/philips_format.h"
#include "files/siemens_format.h"
#include "fuzz/profile_law.h"

namespace koprax::formats {

/// The numbers of a point as they are shown, with 7 digits, or with so many decimals.
inline double ShownX(const ProfileBuffer& buffer, std::size_t i) { return DigitsLost(buffer.PermX[i]); }
template <int Decimals>
double Rounded(double y) {
  return DecimalsLost(y, Decimals);
}

/// Near the end of 32 bits the rounded step may lead beyond it.
inline bool StepStaysInRange(const ProfileBuffer& buffer) { return std::abs(buffer.PermXMax) < 3.4e38F; }

/// X follows from three numbers of 7 digits, the rest is written as it is shown. Rounding first X or step
/// moves the last X, which the next file then tells.
inline constexpr ProfileFormat ItalDat{
    .InputFormat = 1,
    .Read = ReadItalDat,
    .XRounding =
        [](const ProfileBuffer& buffer, std::size_t i) {
          const double way = static_cast<double>(i - 1) * buffer.XStep;
          return DigitsLost(buffer.FileXMin) + DigitsLost(way) + ShownX(buffer, i);
        },
    .YRounding = DigitsLost,
    .ComesBack = StepStaysInRange,
    .SavesExactly =
        [](const ProfileBuffer& buffer) {
          return IsShortNumber(buffer.FileXMin) && IsShortNumber(buffer.XStep);
        },
    .MayEndEarly = true};

/// First X and step are written with 4 and 5 decimals.
inline constexpr ProfileFormat OneColumn{
    .InputFormat = 2,
    .Read = ReadOneColumn,
    .XRounding =
        [](const ProfileBuffer& buffer, std::size_t i) {
          const auto steps = static_cast<double>(i - 1);
          return DecimalsLost(buffer.PermXMin, 4) + steps * DecimalsLost(buffer.XStep, 5) + ShownX(buffer, i);
        },
    .YRounding = DigitsLost,
    .ComesBack = StepStaysInRange};

inline constexpr ProfileFormat TwoColumns{
    .InputFormat = 3, .Read = ReadTwoColumns, .XRounding = ShownX, .YRounding = Rounded<2>};

/// Always 4096 of them; the title is made of header lines, the first of which is 4096.
inline constexpr ProfileFormat Channels{.InputFormat = 4,
                                        .Read = ReadAdf,
                                        .XRounding = [](const ProfileBuffer&, std::size_t) { return 0.0; },
                                        .YRounding = Rounded<1>,
                                        .SavesTitle = false};

inline bool HasFullStep(const ProfileBuffer& buffer) {
  return RoundDecimals(buffer.XStep, 4) == buffer.XStep;
}
/// The fields of the header have 9 characters, 4 of them decimals; and only below 1000 do 32 bits keep the 3
/// decimals of X apart well enough that the first one is found again from the one before it.
inline bool FitsPhilipsField(float value) { return std::abs(value) < 1000; }

/// X is built up from a first one and a step of 4 decimals: one that loses decimals goes into every X, each
/// of which is rounded again. Without points the range that is written is no range of X. The title is made of
/// values that the header has rounded.
inline constexpr ProfileFormat Philips{
    .InputFormat = 5,
    .Read = ReadUdf,
    .XRounding = [](const ProfileBuffer& buffer,
                    std::size_t i) { return HasFullStep(buffer) ? 0 : 0.00105 * static_cast<double>(i); },
    .YRounding = Rounded<0>,
    .ComesBack =
        [](const ProfileBuffer& buffer) {
          return FitsPhilipsField(buffer.PermXMin) && FitsPhilipsField(buffer.PermXMax) &&
                 FitsPhilipsField(buffer.XStep);
        },
    .SavesExactly = [](const ProfileBuffer& buffer) { return buffer.PermNpts > 0 && HasFullStep(buffer); },
    .SavesTitle = false};

/// The field of a value has 12 characters, and a negative number with exponent may have 13.
inline bool FitsSiemensField(float value) { return GeneralText(value).size() <= 12; }

inline constexpr ProfileFormat Siemens{
    .InputFormat = 6,
    .Read = ReadUxd,
    .XRounding = [](const ProfileBuffer& buffer, std::size_t i) { return DecimalsLost(buffer.PermX[i], 4); },
    .YRounding = Rounded<2>,
    .ComesBack =
        [](const ProfileBuffer& buffer) {
          return FitsSiemensField(buffer.XStep) && FitsSiemensField(buffer.Wavelength);
        }};

}  // namespace koprax::formats
