// The Cell refinement window, played from the list to the refined cell: what shows and is live at each step,
// what is asked and told, what is drawn. The numbers of the cell are tested beside its computing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "app/journey.h"
#include "cell/known_cell.h"
#include "forms/number_text.h"

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr double Wavelength = 1.5406;
constexpr double SiliconA = 5.4309;
const std::vector<std::vector<int>> Lines{{1, 1, 1}, {2, 2, 0}, {3, 1, 1}, {4, 0, 0}, {3, 3, 1}, {4, 2, 2}};

/// Bragg's law for a cubic cell.
double TwoThetaOfLine(const std::vector<int>& line) {
  const double order = std::hypot(line[0], line[1], line[2]);
  return 2 * std::asin(Wavelength * order / (2 * SiliconA)) / Degree;
}

/// The lines as a list, each less intense than the one before.
std::string SiliconList(double zero_error = 0) {
  std::string list;
  for (std::size_t i = 0; i < Lines.size(); ++i) {
    list += " " + RoundedText(TwoThetaOfLine(Lines[i]) + zero_error, 3) + "  " +
            std::to_string(500 - 50 * i) + "  1.5\r\n";
  }
  return list;
}

class Cell : public Journey {
 protected:
  void Start(const std::string& list, const std::string& wavelength = "1.5406") {
    Load('b', "10 5\r\n20 7\r\n30 5\r\n", wavelength);
    Play("close Form6\ninput \"Y\"\n" + FileAnswer(File("list.pks", list)) +
         "click Form1.cmdRefineCell\nclick Form27.optB\nclick Form28.cmdOK\n");
  }
  /// Types into the boxes, "Text6=5.4 Text8=7".
  void Type(const std::string& texts) {
    std::istringstream words(texts);
    for (std::string word; words >> word;) {
      const auto equals = word.find('=');
      Play("set Form26." + word.substr(0, equals) + " \"" + word.substr(equals + 1) + "\"\n");
    }
  }
  void TakeCell(const std::string& system, const std::string& texts) {
    Play("set Form26.Combo2 \"" + system + "\"\nclick Form26.Command2\n");
    Type(texts);
    Click("Form26.Command1");
  }
  /// A click into the picture where a position stands; what the user is told.
  std::string Press(double x) {
    const Json events = Events("down Form26.Picture1 left " + RoundedText(PictureX(x), 4) + " 30\n");
    return events.empty() || events.back()["event"] != "message" ? "" : events.back()["text"];
  }
  double PictureX(double x) {
    const auto limit = [&](const char* box) {
      return std::stod(Get(std::string("Form26.") + box + ".Text").get<std::string>().substr(7));
    };
    return 13 + (x - limit("Text2")) * 99 / (limit("Text3") - limit("Text2"));
  }
  void Index(double x, const std::vector<int>& hkl) {
    Press(x);
    Type("Text18=" + std::to_string(hkl[0]) + " Text19=" + std::to_string(hkl[1]) +
         " Text20=" + std::to_string(hkl[2]));
    Click("Form26.Command4 Form26.cmdAccept");
  }
  /// The frames that are on show, by their numbers.
  std::string Frames() {
    std::string frames;
    for (const char* number : {"1", "2", "3", "4", "5"}) {
      if (Get(std::string("Form26.Frame") + number + ".Visible")) frames += number;
    }
    return frames;
  }
  std::string Told(const std::string& clicks) {
    const auto words = After(clicks);
    return words.empty() ? "" : words.front();
  }
  Json LastDrawn() { return Value("picture Form26.Picture1").back(); }
};

