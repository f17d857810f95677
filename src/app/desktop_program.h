// What the programs that a person works with share: the workbench drawn with Qt, from its start to its end.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "forms/desktop.h"
#include "forms/runtime.h"

namespace koprax {

/// Stands between the workbench and the person, and hears of what happens on the desktop.
struct Listener {
  std::unique_ptr<Runtime> Between;
  DesktopObserver& Observer;
};
/// Makes the listener, from the runtime of the person and a function that tells the file which the printer
/// chosen last writes to, "" if it's paper.
using MakeListener = std::function<Listener(Runtime& person, std::function<std::string()> print_file)>;

/// Runs the workbench until its user ends it; returns the exit status. `name` is that of the program. The
/// programs have no arguments that the toolkit should see.
[[nodiscard]] int RunDesktop(char* name, const MakeListener& make_listener = {});

}  // namespace koprax
