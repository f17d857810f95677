// Form23, "Refined peak list": the peaks of the last fit beside the peak list of the buffer, and what moves
// from the one to the other.
#pragma once

#include "forms/form.h"
#include "workspace/services.h"

namespace koprax {

class Form23 final : public Form {
 public:
  /// Works on the list of CurBuf as it stands at the opening.
  explicit Form23(const WindowContext& context);

 private:
  WindowContext context_;
};

}  // namespace koprax
