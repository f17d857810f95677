// Form20, "Peak fit parameters": the parameters of the fit to be read, changed, and ticked for refinement.
// Refining them is left to the fit window.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <vector>

#include "forms/form.h"
#include "workspace/services.h"

namespace koprax {

/// What comes of the parameters.
struct ParameterActions {
  /// A peak has been deleted; the fit has its parameters until those that are left are taken.
  std::function<void()> Deleted;
  /// The fit has the parameters of the boxes now; whether they are others than before.
  std::function<void(bool others)> Taken;
  /// The user has accepted them, and the window has gone.
  std::function<void()> Confirmed;
};

class Form20 final : public Form {
 public:
  Form20(const WindowContext& context, ParameterActions actions);

 private:
  void OnLoad() override;

  void MakeBoxes();
  void ArrangeControls();
  [[nodiscard]] LayoutNode PeaksLayout();
  [[nodiscard]] LayoutNode BackgroundLayout();

  void ShowPeak(int peak);
  void ShowBackground();
  void DeletePeak(int peak);
  void Accept();

  /// The box of a parameter, and its tick.
  struct Entry {
    TextBox* Value;
    CheckBox* Refined;
  };
  /// Of the parameters 1 to 77.
  [[nodiscard]] Entry EntryOf(std::size_t parameter);
  void Fill(std::size_t parameter);
  [[nodiscard]] bool AllWithin32Bits();
  [[nodiscard]] std::vector<std::int16_t> TickedParameters();
  [[nodiscard]] bool DiffersFromFit(const std::vector<std::int16_t>& ticked);
  void StoreParameters();

  WindowContext context_;
  ParameterActions actions_;

  Label Label1{*this, "Label1", {.Caption = "Position"}};
  Label Label2{*this, "Label2", {.Caption = "Intensity"}};
  Label Label3{*this, "Label3", {.Caption = "FWHM left"}};
  Label Label4{*this, "Label4", {.Caption = "FWHM right"}};
  Label Label5{*this, "Label5", {.Caption = "h"}};
  Label Label6{*this, "Label6", {.Caption = "left"}};
  Label Label7{*this, "Label7", {.Caption = "h"}};
  Label Label8{*this, "Label8", {.Caption = "rigtht"}};
  Label Label39{*this, "Label39", {.Caption = "   Area"}};
  Label Label42{*this, "Label42", {.Caption = "   FWHM"}};
  Label Label9{*this, "Label9", {.Caption = "delete peak nr."}};

  // A row for each peak: six of Text1 and Check1, and one of the others.
  std::deque<TextBox> Text1;
  std::deque<CheckBox> Check1;
  std::deque<Label> Label40;
  std::deque<Label> Label41;
  std::deque<Button> Number;

  Label Label10{*this, "Label10", {.Caption = "PV = "}};
  Label Label11{*this, "Label11", {.Caption = "h"}};
  Label Label12{*this, "Label12", {.Caption = "G + "}};
  Label Label13{*this, "Label13", {.Caption = "(1-"}};
  Label Label14{*this, "Label14", {.Caption = "h"}};
  Label Label15{*this, "Label15", {.Caption = ")"}};
  Label Label16{*this, "Label16", {.Caption = "L"}};

  Frame Frame1{*this, "Frame1", {.Caption = "calculated background"}};
  std::deque<TextBox> Text2;
  std::deque<CheckBox> Check2;
  Label Label17{*this, "Label17", {.Caption = "Y ="}};
  Label Label18{*this, "Label18", {.Caption = " +"}};
  Label Label19{*this, "Label19", {.Caption = "X"}};
  Label Label20{*this, "Label20", {.Caption = " +"}};
  Label Label21{*this, "Label21", {.Caption = " X^2 +"}};
  Label Label22{*this, "Label22", {.Caption = "  X^3"}};

  Frame Frame2{*this, "Frame2", {.Caption = "measured background"}};
  Label Label23{*this, "Label23", {.Caption = "scale factor"}};
  TextBox Text3{*this, "Text3", {.Columns = 10}};
  CheckBox Check3{*this, "Check3", {}};

  Label Label24{*this, "Label24", {.Caption = "Nr. of selected peaks = "}};
  TextBox Text4{*this, "Text4", {.Meaning = "Number of selected peaks", .Locked = true, .Columns = 4}};
  Label Label25{*this, "Label25", {.Caption = "Nr. of refinable parameteters"}};
  TextBox Text5{*this, "Text5", {.Meaning = "Number of refinable parameters", .Locked = true, .Columns = 4}};
  Button Command1{*this, "Command1", {.Caption = "Print parameters"}};
  Button Command2{*this, "Command2", {.Caption = "OK"}};
};

}  // namespace koprax
