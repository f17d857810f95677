// The controls that windows are made of. A control holds what it shows as properties, knows its name,
// form and frame, and runs its handler when the user acts on it. How it looks is left to the view.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "forms/property.h"
#include "forms/surface.h"
#include "forms/user_action.h"

namespace koprax {

class Form;

enum class ControlKind {
  Button,
  OptionButton,
  CheckBox,
  TextBox,
  ComboBox,
  Label,
  Frame,
  PictureBox,
  Shape,
  Line,
  Image,
};

/// Mouse pointers, by the numbers that stand for them.
enum class Pointer : std::int16_t { Arrow = 1, Cross = 2, EastWest = 9, Hourglass = 11 };

enum class MouseButton : std::int16_t { Left = 1, Right = 2 };

using PropertyValue = std::variant<bool, int, float, std::string, std::vector<std::string>>;
/// The properties of a control with their names, as they can be looked up from outside.
using PropertyList = std::vector<std::pair<std::string, PropertyValue>>;

class Control : public PropertyOwner {
 public:
  Control(Form& form, ControlKind kind, std::string name, std::optional<int> index = {});
  virtual ~Control() = default;

  void PropertyChanged(PropertyName name) override;

  [[nodiscard]] ControlKind Kind() const { return kind_; }
  /// The name without an index: "Text1".
  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] std::optional<int> Index() const { return index_; }
  /// The name with its index, if it has one: "Text1(3)".
  [[nodiscard]] std::string FullName() const;
  [[nodiscard]] Form& OwnerForm() const { return form_; }

  /// The frame or picture that holds the control, or null when it stands on the form itself.
  [[nodiscard]] Control* Container() const { return container_; }
  void SetContainer(Control* container) { container_ = container; }

  /// Repaints the control at once, in the middle of a computation, without taking input.
  void Refresh();

  /// All properties of this kind of control with their present values.
  [[nodiscard]] virtual PropertyList Properties() const;

  Property<bool> Visible{*this, PropertyName::Visible, true};
  Property<bool> Enabled{*this, PropertyName::Enabled, true};
  Property<std::string> ToolTip{*this, PropertyName::ToolTip, ""};
  /// What a screen reader says of a control that has no caption, or one that tells little.
  std::string Meaning;

 protected:
  /// Does what the user asks for as one event: windows that it closes live until it has returned.
  void Act(const UserAction& action, const std::function<void()>& handler);

 private:
  Form& form_;
  ControlKind kind_;
  std::string name_;
  std::optional<int> index_;
  Control* container_ = nullptr;
};

/// What a control with a caption starts with.
struct CaptionSetup {
  std::string Caption{};
  std::string ToolTip{};
  bool Enabled = true;
  bool Visible = true;
};

class CaptionedControl : public Control {
 public:
  CaptionedControl(Form& form, ControlKind kind, std::string name, const CaptionSetup& setup,
                   std::optional<int> index);
  [[nodiscard]] PropertyList Properties() const override;

  Property<std::string> Caption{*this, PropertyName::Caption, ""};
};

class Button : public CaptionedControl {
 public:
  Button(Form& form, std::string name, const CaptionSetup& setup, std::optional<int> index = {})
      : CaptionedControl(form, ControlKind::Button, std::move(name), setup, index) {}

  /// The user's click.
  void Click();

  std::function<void()> OnClick;
};

/// The value of an option button: storing true clicks it, enabled or not; storing false never does.
class OptionButton;
class OptionValue {
 public:
  explicit OptionValue(OptionButton& button) : button_(button) {}
  OptionValue& operator=(bool value);
  operator bool() const { return value_; }  // NOLINT: reads like its value

 private:
  friend class OptionButton;
  OptionButton& button_;
  bool value_ = false;
};

/// One of several exclusive choices: the options of one frame, or of a form outside its frames.
class OptionButton final : public CaptionedControl {
 public:
  OptionButton(Form& form, std::string name, const CaptionSetup& setup, std::optional<int> index = {})
      : CaptionedControl(form, ControlKind::OptionButton, std::move(name), setup, index) {}
  [[nodiscard]] PropertyList Properties() const override;

  void Click();

  OptionValue Value{*this};
  std::function<void()> OnClick;

 private:
  friend class OptionValue;
  void Choose();
};

class CheckBox final : public CaptionedControl {
 public:
  CheckBox(Form& form, std::string name, const CaptionSetup& setup, std::optional<int> index = {})
      : CaptionedControl(form, ControlKind::CheckBox, std::move(name), setup, index) {}
  [[nodiscard]] PropertyList Properties() const override;

  /// The user's click: flips the box, then runs the handler.
  void Click();

  Property<int> Value{*this, PropertyName::Value, 0};  ///< 1 ticked, 0 not
  std::function<void()> OnClick;
};

class Label final : public CaptionedControl {
 public:
  Label(Form& form, std::string name, const CaptionSetup& setup, std::optional<int> index = {})
      : CaptionedControl(form, ControlKind::Label, std::move(name), setup, index) {}
  [[nodiscard]] PropertyList Properties() const override;

