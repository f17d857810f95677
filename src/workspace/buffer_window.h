// A window that works on one buffer from its opening on: before each of its commands that buffer is the one
// at work again, whatever has been picked meanwhile elsewhere. What it shows of it is left to the window.
#pragma once

#include <functional>
#include <string>

#include "forms/form.h"
#include "workspace/services.h"
#include "workspace/workspace.h"

namespace koprax {

class BufferWindow : public Form {
 public:
  BufferWindow(const WindowContext& context, std::string name, std::string caption);

 protected:
  /// The buffer of the window. With none at work (CurBuf 0) it is the empty record of slot 0.
  [[nodiscard]] ProfileBuffer& Buffer() const;

  /// The buffer is the one at work again, and so is, in windows that add to this, what they have drawn.
  virtual void TakeUp();
  /// What comes before each command, TakeUp in any case.
  virtual void BeforeCommand() { TakeUp(); }
  /// Whether the buffer still holds what the window shows; if not, the user has been told.
  [[nodiscard]] virtual bool HasContent() { return true; }

  /// A handler that runs a command on the window's own buffer.
  [[nodiscard]] std::function<void()> OnItsBuffer(std::function<void()> command);
  /// The same for a command that wants what the window shows.
  [[nodiscard]] std::function<void()> WithItsContent(std::function<void()> command);

  void Tell(const Message& message) const;

  WindowContext context_;
  int slot_;  ///< of the buffer, 1 to 6
};

}  // namespace koprax
