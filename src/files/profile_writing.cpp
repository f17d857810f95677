#include "files/profile_writing.h"

#include "files/file_writing.h"

namespace koprax {

std::optional<Message> WriteProfile(const Workspace& workspace, const ProfileBuffer& buffer,
                                    const Lines& lines) {
  return WriteLines(workspace.FileName, lines, buffer.Latin1Text ? TextEncoding::Latin1 : TextEncoding::Utf8);
}

Message NotReadBack(const Workspace& workspace, const std::string& reason_and_advice) {
  return {.Text = "The file " + workspace.FileName +
                  " was written, but doesn't read back as it was: " + reason_and_advice,
          .Title = "Warning",
          .Icon = MessageIcon::Exclamation};
}

Message NotWritten(const Workspace& workspace, const std::string& reason) {
  return {.Text = "The file " + workspace.FileName + " was not written: " + reason + ".",
          .Title = "Error",
          .Icon = MessageIcon::Stop};
}

}  // namespace koprax
