// Keeps a record of a session as a script: each action of the user, with the answers that it asked for in
// front, as koprax-script takes them, and in comments what was asked and told. Asking and writing are left to
// others.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/desktop.h"
#include "forms/user_action.h"

namespace koprax {

class SessionRecorder final : public DesktopObserver {
 public:
  /// `keep` takes finished lines, one or several without line ends.
  explicit SessionRecorder(std::function<void(const std::vector<std::string>&)> keep)
      : keep_(std::move(keep)) {}

  /// A line that has to stand before the action under way: an answer or a comment. Outside an action it is
  /// kept at once.
  void Before(std::string line);
  /// A comment on the action under way, which comes behind it.
  void Behind(const std::string& words);

  /// Keeps what is still being held back.
  void Finish();

  void UserActs(const UserAction& action) override;
  void UserActed() override;

 private:
  std::function<void(const std::vector<std::string>&)> keep_;
  int depth_ = 0;       // of actions within actions, by way of modal windows
  std::string action_;  // the line of the outermost action under way
  std::string start_;   // of that line, where a next one like it makes up for it
  std::vector<std::string> before_;
  std::vector<std::string> behind_;
  // Letters typed into one box and moves over one picture count by the last of them: it waits here for the
  // next.
  std::string held_;
};

}  // namespace koprax
