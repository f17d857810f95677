// The printed page of a reference card: its pattern, its cell and its list of reflections.
#pragma once

#include "display/plot_transform.h"
#include "workspace/services.h"

namespace koprax {

/// Prints the card in CurBuf, its pattern in these limits, on a landscape page. The list of reflections runs
/// down the one page.
void PrintCard(const WindowContext& context, const PlotLimits& limits);

}  // namespace koprax
