// Compares a text with a kept one. A difference is written beside the test as ".new", to be looked at and
// promoted by hand.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "file_text.h"

namespace koprax {

/// `path` lies below tests/.
inline void ExpectGolden(const std::string& text, const std::string& path) {
  const std::filesystem::path golden = std::filesystem::path(KOPRAX_SOURCE_DIR) / "tests" / path;
  if (text == BytesOf(golden)) return;
  const auto fresh = std::filesystem::current_path() / (golden.filename().string() + ".new");
  std::ofstream(fresh, std::ios::binary) << text;
  ADD_FAILURE() << "It differs from what is kept. Compare with\n  diff " << golden.string() << " "
                << fresh.string() << "\nand, where the new text is right, promote it with\n  cp "
                << fresh.string() << " " << golden.string();
}

}  // namespace koprax
