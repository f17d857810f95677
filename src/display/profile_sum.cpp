#include "display/profile_sum.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace koprax {

namespace {

constexpr double SameGridTolerance = 0.001;
constexpr double SameStepTolerance = 0.00001;
constexpr double SamePlaceTolerance = 0.0001;
constexpr double SmallDifference = 0.2;  // of the height of Y1; one below it keeps that height

constexpr std::size_t NoPoint = 0;

std::size_t PointCount(const ProfileBuffer& buffer) { return static_cast<std::size_t>(buffer.PermNpts); }

// ---- The points of the result ------------------------------------------------------------------------

/// Takes the result point by point, as far as it has room.
class ResultPoints {
 public:
  ResultPoints(ComputedProfile& sum, TwoProfileOperation operation) : sum_(sum), operation_(operation) {
    sum_.SumYMin = 100000;
    sum_.SumYMax = -100000;
  }

  /// One more point. False when there are too many, or this one is beyond 32 bits.
  [[nodiscard]] bool Add(float x, float y1, float y2) {
    if (count_ == MaxPoints) {
      too_many_ = true;
      return false;
    }
    ++count_;
    const float y = operation_ == TwoProfileOperation::Sum ? y1 + y2 : y1 - y2;
    sum_.SumX[count_] = x;
    sum_.SumY[count_] = y;
    sum_.SumYMin = std::min(sum_.SumYMin, y);
    sum_.SumYMax = std::max(sum_.SumYMax, y);
    finite_ = std::isfinite(y);
    return finite_;
  }

  [[nodiscard]] std::size_t Count() const { return count_; }
  [[nodiscard]] bool TooMany() const { return too_many_; }
  [[nodiscard]] bool Finite() const { return finite_; }

 private:
  ComputedProfile& sum_;
  TwoProfileOperation operation_;
  std::size_t count_ = 0;
  bool too_many_ = false;
  bool finite_ = true;
};

// ---- Where the points of the two meet ----------------------------------------------------------------

/// Points First to Last of a table; in a rising stretch X never falls from one to the next, so that places in
/// it are found by halving. A profile is mostly one such stretch, but needn't be.
struct Stretch {
  std::size_t First;
  std::size_t Last;
};

std::vector<Stretch> RisingStretches(const PointTable& x, const Stretch& whole) {
  std::vector<Stretch> stretches;
  for (std::size_t first = whole.First; first <= whole.Last;) {
    std::size_t last = first;
    while (last < whole.Last && x[last] <= x[last + 1]) {
      ++last;
    }
    stretches.push_back({first, last});
    first = last + 1;
  }
  return stretches;
}

/// The first point of a rising stretch whose X is not below `x`, and the first whose X is above it; one
/// behind the stretch when there is none.
struct Place {
  std::size_t NotBelow;
  std::size_t Above;
};

Place PlaceOf(float x, const PointTable& table, const Stretch& stretch) {
  const auto begin = table.begin() + static_cast<std::ptrdiff_t>(stretch.First);
  const auto end = table.begin() + static_cast<std::ptrdiff_t>(stretch.Last + 1);
  const auto [not_below, above] = std::equal_range(begin, end, x);
  return {static_cast<std::size_t>(not_below - table.begin()),
          static_cast<std::size_t>(above - table.begin())};
}

bool IsSameGrid(const ProfileBuffer& y1, const ProfileBuffer& y2) {
  const double left = static_cast<double>(y1.PermXMin) - y2.PermXMin;
  const double right = static_cast<double>(y1.PermXMax) - y2.PermXMax;
  const double step = static_cast<double>(y1.XStep) - y2.XStep;
  return std::abs(left + right + step) <= SameGridTolerance;
}

/// Goes from both first points by steps, each time with the one that is behind, until they meet or have
/// both moved. A step that doesn't lead on never makes them meet.
bool StepsMeet(float x1, float step1, float x2, float step2) {
  bool moved1 = false;
  bool moved2 = false;
  while (std::abs(static_cast<double>(x1) - x2) >= SamePlaceTolerance) {
    if (moved1 && moved2) {
      return false;
    }
    float& behind = x1 < x2 ? x1 : x2;
    const float next = behind + (x1 < x2 ? step1 : step2);
    if (next <= behind) {
      return false;
    }
    (x1 < x2 ? moved1 : moved2) = true;
    behind = next;
  }
  return true;
}

bool AreAligned(const ProfileBuffer& y1, const ProfileBuffer& y2) {
  return y1.XStep != 0 && std::abs(static_cast<double>(y1.XStep) - y2.XStep) <= SameStepTolerance &&
         StepsMeet(y1.WorkX[1], y1.XStep, y2.WorkX[1], y2.XStep);
}

// ---- The three ways ----------------------------------------------------------------------------------

void CombineOneByOne(const ProfileBuffer& y1, const ProfileBuffer& y2, ResultPoints& result) {
  for (std::size_t i = 1; i <= PointCount(y1); ++i) {
    if (!result.Add(y1.WorkX[i], y1.WorkY[i], y2.WorkY[i])) {
      return;
    }
  }
}

/// The last point of that X, or NoPoint.
std::size_t LastPointAt(float x, const ProfileBuffer& buffer) {
  std::size_t i = PointCount(buffer);
  while (i > NoPoint && buffer.WorkX[i] != x) {
    --i;
  }
  return i;
}

void CombineWhereEqual(const ProfileBuffer& y1, const ProfileBuffer& y2, float shared_start,
                       ResultPoints& result) {
  const std::size_t start1 = std::max<std::size_t>(LastPointAt(shared_start, y1), 1);
  const std::size_t start2 = std::max<std::size_t>(LastPointAt(shared_start, y2), 1);
  const std::vector<Stretch> stretches = RisingStretches(y2.WorkX, {start2, PointCount(y2)});
  for (std::size_t i = start1; i <= PointCount(y1); ++i) {
    for (const Stretch& stretch : stretches) {
      const Place place = PlaceOf(y1.WorkX[i], y2.WorkX, stretch);
      for (std::size_t j = place.NotBelow; j < place.Above; ++j) {
        if (!result.Add(y1.WorkX[i], y1.WorkY[i], y2.WorkY[j])) {
          return;
        }
      }
    }
  }
}

/// Y of the buffer at x, which lies between its points j and j + 1; each step is rounded to 32 bits. The two
/// may share one X, and then the first of them counts.
float InterpolatedY(const ProfileBuffer& buffer, std::size_t j, float x) {
  const float xa = buffer.WorkX[j];
  const float xb = buffer.WorkX[j + 1];
  const float ya = buffer.WorkY[j];
  const float yb = buffer.WorkY[j + 1];
  return xa == xb ? ya : ya + (x - xa) / (xb - xa) * (yb - ya);
}

void CombineInterpolated(const ProfileBuffer& y1, const ProfileBuffer& y2, ResultPoints& result) {
  const std::vector<Stretch> stretches = RisingStretches(y2.WorkX, {1, PointCount(y2)});
  for (std::size_t i = 1; i <= PointCount(y1); ++i) {
    const float x = y1.WorkX[i];
    for (const Stretch& stretch : stretches) {
      // Between j and j + 1 lies x when the X of j is not above it and that of j + 1 not below it.
      const Place place = PlaceOf(x, y2.WorkX, stretch);
      const std::size_t end = std::min(place.Above, stretch.Last);
      for (std::size_t j = std::max(place.NotBelow - 1, stretch.First); j < end; ++j) {
        if (!result.Add(x, y1.WorkY[i], InterpolatedY(y2, j, x))) {
          return;
        }
      }
    }
  }
}

void Combine(const ProfileBuffer& y1, const ProfileBuffer& y2, float shared_start, ResultPoints& result) {
  if (IsSameGrid(y1, y2)) {
    CombineOneByOne(y1, y2, result);
  } else if (AreAligned(y1, y2)) {
    CombineWhereEqual(y1, y2, shared_start, result);
  } else {
    CombineInterpolated(y1, y2, result);
  }
}

// ---- What stands in the way --------------------------------------------------------------------------

std::optional<Message> WhyNotCombined(const ProfileBuffer& y1, const ProfileBuffer& y2,
                                      TwoProfileOperation operation) {
  if (y1.IsCard() || y2.IsCard()) {
    const bool sum = operation == TwoProfileOperation::Sum;
    return Message{.Text = sum ? "PDF files cannot be summed!" : "PDF files cannot be subtracted!",
                   .Title = "Message"};
  }
  for (const ProfileBuffer* buffer : {&y1, &y2}) {
    if (buffer->PermNpts == 0) {
      return ErrorMessage("There are no points in buffer " + buffer->BufLetter +
                          ".\r\nDisplay two profiles that have points.");
    }
    if (buffer->WorkNpts != buffer->PermNpts) {  // points that are no more would get into the result
      return ErrorMessage("The profile in buffer " + buffer->BufLetter +
                          " has lost points since it was displayed.\r\nDisplay both profiles anew.");
    }
  }
  return std::nullopt;
}

std::optional<Message> WhyNoResult(const ResultPoints& result) {
  if (result.TooMany()) {
    return ErrorMessage(
        "The result would have more than " + std::to_string(MaxPoints) +
        " points.\r\nCut the first profile to a smaller range before: display it alone, zoom and save.");
  }
  if (!result.Finite()) {
    return ErrorMessage(
        "The result has intensities beyond 3.4E+38.\r\nMultiply both profiles by a small number first.");
  }
  if (result.Count() == 0) {
    return ErrorMessage("The two profiles have no common X.\r\nDisplay two profiles whose ranges overlap.");
  }
  return std::nullopt;
}

}  // namespace

