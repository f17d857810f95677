#include "tests/monkey/walk_record.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace koprax {

namespace {

/// What doesn't fit is left out.
template <std::size_t Size>
void Append(std::array<char, Size>& buffer, std::size_t& used, std::string_view text) {
  const std::size_t count = std::min(text.size(), Size - used);
  std::copy_n(text.begin(), count, buffer.begin() + static_cast<std::ptrdiff_t>(used));
  used += count;
}

}  // namespace

void WalkRecord::BeginSession(std::uint64_t seed) {
  session_ = seed;
  session_actions_ = 0;
  depth_ = 0;
  if (tell_) static_cast<void>(std::printf("# session %llu\n", static_cast<unsigned long long>(seed)));
}

void WalkRecord::Begin(std::string_view line, const std::string& form) {
  Count(form);
  if (depth_++ > 0) {
    Queue(std::string("modal ").append(line));
    return;
  }
  ++actions_;
  ++session_actions_;
  Entry& entry = Latest();
  entry.Size = entry.ActionSize = 0;
  Append(entry.Action, entry.ActionSize, std::string(line) + "\n");
}

void WalkRecord::Queue(std::string_view line) {
  Append(Latest().Lines, Latest().Size, std::string(line) + "\n");
}

void WalkRecord::End() {
  if (--depth_ > 0 || !tell_) return;
  static_cast<void>(std::fflush(stdout));
  WriteEntry(STDOUT_FILENO, Latest());
}

void WalkRecord::WriteLastActions(int file) const {
  const auto kept = std::min(session_actions_, static_cast<long>(Kept));
  for (long i = actions_ - kept + 1; i <= actions_; ++i) {
    WriteEntry(file, entries_[static_cast<std::size_t>(i) % Kept]);
  }
}

void WalkRecord::WriteEntry(int file, const Entry& entry) {
  const auto write = [file](const char* text, std::size_t size) { return ::write(file, text, size); };
  if (write(entry.Lines.data(), entry.Size) >= 0) {
    static_cast<void>(write(entry.Action.data(), entry.ActionSize) >= 0);
  }
}

}  // namespace koprax
