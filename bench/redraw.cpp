// What a mouse move over a plot costs: the read-out line moves over a profile of 8000 points, against
// drawing the profile anew. Off screen, at the design size and at a large one.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <cmath>

#include "forms/desktop.h"
#include "forms/form.h"
#include "forms_qt/form_window.h"
#include "forms_qt/qt_desktop_view.h"
#include "forms_qt/qt_platform.h"
#include "forms_qt/qt_runtime.h"

namespace {

using namespace koprax;

constexpr int Points = 8000;

class PlotForm final : public Form {
 public:
  explicit PlotForm(Desktop& desk) : Form(desk, "Plot", "Plot") {
    SetLayout(Stretched(Picture1), true);
    Picture1.OnMouseMove = [this](float x, float) { Line1.Move(x, 15, x, 90); };
  }
  void DrawProfile() {
    Picture1.Cls();
    double last = 15;
    for (int i = 1; i < Points; ++i) {
      const double x = 20 + 95.0 * i / Points;
      const double y = 40 + 20 * std::sin(i * 0.01) + i % 17;
      Picture1.Line(x - 95.0 / Points, last, x, y);
      last = y;
    }
  }

  PictureBox Picture1{*this,
                      "Picture1",
                      {.Scale = {.Left = 0, .Top = 98, .Width = 123.03F, .Height = -95.51F},
                       .DesignWidth = 123.03,
                       .DesignHeight = 95.51}};
  LineShape Line1{Picture1, "Line1", colours::Blue, 0, 15, 0, 90};
};

/// A plot in a window of its own, at so many times its design size.
class Plot {
 public:
  explicit Plot(int64_t times) : form_(desk_.Load<PlotForm>(desk_)) {
    form_->Show();
    FormWindow& window = *view_.WindowOf(*form_);
    window.resize(window.size() * static_cast<int>(times));
    form_->DrawProfile();
    QCoreApplication::processEvents();
  }
  PlotForm& Window() { return *form_; }

 private:
  QtPlatform platform_;
  QtRuntime runtime_{platform_};
  Desktop desk_{runtime_};
  QtDesktopView view_{desk_};
  std::shared_ptr<PlotForm> form_;
};

void MoveTheMouse(benchmark::State& state) {
  Plot plot(state.range(0));
  float x = 20;
  for (auto _ : state) {
    x = x < 110 ? x + 0.5F : 20;
    plot.Window().Picture1.MouseMove(x, 50);
    QCoreApplication::processEvents();
  }
}
BENCHMARK(MoveTheMouse)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

void RedrawTheProfile(benchmark::State& state) {
  Plot plot(state.range(0));
  for (auto _ : state) {
    plot.Window().DrawProfile();
    QCoreApplication::processEvents();
  }
}
BENCHMARK(RedrawTheProfile)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