  std::string FontName{DefaultFont};  ///< letters of the symbol font are shown in Greek
  float FontSize = 8;                 ///< points; headings are larger
};

class Frame final : public CaptionedControl {
 public:
  Frame(Form& form, std::string name, const CaptionSetup& setup, std::optional<int> index = {})
      : CaptionedControl(form, ControlKind::Frame, std::move(name), setup, index) {}
};

/// A picture of the program's own, by the name of its resource.
class Image final : public Control {
 public:
  Image(Form& form, std::string name, std::string resource)
      : Control(form, ControlKind::Image, std::move(name)), Resource(std::move(resource)) {}
  const std::string Resource;
};

/// What a text box starts with. Columns and Rows are the size it wants, in characters.
struct TextSetup {
  std::string Meaning{};
  std::string Text{};
  std::string ToolTip{};
  std::string Font{DefaultFont};
  bool Locked = false;
  bool MultiLine = false;
  bool FollowsEnd = false;  ///< of many lines the last one shows: what comes last is what counts
  bool Wraps = false;       ///< lines that are too long go on below, in a font of fixed width, too
  int Columns = 12;
  int Rows = 1;
};

class TextBox final : public Control {
 public:
  TextBox(Form& form, std::string name, const TextSetup& setup, std::optional<int> index = {});
  [[nodiscard]] PropertyList Properties() const override;

  /// The user types over the whole contents.
  void Type(const std::string& text);

  Property<std::string> Text{*this, PropertyName::Text, ""};
  Property<std::string> Font{*this, PropertyName::Font, std::string(DefaultFont)};
  Property<bool> Locked{*this, PropertyName::Locked, false};  ///< shows, can't be typed in
  const bool MultiLine;
  const bool FollowsEnd;
  const bool Wraps;
  const int Columns;
  const int Rows;
  std::function<void()> OnChange;
};

/// What a combo box starts with: the text in its field and the choices under it.
struct ComboSetup {
  std::string Meaning{};
  std::string Text{};
  std::vector<std::string> Items{};
};

/// A text field with a list of choices; any text may be typed.
class ComboBox final : public Control {
 public:
  ComboBox(Form& form, std::string name, const ComboSetup& setup, std::optional<int> index = {});
  [[nodiscard]] PropertyList Properties() const override;

  void Type(const std::string& text);

  Property<std::string> Text{*this, PropertyName::Text, ""};
  Property<std::vector<std::string>> Items{*this, PropertyName::Items, {}};
  std::function<void()> OnChange;
};

/// What a picture box starts with: its scale, and its design size in millimetres, which is also the
/// least size it is shown at.
struct PictureSetup {
  UserScale Scale{};
  double DesignWidth = 100;
  double DesignHeight = 80;
  std::string Meaning{};
  std::string ToolTip{};
};

class PictureBox final : public Control, public Surface {
 public:
  PictureBox(Form& form, std::string name, const PictureSetup& setup);
  [[nodiscard]] PropertyList Properties() const override;

  /// Mouse events of the user, X and Y in the picture's scale; they may lie outside the picture.
  void MouseDown(MouseButton button, float x, float y);
  void MouseMove(float x, float y);
  void MouseUp(MouseButton button, float x, float y);

  Property<Pointer> MousePointer{*this, PropertyName::MousePointer, Pointer::Arrow};
  std::function<void(MouseButton, float, float)> OnMouseDown;
  std::function<void(float, float)> OnMouseMove;
  std::function<void(MouseButton, float, float)> OnMouseUp;
  const double DesignWidth;   ///< millimetres
  const double DesignHeight;  ///< millimetres

 private:
  void Drawn() override;
};

/// Overlays of a picture: they lie above its drawing operations and are none of them.
class Shape final : public Control {
 public:
  Shape(PictureBox& picture, std::string name, float left, float top, float width, float height);
  [[nodiscard]] PropertyList Properties() const override;

  Property<float> Left{*this, PropertyName::Geometry, 0};
  Property<float> Top{*this, PropertyName::Geometry, 0};
  Property<float> Width{*this, PropertyName::Geometry, 0};
  Property<float> Height{*this, PropertyName::Geometry, 0};  ///< grows downward from Top, whatever the scale
};

class LineShape final : public Control {
 public:
  /// The width is that of the pen, in pixels of a screen of 96 to the inch.
  LineShape(PictureBox& picture, std::string name, Colour colour, float x1, float y1, float x2, float y2,
            int width = 1);
  [[nodiscard]] PropertyList Properties() const override;

  void Move(float x1, float y1, float x2, float y2);

  Property<float> X1{*this, PropertyName::Geometry, 0};
  Property<float> Y1{*this, PropertyName::Geometry, 0};
  Property<float> X2{*this, PropertyName::Geometry, 0};
  Property<float> Y2{*this, PropertyName::Geometry, 0};
  const Colour BorderColor;
  const int BorderWidth;
};

}  // namespace koprax
