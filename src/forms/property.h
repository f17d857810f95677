// Observable values: assignment reads like `cmdUnzoom.Enabled = false` and tells whoever shows the
// value. What a change leads to is left to the owner.
#pragma once

#include <string>
#include <utility>

namespace koprax {

/// The properties that controls and forms have, by their names.
enum class PropertyName {
  Caption,
  Enabled,
  Font,
  Geometry,  ///< any edge of a shape or line
  Items,
  Locked,
  MousePointer,
  Text,
  ToolTip,
  Value,
  Visible,
};

/// What holds properties and hears of their changes.
class PropertyOwner {
 public:
  virtual void PropertyChanged(PropertyName name) = 0;

 protected:
  PropertyOwner() = default;
  PropertyOwner(const PropertyOwner&) = delete;
  PropertyOwner& operator=(const PropertyOwner&) = delete;
  ~PropertyOwner() = default;
};

/// One observable value. The owner hears of a store only when the value differs from the old one.
template <class T>
class Property {
 public:
  Property(PropertyOwner& owner, PropertyName name, T value)
      : owner_(owner), name_(name), value_(std::move(value)) {}
  Property(const Property&) = delete;
  ~Property() = default;

  Property& operator=(T value) {
    if (!(value_ == value)) {
      value_ = std::move(value);
      owner_.PropertyChanged(name_);
    }
    return *this;
  }
  Property& operator=(const Property& other) { return *this = other.value_; }

  [[nodiscard]] const T& Get() const { return value_; }
  operator const T&() const { return value_; }  // NOLINT: a property reads like its value

  friend bool operator==(const Property& left, const T& right) { return left.value_ == right; }

 private:
  PropertyOwner& owner_;
  PropertyName name_;
  T value_;
};

}  // namespace koprax
