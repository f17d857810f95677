// Form6, "Display and Work": one profile is looked at and worked on. Everything here changes the
// temporary copy of CurBuf; only cmdSave writes it back to the permanent copy.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "display/display_modes.h"
#include "display/drawn_plot.h"
#include "display/edit_portion.h"
#include "display/peak_picking.h"
#include "display/plot_transform.h"
#include "display/profile_boxes.h"
#include "display/rubber_band.h"
#include "display/zoom_window.h"
#include "workspace/buffer_window.h"
#include "workspace/help_button.h"
#include "workspace/kept_profile.h"
#include "workspace/services.h"
#include "workspace/wavelength_choices.h"
#include "workspace/workspace.h"

namespace koprax {

class Form6 final : public BufferWindow {
 public:
  explicit Form6(const WindowContext& context);

  /// Draws the temporary copy of the slot and fills the boxes; false when there is no range of X to draw.
  bool ShowProfile(int slot);

  [[nodiscard]] bool MayClose() const override { return cmdMain.Enabled; }

 private:
  void OnLoad() override;
  void OnUnload() override;
  void OnCloseBox() override { ReturnToMainMenu(); }

  void ArrangeControls();
  [[nodiscard]] LayoutNode CommandsLayout();
  [[nodiscard]] LayoutNode ExplorerLayout();
  [[nodiscard]] LayoutNode EditLayout();
  void ConnectHandlers();
  [[nodiscard]] std::function<void()> AsCommand(std::function<void()> command);

  void EnterMode(DisplayMode mode);
  void RedrawProfile();
  void ShowWavelength();
  void EnterPrompt();
  void AcceptWavelength();
  [[nodiscard]] bool LacksCalibration() const;
  [[nodiscard]] bool AskForCalibration();
  [[nodiscard]] bool HasPlot();
  [[nodiscard]] bool HasCurve();
  [[nodiscard]] bool HoldsItsProfile();
  [[nodiscard]] bool HoldsProfile();
  void Print();
  void SaveBitmap();
  void StartArithmetic();
  void GiveUpArithmetic();
  void SaveProfile();
  void ShowNewTitle();
  void ReturnToMainMenu();

  // The selection with the rubber band, for zoom and edit.
  [[nodiscard]] bool Selecting() const { return (state_.ZoomSelecting || state_.EditMode) && !ZoomIsOpen(); }
  /// Both flags of a selection; ZoomMode is read outside, too.
  void SetSelection(bool zoom, bool edit);
  void StartSelection(DisplayMode mode);
  void PressInSelection(float x, float y);
  void ReleaseInSelection(float x);
  void ShowSelectedRange(const XRange& range);
  void AcceptSelection();
  void AcceptZoom();
  void CancelSelection();
  void HideSelection();
  void UndoZoom();

  // Edit mode.
  void AcceptEditRange();
  void ShowChanges();
  void RejectChanges();
  void AcceptChanges();
  void ChangeAll();
  void QuitEdit();
  [[nodiscard]] std::optional<EditRange> SelectedPortion();
  void ShowEditList(const EditRange& range, const EditList& list);
  std::optional<int> Apply(EditDrawing drawing);
  void EnableDecision(bool enabled);
  [[nodiscard]] bool PortionIsThere();

  // The mouse over the picture.
  void MousePressed(MouseButton button, float x, float y);
  void MouseMoved(float x, float y);
  void MouseReleased(MouseButton button, float x, float y);
  void ShowReadOut(float x, float y);
  [[nodiscard]] const char* MouseTip() const;
  void TellMouse() { Picture1.ToolTip = MouseTip(); }

  // Manual Explorer.
  [[nodiscard]] bool ExplorerPaused() const;
  void StartExplorer();
  void ResumeExplorer();
  void PauseExplorer();
  void QuitExplorer();
  void FollowExplorer(float picture_x, float x);
  void ResetCursorLine();
  void EnableListCommands();

  // The picked peaks.
  void PickPeak(float x, float y);
  void ShowPick(const PeakPick& pick);
  void EraseLastPeak();
  void ClearPeakList();
  void KeepExplorerScale();
  void MarkPeaks();
  void RubOutPeak(int peak);
  void RubOutPeaks();
  [[nodiscard]] CurveOrigin Origin() const;

