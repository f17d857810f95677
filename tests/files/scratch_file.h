// A file of a test's own in the folder for temporary files, gone when the test ends.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

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
  [[nodiscard]] std::string Bytes() const {
    std::ifstream in(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

 private:
  std::filesystem::path path_;
};

}  // namespace koprax
