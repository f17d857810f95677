// Form34, "Peaks": the view of one reference card, with its stick pattern, its crystal data and its table of
// reflections. It changes nothing.
#pragma once

#include <string>

#include "display/stick_plot.h"
#include "forms/form.h"
#include "workspace/services.h"
#include "workspace/workspace.h"

namespace koprax {

class Form34 final : public Form {
 public:
  explicit Form34(const WindowContext& context);

 private:
  void OnLoad() override;

  void ArrangeControls();
  void ShowCrystalData(const ProfileBuffer& card);
  void DrawPattern(const ProfileBuffer& card);
  void ShowReadOut(float x, float y);
  void Print();

  WindowContext context_;
  int slot_ = 0;  // of the card on show
  StickPlot plot_;

  TextBox Text13{*this, "Text13", {.Meaning = "Title of the card", .Locked = true, .Columns = 60}};
  PictureBox Picture1{*this, "Picture1", StickPicture("Reflections of the card as sticks")};
  TextBox Text1{*this, "Text1", {.Meaning = "Lowest 2-theta", .Locked = true, .Columns = 15}};
  TextBox Text2{*this, "Text2", {.Meaning = "Highest 2-theta", .Locked = true, .Columns = 15}};
  TextBox Text3{
      *this,
      "Text3",
      {.Meaning = "Wavelength in angstrom", .Font = std::string(SymbolFont), .Locked = true, .Columns = 14}};
  TextBox Text4{*this, "Text4", {.Meaning = "2-theta under the mouse", .Locked = true, .Columns = 13}};
  TextBox Text5{*this, "Text5", {.Meaning = "Intensity under the mouse", .Locked = true, .Columns = 11}};
  TextBox Text12{
      *this, "Text12", {.Meaning = "Lattice spacing d under the mouse", .Locked = true, .Columns = 13}};

  Frame Frame1{*this, "Frame1", {.Caption = "Crystal data"}};
  Label Label2{*this, "Label2", {.Caption = "a ="}};
  TextBox Text6{*this, "Text6", {.Meaning = "Cell edge a in angstrom", .Locked = true, .Columns = 9}};
  Label Label6{*this, "Label6", {.Caption = "a ="}};
  TextBox Text9{*this, "Text9", {.Meaning = "Cell angle alpha in degrees", .Locked = true, .Columns = 8}};
  Label Label4{*this, "Label4", {.Caption = "b ="}};
  TextBox Text7{*this, "Text7", {.Meaning = "Cell edge b in angstrom", .Locked = true, .Columns = 9}};
  Label Label7{*this, "Label7", {.Caption = "b ="}};
  TextBox Text10{*this, "Text10", {.Meaning = "Cell angle beta in degrees", .Locked = true, .Columns = 8}};
  Label Label5{*this, "Label5", {.Caption = "c ="}};
  TextBox Text8{*this, "Text8", {.Meaning = "Cell edge c in angstrom", .Locked = true, .Columns = 9}};
  Label Label8{*this, "Label8", {.Caption = "g ="}};
  TextBox Text11{*this, "Text11", {.Meaning = "Cell angle gamma in degrees", .Locked = true, .Columns = 8}};
  Label Label1{*this, "Label1", {.Caption = "Space Group ="}};
  Label Label3{*this, "Label3", {.Caption = "not given"}};

  Frame Frame2{*this, "Frame2", {.Caption = "Relevant peaks"}};
  TextBox Text14{*this,
                 "Text14",
                 {.Meaning = "Table of reflections",
                  .Font = "Courier",
                  .Locked = true,
                  .MultiLine = true,
                  .Columns = 39,
                  .Rows = 9}};

  Button cmdPrint{*this, "cmdPrint", {.Caption = "Print", .ToolTip = "Send data to printer"}};
  Button Command3{*this, "Command3", {.Caption = "Main menu", .ToolTip = "Return to main menu"}};
};

}  // namespace koprax
