// The window of the fit's parameters: what it shows, takes and prints.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "app/journey.h"
#include "fit/fit_parameters.h"
#include "fit/parameters_window.h"
#include "fit/peak_quantities.h"
#include "golden_file.h"

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// A fit of peaks that all differ in all of their parameters.
class Parameters : public Journey {
 protected:
  using CommandSession::Run;  // and not the test's own

  PeakFit& Fit() { return Data().Fit; }

  void Open(int peaks, bool polynomial) {
    Fit().FitPolyBackground = polynomial;
    Fit().FitPeakCount = static_cast<std::int16_t>(peaks);
    for (int k = 0; k < peaks; ++k) {
      const auto n = static_cast<float>(k);
      const std::vector<float> values{20.123456F + 7 * n, 1234.5678F + 11 * n, 0.1234567F + 0.01F * n,
                                      0.2F + 0.01F * n,   0.5F - 0.02F * n,    0.25F + 0.02F * n};
      std::ranges::copy(values, Fit().FitParam.begin() + NumberOf(k + 1, PeakParameter::Position));
    }
    std::ranges::copy(std::vector<float>{100.123456F, -2.5F, 0.031F, 0.000004F, 1.2345678F},
                      Fit().FitParam.begin() + ConstantTerm);
    Run([this](const WindowContext& context) {
      context.Desk
          .Load<Form20>(context, ParameterActions{.Deleted = [this] { ++deleted_; },
                                                  .Taken = [this](bool others) { others_ = others; },
                                                  .Confirmed = [this] { ++confirmed_; }})
          ->Show();
    });
  }
  std::string Text(const std::string& control) { return Get("Form20." + control + ".Text"); }
  /// Each row as one text: its boxes, a "+" before those that are ticked.
  std::vector<std::string> Rows() {
    std::vector<std::string> rows(MaxFitPeaks);
    for (int i = 0; i < MaxFitPeaks * ParametersPerPeak; ++i) {
      const std::string index = "(" + std::to_string(i) + ")";
      rows[static_cast<std::size_t>(i / ParametersPerPeak)] +=
          (Get("Form20.Check1" + index + ".Value") == 1 ? "+" : " ") + Text("Text1" + index);
    }
    return rows;
  }
  std::vector<std::string> Accept(const std::string& answer) {
    return Words("answer " + answer + "\nclick Form20.Command2\n");
  }
  std::vector<int> Refined() {
    return {Fit().FitList.begin() + 1, Fit().FitList.begin() + 1 + Fit().FitListCount};
  }

  int deleted_ = 0;
  bool others_ = false;
  int confirmed_ = 0;
};

TEST_F(Parameters, AreaAndWidthAreThoseOfTheTwoHalves) {
  struct Peak {
    float Height, Left, Right, EtaLeft, EtaRight;
  };
  for (const Peak& peak : {Peak{1000, 0.1F, 0.3F, 0.2F, 0.9F}, Peak{-50, 2, 2, 0, 1},
                           Peak{1, 0.5F, 0.25F, 1.2F, -0.1F}, Peak{7, 0, 1, 0.5F, 0.5F}}) {
    std::ranges::copy(std::vector{30.0F, peak.Height, peak.Left, peak.Right, peak.EtaLeft, peak.EtaRight},
                      Fit().FitParam.begin() + NumberOf(2, PeakParameter::Position));
    // The profile in 64 bits over x = width * tan(u), in steps of u: far enough for its tails.
    const auto half_area = [&](double width, double eta) {
      constexpr int steps = 20000;
      constexpr double du = std::numbers::pi / 2 / steps;
      double area = 0;
      for (int i = 0; i < steps; ++i) {
        const double u = (i + 0.5) * du;
        const double z = std::tan(u);
        const double profile = eta * std::exp2(-4 * z * z) + (1 - eta) / (1 + 4 * z * z);
        area += peak.Height * profile * width / (std::cos(u) * std::cos(u)) * du;
      }
      return area;
    };
    const double area = half_area(peak.Left, peak.EtaLeft) + half_area(peak.Right, peak.EtaRight);
    // Pi and the result are of 32 bits: some 1E-7 each.
    EXPECT_NEAR(PeakArea(Fit(), 2), area, 4e-7 * std::abs(area));
    EXPECT_FLOAT_EQ(PeakWidth(Fit(), 2), (peak.Left + peak.Right) / 2);
  }
}

