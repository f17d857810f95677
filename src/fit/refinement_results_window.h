// Form22, "Refinement results": the chi squares of the last five cycles, and whether to go on. The cycles
// themselves are left to whoever opened it.
#pragma once

#include <array>
#include <functional>
#include <string>

#include "forms/form.h"
#include "workspace/services.h"

namespace koprax {

/// What the user decides.
struct RefinementActions {
  std::function<void()> Continue;
  std::function<void()> Stop;
};

class Form22 final : public Form {
 public:
  Form22(const WindowContext& context, RefinementActions actions);

  /// Fills the boxes and shows the window. `cycles` is numbered from 1 to 5.
  void ShowResults(const std::string& start, const std::array<std::string, 6>& cycles);

 private:
  RefinementActions actions_;
};

}  // namespace koprax
