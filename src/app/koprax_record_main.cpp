// koprax-record: the desktop program with a record of all that its user does, as a script that koprax-script
// plays.
#include <array>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <variant>
#include <vector>

#include "app/command_line.h"
#include "app/desktop_program.h"
#include "app/record_file.h"
#include "app/recording_runtime.h"
#include "app/session_recorder.h"
#include "app/version.h"
#include "forms/text_file.h"

namespace {

using koprax::RecordFile;
using koprax::SessionRecorder;

constexpr int CannotRecord = 1;

const koprax::ProgramHelp Program{
    .Name = "koprax-record",
    .Usage = "koprax-record FILE",
    .Text =
        "Starts the desktop program and writes each of its user's actions to FILE as a\n"
        "line that koprax-script plays. FILE has to be new or empty. The exit status is 1\n"
        "when it can't be written, and 0 otherwise.\n"};

std::string Now() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S UTC", &parts);
  return text.data();
}

/// The record lies where it was started, wherever the program goes.
std::string WithoutEnding(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::absolute(path, ignored).replace_extension().string();
}

int Record(char* name, const std::string& path) {
  RecordFile file;
  if (const auto reason = file.Start(path)) {
    std::cerr << "koprax-record: " << path << ": " << *reason << '\n';
    return CannotRecord;
  }
  SessionRecorder recorder([&file](const std::vector<std::string>& lines) { file.Append(lines); });
  const auto listen = [&](koprax::Runtime& person, std::function<std::string()> print_file) {
    file.OnFailure = [&person, path](const std::string& reason) {
      person.MsgBox(koprax::ErrorMessage("The record " + path + " can't be written: " + reason +
                                         ".\r\nWhat you do from now on is not recorded."));
    };
    // Only now it is certain that there is a display to work on; till then the file is empty.
    file.Append(
        {"# A session of KOPRAX " + std::string(koprax::ProgramVersion) + ", recorded on " + Now() + ".",
         "# koprax-script plays it again."});
    return koprax::Listener{std::make_unique<koprax::RecordingRuntime>(
                                person, recorder, std::move(print_file), WithoutEnding(path) + "-page-"),
                            recorder};
  };
  const int status = koprax::RunDesktop(name, listen);
  recorder.Finish();
  if (file.Failed()) {
    std::cerr << "koprax-record: " << path << " is not complete, since it could not be written\n";
    return CannotRecord;
  }
  return status;
}

}  // namespace

int main(int argument_count, char** arguments) {
  koprax::LetRefusedWritesReturn();
  const auto call = koprax::ReadCommandLine(argument_count, arguments, Program);
  if (const int* status = std::get_if<int>(&call)) {
    return *status;
  }
  const auto& files = std::get<koprax::CommandLine>(call).Files;
  if (files.size() > 1) {
    return koprax::TellWrongCall(Program, "one FILE is wanted");
  }
  return Record(arguments[0], files.front());
}
