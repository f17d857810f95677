// The steps of the work: the cell, its reflections, the indices of the peaks, the refinement.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <string>

#include "cell/cell_window.h"
#include "cell/refinement_messages.h"
#include "cell/reflection_list.h"
#include "forms/desktop.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

float NumberIn(const TextBox& box) { return LeadingFloat(box.Text.Get()); }

Message NoSystem() {
  return ErrorMessage(
      "The crystal system hasn't been chosen yet.\r\nChoose it, press \"OK\" beside it, and type the cell.");
}

Message NoCell() {
  return ErrorMessage(
      "These lengths and angles are those of no cell.\r\nGive lengths above 0, and angles between 0 and 180 "
      "degrees that enclose a volume.");
}

Message NoReflections() {
  return ErrorMessage(
      "There is no cell whose reflections could be listed: the crystal system chosen is unknown.\r\nStart "
      "anew with \"Refine cell\" of the main menu.");
}

Message NoRange() {
  return ErrorMessage("The limits of 2-theta are no angles.\r\nGive two angles in degrees, up to 180.");
}

Message TooManyReflections() {
  return ErrorMessage(
      "The cell has more reflections than can be gone through.\r\nReduce 2-theta max, or look whether its "
      "lengths are right.");
}

Message LimitOfGeneration() {
  return {
      .Text =
          "Maximum number of peaks (300) reached!!\r\nReduce 2-theta range for peak generation, otherwise "
          "some peak will be lost.",
      .Title = "Warning"};
}

Message NotCalibrated(const ProfileBuffer& buffer) {
  return {
      .Text = "Buffer " + buffer.BufLetter +
              " has no calibration, so its channels have no 2-theta.\r\n"
              "Type the 2-theta of the peak. Or save the list of peaks, erase the buffer, and read the list "
              "again: you are asked for the calibration.",
      .Title = "Warning",
      .Icon = MessageIcon::Exclamation};
}

Message NoRoomForPeak() {
  return ErrorMessage(
      "300 peaks have been accepted, which is all there is room for.\r\nGo on with \"Quit\".");
}

Message NoIndices() {
  return ErrorMessage("Indices have to lie within -" + std::to_string(MaxIndex) + " and " +
                      std::to_string(MaxIndex) + ".\r\nType others and press \"OK\".");
}

Message NoPosition() {
  return ErrorMessage("The 2-theta of the selected peak is out of range.\r\nType one in degrees.");
}

/// The index that a typed number stands for; nothing if its square doesn't fit 16 bits.
std::optional<std::int16_t> IndexOf(float typed) {
  const auto index = ToInt16(typed);
  return index && std::abs(*index) <= MaxIndex ? index : std::nullopt;
}

}  // namespace

// The cell and its reflections.

void Form26::ChooseSystem() {
  state_.Cell.CrystalSystem = CrystalSystemOf(Combo2.Text.Get());
  ShowCellBoxes(true);
  CloseFixedBoxes();
  Combo2.Enabled = false;
}

void Form26::ShowCellBoxes(bool shown) {
  for (Label* label : {&Label1, &Label2, &Label4, &Label5, &Label6, &Label7, &Label8}) {
    label->Visible = shown;
  }
  for (TextBox* box : {&Text6, &Text7, &Text8, &Text9, &Text10, &Text11}) {
    box->Visible = shown;
  }
}

void Form26::CloseFixedBoxes() {
  const auto close = [](TextBox& box, const char* text = "") {
    box.Text = text;
    box.Locked = true;
    box.Enabled = false;
  };
  switch (state_.Cell.CrystalSystem) {
    case CrystalSystems::None:
    case CrystalSystems::Triclinic:
      return;
    case CrystalSystems::Monoclinic:
      break;
    case CrystalSystems::Orthorhombic:
      close(Text10);
      break;
    case CrystalSystems::Tetragonal:
    case CrystalSystems::TrigonalHexagonal:
      close(Text7, " a");
      close(Text10);
      break;
    case CrystalSystems::Cubic:
      close(Text7, " a");
      close(Text8, " a");
      close(Text10);
      break;
  }
  close(Text9);
  close(Text11, state_.Cell.CrystalSystem == CrystalSystems::TrigonalHexagonal ? "120" : "");
}

void Form26::TakeCell() {
  if (Combo2.Enabled) {
    Tell(NoSystem());
    return;
  }
  CellModel& cell = state_.Cell;
  TypedCell typed{};
  const std::array<const TextBox*, 6> boxes{&Text6, &Text7, &Text8, &Text9, &Text10, &Text11};
  for (std::size_t k = 0; k < boxes.size(); ++k) typed[k + 1] = LeadingNumber(boxes[k]->Text.Get());
  const CellNumbers direct = DirectCellOf(cell.CrystalSystem, typed);
  // A name of no system makes no cell; the refinement tells.
  if (cell.CrystalSystem != CrystalSystems::None) {
    CellNumbers recip{};
    if (IsCell(direct)) CellConvert(direct, recip, CellConversion::Reciprocal);
    if (!IsCell(recip) || !AnglesAreInside()) {
      Tell(NoCell());
      return;
    }
    cell.CellDirect = direct;
    cell.CellRecip = recip;
    CellConvert(recip, cell.CellQuad, CellConversion::QuadraticForm);
  }
  Frame1.Enabled = false;
  Frame2.Visible = Frame4.Visible = true;
  state_.IndexationActive = true;
  ShowMouseTip();
}

