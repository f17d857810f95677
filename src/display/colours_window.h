// Form31, "Colors": asks in which colours a profile and its background are to be printed. It is shown
// modally by the command that prints; closed by its box, it gives up the print.
#pragma once

#include "forms/form.h"
#include "workspace/services.h"
#include "workspace/workspace.h"

namespace koprax {

class Form31 final : public Form {
 public:
  explicit Form31(const WindowContext& context);

  /// Whether OK was clicked: ProfileColourName and BackgroundColourName are then those chosen.
  [[nodiscard]] bool Accepted() const { return accepted_; }

 private:
  [[nodiscard]] static ComboSetup Colours(const char* meaning, const char* preset);

  bool accepted_ = false;

  Label Label1{*this, "Label1", {.Caption = "Profile color"}};
  Label Label2{*this, "Label2", {.Caption = "Background color"}};
  ComboBox Combo1{*this, "Combo1", Colours("Colour of the profile", "Black")};
  ComboBox Combo2{*this, "Combo2", Colours("Colour of the background", "Red")};
  Button Command1{*this, "Command1", {.Caption = "OK"}};
};

}  // namespace koprax
