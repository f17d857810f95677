// A window, free of any toolkit: its controls, its layout, its place on the desktop and its life from
// load to unload. What a window does is told by its own class.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"
#include "forms/layout.h"
#include "forms/property.h"

namespace koprax {

class Desktop;

class Form : public PropertyOwner, public std::enable_shared_from_this<Form> {
 public:
  Form(Desktop& desk, std::string name, std::string caption);
  virtual ~Form() = default;

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] Desktop& Desk() const { return desk_; }
  [[nodiscard]] bool Loaded() const { return loaded_; }
  [[nodiscard]] bool Visible() const { return visible_; }

  Property<std::string> Caption{*this, PropertyName::Caption, ""};
  Property<Pointer> MousePointer{*this, PropertyName::MousePointer, Pointer::Arrow};

  /// Makes the form visible and brings it to the front. Does nothing on a form that isn't loaded.
  void Show();
  /// Shows the form above all others and returns when it has been hidden or unloaded.
  void ShowModal();
  void Hide();
  void BringToFront();
  /// Takes the form off the desktop. It lives until the outermost handler has returned; a second call
  /// does nothing.
  void Unload();
  /// The user's click on the close box; it does nothing while the form may not be closed.
  void CloseBox();
  [[nodiscard]] virtual bool MayClose() const { return true; }

  /// The controls, in the order of their declaration.
  [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }
  /// The control of that name, or null. An indexed control is found by its name and index alone.
  [[nodiscard]] Control* Find(std::string_view name, std::optional<int> index = {}) const;
  [[nodiscard]] const LayoutNode& Layout() const { return layout_; }

  /// A form that can be resized grows its stretched nodes; the others keep to the size they need.
  [[nodiscard]] bool Resizable() const { return resizable_; }

  /// Wraps a function so that it does nothing once this form has left the desktop.
  template <class... Arguments>
  [[nodiscard]] std::function<void(Arguments...)> WhileLoaded(std::function<void(Arguments...)> function) {
    return [weak = weak_from_this(), function = std::move(function)](Arguments... arguments) {
      if (const auto form = weak.lock(); form && form->Loaded()) {
        function(arguments...);
      }
    };
  }

  void PropertyChanged(PropertyName name) override;

  /// The user's Enter in a box, or elsewhere on the form, where it clicks no button that stands beside a box,
  /// and Esc anywhere on it. False if the key means nothing here.
  bool PressEnter(const Control* box = nullptr);
  bool PressEscape();

 protected:
  /// Runs once, when the form is loaded, before it is first shown.
  virtual void OnLoad() {}
  /// Runs once, when the form has left the desktop, but not at the end of the run: windows that act for this
  /// one go here.
  virtual void OnUnload() {}
  /// Runs whenever the form has been shown or brought to the front.
  virtual void OnFronted() {}
  /// What the close box does; as it stands, the form is unloaded.
  virtual void OnCloseBox() { Unload(); }

  void SetLayout(LayoutNode layout, bool resizable = false);

  /// Enter in a box clicks this button, if it's the only such one in the smallest part of the layout (row,
  /// frame, whole) that holds the box and one. The buttons in a frame serve that frame alone.
  void EnterClicks(Button& button);
  /// Esc clicks the first of these that can be clicked.
  void EscapeClicks(Button& button);
  /// `offered` tells when the option can be had by Esc though it isn't shown yet.
  void EscapeClicks(OptionButton& option, const std::function<bool()>& offered);
  /// Esc closes the form as by its close box, where it clicks nothing.
  void EscapeCloses() { escape_closes_ = true; }

 private:
  friend class Control;
  friend class PictureBox;
  friend class Desktop;

  /// A control that a key of the keyboard clicks.
  struct KeyTarget {
    const Control* Target;
    std::function<void()> Click;
    std::function<bool()> Offered{};  ///< usable, whatever the control shows
  };

  bool ClickIfUsable(const KeyTarget& target);

  void Register(Control& control) { controls_.push_back(&control); }
  void ControlChanged(Control& control, PropertyName name);
  void PictureDrawn(PictureBox& picture);

  Desktop& desk_;
  std::string name_;
  std::vector<Control*> controls_;
  LayoutNode layout_ = Column({});
  std::vector<KeyTarget> enter_targets_;
  std::vector<KeyTarget> escape_targets_;
  bool escape_closes_ = false;
  bool resizable_ = false;
  bool loaded_ = false;
  bool visible_ = false;
};

}  // namespace koprax
