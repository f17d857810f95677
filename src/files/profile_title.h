// The title of a profile as it comes from a line of its file.
#pragma once

#include <string_view>

#include "forms/text_file.h"
#include "workspace/workspace.h"

namespace koprax {

/// The title of a profile whose file has none.
inline constexpr std::string_view NoTitle = " file without title ";

/// Sets the title of a buffer to 80 characters of a text, cut or padded. The encoding of the file is kept
/// with it, so that the title can be written back as it was read.
void SetTitle(ProfileBuffer& buffer, std::string_view text, TextEncoding encoding);

/// The same with a line of the file; its double quotes become blanks.
void TakeTitle(ProfileBuffer& buffer, std::string_view line, TextEncoding encoding);

}  // namespace koprax
