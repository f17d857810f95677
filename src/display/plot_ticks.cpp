#include "display/plot_ticks.h"

#include <iterator>
#include <span>

namespace koprax {

namespace {

struct TickStep {
  double Above;  ///< the step holds for spans strictly above this
  double Step;
};

constexpr TickStep XSteps[] = {{0.08, 0.04}, {0.2, 0.08}, {0.5, 0.2}, {1, 0.3},  {2, 0.5},
                               {3, 1},       {8, 5},      {40, 10},   {100, 30}, {300, 80},
                               {600, 160},   {1000, 300}, {3000, 800}};
constexpr double FirstXStep = 0.02;

constexpr TickStep YSteps[] = {
    {10, 5},          {50, 20},          {200, 70},          {800, 150},         {2000, 500},
    {5000, 1000},     {10000, 3000},     {30000, 6000},      {60000, 15000},     {200000, 50000},
    {500000, 100000}, {1000000, 200000}, {3000000, 1000000}, {10000000, 2000000}};
constexpr double FirstYStep = 2;

double StepFor(float span, std::span<const TickStep> steps, double first) {
  double step = first;
  for (const TickStep& row : steps) {
    if (span > row.Above) {
      step = row.Step;
    }
  }
  return step;
}

}  // namespace

double TickStepX(float span) { return StepFor(span, XSteps, FirstXStep); }
double TickStepY(float span) { return StepFor(span, YSteps, FirstYStep); }

double TickOffsetY(double y, bool negative_y) {
  double offset = 6;
  double threshold = 10;
  for (double wider = 8; wider <= 14; ++wider) {
    if (y >= threshold || (negative_y && y <= -threshold / 10)) {
      offset = wider;
    }
    threshold *= 10;
  }
  return offset;
}

}  // namespace koprax
