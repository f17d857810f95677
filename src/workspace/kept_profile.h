// The points of a profile as a window has shown or left them, so that it can tell later whether another
// window has changed them. What it does then is left to the window.
#pragma once

#include <string>
#include <vector>

#include "forms/runtime.h"
#include "workspace/workspace.h"

namespace koprax {

class KeptProfile {
 public:
  void Keep(const ProfileBuffer& buffer) {
    KeepPermanent(buffer);
    KeepTemporary(buffer);
  }
  void KeepPermanent(const ProfileBuffer& buffer) { permanent_ = PermanentPoints(buffer); }
  void KeepTemporary(const ProfileBuffer& buffer) { temporary_ = TemporaryPoints(buffer); }

  [[nodiscard]] bool Matches(const ProfileBuffer& buffer) const {
    return PermanentMatches(buffer) && temporary_ == TemporaryPoints(buffer);
  }
  [[nodiscard]] bool PermanentMatches(const ProfileBuffer& buffer) const {
    return permanent_ == PermanentPoints(buffer);
  }
  /// Whether the temporary copy is just that, a copy.
  [[nodiscard]] static bool CopiesAgree(const ProfileBuffer& buffer) {
    return TemporaryPoints(buffer) == PermanentPoints(buffer);
  }

 private:
  struct Points {
    std::vector<float> X;
    std::vector<float> Y;
    bool operator==(const Points&) const = default;
  };
  static Points FirstOf(const PointTable& x, const PointTable& y, int count) {
    return {{x.begin() + 1, x.begin() + 1 + count}, {y.begin() + 1, y.begin() + 1 + count}};
  }
  static Points PermanentPoints(const ProfileBuffer& buffer) {
    return FirstOf(buffer.PermX, buffer.PermY, buffer.PermNpts);
  }
  static Points TemporaryPoints(const ProfileBuffer& buffer) {
    return FirstOf(buffer.WorkX, buffer.WorkY, buffer.WorkNpts);
  }

  Points permanent_;
  Points temporary_;
};

/// What the user is told where a buffer holds another profile by now than the one on show, or none; `command`
/// of the main menu opens one anew.
[[nodiscard]] inline Message ProfileGone(const ProfileBuffer& buffer, const std::string& command) {
  return ErrorMessage("Buffer " + buffer.BufLetter +
                      (buffer.PermNpts == 0 ? " holds no profile." : " has been changed in another window.") +
                      "\r\nOpen a profile with \"" + command + "\" of the main menu.");
}

}  // namespace koprax
