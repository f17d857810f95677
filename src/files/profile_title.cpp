#include "files/profile_title.h"

#include <algorithm>

#include "forms/fixed_text.h"

namespace koprax {

void TakeTitle(ProfileBuffer& buffer, std::string_view line, TextEncoding encoding) {
  buffer.Title = FixedField(line, TitleWidth);
  std::ranges::replace(buffer.Title, '"', ' ');
  buffer.Latin1Text = encoding == TextEncoding::Latin1;
}

}  // namespace koprax
