// Form26, "Cell refinement": the cell, its reflections, the indices of measured peaks, the refinement.
#pragma once

#include "workspace/buffer_window.h"

namespace koprax {

class Form26 final : public BufferWindow {
 public:
  explicit Form26(const WindowContext& context) : BufferWindow(context, "Form26", "Cell refinement") {}
};

}  // namespace koprax
