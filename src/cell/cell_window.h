// Form26, "Cell refinement": four steps in frames of their own. The user gives an approximate cell, reads the
// list of its reflections, gives indices to measured peaks, and refines, one step a click.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cell/cell_model.h"
#include "cell/cell_refinement.h"
#include "display/stick_plot.h"
#include "workspace/buffer_window.h"
#include "workspace/kept_peak_list.h"
#include "workspace/wavelength_choices.h"

namespace koprax {

class Form26 final : public BufferWindow {
 public:
  explicit Form26(const WindowContext& context);

 private:
  void OnLoad() override;
  void OnUnload() override;
  void OnCloseBox() override { ReturnToMainMenu(); }
  [[nodiscard]] bool HasContent() override;

  void ArrangeControls();
  [[nodiscard]] LayoutNode PictureLayout();
  [[nodiscard]] LayoutNode CellLayout();
  [[nodiscard]] LayoutNode GenerationLayout();
  [[nodiscard]] LayoutNode IndexationLayout();
  [[nodiscard]] LayoutNode RefinementLayout();
  void ConnectHandlers();
  /// What screen readers and the keyboard know of the buttons, some of which are called alike.
  void SetKeys();
  void ReturnToMainMenu();

  // The peak list and its wavelength.
  void disegna_picchi();
  void DrawPeaks();
  [[nodiscard]] XRange PictureRange() const;
  [[nodiscard]] bool InChannels() const;
  [[nodiscard]] float TwoThetaAt(float x) const;
  void TakeWavelength();
  void ShowWavelength();
  [[nodiscard]] bool AskForCalibration();
  void ShowReadOut(float x, float y);
  /// What the mouse does in the picture now, in words.
  [[nodiscard]] std::string MouseTip() const;
  void ShowMouseTip() { Picture1.ToolTip = MouseTip(); }

  // The cell and its reflections.
  void ChooseSystem();
  void ShowCellBoxes(bool shown);
  void CloseFixedBoxes();
  void TakeCell();
  [[nodiscard]] bool AnglesAreInside() const;
  void GeneratePeaks();

  // The indices.
  void SelectPeak(float x);
  void ShowObserved(std::size_t peak);
  void TakeTriplet();
  void AcceptPeak();
  void RefusePeak();
  void EndIndexation();

  void Refine();

  /// What stands as long as the window is loaded.
  struct State {
    KeptPeakList Kept;
    std::vector<Stick> Sticks;  ///< of the peaks, from 0
    StickPlot Plot;
    CellModel Cell;
    bool IndexationActive = false;  ///< clicks select peaks
    std::optional<Stick> Selected;  ///< the stick drawn in blue last
    Indices Triplet;                ///< as last taken
    AcceptedPeaks Accepted;
  };
  State state_;

  PictureBox Picture1{*this, "Picture1", StickPicture("Stick diagram of the measured peaks")};
  TextBox Text1{*this,
                "Text1",
                {.Meaning = "Wavelength of the peaks in angstrom",
                 .Font = std::string(SymbolFont),
                 .Locked = true,
                 .Columns = 14}};
  TextBox Text2{*this, "Text2", {.Meaning = "Lowest X of the diagram", .Locked = true, .Columns = 14}};
  TextBox Text3{*this, "Text3", {.Meaning = "Highest X of the diagram", .Locked = true, .Columns = 14}};
  TextBox Text4{*this, "Text4", {.Meaning = "X under the mouse", .Locked = true, .Columns = 13}};
  TextBox Text5{*this, "Text5", {.Meaning = "Intensity under the mouse", .Locked = true, .Columns = 14}};
  TextBox Text12{*this,
                 "Text12",
                 {.Meaning = "Lattice spacing d under the mouse, angstrom", .Locked = true, .Columns = 10}};
  TextBox Text13{*this,
                 "Text13",
                 {.Meaning = "2-theta of the channel under the mouse, degrees",
                  .Font = std::string(SymbolFont),
                  .Locked = true,
                  .Columns = 12}};

  Frame Frame3{*this, "Frame3", {.Visible = false}};
  Label Label3{*this, "Label3", {.Caption = WavelengthQuestion}};
  ComboBox Combo1{*this, "Combo1", WavelengthChoicesForPeaks("1.54184   (Cu  K-a1+ K-a2)")};
  Button cmdComboOK{*this, "cmdComboOK", {.Caption = "OK"}};

