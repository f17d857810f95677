#include "files/typed_wavelength.h"

#include <cmath>
#include <cstdint>

#include "files/tokeniser.h"
#include "forms/desktop.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

void TellOutOfRange(const WindowContext& context, const std::string& text) {
  context.Desk.Host().MsgBox(ErrorMessage(
      "The wave length " + text + " is out of range.\r\nGive a number in angstrom, such as 1.54184."));
}

}  // namespace

std::optional<float> TypedWavelength(const WindowContext& context, const std::string& text) {
  std::int16_t n_text = 0;
  std::int16_t n_num = 0;
  TokenisedWords& words = context.Data.Words;
  TokeniseLine(words, text, n_text, n_num,
               [&context](const Message& message) { context.Desk.Host().MsgBox(message); });
  if (!std::isfinite(words.WordVal[1]) || words.WordVal[1] < 0) {
    TellOutOfRange(context, text);
    return std::nullopt;
  }
  return words.WordVal[1];
}

std::optional<float> NeededWavelength(const WindowContext& context, const ProfileBuffer& buffer,
                                      const std::string& text) {
  if (buffer.Wavelength > 0) {
    context.Desk.Host().MsgBox({.Text = "Buffer " + buffer.BufLetter + " has the wave length " +
                                        GeneralText(buffer.Wavelength) + " by now.\r\nThat one is taken.",
                                .Title = "Warning",
                                .Icon = MessageIcon::Exclamation});
    return buffer.Wavelength;
  }
  const std::optional<float> wavelength = TypedWavelength(context, text);
  if (wavelength == 0.0F) {
    TellOutOfRange(context, text);
    return std::nullopt;
  }
  return wavelength;
}

}  // namespace koprax
