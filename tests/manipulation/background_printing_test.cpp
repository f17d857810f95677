// A profile and its background on paper, in numbers worked out by hand.
#include <gtest/gtest.h>

#include <string>

#include "app/workbench_session.h"

namespace koprax {
namespace {

/// The curves on the printer: what is neither frame nor axis nor tick.
Json PrintedCurves(WorkbenchSession& session) {
  Json curves = Json::array();
  for (const Json& operation : session.Value("picture Printer")) {
    if (operation["op"] == "line" && operation["y1"] != operation["y2"] &&
        operation["x1"] != operation["x2"]) {
      curves.push_back(
          {operation["x1"], operation["y1"], operation["x2"], operation["y2"], operation["colour"]});
    }
  }
  return curves;
}

TEST(BackgroundPrinting, DashesInTheChosenColoursUnderTheProfile) {
  WorkbenchSession session;
  const std::string profile =
      session.File("five.xy", "Five\r\n1.5406\r\n10 0\r\n12.5 100\r\n15 0\r\n17.5 50\r\n20 -42.5\r\n");
  session.Play(WorkbenchSession::LoadCommands(profile, 3, 'a') +
               "click Form6.cmdMain\nclick Form1.cmdAnal\nclick Form10.optA\ninput cancel\n"
               "click Form12.cmdBckg\n");
  for (std::size_t i = 1; i <= 5; ++i) {
    session.Data().BackgroundY[i] = 10 * static_cast<float>(i);
  }
  const std::string print = "printer " + Json(session.Folder() + "/page.pdf").dump() +
                            "\nmodal set Form31.Combo1 \"Blue\"\nmodal set Form31.Combo2 \"Mauve\"\n"
                            "modal click Form31.Command1\nclick Form12.cmdPrint\n";
  session.Play("move Form12.Picture1 60 70\n");
  const Json before = session.Value("get Form12.Text4.Text");
  session.Play(print);
  // 9.5 mm for a degree, half a mm for a count, upward from the zero line 108.75 mm below the page's top. A
  // colour of no name leaves the red of before; the pieces in white are printed too.
  EXPECT_EQ(PrintedCurves(session), (Json{{95.0, 103.75, 118.75, 98.75, 255},
                                          {118.75, 98.75, 142.5, 93.75, 255},
                                          {142.5, 93.75, 166.25, 88.75, 16777215},
                                          {166.25, 88.75, 190.0, 83.75, 16777215},
                                          {95.0, 108.75, 118.75, 58.75, 16711680},
                                          {118.75, 58.75, 142.5, 108.75, 16711680},
                                          {142.5, 108.75, 166.25, 83.75, 16711680},
                                          {166.25, 83.75, 190.0, 130.0, 16711680}}));
  session.Play("move Form12.Picture1 60 70\n");
  EXPECT_EQ(session.Value("get Form12.Text4.Text"), before) << "the screen keeps its scale";
}

}  // namespace
}  // namespace koprax
