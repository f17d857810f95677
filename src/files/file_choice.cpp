#include "files/file_choice.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "forms/desktop.h"
#include "workspace/buffer_picker.h"
#include "workspace/workspace.h"

namespace koprax {

void GiveUpEarlierFile(const WindowContext& context) {
  Workspace& data = context.Data;
  data.ReadingCal = data.ModeOut = false;
  context.Desk.Unload("Form4");
  context.Desk.Unload("Form7");
  // The picker waits for a file unless it was opened for a profile that is there already.
  if (!data.ModeAnal && !data.ModeFit) {
    context.Desk.Unload(pickers::Profile.Name);
  }
}

std::optional<std::string> ChooseFile(const WindowContext& context, const FileDialogRequest& request) {
  auto path = context.Main.AskForFile(request);
  if (path) {  // FileName is another one now, be it empty
    GiveUpEarlierFile(context);
  }
  return path;
}

bool MayOverwrite(const WindowContext& context, const std::string& path) {
  std::error_code problem;
  if (!std::filesystem::exists(path, problem)) {
    return true;
  }
  const Message question{.Text = "file  " + path + "  already exists!!\r\n\r\nOverwrite ?",
                         .Title = "Information",
                         .Buttons = MessageButtons::YesNo,
                         .Icon = MessageIcon::Information};
  return context.Desk.Host().MsgBox(question) == MessageAnswer::Yes;
}

std::optional<std::string> ChooseFileToWrite(const WindowContext& context, FileDialogRequest request) {
  request.Type = FileDialogRequest::Kind::Save;
  auto path = ChooseFile(context, request);
  if (!path || path->empty() || !MayOverwrite(context, *path)) {
    return std::nullopt;
  }
  return path;
}

}  // namespace koprax
