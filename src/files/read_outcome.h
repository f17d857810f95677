// What a reader of profiles reports, and the failures that all readers share. Showing a message and
// bringing windows to the front is left to the caller.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "forms/runtime.h"
#include "workspace/workspace.h"

namespace koprax {

/// Tells the user something in the middle of a reading, which then goes on.
using TellUser = std::function<void(const Message&)>;

/// The end of a reading. It starts out as a failure.
struct ReadOutcome {
  bool Failed = true;              ///< no profile was loaded
  std::optional<Message> Problem;  ///< what the user has to be told
  bool FrontMainMenu = false;      ///< the main menu comes to the front, after the message
};

/// A reading that loaded a profile.
[[nodiscard]] ReadOutcome SuccessfulRead(bool front_main_menu);
/// A failure told in the given words, with title "Error" and the stop icon.
[[nodiscard]] ReadOutcome FailedRead(const std::string& text);
/// A failure in the middle of the data, told by its own message; it leaves the buffer empty.
[[nodiscard]] ReadOutcome FailureTold(ProfileBuffer& buffer, const Message& message);
/// The failure of a file that can't be opened, with the system's reason.
[[nodiscard]] ReadOutcome UnreadableFile(const std::string& file_name, const std::string& reason);
/// The failure of a file without any record.
[[nodiscard]] ReadOutcome EmptyFile(const std::string& file_name);
/// The failure of a profile beyond MaxPoints; it leaves the buffer empty.
[[nodiscard]] ReadOutcome LimitFailure(ProfileBuffer& buffer);
/// The failure of a file that can't be read at one line, in words like "expected the step".
[[nodiscard]] ReadOutcome UnreadableLine(const std::string& file_name, int line_number,
                                         const std::string& what);
/// A failure at one line of the file, in words like "expected the step"; it leaves the buffer empty.
[[nodiscard]] ReadOutcome FailureAtLine(ProfileBuffer& buffer, const std::string& file_name, int line_number,
                                        const std::string& what);
/// The failure of a file that ends before its data; it leaves the buffer empty.
[[nodiscard]] ReadOutcome FailureAtEnd(ProfileBuffer& buffer, const std::string& file_name,
                                       const std::string& expected);

/// Leaves a buffer empty after a failed reading: blank title, no points, file limits and step 0.
void EmptyAfterFailure(ProfileBuffer& buffer);

/// The words for a number that no 32-bit field holds.
[[nodiscard]] std::string OutOfRange(const std::string& what);

}  // namespace koprax
