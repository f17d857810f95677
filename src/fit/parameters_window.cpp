#include "fit/parameters_window.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string>
#include <utility>

#include "fit/fit_parameters.h"
#include "fit/parameter_printing.h"
#include "fit/peak_quantities.h"
#include "forms/desktop.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

constexpr std::size_t PeakParameterCount = ConstantTerm - 1;
constexpr std::size_t PolynomialTerms = 4;
constexpr TextSetup TermBox() { return {.Columns = 12}; }

/// As wide as what the fit leaves in it, so that a row of them has room on a small screen.
TextSetup ValueBox(PeakParameter parameter) {
  if (parameter == PeakParameter::Intensity) {
    return {.Columns = 10};
  }
  return {.Columns = parameter == PeakParameter::Position ? 9 : 8};
}

LayoutNode AtRight(Control& control) { return Row({Space(), control}); }

std::size_t PeakOf(std::size_t parameter) { return (parameter - 1) / ParametersPerPeak + 1; }

bool IsIntensity(std::size_t parameter) {
  return parameter <= PeakParameterCount &&
         parameter == NumberOf(static_cast<int>(PeakOf(parameter)), PeakParameter::Intensity);
}

/// A parameter as its box shows it.
std::string ShownText(const PeakFit& fit, std::size_t parameter) {
  const float value = fit.FitParam[parameter];
  return parameter == ScaleFactor ? GeneralText(value) : RoundedText(value, IsIntensity(parameter) ? 3 : 5);
}

float NumberIn(const TextBox& box) { return LeadingFloat(box.Text.Get()); }

/// What stands in the box of a parameter, in words.
std::string NameOf(std::size_t parameter) {
  constexpr std::array columns{"Position", "Intensity", "FWHM left", "FWHM right", "Eta left", "Eta right"};
  if (parameter == ScaleFactor) {
    return "Scale factor of the measured background";
  }
  if (parameter >= ConstantTerm) {
    return std::string("Coefficient ") + "ABCD"[parameter - ConstantTerm] + " of the calculated background";
  }
  return std::string(columns[(parameter - 1) % ParametersPerPeak]) + " of peak " +
         std::to_string(PeakOf(parameter));
}

}  // namespace

Form20::Form20(const WindowContext& context, ParameterActions actions)
    : Form(context.Desk, "Form20", "Peak fit parameters"), context_(context), actions_(std::move(actions)) {
  for (Label* greek : {&Label5, &Label7, &Label11, &Label14}) {
    greek->FontName = SymbolFont;
  }
  MakeBoxes();
  ArrangeControls();
  Command1.OnClick = [this] { PrintParameters(context_); };
  Command2.OnClick = [this] { Accept(); };
  EnterClicks(Command2);
  EscapeCloses();
}

void Form20::MakeBoxes() {
  for (int i = 0; i < static_cast<int>(PeakParameterCount); ++i) {
    Text1.emplace_back(*this, "Text1", ValueBox(static_cast<PeakParameter>(1 + i % ParametersPerPeak)), i);
    Check1.emplace_back(*this, "Check1", CaptionSetup{}, i);
  }
  for (int i = 0; i < MaxFitPeaks; ++i) {
    const int peak = i + 1;
    Label40.emplace_back(*this, "Label40", CaptionSetup{}, i);
    Label41.emplace_back(*this, "Label41", CaptionSetup{}, i);
    Number.emplace_back(*this, "Number", CaptionSetup{.Caption = std::to_string(peak)}, i);
    Number.back().Meaning = "Delete peak " + std::to_string(peak);
    Number.back().OnClick = [this, peak] { DeletePeak(peak); };
  }
  for (int i = 0; i < static_cast<int>(PolynomialTerms); ++i) {
    Text2.emplace_back(*this, "Text2", TermBox(), i);
    Check2.emplace_back(*this, "Check2", CaptionSetup{}, i);
  }
  for (std::size_t parameter = 1; parameter <= ScaleFactor; ++parameter) {
    const Entry entry = EntryOf(parameter);
    entry.Value->Meaning = NameOf(parameter);
    entry.Refined->Meaning = "Refine: " + NameOf(parameter);
  }
}

