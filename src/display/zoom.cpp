#include "display/zoom.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace koprax {

int CopyRange(const CurvePoints& points, const XRange& range, PointTable& x, PointTable& y) {
  std::size_t count = 0;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(points.Count); ++i) {
    if (range.Holds(points.X[i])) {
      ++count;
      x[count] = points.X[i];
      y[count] = points.Y[i];
    }
  }
  return static_cast<int>(count);
}

void CutToRange(Workspace& data, float low, float high) {
  ProfileBuffer& buffer = data.Current();
  const int old_count = buffer.WorkNpts;
  const int count =
      CopyRange({buffer.WorkX, buffer.WorkY, old_count}, {low, high}, data.ScratchX, data.ScratchY);
  const auto take_back = [&](const PointTable& scratch, PointTable& work) {
    std::copy_n(scratch.begin() + 1, count, work.begin() + 1);
    std::fill_n(work.begin() + 1 + count, old_count - count, 0.0F);
  };
  take_back(data.ScratchX, buffer.WorkX);
  take_back(data.ScratchY, buffer.WorkY);
  buffer.WorkNpts = static_cast<std::int16_t>(count);
  buffer.WorkXMax = high;
  buffer.WorkXMin = low;
}

}  // namespace koprax
