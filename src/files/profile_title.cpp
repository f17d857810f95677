#include "files/profile_title.h"

#include <algorithm>

#include "forms/fixed_text.h"

namespace koprax {

void SetTitle(ProfileBuffer& buffer, std::string_view text, TextEncoding encoding) {
  buffer.Title = FixedField(text, TitleWidth);
  buffer.Latin1Text = encoding == TextEncoding::Latin1;
}

void TakeTitle(ProfileBuffer& buffer, std::string_view line, TextEncoding encoding) {
  SetTitle(buffer, line, encoding);
  std::ranges::replace(buffer.Title, '"', ' ');
}

}  // namespace koprax
