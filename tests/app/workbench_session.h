// A workbench played by scripts, bit by bit, for tests of whole journeys.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "app/script_player.h"
#include "app/workbench.h"
#include "forms/memory_platform.h"
#include "forms/scripted_runtime.h"
#include "workspace/services.h"

namespace koprax {

class WorkbenchSession {
 public:
  WorkbenchSession() {
    // Tests run side by side, and the address alone may be the same in all of their processes.
    folder_ =
        std::filesystem::temp_directory_path() / ("koprax-session-" + std::to_string(::getpid()) + "-" +
                                                  std::to_string(reinterpret_cast<std::uintptr_t>(this)));
    std::filesystem::create_directories(folder_);
    platform_.Settings["MyApp/General/DontShow"] = "1";
  }
  WorkbenchSession(const WorkbenchSession&) = delete;
  WorkbenchSession& operator=(const WorkbenchSession&) = delete;
  ~WorkbenchSession() { std::filesystem::remove_all(folder_); }

  /// Plays commands, each of which must be carried out, and returns their answers.
  std::vector<Json> Play(const std::string& script) {
    std::vector<Json> answers = Try(script);
    for (const Json& answer : answers) {
      EXPECT_TRUE(answer["ok"].get<bool>()) << answer.dump();
    }
    return answers;
  }

  /// Plays commands that may fail.
  std::vector<Json> Try(const std::string& script) {
    std::istringstream commands(script);
    std::ostringstream output;
    ScriptPlayer player({.Desk = bench_.Desk(),
                         .Data = bench_.Data(),
                         .FormNames = Workbench::FormNames(),
                         .Runtime = runtime_,
                         .Host = platform_},
                        output);
    (void)player.Play([this] { Start(); }, commands);
    std::vector<Json> answers;
    std::istringstream lines(output.str());
    for (std::string line; std::getline(lines, line);) {
      answers.push_back(Json::parse(line));
    }
    if (!answers.front().value("events", Json::array()).empty()) Started = answers.front()["events"];
    answers.erase(answers.begin());
    return answers;
  }

  /// The value that one command answers with.
  Json Value(const std::string& command) { return Play(command + "\n").at(0)["value"]; }
  /// The events of the last command of a script.
  Json Events(const std::string& script) { return Play(script).back().value("events", Json::array()); }
  /// The error of a command that can't be carried out.
  std::string Refusal(const std::string& command) { return Try(command + "\n").at(0).value("error", ""); }

  /// Writes a file into the session's own folder and returns its path.
  std::string File(const std::string& name, const std::string& contents) {
    const auto path = folder_ / name;
    std::ofstream(path, std::ios::binary) << contents;
    return path.string();
  }
  [[nodiscard]] std::string Folder() const { return folder_.string(); }

  /// The commands that load a file in a format (1 to 7) into a buffer ("a" to "f").
  static std::string LoadCommands(const std::string& path, int format, char letter) {
    return "file " + Json(path).dump() + "\nclick Form1.cmdInp\nclick Form4.cmdOK\nclick Form7.Option" +
           std::to_string(format) + "\nclick Form10.opt" + static_cast<char>(letter - 'a' + 'A') + "\n";
  }

  Json Started = Json::array();  ///< the events of the start

  Workspace& Data() { return bench_.Data(); }
  Desktop& Desk() { return bench_.Desk(); }
  MemoryPlatform& Platform() { return platform_; }

 private:
  void Start() {
    if (!started_) {
      started_ = true;
      bench_.Start();
    }
  }

  std::filesystem::path folder_;
  MemoryPlatform platform_;
  ScriptedRuntime runtime_{platform_};
  Workbench bench_{runtime_};
  bool started_ = false;
};

/// The services that windows ask for, for a window that is loaded by itself: nothing comes of them.
class SilentServices : public MainServices,
                       public FileServices,
                       public DisplayServices,
                       public CardServices,
                       public ManipulationServices,
                       public FitServices,
                       public CalibrationServices,
                       public CellServices {
 public:
  explicit SilentServices(WorkbenchSession& session)
      : Context{session.Desk(), session.Data(), *this, *this, *this, *this, *this, *this, *this, *this} {}

  void ShowMainMenu() override {}
  void BringMainMenuToFront() override {}
  void ShowHelp(HelpTopic topic) override { Helped = topic; }
  void OpenProfilePicker() override {}
  std::optional<std::string> AskForFile(const FileDialogRequest& /*request*/) override { return {}; }
  void StartLoad() override {}
  bool ShowBuffer(int /*slot*/, bool /*for_display*/) override { return false; }
  void GiveUpEarlierFile() override {}
  void StartSave() override {}
  void GiveUpTitle() override { ++TitlesGivenUp; }
  void GiveUpAnswers() override { ++TitlesGivenUp; }
  bool OpenDisplayWindow(int /*slot*/) override { return false; }
  void ShowSeveralProfiles() override {}
  void OpenCardWindow() override {}
  bool OpenManipulationWindow(int /*slot*/) override { return false; }
  void PutByBackground() override {}
  bool OpenFitWindow(int /*slot*/) override { return false; }
  void OpenCalibrationWindow() override {}
  void OpenCellWindow() override {}

  WindowContext Context;
  int TitlesGivenUp = 0;
  std::optional<HelpTopic> Helped;
};

/// One event as the script tool tells it.
inline Json UnloadedEvent(const std::string& form) { return {{"event", "unloaded"}, {"form", form}}; }
inline Json FrontEvent(const std::string& form) { return {{"event", "front"}, {"form", form}}; }
inline Json ShownEvent(const std::string& form) {
  return {{"event", "shown"}, {"form", form}, {"modal", false}};
}

}  // namespace koprax
