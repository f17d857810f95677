#include "app/record_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace koprax {

std::optional<std::string> RecordFile::Start(const std::string& path) {
  std::error_code problem;
  const bool regular = std::filesystem::is_regular_file(path, problem);
  if (regular && std::filesystem::file_size(path, problem) > 0) {
    return "it holds something already; name a new file";
  }
  errno = 0;
  file_.open(path, std::ios::binary | std::ios::app);
  if (!file_) {
    return std::strerror(errno);
  }
  return std::nullopt;
}

void RecordFile::Append(const std::vector<std::string>& lines) {
  if (failed_) {
    return;
  }
  errno = 0;
  for (const std::string& line : lines) {
    file_ << line << '\n';
  }
  file_.flush();
  if (!file_) {
    failed_ = true;
    const std::string reason = std::strerror(errno);
    if (OnFailure) {
      OnFailure(reason);
    }
  }
}

}  // namespace koprax
