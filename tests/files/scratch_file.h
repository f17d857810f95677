// A file of a test's own in the folder for temporary files, gone when the test ends.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "file_text.h"

namespace koprax {

class ScratchFile {
 public:
  explicit ScratchFile(const std::string& bytes, const std::string& name = "scratch")
      : path_(std::filesystem::temp_directory_path() / (name + "_" + std::to_string(::getpid()) + ".txt")) {
    std::ofstream(path_, std::ios::binary) << bytes;
  }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  ~ScratchFile() { std::filesystem::remove(path_); }

  [[nodiscard]] std::string Path() const { return path_.string(); }
  [[nodiscard]] std::string Bytes() const { return BytesOf(path_); }

 private:
  std::filesystem::path path_;
};

}  // namespace koprax
