// The journey of a card from its file to a buffer, with the wavelength asked on the way.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

#include "app/journey.h"
#include "workspace/help_topics.h"

namespace koprax {
namespace {

/// The silicon card that the help shows, on its way into buffer b.
class CardLoading : public Journey {
 protected:
  CardLoading() {
    const std::string help(HelpText(HelpTopic::HelpFormatCard));
    const std::string heading = "Example file:\r\n";
    path_ = File("silicon.aid", help.substr(help.find(heading) + heading.size()));
  }

  /// Loads the card with commands for Form33; the events of the choice of the buffer.
  Json Load(const std::string& modal_commands) {
    return Events(modal_commands + LoadCommands(path_, 7, 'b'));
  }
  Json WithWavelength(const std::string& text) {
    return Load("modal set Form33.Combo1 " + Json(text).dump() + "\nmodal click Form33.cmdComboOK\n");
  }
  float Field(const std::string& name) { return Value("state " + name + "(b)").get<float>(); }

 private:
  std::string path_;
};

TEST_F(CardLoading, AsksForTheWavelengthAndOpensTheWindowOfTheCard) {
  EXPECT_THAT(Load("modal click Form33.cmdComboOK\n"),
              testing::IsSupersetOf(
                  {Json{{"event", "shown"}, {"form", "Form33"}, {"modal", true}}, FrontEvent("Form1")}));
  EXPECT_EQ(Value("forms"), Json({"Form34", "Form1"}));
  EXPECT_EQ(Field("Wavelength"), 1.54184F);
  EXPECT_EQ(Field("WorkNpts"), 7);
  // The lattice constant of silicon, 5.4312 on this card, gives 111 at a third of its root.
  const double two_theta = 2 * std::asin(1.54184 * std::sqrt(3) / (2 * 5.4312)) * 180 / std::numbers::pi;
  // d stands with 4 decimals on a card: half a digit in 3 moves 2-theta by 0.0005 degrees.
  EXPECT_NEAR(Value("state WorkX(b)")[1].get<float>(), two_theta, 6e-4);
  EXPECT_EQ(Field("PermXMin"), Field("FileXMin"));
  EXPECT_EQ(Field("PermXMax"), Field("FileXMax"));

  Play("close Form34\n");
  Display("b");
  EXPECT_EQ(Value("forms"), Json({"Form34", "Form1"}));
}

TEST_F(CardLoading, OnlyTheFirstNumberOfTheTextCounts) {
  WithWavelength("0.70930 remark 5");
  EXPECT_EQ(Field("Wavelength"), 0.7093F);
  Load("modal set Form33.Combo1 \"1.5406\"\nmodal close Form33\n");
  EXPECT_EQ(Field("Wavelength"), 1.5406F);
}

TEST_F(CardLoading, AWavelengthThatIsNoneLoadsNothing) {
  for (const char* text : {"copper", "0", "-1.5", "1E39"}) {
    EXPECT_THAT(WithWavelength(text).dump(), testing::HasSubstr("wave length must be above 0")) << text;
    EXPECT_EQ(Values("Wavelength(b) PermNpts(b) Title(b)"), (Json{0, 0, std::string(80, ' ')}));
  }
}

}  // namespace
}  // namespace koprax
