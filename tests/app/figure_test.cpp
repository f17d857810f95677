// A figure's way from the answers of a script to its scale and size; and the lists that can be copied.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "app/figure_layout.h"
#include "app/figure_reading.h"
#include "app/window_walk.h"
#include "forms/table_text.h"

namespace koprax {
namespace {

using testing::HasSubstr;

class FigureTest : public testing::Test {
 protected:
  /// The picture that is meant among answers, or the reason why there is none as its name.
  static ReadPicture Read(const std::string& answers, const PictureChoice& choice = {}) {
    auto read = ReadPictureAnswer(answers, choice);
    auto* picture = std::get_if<ReadPicture>(&read);
    return picture != nullptr ? *picture : ReadPicture{.Name = std::get<std::string>(read)};
  }
  std::string WhyNoLayout(const ReadPicture& picture, const FigureWishes& wishes = {}) {
    auto layout = LayOutFigure(picture, wishes, windows_);
    auto* reason = std::get_if<std::string>(&layout);
    return reason == nullptr ? "" : *reason;
  }
  FigureLayout LayOut(const ReadPicture& picture, const FigureWishes& wishes = {}) {
    auto layout = LayOutFigure(picture, wishes, windows_);
    EXPECT_EQ(WhyNoLayout(picture, wishes), "");
    return std::get<FigureLayout>(layout);
  }

