#include "workspace/file_dialog_window.h"

#include "forms/desktop.h"

namespace koprax {

std::optional<std::string> Form9::Ask(const FileDialogRequest& request) {
  auto path = Desk().Host().FileDialog(request);
  if (path) {
    data_.FileName = *path;
  }
  return path;
}

}  // namespace koprax
