// The second stage of the peak fit window: the background, drawn as a line or taken from another buffer.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "fit/fit_parameters.h"
#include "fit/fit_plot.h"
#include "fit/peak_fit_window.h"
#include "forms/desktop.h"
#include "workspace/buffer_picker.h"

namespace koprax {

void Form19::StartBackgroundLine() {
  EndBackgroundLine();
  Tell({.Text = "Start by drawing,with the mouse, a stright line \r\nthat approximately represents the "
                "background within the selected range.",
        .Title = "Instruction"});
  KeepBackground();
  Fit().FitPolyBackground = true;
  Line3.Visible = true;
  state_.DrawBkgMode = true;
  RestartBackgroundLine();
}

void Form19::RestartBackgroundLine() {
  Line3.Move(1, 1, 2, 2);
  OfferAnswers(false);
  state_.LineComplete = false;
  state_.ClickCount = 1;
  ShowMouseTip();
}

void Form19::ClickForBackground(float x, float y) {
  if (state_.ClickCount == 2) {
    state_.LineX1 = x;
    state_.LineY1 = y;
  } else if (state_.ClickCount == 3) {
    state_.LineX2 = x;
    state_.LineY2 = y;
    Line3.Move(state_.LineX1, state_.LineY1, x, y);
    OfferAnswers(true);
    if (state_.LineX2 < state_.LineX1) {
      std::swap(state_.LineX1, state_.LineX2);
      std::swap(state_.LineY1, state_.LineY2);
    }
    state_.LineComplete = TakeBackgroundLine();
    if (!state_.LineComplete) {
      Tell({.Text = "Both ends of the line lie at the same x, so it has no slope.\r\nDraw it again from left "
                    "to right.",
            .Title = "Warning",
            .Icon = MessageIcon::Information});
      RestartBackgroundLine();
    }
  }
}

bool Form19::TakeBackgroundLine() {
  const PlotTransform& plot = context_.Data.Plot;
  const auto at = [&](float px, float py) {
    return PlotPoint{
        .X = DataX(plot, ClampedX(plot, px), Origin().XMin),
        .Y = static_cast<float>(DataY(plot, ClampedY(plot, py), static_cast<double>(Origin().Base)))};
  };
  const PlotPoint first = at(state_.LineX1, state_.LineY1);
  const PlotPoint second = at(state_.LineX2, state_.LineY2);
  if (first.X == second.X) {
    return false;
  }
  SetBackgroundLine(first, second, state_.RangeLow, Fit());
  return true;
}

/// A line that isn't complete leaves the background of before.
void Form19::EndBackgroundLine() {
  if (!state_.DrawBkgMode) {
    return;
  }
  state_.DrawBkgMode = false;
  state_.ClickCount = 0;
  OfferAnswers(false);
  if (!state_.LineComplete) {
    Line3.Visible = false;
    RestoreBackground();
  }
  ShowMouseTip();
}

void Form19::KeepBackground() {
  state_.Former = {.Polynomial = Fit().FitPolyBackground, .Line = Fit().FitLine};
}

void Form19::RestoreBackground() {
  Fit().FitPolyBackground = state_.Former.Polynomial;
  Fit().FitLine = state_.Former.Line;
  Fit().FitParam[ConstantTerm] = state_.Former.Line[2];
  Fit().FitParam[LinearTerm] = state_.Former.Line[3];
}

void Form19::LoadBackground() {
  EndBackgroundLine();
  KeepBackground();
  Fit().FitPolyBackground = false;
  PickerActions actions;
  actions.Chosen = WhileLoaded(std::function<void(Form&, const std::vector<int>&)>(
      [this](Form& picker, const std::vector<int>& slots) { TakeBackground(picker, slots.front()); }));
  actions.GivenUp = WhileLoaded(std::function<void()>([this] { RestoreBackground(); }));
  const auto picker = Desk().Load<BufferPicker>(context_, pickers::FitBackground, std::move(actions));
  state_.Picker = picker;
  picker->Show();
}

void Form19::TakeBackground(Form& picker, int slot) {
  Workspace& data = context_.Data;
  if (data.Buffer(slot).PermNpts == 0) {
    RestoreBackground();
    Tell(ErrorMessage("Buffer " + data.Buffer(slot).BufLetter +
                      " holds no profile.\r\nChoose the buffer of a background with \"Load bkg\"."));
    return;
  }
  TakeUp();
  if (!HasContent()) {
    RestoreBackground();
    return;
  }
  context_.Manipulation.PutByBackground();
  TakeMeasuredBackground(data, data.Buffer(slot));
  picker.Unload();
  CollectFitBackground(data, Buffer().PermNpts, Range());
  DrawFitBackground(data.Plot, Fit(), Origin(), Picture1);
}

void Form19::QuitBackground() {
  EndBackgroundLine();
  Frame3.Visible = true;
  Frame1.Visible = false;
}

void Form19::ClosePicker() {
  if (const auto picker = state_.Picker.lock()) {
    picker->CloseBox();
  }
}

}  // namespace koprax
