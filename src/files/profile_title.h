// The title of a profile as it comes from a line of its file.
#pragma once

#include <string_view>

#include "forms/text_file.h"
#include "workspace/workspace.h"

namespace koprax {

/// Takes a line as the title of a buffer: 80 characters, cut or padded, double quotes become blanks. The
/// encoding of the file is kept with it, so that the title can be written back as it was read.
void TakeTitle(ProfileBuffer& buffer, std::string_view line, TextEncoding encoding);

}  // namespace koprax
