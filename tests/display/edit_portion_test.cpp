// A portion of a profile as text, and the text as a portion again.
#include "display/edit_portion.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "display/plot_axes.h"

namespace koprax {
namespace {

using Points = std::vector<std::pair<float, float>>;

Points PointsOf(const PointTable& x, const PointTable& y) {
  Points points;
  for (std::size_t k = 1; k <= 4; ++k) points.emplace_back(x[k], y[k]);
  return points;
}

/// Points of buffer a in a plot from 10 to 20 and up to 100: 9.5 units for one of X, 0.7125 for one of Y.
struct Portion {
  explicit Portion(const Points& points) {
    Data.CurBuf = 1;
    ProfileBuffer& buffer = Data.Buffer(1);
    buffer.WorkNpts = static_cast<std::int16_t>(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
      std::tie(buffer.WorkX[i + 1], buffer.WorkY[i + 1]) = points[i];
    }
    buffer.WorkXMin = 10;
    SetPlotScale(Data, {.XMin = 10, .XMax = 20, .YMin = 0, .YMax = 100});
  }
  EditList Fill(float low, float high) {
    Range = *RangeToEdit(Data.Buffer(1), {.Low = low, .High = high});
    EditList list = FillEditList(Data, 1, Range);
    Box = list.Text;
    return list;
  }
  std::optional<int> Apply(EditDrawing drawing) {
    Picture.Cls();
    Lines.clear();
    const auto told = [this](const Message& message) { Told = message.Title; };
    const auto bad_line = ApplyEdit(Data, 1, Range, drawing, Box, Picture, told);
    for (const DrawingOperation& one : Picture.Operations()) Lines.push_back(std::get<LineOperation>(one));
    return bad_line;
  }
  [[nodiscard]] Points New() const { return PointsOf(Data.Edit.EditNewX, Data.Edit.EditNewY); }

