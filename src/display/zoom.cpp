#include "display/zoom.h"

#include <algorithm>
#include <cstddef>

namespace koprax {

void CutToRange(Workspace& data, float low, float high) {
  ProfileBuffer& buffer = data.Current();
  const auto old_count = static_cast<std::size_t>(buffer.WorkNpts);
  std::size_t count = 0;
  for (std::size_t i = 1; i <= old_count; ++i) {
    if (!(buffer.WorkX[i] < low || buffer.WorkX[i] > high)) {
      ++count;
      data.ScratchX[count] = buffer.WorkX[i];
      data.ScratchY[count] = buffer.WorkY[i];
    }
  }
  const auto take_back = [&](const PointTable& scratch, PointTable& work) {
    std::copy_n(scratch.begin() + 1, count, work.begin() + 1);
    std::fill_n(work.begin() + 1 + static_cast<std::ptrdiff_t>(count), old_count - count, 0.0F);
  };
  take_back(data.ScratchX, buffer.WorkX);
  take_back(data.ScratchY, buffer.WorkY);
  buffer.WorkNpts = static_cast<std::int16_t>(count);
  buffer.WorkXMax = high;
  buffer.WorkXMin = low;
}

}  // namespace koprax
