// The sample profiles: what is committed is what the tool makes, and what it makes obeys published facts.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "files/card_format.h"
#include "files/channel_format.h"
#include "files/column_formats.h"
#include "files/philips_format.h"
#include "files/siemens_format.h"
#include "tools/example_files.h"
#include "tools/example_profiles.h"
#include "workspace/workspace.h"

namespace koprax {
namespace {

using examples::Phase;
using examples::PlaneSpacing;
using examples::Reflection;

std::string ExamplePath(const std::string& name) {
  return std::string(KOPRAX_SOURCE_DIR) + "/examples/" + name;
}

Workspace Loaded(const std::string& name, ReadOutcome (*reader)(Workspace&, int, const TellUser&)) {
  Workspace workspace;
  workspace.FileName = ExamplePath(name);
  const ReadOutcome outcome =
      reader(workspace, 1, [](const Message& message) { ADD_FAILURE() << message.Text; });
  EXPECT_FALSE(outcome.Failed) << (outcome.Problem ? outcome.Problem->Text : "");
  return workspace;
}

/// 2-theta of the highest point of a range.
float HighestIn(const ProfileBuffer& buffer, float from, float to) {
  float x = 0;
  float highest = -1;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(buffer.PermNpts); ++i) {
    if (buffer.PermX[i] >= from && buffer.PermX[i] <= to && buffer.PermY[i] > highest) {
      x = buffer.PermX[i];
      highest = buffer.PermY[i];
    }
  }
  return x;
}

/// The area of a range above the straight line between its ends, in counts.
double NetArea(const ProfileBuffer& buffer, float from, float to) {
  std::vector<double> counts;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(buffer.PermNpts); ++i) {
    if (buffer.PermX[i] >= from && buffer.PermX[i] <= to) {
      counts.push_back(buffer.PermY[i]);
    }
  }
  double area = 0;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    const double share = static_cast<double>(i) / static_cast<double>(counts.size() - 1);
    area += counts[i] - (counts.front() * (1 - share) + counts.back() * share);
  }
  return area;
}

TEST(Examples, CommittedFilesAreWhatTheToolMakes) {
  for (const auto& [name, contents] : examples::ExampleFiles()) {
    std::ifstream file(ExamplePath(name), std::ios::binary);
    const std::string committed{std::istreambuf_iterator<char>(file), {}};
    EXPECT_TRUE(committed == contents) << name << " differs: run make_examples examples";
  }
}

// d as tabulated by the National Bureau of Standards in 1960 for a cell measured by film and counter:
// the certified cells of today agree within 5 parts in 10000.
TEST(Examples, PlaneSpacingsAgreeWithPublishedTables) {
  const auto expect_spacing = [](const Phase& phase, const Reflection& reflection, double published) {
    EXPECT_NEAR(PlaneSpacing(phase, reflection), published, 5e-4 * published) << published;
  };
  expect_spacing(examples::Silicon(), {1, 1, 1}, 3.1355);
  expect_spacing(examples::Silicon(), {3, 1, 1}, 1.6375);
  expect_spacing(examples::Silicon(), {5, 3, 3}, 0.8282);
  expect_spacing(examples::Corundum(), {0, 1, 2}, 3.479);
  expect_spacing(examples::Corundum(), {1, 1, 0}, 2.379);
  expect_spacing(examples::Corundum(), {1, 0, 10}, 1.239);
}

TEST(Examples, SiliconHasItsLinesWhereItShould) {
  const Workspace workspace = Loaded("silicon.dat", ReadItalDat);
  const ProfileBuffer& buffer = workspace.Buffer(1);
  EXPECT_EQ(buffer.PermNpts, 6001);
  EXPECT_FLOAT_EQ(buffer.Wavelength, 1.540596F);
  // 2-theta of the powder standard as published for K-alpha 1; a step of 0.02 and the noise at the top of
  // a line move the highest point by two steps at most.
  EXPECT_NEAR(HighestIn(buffer, 27, 30), 28.442, 0.04);
  EXPECT_NEAR(HighestIn(buffer, 46, 48), 47.303, 0.04);
  EXPECT_NEAR(HighestIn(buffer, 55, 57), 56.123, 0.04);
  // Integrated intensities 100 : 55 by the table. The noise of the two end points, 14 counts each over
  // 100 points, makes 2 per cent of the stronger line, and the tails beyond the ranges take as much.
  EXPECT_NEAR(NetArea(buffer, 46.3F, 48.3F) / NetArea(buffer, 27.4F, 29.4F), 0.55, 0.04);
}

