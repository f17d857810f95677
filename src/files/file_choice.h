// What a command asks about its file before it reads or writes it.
#pragma once

#include <optional>
#include <string>

#include "forms/runtime.h"
#include "workspace/services.h"

namespace koprax {

/// Asks for a file by the shared dialog; the path goes to FileName. Nothing on cancel; the path may be empty.
/// There is one file at a time: a load, a save or a calibration that still waits for an answer about an
/// earlier file, in its preview, format window or picker, is given up when a file has been named.
[[nodiscard]] std::optional<std::string> ChooseFile(const WindowContext& context,
                                                    const FileDialogRequest& request);

/// Asks whether a file that exists already may be overwritten. True if there is none.
[[nodiscard]] bool MayOverwrite(const WindowContext& context, const std::string& path);

/// Asks for a file to be written, then whether it may be overwritten. Nothing when the command ends there:
/// on cancel, an empty path, or a No.
[[nodiscard]] std::optional<std::string> ChooseFileToWrite(const WindowContext& context,
                                                           FileDialogRequest request);

/// Gives up what waits for an answer about an earlier file: its windows go, ModeOut and ReadingCal end.
void GiveUpEarlierFile(const WindowContext& context);

}  // namespace koprax
