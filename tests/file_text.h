// Whole files as texts, and texts with other words in them.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace koprax {

/// What stands in a file; nothing if there is none.
inline std::string BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline std::string Replaced(std::string text, const std::string& what, const std::string& by) {
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
  return text;
}

/// A script with the paths of its sample profiles made whole, and what it writes in another folder.
inline std::string ScriptIn(const std::filesystem::path& path, const std::string& output) {
  std::string script = BytesOf(path);
  for (const std::string folder : {"\"examples/", "\"docs/"}) {
    script = Replaced(script, folder, "\"" KOPRAX_SOURCE_DIR "/" + folder.substr(1));
  }
  return Replaced(script, "\"output/", "\"" + output + "/");
}

}  // namespace koprax
