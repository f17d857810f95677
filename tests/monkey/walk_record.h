// What a walk has done: its last actions as lines that the script tool plays, for whoever has to find out
// what led to a finding, and how many actions each window has seen. It is read while the program dies, so the
// last actions lie in memory of fixed size.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace koprax {

class WalkRecord {
 public:
  /// With `tell` every action goes to standard output as well.
  explicit WalkRecord(bool tell) : tell_(tell) {}

  void BeginSession(std::uint64_t seed);
  /// An action on a form begins: its line, without a line end. Where it lies within another one, in a modal
  /// window, it becomes a queued line of that one.
  void Begin(std::string_view line, const std::string& form);
  /// A line that has to be queued before the action that runs.
  void Queue(std::string_view line);
  void End();
  void Count(const std::string& form) { ++by_form_[form]; }

  [[nodiscard]] std::uint64_t Session() const { return session_; }
  /// All actions, and those of the present session.
  [[nodiscard]] long Actions() const { return actions_; }
  [[nodiscard]] long SessionActions() const { return session_actions_; }
  [[nodiscard]] const std::map<std::string, long>& ByForm() const { return by_form_; }

  /// Writes the last actions of the session, oldest first, by system calls alone.
  void WriteLastActions(int file) const;

 private:
  static constexpr std::size_t Kept = 40;
  struct Entry {
    std::array<char, 4096> Lines{};
    std::size_t Size = 0;
    std::array<char, 1024> Action{};
    std::size_t ActionSize = 0;
  };

  [[nodiscard]] const Entry& Latest() const { return entries_[static_cast<std::size_t>(actions_) % Kept]; }
  [[nodiscard]] Entry& Latest() { return entries_[static_cast<std::size_t>(actions_) % Kept]; }
  static void WriteEntry(int file, const Entry& entry);

  const bool tell_;
  int depth_ = 0;
  std::uint64_t session_ = 0;
  long actions_ = 0;
  long session_actions_ = 0;
  std::map<std::string, long> by_form_;
  std::array<Entry, Kept> entries_;
};

}  // namespace koprax