TEST_F(Parameters, AreShownAndTakenAsTheirBoxesShowThem) {
  Open(2, true);
  EXPECT_EQ(Rows()[1], "+27.12346+1245.568+0.13346+0.21+0.48+0.27");
  EXPECT_EQ(Rows()[2], "      ");
  EXPECT_EQ(Values("Form20.Text4.Text Form20.Text5.Text Form20.Text2(0).Text Form20.Text2(3).Text"),
            (Json{"2", "16", "100.1235", "0"}));
  EXPECT_EQ(Values("Form20.Label41(0).Caption Form20.Label41(1).Caption Form20.Label40(2).Caption"),
            (Json{"0.1617", "0.1717", ""}));
  Play(
      "click Form20.Check1(0)\nset Form20.Text1(7) \" 5D2 counts\"\nset Form20.Text1(8) \"\"\n"
      "set Form20.Text1(71) \"wide\"\nclick Form20.Check1(71)\nclick Form20.Check2(1)\n");
  EXPECT_FALSE(Refusal("set Form20.Text3 \"2\"").empty()) << "the frame is off";

  EXPECT_THAT(Accept("no"), ElementsAre("Sure?, none: Everything OK?"));
  EXPECT_THAT(Refined(), ElementsAre(2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 72, 73, 75, 76));
  EXPECT_EQ(Text("Text5"), "15");
  EXPECT_EQ(Fit().FitParam[1], 20.12346F) << "rounded as shown";
  EXPECT_EQ(Fit().FitParam[2], 1234.568F);
  EXPECT_EQ(Fit().FitParam[8], 500);
  EXPECT_EQ(Fit().FitParam[9], 0);
  EXPECT_EQ(Fit().FitParam[CubicTerm], 0);
  EXPECT_EQ(Fit().FitParam[ScaleFactor], 0) << "the box of the other background is empty";
  EXPECT_TRUE(others_);
  EXPECT_EQ(confirmed_, 0);
  EXPECT_THAT(Accept("yes"), ElementsAre("Sure?, none: Everything OK?", "unloaded Form20"));
  EXPECT_FALSE(others_) << "nothing more has been changed";
  EXPECT_EQ(confirmed_, 1);
}

TEST_F(Parameters, OfAMeasuredBackgroundAreItsFactorAlone) {
  Open(1, false);
  EXPECT_EQ(Values("Form20.Text3.Text Form20.Check3.Value Form20.Text2(0).Text Form20.Check2(0).Value"),
            (Json{"1.234568", 1, "", 0}));
  EXPECT_EQ(Text("Text5"), "7");
  EXPECT_EQ(Switches("Form20", "Frame1 Frame2"), "+-");
  Play("set Form20.Text2(2) \"0.5\"\n");
  Accept("no");
  EXPECT_THAT(Refined(), ElementsAre(1, 2, 3, 4, 5, 6, 77));
  EXPECT_EQ(Fit().FitParam[QuadraticTerm], 0.5F);
  Play("set Form20.Text2(2) \"7\"\n");
  EXPECT_TRUE(PressEscape("Form20"));
  EXPECT_EQ(confirmed_, 0);
  EXPECT_EQ(Fit().FitParam[QuadraticTerm], 0.5F);
}

TEST_F(Parameters, BeyondTheRangeOfTheirFieldsAreRefusedBeforeAnythingIsTaken) {
  for (const auto& [box, name] : std::vector<std::pair<std::string, std::string>>{
           {"Text1(15)", "FWHM right of peak 3"}, {"Text2(1)", "Coefficient B"}}) {
    Open(3, true);
    const PeakFit before = Fit();
    Play("set Form20.Text1(0) \"1\"\nset Form20." + box + " \"-1E39\"\n");
    EXPECT_THAT(Words("click Form20.Command2\n"), ElementsAre(HasSubstr(name)));
    EXPECT_EQ(Fit().FitParam, before.FitParam);
    EXPECT_EQ(Fit().FitListCount, before.FitListCount);
  }
}

TEST_F(Parameters, OfADeletedPeakGiveWayToThoseBelow) {
  for (const int peak : {1, 5, 12}) {
    Open(12, true);
    Play("click Form20.Check1(14)\nclick Form20.Check1(71)\n");  // of peaks 3 and 12
    const std::string area = Get("Form20.Label40(3).Caption");
    std::vector<std::string> expected = Rows();
    expected.erase(expected.begin() + peak - 1);
    expected.emplace_back("      ");
    EXPECT_TRUE(After("Form20.Number(" + std::to_string(peak - 1) + ")").empty());
    EXPECT_EQ(Rows(), expected);
    EXPECT_EQ(Values("Form20.Text4.Text FitPeakCount Form20.Label40(3).Caption"), (Json{"11", 11, area}));
    EXPECT_EQ(Fit().FitParam[67], 97.123456F) << "nothing is taken yet";
    EXPECT_THAT(After("Form20.Number(11)"), ElementsAre("Error, none: Unacceptable peak number"));
    EXPECT_EQ(std::exchange(deleted_, 0), 1);
  }
}

TEST_F(Parameters, ArePrintedInColumnsThatStayOnThePage) {
  std::ostringstream page;
  for (const int peaks : {12, 1}) {
    Open(peaks, peaks == 12);
    const Json events = Events("set Form20.Text1(0) \"99\"\nprinter " + Json(Folder() + "/p.pdf").dump() +
                               " copies 3\nclick Form20.Command1\n");
    EXPECT_EQ(events.size(), 1 + 3) << "the dialog, and a page for each copy";
    const Printer& paper = Desk().ThePrinter();
    float y = 0;
    for (const DrawingOperation& operation : paper.Operations()) {
      const auto& text = std::get<TextOperation>(operation);
      page << (text.Y == y ? " " : "\n" + std::to_string(std::lround(y = text.Y)) + ": ") << text.X << " ["
           << text.Text << "]";
      const double letter = 20 * text.Size;  // twips
      EXPECT_LT(text.X + 0.6 * letter * static_cast<double>(text.Text.size()), paper.ScaleWidth());
      EXPECT_LT(text.Y + 1.2 * letter, paper.ScaleHeight());
    }
    page << "\n";
  }
  ExpectGolden(page.str(), "fit/parameters_page.golden");
}

}  // namespace
}  // namespace koprax
