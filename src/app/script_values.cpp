#include "app/script_values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <variant>

#include "workspace/workspace_fields.h"

namespace koprax {

namespace {

// A flag of the workspace is a number, unlike a property.
Json FieldJson(bool flag) { return flag ? -1 : 0; }
Json FieldJson(const std::string& text) { return text; }
Json FieldJson(float value) { return JsonNumber(value); }
Json FieldJson(double value) { return std::isfinite(value) ? Json(value) : Json(); }
template <std::integral Whole>
Json FieldJson(Whole value) {
  return value;
}
template <class Table>
requires requires(const Table& table) { table.size(); }
Json FieldJson(const Table& table) {
  Json array = Json::array();
  for (const auto& entry : table) {
    array.push_back(FieldJson(entry));
  }
  return array;
}

Json OperationJson(const LineOperation& line) {
  return {{"op", "line"},
          {"x1", JsonNumber(line.X1)},
          {"y1", JsonNumber(line.Y1)},
          {"x2", JsonNumber(line.X2)},
          {"y2", JsonNumber(line.Y2)},
          {"colour", line.LineColour}};
}

Json OperationJson(const PointOperation& point) {
  return {
      {"op", "point"}, {"x", JsonNumber(point.X)}, {"y", JsonNumber(point.Y)}, {"colour", point.PointColour}};
}

Json OperationJson(const TextOperation& text) {
  return {{"op", "text"},
          {"x", JsonNumber(text.X)},
          {"y", JsonNumber(text.Y)},
          {"text", text.Text},
          {"colour", text.TextColour},
          {"font", text.Font},
          {"size", JsonNumber(text.Size)}};
}

Json OperationJson(const ImageOperation& image) {
  return {{"op", "image"},
          {"x", JsonNumber(image.X)},
          {"y", JsonNumber(image.Y)},
          {"width", JsonNumber(image.Width)},
          {"height", JsonNumber(image.Height)}};
}

/// The entries 1 to count of a table, as many of them as it has.
template <class Table>
Json CountedEntries(const Table& table, int count) {
  Json array = Json::array();
  const auto end = std::min(table.size(), static_cast<std::size_t>(std::max(count, 0)) + 1);
  for (std::size_t i = 1; i < end; ++i) {
    array.push_back(FieldJson(table[i]));
  }
  return array;
}

/// The number of entries of a table of points or peaks; nothing for any other field.
std::optional<int> CountOf(const ProfileBuffer& buffer, std::string_view name) {
  if (name == "PermX" || name == "PermY") {
    return buffer.PermNpts;
  }
  if (name == "WorkX" || name == "WorkY") {
    return buffer.WorkNpts;
  }
  if (name == "PeakTheta" || name == "PeakY" || name == "PeakD" || name == "PeakChannel") {
    return buffer.NPeaks;
  }
  return std::nullopt;
}

}  // namespace

Json JsonNumber(float value) {
  if (!std::isfinite(value)) {
    return {};
  }
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  double shortest = 0;
  std::from_chars(text.data(), end, shortest);
  // Rounded twice, the text could miss the float by a bit where it lies almost between two floats.
  return static_cast<float>(shortest) == value ? shortest : static_cast<double>(value);
}

Json JsonOfProperty(const PropertyValue& value) {
  const auto* const number = std::get_if<float>(&value);
  return number != nullptr ? JsonNumber(*number)
                           : std::visit([](const auto& other) { return Json(other); }, value);
}

Json JsonOfControl(const Control& control) {
  Json object = Json::object();
  for (const auto& [name, value] : control.Properties()) {
    object[name] = JsonOfProperty(value);
  }
  return object;
}

Json JsonOfForm(const Form& form) {
  Json controls = Json::object();
  for (const Control* control : form.Controls()) {
    controls[control->FullName()] = JsonOfControl(*control);
  }
  return {{"Caption", form.Caption.Get()},
          {"Visible", form.Visible()},
          {"Loaded", form.Loaded()},
          {"MousePointer", static_cast<int>(form.MousePointer.Get())},
          {"controls", std::move(controls)}};
}

Json JsonOfPrinter(const Printer& printer) {
  return {{"ScaleMode", static_cast<int>(printer.ScaleMode())},
          {"ScaleWidth", JsonNumber(printer.ScaleWidth())},
          {"ScaleHeight", JsonNumber(printer.ScaleHeight())},
          {"Orientation", static_cast<int>(printer.Orientation())},
          {"Fonts", printer.Fonts()}};
}

Json JsonOfOperations(const std::vector<DrawingOperation>& operations) {
  Json array = Json::array();
  for (const DrawingOperation& operation : operations) {
    array.push_back(std::visit([](const auto& one) { return OperationJson(one); }, operation));
  }
  return array;
}

std::optional<Json> JsonOfWorkspaceField(const Workspace& data, std::string_view name) {
  std::optional<Json> found;
  VisitWorkspaceFields(data, [&](std::string_view field, const auto& value) {
    if (field == name) {
      found = FieldJson(value);
    }
  });
  return found;
}

std::optional<Json> JsonOfBufferField(const ProfileBuffer& buffer, std::string_view name) {
  std::optional<Json> found;
  VisitBufferFields(buffer, [&](std::string_view field, const auto& value) {
    if (field == name) {
      found = FieldJson(value);
    }
  });
  return found;
}

Json JsonOfBuffer(const ProfileBuffer& buffer) {
  Json record = Json::object();
  VisitBufferFields(buffer, [&](const char* field, const auto& value) {
    if constexpr (requires { value.size(); } && !std::same_as<decltype(value), const std::string&>) {
      const auto count = CountOf(buffer, field);
      record[field] = count ? CountedEntries(value, *count) : FieldJson(value);
    } else {
      record[field] = FieldJson(value);
    }
  });
  return record;
}

std::vector<std::string> WorkspaceFieldNames() {
  // The names don't depend on the values, but the fields are reached through a workspace.
  const Workspace data;
  std::vector<std::string> names;
  const auto note = [&](const char* field, const auto&) { names.emplace_back(field); };
  VisitWorkspaceFields(data, note);
  VisitBufferFields(data.Buffer(0), note);
  return names;
}

std::string JsonLine(const Json& value) { return value.dump(-1, ' ', false, Json::error_handler_t::replace); }

}  // namespace koprax
