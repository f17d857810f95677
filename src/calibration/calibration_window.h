// Form24, "Calibration": the peaks of a standard above those that were measured of it on a channel detector.
// The user couples them, and a polynomial from channel to 2-theta is fitted to the couples.
#pragma once

#include "workspace/buffer_window.h"

namespace koprax {

class Form24 final : public BufferWindow {
 public:
  explicit Form24(const WindowContext& context) : BufferWindow(context, "Form24", "Calibration") {}
};

}  // namespace koprax