TEST_F(Cell, TakesAListOverItsIndicesToARefinedCell) {
  Start(SiliconList(0.04));
  EXPECT_THAT(Value("forms"), testing::Contains("Form26"));
  EXPECT_EQ(Values("CellFormat(b) CurBuf ModeCell CalCancelled"), Json({0, 2, 0, 0}));
  EXPECT_EQ(Get("Form26.Text2.Text"), "xmin = 23.483");
  EXPECT_EQ(Get("Form26.Text3.Text"), "xmax = 93.071");
  EXPECT_EQ(Get("Form26.Text1.Text"), "  l = 1.5406");
  // The last line at half of the highest one; 28.5 units of the picture for 120.
  EXPECT_NEAR(LastDrawn()["x1"], PictureX(88.071), 1e-3);
  EXPECT_NEAR(LastDrawn()["y2"], 10 + 50 * 28.5 / 120, 1e-4);
  EXPECT_EQ(LastDrawn()["colour"], 255);
  EXPECT_EQ(Frames(), "1");
  EXPECT_EQ(Press(47.3), "");  // no cell yet
  EXPECT_EQ(Get("Form26.Text15.Text"), "");
  ExpectTips("Form26.Picture1", {{"forms\n", "boxes"}});

  TakeCell("Cubic", "Text6=5.5");
  EXPECT_EQ(Frames(), "124");
  ExpectTips("Form26.Picture1", {{"forms\n", "\"Accept\""}});
  EXPECT_NE(Refusal("click Form26.Command2"), "");
  Type("Text16=28 Text17=29");
  EXPECT_TRUE(PressEnter("Form26", "Text16"));
  EXPECT_EQ(Get("Form26.Text14.Text"), "  28.078   1   1   1\r\n");

  Press(47.9);  // the nearest is the second line
  EXPECT_EQ(Get("Form26.Text15.Text"), " 47.343");
  EXPECT_EQ(LastDrawn()["colour"], 16711680);
  EXPECT_NEAR(LastDrawn()["y2"], 10 + 90 * 28.5 / 120, 1e-4);
  const Json blue = LastDrawn();
  EXPECT_TRUE(PressEscape("Form26"));
  EXPECT_EQ(LastDrawn()["colour"], 255);
  EXPECT_EQ(LastDrawn()["x1"], blue["x1"]);
  Move("Form26", "200 0");
  EXPECT_EQ(Values("Form26.Text4.Text Form26.Text5.Text Form26.Text13.Text"),
            Json({"x = 93.071", "y = 0", ""}));
  EXPECT_EQ(Get("Form26.Text22.Text"), "0");
  for (const auto& line : Lines) Index(TwoThetaOfLine(line), line);
  EXPECT_EQ(Get("Form26.Text22.Text"), "6");
  // Of the approximate cell, by Bragg's law; the triplet (20 0 0) has no position.
  const double expected = 2 * std::asin(Wavelength * std::sqrt(24.0) / 11) / Degree;
  EXPECT_NEAR(std::stod(Get("Form26.Text21.Text").get<std::string>()), expected, 0.001);
  const Json calculated = Get("Form26.Text21.Text");
  Type("Text18=20");
  EXPECT_TRUE(PressEnter("Form26", "Text18"));
  EXPECT_EQ(Get("Form26.Text21.Text"), calculated);

  Click("Form26.Command5");
  EXPECT_EQ(Frames(), "125");
  ExpectTips("Form26.Picture1", {{"forms\n", "boxes"}});
  const Json drawn = LastDrawn();
  Press(47.3);
  EXPECT_EQ(LastDrawn(), drawn);
  for (int cycle = 0; cycle < 4; ++cycle) Click("Form26.cmdOptimize");
  const std::string text = Get("Form26.Text23.Text");
  const auto number_behind = [&](const std::string& label) {
    return std::stod(text.substr(text.find(label) + label.size()));
  };
  // The list is rounded to 0.001 degrees.
  EXPECT_NEAR(number_behind("   a   = "), SiliconA, 2e-4);
  EXPECT_NEAR(number_behind("Zero correction (2-theta) = "), 0.04, 1.5e-3);
  Click("Form1.cmdRefineCell");
  EXPECT_THAT(After("Form26.Command3"), ElementsAre("front Form26", "unloaded Form27", "unloaded Form26"));
  EXPECT_EQ(Value("state ModeCell"), 0);
  EXPECT_EQ(Data().Buffer(2).Wavelength, 1.5406F);
}

TEST_F(Cell, WithoutAListLeavesNoTrace) {
  Load('b', "10 5\r\n20 7\r\n30 5\r\n");
  const std::string start = "click Form1.cmdRefineCell\nclick Form27.optB\n";
  const std::string file = FileAnswer(File("list.pks", SiliconList()));
  const std::vector<std::vector<std::string>> ways{
      {"input \"n\"\n", "", "0"},
      {"input \"yes\"\n", "", "0"},
      {"input \"y\"\nfile \"/nowhere/a.pks\"\n", "", "0"},
      {"input cancel\n", "", "0"},
      {"input \"y\"\nfile cancel\n", "", "0"},
      {"input \"y\"\nfile \"\"\n", "", "2"},
      {"input \"y\"\n" + file, "click Form28.cmdCancel\n", "0"},
      {"input \"y\"\n" + file, "close Form28\n", "0"},
      {"input \"y\"\n" + file, "click Form1.cmdCalib\nclick Form16.optC\n", "3"}};
  for (const auto& way : ways) {
    SCOPED_TRACE(way[0] + way[1]);
    Play(way[0] + start + (way[2] == "3" ? "input \"n\"\n" : "") + way[1]);
    EXPECT_FALSE(IsLoaded("Form26") || IsLoaded("Form27") || IsLoaded("Form28"));
    EXPECT_EQ(Values("CurBuf CalCancelled ModeCell ModeCalib NPeaks(b)"),
              Json({std::stoi(way[2]), 0, 0, 0, 0}));
  }
  Play("input \"y\"\n" + file + start);
  Load('b', "10 5\r\n20 7\r\n30 5\r\n");
  EXPECT_FALSE(IsLoaded("Form26") || IsLoaded("Form28"));
  EXPECT_EQ(Value("state CurBuf"), 2);
  Play("input \"y\"\n" + file + start + "click Form28.cmdOK\n");
  EXPECT_TRUE(IsLoaded("Form26"));
  EXPECT_EQ(Data().Buffer(2).NPeaks, 6);
}

