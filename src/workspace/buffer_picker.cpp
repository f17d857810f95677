#include "workspace/buffer_picker.h"

#include <cstddef>
#include <utility>

#include "workspace/buffer_commands.h"

namespace koprax {

namespace {

std::string LetterOf(int slot) { return std::string(1, static_cast<char>('a' + slot - 1)); }

}  // namespace

BufferPicker::BufferPicker(const WindowContext& context, const PickerKind& kind, PickerActions actions)
    : Form(context.Desk, kind.Name, kind.Caption),
      context_(context),
      kind_(kind),
      actions_(std::move(actions)) {
  kind_.Choice == PickerKind::Offers::OneBuffer ? MakeOptions() : MakeChecks();
  std::vector<LayoutNode> rows;
  for (std::size_t i = 0; i < NumBuffers; ++i) {
    titles_.emplace_back(*this, "Text" + std::to_string(i + 1),
                         TextSetup{.Meaning = "Title of buffer " + LetterOf(static_cast<int>(i) + 1),
                                   .Locked = true,
                                   .Columns = 80});
    rows.emplace_back(options_.empty() ? static_cast<Control&>(checks_[i]) : options_[i]);
    rows.push_back(Stretched(titles_[i]));
  }
  std::vector<LayoutNode> parts{Grid(2, std::move(rows))};
  if (!accept_.empty()) {
    parts.push_back(Row({Space(), accept_.front()}));
    EnterClicks(accept_.front());
  }
  SetLayout(Column(std::move(parts)));
  EscapeCloses();
}

void BufferPicker::MakeOptions() {
  for (int slot = 1; slot <= NumBuffers; ++slot) {
    const auto capital = static_cast<char>('A' + slot - 1);
    auto& option = options_.emplace_back(*this, std::string("opt") + capital,
                                         CaptionSetup{.Caption = "Buffer " + LetterOf(slot)});
    option.OnClick = [this, slot] { Choose({slot}); };
  }
}

void BufferPicker::MakeChecks() {
  for (int slot = 1; slot <= NumBuffers; ++slot) {
    checks_.emplace_back(*this, "Check" + std::to_string(slot),
                         CaptionSetup{.Caption = "buffer " + LetterOf(slot)});
  }
  auto& accept = accept_.emplace_back(*this, "Command1", CaptionSetup{.Caption = "OK"});
  accept.OnClick = [this] { Choose(TickedSlots()); };
}

void BufferPicker::OnLoad() {
  for (std::size_t i = 0; i < NumBuffers; ++i) {
    const ProfileBuffer& buffer = context_.Data.Buffers[i + 1];
    titles_[i].Text = buffer.Empty() ? " Empty" : buffer.Title;
    if (!checks_.empty()) {
      checks_[i].Enabled = !buffer.Empty();
    }
  }
  if (kind_.FirstWhenAllEmpty && AllBuffersEmpty(context_.Data)) {
    MakeCurrent(context_, 1);
  }
  if (actions_.Loaded) {
    actions_.Loaded();
  }
}

void BufferPicker::OnCloseBox() {
  Unload();
  if (actions_.GivenUp) {
    actions_.GivenUp();
  }
}

void BufferPicker::Choose(const std::vector<int>& slots) {
  if (kind_.Choice == PickerKind::Offers::OneBuffer && kind_.SetsCurBuf) {
    MakeCurrent(context_, slots.front());
  }
  if (kind_.Order == PickerKind::Closes::BeforeActing) {
    Unload();
  }
  actions_.Chosen(*this, slots);
  Unload();
}

std::vector<int> BufferPicker::TickedSlots() const {
  std::vector<int> slots;
  for (std::size_t i = 0; i < checks_.size(); ++i) {
    if (checks_[i].Value == 1) {
      slots.push_back(static_cast<int>(i) + 1);
    }
  }
  return slots;
}

}  // namespace koprax
