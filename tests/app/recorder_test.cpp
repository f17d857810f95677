// A session that was recorded and is played again comes to the same files, numbers and drawings, letter for
// letter and bit for bit.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "app/record_file.h"
#include "app/recording_runtime.h"
#include "app/script_player.h"
#include "app/session_recorder.h"
#include "app/workbench.h"
#include "file_text.h"
#include "files/scratch_file.h"
#include "forms/memory_platform.h"
#include "forms/scripted_runtime.h"

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

/// The texts behind `printer` in a script, in their order.
std::vector<std::string> PrintFiles(const std::string& script) {
  std::vector<std::string> files;
  std::istringstream lines(script);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("printer \"")) files.push_back(line.substr(9, line.find('"', 9) - 9));
  }
  return files;
}

/// A workbench whose user is a script, with a recorder in between.
class RecordedSession {
 public:
  explicit RecordedSession(const std::string& script) : print_files_(PrintFiles(script)) {
    platform_.Settings["MyApp/General/DontShow"] = "1";
    bench_.Desk().AddObserver(recorder_);
    std::istringstream commands(script);
    std::ostringstream answers;
    ScriptPlayer player({.Desk = bench_.Desk(),
                         .Data = bench_.Data(),
                         .FormNames = Workbench::FormNames(),
                         .Runtime = script_runtime_,
                         .Host = platform_},
                        answers);
    Status = player.Play([this] { bench_.Start(); }, commands);
    recorder_.Finish();
    Answers = answers.str();
    for (const auto& [path, operations] : platform_.Printed) Drawn[path] = JsonOfOperations(operations);
    for (const auto& [path, operations] : platform_.Pictures) Drawn[path] = JsonOfOperations(operations);
  }

  /// All that can be looked up, in the end.
  [[nodiscard]] std::vector<std::string> State() {
    std::vector<std::string> state;
    for (int slot = 1; slot <= NumBuffers; ++slot) {
      state.push_back(JsonLine(JsonOfBuffer(bench_.Data().Buffer(slot))));
    }
    for (const std::string& field : WorkspaceFieldNames()) {
      if (const auto value = JsonOfWorkspaceField(bench_.Data(), field)) state.push_back(JsonLine(*value));
    }
    for (const std::string& name : Workbench::FormNames()) {
      if (const auto form = bench_.Desk().Find(name)) state.push_back(JsonLine(JsonOfForm(*form)));
    }
    return state;
  }

  std::vector<std::string> Record;  ///< with its comments
  int Status = 0;
  std::string Answers;
  std::map<std::string, Json> Drawn;  ///< what was printed and saved as pictures

 private:
  MemoryPlatform platform_;
  ScriptedRuntime script_runtime_{platform_};
  SessionRecorder recorder_{[this](const std::vector<std::string>& lines) {
    Record.insert(Record.end(), lines.begin(), lines.end());
  }};
  std::vector<std::string> print_files_;
  std::size_t printed_ = 0;
  RecordingRuntime recording_{script_runtime_, recorder_, [this] { return print_files_.at(printed_++); },
                              "page"};
  Workbench bench_{recording_};
};

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

/// The script of a user whose mouse goes round about, and who types and takes back before he types what he
/// means.
std::string WithDetours(const std::string& script) {
  std::string longer;
  std::istringstream lines(script);
  for (std::string line; std::getline(lines, line);) {
    const bool modal = line.starts_with("modal ");
    std::istringstream words(modal ? line.substr(6) : line);
    std::string verb;
    std::string name;
    words >> verb >> name;
    std::string start = modal ? "modal " : "";
    start.append(verb).append(" ").append(name);
    std::vector<std::string> detours;
    if (verb == "move") detours = {" 60 50", " 0 0", " -50 3E4"};
    if (verb == "set") detours = {" \"1\"", " \"-x\"", " \"\""};
    for (const std::string& detour : detours) longer.append(start).append(detour).append("\n");
    longer.append(line).append("\n");
  }
  return longer;
}

std::map<std::string, std::string> FilesIn(const std::filesystem::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    files[entry.path().filename().string()] = BytesOf(entry.path());
  }
  return files;
}

void CollectForms(const std::string& answers, std::set<std::string>& forms) {
  std::istringstream lines(answers);
  for (std::string line; std::getline(lines, line);) {
    for (const Json& event : Json::parse(line).value("events", Json::array())) {
      if (event["event"] == "shown") forms.insert(event["form"].get<std::string>());
    }
  }
}

