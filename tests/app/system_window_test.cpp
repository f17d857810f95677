// The System configuration window: the report on the machine, the test of the separator, the one setting that
// outlives a run, and its place at the start.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/journey.h"

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* Setting = "MyApp/General/DontShow";

/// On a machine that has never started the program, or whose setting is kept from a run before.
class FirstRun : public WorkbenchSession {
 public:
  explicit FirstRun(const char* kept = nullptr) {
    Platform().Settings.clear();
    if (kept != nullptr) Platform().Settings[Setting] = kept;
  }

  Json Get(const std::string& name) { return Value("get " + name); }
  Json Click(const std::string& name) { return Events("click " + name + "\n"); }
  std::vector<std::string> After(const std::string& name) { return WordsOf(Click(name)); }
  /// "+" for each that is shown of what offers resolutions.
  std::string Offers() {
    return std::string(Get("Form35.Option1.Visible") ? "+" : "-") +
           (Get("Form35.Frame2.Visible") ? "+" : "-");
  }
  MemoryMachine& Host() { return Platform().Host; }
  std::string Text(const std::string& box) { return Get("Form35." + box + ".Text"); }
  void OpenAnew() { Play("close Form35\nclick Form1.cmdNew\n"); }
};

class SystemWindow : public testing::Test, public FirstRun {};

TEST_F(SystemWindow, OpensAtTheStartUntilItsBoxIsTicked) {
  EXPECT_EQ(Value("forms"), (Json{"Form35", "Form1"}));
  EXPECT_THAT(WordsOf(Started), ElementsAre("shown Form35", "shown Form1", "front Form35"));
  EXPECT_EQ(Get("Form35.Check1.Value"), 0);
  Click("Form35.Check1");
  EXPECT_EQ(Platform().Settings[Setting], "1");

  for (const auto& [kept, opens] :
       {std::pair{"1", false}, {"0", true}, {"", true}, {"none", true}, {"0.5", false}, {"-1", false}}) {
    FirstRun next(kept);
    EXPECT_EQ(next.Value("forms").size(), opens ? 2U : 1U) << kept;
    next.Play("click Form1.cmdNew\n");
    EXPECT_EQ(next.Get("Form35.Check1.Value"), opens ? 0 : 1) << kept;
    next.Click("Form35.Check1");
    EXPECT_EQ(next.Platform().Settings[Setting], opens ? "1" : "0") << kept;
  }
}

TEST_F(SystemWindow, StaysAboveTheMainMenuUntilItIsClosed) {
  EXPECT_THAT(After("Form1.cmdDelBuff"), ElementsAre("front Form1", "front Form35", "shown Form17"));
  EXPECT_THAT(After("Form1.cmdNew"), ElementsAre("front Form1", "front Form35"));
  EXPECT_EQ(Value("forms"), (Json{"Form35", "Form1", "Form17"}));
  Play("close Form35\n");
  EXPECT_THAT(After("Form1.cmdNew"), ElementsAre("shown Form35"));
  Play("close Form35\n");
  EXPECT_THAT(After("Form1.Command8"), ElementsAre("shown Form5"));
}

TEST_F(SystemWindow, ReportsTheMachine) {
  const std::string screen =
      "Your screen resolution is:  1280 x 1024 pix.\r\nNumber of colors is: 16777216\r\n"
      "Best resolution for KOPRAX is:   800 x 600 pix. ";
  EXPECT_EQ(Text("Text1"), "Hi lab,\r\nYour Op. sys. is Linux version: 6.1 (Build 0)\r\n" + screen);
  const std::vector<std::pair<SystemVersion, std::string>> systems{
      {{.Kind = SystemKind::Windows9x, .Major = 4, .Minor = 9, .Build = 950},
       "Windows 95 version: 4.9 (Build 950)"},
      {{.Kind = SystemKind::Windows9x, .Major = 4, .Minor = 10, .Build = 1998, .Service = " A "},
       "Windows 98 version: 4.10 (Build 1998:  A )"},
      {{.Kind = SystemKind::WindowsNt, .Major = 4, .Build = 1381, .Service = "Service Pack 6"},
       "Windows NT version: 4.0 (Build 1381: Service Pack 6)"},
      {{.Name = "Linux", .Major = 6, .Minor = 18, .Build = 44, .Service = "Debian"},
       "Linux version: 6.18 (Build 44: Debian)"}};
  Host().Name = "";
  for (const auto& [version, words] : systems) {
    Host().Version = version;
    OpenAnew();
    const std::string greeting = "Hi ,\r\nYour Op. sys. is ";
    EXPECT_EQ(Text("Text1"), std::string(greeting).append(words).append("\r\n").append(screen));
  }
  // A number of 64 bits, whatever the depth.
  for (const auto& [bits, colours] : {std::pair{1, "2"}, {16, "65536"}, {32, "4294967296"}}) {
    Host().Screen.BitsPerPixel = bits;
    OpenAnew();
    EXPECT_THAT(Text("Text1"), HasSubstr("Number of colors is: " + std::string(colours) + "\r\n"));
  }
}

TEST_F(SystemWindow, WarnsOfASeparatorThatIsNoPeriodAndLeadsToTheSettings) {
  EXPECT_EQ(Text("Text2"),
            "You are using \".\" as decimal separator.\r\nThis is in agreement with KOPRAX settings.");
  EXPECT_EQ(Get("Form35.Command1.Visible"), false);
  for (const std::string separator : {",", "'", "٫"}) {
    Host().Separator = separator;
    OpenAnew();
    EXPECT_EQ(Text("Text2"),
              "You are using \"" + separator +
                  "\" as decimal separator.\r\nThis is NOT in agreement with KOPRAX settings.\r\n"
                  "Select \".\" as decimal separator in Control Panel,\r\nInternational settings.");
    EXPECT_EQ(
        Click("Form35.Command1"),
        (Json{{{"event", "shell"}, {"command", "rundll32.exe shell32.dll,Control_RunDLL intl.cpl,,1"}}}));
  }
}

TEST_F(SystemWindow, OffersResolutionsOnlyWhereTheScreenCanBeSwitched) {
  EXPECT_EQ(Offers(), "--");
  Host().Modes = {{.BitsPerPixel = 8, .Width = 800, .Height = 600},
                  {.BitsPerPixel = 16, .Width = 800, .Height = 600},
                  {.BitsPerPixel = 16, .Width = 640, .Height = 480}};
  OpenAnew();
  EXPECT_EQ(Offers(), "+-");
  Click("Form35.Option1");
  EXPECT_EQ(Offers(), "++");
  EXPECT_THAT(After("Form35.Option2"),
              ElementsAre(HasSubstr("no mode of 1024 x 768 pixels with 16 bits per pixel")));
  EXPECT_TRUE(Host().Changed.empty());

  Click("Form35.Option3");
  Host().ChangeResult = -5;  // a result without words
  EXPECT_TRUE(Click("Form35.Option4").empty());
  EXPECT_EQ(Host().Changed.front(), Host().Modes[1]);
  EXPECT_EQ(Host().Changed.back(), Host().Modes[2]);
}

TEST_F(SystemWindow, TellsWhenItsChoiceCantBeKept) {
  Platform().SettingFailure = "the disk is full";
  EXPECT_THAT(After("Form35.Check1"), ElementsAre(HasSubstr("can't be kept: the disk is full")));
  EXPECT_EQ(Get("Form35.Check1.Value"), 0);
}

}  // namespace
}  // namespace koprax
