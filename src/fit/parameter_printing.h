// The page with the parameters of a fit.
#pragma once

#include "workspace/services.h"

namespace koprax {

/// Asks for a printer and prints the parameters of FitParam: a line for each peak, then the background.
void PrintParameters(const WindowContext& context);

}  // namespace koprax
