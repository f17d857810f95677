// A profile with its background on paper. Asking for the printer, the page and the frame are left to the
// printing of plots.
#pragma once

#include "manipulation/background_plot.h"
#include "workspace/services.h"

namespace koprax {

/// Prints the temporary copy of CurBuf and, in dashes below it, the background in hand, in these colours and
/// in the limits of the drawing on the screen. Nothing happens when the printer dialog is cancelled.
void PrintBackgroundPlot(const WindowContext& context, const ProfileColours& colours);

}  // namespace koprax
