// The file that a record is written to, line by line, so that all that was done is in it whatever happens
// next.
#pragma once

#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace koprax {

class RecordFile {
 public:
  /// Starts a new file; the system's words if that fails. A file that holds something already is left as it
  /// is.
  [[nodiscard]] std::optional<std::string> Start(const std::string& path);

  /// Adds lines and hands them to the system at once. After a failure nothing more is written.
  void Append(const std::vector<std::string>& lines);
  [[nodiscard]] bool Failed() const { return failed_; }

  /// Called once, with the system's words, when lines could not be written.
  std::function<void(const std::string& reason)> OnFailure;

 private:
  std::ofstream file_;
  bool failed_ = false;
};

}  // namespace koprax
