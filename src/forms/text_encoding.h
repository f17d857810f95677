// Tells UTF-8 from other texts and turns Latin-1 into UTF-8 and back.
#pragma once

#include <string>
#include <string_view>

namespace koprax {

/// Whether all bytes are valid UTF-8; plain ASCII is.
[[nodiscard]] bool IsUtf8(std::string_view bytes);
[[nodiscard]] std::string Latin1ToUtf8(std::string_view bytes);
/// Characters outside Latin-1 become "?".
[[nodiscard]] std::string Utf8ToLatin1(std::string_view text);

}  // namespace koprax
