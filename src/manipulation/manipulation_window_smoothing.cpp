// Point smoothing in the manipulation window.
#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include "display/curve.h"
#include "forms/desktop.h"
#include "forms/number_text.h"
#include "manipulation/finite_points.h"
#include "manipulation/manipulation_window.h"
#include "manipulation/point_smoothing.h"

namespace koprax {

void Form12::Smooth() {
  const std::array others{&Frame1.Visible, &Frame2.Visible, &cmdBckg.Enabled, &cmdMain.Enabled};
  std::array<bool, others.size()> before{};
  std::ranges::transform(others, before.begin(), [](const Property<bool>* other) { return other->Get(); });
  std::ranges::for_each(others, [](Property<bool>* other) { *other = false; });
  if (SmoothOver(AskForSmoothingWindow())) {
    DrawSmoothedProfile();
    return;
  }
  for (std::size_t i = 0; i < others.size(); ++i) {
    *others[i] = before[i];
  }
}

/// False, and the user is told, when the profile can't be smoothed over that many points.
bool Form12::SmoothOver(int window) {
  ProfileBuffer& buffer = Buffer();
  if (buffer.PermNpts < window) {
    Tell(ErrorMessage("A profile of " + std::to_string(buffer.PermNpts) + " points can't be smoothed over " +
                      std::to_string(window) +
                      ".\r\nIt takes at least as many points as it is smoothed over."));
    return false;
  }
  PointTable smoothed = buffer.WorkY;
  SmoothPoints(smoothed, buffer.PermNpts, window);
  if (!PointsAreFinite(smoothed, buffer.PermNpts)) {
    TellBeyondRange("The smoothed profile");
    return false;
  }
  buffer.WorkY = std::move(smoothed);
  state_.Kept.KeepTemporary(buffer);
  EndSubtraction();
  return true;
}

/// There is no way out but one of the three windows.
int Form12::AskForSmoothingWindow() {
  double points = 0;
  while (!IsSmoothingWindow(points)) {
    points = LeadingNumber(Desk().Host().InputBox(
        {.Prompt = "Give Nr. of points for smoothing (5,7 or 9)", .Title = "Smoothing"}));
  }
  return static_cast<int>(points);
}

void Form12::DrawSmoothedProfile() {
  if (!DrawWholeFrame()) {
    return;
  }
  const ProfileBuffer& buffer = Buffer();
  DrawCurve(context_.Data.Plot, {buffer.WorkX, buffer.WorkY, buffer.WorkNpts}, Origin(),
            {buffer.WorkXMin, buffer.WorkXMax}, colours::Red, Picture1);
}

void Form12::QuitSmoothing() {
  Frame2.Visible = Frame1.Visible = true;
  cmdBckg.Enabled = cmdMain.Enabled = true;
}

}  // namespace koprax
