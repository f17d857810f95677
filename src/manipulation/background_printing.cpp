#include "manipulation/background_printing.h"

#include "display/plot_printing.h"
#include "forms/printer.h"

namespace koprax {

void PrintBackgroundPlot(const WindowContext& context, const ProfileColours& colours) {
  PrintScreenPlot(context, [&data = context.Data, &colours](Printer& printer) {
    const ProfileBuffer& buffer = data.Current();
    // The printed frame has just set NegativeY.
    const CurveOrigin origin{.XMin = data.PlotXMin, .Base = PlotBase(data.Plot, buffer.NegativeY == 1)};
    DrawDashedCurve(data.Plot, {buffer.PermX, data.BackgroundY, buffer.WorkNpts}, origin, colours.Background,
                    printer);
    DrawWholeCurve(data.Plot, {buffer.PermX, buffer.WorkY, buffer.WorkNpts}, origin, colours.Profile,
                   printer);
  });
}

}  // namespace koprax