void Form20::ArrangeControls() {
  SetLayout(Column({
      Row({Label9, Space(), Label10, Label11, Label12, Label13, Label14, Label15, Label16, Space()}),
      PeaksLayout(),
      Row({BackgroundLayout(), Framed(Frame2, Row({Label23, Text3, Check3})), Space()}),
      Row({Label24, Text4, Label25, Text5, Space(), Command1, Command2}),
  }));
}

/// A row for each peak: the button that deletes it, six boxes with their ticks, area and width.
LayoutNode Form20::PeaksLayout() {
  constexpr int columns = 1 + 2 * ParametersPerPeak + 2;
  std::vector<LayoutNode> cells{Space(),  // Label9 stands above, for it is wider than its column
                                Label1,
                                Space(),  //
                                Label2,
                                Space(),  //
                                Label3,
                                Space(),  //
                                Label4,
                                Space(),  //
                                Row({Label5, Label6, Space()}),
                                Space(),  //
                                Row({Label7, Label8, Space()}),
                                Space(),  //
                                AtRight(Label39),
                                AtRight(Label42)};
  for (std::size_t row = 0; row < MaxFitPeaks; ++row) {
    cells.emplace_back(Number[row]);
    for (std::size_t i = row * ParametersPerPeak; i < (row + 1) * ParametersPerPeak; ++i) {
      cells.emplace_back(Text1[i]);
      cells.emplace_back(Check1[i]);
    }
    cells.push_back(AtRight(Label40[row]));
    cells.push_back(AtRight(Label41[row]));
  }
  return Grid(columns, std::move(cells));
}

LayoutNode Form20::BackgroundLayout() {
  return Framed(Frame1, Row({Label17, Text2[0], Check2[0],           //
                             Label18, Text2[1], Check2[1], Label19,  //
                             Label20, Text2[2], Check2[2],           //
                             Label21, Text2[3], Check2[3], Label22}));
}

Form20::Entry Form20::EntryOf(std::size_t parameter) {
  if (parameter == ScaleFactor) {
    return {&Text3, &Check3};
  }
  if (parameter >= ConstantTerm) {
    return {&Text2[parameter - ConstantTerm], &Check2[parameter - ConstantTerm]};
  }
  return {&Text1[parameter - 1], &Check1[parameter - 1]};
}

// ---- The parameters in the boxes ---------------------------------------------------------------------

void Form20::OnLoad() {
  const PeakFit& fit = context_.Data.Fit;
  const int of_background = fit.FitPolyBackground ? static_cast<int>(PolynomialTerms) : 1;
  Text5.Text = std::to_string(ParametersPerPeak * fit.FitPeakCount + of_background);
  for (int peak = 1; peak <= fit.FitPeakCount; ++peak) {
    ShowPeak(peak);
  }
  ShowBackground();
  Text4.Text = std::to_string(fit.FitPeakCount);
}

void Form20::ShowPeak(int peak) {
  const PeakFit& fit = context_.Data.Fit;
  const auto row = static_cast<std::size_t>(peak - 1);
  Label40[row].Caption = RoundedText(PeakArea(fit, peak), 3);
  Label41[row].Caption = RoundedText(PeakWidth(fit, peak), 4);
  const std::size_t first = NumberOf(peak, PeakParameter::Position);
  for (std::size_t parameter = first; parameter < first + ParametersPerPeak; ++parameter) {
    Fill(parameter);
  }
}

