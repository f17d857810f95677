// Form20, "Peak fit parameters": the parameters of the fit to be read, changed, and ticked for refinement.
// Refining them is left to the fit window.
#pragma once

#include <functional>

#include "forms/form.h"
#include "workspace/services.h"

namespace koprax {

class Form20 final : public Form {
 public:
  /// `confirmed` is called when the user has accepted the parameters and the window has gone.
  Form20(const WindowContext& context, std::function<void()> confirmed);

 private:
  WindowContext context_;
  std::function<void()> confirmed_;
};

}  // namespace koprax
