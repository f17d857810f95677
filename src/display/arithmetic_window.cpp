#include "display/arithmetic_window.h"

#include <utility>

#include "display/computed_profile_window.h"
#include "display/constant_question.h"
#include "forms/desktop.h"
#include "workspace/buffer_commands.h"

namespace koprax {

void OpenArithmetic(const WindowContext& context, ArithmeticOpening opening) {
  context.Desk.Load<Form8>(context, std::move(opening))->Show();
}

Form8::Form8(const WindowContext& context, ArithmeticOpening opening)
    : Form(context.Desk, "Form8", "Mathematical manipulation"),
      context_(context),
      opening_(std::move(opening)) {
  ArrangeControls();
  ConnectHandlers();
}

void Form8::ArrangeControls() {
  SetLayout(Column({Row({Stretched(Framed(Frame1, Column({cmdAdd, cmdProd, cmdSumX, cmdExpY, cmdLogY}))),
                         Stretched(Framed(Frame2, Column({Row({Label1, optY1, optY2, Space(), Command3}),
                                                          Grid(2, {Stretched(Command1), Command4,  //
                                                                   Stretched(Command2), Command6}),
                                                          Space()})))}),
                    Row({Space(), Command5})}));
}

void Form8::ConnectHandlers() {
  const auto act = [this](void (Form8::*command)()) {
    return [this, command] { Act([this, command] { (this->*command)(); }); };
  };
  cmdAdd.OnClick = [this] { Act([this] { ChangeY("Y=Y+K", AddToY); }); };
  cmdProd.OnClick = [this] { Act([this] { ChangeY("Y=Y*K", MultiplyY); }); };
  cmdSumX.OnClick = act(&Form8::ShiftX);
  cmdExpY.OnClick = act(&Form8::TakeExponential);
  cmdLogY.OnClick = act(&Form8::TakeLogarithm);
  optY1.OnClick = [this] { Act([this] { ChooseY(optY1, &ProfilePair::First); }); };
  optY2.OnClick = [this] { Act([this] { ChooseY(optY2, &ProfilePair::Second); }); };
  Command1.OnClick = [this] { Act([this] { CombineBoth(TwoProfileOperation::Sum); }); };
  Command2.OnClick = [this] { Act([this] { CombineBoth(TwoProfileOperation::Difference); }); };
  Command5.OnClick = [this] { Cancel(); };
  EscapeClicks(Command5);
}

void Form8::OnLoad() {
  const bool both = opening_.Profiles == 2;
  pair_ = both ? SelectedPair(context_.Data) : std::nullopt;
  Frame1.Enabled = opening_.Profiles == 1;
  Frame2.Enabled = both;
  context_.Data.MultiOp = false;
}

void Form8::Cancel() {
  Unload();
  opening_.ComeBack();
}

void Form8::Act(const std::function<void()>& command) {
  const auto opener = opening_.Opener.lock();
  if (opener && opener->Loaded()) {
    opening_.TakeUp();
    command();
  } else {
    Unload();
  }
}

// ---- What the commands work on -----------------------------------------------------------------------

void Form8::ChooseY(OptionButton& option, int ProfilePair::*y) {
  if (const auto pair = BothProfiles()) {
    Frame1.Enabled = true;
    MakeCurrent(context_, *pair.*y);
    context_.Data.MultiOp = true;
  } else {
    option.Value = false;
  }
}

std::optional<ProfilePair> Form8::BothProfiles() {
  if (!pair_) {
    TellError("There are no two profiles to work on.\r\nDisplay two profiles first.");
    return std::nullopt;
  }
  return pair_;
}

ProfileBuffer* Form8::ProfileAtWork() {
  if (context_.Data.MultiOp) {
    // Another command may have taken up another buffer since Y was chosen.
    const auto pair = BothProfiles();
    if (!pair) {
      return nullptr;
    }
    MakeCurrent(context_, optY1.Value ? pair->First : pair->Second);
  }
  ProfileBuffer& buffer = context_.Data.Current();
  if (buffer.WorkNpts == 0) {
    TellError("There are no points to work on.\r\nDisplay a profile that has points.");
    return nullptr;
  }
  return &buffer;
}

// ---- Single profile operations -----------------------------------------------------------------------

/// Y + K or Y * K.
void Form8::ChangeY(const std::string& title,
                    OperationResult (*operation)(Workspace&, const ProfileBuffer&, float)) {
  ProfileBuffer* const buffer = ProfileAtWork();
  const auto k = buffer != nullptr ? AskForConstant(Desk().Host(), title) : std::nullopt;
  if (!k) {
    return;
  }
  const OperationResult result = operation(context_.Data, *buffer, *k);
  if (result.End == OperationEnd::Beyond32Bits) {
    TellBeyond32Bits();
    Unload();
  } else if (result.AnyNegative && !Confirmed("Negative Y's generated.\r\ncontinue?")) {
    Unload();
  } else {
    TakeNewY(context_.Data, *buffer, result, TopOfScale::NeverFalls);
    Finish();
  }
}

void Form8::ShiftX() {
  ProfileBuffer* const buffer = ProfileAtWork();
  const auto k =
      buffer != nullptr ? AskForConstant(Desk().Host(), "Y=Y+K") : std::nullopt;  // titled so here, too
  if (!k) {
    return;
  }
  const OperationResult result = AddToX(context_.Data, *buffer, *k);
  if (result.End == OperationEnd::Beyond32Bits) {
    TellBeyond32Bits();
    Unload();
  } else if (result.AnyNegative &&
             !Confirmed("Negative X's generated.\r\nThis portion of profile will be lost\r\ncontinue?")) {
    Unload();
  } else {
    TakeNewX(context_.Data, *buffer, result);
    Finish();
  }
}

void Form8::TakeExponential() {
  if (ProfileBuffer* const buffer = ProfileAtWork()) {
    const auto go_on = [this] {
      return Confirmed("Danger!! Possible overflow or underflow on intensity data.\r\ncontinue?");
    };
    TakeAskedY(*buffer, ExponentialOfY(context_.Data, *buffer, go_on), TopOfScale::Highest);
  }
}

void Form8::TakeLogarithm() {
  if (ProfileBuffer* const buffer = ProfileAtWork()) {
    const auto go_on = [this] {
      return Confirmed("Warning!! Possible underflow on intensity data.\r\ncontinue?");
    };
    TakeAskedY(*buffer, LogarithmOfY(context_.Data, *buffer, go_on), TopOfScale::LogarithmOfOld);
  }
}

/// The end of an operation that was asked about on its way.
void Form8::TakeAskedY(ProfileBuffer& buffer, const OperationResult& result, TopOfScale top) {
  if (result.End == OperationEnd::Complete) {
    TakeNewY(context_.Data, buffer, result, top);
    Finish();
    return;
  }
  if (result.End == OperationEnd::NotPositive) {
    Desk().Host().MsgBox({.Text = "Negative or null argument for \"ln\" function",
                          .Title = "Error",
                          .Icon = MessageIcon::Exclamation});
  } else if (result.End == OperationEnd::Beyond32Bits) {
    TellBeyond32Bits();
  }
  Cancel();
}

/// The plot of several profiles has to know, as it is drawn anew, that an operation was made on one of them.
void Form8::Finish() {
  const bool on_one_of_several = context_.Data.MultiOp;
  Unload();
  context_.Data.MultiOp = on_one_of_several;
  opening_.Redraw();
  context_.Data.MultiOp = false;
}

// ---- Two profiles ------------------------------------------------------------------------------------

void Form8::CombineBoth(TwoProfileOperation operation) {
  const auto pair = BothProfiles();
  if (!pair) {
    return;
  }
  auto refusal = opening_.WhyNotCombined ? opening_.WhyNotCombined() : std::nullopt;
  if (!refusal) {
    refusal = CombineProfiles(context_.Data, *pair, operation);
  }
  if (refusal) {
    Desk().Host().MsgBox(*refusal);
  } else {
    MakeCurrent(context_, pair->First);
    OpenComputedProfile(context_, {.Operation = operation,
                                   .Sources = *pair,
                                   .Wavelength = context_.Data.SumWavelength,
                                   .Left = opening_.ResultLeft});
  }
  Unload();
}

// ---- What the user is told ---------------------------------------------------------------------------

bool Form8::Confirmed(const std::string& warning) {
  return Desk().Host().MsgBox({.Text = warning,
                               .Title = "Warning",
                               .Buttons = MessageButtons::YesNo,
                               .Icon = MessageIcon::Question}) == MessageAnswer::Yes;
}

void Form8::TellError(const std::string& text) { Desk().Host().MsgBox(ErrorMessage(text)); }

void Form8::TellBeyond32Bits() {
  TellError(
      "The operation gives numbers beyond 3.4E+38, which a profile can't hold.\r\nNothing was changed.");
}

}  // namespace koprax
