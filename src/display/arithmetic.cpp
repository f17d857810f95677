#include "display/arithmetic.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace koprax {

namespace {

constexpr float SafeExponent = 10;      // e to a larger or smaller power may leave 32 bits
constexpr double SafeArgument = 0.001;  // of a logarithm
constexpr double RoomAboveLogarithm = 1.2;

/// Notes one more new value; false when it ends the operation.
bool Note(OperationResult& result, float value) {
  if (!std::isfinite(value)) {
    result.End = OperationEnd::Beyond32Bits;
    return false;
  }
  result.AnyNegative = result.AnyNegative || value < 0;
  result.Min = std::min(result.Min, value);
  result.Max = std::max(result.Max, value);
  return true;
}

/// Computes one new value a point, from points 1 to `count`. Before each the hindrance tells whether the
/// operation can go on from the old value.
template <class Hindrance, class Operation>
OperationResult ForEachPoint(const PointTable& from, PointTable& to, int count, Hindrance hindrance,
                             Operation operation) {
  OperationResult result;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(count); ++i) {
    result.End = hindrance(from[i]);
    if (result.End != OperationEnd::Complete) {
      break;
    }
    to[i] = operation(from[i]);
    if (!Note(result, to[i])) {
      break;
    }
  }
  return result;
}

OperationEnd NoHindrance(float /*value*/) { return OperationEnd::Complete; }

float NewTop(float old_top, const OperationResult& result, TopOfScale top) {
  switch (top) {
    case TopOfScale::NeverFalls:
      return std::max(old_top, result.Max);
    case TopOfScale::LogarithmOfOld:
      if (old_top > 0) {
        return static_cast<float>(std::log(RoomAboveLogarithm * old_top));
      }
      [[fallthrough]];
    case TopOfScale::Highest:
      break;
  }
  return result.Max;
}

}  // namespace

OperationResult AddToY(Workspace& data, const ProfileBuffer& buffer, float k) {
  return ForEachPoint(buffer.WorkY, data.ScratchY, buffer.WorkNpts, NoHindrance,
                      [k](float y) { return y + k; });
}

OperationResult MultiplyY(Workspace& data, const ProfileBuffer& buffer, float k) {
  return ForEachPoint(buffer.WorkY, data.ScratchY, buffer.WorkNpts, NoHindrance,
                      [k](float y) { return y * k; });
}

OperationResult AddToX(Workspace& data, const ProfileBuffer& buffer, float k) {
  return ForEachPoint(buffer.WorkX, data.ScratchX, buffer.WorkNpts, NoHindrance,
                      [k](float x) { return x + k; });
}

OperationResult ExponentialOfY(Workspace& data, const ProfileBuffer& buffer, const AskToGoOn& go_on) {
  bool asked = false;
  const auto hindrance = [&](float y) {
    const bool safe = -SafeExponent < y && y < SafeExponent;
    if (safe || asked) {
      return OperationEnd::Complete;
    }
    asked = true;
    return go_on() ? OperationEnd::Complete : OperationEnd::Declined;
  };
  return ForEachPoint(buffer.WorkY, data.ScratchY, buffer.WorkNpts, hindrance,
                      [](float y) { return static_cast<float>(std::exp(static_cast<double>(y))); });
}

OperationResult LogarithmOfY(Workspace& data, const ProfileBuffer& buffer, const AskToGoOn& go_on) {
  const auto hindrance = [&](float y) {
    if (y <= 0) {
      return OperationEnd::NotPositive;
    }
    return y >= SafeArgument || go_on() ? OperationEnd::Complete : OperationEnd::Declined;
  };
  return ForEachPoint(buffer.WorkY, data.ScratchY, buffer.WorkNpts, hindrance,
                      [](float y) { return static_cast<float>(std::log(static_cast<double>(y))); });
}

void TakeNewY(Workspace& data, ProfileBuffer& buffer, const OperationResult& result, TopOfScale top) {
  std::copy_n(data.ScratchY.begin() + 1, buffer.WorkNpts, buffer.WorkY.begin() + 1);
  buffer.WorkYMax = NewTop(buffer.WorkYMax, result, top);
  buffer.WorkYMin = result.Min;
}

void TakeNewX(Workspace& data, ProfileBuffer& buffer, const OperationResult& result) {
  std::size_t kept = 0;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(buffer.WorkNpts); ++i) {
    if (data.ScratchX[i] >= 0) {
      ++kept;
      buffer.WorkX[kept] = data.ScratchX[i];
      buffer.WorkY[kept] = buffer.WorkY[i];
    }
  }
  const auto lost = static_cast<std::size_t>(buffer.WorkNpts) - kept;
  for (PointTable* table : {&buffer.WorkX, &buffer.WorkY}) {
    std::fill_n(table->begin() + 1 + static_cast<std::ptrdiff_t>(kept), lost, 0.0F);
  }
  if (kept > 0) {
    buffer.WorkXMin = buffer.WorkX[1];
  }
  buffer.WorkNpts = static_cast<std::int16_t>(kept);
  buffer.WorkXMax = result.Max;
}

}  // namespace koprax
