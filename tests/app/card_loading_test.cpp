// The journey of a card from its file to a buffer, with the wavelength asked on the way.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

#include "app/workbench_session.h"
#include "workspace/help_topics.h"

namespace koprax {
namespace {

/// The silicon card that the help shows, on its way into buffer b.
class CardLoading : public testing::Test {
 protected:
  CardLoading() {
    const std::string help(HelpText(HelpTopic::HelpFormatCard));
    const std::string heading = "Example file:\r\n";
    path_ = session_.File("silicon.aid", help.substr(help.find(heading) + heading.size()));
  }

  /// Loads the card with commands for Form33; returns the answer of the choice of the buffer.
  Json Load(const std::string& modal_commands) {
    return session_.Play(modal_commands + WorkbenchSession::LoadCommands(path_, 7, 'b')).back();
  }
  float Field(const std::string& name) { return session_.Value("state " + name + "(b)").get<float>(); }

  WorkbenchSession session_;
  std::string path_;
};

TEST(CardWindows, IsNotChangedByTheWindowOfACurve) {
  WorkbenchSession session;
  session.Play(WorkbenchSession::LoadCommands(session.File("a.xy", "A\r\n1.5\r\n10 1\r\n11 9\r\n"), 3, 'a'));
  session.Play("modal close Form33\n" +
               WorkbenchSession::LoadCommands(KOPRAX_SOURCE_DIR "/examples/corundum.aid", 7, 'a'));
  const Json card = session.Value("buffer a");
  const Json told = session.Events("click Form6.cmdSave\n").back();  // the window of the curve that was there
  EXPECT_EQ(told["text"],
            "Buffer a holds no points that could be saved or printed.\r\n"
            "Display a profile first.");
  EXPECT_EQ(session.Value("buffer a"), card);
  session.Play("answer yes\nclick Form1.cmdDelBuff\nclick Form17.optA\nclick Form6.cmdSave\n");
  EXPECT_EQ(session.Value("get Form3")["Loaded"], false);
  EXPECT_EQ(session.Value("state Title(a)"), std::string(80, ' '));
}

TEST_F(CardLoading, AsksForTheWavelengthAndOpensTheWindowOfTheCard) {
  const Json chosen = Load("modal click Form33.cmdComboOK\n");
  EXPECT_THAT(chosen["events"],
              testing::IsSupersetOf(
                  {Json{{"event", "shown"}, {"form", "Form33"}, {"modal", true}}, FrontEvent("Form1")}));
  EXPECT_EQ(session_.Value("forms"), Json({"Form34", "Form1"}));
  EXPECT_EQ(Field("Wavelength"), 1.54184F);
  EXPECT_EQ(Field("WorkNpts"), 7);
  // The lattice constant of silicon, 5.4312 on this card, gives 111 at a third of its root.
  const double two_theta = 2 * std::asin(1.54184 * std::sqrt(3) / (2 * 5.4312)) * 180 / std::numbers::pi;
  // d stands with 4 decimals on a card: half a digit in 3 moves 2-theta by 0.0005 degrees.
  EXPECT_NEAR(session_.Value("state WorkX(b)")[1].get<float>(), two_theta, 6e-4);
  EXPECT_EQ(Field("PermXMin"), Field("FileXMin"));
  EXPECT_EQ(Field("PermXMax"), Field("FileXMax"));

  session_.Play("close Form34\nclick Form1.cmdDisp\nclick Form11.Check2\nclick Form11.Command1\n");
  EXPECT_EQ(session_.Value("forms"), Json({"Form34", "Form1"}));
}

TEST_F(CardLoading, OnlyTheFirstNumberOfTheTextCounts) {
  Load("modal set Form33.Combo1 \"0.70930 remark 5\"\nmodal click Form33.cmdComboOK\n");
  EXPECT_EQ(Field("Wavelength"), 0.7093F);
  Load("modal set Form33.Combo1 \"1.5406\"\nmodal close Form33\n");
  EXPECT_EQ(Field("Wavelength"), 1.5406F);
}

TEST_F(CardLoading, AWavelengthThatIsNoneLoadsNothing) {
  for (const char* text : {"copper", "0", "-1.5", "1E39"}) {
    const Json answer =
        Load("modal set Form33.Combo1 " + Json(text).dump() + "\nmodal click Form33.cmdComboOK\n");
    EXPECT_THAT(answer.dump(), testing::HasSubstr("wave length must be above 0")) << text;
    EXPECT_EQ(Field("Wavelength"), 0);
    EXPECT_EQ(Field("PermNpts"), 0);
    EXPECT_EQ(session_.Value("state Title(b)"), std::string(80, ' '));
  }
}

}  // namespace
}  // namespace koprax
