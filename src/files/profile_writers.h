// Writes profiles in six formats. Which format a profile may have, and the questions before, are left to
// the save sequence.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "forms/runtime.h"
#include "workspace/workspace.h"

namespace koprax {

/// Asks the user for a text; "" on cancel.
using AskForText = std::function<std::string(const InputRequest&)>;

/// Each writes the permanent copy of CurBuf to the file FileName, with the title and the header lines of its
/// format, and changes nothing in the buffer but where it is said. What comes back is to be told to the user:
/// why nothing was written, and the old file is as it was; or what of the new one doesn't read back.
[[nodiscard]] std::optional<Message> SaveItalDat(Workspace& workspace);
[[nodiscard]] std::optional<Message> SaveOneColumn(Workspace& workspace);
/// Asks of a profile in channels whether they are to be changed into 2-theta, by CalPar as it stands.
[[nodiscard]] std::optional<Message> SaveTwoColumns(Workspace& workspace, const AskForText& ask);
/// Writes 4096 intensities, whatever the number of points.
[[nodiscard]] std::optional<Message> SaveAdf(Workspace& workspace);
/// Writes as many points as the temporary copy has, rounded to whole counts. A header without a line
/// "RawScan" can't be written.
[[nodiscard]] std::optional<Message> SaveUdf(Workspace& workspace);
/// Puts title, step and wavelength into their lines of UxdHeader first. A header without a line "_2THETAC..."
/// can't be written.
[[nodiscard]] std::optional<Message> SaveUxd(Workspace& workspace);

/// Writes by the writer of InputFormat, 1 to 6.
[[nodiscard]] std::optional<Message> SaveByFormat(Workspace& workspace, const AskForText& ask);

}  // namespace koprax