TEST_F(Cell, AsksForTheWavelengthFirstAndForACalibrationOfChannels) {
  const std::string channels = "1000 50 0 0\r\n2000 100 0 0\r\n";
  Start(channels, "0");
  EXPECT_EQ(Frames(), "3");
  EXPECT_EQ(Get("Form26.Text3.Text"), "xmax = 4096");
  Play("set Form26.Combo1 \"none\"\n");
  EXPECT_THAT(Told("Form26.cmdComboOK"), HasSubstr("The wave length none is out of range."));
  EXPECT_EQ(Frames(), "3");

  EXPECT_THAT(Words("set Form26.Combo1 \"1.5406 (Cu)\"\nfile cancel\nclick Form26.cmdComboOK\n").front(),
              HasSubstr("Read now calibration parameters"));
  EXPECT_EQ(Frames(), "13");
  EXPECT_EQ(Values("NPeaks(b) Wavelength(b) CalCancelled CurBuf"), Json({0, 0, 0, 2}));
  EXPECT_NE(LastDrawn()["colour"], 255);
  TakeCell("Cubic", "Text6=5.5");
  EXPECT_THAT(Press(2000), HasSubstr("There is no peak in the list of buffer b"));

  // The sixth coefficient doesn't count here.
  Play(FileAnswer(File("d.cal", "Title\r\n1.5\r\n0.02\r\n1D-6\r\n0\r\n1D-13\r\n1D-15\r\n")) +
       "click Form26.cmdComboOK\nclick Form4.cmdOK\n");
  EXPECT_EQ(Frames(), "124");
  EXPECT_THAT(Press(2000), HasSubstr("There is no peak in the list of buffer b"));

  // The wavelength that was typed serves all.
  Type("Text18=1 Text19=0 Text20=0");
  Click("Form26.Command4");
  const double cell_angle = 2 * std::asin(Wavelength / 11) / Degree;
  EXPECT_EQ(Get("Form26.Text21.Text"), RoundedText(cell_angle, 3));

  Play("input \"Y\"\n" + FileAnswer(File("list.pks", channels)) +
       "click Form1.cmdRefineCell\nclick Form27.optB\nclick Form28.cmdOK\n");
  EXPECT_EQ(Values("CellFormat(b)"), Json({4}));
  TakeCell("Cubic", "Text6=5.5");
  EXPECT_EQ(Press(1990), "");
  EXPECT_EQ(Get("Form26.Text15.Text"), "47.1");  // 1.5 + 40 + 4 + 1.6
  Move("Form26", RoundedText(PictureX(1000), 4) + " 33.75");
  const double x = std::stod(Get("Form26.Text4.Text").get<std::string>().substr(4));
  EXPECT_NEAR(x, 1000, 0.01);
  const double two_theta = 1.5 + 0.02 * x + 1e-6 * x * x + 1e-13 * x * x * x * x;
  const double spacing = 1.5406 / (2 * std::sin(two_theta / 2 * Degree));
  EXPECT_EQ(Get("Form26.Text13.Text"), "2q = " + RoundedText(two_theta, 3));
  EXPECT_EQ(Get("Form26.Text12.Text"), RoundedText(spacing, 4));
  EXPECT_EQ(Get("Form26.Text5.Text"), "y = 100");

  // A calibration is not asked for again; without one there is no 2-theta.
  Data().Buffer(2).Wavelength = 0;
  Data().Buffer(2).FormatCode = 4;
  Click("Form1.cmdRefineCell Form27.optB");
  EXPECT_EQ(Told("Form26.cmdComboOK"), "");
  TakeCell("Cubic", "Text6=5.5");
  Data().Buffer(2).CalPar[1] = -1.5;
  EXPECT_EQ(Press(1990), "");
  EXPECT_EQ(Get("Form26.Text15.Text"), "44.1");
  Data().Buffer(2).CalPar.fill(0);
  EXPECT_THAT(Press(1990), HasSubstr("Buffer b has no calibration"));
  EXPECT_EQ(Get("Form26.Text15.Text"), "0");
}

