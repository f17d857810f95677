#include "files/profile_writing.h"

#include "files/file_writing.h"

namespace koprax {

std::optional<Message> WriteProfile(const Workspace& workspace, const ProfileBuffer& buffer,
                                    const Lines& lines) {
  return WriteLines(workspace.FileName, lines, buffer.Latin1Text ? TextEncoding::Latin1 : TextEncoding::Utf8);
}

Message NotWritten(const Workspace& workspace, const std::string& reason) {
  return {.Text = "The file " + workspace.FileName + " was not written: " + reason + ".",
          .Title = "Error",
          .Icon = MessageIcon::Stop};
}

}  // namespace koprax
