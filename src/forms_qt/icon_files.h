// The program's picture as the files of an icon theme, drawn by the code that draws it in the windows.
#pragma once

#include <QByteArray>

namespace koprax {

/// The picture in vectors, for every size.
[[nodiscard]] QByteArray SvgIcon();

/// The picture as a PNG of so many pixels each way, on transparent ground.
[[nodiscard]] QByteArray PngIcon(int pixels);

}  // namespace koprax