  // The zoom of a paused explorer.
  void ZoomFromExplorer();
  void ReturnFromZoom();
  void CloseZoom();
  [[nodiscard]] bool ZoomIsOpen() const;
  /// The transform of Picture1, also while the zoom has one of its own.
  [[nodiscard]] const PlotTransform& ShownPlot() const;

  void TakeUp() override;

  /// What stands as long as the window is loaded.
  struct State {
    KeptProfile Kept;
    DrawnPlot Shown;
    bool DragActive = false;     ///< the rubber band follows the mouse
    bool ZoomSelecting = false;  ///< a zoom selection is under way here
    bool EditMode = false;       ///< an edit selection is under way
    bool IgnoreUp = false;       ///< the press fell outside the plot: the next release is swallowed
    float SelXLow = 0;
    float SelXHigh = 0;
    float SelYTop = 0;
    float SelYBottom = 0;
    float SavedYMax = 0;  ///< what stood before the selection began to change it
    std::string SavedText6;
    std::string SavedText7;
    bool SavedUnzoomEnabled = false;
    bool SavedExplEnabled = false;
    EditRange Edited;            ///< the portion in the list of Edit mode
    PortionPoints EditedPoints;  ///< its points, as this window has left them
    PeakPick AtCursor;           ///< what the explorer has read last; empty before the mouse has moved
    std::weak_ptr<Form15> Zoom;
    std::weak_ptr<Form> Arithmetic;
  };

  State state_;

  PictureBox Picture1{*this, "Picture1", PlotPicture()};
  Shape Shape1{Picture1, "Shape1", RestingBandEdge, RestingBandEdge, BandSize, BandSize};
  LineShape Line1{Picture1, "Line1", colours::Blue, 0, 15, 0, 90};

  ProfileBoxes Boxes{*this};
  TextBox Text16{*this,
                 "Text16",
                 {.Meaning = "Wavelength of the profile in angstrom",
                  .Font = std::string(SymbolFont),
                  .Locked = true,
                  .Columns = 11}};
  TextBox Text3{*this, "Text3", {.Meaning = "X under the mouse", .Locked = true, .Columns = 14}};
  TextBox Text4{*this, "Text4", {.Meaning = "Intensity under the mouse", .Locked = true, .Columns = 20}};

  Button cmdZoom{*this, "cmdZoom", {.Caption = "Zoom", .ToolTip = "Enlarge a selected part of the profile"}};
  Button cmdUnzoom{*this, "cmdUnzoom", {.Caption = "Undo-Zoom"}};
  Button cmdEdit{*this, "cmdEdit", {.Caption = "Edit", .ToolTip = "Start Edit session"}};
  Button cmdMod{*this,
                "cmdMod",
                {.Caption = "Arithmetic", .ToolTip = "Perform arithmetical operations on the profile"}};
  Button cmdSave{*this, "cmdSave", {.Caption = "Save", .ToolTip = "Save profile on main buffer"}};
  Button cmdMain{*this, "cmdMain", {.Caption = "Main Menu", .ToolTip = "Return to Main Menu"}};
  Button cmdManExpl{*this, "cmdManExpl", {.Caption = "Man. Expl.", .ToolTip = "Manual Explorer"}};
  Button cmdPrint{*this, "cmdPrint", {.Caption = "Print profile", .ToolTip = "Print profile displayed"}};
  Button Command17{*this, "Command17", {.Caption = "Bitmap", .ToolTip = "Save image as a bitmap file"}};
  OptionButton optOK{*this, "optOK", {.Caption = "OK"}};
  OptionButton optNO{*this, "optNO", {.Caption = "Cancel"}};

  Frame Frame1{*this, "Frame1", {.Caption = "Edit Commands"}};
  TextBox Text8{*this,
                "Text8",
                {.Meaning = "Points to edit, X and intensity",
                 .Font = "Courier",
                 .MultiLine = true,
                 .Columns = 22,
                 .Rows = 8}};
  Button cmdEditOK{*this, "cmdEditOK", {.Caption = "Show changes", .ToolTip = "Show the modified profile"}};
  Button cmdEditNO{*this, "cmdEditNO", {.Caption = "Cancel", .ToolTip = "Reject changes"}};
  Button cmdAccept{*this, "cmdAccept", {.Caption = "Accept", .ToolTip = "Accept changes"}};
  Button Command15{*this, "Command15", {.Caption = "Change all"}};
  Button cmdQuitEdit{*this, "cmdQuitEdit", {.Caption = "Quit Edit", .ToolTip = "Leave Edit mode"}};

