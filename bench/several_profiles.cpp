// What six profiles of 8000 points in one plot cost: the drawing operations alone, with the painting, and a
// mouse move over them that draws the rubber band; the same for the cursor over one profile. Off screen.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <cmath>
#include <string>

#include "app/workbench.h"
#include "display/multi_profile.h"
#include "display/profile_plot.h"
#include "forms/form.h"
#include "forms_qt/qt_desktop_view.h"
#include "forms_qt/qt_platform.h"
#include "forms_qt/qt_runtime.h"
#include "workspace/temporary_copy.h"

namespace {

using namespace koprax;

void FillBuffer(ProfileBuffer& buffer, int number) {
  buffer.Title = "Profile " + buffer.BufLetter;
  buffer.Wavelength = 1.5406F;
  buffer.FormatCode = static_cast<std::int16_t>(FormatCodes::TwoColumns);
  buffer.PermNpts = MaxPoints;
  for (std::size_t i = 1; i <= MaxPoints; ++i) {
    const auto x = 0.01 * static_cast<double>(i);
    buffer.PermX[i] = static_cast<float>(x);
    buffer.PermY[i] = static_cast<float>(400 + 100 * number + 300 * std::sin(x * number) + double(i % 17));
  }
  buffer.PermXMin = buffer.PermX[1];
  buffer.PermXMax = buffer.PermX[MaxPoints];
  buffer.PermYMax = 1400;
  TakeTemporaryCopy(buffer);
}

/// The workbench with its windows, all buffers full.
class Bench {
 public:
  Bench() {
    bench_.Start();
    for (int slot = 1; slot <= NumBuffers; ++slot) {
      FillBuffer(Data().Buffer(slot), slot);
    }
  }
  /// Displays the first buffers, in one plot if there are more than one.
  void Display(int count) {
    Click("Form1", "cmdDisp");
    for (int number = 1; number <= count; ++number) {
      Part<CheckBox>("Form11", "Check" + std::to_string(number)).Click();
    }
    Click("Form11", "Command1");
    QCoreApplication::processEvents();
  }
  void Click(const char* form, const std::string& name) { Part<Button>(form, name).Click(); }
  PictureBox& Picture(const char* form) { return Part<PictureBox>(form, "Picture1"); }
  Workspace& Data() { return bench_.Data(); }

 private:
  template <class Kind>
  Kind& Part(const char* form, const std::string& name) {
    return dynamic_cast<Kind&>(*bench_.Desk().Find(form)->Find(name));
  }

  QtPlatform platform_;
  QtRuntime runtime_{platform_};
  Workbench bench_{runtime_};
  QtDesktopView view_{bench_.Desk()};
};

void Ignore(const Message& /*message*/) {}

void MoveTheMouse(benchmark::State& state, PictureBox& picture) {
  float x = 20;
  for (auto _ : state) {
    x = x < 110 ? x + 0.5F : 20;
    picture.MouseMove(x, 50);
    QCoreApplication::processEvents();
  }
}

void MakeTheOperations(benchmark::State& state) {
  Bench bench;
  bench.Display(NumBuffers);
  Surface picture{PlotPicture().Scale};
  for (auto _ : state) {
    picture.Cls();
    DrawMultiProfile(bench.Data(), picture, Ignore);
    benchmark::DoNotOptimize(picture.Operations().data());
  }
}
BENCHMARK(MakeTheOperations)->Unit(benchmark::kMicrosecond);

void RedrawSixProfiles(benchmark::State& state) {
  Bench bench;
  bench.Display(NumBuffers);
  for (auto _ : state) {
    bench.Picture("Form2").Cls();
    DrawMultiProfile(bench.Data(), bench.Picture("Form2"), Ignore);
    QCoreApplication::processEvents();
  }
}
BENCHMARK(RedrawSixProfiles)->Unit(benchmark::kMicrosecond);

void DragOverSixProfiles(benchmark::State& state) {
  Bench bench;
  bench.Display(NumBuffers);
  bench.Click("Form2", "cmdZoom");
  bench.Picture("Form2").MouseDown(MouseButton::Left, 20, 50);
  MoveTheMouse(state, bench.Picture("Form2"));
}
BENCHMARK(DragOverSixProfiles)->Unit(benchmark::kMicrosecond);

void RedrawOneProfile(benchmark::State& state) {
  Bench bench;
  bench.Display(1);
  for (auto _ : state) {
    bench.Picture("Form6").Cls();
    benchmark::DoNotOptimize(DrawProfile(bench.Data(), 1, bench.Picture("Form6"), Ignore));
    QCoreApplication::processEvents();
  }
}
BENCHMARK(RedrawOneProfile)->Unit(benchmark::kMicrosecond);

void ExploreOneProfile(benchmark::State& state) {
  Bench bench;
  bench.Display(1);
  bench.Click("Form6", "cmdManExpl");
  MoveTheMouse(state, bench.Picture("Form6"));
}
BENCHMARK(ExploreOneProfile)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
