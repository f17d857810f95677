#include "display/computed_profile_saving.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "files/title_window.h"
#include "forms/desktop.h"
#include "forms/fixed_text.h"
#include "workspace/buffer_picker.h"

namespace koprax {

namespace {

/// What a computed profile takes along from one of those that it was made of.
struct SourceFacts {
  std::int16_t FormatCode;
  std::int16_t NegativeY;  // of the frame that shows the computed profile
  bool Latin1Text;
  std::array<std::string, 31> UdfHeader;
};

/// Puts the profile of a buffer back to its state at the start; the lists that belong to it stay.
void ResetProfile(Workspace& data, ProfileBuffer& buffer) {
  buffer.Title = data.BlankTitle;
  buffer.FormatCode = 0;
  buffer.Wavelength = buffer.XStep = 0;
  buffer.PermNpts = buffer.WorkNpts = 0;
  buffer.FileXMin = buffer.PermXMin = buffer.WorkXMin = 1;
  buffer.FileXMax = buffer.PermXMax = buffer.WorkXMax = 2;
  buffer.PermYMin = buffer.WorkYMin = 0;
  buffer.PermYMax = buffer.WorkYMax = 3;
  for (PointTable* table : {&buffer.PermX, &buffer.PermY, &buffer.WorkX, &buffer.WorkY}) {
    std::ranges::fill(*table, 0.0F);
  }
}

void TakeLimits(ProfileBuffer& buffer, const ComputedProfile& sum) {
  buffer.PermXMin = buffer.WorkXMin = buffer.FileXMin = sum.SumXMin;
  buffer.PermXMax = buffer.WorkXMax = buffer.FileXMax = sum.SumXMax;
  buffer.PermYMin = buffer.WorkYMin = sum.SumYMin;
  buffer.PermYMax = buffer.WorkYMax = sum.SumYMax;
}

void TakePoints(ProfileBuffer& buffer, const ComputedProfile& sum) {
  buffer.PermNpts = buffer.WorkNpts = static_cast<std::int16_t>(sum.SumNpts);
  for (PointTable* x : {&buffer.PermX, &buffer.WorkX}) {
    std::copy_n(sum.SumX.begin() + 1, buffer.PermNpts, x->begin() + 1);
  }
  for (PointTable* y : {&buffer.PermY, &buffer.WorkY}) {
    std::copy_n(sum.SumY.begin() + 1, buffer.PermNpts, y->begin() + 1);
  }
}

bool MayOverwrite(const WindowContext& context) {
  return context.Desk.Host().MsgBox({.Text = "Buffer already occupied by another profile!\r\nOverwrite?",
                                     .Title = "Message",
                                     .Buttons = MessageButtons::YesNo,
                                     .Icon = MessageIcon::Information}) == MessageAnswer::Yes;
}

}  // namespace

void StoreComputedProfile(Workspace& data, int slot) {
  const ProfileBuffer& source = data.Buffer(data.SumSource);
  const SourceFacts facts{source.FormatCode, source.NegativeY, source.Latin1Text, source.UdfHeader};
  ProfileBuffer& buffer = data.Buffer(slot);
  if (!buffer.Empty()) {
    ResetProfile(data, buffer);
  }
  TakeLimits(buffer, data.Sum);
  TakePoints(buffer, data.Sum);
  buffer.Wavelength = data.SumWavelength;
  buffer.XStep = data.Sum.SumXStep;
  // The source may have been erased, or have become a card, since the sum was made.
  const bool changed = facts.FormatCode == static_cast<std::int16_t>(FormatCodes::None) ||
                       facts.FormatCode == static_cast<std::int16_t>(FormatCodes::Card);
  buffer.FormatCode = changed ? static_cast<std::int16_t>(FormatCodes::TwoColumns) : facts.FormatCode;
  buffer.NegativeY = facts.NegativeY;
  buffer.Latin1Text = facts.Latin1Text;
  if (facts.FormatCode == static_cast<std::int16_t>(FormatCodes::Philips)) {
    buffer.UdfHeader = facts.UdfHeader;
  }
}

void SaveComputedProfile(const WindowContext& context, int slot, std::string_view formula) {
  ProfileBuffer& buffer = context.Data.Buffer(slot);
  if (!buffer.Empty() && !MayOverwrite(context)) {
    return;
  }
  StoreComputedProfile(context.Data, slot);
  // A buffer with a blank title counts as empty, and the profile would be lost.
  const auto titled = [&desk = context.Desk, &buffer, formula] {
    desk.Unload(pickers::ComputedProfile.Name);
    if (buffer.Empty()) {
      buffer.Title = FixedField(formula, TitleWidth);
    }
  };
  context.Desk.Load<TitleWindow>(context, title_windows::ComputedProfile, titled)->Show();
}

}  // namespace koprax
