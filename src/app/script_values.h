// What can be seen from outside, as JSON: properties, drawing operations, the printer, the workspace.
// Floats are written so that they read back to the same bits; what is no number is null.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"
#include "forms/form.h"
#include "forms/printer.h"
#include "forms/surface.h"
#include "workspace/workspace.h"

namespace koprax {

using Json = nlohmann::ordered_json;

/// The shortest decimal number that reads back to this 32-bit float.
[[nodiscard]] Json JsonNumber(float value);

[[nodiscard]] Json JsonOfProperty(const PropertyValue& value);
/// All properties of a control as an object.
[[nodiscard]] Json JsonOfControl(const Control& control);
/// A loaded form with all its controls.
[[nodiscard]] Json JsonOfForm(const Form& form);
[[nodiscard]] Json JsonOfPrinter(const Printer& printer);
/// The drawing operations in their order.
[[nodiscard]] Json JsonOfOperations(const std::vector<DrawingOperation>& operations);

/// A field of the workspace outside its buffers; nothing when there is none of that name. Flags are the
/// numbers -1 and 0, tables come whole with their entry 0.
[[nodiscard]] std::optional<Json> JsonOfWorkspaceField(const Workspace& data, std::string_view name);
/// The same for a field of one buffer.
[[nodiscard]] std::optional<Json> JsonOfBufferField(const ProfileBuffer& buffer, std::string_view name);
/// The whole record of a buffer by field name: points and peaks from 1 to their counts only.
[[nodiscard]] Json JsonOfBuffer(const ProfileBuffer& buffer);
/// The names of all fields, those of the buffers too.
[[nodiscard]] std::vector<std::string> WorkspaceFieldNames();

/// One line of JSON; bytes that are no UTF-8 are replaced.
[[nodiscard]] std::string JsonLine(const Json& value);

}  // namespace koprax