TEST_F(Cell, ListsThatLookWrongAreTold) {
  Load('b', "10 5\r\n20 7\r\n30 5\r\n");
  ProfileBuffer& buffer = Data().Buffer(2);
  buffer.NPeaks = 2;
  const auto told = [&](int format, const char* theta, const char* channel) {
    buffer.FormatCode = static_cast<std::int16_t>(format);
    buffer.PeakTheta[2] = theta;
    buffer.PeakChannel[2] = channel;
    const auto words = After("Form1.cmdRefineCell Form27.optB");
    const auto message = std::ranges::find_if(words, [](const std::string& text) {
      return text.rfind("Warning, exclamation: The peaks in ", 0) == 0;
    });
    return message == words.end() ? "" : *message;
  };
  buffer.PeakTheta[1] = "30";  // beside the one that is given
  EXPECT_EQ(told(2, "180", "5"), "");
  EXPECT_EQ(told(2, "", "500"), "");
  EXPECT_EQ(told(4, "", "181"), "");
  EXPECT_THAT(told(2, "180.1", "500"), HasSubstr("not all lie up to 180"));
  EXPECT_THAT(told(4, "30", "30"), HasSubstr("none lies above 180"));
  buffer.PeakTheta[1] = "";
  EXPECT_THAT(told(2, "", "500"), HasSubstr("have no 2-theta."));
}

TEST_F(Cell, EachSystemTakesTheBoxesThatItLeavesFree) {
  // b, c, alpha, beta, gamma: "+" open, else the text of a closed box; then the cell that is taken.
  struct Taken {
    const char* System;
    const char* Boxes;
    std::array<double, 6> Cell;
  };
  const std::vector<Taken> systems{{"Triclinic", "+|+|+|+|+|", {4, 5, 6, 80, 95, 100}},
                                   {"Monoclinic (b unique axis)", "+|+||+||", {4, 5, 6, 90, 95, 90}},
                                   {"Orthorhombic", "+|+||||", {4, 5, 6, 90, 90, 90}},
                                   {"Tetragonal", " a|+||||", {4, 4, 6, 90, 90, 90}},
                                   {"Trigonal-Hexagonal", " a|+|||120|", {4, 4, 6, 90, 90, 120}},
                                   {"Cubic", " a| a||||", {4, 4, 4, 90, 90, 90}}};
  Start(SiliconList());
  for (const auto& [system, boxes, cell] : systems) {
    SCOPED_TRACE(system);
    Click("Form1.cmdRefineCell Form27.optB");
    EXPECT_FALSE(Get("Form26.Text6.Visible").get<bool>());
    Play("set Form26.Combo2 " + Json(system).dump() + "\nclick Form26.Command2\nset Form26.Text6 \"4\"\n");
    std::string found;
    for (const std::string text : {"7=5", "8=6", "9=80", "10=95", "11=100"}) {
      const std::string box = "Form26.Text" + text.substr(0, text.find('='));
      const bool open = Refusal("set " + box + " \"" + text.substr(text.find('=') + 1) + "\"").empty();
      found += (open ? "+" : Get(box + ".Text").get<std::string>()) + "|";
    }
    EXPECT_EQ(found, boxes);
    EXPECT_FALSE(Get("Form26.Combo2.Enabled").get<bool>());
    Click("Form26.Command1");
    Type("Text18=1 Text19=2 Text20=-1");
    Click("Form26.Command4");
    WideCell wide{0, cell[0], cell[1], cell[2]};
    for (std::size_t k = 4; k <= 6; ++k) wide[k] = std::cos(cell[k - 1] * Degree);
    const double sine = Wavelength * std::sqrt(PlainQ(PlainReciprocal(wide), 1, 2, -1));
    // 32 bits, and the box shows 3 decimals.
    EXPECT_NEAR(std::stod(Get("Form26.Text21.Text").get<std::string>()), 2 * std::asin(sine) / Degree, 6e-4);
  }
}

