// The windows in which buffers are picked. One class serves them all: their captions and their order of
// closing and acting are data, and what a choice does comes with the opening.
#pragma once

#include <array>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "forms/form.h"
#include "workspace/services.h"
#include "workspace/workspace.h"

namespace koprax {

/// What tells one picker from another.
struct PickerKind {
  enum class Offers { OneBuffer, SeveralBuffers };
  enum class Closes { BeforeActing, AfterActing };
  const char* Name;
  const char* Caption;
  Offers Choice = Offers::OneBuffer;
  Closes Order = Closes::BeforeActing;
  bool SetsCurBuf = true;          ///< with one buffer on offer, the choice becomes CurBuf
  bool FirstWhenAllEmpty = false;  ///< CurBuf becomes 1 at the load when all six buffers are empty
};

namespace pickers {
inline constexpr PickerKind Profile{"Form10", "Select one profile to display", PickerKind::Offers::OneBuffer,
                                    PickerKind::Closes::AfterActing};
inline constexpr PickerKind Display{"Form11", "Select profile(s) to display",
                                    PickerKind::Offers::SeveralBuffers};
inline constexpr PickerKind CalibrationOrBackground{
    .Name = "Form16", .Caption = "Select buffer (form 16)", .FirstWhenAllEmpty = true};
inline constexpr PickerKind Erase{"Form17", "Select buffer (form 17)"};
inline constexpr PickerKind SmoothedResult{"Form18", "Select buffer (form18)"};
inline constexpr PickerKind FitBackground{.Name = "Form21",
                                          .Caption = "Select buffer (Form21)",
                                          .Order = PickerKind::Closes::AfterActing,
                                          .SetsCurBuf = false};
inline constexpr PickerKind Cell{
    .Name = "Form27", .Caption = "Select buffer (Form27)", .Order = PickerKind::Closes::AfterActing};
inline constexpr PickerKind ComputedProfile{
    .Name = "Form29", .Caption = "Select buffer (Form29)", .FirstWhenAllEmpty = true};
inline constexpr PickerKind SeveralSaved{
    .Name = "Form32", .Caption = "Select buffer (Form32)", .FirstWhenAllEmpty = true};
}  // namespace pickers

/// What the user of a picker does, told to whoever opened it.
struct PickerActions {
  /// The load of the window.
  std::function<void()> Loaded{};
  /// A choice: the slots picked, 1 to 6.
  std::function<void(Form& picker, const std::vector<int>& slots)> Chosen{};
  /// The close box.
  std::function<void()> GivenUp{};
};

class BufferPicker final : public Form {
 public:
  BufferPicker(const WindowContext& context, const PickerKind& kind, PickerActions actions);

 private:
  void OnLoad() override;
  void OnCloseBox() override;
  void MakeOptions();
  void MakeChecks();
  void Choose(const std::vector<int>& slots);
  [[nodiscard]] std::vector<int> TickedSlots() const;

  WindowContext context_;
  PickerKind kind_;
  PickerActions actions_;
  std::deque<OptionButton> options_;  // optA to optF, or
  std::deque<CheckBox> checks_;       // Check1 to Check6 with
  std::deque<Button> accept_;         // Command1
  std::deque<TextBox> titles_;        // Text1 to Text6
};

}  // namespace koprax
