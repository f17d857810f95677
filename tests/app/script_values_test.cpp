#include "app/script_values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

namespace koprax {
namespace {

using testing::Contains;

TEST(ScriptValues, FloatsReadBackToTheSameBits) {
  EXPECT_EQ(JsonLine(JsonNumber(0.1F)), "0.1");
  EXPECT_EQ(JsonLine(JsonNumber(1.5406F)), "1.5406");
  EXPECT_EQ(JsonLine(JsonNumber(-0.0F)), "-0.0");
  EXPECT_EQ(JsonLine(JsonNumber(std::numeric_limits<float>::quiet_NaN())), "null");
  EXPECT_EQ(JsonLine(JsonNumber(-std::numeric_limits<float>::infinity())), "null");

  // Over all bit patterns with a stride that is prime, so that all exponents and many mantissas come up.
  constexpr std::uint64_t stride = 65537;
  for (std::uint64_t bits = 0; bits <= 0xFFFFFFFFU; bits += stride) {
    const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    if (!std::isfinite(value)) {
      continue;
    }
    const std::string text = JsonLine(JsonNumber(value));
    // Readers of JSON take a number as 64 bits and may go on to 32.
    const auto twice = static_cast<float>(std::strtod(text.c_str(), nullptr));
    ASSERT_EQ(std::bit_cast<std::uint32_t>(std::strtof(text.c_str(), nullptr)), bits) << text;
    ASSERT_EQ(std::bit_cast<std::uint32_t>(twice), bits) << text;
  }
}

TEST(ScriptValues, WorkspaceFieldsByName) {
  Workspace data;
  data.CurBuf = 2;
  data.ModeFit = true;
  data.Plot.ScaleX = 0.3F;
  data.Words.WordVal[24] = 1.25F;
  EXPECT_EQ(JsonOfWorkspaceField(data, "CurBuf"), Json(2));
  EXPECT_EQ(JsonOfWorkspaceField(data, "ModeFit"), Json(-1)) << "flags are numbers";
  EXPECT_EQ(JsonOfWorkspaceField(data, "ModeOut"), Json(0));
  EXPECT_EQ(JsonOfWorkspaceField(data, "MaxPoints"), Json(8000));
  EXPECT_EQ(JsonOfWorkspaceField(data, "ScaleX"), Json(0.3));
  EXPECT_EQ(JsonOfWorkspaceField(data, "WordVal")->size(), 25U);
  EXPECT_EQ((*JsonOfWorkspaceField(data, "WordVal"))[24], Json(1.25));
  EXPECT_EQ(JsonOfWorkspaceField(data, "PermX"), std::nullopt);
  EXPECT_EQ(JsonOfWorkspaceField(data, "curbuf"), std::nullopt);

  data.Plot.ScaleY = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(JsonOfWorkspaceField(data, "ScaleY"), Json()) << "a field without a number is still a field";
}

TEST(ScriptValues, ABufferShowsItsPointsAndPeaksToTheirCounts) {
  ProfileBuffer buffer;
  buffer.Title = "quartz";
  buffer.PermNpts = 2;
  buffer.PermX = {9, 20, 20.02F, 7};
  buffer.PermY = {9, 100, 101, 7};
  buffer.WorkNpts = 1;
  buffer.NPeaks = 1;
  buffer.PeakD[1] = "3.34";
  buffer.CalPar[1] = 0.1;
  buffer.CardCell[1] = 4.913F;
  const Json record = JsonOfBuffer(buffer);
  EXPECT_EQ(record["Title"], "quartz");
  EXPECT_EQ(record["PermX"], Json({20.0, 20.02}));
  EXPECT_EQ(record["WorkX"].size(), 1U);
  EXPECT_EQ(record["PeakD"], Json::array({"3.34"}));
  EXPECT_EQ(record["CalPar"], Json({0.0, 0.1, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0})) << "64 bits, with entry 0";
  EXPECT_EQ(record["CardCell"][1], Json(4.913));
  EXPECT_EQ(JsonOfBufferField(buffer, "PermX")->size(), 4U) << "a field alone comes whole";

  buffer.PermNpts = -1;
  buffer.WorkNpts = std::numeric_limits<std::int16_t>::max();
  EXPECT_TRUE(JsonOfBuffer(buffer)["PermX"].empty());
  EXPECT_EQ(JsonOfBuffer(buffer)["WorkX"].size(), static_cast<std::size_t>(MaxPoints));
}

/// The name that a line of a header declares as a member of a struct, or "".
std::string DeclaredMember(const std::string& line) {
  const std::string declaration = line.substr(0, line.find_first_of(";={"));
  const auto name_start = declaration.find_last_of(' ', declaration.find_last_not_of(' '));
  const bool indented = line.starts_with("  ") && !line.starts_with("   ") && !line.starts_with("  /");
  if (!indented || declaration.size() == line.size() || declaration.find('(') != std::string::npos) {
    return "";
  }
  const std::string name = declaration.substr(name_start + 1);
  return name.substr(0, name.find(' '));
}

TEST(ScriptValues, EveryDeclaredFieldOfTheWorkspaceCanBeNamed) {
  std::ifstream header(KOPRAX_SOURCE_DIR "/src/workspace/workspace.h");
  ASSERT_TRUE(header);
  const std::vector<std::string> known = WorkspaceFieldNames();
  // The fields of these are named each by itself; the values of the enumeration are no fields.
  const std::vector<std::string> not_fields{"", "Buffers", "Words", "Plot", "Edit", "Sum", "Fit", "Coupled"};
  int members = 0;
  for (std::string line; std::getline(header, line);) {
    const std::string name = line.ends_with(',') ? "" : DeclaredMember(line);
    if (std::ranges::find(not_fields, name) == not_fields.end()) {
      EXPECT_THAT(known, Contains(name)) << line;
      ++members;
    }
  }
  EXPECT_GT(members, 70) << "the members are no longer found in the header";
}

}  // namespace
}  // namespace koprax
