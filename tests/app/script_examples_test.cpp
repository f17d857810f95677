// The scripts that come with the program and lead from a profile to a number find the number that the profile
// was made with.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "app/workbench_session.h"
#include "file_text.h"
#include "tools/example_files.h"
#include "tools/example_profiles.h"

namespace koprax {
namespace {

/// The value that a script got last by a command.
Json LastValue(const std::vector<Json>& answers, const std::string& command) {
  const auto answer = std::find_if(answers.rbegin(), answers.rend(),
                                   [&](const Json& candidate) { return candidate["command"] == command; });
  return answer == answers.rend() ? Json() : (*answer)["value"];
}

std::vector<Json> Played(const std::string& name) {
  WorkbenchSession session;
  return session.Play(ScriptIn(KOPRAX_SOURCE_DIR "/examples/" + name, session.Folder()));
}

/// What stands behind a label, ready to be read.
std::istringstream Behind(const std::string& label, const std::string& text) {
  const auto at = text.find(label);
  return std::istringstream(at == std::string::npos ? "" : text.substr(at + label.size()));
}

TEST(ScriptExamples, TheCellThatMadeTheProfileLiesWithinItsDeviations) {
  const auto text = LastValue(Played("cell.kop"), "get Form26.Text23.Text").get<std::string>();
  double edge = 0;
  double edge_deviation = 0;
  Behind("   a   = ", text) >> edge >> edge_deviation;
  double zero = 0;
  double zero_deviation = 0;
  Behind("Zero correction (2-theta) = ", text) >> zero;
  Behind(" Standard deviation = ", text) >> zero_deviation;
  // The edge is told with 4 decimals, which adds half of the last one.
  EXPECT_NEAR(edge, examples::Silicon().A, 3 * edge_deviation + 0.5e-4) << text;
  EXPECT_NEAR(zero, examples::MonochromaticZeroError, 3 * zero_deviation + 0.5e-4) << text;
  // Counting noise moves a line of these widths and counts by 0.0002 to 0.002 degrees. At 2-theta of 100
  // degrees, and for seven lines that share a zero correction, that makes 5e-5 angstrom, give or take a
  // factor of 4, and as much as the lines themselves in the zero.
  EXPECT_GT(edge_deviation, 1e-5);
  EXPECT_LT(edge_deviation, 2e-4);
  EXPECT_GT(zero_deviation, 2e-4);
  EXPECT_LT(zero_deviation, 4e-3);
}

TEST(ScriptExamples, TheCalibrationFindsTheScaleOfTheDetector) {
  const std::vector<Json> answers = Played("calibration.kop");
  const Json found = LastValue(answers, "state CalPar(c)");
  ASSERT_EQ(found.size(), 8U);
  std::ifstream file(KOPRAX_SOURCE_DIR "/examples/detector.cal");
  std::string title;
  std::getline(file, title);
  const std::vector<double> made_with{std::istream_iterator<double>(file), {}};
  ASSERT_EQ(made_with.size(), 4U);
  for (double channel = 740; channel <= 3230; channel += 10) {
    double difference = 0;
    for (std::size_t i = 0; i < made_with.size(); ++i) {
      difference += (found[i + 1].get<double>() - made_with[i]) * std::pow(channel, i);
    }
    // Between the first and the last couple. The fit finds a line to a third of a channel, 0.008 degrees, at
    // worst; the table of the standard and the cell of the profile are 0.002 degrees apart.
    EXPECT_LT(std::abs(difference), 0.01) << channel;
  }
  // The explorer stands within half a channel of the line 111 of silicon.
  EXPECT_NEAR(std::stod(LastValue(answers, "get Form6.Text14.Text").get<std::string>()), 28.443, 0.02);
}

}  // namespace
}  // namespace koprax
