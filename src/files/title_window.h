// Form3 and Form14: two small windows in which the title of CurBuf is typed anew.
#pragma once

#include <functional>
#include <string>

#include "forms/form.h"
#include "workspace/services.h"

namespace koprax {

/// What tells one title window from the other.
struct TitleWindowKind {
  const char* Name;
  const char* Caption;
};

namespace title_windows {
inline constexpr TitleWindowKind SavedProfile{"Form3", "Form3"};
inline constexpr TitleWindowKind ComputedProfile{"Form14", "Give title"};
}  // namespace title_windows

class TitleWindow final : public Form {
 public:
  /// `titled` runs when the window has closed, whether the title was changed or not.
  TitleWindow(const WindowContext& context, const TitleWindowKind& kind, std::function<void()> titled);

 private:
  void OnLoad() override;
  void OnCloseBox() override;
  void TakeTitle();

  WindowContext context_;
  std::function<void()> titled_;

  Label Label1{*this, "Label1", {.Caption = "Give new title  (max 80 chars.)"}};
  TextBox Text1{*this, "Text1", {.Meaning = "New title", .Columns = 80}};
  Button Command1{*this, "Command1", {.Caption = "OK"}};
};

}  // namespace koprax
