// The plot that a window shows. The shared transform belongs to whoever drew last, so a window keeps what it
// has drawn and puts it back before it reads the mouse, draws more, or prints.
#pragma once

#include "display/plot_transform.h"
#include "workspace/workspace.h"

namespace koprax {

class DrawnPlot {
 public:
  /// Keeps the shared transform and limits, as a drawing has just left them. A drawing that failed leaves
  /// nothing to read.
  void Keep(const Workspace& data, bool drawn) {
    readable_ = drawn && data.Plot.ScaleY != 0;
    plot_ = data.Plot;
    limits_ = LimitsOfDrawing(data);
  }
  /// Makes this the plot at work again; nothing happens where there is none.
  void PutBack(Workspace& data) const {
    if (!readable_) {
      return;
    }
    data.Plot = plot_;
    TakeLimitsOfDrawing(data, limits_);
  }

  /// Whether there is a plot whose positions can be read.
  [[nodiscard]] bool Readable() const { return readable_; }
  [[nodiscard]] const PlotTransform& Transform() const { return plot_; }
  [[nodiscard]] const PlotLimits& Limits() const { return limits_; }

 private:
  bool readable_ = false;
  PlotTransform plot_;
  PlotLimits limits_{};
};

}  // namespace koprax
