// Drawing operations out of JSON, as the script player writes them. Which answer they come from, and what
// becomes of them, is left to others.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "app/script_values.h"
#include "forms/surface.h"

namespace koprax {

struct OperationsRead {
  std::vector<DrawingOperation> Operations{};
  /// How many images there were: JSON doesn't hold their pixels, so a frame stands for each.
  int Images = 0;
};

/// The reverse of JsonOfOperations. What is no array of operations comes back as a reason, which names the
/// operation by its number from 1.
[[nodiscard]] std::variant<OperationsRead, std::string> OperationsOfJson(const Json& array);

}  // namespace koprax
