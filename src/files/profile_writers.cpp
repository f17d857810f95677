#include "files/profile_writers.h"

#include "files/profile_writing.h"

namespace koprax {

std::optional<Message> SaveByFormat(Workspace& workspace, const AskForText& ask) {
  switch (workspace.InputFormat) {
    case 1:
      return SaveItalDat(workspace);
    case 2:
      return SaveOneColumn(workspace);
    case 3:
      return SaveTwoColumns(workspace, ask);
    case 4:
      return SaveAdf(workspace);
    case 5:
      return SaveUdf(workspace);
    case 6:
      return SaveUxd(workspace);
    default:
      return NotWritten(workspace, "there is no writer for format " + std::to_string(workspace.InputFormat));
  }
}

}  // namespace koprax
