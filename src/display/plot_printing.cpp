#include "display/plot_printing.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "display/curve.h"
#include "display/plot_axes.h"
#include "forms/desktop.h"

namespace koprax {

namespace {

constexpr double LargestDegreeStep = 0.97;  // a larger step is one of channels
constexpr float PlotLeftOnPage = 80;        // millimetres
constexpr float PlotTopOnPage = 50;

PlotPlace PaperPlace(float left, float top) {
  return {.FrameLeft = left,
          .FrameBottom = top,
          .FrameRight = left + 115,
          .FrameTop = top + 90,
          .PlotLeft = left + 15,
          .PlotBottom = top + 80,
          .PlotRight = left + 110,
          .PlotTop = top + 5,
          .Upward = -1};
}

bool SameName(std::string_view left, std::string_view right) {
  const auto lower = [](unsigned char letter) { return std::tolower(letter); };
  return std::ranges::equal(left, right, {}, lower, lower);
}

bool HasFont(const Printer& printer, std::string_view name) {
  return std::ranges::any_of(printer.Fonts(), [&](const std::string& font) { return SameName(font, name); });
}

/// The font of the labels: of those that the printer has, the last one in this list.
std::optional<std::string> BodyFont(const Printer& printer) {
  std::optional<std::string> body;
  if (HasFont(printer, "Times")) body = "Times New Roman";
  if (HasFont(printer, "Arial")) body = "arial";
  if (HasFont(printer, "Courier")) body = "courier";
  return body;
}

void SetFont(Printer& printer, const std::string& name, float size) {
  printer.FontName = name;
  printer.FontSize = size;
}

void PrintLabels(const PlotTransform& plot, bool channels, Printer& printer) {
  // A printer without any of the body fonts goes on in the font of before, never in Greek.
  const std::string body = BodyFont(printer).value_or(printer.FontName);
  printer.MoveTo(plot.FrameRight - 15, plot.FrameTop - 6);
  if (channels) {
    printer.Print("Channel");
  } else if (HasFont(printer, SymbolFont)) {
    SetFont(printer, std::string(SymbolFont), 10);
    printer.Print("2q");
  } else {
    SetFont(printer, body, 8);
    printer.Print("2-theta");
  }
  SetFont(printer, body, 8);
  printer.MoveTo(plot.FrameLeft + 1, plot.FrameBottom + 3);
  printer.Print("Intensity");
  printer.MoveTo(plot.FrameLeft + 17, plot.FrameBottom + 3);
  printer.Print("(counts)");
}

void DrawPermanentCopy(const Workspace& data, const ProfileBuffer& buffer, Printer& printer) {
  const PlotTransform& plot = data.Plot;
  const CurveOrigin origin{.XMin = data.PlotXMin,
                           .Base = PlotBase(plot, ReachesBelowZero(LimitsOfDrawing(data)))};
  DrawSegments(plot, {buffer.PermX, buffer.PermY, buffer.PermNpts}, origin, colours::Black, printer,
               [&](const CurveSegment& segment) {
                 return !(segment.X2 < data.PlotXMin || segment.X1 > data.PlotXMax) &&
                        StaysBelowTop(plot, segment);
               });
}

void DrawWholeProfile(const Workspace& data, const ProfileBuffer& buffer, Printer& printer) {
  const CurveOrigin origin{.XMin = data.PlotXMin,
                           .Base = PlotBase(data.Plot, ReachesBelowZero(LimitsOfDrawing(data)))};
  DrawSegments(data.Plot, {buffer.PermX, buffer.WorkY, buffer.WorkNpts}, origin,
               static_cast<Colour>(buffer.BufColor), printer, [](const CurveSegment&) { return true; });
}

/// False where the printer doesn't take the document, which is told.
bool PrintDocument(const WindowContext& context, Printer& printer) {
  Runtime& host = context.Desk.Host();
  const auto failure = host.PrintDocument(printer);
  if (failure) {
    host.MsgBox(ErrorMessage("The page could not be printed: " + *failure +
                             ".\r\nCheck the printer, or the place of the file, and print again."));
  }
  return !failure;
}

}  // namespace

void PrintPage(const WindowContext& context, const std::function<void(Printer&)>& draw) {
  Printer& printer = context.Desk.ThePrinter();
  if (context.Desk.Host().PrinterDialog(printer)) {
    draw(printer);
    (void)PrintDocument(context, printer);
  }
}

void PrintCopies(const WindowContext& context, const std::function<void(Printer&)>& draw) {
  Printer& printer = context.Desk.ThePrinter();
  if (!context.Desk.Host().PrinterDialog(printer)) {
    return;
  }
  draw(printer);
  bool printed = true;
  for (int copy = 1; printed && copy <= printer.Copies; ++copy) {
    printed = PrintDocument(context, printer);
  }
}

void PrintPlotPage(const WindowContext& context, const std::function<void(Printer&)>& draw) {
  PrintPage(context, [&](Printer& printer) {
    printer.SetScaleMode(PrinterScale::Millimetres);
    printer.SetOrientation(PageOrientation::Landscape);
    Workspace& data = context.Data;
    const PlotTransform plot_on_screen = data.Plot;
    const std::int16_t negative_on_screen = data.Current().NegativeY;
    draw(printer);
    data.Plot = plot_on_screen;
    data.Current().NegativeY = negative_on_screen;
  });
}

void PrintAxes(Workspace& data, const PlotLimits& limits, Printer& printer, float left, float top,
               const TellUser& tell) {
  if (!DrawAxes(data, limits, printer, PaperPlace(left, top))) {
    tell(NoYSpan("Reurn"));
    return;
  }
  const ProfileBuffer& buffer = data.Current();
  PrintLabels(data.Plot, buffer.WorkX[2] - buffer.WorkX[1] > LargestDegreeStep, printer);
}

void PrintScreenPlot(const WindowContext& context, const std::function<void(Printer&)>& draw_curves) {
  PrintPlotPage(context, [&](Printer& printer) {
    PrintAxes(context.Data, LimitsOfDrawing(context.Data), printer, PlotLeftOnPage, PlotTopOnPage,
              [&](const Message& message) { context.Desk.Host().MsgBox(message); });
    draw_curves(printer);
  });
}

void PrintProfile(const WindowContext& context) {
  PrintScreenPlot(
      context, [&](Printer& printer) { DrawPermanentCopy(context.Data, context.Data.Current(), printer); });
}

void PrintSeveralProfiles(const WindowContext& context, const std::vector<int>& slots) {
  const Workspace& data = context.Data;
  PrintScreenPlot(context, [&](Printer& printer) {
    for (const int slot : slots) {
      DrawWholeProfile(data, data.Buffer(slot), printer);
    }
  });
}

}  // namespace koprax
