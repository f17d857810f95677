// The commands that save the coefficients of a calibration to a file, and that read them back.
#pragma once

#include <span>

#include "workspace/services.h"

namespace koprax {

/// Asks for a file and for its title, then writes the coefficients, the constant one first.
void SaveCalibration(const WindowContext& context, std::span<const float> coefficients);

/// Asks for a calibration file and opens its preview; once the user accepts that, its coefficients are in
/// CalPar of CurBuf. The preview isn't modal. A cancelled dialog sets CalCancelled to 1; an empty file name
/// ends the reading without it.
void ReadCalFile(const WindowContext& context);

}  // namespace koprax