std::string_view FormulaOf(TwoProfileOperation operation) {
  return operation == TwoProfileOperation::Sum ? "Y = Y1 + Y2" : "Y = Y1 - Y2";
}

std::optional<ProfilePair> SelectedPair(const Workspace& data) {
  int first = 0;
  for (int slot = 1; slot <= NumBuffers; ++slot) {
    if (data.SelBuf[static_cast<std::size_t>(slot)] == 1) {
      if (first != 0) {
        return ProfilePair{first, slot};
      }
      first = slot;
    }
  }
  return std::nullopt;
}

std::optional<Message> CombineProfiles(Workspace& data, const ProfilePair& pair,
                                       TwoProfileOperation operation) {
  const ProfileBuffer& y1 = data.Buffer(pair.First);
  const ProfileBuffer& y2 = data.Buffer(pair.Second);
  if (auto refusal = WhyNotCombined(y1, y2, operation)) {
    return refusal;
  }
  ComputedProfile sum;
  sum.SumXMin = std::max(y1.PermXMin, y2.PermXMin);
  sum.SumXMax = std::min(y1.PermXMax, y2.PermXMax);
  sum.SumXStep = y1.XStep;
  ResultPoints result(sum, operation);
  Combine(y1, y2, sum.SumXMin, result);
  if (auto refusal = WhyNoResult(result)) {
    return refusal;
  }
  sum.SumNpts = static_cast<float>(result.Count());
  if (operation == TwoProfileOperation::Difference && sum.SumYMax < SmallDifference * y1.PermYMax) {
    sum.SumYMax = y1.PermYMax;
  }
  data.Sum = std::move(sum);
  return std::nullopt;
}

void ResetComputedProfile(Workspace& data) { data.Sum = {}; }

}  // namespace koprax
