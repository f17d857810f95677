#include "forms/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <system_error>
#include <utility>

#include "forms/text_encoding.h"

namespace koprax {

namespace {

/// No text that the system reads comes near this size; a device that never ends stops here.
constexpr std::size_t most_bytes = std::size_t{64} << 20U;
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

FileError ErrorOf(int code) { return {std::generic_category().message(code)}; }

/// An open file, closed at the end of its scope.
class OpenFile {
 public:
  /// Opening doesn't wait for the other end of a pipe; reading and writing do.
  OpenFile(const std::string& path, int flags)
      : descriptor_(::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0666)) {
    if (descriptor_ >= 0) ::fcntl(descriptor_, F_SETFL, ::fcntl(descriptor_, F_GETFL) & ~O_NONBLOCK);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }

  [[nodiscard]] bool Ok() const { return descriptor_ >= 0; }
  [[nodiscard]] int Descriptor() const { return descriptor_; }
  /// Closes the file; 0 or the error, since some systems tell of a full disk only here.
  [[nodiscard]] int Close() { return ::close(std::exchange(descriptor_, -1)) == 0 ? 0 : errno; }

 private:
  int descriptor_;
};

/// Reads all bytes; 0 or the error.
int ReadAll(int descriptor, std::string& bytes) {
  struct stat facts {};
  if (::fstat(descriptor, &facts) != 0) return errno;
  if (S_ISDIR(facts.st_mode)) return EISDIR;
  // One byte more than its size lets a regular file come in one read, with its end seen by the next.
  bytes.resize(std::min(most_bytes, static_cast<std::size_t>(std::max<off_t>(facts.st_size, 4095))) + 1);
  std::size_t filled = 0;
  while (true) {
    const ssize_t count = ::read(descriptor, bytes.data() + filled, bytes.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
    if (filled > most_bytes) return EFBIG;
    if (filled == bytes.size()) bytes.resize(std::min(most_bytes + 1, bytes.size() * 2));
  }
  bytes.resize(filled);
  return 0;
}

/// Writes all bytes; 0 or the error.
int WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

std::string Encoded(const std::vector<std::string>& lines, TextEncoding encoding) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append("\r\n");
  return encoding == TextEncoding::Latin1 ? Utf8ToLatin1(text) : text;
}

/// Follows links to the name that is to be written, which may not exist yet; 0 or the error.
int FollowLinks(std::filesystem::path& path) {
  constexpr int most_links = 40;
  std::error_code problem;
  for (int links = 0; links < most_links; ++links) {
    if (!std::filesystem::is_symlink(path, problem)) return 0;
    const std::filesystem::path target = std::filesystem::read_symlink(path, problem);
    if (problem) return problem.value();
    path = path.parent_path() / target;
  }
  return ELOOP;
}

int WriteInPlace(const std::string& path, std::string_view bytes) {
  OpenFile file(path, O_WRONLY);
  if (!file.Ok()) return errno;
  if (const int error = WriteAll(file.Descriptor(), bytes)) return error;
  // Devices and pipes have nothing to flush and say so.
  if (::fsync(file.Descriptor()) != 0 && errno != EINVAL && errno != EROFS && errno != ENOTSUP) return errno;
  return file.Close();
}

/// Fills a new file completely, down to the disk, with the rights of the file that it will replace.
int FillNewFile(OpenFile& file, std::string_view bytes, const struct stat* replaced) {
  if (replaced != nullptr && ::fchmod(file.Descriptor(), replaced->st_mode & 07777U) != 0) return errno;
  if (const int error = WriteAll(file.Descriptor(), bytes)) return error;
  if (::fsync(file.Descriptor()) != 0) return errno;
  return file.Close();
}

/// The rename itself lasts through a crash only when its folder is on the disk. The file is complete
/// either way, so a folder that can't be flushed is no failure.
void FlushFolder(const std::filesystem::path& folder) {
  const OpenFile opened(folder.string(), O_RDONLY | O_DIRECTORY);
  if (opened.Ok()) static_cast<void>(::fsync(opened.Descriptor()));
}

int WriteBesideAndRename(const std::filesystem::path& target, std::string_view bytes,
                         const struct stat* replaced) {
  // A file that is protected against writing stays so, though its folder would let it be replaced.
  if (replaced != nullptr && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) return errno;
  const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";
  for (int attempt = 0;; ++attempt) {
    const std::string name = ".koprax-" + std::to_string(::getpid()) + "-" + std::to_string(attempt) + ".tmp";
    const std::string temporary = (folder / name).string();
    OpenFile file(temporary, O_WRONLY | O_CREAT | O_EXCL);
    if (!file.Ok() && errno == EEXIST && attempt < 1000) continue;
    if (!file.Ok()) return errno;
    int error = FillNewFile(file, bytes, replaced);
    if (error == 0 && ::rename(temporary.c_str(), target.c_str()) != 0) error = errno;
    if (error != 0) ::unlink(temporary.c_str());
    if (error == 0) FlushFolder(folder);
    return error;
  }
}

int WriteBytes(const std::string& path, std::string_view bytes) {
  if (path.find('\0') != std::string::npos) return EINVAL;
  std::filesystem::path target = path;
  if (const int error = FollowLinks(target)) return error;
  struct stat facts {};
  const bool exists = ::stat(target.c_str(), &facts) == 0;
  if (!exists && errno != ENOENT) return errno;
  if (!exists && !target.has_filename()) return path.empty() ? ENOENT : EISDIR;
  if (exists && S_ISDIR(facts.st_mode)) return EISDIR;
  if (exists && !S_ISREG(facts.st_mode)) return WriteInPlace(target.string(), bytes);
  return WriteBesideAndRename(target, bytes, exists ? &facts : nullptr);
}

/// Cuts off the line that a text starts with, its end included; the line is given without its end.
std::string_view CutLine(std::string_view& rest) {
  const std::size_t feed = rest.find('\n');
  std::string_view line = rest.substr(0, feed);
  rest.remove_prefix(feed == std::string_view::npos ? rest.size() : feed + 1);
  while (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

}  // namespace

TextFile::TextFile(std::string contents, TextEncoding encoding)
    : contents_(std::move(contents)), encoding_(encoding) {}

std::string_view LineReader::NextLine() {
  if (rest_.empty()) return {};
  if (!inside_line_) ++line_number_;
  inside_line_ = false;
  return CutLine(rest_);
}

std::optional<std::string_view> LineReader::NextNumber() {
  while (!rest_.empty()) {
    std::string_view behind = rest_;
    const std::string_view line = CutLine(behind);
    if (!inside_line_) ++line_number_;
    const std::size_t start = line.find_first_not_of(' ');
    if (start == std::string_view::npos) {
      rest_ = behind;
      inside_line_ = false;
      continue;
    }
    const std::size_t end = std::min(line.find_first_of(" ,", start), line.size());
    // Blanks behind a number are part of its end when they lead to a comma or to the end of the line.
    std::size_t next = std::min(line.find_first_not_of(' ', end), line.size());
    inside_line_ = next < line.size();
    if (inside_line_) next = line[next] == ',' ? next + 1 : end + 1;
    if (inside_line_) {
      rest_.remove_prefix(next);
    } else {
      rest_ = behind;
    }
    return line.substr(start, end - start);
  }
  return std::nullopt;
}

std::variant<TextFile, FileError> ReadTextFile(const std::string& path) {
  if (path.find('\0') != std::string::npos) return ErrorOf(EINVAL);
  const OpenFile file(path, O_RDONLY);
  if (!file.Ok()) return ErrorOf(errno);
  std::string bytes;
  if (const int error = ReadAll(file.Descriptor(), bytes)) return ErrorOf(error);
  // A second mark would become the first one when the text is written, and be lost at the next reading.
  std::size_t marks = 0;
  while (std::string_view(bytes).substr(marks).starts_with(byte_order_mark)) marks += byte_order_mark.size();
  bytes.erase(0, marks);
  if (!IsUtf8(bytes)) return TextFile(Latin1ToUtf8(bytes), TextEncoding::Latin1);
  return TextFile(std::move(bytes), TextEncoding::Utf8);
}

std::optional<FileError> WriteTextFile(const std::string& path, const std::vector<std::string>& lines,
                                       TextEncoding encoding) {
  if (const int error = WriteBytes(path, Encoded(lines, encoding))) return ErrorOf(error);
  return std::nullopt;
}

void LetRefusedWritesReturn() {
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace koprax
