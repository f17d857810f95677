// The sum and the difference of two profiles, against the double loops that define where points meet.
#include "display/profile_sum.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::vector<float> ResultOf(const PointTable& table, const Workspace& data) {
  return {table.begin() + 1, table.begin() + 1 + static_cast<std::ptrdiff_t>(data.Sum.SumNpts)};
}

enum class Way { OneByOne, WhereEqual, Interpolated };

/// Whether points at x1, x1 + step, ... meet those at x2, x2 + step, ...: by the two points walking.
bool PlainlyAligned(const ProfileBuffer& b1, const ProfileBuffer& b2) {
  if (b1.XStep == 0 || std::abs(static_cast<double>(b1.XStep) - b2.XStep) > 0.00001) return false;
  float x1 = b1.WorkX[1];
  float x2 = b2.WorkX[1];
  for (bool moved1 = false, moved2 = false;;) {
    if (std::abs(static_cast<double>(x1) - x2) < 0.0001) return true;
    if (moved1 && moved2) return false;
    if (x1 < x2) {
      x1 += b1.XStep;
      moved1 = true;
    } else {
      x2 += b2.XStep;
      moved2 = true;
    }
  }
}

/// The definition: every point of Y1 is held against every point, or pair of neighbours, of Y2.
struct PlainLoops {
  PlainLoops(const ProfileBuffer& b1, const ProfileBuffer& b2, bool sum) {
    const auto add = [&](float x, float y1, float y2) {
      X.push_back(x);
      Y.push_back(sum ? y1 + y2 : y1 - y2);
    };
    const double corners = (static_cast<double>(b1.PermXMin) - b2.PermXMin) +
                           (static_cast<double>(b1.PermXMax) - b2.PermXMax) +
                           (static_cast<double>(b1.XStep) - b2.XStep);
    const auto n1 = static_cast<std::size_t>(b1.PermNpts);
    const auto n2 = static_cast<std::size_t>(b2.PermNpts);
    if (std::abs(corners) <= 0.001) {
      Taken = Way::OneByOne;
      for (std::size_t i = 1; i <= n1; ++i) add(b1.WorkX[i], b1.WorkY[i], b2.WorkY[i]);
    } else if (PlainlyAligned(b1, b2)) {
      Taken = Way::WhereEqual;
      const float start = std::max(b1.PermXMin, b2.PermXMin);
      std::size_t s1 = 1;
      std::size_t s2 = 1;
      for (std::size_t i = 1; i <= n1; ++i) s1 = b1.WorkX[i] == start ? i : s1;
      for (std::size_t j = 1; j <= n2; ++j) s2 = b2.WorkX[j] == start ? j : s2;
      for (std::size_t i = s1; i <= n1; ++i) {
        for (std::size_t j = s2; j <= n2; ++j) {
          if (b2.WorkX[j] == b1.WorkX[i]) add(b1.WorkX[i], b1.WorkY[i], b2.WorkY[j]);
        }
      }
    } else {
      for (std::size_t i = 1; i <= n1; ++i) {
        const float x = b1.WorkX[i];
        for (std::size_t j = 1; j < n2; ++j) {
          const float xa = b2.WorkX[j];
          const float xb = b2.WorkX[j + 1];
          if (!(xa <= x && x <= xb)) continue;
          const float share = xa == xb ? 0 : (x - xa) / (xb - xa);
          const float rise = share * (b2.WorkY[j + 1] - b2.WorkY[j]);
          add(x, b1.WorkY[i], b2.WorkY[j] + rise);
        }
      }
    }
  }

  Way Taken = Way::Interpolated;
  std::vector<float> X, Y;
};

/// Profiles at random: even and uneven ones, falling ones, with equal X, with stale points behind.
class RandomProfiles {
 public:
  explicit RandomProfiles(std::uint32_t seed) : random_(seed) {}

  void Fill(ProfileBuffer& buffer, int kind) {
    const int count = Whole(1, 40);
    buffer.PermNpts = buffer.WorkNpts = static_cast<std::int16_t>(count);
    buffer.XStep = kind == 0 ? 0.25F : kind == 1 ? Part(0.1F, 0.5F) : 0;
    const float start = kind == 0 ? 10 + 0.25F * static_cast<float>(Whole(0, 8)) : Part(8, 14);
    for (std::size_t i = 0; i < 50; ++i) {
      const bool even = kind < 2;
      const auto k = static_cast<float>(i) - 1;
      buffer.WorkX[i] = i == 0 ? 0 : even ? start + k * buffer.XStep : static_cast<float>(Whole(40, 60)) / 4;
      buffer.WorkY[i] = Part(-100, 1000);
    }
    const auto end = static_cast<std::ptrdiff_t>(count) + 1;
    if (kind == 3) std::sort(buffer.WorkX.begin() + 1, buffer.WorkX.begin() + end);
    if (kind == 4) std::sort(buffer.WorkX.begin() + 1, buffer.WorkX.begin() + end, std::greater<>());
    buffer.PermXMin = buffer.WorkX[1];
    buffer.PermXMax = buffer.WorkX[static_cast<std::size_t>(count)];
    buffer.PermYMax = 100;
    if (Whole(0, 9) == 0) buffer.WorkX[static_cast<std::size_t>(Whole(1, count))] += 0.25F;
  }