  Frame Frame1{*this, "Frame1", {.Caption = "Cell Parameters"}};
  ComboBox Combo2{*this,
                  "Combo2",
                  {.Meaning = "Crystal system",
                   .Text = "Triclinic",
                   .Items = {"Triclinic", "Monoclinic (b unique axis)", "Orthorhombic", "Tetragonal",
                             "Trigonal-Hexagonal", "Cubic"}}};
  Button Command2{*this, "Command2", {.Caption = "OK", .ToolTip = "Take the crystal system"}};
  Label Label1{*this, "Label1", {.Caption = "Type approximate cell parameters"}};
  Label Label2{*this, "Label2", {.Caption = "a ="}};
  Label Label4{*this, "Label4", {.Caption = "b ="}};
  Label Label5{*this, "Label5", {.Caption = "c ="}};
  Label Label6{*this, "Label6", {.Caption = "a ="}};
  Label Label7{*this, "Label7", {.Caption = "b ="}};
  Label Label8{*this, "Label8", {.Caption = "g ="}};
  TextBox Text6{*this, "Text6", {.Meaning = "a in angstrom", .Columns = 8}};
  TextBox Text7{*this, "Text7", {.Meaning = "b in angstrom", .Columns = 8}};
  TextBox Text8{*this, "Text8", {.Meaning = "c in angstrom", .Columns = 8}};
  TextBox Text9{*this, "Text9", {.Meaning = "alpha in degrees", .Columns = 8}};
  TextBox Text10{*this, "Text10", {.Meaning = "beta in degrees", .Columns = 8}};
  TextBox Text11{*this, "Text11", {.Meaning = "gamma in degrees", .Columns = 8}};
  Button Command1{*this, "Command1", {.Caption = "Quit", .ToolTip = "Take the cell and go on"}};

  Frame Frame2{*this, "Frame2", {.Caption = "Peak generation", .Visible = false}};
  Label Label10{*this, "Label10", {.Caption = "Select 2theta min and 2theta max"}};
  Label Label12{*this, "Label12", {.Caption = " 2-theta min"}};
  TextBox Text16{*this, "Text16", {.Meaning = "2-theta min of the reflections", .Columns = 8}};
  Label Label13{*this, "Label13", {.Caption = " 2-theta max"}};
  TextBox Text17{*this, "Text17", {.Meaning = "2-theta max of the reflections", .Columns = 8}};
  Button cmdPeakGeneration{
      *this, "cmdPeakGeneration", {.Caption = "OK", .ToolTip = "List the reflections of the range"}};
  TextBox Text14{*this,
                 "Text14",
                 {.Meaning = "Reflections of the cell",
                  .Font = "Courier",
                  .Locked = true,
                  .MultiLine = true,
                  .Columns = 24,
                  .Rows = 10}};

  Frame Frame4{*this, "Frame4", {.Caption = "Peak indexation", .Visible = false}};
  Label Label11{*this, "Label11", {.Caption = "Select, with the mouse, one peak in the"}};
  Label Label14{*this, "Label14", {.Caption = "Figure and attribute to it a triplet H K L"}};
  Label Label15{*this, "Label15", {.Caption = "2 theta of the selected peak"}};
  TextBox Text15{*this, "Text15", {.Meaning = "2-theta of the selected peak", .Columns = 12}};
  Label Label16{*this, "Label16", {.Caption = " H"}};
  Label Label17{*this, "Label17", {.Caption = " K"}};
  Label Label18{*this, "Label18", {.Caption = " L"}};
  TextBox Text18{*this, "Text18", {.Meaning = "Index h", .Columns = 5}};
  TextBox Text19{*this, "Text19", {.Meaning = "Index k", .Columns = 5}};
  TextBox Text20{*this, "Text20", {.Meaning = "Index l", .Columns = 5}};
  Button Command4{*this, "Command4", {.Caption = "OK", .ToolTip = "Calculate the 2-theta of the triplet"}};
  Label Label20{*this, "Label20", {.Caption = "calculated  2-theta "}};
  TextBox Text21{*this, "Text21", {.Meaning = "Calculated 2-theta", .Locked = true, .Columns = 12}};
  Button cmdAccept{*this, "cmdAccept", {.Caption = "Accept"}};
  Button cmdRefuse{*this, "cmdRefuse", {.Caption = "Refuse"}};
  Label Label21{*this, "Label21", {.Caption = "Nr. of accepted peaks"}};
  TextBox Text22{*this, "Text22", {.Meaning = "Number of accepted peaks", .Locked = true, .Columns = 5}};
  Button Command5{*this, "Command5", {.Caption = "Quit", .ToolTip = "Go on with the refinement"}};

  Frame Frame5{*this, "Frame5", {.Caption = "Refinement of cell parameters", .Visible = false}};
  Button cmdOptimize{*this, "cmdOptimize", {.Caption = "Refine", .ToolTip = "Run one cycle of refinement"}};
  TextBox Text23{*this,
                 "Text23",
                 {.Meaning = "Result of the refinement",
                  .Font = "Courier",
                  .Locked = true,
                  .MultiLine = true,
                  .FollowsEnd = true,
                  .Wraps = true,
                  .Columns = 63,
                  .Rows = 21}};

  Button Command3{*this, "Command3", {.Caption = "Main menu", .ToolTip = "Return to main menu"}};
};

}  // namespace koprax
