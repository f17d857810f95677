// Form33, "Select wavelength": asks at which wavelength the reflections of a card are to be placed. It is
// shown modally in the middle of the reading.
#pragma once

#include "forms/form.h"
#include "workspace/services.h"
#include "workspace/wavelength_choices.h"

namespace koprax {

class Form33 final : public Form {
 public:
  explicit Form33(const WindowContext& context);

 private:
  void OnCloseBox() override { AcceptWavelength(); }
  void AcceptWavelength();

  WindowContext context_;

  Label Label1{*this, "Label1", {.Caption = WavelengthQuestion}};
  ComboBox Combo1{*this, "Combo1", WavelengthChoices()};
  Button cmdComboOK{*this, "cmdComboOK", {.Caption = "OK"}};
};

}  // namespace koprax