TEST(Examples, LowAngleLinesLeanToTheLeft) {
  const Workspace workspace = Loaded("silicon.dat", ReadItalDat);
  // K-alpha 2 widens a line on its right, and axial divergence on its left: at 28 degrees, where
  // K-alpha 2 is 0.07 degrees away, the left foot is what tells.
  const double top = HighestIn(workspace.Buffer(1), 27, 30);
  const auto at = [&](double x) {
    return workspace.Buffer(1).PermY[static_cast<std::size_t>(std::lround((x - 20) / 0.02) + 1)];
  };
  const double half = at(top) / 2;
  double left = top;
  while (at(left) > half) {
    left -= 0.02;
  }
  // Without asymmetry the left half would be narrower than half the width of 0.074 degrees.
  EXPECT_GE(top - left, 0.04);
}

TEST(Examples, CorundumLeavesTheWavelengthOutAndTheMixtureTellsIt) {
  const Workspace corundum = Loaded("corundum_one_column.txt", ReadOneColumn);
  EXPECT_EQ(corundum.Buffer(1).PermNpts, 4001);
  EXPECT_EQ(corundum.Buffer(1).Wavelength, 0);
  EXPECT_NEAR(HighestIn(corundum.Buffer(1), 20, 100), 43.35, 0.04);

  const Workspace mixture = Loaded("silicon_corundum_two_columns.txt", ReadTwoColumns);
  EXPECT_EQ(mixture.Buffer(1).PermNpts, 3501);
  EXPECT_FLOAT_EQ(mixture.Buffer(1).Wavelength, 1.540596F);
  EXPECT_FLOAT_EQ(mixture.Buffer(1).XStep, 0.02F);
  EXPECT_NEAR(HighestIn(mixture.Buffer(1), 25, 27), 25.57, 0.04);
  EXPECT_NEAR(HighestIn(mixture.Buffer(1), 27, 30), 28.44, 0.04);
}

TEST(Examples, TheDetectorSeesSiliconThroughItsCalibration) {
  const Workspace workspace = Loaded("silicon_channels.adf", ReadAdf);
  const ProfileBuffer& buffer = workspace.Buffer(1);
  EXPECT_EQ(buffer.PermNpts, 4096);
  std::ifstream file(ExamplePath("detector.cal"));
  std::string title;
  std::getline(file, title);
  std::vector<double> coefficients{std::istream_iterator<double>(file), {}};
  ASSERT_EQ(coefficients.size(), 4U);
  const auto two_theta = [&](double c) {
    return coefficients[0] + coefficients[1] * c + coefficients[2] * c * c + coefficients[3] * c * c * c;
  };
  // Published 2-theta of the powder standard; a channel is 0.027 degrees wide, two of them for the noise.
  EXPECT_NEAR(two_theta(HighestIn(buffer, 700, 800)), 28.442, 0.054);
  EXPECT_NEAR(two_theta(HighestIn(buffer, 1400, 1500)), 47.303, 0.054);
  EXPECT_NEAR(two_theta(HighestIn(buffer, 2480, 2590)), 76.377, 0.054);
}

TEST(Examples, TheFilesWithNamedLinesAndTheCardLoad) {
  const Workspace philips = Loaded("corundum.udf", ReadUdf);
  EXPECT_EQ(philips.Buffer(1).PermNpts, 3001);
  EXPECT_FLOAT_EQ(philips.Buffer(1).Wavelength, 1.5406F);
  EXPECT_NEAR(HighestIn(philips.Buffer(1), 20, 80), 43.35, 0.04);
  const Workspace siemens = Loaded("silicon.uxd", ReadUxd);
  EXPECT_EQ(siemens.Buffer(1).PermNpts, 2001);
  EXPECT_NEAR(HighestIn(siemens.Buffer(1), 25, 65), 28.442, 0.04);

  Workspace card;
  card.FileName = ExamplePath("corundum.aid");
  const auto told = [](const Message& message) { ADD_FAILURE() << message.Text; };
  EXPECT_FALSE(ReadAid(card, 1, told, [] { return 1.540596F; }).Failed);
  ASSERT_EQ(card.Buffer(1).PermNpts, 24);
  EXPECT_EQ(card.Buffer(1).CardSpaceGroup, "R-3c");
  // 2-theta of 113 and 300 as certified for the powder standard SRM 676a; d has 4 decimals in a card.
  EXPECT_NEAR(card.Buffer(1).PermX[4], 43.35, 0.01);
  EXPECT_NEAR(card.Buffer(1).PermX[12], 68.20, 0.01);
}

}  // namespace
}  // namespace koprax