/// The cosines alone would let an angle of 255 degrees pass for one of 105.
bool Form26::AnglesAreInside() const {
  return std::ranges::all_of(std::array{&Text9, &Text10, &Text11}, [](const TextBox* box) {
    const double angle = LeadingNumber(box->Text.Get());
    return !box->Enabled || (angle > 0 && angle < 180);
  });
}

void Form26::GeneratePeaks() {
  if (state_.Cell.CrystalSystem == CrystalSystems::None) {
    Tell(NoReflections());
    return;
  }
  const float low = NumberIn(Text16);
  const float high = NumberIn(Text17);
  if (!std::isfinite(low) || !std::isfinite(high)) {
    Tell(NoRange());
    return;
  }
  GeneratedReflections found = GenerateReflections(state_.Cell, low, high);
  if (found.TooMany) {
    Tell(TooManyReflections());
    return;
  }
  if (found.LimitReached) {
    Tell(LimitOfGeneration());
  }
  SortReflections(found.Reflections);
  Text14.Text = ReflectionRows(found.Reflections);
}

// The indices.

void Form26::SelectPeak(float x) {
  if (!state_.IndexationActive) {
    return;
  }
  TakeUp();
  if (!HasContent()) {
    return;
  }
  if (state_.Sticks.empty()) {
    Tell(PeakListGone(Buffer(), "Refine cell"));
    return;
  }
  if (Buffer().Wavelength != state_.Cell.CellLambda) {
    Tell(WavelengthGone(Buffer(), "Refine cell"));
    return;
  }
  const auto nearest = NearestStick(state_.Sticks, state_.Plot.XAt(x));
  if (!nearest) {
    Tell(NoPeakNear());
    return;
  }
  state_.Selected = state_.Sticks[*nearest];
  state_.Plot.DrawStick(*state_.Selected, colours::Blue, Picture1);
  ShowObserved(*nearest + 1);
}

/// `peak` from 1.
void Form26::ShowObserved(std::size_t peak) {
  if (!InChannels()) {
    Text15.Text = " " + Buffer().PeakTheta[peak];
    return;
  }
  Text15.Text = RoundedText(TwoThetaAt(state_.Selected->X), 3);
  // A calibration whose constant lies below 0 is one, though it would be asked for again with the wavelength.
  if (std::ranges::all_of(Buffer().CalPar, [](double coefficient) { return coefficient == 0; })) {
    Tell(NotCalibrated(Buffer()));
  }
}

void Form26::TakeTriplet() {
  state_.Triplet = {.H = NumberIn(Text18), .K = NumberIn(Text19), .L = NumberIn(Text20)};
  if (const auto two_theta = TwoThetaOf(state_.Cell, state_.Triplet)) {
    Text21.Text = RoundedText(*two_theta, 3);
  }
}

void Form26::AcceptPeak() {
  AcceptedPeaks& accepted = state_.Accepted;
  const auto h = IndexOf(state_.Triplet.H);
  const auto k = IndexOf(state_.Triplet.K);
  const auto l = IndexOf(state_.Triplet.L);
  const float observed = NumberIn(Text15);
  if (accepted.AcceptedCount == MaxAccepted) {
    Tell(NoRoomForPeak());
  } else if (!h || !k || !l) {
    Tell(NoIndices());
  } else if (!std::isfinite(observed)) {
    Tell(NoPosition());
  } else {
    const auto i = static_cast<std::size_t>(++accepted.AcceptedCount);
    accepted.AcceptedH[i] = *h;
    accepted.AcceptedK[i] = *k;
    accepted.AcceptedL[i] = *l;
    accepted.AcceptedTheta2[i] = observed;
    Text22.Text = std::to_string(accepted.AcceptedCount);
  }
}

void Form26::RefusePeak() {
  if (state_.Selected) {
    state_.Plot.DrawStick(*state_.Selected, colours::Red, Picture1);
  }
}

void Form26::EndIndexation() {
  state_.IndexationActive = false;
  ShowMouseTip();
  Frame4.Visible = false;
  Frame5.Visible = true;
}

void Form26::Refine() {
  const CycleFindings findings = RefineCycle(state_.Cell, state_.Accepted);
  if (findings.Obstacle) {
    Tell(MessageOf(*findings.Obstacle, state_.Accepted, state_.Cell.CrystalSystem));
    return;
  }
  for (const int parameter : findings.NegativeVariances) {
    Tell(ErrorMessage("Negative value found for e.s.d. of parameter nr. " + std::to_string(parameter)));
  }
  Text23.Text = findings.Text;
}

}  // namespace koprax
