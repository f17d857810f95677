#include "files/read_outcome.h"

namespace koprax {

ReadOutcome SuccessfulRead(bool front_main_menu) {
  return {.Failed = false, .Problem = std::nullopt, .FrontMainMenu = front_main_menu};
}

ReadOutcome FailedRead(const std::string& text) {
  return {.Failed = true,
          .Problem = Message{.Text = text, .Title = "Error", .Icon = MessageIcon::Stop},
          .FrontMainMenu = true};
}

ReadOutcome FailureTold(ProfileBuffer& buffer, const Message& message) {
  EmptyAfterFailure(buffer);
  return {.Failed = true, .Problem = message, .FrontMainMenu = true};
}

ReadOutcome UnreadableFile(const std::string& file_name, const std::string& reason) {
  return FailedRead("The file " + file_name + " can't be read: " + reason + ".");
}

ReadOutcome EmptyFile(const std::string& file_name) {
  return FailedRead("The file " + file_name + " is empty.");
}

ReadOutcome LimitFailure(ProfileBuffer& buffer) {
  return FailureTold(buffer, {.Text = "Profile with more than 8000 points.\r\n"
                                      "Not allowed in the present version of the program.\r\n"
                                      "Return to main menu.",
                              .Title = "Error"});
}

ReadOutcome UnreadableLine(const std::string& file_name, int line_number, const std::string& what) {
  return FailedRead("The file " + file_name + " can't be read, line " + std::to_string(line_number) + ": " +
                    what + ".");
}

ReadOutcome FailureAtLine(ProfileBuffer& buffer, const std::string& file_name, int line_number,
                          const std::string& what) {
  EmptyAfterFailure(buffer);
  return UnreadableLine(file_name, line_number, what);
}

ReadOutcome FailureAtEnd(ProfileBuffer& buffer, const std::string& file_name, const std::string& expected) {
  EmptyAfterFailure(buffer);
  return FailedRead("The file " + file_name + " ends too early: expected " + expected + ".");
}

void EmptyAfterFailure(ProfileBuffer& buffer) {
  buffer.Title.assign(TitleWidth, ' ');
  buffer.PermNpts = 0;
  buffer.FileXMin = buffer.FileXMax = buffer.XStep = 0;
}

std::string OutOfRange(const std::string& what) {
  return what + " is beyond the range of 32-bit numbers, -3.402823E+38 to 3.402823E+38";
}

}  // namespace koprax
