#include "display/computed_profile_window.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "display/computed_profile_plot.h"
#include "display/computed_profile_saving.h"
#include "display/mouse_tips.h"
#include "forms/desktop.h"
#include "forms/number_text.h"
#include "workspace/bragg.h"
#include "workspace/buffer_picker.h"

namespace koprax {

namespace {

constexpr double LargestDegreeStep = 0.98;  // the read-out takes a larger step for one of channels

}  // namespace

void OpenComputedProfile(const WindowContext& context, ComputedProfileOpening opening) {
  const auto window = context.Desk.Load<Form30>(context, std::move(opening));
  window->Show();
  window->DrawResult();
}

Form30::Form30(const WindowContext& context, ComputedProfileOpening opening)
    : Form(context.Desk, "Form30", "Form30"), context_(context), opening_(std::move(opening)) {
  SetLayout(Column({Stretched(Picture1), Picture2,
                    Row({Stretched(Text1), Stretched(Text2), Stretched(Text3), cmdSave, cmdCancel})}),
            true);
  cmdSave.OnClick = [this] { OpenPicker(); };
  cmdCancel.OnClick = [this] { Return(); };
  Picture1.OnMouseMove = [this](float x, float y) { ShowReadOut(x, y); };
}

/// The picker would save what is no more.
void Form30::OnUnload() { Desk().Unload(pickers::ComputedProfile.Name); }

void Form30::DrawResult() {
  const bool drawn = DrawComputedProfile(context_.Data, opening_.Operation, Picture1,
                                         [this](const Message& message) { Desk().Host().MsgBox(message); });
  shown_.Keep(context_.Data, drawn);
  Picture1.ToolTip = shown_.Readable() ? mouse_tips::ReadOutWithD : mouse_tips::NoPlot;
  DrawComputedLegend(opening_.Operation, Picture2);
}

void Form30::ShowReadOut(float x, float y) {
  if (!shown_.Readable()) {
    return;
  }
  shown_.PutBack(context_.Data);
  const Workspace& data = context_.Data;
  const ProfileBuffer& buffer = context_.Data.Buffer(opening_.Sources.First);
  const bool channels = data.Sum.SumX[2] - data.Sum.SumX[1] > LargestDegreeStep;
  const bool calibrated = buffer.CalPar[1] != 0;
  const float position = RoundDecimals(DataX(data.Plot, ClampedX(data.Plot, x), data.PlotXMin), 3);
  float two_theta = channels ? 0 : position;
  if (channels && calibrated) {
    two_theta = RoundDecimals(TwoThetaOfChannel(buffer.CalPar, position), 4);
  }
  const double height = DataY(data.Plot, ClampedY(data.Plot, y), PlotBase(data.Plot, data.Sum.SumYMin < 0));
  Text1.Text = "X-pos = " + GeneralText(channels && calibrated ? two_theta : position);
  Text2.Text = "d = " + RoundedText(SpacingOf(two_theta, buffer.Wavelength), 4);
  Text3.Text = RoundedText(height, 2);
}

void Form30::OpenPicker() {
  Workspace& data = context_.Data;
  const ProfilePair& sources = opening_.Sources;
  const bool at_source = data.CurBuf == sources.First || data.CurBuf == sources.Second;
  data.SumSource = at_source ? data.CurBuf : static_cast<std::int16_t>(sources.First);
  data.SumWavelength = opening_.Wavelength;  // that of another plot may stand there by now
  PickerActions actions;
  actions.Chosen = WhileLoaded(std::function<void(Form&, const std::vector<int>&)>(
      [this](Form& /*picker*/, const std::vector<int>& slots) {
        SaveComputedProfile(context_, slots.front(), FormulaOf(opening_.Operation));
      }));
  Desk().Load<BufferPicker>(context_, pickers::ComputedProfile, std::move(actions))->Show();
}

void Form30::Return() {
  Unload();
  ResetComputedProfile(context_.Data);
  opening_.Left();
}

}  // namespace koprax
