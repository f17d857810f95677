// Plots and pictures on paper: what is drawn on the page, against numbers worked out by hand or by a plain
// walk over the ticks.
#include "display/plot_printing.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "display/bitmap_printing.h"

namespace koprax {
namespace {

std::string Shown(const DrawingOperation& operation) {
  std::ostringstream words;
  words << std::fixed << std::setprecision(2);
  if (const auto* line = std::get_if<LineOperation>(&operation)) {
    words << "line " << line->X1 << "," << line->Y1 << " " << line->X2 << "," << line->Y2 << " "
          << line->LineColour;
  } else if (const auto* text = std::get_if<TextOperation>(&operation)) {
    words << "text " << text->X << "," << text->Y << " " << text->TextColour << " " << text->Font << " "
          << text->Size << " [" << text->Text << "]";
  }
  return words.str();
}

struct Page {
  Workspace Data;
  Printer Paper;

  explicit Page(std::vector<std::string> fonts, float step = 0.02F) {
    Data.CurBuf = 1;
    Data.Buffer(1).WorkX[2] = step;
    Paper.BeginDocument(210, 297, std::move(fonts));
    Paper.SetScaleMode(PrinterScale::Millimetres);
    Paper.SetOrientation(PageOrientation::Landscape);
  }
  std::vector<std::string> Axes(const PlotLimits& limits) {
    PrintAxes(Data, limits, Paper, 80, 50, [](const Message& message) { ADD_FAILURE() << message.Text; });
    std::vector<std::string> drawn;
    for (const DrawingOperation& operation : Paper.Operations()) drawn.push_back(Shown(operation));
    return drawn;
  }
};

TEST(PlotPrinting, TheFrameStandsOnThePageWithYGrowingDownward) {
  Page page({"SYMBOL", "Times", "Arial", "Courier"});
  // 95 mm for 9.5 degrees, 71.25 mm for 71.25 counts, of which 42.5 lie below 0. The walk along Y starts at
  // the whole part of 1.05 * -42.5 - 20, which is -64: -44 lies outside, -24 is the first tick.
  const std::vector<std::string> expected{"line 80.00,50.00 80.00,140.00 0",
                                          "line 80.00,140.00 195.00,140.00 0",
                                          "line 195.00,140.00 195.00,50.00 0",
                                          "line 195.00,50.00 80.00,50.00 0",
                                          "line 95.00,130.00 190.00,130.00 0",
                                          "line 95.00,130.00 95.00,55.00 0",
                                          "line 95.00,87.50 190.00,87.50 255",
                                          "text 93.00,85.50 255 MS Sans Serif 8.00 [0]",
                                          "line 105.00,129.00 105.00,131.00 0",
                                          "text 102.00,132.00 0 MS Sans Serif 8.00 [5]",
                                          "line 155.00,129.00 155.00,131.00 0",
                                          "text 152.00,132.00 0 MS Sans Serif 8.00 [10]",
                                          "line 94.00,111.50 96.00,111.50 0",
                                          "text 86.00,110.50 0 MS Sans Serif 8.00 [-24]",
                                          "line 94.00,91.50 96.00,91.50 0",
                                          "text 87.00,90.50 0 MS Sans Serif 8.00 [-4]",
                                          "line 94.00,71.50 96.00,71.50 0",
                                          "text 87.00,70.50 0 MS Sans Serif 8.00 [ 16]",
                                          "text 180.00,134.00 0 symbol 10.00 [2q]",
                                          "text 81.00,53.00 0 courier 8.00 [Intensity]",
                                          "text 97.00,53.00 0 courier 8.00 [(counts)]"};
  EXPECT_EQ(page.Axes({.XMin = 4, .XMax = 13.5F, .YMin = -42.5F, .YMax = 28.75F}), expected);
  EXPECT_EQ(page.Data.Buffer(1).NegativeY, 1);
}

TEST(PlotPrinting, TheFontsOfThePrinterDecideOnTheLabels) {
  struct Row {
    std::vector<std::string> Fonts;
    float Step;
    std::string X;
    std::string Y;
  };
  for (const Row& row : {Row{{"times"}, 0.02F, "Times New Roman 8.00 [2-theta]", "Times New Roman"},
                         Row{{"times", "COURIER"}, 0.02F, "courier 8.00 [2-theta]", "courier"},
                         Row{{"symbol", "Arial", "Times"}, 0.02F, "symbol 10.00 [2q]", "arial"},
                         Row{{"Symbol", "Courier New"}, 0.96F, "symbol 10.00 [2q]", "MS Sans Serif"},
                         Row{{"Symbol", "Times"}, 1, "MS Sans Serif 8.00 [Channel]", "Times New Roman"}}) {
    Page page(row.Fonts, row.Step);
    const auto drawn = page.Axes({.XMin = 4, .XMax = 13.5F, .YMin = 0, .YMax = 71.25F});
    EXPECT_EQ(drawn[drawn.size() - 3], "text 180.00,134.00 0 " + row.X);
    EXPECT_EQ(drawn.back(), "text 97.00,53.00 0 " + row.Y + " 8.00 [(counts)]");
  }
}

TEST(BitmapPrinting, FillsThePageThatSuitsTheImageUpToTheScale) {
  struct Row {
    int Width, Height;
    double Scale;
    PageOrientation Turned;
    double FullWidth, FullHeight;  // millimetres
  };
  // A page of 297 x 210 is 1.414 as wide as high, one of 210 x 297 is 0.707.
  for (const Row& row : {Row{465, 361, 0.5, PageOrientation::Landscape, 210 * 465.0 / 361, 210},
                         Row{600, 200, 1, PageOrientation::Landscape, 297, 99},
                         Row{300, 300, 0.25, PageOrientation::Portrait, 210, 210},
                         Row{100, 400, 1, PageOrientation::Portrait, 297 / 4.0, 297},
                         Row{465, 361, 0, PageOrientation::Landscape, 210 * 465.0 / 361, 210}}) {
    Page page({});
    const auto image = std::make_shared<const PixelImage>(PixelImage{row.Width, row.Height, {}});
    PrintBitmap(page.Paper, image, row.Scale);
    EXPECT_EQ(page.Paper.Orientation(), row.Turned);
    const auto& painted = std::get<ImageOperation>(page.Paper.Operations().at(0));
    // The page is held in 32 bits, good for 1e-5 mm.
    EXPECT_NEAR(painted.Width, row.Scale * row.FullWidth, 1e-4);
    EXPECT_NEAR(painted.Height, row.Scale * row.FullHeight, 1e-4);
    EXPECT_NEAR(painted.X, (row.FullWidth - painted.Width) / 2, 1e-4);
    EXPECT_NEAR(painted.Y, (row.FullHeight - painted.Height) / 2, 1e-4);
  }
}

}  // namespace
}  // namespace koprax
