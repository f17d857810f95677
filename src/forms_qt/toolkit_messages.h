// What the toolkit says on standard error of a program that works off screen.
#pragma once

namespace koprax {

/// The toolkit warns of what an off-screen platform lacks; only what is worse is worth a line, which begins
/// with the program's name.
void TellToolkitFaultsOnly(const char* program);

}  // namespace koprax
