#include "files/wavelength_window.h"

#include <cstdint>

#include "files/tokeniser.h"
#include "forms/desktop.h"
#include "workspace/workspace.h"

namespace koprax {

Form33::Form33(const WindowContext& context)
    : Form(context.Desk, "Form33", "Select wavelength"), context_(context) {
  SetLayout(Column({Label1, Combo1, Row({Space(), cmdComboOK})}));
  cmdComboOK.OnClick = [this] { AcceptWavelength(); };
  // Esc does nothing: the close box takes the wavelength as it stands, which Esc would seem to refuse.
  EnterClicks(cmdComboOK);
}

void Form33::AcceptWavelength() {
  std::int16_t n_text = 0;
  std::int16_t n_num = 0;
  TokeniseLine(context_.Data.Words, Combo1.Text.Get(), n_text, n_num,
               [this](const Message& message) { Desk().Host().MsgBox(message); });
  context_.Data.Current().Wavelength = context_.Data.Words.WordVal[1];
  Unload();
}

}  // namespace koprax
