// What Ctrl+C puts on the clipboard beside selected text: pictures and tables. Which of them is meant is left
// to the window.
#pragma once

#include "forms/control.h"

class QTextCursor;

namespace koprax {

/// What is drawn on the picture, at its design size: as PNG, as SVG, and as the image that the system's own
/// programs take. Cursor lines and selections are no part of it.
void CopyPicture(const PictureBox& picture);

/// A table with tabs between its fields: the lines that a selection touches, or all without one.
void CopyTable(const QTextCursor& selection);

}  // namespace koprax
