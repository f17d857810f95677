#include "cards/card_printing.h"

#include <array>
#include <cstddef>
#include <string>

#include "cards/card_table.h"
#include "display/curve.h"
#include "display/plot_printing.h"
#include "forms/desktop.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

// Millimetres on the page.
constexpr float PlotLeftOnPage = 20;
constexpr float PlotTopOnPage = 30;
constexpr double CellColumn = 145;

void PrintAt(Printer& printer, double x, double y, const std::string& text) {
  printer.MoveTo(x, y);
  printer.Print(text);
}

/// The value and a blank behind it; one that the card lacks leaves as many blanks as it may take.
std::string ValueOrBlanks(float value, std::size_t blanks) {
  return value == 0 ? std::string(blanks, ' ') : GeneralText(value) + " ";
}

void PrintPattern(const WindowContext& context, const PlotLimits& limits, Printer& printer) {
  const ProfileBuffer& card = context.Data.Current();
  PrintAxes(context.Data, limits, printer, PlotLeftOnPage, PlotTopOnPage,
            [&](const Message& message) { context.Desk.Host().MsgBox(message); });
  const PlotTransform& plot = context.Data.Plot;
  DrawSticks(plot, {card.PermX, card.PermY, card.PermNpts},
             {.XMin = limits.XMin, .Base = PlotBase(plot, card.NegativeY == 1)},
             {.Low = limits.XMin, .High = limits.XMax}, printer.ForeColor, printer);
}

void PrintCrystalData(const ProfileBuffer& card, Printer& printer) {
  struct CellLine {
    const char* Length;
    const char* Angle;
  };
  constexpr std::array<CellLine, 3> lines{{{"a = ", "alpha = "}, {"b = ", "beta  = "}, {"c = ", "gamma = "}}};
  PrintAt(printer, CellColumn, 40, "Crystal Data");
  for (std::size_t k = 0; k < lines.size(); ++k) {
    PrintAt(printer, CellColumn, 45 + 5 * static_cast<double>(k),
            lines[k].Length + ValueOrBlanks(card.CardCell[k + 1], 10) + lines[k].Angle +
                ValueOrBlanks(card.CardCell[k + 4], 7));
  }
  if (!card.CardSpaceGroup.empty()) {
    PrintAt(printer, CellColumn, 60, "SpaceGroup = " + card.CardSpaceGroup);
  }
  if (card.Wavelength != 0) {
    PrintAt(printer, CellColumn, 65, "Wave length =" + GeneralText(card.Wavelength));
  }
}

void PrintReflections(const ProfileBuffer& card, Printer& printer) {
  PrintAt(printer, 10, 130, PrintedCardHeading());
  printer.MoveTo(0, 135);
  for (const std::string& row : PrintedCardRows(card)) {
    printer.Print(row);
  }
}

}  // namespace

void PrintCard(const WindowContext& context, const PlotLimits& limits) {
  PrintPlotPage(context, [&](Printer& printer) {
    const ProfileBuffer& card = context.Data.Current();
    printer.FontName = "Helvetica-narrow";
    PrintAt(printer, 30, 25, card.Title);
    PrintPattern(context, limits, printer);
    PrintCrystalData(card, printer);
    PrintReflections(card, printer);
  });
}

}  // namespace koprax