void Form20::ShowBackground() {
  const PeakFit& fit = context_.Data.Fit;
  Frame2.Enabled = false;  // even with a measured background: its factor is refined, not typed
  if (fit.FitPolyBackground) {
    for (std::size_t parameter = ConstantTerm; parameter <= CubicTerm; ++parameter) {
      Fill(parameter);
    }
  } else {
    Fill(ScaleFactor);
  }
}

void Form20::Fill(std::size_t parameter) {
  const Entry entry = EntryOf(parameter);
  entry.Value->Text = ShownText(context_.Data.Fit, parameter);
  entry.Refined->Value = 1;
}

// ---- What the user does ------------------------------------------------------------------------------

void Form20::DeletePeak(int peak) {
  PeakFit& fit = context_.Data.Fit;
  if (peak > fit.FitPeakCount) {
    Desk().Host().MsgBox({.Text = "Unacceptable peak number", .Title = "Error"});
    return;
  }
  for (std::size_t i = NumberOf(peak, PeakParameter::Position) - 1; i < PeakParameterCount; ++i) {
    const std::size_t below = i + ParametersPerPeak;
    const bool last_row = below >= PeakParameterCount;
    Text1[i].Text = last_row ? std::string() : Text1[below].Text.Get();
    Check1[i].Value = last_row ? 0 : Check1[below].Value.Get();
  }
  --fit.FitPeakCount;
  Text4.Text = std::to_string(fit.FitPeakCount);
  actions_.Deleted();
}

void Form20::Accept() {
  if (!AllWithin32Bits()) {
    return;
  }
  StoreParameters();
  if (Desk().Host().MsgBox({.Text = "Everything OK?", .Title = "Sure?", .Buttons = MessageButtons::YesNo}) ==
      MessageAnswer::Yes) {
    Unload();
    actions_.Confirmed();
  }
}

bool Form20::AllWithin32Bits() {
  for (std::size_t parameter = 1; parameter <= ScaleFactor; ++parameter) {
    const TextBox& box = *EntryOf(parameter).Value;
    if (!std::isfinite(NumberIn(box))) {
      Desk().Host().MsgBox(ErrorMessage(NameOf(parameter) +
                                        " has to be a number of at most 3.4E+38 in size.\r\n" + "It was \"" +
                                        box.Text.Get() + "\". Nothing is changed."));
      return false;
    }
  }
  return true;
}

std::vector<std::int16_t> Form20::TickedParameters() {
  std::vector<std::int16_t> ticked;
  for (std::size_t parameter = 1; parameter <= ScaleFactor; ++parameter) {
    if (EntryOf(parameter).Refined->Value == 1) {
      ticked.push_back(static_cast<std::int16_t>(parameter));
    }
  }
  return ticked;
}

/// Whether anything differs from what the fit has, if only by the rounding of the boxes.
bool Form20::DiffersFromFit(const std::vector<std::int16_t>& ticked) {
  const PeakFit& fit = context_.Data.Fit;
  const std::span list(fit.FitList.begin() + 1, static_cast<std::size_t>(fit.FitListCount));
  bool differs = !std::ranges::equal(ticked, list);
  for (std::size_t parameter = 1; parameter <= ScaleFactor; ++parameter) {
    differs = differs || NumberIn(*EntryOf(parameter).Value) != fit.FitParam[parameter];
  }
  return differs;
}

/// FitList takes the numbers of the ticked boxes, upward.
void Form20::StoreParameters() {
  PeakFit& fit = context_.Data.Fit;
  const std::vector<std::int16_t> ticked = TickedParameters();
  const bool others = DiffersFromFit(ticked);
  for (std::size_t parameter = 1; parameter <= ScaleFactor; ++parameter) {
    fit.FitParam[parameter] = NumberIn(*EntryOf(parameter).Value);
  }
  std::ranges::copy(ticked, fit.FitList.begin() + 1);
  fit.FitListCount = static_cast<std::int16_t>(ticked.size());
  Text5.Text = std::to_string(fit.FitListCount);
  actions_.Taken(others);
}

}  // namespace koprax