  int Whole(int low, int high) { return std::uniform_int_distribution<>(low, high)(random_); }

 private:
  float Part(float low, float high) { return std::uniform_real_distribution<float>(low, high)(random_); }
  std::mt19937 random_;
};

TEST(ProfileSum, TheSameBitsInTheSameOrderAsThePlainLoops) {
  RandomProfiles random(7);
  std::array<int, 3> ways{};
  int empty = 0;
  Workspace data;
  for (int round = 0; round < 1500; ++round) {
    ProfileBuffer& b1 = data.Buffer(2);
    ProfileBuffer& b2 = data.Buffer(5);
    random.Fill(b1, random.Whole(0, 4));
    random.Fill(b2, b1.XStep == 0.25F ? 0 : random.Whole(0, 4));
    const bool sum = random.Whole(0, 1) == 0;
    const PlainLoops expected(b1, b2, sum);
    const auto refusal =
        CombineProfiles(data, {2, 5}, sum ? TwoProfileOperation::Sum : TwoProfileOperation::Difference);
    ASSERT_EQ(refusal.has_value(), expected.X.empty()) << round;
    ++ways[static_cast<std::size_t>(expected.Taken)];
    if (expected.X.empty()) {
      ++empty;
      continue;
    }
    ASSERT_EQ(ResultOf(data.Sum.SumX, data), expected.X) << round;
    ASSERT_EQ(ResultOf(data.Sum.SumY, data), expected.Y) << round;
    const float highest = *std::ranges::max_element(expected.Y);
    EXPECT_EQ(data.Sum.SumYMin, *std::ranges::min_element(expected.Y));
    EXPECT_EQ(data.Sum.SumYMax, !sum && highest < 20 ? 100 : highest);
    EXPECT_EQ(data.Sum.SumXMin, std::max(b1.PermXMin, b2.PermXMin));
    EXPECT_EQ(data.Sum.SumXMax, std::min(b1.PermXMax, b2.PermXMax));
    EXPECT_EQ(data.Sum.SumXStep, b1.XStep);
  }
  EXPECT_THAT(ways, testing::Each(testing::Gt(20))) << "each way is to be gone";
  EXPECT_LT(empty, 700);
}

/// Two profiles in buffers a and c, each from its first X on in even steps.
class TwoProfiles : public testing::Test {
 protected:
  TwoProfiles() {
    Data.SelBuf[1] = Data.SelBuf[3] = 1;
    Put(Y1, 10, 0.5F, {10, 20, 30, 40});
    Put(Y2, 10.5F, 0.25F, {1, 3, 5, 7, 9});
  }
  static void Put(ProfileBuffer& buffer, float start, float step, const std::vector<float>& y) {
    buffer.PermNpts = buffer.WorkNpts = static_cast<std::int16_t>(y.size());
    buffer.XStep = step;
    for (std::size_t i = 1; i <= y.size(); ++i) {
      buffer.WorkX[i] = start + step * static_cast<float>(i - 1);
      buffer.WorkY[i] = y[i - 1];
    }
    buffer.PermXMin = buffer.WorkX[1];
    buffer.PermXMax = buffer.WorkX[y.size()];
    buffer.PermYMin = *std::ranges::min_element(y);
    buffer.PermYMax = *std::ranges::max_element(y);
  }
  std::string Refusal(TwoProfileOperation operation = TwoProfileOperation::Sum) {
    const auto refusal = CombineProfiles(Data, {1, 3}, operation);
    return refusal ? refusal->Title + ": " + refusal->Text : "";
  }
  [[nodiscard]] std::vector<float> X() const { return ResultOf(Data.Sum.SumX, Data); }
  [[nodiscard]] std::vector<float> Y() const { return ResultOf(Data.Sum.SumY, Data); }

  Workspace Data;
  ProfileBuffer& Y1 = Data.Buffer(1);
  ProfileBuffer& Y2 = Data.Buffer(3);
};

TEST_F(TwoProfiles, Entry0IsNoneOfTheAlignedPoints) {
  Put(Y2, 11, 0.5F, {1, 2, 3, 4});
  // Both have been shifted, so that neither has a point where the permanent copies begin to overlap; the
  // entries 0 have the same X.
  for (std::size_t i = 1; i <= 4; ++i) {
    Y1.WorkX[i] += 100;
    Y2.WorkX[i] += 100;
  }
  EXPECT_EQ(Refusal(), "");
  EXPECT_THAT(X(), ElementsAre(111, 111.5F));
}

