// What a user does to a form or a control, as a value, for whoever keeps a record of it. What it leads to is
// left to the forms.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace koprax {

class Control;
class Form;
class PictureBox;
enum class MouseButton : std::int16_t;

/// A click on a button, an option button or a check box.
struct ClickAction {
  const Control& Target;
};
/// Typing over the whole contents of a text box or of the field of a combo box.
struct TypeAction {
  const Control& Target;
  std::string Text;
};
/// An event of the mouse on a picture, in the picture's own coordinates.
struct MouseAction {
  enum class Kind { Down, Move, Up };
  Kind Event;
  const PictureBox& Target;
  MouseButton Button;  ///< left for a move
  float X;
  float Y;
};
/// A click on the close box.
struct CloseAction {
  const Form& Target;
};
using UserAction = std::variant<ClickAction, TypeAction, MouseAction, CloseAction>;

}  // namespace koprax
