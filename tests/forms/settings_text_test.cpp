#include "forms/settings_text.h"

#include <gtest/gtest.h>

namespace koprax {
namespace {

TEST(SettingsText, AKeyIsChangedAndAllElseStays) {
  // {before, after} of "1" for the key DontShow of the section General.
  const std::pair<const char*, const char*> texts[] = {
      {"", "[%General]\nDontShow=1\n"},
      {"[%General]\nDontShow=0\n", "[%General]\nDontShow=1\n"},
      {"[%General]\r\nOther=x\r\n\r\nDontShow=\r\n[Last]\r\nDontShow=7\r\n",
       "[%General]\r\nOther=x\r\n\r\nDontShow=1\r\n[Last]\r\nDontShow=7\r\n"},
      {"[%General]", "[%General]\nDontShow=1"},
      {"DontShow=3\n[Last]\nDontShow=7", "DontShow=3\n[Last]\nDontShow=7\n[%General]\nDontShow=1\n"},
      {"[%General]\n[Last]\nDontShow=7\n", "[%General]\nDontShow=1\n[Last]\nDontShow=7\n"},
  };
  for (const auto& [before, after] : texts) {
    EXPECT_EQ(WithSetting(before, "General", "DontShow", "1"), after);
    EXPECT_EQ(SettingIn(after, "General", "DontShow", "absent"), "1");
  }
  EXPECT_EQ(SettingIn("[Last]\nDontShow=7\n", "General", "DontShow", "absent"), "absent");
  EXPECT_EQ(SettingIn("[Last]\nDontShow=7\n", "Last", "DontShow", "absent"), "7");
}

}  // namespace
}  // namespace koprax