  Frame Frame2{*this, "Frame2", {}};
  TextBox Text11{*this, "Text11", {.Meaning = "Heading of X", .Text = "X", .Locked = true, .Columns = 9}};
  TextBox Text12{*this,
                 "Text12",
                 {.Meaning = "Heading of 2-theta", .Text = "2-theta  (deg)", .Locked = true, .Columns = 12}};
  TextBox Text13{
      *this, "Text13", {.Meaning = "Heading of d", .Text = "d  (angstrom)", .Locked = true, .Columns = 12}};
  TextBox Text10{*this, "Text10", {.Meaning = "X at the blue line", .Locked = true, .Columns = 9}};
  TextBox Text14{
      *this, "Text14", {.Meaning = "2-theta at the blue line, degrees", .Locked = true, .Columns = 12}};
  TextBox Text15{*this,
                 "Text15",
                 {.Meaning = "Lattice spacing d at the blue line, angstrom", .Locked = true, .Columns = 12}};

  Frame Frame3{*this, "Frame3", {}};
  Label Label1{*this, "Label1", {.Caption = WavelengthQuestion}};
  ComboBox Combo1{*this, "Combo1", WavelengthChoices()};
  Button cmdComboOK{*this, "cmdComboOK", {.Caption = "OK"}};

  Frame Frame4{*this, "Frame4", {.Caption = "Selected Peaks (use right button of the mouse)"}};
  TextBox Text17{*this,
                 "Text17",
                 {.Meaning = "Picked peaks",
                  .Font = "Courier",
                  .Locked = true,
                  .MultiLine = true,
                  .FollowsEnd = true,
                  .Columns = 31,
                  .Rows = 6}};
  Button cmdErsLaIt{*this, "cmdErsLaIt", {.Caption = "Erase", .ToolTip = "Erase last item in the list"}};
  Button cmdClearPeaks{*this, "cmdClearPeaks", {.Caption = "Clear list", .ToolTip = "Erase the whole list"}};
  Button cmdSavePeaks{*this, "cmdSavePeaks", {.Caption = "Save list", .ToolTip = "Save list on disk"}};
  Button cmdExiManExp{*this, "cmdExiManExp", {.Caption = "Quit Man. Expl."}};

  HelpButton cmdZoomGuide{*this, "cmdZoomGuide", context_.Main, HelpTopic::HelpZoom};
  HelpButton Command1{*this, "Command1", context_.Main, HelpTopic::HelpClearList};
  HelpButton Command2{*this, "Command2", context_.Main, HelpTopic::HelpEdit};
  HelpButton Command3{*this, "Command3", context_.Main, HelpTopic::HelpArithmetic};
  HelpButton Command4{*this, "Command4", context_.Main, HelpTopic::HelpUndoZoom};
  HelpButton Command5{*this, "Command5", context_.Main, HelpTopic::HelpSave};
  HelpButton Command6{*this, "Command6", context_.Main, HelpTopic::HelpMainMenu};
  HelpButton Command7{*this, "Command7", context_.Main, HelpTopic::HelpExplorer};
  HelpButton Command8{*this, "Command8", context_.Main, HelpTopic::HelpAccept};
  HelpButton Command9{*this, "Command9", context_.Main, HelpTopic::HelpShowChanges};
  HelpButton Command10{*this, "Command10", context_.Main, HelpTopic::HelpCancel};
  HelpButton Command11{*this, "Command11", context_.Main, HelpTopic::HelpSaveList};
  HelpButton Command12{*this, "Command12", context_.Main, HelpTopic::HelpQuitExplorer};
  HelpButton Command13{*this, "Command13", context_.Main, HelpTopic::HelpPrint};
  HelpButton Command14{*this, "Command14", context_.Main, HelpTopic::HelpEraseLast};
  HelpButton Command16{*this, "Command16", context_.Main, HelpTopic::HelpChangeAll};
  HelpButton Command18{*this, "Command18", context_.Main, HelpTopic::HelpBitmap};
};

}  // namespace koprax
