// The window as a whole: its making, the plot, the ways out. Its zoom and the mouse stand in
// manipulation_window_zoom.cpp, the tools in the files named for them.
#include "manipulation/manipulation_window.h"

#include <utility>

#include "display/bitmap_window.h"
#include "display/plot_axes.h"
#include "display/profile_plot.h"
#include "forms/desktop.h"
#include "manipulation/result_saving.h"
#include "workspace/buffer_commands.h"

namespace koprax {

Form12::Form12(const WindowContext& context)
    : Form(context.Desk, "Form12", "Profile manipulatuion"), context_(context) {
  ArrangeControls();
}

void Form12::OnLoad() {}
void Form12::OnUnload() {}
void Form12::ArrangeControls() {}
bool Form12::ShowProfile(int /*slot*/) { return false; }
void Form12::ReturnToMainMenu() {}

}  // namespace koprax
