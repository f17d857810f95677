// Form8, "Mathematical manipulation": arithmetic on the temporary copy of one profile, and the sum and
// difference of two. The computing is left to arithmetic and profile_sum, the result of two profiles to
// the window that shows it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "display/arithmetic.h"
#include "display/profile_sum.h"
#include "forms/form.h"
#include "workspace/help_button.h"
#include "workspace/services.h"
#include "workspace/workspace.h"

namespace koprax {

/// What the window that opens the arithmetic tells about itself, and what it does when it hears back.
struct ArithmeticOpening {
  int Profiles;                    ///< shown by the opener, 1 or 2
  std::weak_ptr<Form> Opener{};    ///< once it is gone, the commands only close the window
  std::function<void()> TakeUp{};  ///< before each command: the opener's plot is at work again
  /// Why the two profiles on show are no longer to be combined; where it is missing, they always are.
  std::function<std::optional<Message>()> WhyNotCombined{};
  std::function<void()> Redraw{};      ///< one profile has changed: the opener draws anew
  std::function<void()> ComeBack{};    ///< the opener comes to the front
  std::function<void()> ResultLeft{};  ///< the result of two profiles has been left
};

/// Loads the window anew and shows it.
void OpenArithmetic(const WindowContext& context, ArithmeticOpening opening);

class Form8 final : public Form {
 public:
  Form8(const WindowContext& context, ArithmeticOpening opening);

 private:
  void OnLoad() override;
  /// No operation is under way any more.
  void OnUnload() override { context_.Data.MultiOp = false; }
  void OnCloseBox() override { Cancel(); }
  void ArrangeControls();
  void ConnectHandlers();

  void Cancel();
  void ChooseY(OptionButton& option, int ProfilePair::*y);
  void ChangeY(const std::string& title,
               OperationResult (*operation)(Workspace&, const ProfileBuffer&, float));
  void ShiftX();
  void TakeExponential();
  void TakeLogarithm();
  void CombineBoth(TwoProfileOperation operation);

  /// Runs a command for the opener; only closes the window when that is gone.
  void Act(const std::function<void()>& command);
  /// The profile of a single profile operation, or null, with the reason told, when there is nothing in it.
  [[nodiscard]] ProfileBuffer* ProfileAtWork();
  /// Y1 and Y2, or nothing, with the reason told, when two were not there at the load.
  [[nodiscard]] std::optional<ProfilePair> BothProfiles();
  [[nodiscard]] bool Confirmed(const std::string& warning);
  void TellError(const std::string& text);
  void TellBeyond32Bits();
  void TakeAskedY(ProfileBuffer& buffer, const OperationResult& result, TopOfScale top);
  void Finish();

  WindowContext context_;
  ArithmeticOpening opening_;
  std::optional<ProfilePair> pair_;  // Y1 and Y2, as they stood at the load

  Frame Frame1{*this, "Frame1", {.Caption = "Single profile operations"}};
  Button cmdAdd{*this, "cmdAdd", {.Caption = "Y=Y+K"}};
  Button cmdProd{*this, "cmdProd", {.Caption = "Y=Y*K"}};
  Button cmdSumX{*this, "cmdSumX", {.Caption = "X=X+K"}};
  Button cmdExpY{*this, "cmdExpY", {.Caption = "Y=EXP(Y)"}};
  Button cmdLogY{*this, "cmdLogY", {.Caption = "Y = ln Y"}};

  Frame Frame2{*this, "Frame2", {.Caption = "Two profiles operations"}};
  Label Label1{*this, "Label1", {.Caption = "Define Y"}};
  OptionButton optY1{*this, "optY1", {.Caption = "Y=Y1"}};
  OptionButton optY2{*this, "optY2", {.Caption = "Y=Y2"}};
  Button Command1{*this, "Command1", {.Caption = "Y=Y1+Y2"}};
  Button Command2{*this, "Command2", {.Caption = "Y=Y1-Y2"}};
  HelpButton Command3{*this, "Command3", context_.Main, HelpTopic::HelpDefineY};
  HelpButton Command4{*this, "Command4", context_.Main, HelpTopic::HelpAddProfiles};
  HelpButton Command6{*this, "Command6", context_.Main, HelpTopic::HelpSubtractProfiles};

  Button Command5{*this, "Command5", {.Caption = "Cancel"}};
};

}  // namespace koprax
