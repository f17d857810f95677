#include "app/collected_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace koprax {
namespace {

std::string Answer(const std::string& command, const std::string& value) {
  return R"({"line":1,"command":")" + command + R"(","ok":true,"value":)" + value + "}\n";
}

std::vector<std::string> TableOf(const std::vector<std::string>& answers) {
  std::vector<CollectedRun> runs;
  runs.reserve(answers.size());
  for (const std::string& each : answers) runs.push_back(CollectRun("run", each));
  return TableOfRuns(runs);
}

using Lines = std::vector<std::string>;

TEST(CollectedTable, QueriesAreColumnsAndRunsAreRows) {
  const Lines table =
      TableOf({Answer("", "1") + Answer(" get  Form6.Text5.Text ", R"("a")") +
                   Answer("click Form1.cmdStop", "7") + Answer("modal get Form6.Text5.Text", "2"),
               Answer("state CurBuf", "3") + Answer("get Form6.Text5.Text", "4")});
  EXPECT_EQ(table, (Lines{"file,ok,failed,error,Form6.Text5.Text,Form6.Text5.Text #2,CurBuf",
                          "run,true,0,,a,2,", "run,true,0,,4,,3"}));
}

TEST(CollectedTable, TablesAndObjectsHaveAColumnForEachEntry) {
  EXPECT_EQ(
      TableOf({Answer("state FitParam", "[0,1.5]") + Answer("state FitParam", "[2,[3]]") +
               Answer("get Form6", R"({"a":{"b":1},"c":[],"d":null,"e":true})")}),
      (Lines{"file,ok,failed,error,FitParam (0),FitParam (1),FitParam #2 (0),FitParam #2 (1) (0),Form6 (a) "
             "(b),Form6 (d),Form6 (e)",
             "run,true,0,,0,1.5,2,3,1,,true"}));
  std::string entries = "0";
  for (int i = 1; i <= 100; ++i) entries += "," + std::to_string(i);
  const CollectedRun run = CollectRun(
      "", Answer("state Long", "[" + entries + ",0]") + Answer("state Table", "[" + entries + "]"));
  EXPECT_EQ(run.LeftOut, Lines{"Long"});
  ASSERT_EQ(run.Cells.size(), 101U);  // entry 0 of a table that is numbered from 1, and a hundred
  EXPECT_EQ(run.Cells[100].Column, "Table (100)");
  EXPECT_TRUE(run.Well());
}

TEST(CollectedTable, NumbersStayAsTheyAreWrittenAndTextsAreQuotedWhereNeeded) {
  for (const char* number : {"0.10", "-0", "-0.0", "1E+07", "1.5e-05", "123456789012345678901234567890",
                             "-12", "0.30000001192092896"}) {
    EXPECT_EQ(TableOf({Answer("state N", number)})[1], std::string("run,true,0,,") + number);
  }
  EXPECT_EQ(TableOf({Answer("get A.B", R"("1,5 \"x\"\r\n2")")})[1], "run,true,0,,\"1,5 \"\"x\"\"\r\n2\"");
}

TEST(CollectedTable, FailedCommandsAndBrokenFilesAreToldInTheirRow) {
  const std::string failed = R"({"line":2,"command":"get A.B","ok":false,"error":"no, it's gone"})"
                             "\n";
  const std::string good = Answer("state N", "1");
  const std::vector<std::pair<std::string, std::string>> cases{
      {failed + good + failed, "run,false,2,\"no, it's gone\",1"},
      {failed + Answer("get A.B", "7"), "run,false,1,\"no, it's gone\",7"},
      {good + failed + R"({"line":3,"comm)",
       R"(run,false,1,"line 3 is no answer of koprax-script; no, it's gone",1)"},
      {"[1]\n\n" + good, "run,false,0,line 1 is no answer of koprax-script,1"},
      {std::string(100000, '[') + "\n" + good, "run,false,0,line 1 is no answer of koprax-script,1"},
      {"", "run,false,0,there are no answers"}};
  for (const auto& [answers, row] : cases) EXPECT_EQ(TableOf({answers})[1], row);
  EXPECT_EQ(TableOf({failed + Answer("get A.B", "7")})[0], "file,ok,failed,error,A.B #2");
  EXPECT_EQ(TableOfRuns({CollectRun("", good)})[1], ",true,0,,1");
  const CollectedRun missing = CollectFile("/nowhere/answers.jsonl");
  EXPECT_FALSE(missing.Well());
  EXPECT_NE(missing.Broken.find("No such file"), std::string::npos);
}

}  // namespace
}  // namespace koprax
