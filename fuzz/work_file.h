// A file of a target's own in the folder for temporary files; scripts/fuzz sees to it that this folder lies
// in memory and goes with the run, also when the run ends in a finding.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "fuzz/law.h"

namespace koprax {

class WorkFile {
 public:
  explicit WorkFile(const std::string& name)
      : path_((std::filesystem::temp_directory_path() / ("fuzz_" + std::to_string(::getpid()) + "_" + name))
                  .string()) {}
  WorkFile(const WorkFile&) = delete;
  WorkFile& operator=(const WorkFile&) = delete;
  ~WorkFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }

  [[nodiscard]] const std::string& Path() const { return path_; }
  void Write(std::string_view bytes) const {
    std::ofstream out(path_, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    Require(out.good(), "the input can be put into " + path_);
  }
  [[nodiscard]] std::string Bytes() const {
    std::ifstream in(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

 private:
  std::string path_;
};

}  // namespace koprax
