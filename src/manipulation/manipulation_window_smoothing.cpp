// Point smoothing in the manipulation window.
#include <array>
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
  const std::array<bool, 4> before{Frame1.Visible, Frame2.Visible, cmdBckg.Enabled, cmdMain.Enabled};
  Frame1.Visible = Frame2.Visible = cmdBckg.Enabled = cmdMain.Enabled = false;
  if (SmoothOver(AskForSmoothingWindow())) {
    DrawSmoothedProfile();
    return;
  }
  Frame1.Visible = before[0];
  Frame2.Visible = before[1];
  cmdBckg.Enabled = before[2];
  cmdMain.Enabled = before[3];
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
