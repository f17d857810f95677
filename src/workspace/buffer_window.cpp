#include "workspace/buffer_window.h"

#include <utility>

#include "forms/desktop.h"
#include "workspace/buffer_commands.h"

namespace koprax {

BufferWindow::BufferWindow(const WindowContext& context, std::string name, std::string caption)
    : Form(context.Desk, std::move(name), std::move(caption)),
      context_(context),
      slot_(context.Data.CurBuf) {}

ProfileBuffer& BufferWindow::Buffer() const { return ShownBuffer(context_, slot_); }

void BufferWindow::TakeUp() {
  if (context_.Data.CurBuf != 0) {
    MakeCurrent(context_, slot_);
  }
}

std::function<void()> BufferWindow::OnItsBuffer(std::function<void()> command) {
  return [this, command = std::move(command)] {
    BeforeCommand();
    command();
  };
}

std::function<void()> BufferWindow::WithItsContent(std::function<void()> command) {
  return OnItsBuffer([this, command = std::move(command)] {
    if (HasContent()) {
      command();
    }
  });
}

void BufferWindow::Tell(const Message& message) const { Desk().Host().MsgBox(message); }

}  // namespace koprax
