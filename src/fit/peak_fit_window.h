// Form19, "Peak fit": from the range of a profile over its background and its peaks to the refined
// parameters, one stage after the other.
#pragma once

#include "display/plot_transform.h"
#include "forms/form.h"
#include "workspace/services.h"

namespace koprax {

class Form19 final : public Form {
 public:
  explicit Form19(const WindowContext& context) : Form(context.Desk, "Form19", "Peak fit") {}

  /// Draws the temporary copy of the slot and fills the boxes; false when there is no range of X to draw.
  bool ShowProfile(int slot);
};

}  // namespace koprax