  MemoryPlatform platform_;
  ScriptedRuntime runtime_{platform_};
  Workbench bench_{runtime_};
  std::vector<std::shared_ptr<const Form>> windows_ = bench_.WindowsWithPictures();
};

std::string Answer(int line, const std::string& command, const std::string& value) {
  return R"({"line":)" + std::to_string(line) + R"(,"command":")" + command + R"(","ok":true,"value":)" +
         value + "}\n";
}
std::string Point(int x, int y) {
  return R"({"op":"point","x":)" + std::to_string(x) + R"(,"y":)" + std::to_string(y) + R"(,"colour":255})";
}

TEST_F(FigureTest, OperationsComeBackAsTheyWereWritten) {
  const std::vector<DrawingOperation> drawn{
      LineOperation{0.1F, -2.5E-8F, 3, 4, colours::White}, PointOperation{1, 2, colours::Red},
      TextOperation{7, 8, "q \"θ\"\x01", colours::Black, "symbol", 12.5F}};
  const auto read = OperationsOfJson(Json::parse(JsonLine(JsonOfOperations(drawn))));
  EXPECT_EQ(std::get<OperationsRead>(read).Operations, drawn);
  const auto image = OperationsOfJson(Json::parse(R"([{"op":"image","x":1,"y":2,"width":3,"height":-4}])"));
  EXPECT_EQ(std::get<OperationsRead>(image).Images, 1);
  EXPECT_EQ(std::get<OperationsRead>(image).Operations.size(), 4U) << "a frame";
}

TEST_F(FigureTest, WhatIsNoOperationIsTold) {
  const std::pair<const char*, const char*> cases[] = {
      {"{}", "no answer"},
      {"[1", "line 1 is no answer"},
      {"[[[[", "line 1 is no answer"},
      {"[1]", "operation 1: it is no object"},
      {R"([{"op":"circle"}])", "there is no op \"circle\""},
      {R"([{"op":"point","x":null,"y":0,"colour":0}])", "x is no number that 32 bits hold"},
      {R"([{"op":"point","x":0,"y":-1e39,"colour":0}])", "y is no number that 32 bits hold"},
      {R"([{"op":"point","x":0,"y":0,"colour":16777216}])", "colour is no whole number"},
      {R"([{"op":"point","x":0,"y":0,"colour":0},{"op":"point","x":0,"colour":0}])",
       "operation 2: y is missing"},
      {R"([{"op":"text","x":0,"y":0,"text":1,"colour":0,"font":"a","size":8}])", "text is no text"},
      {R"([{"op":"text","x":0,"y":0,"text":"","colour":0,"font":"a","size":-8}])", "size is no font size"},
      {"", "there is no answer to a command \"picture\""},
      {"{\"line\":0,\"command\":\"\",\"ok\":true}\nnonsense", "line 2 is no answer"},
      {R"({"line":1,"command":"picture Form6.Picture1","ok":false,"error":"Form6 is not loaded"})",
       "failed: Form6 is not loaded"}};
  for (const auto& [text, reason] : cases) EXPECT_THAT(Read(text).Name, HasSubstr(reason)) << text;
}

TEST_F(FigureTest, TheLastPictureOrTheChosenOneIsTaken) {
  const std::string answers = Answer(0, "", "null") +
                              Answer(1, "picture Form6.Picture1", "[" + Point(1, 1) + "]") +
                              Answer(2, "  picture  Form6.Picture1", "[]") + "\n" +
                              Answer(4, "modal picture Form15.Picture1", "[]") + Answer(5, "forms", "[]");
  EXPECT_EQ(Read(answers).Name, "Form15.Picture1");
  EXPECT_EQ(Read(answers, {.Name = "Form6.Picture1"}).Drawn.Operations.size(), 0U);
  EXPECT_EQ(Read(answers, {.Line = 1}).Drawn.Operations.size(), 1U);
  EXPECT_THAT(Read(answers, {.Name = "Printer", .Line = 4}).Name, HasSubstr("\"picture Printer\" in line 4"));
  EXPECT_EQ(Read("[\n" + Point(1, 2) + "\n]", {.Name = "Form6.Picture1"}).Name, "Form6.Picture1");
}

TEST_F(FigureTest, EachPictureOfTheWorkbenchHasTheScaleOfItsWindow) {
  int pictures = 0;
  WindowWalk().VisitWindows([&](const Form& form) {
    for (const Control* control : form.Controls()) {
      if (const auto* picture = dynamic_cast<const PictureBox*>(control)) {
        const FigureLayout layout = LayOut({.Name = form.Name() + "." + picture->Name()});
        EXPECT_EQ(layout.Scale, picture->Scale()) << form.Name();
        EXPECT_EQ(layout.Size.Width, picture->DesignWidth);
        EXPECT_EQ(layout.Size.Height, picture->DesignHeight);
        ++pictures;
      }
    }
  });
  EXPECT_GE(pictures, 14);
}

TEST_F(FigureTest, ThePageOfThePrinterIsTheNearestThatIsTold) {
  const std::string twips = R"({"ScaleMode":1,"ScaleWidth":11905.5,"ScaleHeight":16837.8})";
  const std::string millimetres = R"({"ScaleMode":6,"ScaleWidth":297,"ScaleHeight":210})";
  const std::string list = Answer(3, "picture Printer", "[" + Point(500, 500) + "]");
  const auto width = [&](const std::string& answers) { return LayOut(Read(answers)).Size.Width; };
  const std::string both_sides = Answer(1, "get Printer", millimetres) + Answer(2, "forms", "[]") + list +
                                 Answer(4, "get Printer", twips);
  EXPECT_NEAR(width(both_sides), 210, 0.01) << "a twip is 1/1440 inch, rounded to a tenth";
  EXPECT_NEAR(width(Answer(1, "get Printer", twips) + list), 210, 0.01);
  EXPECT_EQ(width(Answer(1, "picture Printer", "[" + Point(200, 100) + "]")), 297);
  EXPECT_THAT(WhyNoLayout(Read(list)), HasSubstr("get Printer"));
}

TEST_F(FigureTest, ScaleAndSizeAreTheToldOnes) {
  const ReadPicture plot{.Name = "Form6.Picture1"};
  const FigureLayout whole = LayOut(plot);
  const FigureLayout part = LayOut(plot, {.Scale = FigureScaleOf("20,90,61.515,-47.755")});
  EXPECT_NEAR(part.Size.Width, whole.Size.Width / 2, 1E-4) << "32 bits";
  EXPECT_NEAR(part.Size.Height, whole.Size.Height / 2, 1E-4);
  EXPECT_EQ(part.Scale.UnitsPerPoint, whole.Scale.UnitsPerPoint);
  EXPECT_EQ(LayOut(plot, {.Size = FigureSizeOf("60x40.5")}).Size.Height, 40.5);

  const ReadPicture bare{.Drawn = {.Operations = {PointOperation{5, 5, 0}}}};
  const FigureLayout twips =
      LayOut(bare, {.Scale = FigureScaleOf("0,0,1440,-2880"), .Size = FigureSizeOf("25.4x50.8")});
  EXPECT_NEAR(twips.Scale.UnitsPerPoint, 20, 1E-9) << "letters of their size in points";
  EXPECT_EQ(LayOut(bare, {.Scale = FigureScaleOf("0,0,50,-30")}).Size.Height, 30) << "millimetres";
  EXPECT_THAT(WhyNoLayout(bare), HasSubstr("--picture"));
  EXPECT_THAT(WhyNoLayout({.Name = "Form6.Picture3"}), HasSubstr("Form6.Picture1"));
  EXPECT_THAT(WhyNoLayout(bare, {.Scale = FigureScaleOf("0,0,1e-3,1e-3")}), HasSubstr("--size"));
  EXPECT_THAT(WhyNoLayout(bare, {.Scale = FigureScaleOf("0,0,1e-3,1"), .Size = FigureSizeOf("10x10")}),
              HasSubstr("operation 1 lies"));

  for (const char* text :
       {"", "60", "60x", "x60", "60x0", "0.9x60", "60x5001", "nanx60", "1e999x60", "60x60x60", " 60x60"})
    EXPECT_FALSE(FigureSizeOf(text)) << text;
  for (const char* text :
       {"", "1,2,3", "1,2,0,4", "1,2,3,0", "1,2,3,4,5", "1,2,inf,4", "1,2,3,1e10", "1,2,3,1e-30"})
    EXPECT_FALSE(FigureScaleOf(text)) << text;
  EXPECT_FALSE(WhyTooManyDots({.Width = 1000, .Height = 700}, 300));
  EXPECT_THAT(*WhyTooManyDots({.Width = 5000, .Height = 1}, 300), HasSubstr("59055 x 12 dots"));
  EXPECT_TRUE(WhyTooManyDots({.Width = 500, .Height = 500}, 1200));
  EXPECT_TRUE(WhyTooManyDots({.Width = 1, .Height = 100}, 10));
}

TEST(Lists, AreAllThatHoldTablesAndLoseNoLetterWhenTheyAreCopied) {
  std::set<std::string> lists;
  WindowWalk().VisitWindows([&](const Form& form) {
    for (const Control* control : form.Controls()) {
      const auto* box = dynamic_cast<const TextBox*>(control);
      if (box == nullptr || !HoldsTable(*box)) continue;
      lists.insert(form.Name() + "." + box->FullName());
      std::string copied;
      for (const std::string& row : TabSeparatedRows(box->Text.Get())) copied += row;
      std::string shown = box->Text;
      const auto is_gap = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
      std::erase_if(copied, is_gap);
      std::erase_if(shown, is_gap);
      EXPECT_EQ(copied, shown) << *lists.rbegin();
    }
  });
  EXPECT_THAT(lists, testing::ElementsAre("Form23.Text1", "Form23.Text2", "Form24.Text10", "Form24.Text9",
                                          "Form25.Text1", "Form26.Text14", "Form26.Text23", "Form28.Text1",
                                          "Form34.Text14", "Form4.Text1", "Form6.Text17", "Form6.Text8"));
}

}  // namespace
}  // namespace koprax
