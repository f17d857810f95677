// What holds in the workbench whatever its user does: the limits of the buffers, numbers that are finite,
// messages that tell something. Each law ends the run where it is broken.
#pragma once

#include <cstddef>

#include "forms/desktop.h"
#include "forms/runtime.h"
#include "workspace/workspace.h"

namespace koprax {

void RequireWholeMessage(const Message& message);
void RequireWholeQuestion(const InputRequest& request);
void RequireWholeDialog(const FileDialogRequest& request);
void RequireFiniteDrawing(const Surface& surface);

/// The limits of all buffers, and all points of one of them, whose number comes round with `turn`: to go
/// through all of them after each action would take most of the time.
void RequireSoundBuffers(const Workspace& data, std::size_t turn);
/// All numbers outside the buffers.
void RequireFiniteWorkspace(const Workspace& data);

/// A form on which no command runs any more: nothing waits, and what is drawn doesn't grow without end.
void RequireRest(const Form& form);

/// What is shown is looked at as it changes.
class WindowLaws final : public DesktopObserver {
 public:
  void FormShown(Form& form, bool modal) override;
  void ControlChanged(Control& control, PropertyName name) override;
  void PictureDrawn(PictureBox& picture) override;
};

}  // namespace koprax
