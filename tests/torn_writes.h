// Kills a process that saves, at random moments, and looks at what it leaves. What is saved is left to the
// tests.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <string>

namespace koprax {

/// Saves one of two different contents to the path; false on failure.
using SaveOneOfTwo = std::function<bool(const std::string& path, bool other)>;

/// What was found after all kills.
struct TornWrites {
  int Old = 0;         ///< how often the file was the one before
  int New = 0;         ///< how often it was the one that was being saved
  int Torn = 0;        ///< how often it was neither
  int WithOthers = 0;  ///< how often a further file lay beside it
  int MostOthers = 0;  ///< how many at the same time
  int OthersLeft = 0;  ///< after one more save that nobody killed
};

class TornWriteTrial {
 public:
  TornWriteTrial(SaveOneOfTwo save, const std::string& name)
      : save_(std::move(save)), folder_(ParentFolder() / FolderName()), path_(folder_ / name) {
    std::filesystem::create_directories(folder_);
  }
  TornWriteTrial(const TornWriteTrial&) = delete;
  TornWriteTrial& operator=(const TornWriteTrial&) = delete;
  ~TornWriteTrial() { std::filesystem::remove_all(folder_); }

  TornWrites Kill(int times) {
    TornWrites found;
    double longest = static_cast<double>(Measure().count());
    for (int i = 0; i < times && !testing::Test::HasFailure(); ++i) {
      SaveUntilKilled(std::uniform_int_distribution<long>(1, std::lround(longest))(random_));
      // A child on a busy machine saves more slowly than its parent did: the time that it gets follows what
      // it reached, so that about half of the kills meet the first save.
      longest = std::clamp(Look(found) ? longest / 1.3 : longest * 1.3, 1e3, 1e9);
    }
    EXPECT_TRUE(save_(path_, true));
    found.OthersLeft = Others();
    return found;
  }

 private:
  /// A file system in memory, if there is one: no disk that others keep busy.
  static std::filesystem::path ParentFolder() {
    const std::filesystem::path memory = "/dev/shm";
    return ::access(memory.c_str(), W_OK | X_OK) == 0 ? memory : std::filesystem::temp_directory_path();
  }
  static std::string FolderName() {
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string("torn_") + test->name() + "_" + std::to_string(::getpid());
    std::ranges::replace(name, '/', '_');
    return name;
  }
  [[nodiscard]] std::string Bytes() const {
    std::ifstream in(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  [[nodiscard]] int Others() const {
    using std::filesystem::directory_iterator;
    return static_cast<int>(std::distance(directory_iterator(folder_), directory_iterator())) - 1;
  }

  /// The middle time of a save; keeps what whole files hold.
  std::chrono::nanoseconds Measure() {
    std::array<std::chrono::nanoseconds, 21> times{};
    for (std::size_t i = 0; i < times.size(); ++i) {
      const auto start = std::chrono::steady_clock::now();
      EXPECT_TRUE(save_(path_, i % 2 == 1));
      times[i] = std::chrono::steady_clock::now() - start;
      whole_[i % 2] = Bytes();
    }
    EXPECT_NE(whole_[0], whole_[1]);
    std::ranges::nth_element(times, times.begin() + times.size() / 2);
    return times[times.size() / 2];
  }

  /// Runs a process that saves the content that isn't there, again and again, until its clock kills it.
  /// Before that it saves what is there: its memory is a copy that the first save makes.
  void SaveUntilKilled(long nanoseconds) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      bool saves = save_(path_, other_) && SetClock(nanoseconds);
      while (saves) saves = save_(path_, !other_);
      ::_exit(1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
  }

  static bool SetClock(long nanoseconds) {
    constexpr long second = 1000000000;
    sigevent kill{};
    kill.sigev_notify = SIGEV_SIGNAL;
    kill.sigev_signo = SIGKILL;
    timer_t timer{};
    const itimerspec time{{}, {nanoseconds / second, nanoseconds % second}};
    return ::timer_create(CLOCK_MONOTONIC, &kill, &timer) == 0 &&
           ::timer_settime(timer, 0, &time, nullptr) == 0;
  }

  /// Whether a save had reached the file.
  bool Look(TornWrites& found) {
    const std::string bytes = Bytes();
    const bool torn = bytes != whole_[0] && bytes != whole_[1];
    const bool is_new = bytes == whole_[other_ ? 0 : 1];
    ++(torn ? found.Torn : is_new ? found.New : found.Old);
    const bool reached = torn || is_new;
    if (is_new) other_ = !other_;
    const int others = Others();
    if (others > 0) ++found.WithOthers;
    found.MostOthers = std::max(found.MostOthers, others);
    return reached;
  }

  SaveOneOfTwo save_;
  std::filesystem::path folder_;
  std::filesystem::path path_;
  std::array<std::string, 2> whole_;
  bool other_ = false;  ///< which of the two is there; the measurement ends with the first
  std::mt19937 random_{20260731};
};

/// A kill takes some milliseconds under the sanitizers, which copy their books with each process. The files
/// are written by the same calls there, so fewer kills do.
#ifdef __SANITIZE_ADDRESS__
inline constexpr int Kills = 50;
#else
inline constexpr int Kills = 1000;
#endif

/// Kills a writer and expects the old file or the new one, at most one temporary file, and none in the end.
inline TornWrites ExpectNoTornFile(SaveOneOfTwo save, const std::string& name = "file") {
  const TornWrites found = TornWriteTrial(std::move(save), name).Kill(Kills);
  EXPECT_EQ(found.Torn, 0);
  EXPECT_LE(found.MostOthers, 1);
  EXPECT_EQ(found.OthersLeft, 0);
  // Else the kills came before the writing, or long after it.
  EXPECT_GT(found.Old, Kills / 50);
  EXPECT_GT(found.New, Kills / 50);
  return found;
}

}  // namespace koprax
