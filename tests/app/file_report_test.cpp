#include "app/file_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "app/command_line.h"
#include "app/workbench_session.h"
#include "files/scratch_file.h"

namespace koprax {
namespace {

FileCheck CheckText(const std::string& text) {
  const ScratchFile file(text, "file_report");
  return CheckFile(file.Path());
}

TEST(FileReport, TellsFindingsWithTheirPlaceAndTheFormatThatFits) {
  std::string text = "Silicon, \"A\"\r\n1.5406\r\n";
  for (int x = 20; x < 25; ++x) text += std::to_string(x) + "\t104\r\n";
  const std::string report = FileReport(CheckText(text));
  for (
      const char* part :
      {"  \"Two columns\" reads 2 points, X from 0 to 0, no step, wavelength 1.5406, title \"Silicon,  A\"\n",
       "      warning: line 3, column 3: the tab in \"20\\t104\" separates nothing; point 1 is read as 0, 0,",
       "(5 lines)", "\n  Fits once it is mended: \"Two columns\".\n", "  \"PHILIPS\" refuses: The file "}) {
    EXPECT_NE(report.find(part), std::string::npos) << part << report;
  }
  std::string long_one = "t\r\n1.5\r\n";
  for (int i = 0; i <= 8000; ++i) long_one += std::to_string(10 + 0.01 * i) + "\t5\r\n";
  const std::string too_long = FileReport(CheckText(long_one));
  EXPECT_NE(too_long.find("refused at line 8003: Profile with more than 8000"), std::string::npos)
      << too_long;
  const std::string blank =
      FileReport(CheckText("_SAMPLE='t'\r\n_STEPSIZE=0.02\r\n_2THETACOUNTS\r\n20 5\r\n\r\n"));
  EXPECT_NE(blank.find("refuses at line 5, which is blank: "), std::string::npos) << blank;
  EXPECT_NE(FileReport(CheckFile("/nowhere")).find("No such file"), std::string::npos);
  const std::string utf16("\xFF\xFEt\0\x1B[\n\0", 8);
  for (const FileCheck& check : {CheckText(utf16), CheckFile("/nowhere\x1B[31m\n")}) {
    const std::string shown = FileReport(check);
    EXPECT_TRUE(std::ranges::all_of(shown, [](char c) { return c == '\n' || !(c >= 0 && c < ' '); }))
        << shown;
  }
}

TEST(FileReport, NamesFormatsAsTheirWindowDoes) {
  WorkbenchSession session;
  std::string script =
      "file \"" KOPRAX_SOURCE_DIR "/examples/silicon.dat\"\nclick Form1.cmdInp\nclick Form4.cmdOK\n";
  for (int format = 1; format <= NumFormats; ++format) {
    script += "get Form7.Option" + std::to_string(format) + ".Caption\n";
  }
  int format = 0;
  for (const Json& answer : session.Play(script)) {
    if (!answer.contains("value")) continue;
    const auto caption = answer["value"].get<std::string>();
    EXPECT_EQ(caption.find(FormatName(++format)), caption.find_first_not_of(' ')) << caption;
  }
  EXPECT_EQ(format, NumFormats);
}

TEST(FileReport, JsonHoldsTheSame) {
  const Json json = JsonOfFileCheck(CheckText("t\r\n20 0.02 1.5\r\n5\r\n6\r\n\r\n\x01"));
  EXPECT_EQ(json["good"], false);
  EXPECT_EQ(json["formats"].size(), 7U);
  const Json& one = json["formats"][1];
  EXPECT_EQ(one["format"], "One column");
  EXPECT_EQ(one["points"], 4);
  EXPECT_EQ(one["findings"][0]["kind"], "control characters");
  EXPECT_EQ(one["findings"][0]["without it"]["points"], 3);
  EXPECT_EQ(one["findings"][1]["kind"], "blank lines");
  EXPECT_EQ(one["findings"][1]["line"], 5);
  EXPECT_EQ(one["findings"][1]["point"]["number"], 3);
  EXPECT_EQ(one["findings"][1]["text"], "a blank line counts; point 3 is read as 20.04, 0");
  EXPECT_TRUE(JsonOfFileCheck(CheckFile("/nowhere")).contains("error"));
}

TEST(CommandLine, TakesFilesAndOptionsAndRefusesTheRest) {
  const ProgramHelp program{.Name = "test", .Usage = "test", .Flags = {"--json"}, .Values = {"--output"}};
  const auto read = [&](std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "test");
    return ReadCommandLine(static_cast<int>(arguments.size()), arguments.data(), program);
  };
  const auto line = read({"a", "-", "--json", "--output", "-x", "--", "-b"});
  ASSERT_TRUE(std::holds_alternative<CommandLine>(line));
  EXPECT_EQ(std::get<CommandLine>(line).Files, (std::vector<std::string>{"a", "-", "-b"}));
  EXPECT_EQ(std::get<CommandLine>(line).Options.at("--output"), "-x");
  EXPECT_TRUE(std::get<CommandLine>(line).Options.contains("--json"));
  EXPECT_EQ(std::get<CommandLine>(read({"--output=o", "f"})).Options.at("--output"), "o");
  for (const auto& wrong : std::vector<std::vector<const char*>>{
           {}, {"--json"}, {"--help", "f"}, {"f", "--output"}, {"--json=1", "f"}, {"-j", "f"}}) {
    EXPECT_EQ(std::get<int>(read(wrong)), WrongCallStatus);
  }
  EXPECT_EQ(std::get<int>(read({"--help"})), 0);
}

TEST(CommandLine, OutputsThatWouldReplaceTheirInputAreSeenUnderEachName) {
  namespace files = std::filesystem;
  const ScratchFile file("answers", "command_line");
  const ScratchFile other("answers", "command_line_other");
  const files::path path = file.Path();
  const std::string link = file.Path() + ".link";
  files::create_symlink(path, link);
  for (const std::string& name : {file.Path(), link, (path.parent_path() / "." / path.filename()).string()}) {
    EXPECT_TRUE(WouldReplace(name, file.Path())) << name;
    EXPECT_TRUE(WouldReplace(file.Path(), name)) << name;
  }
  files::remove(link);
  for (const std::string& name : {other.Path(), std::string("/nowhere/a"), std::string()}) {
    EXPECT_FALSE(WouldReplace(name, file.Path())) << name;
  }
  EXPECT_FALSE(WouldReplace("/dev/null", "/dev/null"));
}

}  // namespace
}  // namespace koprax
