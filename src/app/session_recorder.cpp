#include "app/session_recorder.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <variant>

#include "app/script_lines.h"
#include "forms/form.h"

namespace koprax {

namespace {

constexpr std::string_view ModalWord = "modal ";

/// What an action has in common with a next one that makes up for it: its line without the text or the place.
/// No box has a handler that keeps what was typed before, and no picture one that keeps where the mouse has
/// been.
std::string JoinableStart(const UserAction& action, const std::string& line) {
  const auto* mouse = std::get_if<MouseAction>(&action);
  const bool moves = mouse != nullptr && mouse->Event == MouseAction::Kind::Move;
  if (!moves && !std::holds_alternative<TypeAction>(action)) {
    return {};
  }
  return line.substr(0, line.find(' ', line.find(' ') + 1) + 1);
}

const PictureBox* FirstPicture(const Form& form) {
  for (const Control* control : form.Controls()) {
    if (const auto* picture = dynamic_cast<const PictureBox*>(control)) {
      return picture;
    }
  }
  return nullptr;
}

/// Esc gives up a selection before anything has been drawn, by an option that isn't shown yet. A script draws
/// a selection first, in the middle of the picture, which the option then gives up.
std::vector<std::string> LinesToShow(const UserAction& action) {
  const auto* click = std::get_if<ClickAction>(&action);
  if (click == nullptr || click->Target.Visible) {
    return {};
  }
  const PictureBox* picture = FirstPicture(click->Target.OwnerForm());
  if (picture == nullptr) {
    return {};
  }
  const UserScale& scale = picture->Scale();
  const auto at = [&](MouseAction::Kind kind, float across, float down) {
    return ScriptLine(MouseAction{.Event = kind,
                                  .Target = *picture,
                                  .Button = MouseButton::Left,
                                  .X = scale.Left + across * scale.Width,
                                  .Y = scale.Top + down * scale.Height});
  };
  return {"# A selection is given up before it is drawn; a script has to draw one first.",
          at(MouseAction::Kind::Down, 0.4F, 0.5F), at(MouseAction::Kind::Move, 0.6F, 0.7F),
          at(MouseAction::Kind::Up, 0.6F, 0.7F)};
}

}  // namespace

void SessionRecorder::Before(std::string line) {
  if (depth_ > 0) {
    before_.push_back(std::move(line));
  } else {
    Finish();
    keep_({std::move(line)});
  }
}

void SessionRecorder::Behind(const std::string& words) {
  if (depth_ > 0) {
    behind_.push_back("# " + words);
  } else {
    Before("# " + words);
  }
}

void SessionRecorder::UserActs(const UserAction& action) {
  const std::string line = ScriptLine(action);
  const std::string start = JoinableStart(action, line);
  if (depth_++ == 0) {
    action_ = line;
    start_ = start;
    before_ = LinesToShow(action);
    return;
  }
  if (!start.empty() && !before_.empty() && before_.back().starts_with(std::string(ModalWord) + start)) {
    before_.pop_back();
  }
  before_.push_back(std::string(ModalWord) + line);
}

void SessionRecorder::UserActed() {
  if (--depth_ > 0) {
    return;
  }
  const bool alone = before_.empty() && behind_.empty();
  const bool joins = alone && !start_.empty() && held_.starts_with(start_);
  if (joins) {
    held_.clear();
  }
  Finish();
  if (alone && !start_.empty()) {
    held_ = action_;
    return;
  }
  auto lines = std::exchange(before_, {});
  lines.push_back(action_);
  std::ranges::move(std::exchange(behind_, {}), std::back_inserter(lines));
  keep_(lines);
}

void SessionRecorder::Finish() {
  if (!held_.empty()) {
    keep_({std::exchange(held_, {})});
  }
}

}  // namespace koprax