TEST_F(Cell, WhatCanNotBeKeepsWhatIsThere) {
  Start(SiliconList());
  Play("set Form26.Combo2 \"Triclinic\"\nclick Form26.Command2\n");
  for (const char* cell : {"Text6=5 Text7=5 Text8=5 Text9=90 Text10=255 Text11=90",
                           "Text6=5 Text7=5 Text8=5 Text9=90 Text10=-80 Text11=90",
                           "Text6=13.97 Text7=3.957 Text8=17.096 Text9=114.04 Text10=114.12 Text11=0.081",
                           "Text6=5 Text7=5 Text8=5 Text9=90 Text10=90 Text11=0",
                           "Text6=5 Text7=5 Text8=5 Text9=30 Text10=30 Text11=90",
                           "Text6=5 Text7=-5 Text8=5 Text9=90 Text10=90 Text11=90"}) {
    Type(cell);
    Click("Form26.Command1");
    EXPECT_EQ(Frames(), "1") << cell;
  }
  Type("Text6=5 Text7=6 Text8=7 Text9=80 Text10=95 Text11=100 ");
  Click("Form26.Command1");
  Type("Text16=10 Text17=170");
  Click("Form26.cmdPeakGeneration");
  const std::string rows = Get("Form26.Text14.Text");
  EXPECT_EQ(rows.size(), 300 * 22U);
  for (std::size_t row = 22; row < rows.size(); row += 22) {
    EXPECT_LE(std::stod(rows.substr(row - 22, 8)), std::stod(rows.substr(row, 8)));
  }
  Type("Text17=1e39");
  Click("Form26.cmdPeakGeneration");
  EXPECT_EQ(Get("Form26.Text14.Text"), rows);
  Type("Text16=1 Text17=5");
  Click("Form26.cmdPeakGeneration");
  EXPECT_EQ(Get("Form26.Text14.Text"), "");
  Type("Text18=-180.5 Text19=2.5 Text20=1.5");
  Click("Form26.Command4");
  Press(47.3);
  for (int i = 0; i < 301; ++i) Click("Form26.cmdAccept");
  EXPECT_EQ(Get("Form26.Text22.Text"), "300");
  Click("Form26.Command5");
  EXPECT_THAT(Told("Form26.cmdOptimize"), HasSubstr("(-180 2 2)"));
  EXPECT_EQ(Get("Form26.Text23.Text"), "");
}

TEST_F(Cell, WorksOnItsOwnListAndTellsWhereThatHasChanged) {
  Start(SiliconList());
  TakeCell("Cubic", "Text6=5.5");
  Load('a', "10 5\r\n20 7\r\n");
  EXPECT_EQ(Press(47.3), "");
  EXPECT_EQ(Get("Form26.Text15.Text"), " 47.303");
  EXPECT_EQ(Value("state CurBuf"), 2);
  Data().Buffer(2).PeakTheta[2] = "50";
  EXPECT_THAT(Press(47.3), HasSubstr("has been changed in another window"));
  EXPECT_EQ(Get("Form26.Text15.Text"), " 47.303");
  // What is accepted is what was taken by "OK" and what stands in the box, whatever was clicked or typed
  // since.
  Data().Buffer(2).PeakTheta[2] = "47.303";
  Type("Text18=1 Text19=1 Text20=1 Text15=28.4401");
  Click("Form26.cmdAccept");
  for (int i = 0; i < 2; ++i) Index(TwoThetaOfLine(Lines[1]), Lines[1]);
  Click("Form26.Command5");
  EXPECT_THAT(Told("Form26.cmdOptimize"), HasSubstr("Peak number 1 (0 0 0) is no reflection"));

  // A wavelength that the buffer has got meanwhile.
  Erase('b');
  Start(SiliconList(), "0");
  Data().Buffer(2).NPeaks = 5;
  EXPECT_THAT(Told("Form26.cmdComboOK"), HasSubstr("has been changed in another window"));
  Data().Buffer(2).NPeaks = 6;
  Data().Buffer(2).Wavelength = 0.7F;
  EXPECT_THAT(Told("Form26.cmdComboOK"), HasSubstr("Buffer b has the wave length 0.7 by now."));
  TakeCell("Cubic", "Text6=5.5");
  Data().Buffer(2).Wavelength = 0.8F;
  EXPECT_THAT(Press(47.3), HasSubstr("The wave length of buffer b has been changed"));

  // Without any intensity nothing is drawn, but there is something to select.
  Erase('b');
  Start("30 0 1\r\n40 0 1\r\n");
  EXPECT_NE(LastDrawn()["colour"], 255);
  TakeCell("Cubic", "Text6=5.5");
  Press(31);
  EXPECT_EQ(Get("Form26.Text15.Text"), " 30");
}

}  // namespace
}  // namespace koprax
