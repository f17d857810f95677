// Form8, "Mathematical manipulation": arithmetic on the temporary copy of one profile, and the sum and
// difference of two. The computing is left to arithmetic and profile_sum, the result of two profiles to
// the window that shows it.
#pragma once

#include <functional>
#include <memory>

#include "forms/form.h"
#include "workspace/services.h"

namespace koprax {

/// What the window that opens the arithmetic tells about itself, and what it does when it hears back.
struct ArithmeticOpening {
  int Profiles;                    ///< shown by the opener, 1 or 2
  std::weak_ptr<Form> Opener;      ///< once it is gone, the commands only close the window
  std::function<void()> Redraw;    ///< one profile has changed: the opener clears its picture and draws anew
  std::function<void()> ComeBack;  ///< the opener comes to the front
  std::function<void()> ResultLeft;  ///< the result of two profiles has been left
};

/// Loads the window anew and shows it.
void OpenArithmetic(const WindowContext& context, ArithmeticOpening opening);

}  // namespace koprax