  Workspace Data;
  EditRange Range;
  std::string Box;
  Surface Picture{PlotPicture().Scale};
  std::vector<LineOperation> Lines;
  std::string Told;
};

const Points Four{{11, 10}, {12, 40}, {13, 20}, {14, 30}};

TEST(EditPortion, ListsAPointALineWithItsPeriodsInTheirColumns) {
  // The period of X is to stand in column 5, that of Y in column 17; 0.125 lies on its half.
  const Points points{{10, 100}, {10.5F, 0.125F}, {11.25F, 1e6F}, {4096.125F, -2.5F}};
  const EditList list = Portion(points).Fill(1, 1e6);
  EXPECT_EQ(list.Text,
            "  X          Y \r\n  10         100   \r\n  10.5         0.12\r\n"
            "  11.25  1000000   \r\n4096.125      -2.5 \r\n");
  EXPECT_EQ(list.CutNumber, "");
  // A long number stands without its end; without its exponent it means another one, so it is told.
  EXPECT_EQ(Portion({{10, 1.5e7F}, {11, -2.5e8F}}).Fill(10, 11).CutNumber, "1.5E+07");
}

TEST(EditPortion, RunsFromTheFirstPointInTheRangeToTheNextOneAboveIt) {
  Portion portion(Four);
  const auto found = [&](float low, float high) {
    const auto range = RangeToEdit(portion.Data.Buffer(1), {.Low = low, .High = high});
    return range ? std::vector<int>{range->EditFirst, range->EditLast, range->EditCount} : std::vector<int>{};
  };
  EXPECT_EQ(found(11.5F, 13.5F), (std::vector{2, 3, 2}));
  EXPECT_EQ(found(12, 13), (std::vector{2, 3, 2}));  // both ends are in it
  EXPECT_EQ(found(13.5F, 99), (std::vector{4, 4, 1}));
  EXPECT_EQ(found(0, 14), (std::vector{1, 4, 4}));
  for (const auto& [low, high] : Points{{12.1F, 12.9F}, {20, 30}, {1, 2}, {13, 12}}) {
    EXPECT_EQ(found(low, high), std::vector<int>{}) << low;
  }
}

TEST(EditPortion, TheListEndsWhereTheBoxIsFull) {
  Points points;
  for (int i = 0; i < 1000; ++i) points.emplace_back(static_cast<float>(i), 1.0F);
  Portion portion(points);
  // A heading of 17 characters and lines of 21: line 951 ends at 19988, line 952 at 20009.
  EXPECT_FALSE(portion.Fill(0, 950).TooLong);
  EXPECT_TRUE(portion.Fill(0, 999).TooLong);
  EXPECT_EQ(portion.Box.size(), 20009U);
  EXPECT_EQ(portion.Apply(EditDrawing::Changes), std::nullopt);
  EXPECT_EQ(portion.Lines.size(), 999U);  // the points behind the list are shown as they are
  EXPECT_EQ(portion.Apply(EditDrawing::AsChosen), std::nullopt);
  EXPECT_EQ(portion.Box.size(), 17 + 1000 * 21U);
}

TEST(EditPortion, ChangesAreDrawnOverTheCurveAndRubbedOut) {
  Portion portion(Four);
  portion.Fill(12, 99);
  const auto y = [](double value) { return static_cast<float>(15 + static_cast<double>(0.7125F) * value); };
  for (const auto& [drawing, colour] :
       {std::pair(EditDrawing::Changes, 16711935U), {EditDrawing::RubOut, 16777215U}}) {
    portion.Box = "heading\r\n12 50\r\n13 100\r\n14 110\r\n";
    EXPECT_EQ(portion.Apply(drawing), std::nullopt);
    const LineOperation line{39, y(50), 48.5F, y(100), colour};
    EXPECT_EQ(portion.Lines, std::vector{line});  // 110 lies past the top of the plot
  }
  EXPECT_EQ(portion.Apply(EditDrawing::AsChosen), std::nullopt);
  EXPECT_EQ(portion.Lines,
            (std::vector<LineOperation>{{39, y(40), 48.5F, y(20), 0}, {48.5F, y(20), 58, y(30), 0}}));
  EXPECT_EQ(portion.Box.substr(0, 38), "  X          Y \r\n  12          40   \r\n");

  // The zero line of a plot from -50 to 100 lies at 38.75, and 0.475 units are one of Y.
  SetPlotScale(portion.Data, {.XMin = 10, .XMax = 20, .YMin = -50, .YMax = 100});
  EXPECT_EQ(portion.Apply(EditDrawing::AsChosen), std::nullopt);
  EXPECT_NEAR(portion.Lines.at(0).Y1, 38.75 + 0.475 * 40, 1e-5);  // two roundings to 32 bits
}

TEST(EditPortion, EachLineIsForThePointOfItsNumber) {
  const std::vector<std::pair<std::string, Points>> cases{
      {"1 1\r\n", Four},                                                // the heading, whatever it says
      {"\r\n1 2\r\n3,4\r\n5 6", {{1, 2}, {3, 4}, {13, 20}, {14, 30}}},  // no line without its break
      {"h\r\n\r\nx 7\r\n8\ty\r\n", {{0, 0}, {7, 0}, {0, 0}, {14, 30}}},
      {"h\r\n1 1 9\r\n2 2\r\n3 3\r\n4 4\r\n5 1e99\r\n", {{1, 1}, {2, 2}, {3, 3}, {4, 4}}},
      {"h\r\n2 " + std::string(77, ' ') + "9\r\n", {{2, 0}, {12, 40}, {13, 20}, {14, 30}}},
  };
  for (const auto& [box, expected] : cases) {
    Portion portion(Four);
    portion.Data.Edit.EditNewY[4] = 777;  // of an earlier portion
    portion.Fill(11, 14);
    portion.Box = box;
    EXPECT_EQ(portion.Apply(EditDrawing::Changes), std::nullopt) << box;
    EXPECT_EQ(portion.New(), expected) << box;
  }
}

TEST(EditPortion, ANumberBeyond32BitsIsFoundBeforeAnythingIsTaken) {
  Portion portion(Four);
  portion.Fill(11, 14);
  portion.Box = "h\r\n1 1\r\n2 -1e39\r\n3 3\r\n";
  EXPECT_EQ(portion.Apply(EditDrawing::Changes), 3);
  EXPECT_EQ(portion.New(), Four);
  EXPECT_TRUE(portion.Lines.empty());
  EXPECT_EQ(portion.Apply(EditDrawing::RubOut), 3);
  EXPECT_EQ(portion.Lines.size(), 3U);  // of what was drawn before

  portion.Box = "h\r\n1 1\r\n3e38 -3e38\r\n";  // fits, but has no place on the picture
  EXPECT_EQ(portion.Apply(EditDrawing::Changes), std::nullopt);
  EXPECT_EQ(portion.Lines.size(), 1U);
  portion.Box = "h\r\n1 2 3 4 5 6 7 8 9 1 2 3 4 5 6 7 8 9 1 2 3 4 5 6 7\r\n";
  EXPECT_EQ(portion.Apply(EditDrawing::Changes), std::nullopt);
  EXPECT_EQ(portion.Told, "Truncated");
}

TEST(EditPortion, OneYForAllIsListedAndAccepted) {
  Portion portion(Four);
  portion.Fill(12, 13);
  EXPECT_EQ(ChangeAllY(portion.Data, 1, portion.Range, -12345678).Text,
            " X        Y \r\n  12     -1.234568E+07\r\n  13     -1.234568E+07\r\n");
  EXPECT_EQ(portion.Data.Edit.EditY[1], 40);  // as it was chosen
  ProfileBuffer& buffer = portion.Data.Buffer(1);
  AcceptEdit(portion.Data, 1, portion.Range);
  EXPECT_EQ(PointsOf(buffer.WorkX, buffer.WorkY),
            (Points{{11, 10}, {12, -12345678}, {13, -12345678}, {14, 30}}));
  // A profile that has become shorter meanwhile gets no point behind its end, and draws none.
  buffer.WorkNpts = 2;
  portion.Data.Edit.EditNewY[2] = 5;
  AcceptEdit(portion.Data, 1, portion.Range);
  EXPECT_EQ(buffer.WorkY[3], -12345678);
  EXPECT_EQ(portion.Apply(EditDrawing::AsChosen), std::nullopt);
  EXPECT_TRUE(portion.Lines.empty());
}

}  // namespace
}  // namespace koprax
