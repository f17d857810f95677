// Plots on paper: the page, the frame with its labels, and what the windows with profiles print. Every
// print leaves the shared transform as it found it.
#pragma once

#include <functional>
#include <vector>

#include "display/plot_transform.h"
#include "files/read_outcome.h"
#include "forms/printer.h"
#include "workspace/services.h"

namespace koprax {

/// Asks for a printer, lets `draw` fill the page and prints it once. Nothing happens on cancel; a printer
/// that doesn't take the page is told. The page is portrait, in twips, until `draw` sets it up otherwise.
void PrintPage(const WindowContext& context, const std::function<void(Printer&)>& draw);

/// The same for as many copies as the user wants, each a document of its own.
void PrintCopies(const WindowContext& context, const std::function<void(Printer&)>& draw);

/// Prints a plot once: a landscape page in millimetres from its top left corner.
void PrintPlotPage(const WindowContext& context, const std::function<void(Printer&)>& draw);

/// Draws the frame, its ticks and labels for CurBuf on a page in millimetres, its top left corner at the
/// given place, 115 wide and 90 high, and fixes the transform for it. Sets NegativeY of CurBuf. Limits that
/// span no Y are told: then only the outer frame is drawn. XMin and XMax must differ.
void PrintAxes(Workspace& data, const PlotLimits& limits, Printer& printer, float left, float top,
               const TellUser& tell);

/// Prints the frame of the drawing on the screen at its place on a page, and what `draw_curves` adds by the
/// transform of the page.
void PrintScreenPlot(const WindowContext& context, const std::function<void(Printer&)>& draw_curves);

/// Prints the permanent copy of CurBuf in the limits of the drawing on the screen.
void PrintProfile(const WindowContext& context);

/// Prints the buffers of these slots, each in its colour, in the limits of the drawing on the screen.
void PrintSeveralProfiles(const WindowContext& context, const std::vector<int>& slots);

}  // namespace koprax
