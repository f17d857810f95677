#include "forms/whole_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

namespace koprax {

namespace {

/// No file that the system reads comes near this size; a device that never ends stops here.
constexpr std::size_t most_bytes = std::size_t{64} << 20U;
constexpr int most_names = 1000;
constexpr std::string_view temporary_start = ".koprax-";
constexpr std::string_view temporary_end = ".tmp";

FileError ErrorOf(int code) { return {std::generic_category().message(code)}; }

/// Calls the system again as long as a signal interrupts it.
template <class Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

/// An open file, closed at the end of its scope.
class OpenFile {
 public:
  /// Opening doesn't wait for the other end of a pipe; reading and writing do.
  OpenFile(const std::string& path, int flags)
      : descriptor_(
            Uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0666); })) {
    if (descriptor_ >= 0) ::fcntl(descriptor_, F_SETFL, ::fcntl(descriptor_, F_GETFL) & ~O_NONBLOCK);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }

  [[nodiscard]] bool Ok() const { return descriptor_ >= 0; }
  [[nodiscard]] int Descriptor() const { return descriptor_; }

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
    const ssize_t count =
        Uninterrupted([&] { return ::read(descriptor, bytes.data() + filled, bytes.size() - filled); });
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
    const ssize_t count = Uninterrupted([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
    if (count < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

/// Brings what was written down to the disk; 0 or the error.
int Flush(int descriptor) {
  return Uninterrupted([&] { return ::fsync(descriptor); }) == 0 ? 0 : errno;
}

/// What closing the file would tell, some systems only there of a full disk. It stays open, and locked.
int TryToClose(int descriptor) {
  const int other = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
  return other >= 0 && ::close(other) == 0 ? 0 : errno;
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
  const OpenFile file(path, O_WRONLY);
  if (!file.Ok()) return errno;
  if (const int error = WriteAll(file.Descriptor(), bytes)) return error;
  // Devices and pipes have nothing to flush and say so.
  const int error = Flush(file.Descriptor());
  if (error != 0 && error != EINVAL && error != EROFS && error != ENOTSUP) return error;
  return TryToClose(file.Descriptor());
}

// ---- Temporary files ---------------------------------------------------------------------------------
//
// Whoever writes a temporary file holds a lock on it, which goes with its process. So one without a holder
// has been left behind, and who gets its lock may remove it. A file that has just been made can be taken for
// such a one before its maker has locked it: therefore the name still has to lead to the same file.

bool IsTemporaryName(std::string_view name) {
  if (!name.starts_with(temporary_start) || !name.ends_with(temporary_end)) return false;
  const auto middle = name.substr(temporary_start.size());
  return middle.find_first_not_of("0123456789-") == middle.size() - temporary_end.size();
}

/// Locks a file without waiting; 0 or the error: EWOULDBLOCK where another process holds it.
int Lock(const OpenFile& file) {
  return Uninterrupted([&] { return ::flock(file.Descriptor(), LOCK_EX | LOCK_NB); }) == 0 ? 0 : errno;
}

bool HasName(const OpenFile& file, const std::string& path) {
  struct stat held {};
  struct stat named {};
  return ::fstat(file.Descriptor(), &held) == 0 && ::lstat(path.c_str(), &named) == 0 &&
         held.st_dev == named.st_dev && held.st_ino == named.st_ino;
}

/// Removes what killed processes have left in a folder. What doesn't let itself be removed stays.
void RemoveLeftBehind(const std::filesystem::path& folder) {
  DIR* const entries = ::opendir(folder.c_str());
  if (entries == nullptr) return;
  while (const dirent* const entry = ::readdir(entries)) {
    if (!IsTemporaryName(entry->d_name)) continue;
    const std::string path = (folder / entry->d_name).string();
    const OpenFile file(path, O_WRONLY | O_NOFOLLOW);
    if (file.Ok() && Lock(file) == 0 && HasName(file, path)) ::unlink(path.c_str());
  }
  ::closedir(entries);
}

std::string TemporaryName(const std::filesystem::path& folder, int attempt) {
  const std::string numbers = std::to_string(::getpid()) + "-" + std::to_string(attempt);
  return (folder / (std::string(temporary_start) + numbers + std::string(temporary_end))).string();
}

/// Gives a file without a name a temporary one; nothing where the system can't.
std::optional<std::string> NameFile(const OpenFile& file, const std::filesystem::path& folder) {
  const std::string self = "/proc/self/fd/" + std::to_string(file.Descriptor());
  for (int attempt = 0; attempt < most_names; ++attempt) {
    std::string name = TemporaryName(folder, attempt);
    if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) return name;
    if (errno != EEXIST) break;
  }
  return std::nullopt;
}

/// What is to become of a new file.
struct Replacement {
  const std::filesystem::path& Target;
  const std::filesystem::path& Folder;
  std::string_view Bytes;
  const struct stat* Replaced;  ///< whose rights it takes over
};

int Fill(const OpenFile& file, const Replacement& wanted) {
  // A file that a group shares goes on being the group's, where the system lets it. It comes before the
  // rights, which it may take away.
  if (wanted.Replaced != nullptr &&
      ::fchown(file.Descriptor(), static_cast<uid_t>(-1), wanted.Replaced->st_gid) != 0) {
    errno = 0;
  }
  if (wanted.Replaced != nullptr && ::fchmod(file.Descriptor(), wanted.Replaced->st_mode & 07777U) != 0) {
    return errno;
  }
  if (const int error = WriteAll(file.Descriptor(), wanted.Bytes)) return error;
  if (const int error = Flush(file.Descriptor())) return error;
  return TryToClose(file.Descriptor());
}

/// Puts a complete file in the place of its target.
int MoveToTarget(const std::string& temporary, const Replacement& wanted) {
  if (::rename(temporary.c_str(), wanted.Target.c_str()) == 0) return 0;
  const int error = errno;
  ::unlink(temporary.c_str());
  return error;
}

/// 0 or the error; nothing where files can't be without a name.
std::optional<int> WriteNameless(const Replacement& wanted) {
#ifdef O_TMPFILE
  const OpenFile file(wanted.Folder.string(), O_WRONLY | O_TMPFILE);
  if (!file.Ok() || Lock(file) != 0) return std::nullopt;
  if (const int error = Fill(file, wanted)) return error;
  const auto name = NameFile(file, wanted.Folder);
  if (name) return MoveToTarget(*name, wanted);
#else
  static_cast<void>(wanted);
#endif
  return std::nullopt;
}

int WriteNamed(const Replacement& wanted) {
  for (int attempt = 0; attempt < most_names; ++attempt) {
    const std::string name = TemporaryName(wanted.Folder, attempt);
    const OpenFile file(name, O_WRONLY | O_CREAT | O_EXCL);
    if (!file.Ok() && errno == EEXIST) continue;
    if (!file.Ok()) return errno;
    // Another process that takes it for one left behind holds it, or has removed it. Where there are no
    // locks none does so.
    if (Lock(file) == EWOULDBLOCK || !HasName(file, name)) continue;
    const int error = Fill(file, wanted);
    if (error == 0) return MoveToTarget(name, wanted);
    ::unlink(name.c_str());
    return error;
  }
  return EEXIST;
}

/// The rename itself lasts through a crash only when its folder is on the disk. The file is complete
/// either way, so a folder that can't be flushed is no failure.
void FlushFolder(const std::filesystem::path& folder) {
  const OpenFile opened(folder.string(), O_RDONLY | O_DIRECTORY);
  if (opened.Ok()) static_cast<void>(::fsync(opened.Descriptor()));
}

int Replace(const std::filesystem::path& target, std::string_view bytes, const struct stat* replaced,
            NewFile way) {
  // A file that is protected against writing stays so, though its folder would let it be replaced.
  if (replaced != nullptr && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) return errno;
  const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";
  RemoveLeftBehind(folder);
  const Replacement wanted{target, folder, bytes, replaced};
  std::optional<int> error;
  if (way == NewFile::Nameless) error = WriteNameless(wanted);
  if (!error) error = WriteNamed(wanted);
  if (*error == 0) FlushFolder(folder);
  return *error;
}

int Write(const std::string& path, std::string_view bytes, NewFile way) {
  if (path.find('\0') != std::string::npos) return EINVAL;
  std::filesystem::path target = path;
  if (const int error = FollowLinks(target)) return error;
  struct stat facts {};
  const bool exists = ::stat(target.c_str(), &facts) == 0;
  if (!exists && errno != ENOENT) return errno;
  if (!exists && !target.has_filename()) return path.empty() ? ENOENT : EISDIR;
  if (exists && S_ISDIR(facts.st_mode)) return EISDIR;
  if (exists && !S_ISREG(facts.st_mode)) return WriteInPlace(target.string(), bytes);
  return Replace(target, bytes, exists ? &facts : nullptr, way);
}

}  // namespace

std::variant<std::string, FileError> ReadWholeFile(const std::string& path) {
  if (path.find('\0') != std::string::npos) return ErrorOf(EINVAL);
  const OpenFile file(path, O_RDONLY);
  if (!file.Ok()) return ErrorOf(errno);
  std::string bytes;
  if (const int error = ReadAll(file.Descriptor(), bytes)) return ErrorOf(error);
  return bytes;
}

std::optional<FileError> WriteWholeFile(const std::string& path, std::string_view bytes, NewFile way) {
  if (const int error = Write(path, bytes, way)) return ErrorOf(error);
  return std::nullopt;
}

}  // namespace koprax
