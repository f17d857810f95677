#include "fit/parameter_printing.h"

#include <array>
#include <cstddef>
#include <string>

#include "display/plot_printing.h"
#include "fit/fit_parameters.h"
#include "fit/peak_quantities.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

// Twips and points. A character of a column is as wide as those of a fixed-pitch font of this size, so that
// in no font a number reaches into the next column; the eight columns then want a landscape page.
constexpr float FirstLine = 200;
constexpr float LetterSize = 10;
constexpr double CharacterWidth = 120;

constexpr std::array<int, 8> PeakColumns{1, 16, 31, 46, 61, 76, 91, 105};
constexpr std::array<int, 4> CoefficientColumns{1, 21, 41, 61};
constexpr int ScaleFactorColumn = 2;

/// A number behind a name on the line, as it is printed by itself: with a blank in front unless it is
/// negative.
std::string Named(const std::string& name, float number) {
  return name + (number < 0 ? "" : " ") + GeneralText(number);
}

/// One line: each text or number at its column.
template <class Value, std::size_t Count>
void PrintLine(Printer& printer, const std::array<int, Count>& columns,
               const std::array<Value, Count>& values) {
  const double y = printer.CurrentY;
  for (std::size_t i = 0; i < Count; ++i) {
    printer.MoveTo((columns[i] - 1) * CharacterWidth, y);
    printer.Print(values[i]);
  }
}

void PrintPeak(Printer& printer, const PeakFit& fit, int peak) {
  const auto rounded = [&](PeakParameter parameter, int decimals) {
    return RoundDecimals(fit.FitParam[NumberOf(peak, parameter)], decimals);
  };
  PrintLine(printer, PeakColumns,
            std::array{rounded(PeakParameter::Position, 4), rounded(PeakParameter::Intensity, 2),
                       RoundDecimals(PeakArea(fit, peak), 3), rounded(PeakParameter::WidthLeft, 4),
                       rounded(PeakParameter::WidthRight, 4), RoundDecimals(PeakWidth(fit, peak), 3),
                       rounded(PeakParameter::EtaLeft, 4), rounded(PeakParameter::EtaRight, 4)});
}

void PrintBackground(Printer& printer, const PeakFit& fit) {
  if (!fit.FitPolyBackground) {
    const std::array columns{ScaleFactorColumn};
    PrintLine(printer, columns, std::array<std::string, 1>{"Scale factor for background"});
    PrintLine(printer, columns, std::array{Named(" SF = ", fit.FitParam[ScaleFactor])});
    return;
  }
  printer.Print("Calculated background Y=A + BX + CX^2 + DX^3");
  const auto coefficient = [&](const std::string& name, std::size_t number) {
    return Named(name + " = ", RoundDecimals(fit.FitParam[number], 5));
  };
  PrintLine(printer, CoefficientColumns,
            std::array{coefficient("A", ConstantTerm), coefficient("B", LinearTerm),
                       coefficient("C", QuadraticTerm), coefficient("D", CubicTerm)});
}

}  // namespace

void PrintParameters(const WindowContext& context) {
  PrintCopies(context, [&](Printer& printer) {
    const PeakFit& fit = context.Data.Fit;
    printer.SetOrientation(PageOrientation::Landscape);
    printer.FontSize = LetterSize;
    printer.MoveTo(0, FirstLine);
    PrintLine(printer, PeakColumns,
              std::array<std::string, 8>{"Position", "Intensity", "   Area", "FWHM (left)", "FWHM (right)",
                                         "FWHM  ", "Eta (left)", "Eta (right)"});
    for (int peak = 1; peak <= fit.FitPeakCount; ++peak) {
      PrintPeak(printer, fit, peak);
    }
    printer.Print("");
    PrintBackground(printer, fit);
  });
}

}  // namespace koprax
