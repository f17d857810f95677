#include "tests/monkey/sample_files.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <set>
#include <system_error>
#include <vector>

#include "fuzz/law.h"

namespace koprax {

namespace fs = std::filesystem;

namespace {

constexpr std::array SavedNames{"saved_0", "saved_1", "saved_2.txt"};
/// A link to the last of them.
constexpr const char* LinkName = "link";
constexpr const char* FolderName = "folder";
/// The one sample that may be written over.
constexpr const char* ReplacedName = "columns.txt";

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

/// A title, the wavelength and so many points upward; every hundredth stands out.
std::string TwoColumns(int points) {
  std::string text = "Many points\r\n1.5406\r\n";
  for (int i = 0; i < points; ++i) {
    text += std::to_string(5 + 0.01 * i) + (i % 100 == 0 ? " 900\r\n" : " 20\r\n");
  }
  return text;
}

/// Two lines on a background, in steps of 0.05 degrees: enough for a fit.
std::string TwoLines() {
  std::string text = "Two lines\r\n20 0.05 1.5406\r\n";
  for (int i = 0; i <= 190; ++i) {
    const auto line = [i](int centre, int height) { return height / (1 + (i - centre) * (i - centre) / 9); };
    text += std::to_string(100 + i / 10 + line(60, 1000) + line(120, 600)) + "\r\n";
  }
  return text;
}

std::string Silicon() {
  return " 28.443  500  3.1355\r\n 47.304  450  1.9201\r\n 56.123  400  1.6375\r\n 69.132  350  1.3577\r\n"
         " 76.380  300  1.2459\r\n 88.029  250  1.1086\r\n";
}

std::string Channels() {
  return "4096\r\n1/1/1\r\n5\r\nme\r\n\r\n\r\n\r\n\r\n\r\n1 2 3 400 5 6 7 8\r\n" + Repeated("\r\n", 511);
}

std::string Card() {
  return "   5.4312   5.4312   5.4312   90.00   90.00   90.00\r\n\r\nFd-3m\r\n\r\n\r\nSilicon\r\n" +
         std::string(79, ' ') +
         "F\r\n 3.1357100   1  1  1    1.9202 55   2  2  0    1.6375 30   3  1  1    1 00-0001I\r\n";
}

using NamedFiles = std::vector<std::pair<std::string, std::string>>;

NamedFiles GoodFiles() {
  return {
      {"column.txt", "No wavelength\r\n20 0.5 0\r\n5\r\n-7\r\n300\r\n20\r\n6\r\n40\r\n"},
      {"one.dat",
       "Silicon\r\n5\r\n28.38,28.46,0.02\r\n212\r\n840\r\n3275\r\n840\r\n198\r\n3275,198\r\n1.5406\r\n"},
      {"columns.txt", "Variable step\r\n28 10\r\n28.1 20\r\n29 3\r\n40 1000\r\n50.5 3\r\n"},
      {"channels.adf", Channels()},
      {"philips.udf",
       "Title1,T,/\r\nLabdaAlpha1,1.54,/\r\nDataAngleRange,10,12,/\r\nScanStepSize,0.5,/\r\nRawScan\r\n"
       "1,5,900,20,1,/\r\n"},
      {"siemens.uxd",
       "_SAMPLE='s'\r\n_STEPSIZE=1\r\n_RANGE_WL=1.5406\r\n_2THETACOUNTS\r\n10 5\r\n11 500\r\n12 5\r\n"},
      {"card.aid", Card()},
      {"detector.cal", "calibration\r\n-1.5\r\n0.0123\r\n1E-07\r\n\r\n\r\n\r\n"},
      {"silicon.pks", Silicon()},
      {"lines.txt", TwoLines()},
      {"downward.txt", "Downward\r\n1.5406\r\n30 4\r\n29 50\r\n28 6\r\n"},
      {"commas.txt", "Decimal commas\r\n1,5406\r\n10,5\t3\r\n10,6\t4\r\n"},
      {"latin.txt", "K\xF6rner in \xC5ngstr\xF6m\r\n1.5406\r\n10 5\r\n11 6\r\n12 7\r\n"},
      {"most.txt", TwoColumns(8000)},
  };
}

NamedFiles BadFiles() {
  std::string binary;
  for (int i = 0; i < 4096; ++i) binary += static_cast<char>(i * 37 % 256);
  return {
      {"no_profile", "no profile"},
      {"empty", ""},
      {"binary", binary},
      {"too_many.txt", TwoColumns(8001)},
      {"words.txt", "Words\r\n1.5406\r\n" + Repeated("1 ", 25) + "\r\n"},
      {"long_lines", Repeated("1234567890", 4000)},
      {"blank_lines", Repeated("\r\n", 12000)},
      {"numbers", Repeated("0 0\r\n", 300)},
      {"beyond.txt", "Beyond\r\n1.5406\r\n10 1E39\r\n11 1E38\r\n12 -3E38\r\n"},
      {"huge.txt", "Huge\r\n1.5406\r\n10 3E38\r\n11 -3E38\r\n12 3E38\r\n13 3E38\r\n14 -3E38\r\n"},
      {"level.txt", "Level\r\n1.5406\r\n10 0\r\n10 0\r\n10 0\r\n10 0\r\n10 0\r\n"},
      {"long.pks", Repeated(Silicon(), 40)},
      {"large.cal", "large\r\n1E300\r\n-1E300\r\n1E38\r\n1\r\n1\r\n1\r\n1\r\n1\r\n"},
      {"bare_returns", "Title\r1.5406\r10 5\r11 6\r"},
  };
}

void WriteFile(const fs::path& path, const std::string& contents) {
  std::ofstream out(path, std::ios::binary);
  out << contents;
  Require(out.flush().good(), "a sample can be put into " + path.string());
}

}  // namespace

SampleFiles::SampleFiles()
    : folder_(fs::temp_directory_path() / ("koprax-walk-" + std::to_string(::getpid()))) {
  for (const auto& [name, contents] : GoodFiles()) Add(name, contents);
  for (const auto& [name, contents] : BadFiles()) Add(name, contents);
  // A file that ends too early, of each kind: behind its first half, and behind its first line.
  for (const auto& [name, contents] : GoodFiles()) {
    Add("half_" + name, contents.substr(0, contents.size() / 2));
    Add("line_" + name, contents.substr(0, contents.find('\n') + 1));
  }
  for (const char* name : SavedNames) {
    to_open_.push_back(Path(name));
    to_save_.push_back(Path(name));
  }
  for (const std::string& path : {Path(FolderName), Path("no/such/folder/profile.dat"), std::string()}) {
    to_open_.push_back(path);
    to_save_.push_back(path);
  }
  to_save_.insert(to_save_.end(), {Path(LinkName), Path(ReplacedName), "/dev/full"});
  Restore();
}

SampleFiles::~SampleFiles() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

void SampleFiles::Add(const std::string& name, std::string contents) {
  contents_[name] = std::move(contents);
  to_open_.push_back(Path(name));
}

void SampleFiles::AddFrom(const fs::path& from) {
  // In the order of their names, so that a seed leads the same way on every machine.
  std::set<fs::path> paths;
  for (const auto& entry : fs::directory_iterator(from)) {
    if (entry.is_regular_file() && entry.path().extension() != ".kop") paths.insert(entry.path());
  }
  for (const fs::path& path : paths) {
    std::ifstream in(path, std::ios::binary);
    Add(path.filename().string(), {std::istreambuf_iterator<char>(in), {}});
  }
}

bool SampleFiles::MayBeSaved(const std::string& path) const {
  return std::ranges::find(to_save_, path) != to_save_.end();
}

void SampleFiles::Restore() {
  fs::create_directories(folder_ / FolderName);
  for (const char* name : SavedNames) fs::remove(Path(name));
  fs::remove(Path(LinkName));
  fs::create_symlink(SavedNames.back(), Path(LinkName));
  for (const auto& [name, contents] : contents_) {
    if (name == ReplacedName || !fs::exists(Path(name))) WriteFile(Path(name), contents);
  }
}

void SampleFiles::RequireWholeFiles() {
  // What comes, goes or takes the place of another changes the folder itself.
  const auto changed = fs::last_write_time(folder_);
  if (std::exchange(folder_changed_, changed) == changed) return;
  for (const auto& entry : fs::directory_iterator(folder_)) {
    const std::string name = entry.path().filename().string();
    if (contents_.contains(name) && name != ReplacedName) continue;
    if (name == FolderName || name == LinkName) continue;
    Require(name == ReplacedName || std::ranges::find(SavedNames, name) != SavedNames.end(),
            "no file but those asked for: " + name);
    const auto time = entry.last_write_time();
    if (std::exchange(looked_at_[name], time) == time) continue;
    std::ifstream in(entry.path(), std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(in), {});
    Require(text.empty() || text.ends_with("\r\n"), "a file that was saved is whole: " + name);
  }
  Require(fs::is_empty(folder_ / FolderName), "nothing is left in a folder that was taken for a file");
}

}  // namespace koprax
