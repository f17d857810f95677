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

const std::vector<std::string> AllFonts{"SYMBOL", "Times", "Arial", "Courier"};

TEST(PlotPrinting, TheFrameStandsOnThePageWithYGrowingDownward) {
  Page page(AllFonts);
  // 95 mm for 9.5 degrees, 71.25 mm for 71.25 counts: a unit is a millimetre times 10, and one millimetre.
  const std::vector<std::string> expected{"line 80.00,50.00 80.00,140.00 0",
                                          "line 80.00,140.00 195.00,140.00 0",
                                          "line 195.00,140.00 195.00,50.00 0",
                                          "line 195.00,50.00 80.00,50.00 0",
                                          "line 95.00,130.00 190.00,130.00 0",
                                          "line 95.00,130.00 95.00,55.00 0",
                                          "line 105.00,129.00 105.00,131.00 0",
                                          "text 102.00,132.00 0 MS Sans Serif 8.00 [5]",
                                          "line 155.00,129.00 155.00,131.00 0",
                                          "text 152.00,132.00 0 MS Sans Serif 8.00 [10]",
                                          "line 94.00,130.00 96.00,130.00 0",
                                          "text 89.00,129.00 0 MS Sans Serif 8.00 [ 0]",
                                          "line 94.00,110.00 96.00,110.00 0",
                                          "text 87.00,109.00 0 MS Sans Serif 8.00 [ 20]",
                                          "line 94.00,90.00 96.00,90.00 0",
                                          "text 87.00,89.00 0 MS Sans Serif 8.00 [ 40]",
                                          "line 94.00,70.00 96.00,70.00 0",
                                          "text 87.00,69.00 0 MS Sans Serif 8.00 [ 60]",
                                          "text 180.00,134.00 0 symbol 10.00 [2q]",
                                          "text 81.00,53.00 0 courier 8.00 [Intensity]",
                                          "text 97.00,53.00 0 courier 8.00 [(counts)]"};
  EXPECT_EQ(page.Axes({.XMin = 4, .XMax = 13.5F, .YMin = 0, .YMax = 71.25F}), expected);
  EXPECT_EQ(page.Data.Buffer(1).NegativeY, 0);
}

TEST(PlotPrinting, ANegativePlotHasItsZeroLineInRed) {
  Page page({"Times"});
  // 71.25 mm for 142.5 counts; 0 stands 42.5 / 2 above the bottom.
  const auto drawn = page.Axes({.XMin = 4, .XMax = 13.5F, .YMin = -42.5F, .YMax = 100});
  EXPECT_EQ(drawn[6], "line 95.00,108.75 190.00,108.75 255");
  EXPECT_EQ(drawn[7], "text 93.00,106.75 255 MS Sans Serif 8.00 [0]");
  // The walk starts at the whole part of 1.05 * -42.5 - 20, which is -64: -44 lies below, -24 is the first
  // tick.
  EXPECT_EQ(drawn[12], "line 94.00,120.75 96.00,120.75 0");
  EXPECT_EQ(drawn[13], "text 86.00,119.75 0 MS Sans Serif 8.00 [-24]");
  EXPECT_EQ(drawn[drawn.size() - 3], "text 180.00,134.00 0 Times New Roman 8.00 [2-theta]");
  EXPECT_EQ(page.Data.Buffer(1).NegativeY, 1);
}

TEST(PlotPrinting, TheFontsOfThePrinterDecideOnTheLabels) {
  struct Row {
    std::vector<std::string> Fonts;
    float Step;
    std::string X;
    std::string Y;
  };
  for (const Row& row : {Row{{"times", "COURIER"}, 0.02F, "courier 8.00 [2-theta]", "courier"},
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
