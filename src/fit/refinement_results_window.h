// Form22, "Refinement results": the chi squares of the last five cycles, and whether to go on. The cycles
// themselves are left to whoever opened it.
#pragma once

#include <array>
#include <functional>
#include <string>

#include "forms/form.h"
#include "workspace/services.h"

namespace koprax {

/// What the user decides.
struct RefinementActions {
  /// Five more cycles, which end with ShowResults.
  std::function<void()> Continue;
  /// The closing step. Unloading the window is part of it, at its place.
  std::function<void()> Stop;
};

class Form22 final : public Form {
 public:
  Form22(const WindowContext& context, RefinementActions actions);

  /// Fills the boxes and shows the window. `cycles` is numbered from 1 to 5.
  void ShowResults(const std::string& start, const std::array<std::string, 6>& cycles);

 private:
  void Continue();

  RefinementActions actions_;

  Label Label7{*this, "Label7", {.Caption = "Summary of the last 5 cycles"}};
  Label Label2{*this, "Label2", {.Caption = "CHI square start"}};
  TextBox Text2{*this, "Text2", {.Meaning = "CHI square at the start", .Locked = true, .Columns = 15}};
  Label Label1{*this, "Label1", {.Caption = "cycle 1 CHI square"}};
  TextBox Text1{*this, "Text1", {.Meaning = "CHI square of cycle 1", .Locked = true, .Columns = 15}};
  Label Label3{*this, "Label3", {.Caption = "cycle 2 CHI square"}};
  TextBox Text3{*this, "Text3", {.Meaning = "CHI square of cycle 2", .Locked = true, .Columns = 15}};
  Label Label4{*this, "Label4", {.Caption = "cycle 3 CHI square"}};
  TextBox Text4{*this, "Text4", {.Meaning = "CHI square of cycle 3", .Locked = true, .Columns = 15}};
  Label Label5{*this, "Label5", {.Caption = "cycle 4 CHI square"}};
  TextBox Text5{*this, "Text5", {.Meaning = "CHI square of cycle 4", .Locked = true, .Columns = 15}};
  Label Label6{*this, "Label6", {.Caption = "cycle 5 CHI square"}};
  TextBox Text6{*this, "Text6", {.Meaning = "CHI square of cycle 5", .Locked = true, .Columns = 15}};
  Button Command1{*this, "Command1", {.Caption = "Continue"}};
  Button Command2{*this, "Command2", {.Caption = "Stop "}};
};

}  // namespace koprax
