// Form2, "Multiprofile": several buffers in one plot, each in its colour, with a legend. It selects what
// the zoom window shows, opens the arithmetic on two profiles, and saves what that has changed.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "display/curve.h"
#include "display/drawn_plot.h"
#include "display/plot_transform.h"
#include "forms/form.h"
#include "workspace/help_button.h"
#include "workspace/kept_profile.h"
#include "workspace/services.h"
#include "workspace/workspace.h"

namespace koprax {

/// Shows the buffers of SelBuf in a window opened anew. The user is told when they can't share a plot; the
/// windows then stay as they are.
void ShowSeveralProfiles(const WindowContext& context);

class Form2 final : public Form {
 public:
  explicit Form2(const WindowContext& context);

  /// Shows the window and draws the plot at work.
  void ShowPlot();

  [[nodiscard]] bool MayClose() const override { return cmdMain.Enabled; }

 private:
  void OnLoad() override;
  /// The windows that act for this one go with it.
  void OnUnload() override;
  void OnCloseBox() override { ReturnToMainMenu(); }

  void ArrangeControls();
  void ConnectHandlers();

  void EnableArithmetic();
  void EnableOutput(bool enabled);
  void ShowRange(const XRange& range);
  void ReturnToMainMenu();
  void Print();
  [[nodiscard]] bool HasPlot() const;

  // Arithmetic, and saving what it has changed.
  void StartArithmetic();
  void GiveUpArithmetic();
  void DrawAgain();
  void LeaveResult();
  void TakePlotBack();
  [[nodiscard]] bool PickBuffer();
  void SaveBuffer();
  [[nodiscard]] std::optional<Message> WhyNotSaved() const;
  [[nodiscard]] std::optional<Message> WhyNotCombined() const;
  [[nodiscard]] KeptProfile& Kept(int slot) { return state_.Kept[static_cast<std::size_t>(slot)]; }
  void KeepPermanentCopies();

  // The selection with the rubber band, and its zoom.
  void StartSelection();
  void MousePressed(float x, float y);
  void MouseMoved(float x, float y);
  void MouseReleased(float x);
  [[nodiscard]] PlotLimits SelectedLimits() const;
  void AcceptSelection();
  void CancelSelection();
  void HideSelection();
  [[nodiscard]] const char* MouseTip() const;
  void TellMouse() { Picture1.ToolTip = MouseTip(); }
  void OpenZoom();
  void LeaveZoom();
  void CloseZoom();

  void Tell(const Message& message) const;

  /// What stands as long as the window is loaded.
  struct State {
    DrawnPlot Shown;
    std::vector<int> Slots;   ///< of the buffers in the plot
    bool DragActive = false;  ///< the rubber band follows the mouse
    bool ZoomSelecting = false;
    bool IgnoreUp = false;  ///< the press fell outside the plot: the next release is swallowed
    float SelXLow = 0;
    float SelXHigh = 0;
    float SelYTop = 0;
    std::array<KeptProfile, NumBuffers + 1> Kept;  ///< of those shown, by their slots
    std::weak_ptr<Form> Arithmetic;
    std::weak_ptr<Form> Zoom;
  };

  WindowContext context_;
  State state_;

  PictureBox Picture1{*this, "Picture1", PlotPicture("Plot of the profiles")};
  Shape Shape1{Picture1, "Shape1", 3, 3, 2.38F, 2.38F};
  PictureBox Picture2{*this, "Picture2", LegendPicture()};
  TextBox Text6{*this, "Text6", {.Meaning = "Lowest X", .Locked = true, .Columns = 14}};
  TextBox Text7{*this, "Text7", {.Meaning = "Highest X", .Locked = true, .Columns = 14}};
  TextBox Text3{*this, "Text3", {.Meaning = "X under the mouse", .Locked = true, .Columns = 20}};
  TextBox Text4{*this, "Text4", {.Meaning = "Intensity under the mouse", .Locked = true, .Columns = 20}};
  Button cmdZoom{*this, "cmdZoom", {.Caption = "Zoom", .ToolTip = "Enlarge a part of the profile"}};
  Button cmdMod{
      *this, "cmdMod", {.Caption = "Arithmetic", .ToolTip = "Perform arithmetical operations on profiles"}};
  Button cmdSave{
      *this, "cmdSave", {.Caption = "Save", .ToolTip = "Save a selected profile on the permanent buffer"}};
  Button Command1{*this, "Command1", {.Caption = "Print", .ToolTip = "Print profiles"}};
  Button cmdBitMap{*this, "cmdBitMap", {.Caption = "Bitmap", .ToolTip = "Save image in a bitmap file"}};
  Button cmdMain{*this, "cmdMain", {.Caption = "Main Menu", .ToolTip = "Return to main menu"}};
  OptionButton optOK{*this, "optOK", {.Caption = "OK"}};
  OptionButton optNO{*this, "optNO", {.Caption = "Cancel"}};
  HelpButton cmdZoomGuide{*this, "cmdZoomGuide", context_.Main, HelpTopic::HelpZoom};
  HelpButton Command2{*this, "Command2", context_.Main, HelpTopic::HelpPrint};
  HelpButton Command3{*this, "Command3", context_.Main, HelpTopic::HelpArithmetic};
  HelpButton Command4{*this, "Command4", context_.Main, HelpTopic::HelpBitmap};
  HelpButton Command5{*this, "Command5", context_.Main, HelpTopic::HelpSaveSelected};
  HelpButton Command6{*this, "Command6", context_.Main, HelpTopic::HelpMainMenu};
};

}  // namespace koprax
