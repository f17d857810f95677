// Files for a walk through the workbench, in a scratch folder of their own: one of each kind that it reads,
// made by hand, and many that nothing can be made of.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace koprax {

class SampleFiles {
 public:
  /// Makes the folder; the destructor takes it away with all that is in it.
  SampleFiles();
  SampleFiles(const SampleFiles&) = delete;
  SampleFiles& operator=(const SampleFiles&) = delete;
  ~SampleFiles();

  [[nodiscard]] std::string Folder() const { return folder_.string(); }
  [[nodiscard]] std::string Path(const std::string& name) const { return (folder_ / name).string(); }
  /// What may be chosen in a dialog: the files of all kinds, those that may have been saved, a folder, one
  /// that leads nowhere, and an empty name.
  [[nodiscard]] const std::vector<std::string>& ToOpen() const { return to_open_; }
  /// Names that may be written, one of a file that is there, some that can't be written, and an empty one.
  [[nodiscard]] const std::vector<std::string>& ToSave() const { return to_save_; }

  /// Copies further files into the folder, those directly under `from` but the scripts.
  void AddFrom(const std::filesystem::path& from);
  [[nodiscard]] bool MayBeSaved(const std::string& path) const;
  /// Puts all as it was at first.
  void Restore();
  /// Holds the folder to what saving promises: whole files, and none but those that were asked for.
  void RequireWholeFiles();

 private:
  void Add(const std::string& name, std::string contents);

  std::filesystem::path folder_;
  std::map<std::string, std::string> contents_;       ///< by name
  std::filesystem::file_time_type folder_changed_{};  ///< when it was looked at last
  std::map<std::string, std::filesystem::file_time_type> looked_at_;
  std::vector<std::string> to_open_;
  std::vector<std::string> to_save_;
};

}  // namespace koprax