TEST(Recorder, SessionsOfEveryWindowPlayedAgainGiveTheSameFilesNumbersAndDrawings) {
  std::set<std::string> shown;
  for (const std::string folder : {"/examples", "/docs/manual"}) {
    for (const auto& entry : std::filesystem::directory_iterator(KOPRAX_SOURCE_DIR + folder)) {
      if (entry.path().extension() != ".kop") continue;
      SCOPED_TRACE(entry.path());
      const std::filesystem::path output =
          testing::TempDir() + "koprax-recorder-" + std::to_string(::getpid());

      std::filesystem::create_directory(output);
      RecordedSession first(WithDetours(ScriptIn(entry.path(), output.string())));
      EXPECT_EQ(first.Status, 0) << first.Answers;
      const auto files = FilesIn(output);
      std::filesystem::remove_all(output);
      std::filesystem::create_directory(output);
      RecordedSession again(Joined(first.Record));

      EXPECT_EQ(again.Status, 0);
      EXPECT_EQ(FilesIn(output), files);
      EXPECT_EQ(again.Drawn, first.Drawn);
      EXPECT_EQ(again.State(), first.State());
      EXPECT_EQ(again.Record, first.Record);
      std::filesystem::remove_all(output);
      CollectForms(first.Answers, shown);
    }
  }
  std::vector<std::string> all = Workbench::FormNames();
  std::erase(all, "Form9");  // carries the file dialog and is never shown
  EXPECT_THAT(shown, testing::UnorderedElementsAreArray(all));
}

TEST(Recorder, WritesAnswersInFrontOfTheActionThatAskedForThem) {
  const std::string script =
      "file \"" KOPRAX_SOURCE_DIR
      "/examples/silicon.dat\"\n"
      "click Form1.cmdInp\nclick Form4.cmdOK\nclick Form7.Option1\nclick Form10.optA\nclick Form6.cmdMain\n"
      "click Form1.cmdAnal\nclick Form10.optA\n"
      "move Form12.Picture1 20 20\nmove Form12.Picture1 0.1 33.3333\n"
      "input \"0\"\ninput cancel\nclick Form12.cmdBckg\n"
      "printer \"one.pdf\" without \"Courier\" copies 2\n"
      "modal set Form31.Combo2 \"G\"\nmodal set Form31.Combo2 \"Gr\\u00e9\"\n"
      "modal set Form31.Combo2 \"Green\"\nmodal click Form31.Command1\nclick Form12.cmdPrint\n"
      "file cancel\nclick Form1.cmdInp\nclose Form1\n";
  const RecordedSession session(script);
  EXPECT_EQ(session.Status, 0) << session.Answers;
  // The letters typed into a box and the ways of the mouse count by their last; comments tell what was asked.
  EXPECT_THAT(
      session.Record,
      ElementsAre("# The setting DontShow is \"1\".", "file \"" KOPRAX_SOURCE_DIR "/examples/silicon.dat\"",
                  "click Form1.cmdInp", "click Form4.cmdOK", "click Form7.Option1", "click Form10.optA",
                  "click Form6.cmdMain", "click Form1.cmdAnal", "click Form10.optA",
                  "move Form12.Picture1 0.1 33.3333",
                  StartsWith("# \"Background estimate\" asks: \"Give approximate FWHM"), "input \"0\"",
                  StartsWith("# \"Background estimate\" asks: "), "input cancel", "click Form12.cmdBckg",
                  StartsWith("# \"Warning\" tells: \"\\\"0\\\" gives no window of 2 to 398 points."),
                  "modal set Form31.Combo2 \"Green\"", "modal click Form31.Command1",
                  "printer \"one.pdf\" without \"Courier\" copies 2", "click Form12.cmdPrint", "file cancel",
                  "click Form1.cmdInp", "close Form1"));
}

TEST(RecordFile, LeavesAFileThatHoldsSomethingAlone) {
  const ScratchFile kept("a record of before\n", "kept_record");
  RecordFile refused;
  EXPECT_THAT(refused.Start(kept.Path()), testing::Optional(testing::HasSubstr("something")));
  EXPECT_THAT(RecordFile().Start("/nowhere/record.kop"),
              testing::Optional(testing::HasSubstr("No such file")));
  EXPECT_EQ(kept.Bytes(), "a record of before\n");

  const ScratchFile empty("", "empty_record");
  RecordFile file;
  EXPECT_EQ(file.Start(empty.Path()), std::nullopt);
  file.Append({"# one", "click Form1.cmdStop"});
  EXPECT_EQ(empty.Bytes(), "# one\nclick Form1.cmdStop\n");  // before the file is closed
}

TEST(RecordFile, TellsOnceThatItCanNoLongerBeWritten) {
  RecordFile file;
  ASSERT_EQ(file.Start("/dev/full"), std::nullopt);
  std::vector<std::string> told;
  file.OnFailure = [&](const std::string& reason) { told.push_back(reason); };
  file.Append({"click Form1.cmdInp"});
  file.Append({"click Form1.cmdOut"});
  EXPECT_THAT(told, ElementsAre("No space left on device"));
  EXPECT_TRUE(file.Failed());
}

}  // namespace
}  // namespace koprax