TEST_F(TwoProfiles, AlmostTheSameGridStepOrPlaceIsTheSame) {
  struct Row {
    float A, B;
    std::size_t Points;
  };
  // Step and first place of Y2: points that meet where X is equal count once, else twice between neighbours.
  for (const auto& [step, place, points] :
       {Row{0.500009F, 10.5F, 3}, Row{0.500011F, 10.5F, 5}, Row{0.499989F, 10.5F, 5}, Row{0.5F, 10.50009F, 2},
        Row{0.5F, 10.50011F, 4}, Row{0.5F, 10.49989F, 5}}) {
    Put(Y2, 10.5F, 0.5F, {1, 2, 3, 4});
    Y2.XStep = step;
    Y2.WorkX[1] = place;
    EXPECT_EQ(Refusal(), "");
    EXPECT_EQ(X().size(), points) << step << " " << place;
  }
  // Limits of Y2: one by one whatever its X is, else where X is equal.
  for (const auto& [left, right, points] :
       {Row{10.0009F, 11.5F, 4}, Row{10.0011F, 11.5F, 3}, Row{10, 11.4991F, 4}, Row{10, 11.4989F, 3},
        Row{10.25F, 11.25F, 4}}) {
    Put(Y2, 10, 0.5F, {1, 2, 3, 4});
    Y2.WorkX[3] = 99;
    Y2.PermXMin = left;
    Y2.PermXMax = right;
    EXPECT_EQ(Refusal(), "");
    EXPECT_EQ(X().size(), points) << left << " " << right;
  }
}

TEST_F(TwoProfiles, TheLimitsOfTheResult) {
  Y2 = Y1;
  EXPECT_EQ(Refusal(TwoProfileOperation::Difference), "");
  EXPECT_THAT(Y(), ElementsAre(0, 0, 0, 0));
  EXPECT_EQ(Data.Sum.SumYMax, 40);
  Y2.WorkY[2] = 12;  // leaves 8, which is 0.2 times 40
  EXPECT_EQ(Refusal(TwoProfileOperation::Difference), "");
  EXPECT_EQ(Data.Sum.SumYMax, 8);
  EXPECT_EQ(Refusal(), "");
  EXPECT_EQ(Data.Sum.SumYMax, 80);
  for (const float y : {60000.0F, -60000.0F}) {  // where the search for the limits doesn't reach
    Put(Y1, 10, 0.5F, {y, y});
    Y2 = Y1;
    EXPECT_EQ(Refusal(), "");
    EXPECT_EQ(Data.Sum.SumYMin, std::min(2 * y, 100000.0F));
    EXPECT_EQ(Data.Sum.SumYMax, std::max(2 * y, -100000.0F));
  }
  EXPECT_EQ(SelectedPair(Data), (ProfilePair{1, 3}));
  Data.SelBuf[1] = 0;
  EXPECT_EQ(SelectedPair(Data), std::nullopt);
}

TEST_F(TwoProfiles, StepsThatLeadNowhereDontAlign) {
  for (const float step : {-0.5F, 1e-7F, -1e-7F}) {
    Y1.XStep = Y2.XStep = step;
    EXPECT_EQ(Refusal(), "");
    EXPECT_EQ(X().size(), 4U) << "interpolated, with step " << step;
  }
}

TEST_F(TwoProfiles, WithoutAResultTheOneOfBeforeStays) {
  EXPECT_EQ(Refusal(), "");
  const auto before = Y();
  const ProfileBuffer good1 = Y1;
  const ProfileBuffer good2 = Y2;
  const auto expect = [&](const std::string& text, TwoProfileOperation operation = TwoProfileOperation::Sum) {
    EXPECT_THAT(Refusal(operation), HasSubstr(text));
    EXPECT_EQ(Y(), before) << text;
    Y1 = good1;
    Y2 = good2;
  };
  Y2.FormatCode = static_cast<std::int16_t>(FormatCodes::Card);
  expect("Message: PDF files cannot be summed!");
  Y1.FormatCode = static_cast<std::int16_t>(FormatCodes::Card);
  expect("Message: PDF files cannot be subtracted!", TwoProfileOperation::Difference);
  Y2.PermNpts = 0;
  expect("no points in buffer c");
  Y1.WorkNpts = 2;
  expect("buffer a has lost points");
  Put(Y2, 50, 0.25F, {1, 2});
  expect("no common X");
  Y1.WorkY[3] = Y2.WorkY[3] = 3e38F;
  expect("3.4E+38");
  // 81 points, all at one place, between 100 intervals that are all empty there: 8100 results.
  Put(Y1, 10, 0, std::vector<float>(81, 1));
  Put(Y2, 10, 0, std::vector<float>(101, 1));
  Y1.PermXMax = 11;
  expect("more than 8000 points");
  Put(Y1, 10, 0, std::vector<float>(80, 1));
  Put(Y2, 10, 0, std::vector<float>(101, 1));
  Y1.PermXMax = 11;
  EXPECT_EQ(Refusal(), "");
  EXPECT_EQ(Data.Sum.SumNpts, 8000);
  ResetComputedProfile(Data);
  EXPECT_EQ(Data.Sum.SumNpts + Data.Sum.SumX[8000] + Data.Sum.SumY[1] + Data.Sum.SumXMin, 0);
  EXPECT_EQ(Data.Sum.SumXMax * Data.Sum.SumYMax, 1);
}

}  // namespace
}  // namespace koprax
