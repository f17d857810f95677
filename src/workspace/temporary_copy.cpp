#include "workspace/temporary_copy.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace koprax {

namespace {

constexpr double XTolerance = 0.0001;

bool Differ(double left, double right) { return std::abs(left - right) > XTolerance; }

void CopyPoints(const PointTable& from, PointTable& to, int count) {
  std::copy_n(from.begin() + 1, count, to.begin() + 1);
}

}  // namespace

void TakeTemporaryCopy(ProfileBuffer& buffer) {
  buffer.WorkNpts = buffer.PermNpts;
  buffer.WorkXMax = buffer.PermXMax;
  buffer.WorkXMin = buffer.PermXMin;
  buffer.WorkYMax = buffer.PermYMax;
  buffer.WorkYMin = buffer.PermYMin;
  CopyPoints(buffer.PermX, buffer.WorkX, buffer.PermNpts);
  CopyPoints(buffer.PermY, buffer.WorkY, buffer.PermNpts);
}

void CommitTemporaryCopy(ProfileBuffer& buffer) {
  std::fill_n(buffer.PermX.begin() + 1, buffer.PermNpts, 0.0F);
  std::fill_n(buffer.PermY.begin() + 1, buffer.PermNpts, 0.0F);
  CopyPoints(buffer.WorkX, buffer.PermX, buffer.WorkNpts);
  CopyPoints(buffer.WorkY, buffer.PermY, buffer.WorkNpts);
  buffer.PermNpts = buffer.WorkNpts;
  buffer.PermXMin = buffer.PermX[1];
  buffer.PermXMax = buffer.PermX[static_cast<std::size_t>(buffer.PermNpts)];
  buffer.PermYMin = 10000;
  buffer.PermYMax = -10000;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(buffer.PermNpts); ++i) {
    buffer.PermYMin = std::min(buffer.PermYMin, buffer.PermY[i]);
    buffer.PermYMax = std::max(buffer.PermYMax, buffer.PermY[i]);
  }
}

bool IsZoomed(const ProfileBuffer& buffer) {
  return Differ(buffer.WorkX[1], buffer.PermX[1]) || buffer.WorkNpts != buffer.PermNpts ||
         Differ(buffer.WorkXMax, buffer.PermXMax) || Differ(buffer.WorkXMin, buffer.PermXMin);
}

}  // namespace koprax
