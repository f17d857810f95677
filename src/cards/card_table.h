// The reflections of a card as text: the table of the window, which rounds, and the rows of the printed
// page, which don't.
#pragma once

#include <string>
#include <vector>

#include "workspace/workspace.h"

namespace koprax {

/// The heading and one line for each reflection of the temporary copy: h, k, l, intensity, 2-theta in
/// degrees, d in angstrom. Each line ends with CR LF.
[[nodiscard]] std::string CardTable(const ProfileBuffer& card);

/// The heading of the printed list, and its rows of three reflections of the permanent copy each, left to
/// right and then down: h, k, l, intensity, d, 2-theta.
[[nodiscard]] std::string PrintedCardHeading();
[[nodiscard]] std::vector<std::string> PrintedCardRows(const ProfileBuffer& card);

}  // namespace koprax
