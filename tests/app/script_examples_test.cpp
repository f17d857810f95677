// The scripts that come with the program play to their end without a fault.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "app/workbench_session.h"

namespace koprax {
namespace {

/// Puts another folder in the place of the one that all paths of a kind start with.
void ReplaceFolder(std::string& script, const std::string& folder, const std::string& other) {
  const std::string start = "\"" + folder + "/";
  const std::string whole = "\"" + other + "/";
  for (auto at = script.find(start); at != std::string::npos; at = script.find(start, at + whole.size())) {
    script.replace(at, start.size(), whole);
  }
}

/// A script with the paths of its sample profiles made whole, and what it writes in a folder of the test's
/// own.
std::string ReadScript(const std::filesystem::path& path, const std::string& output) {
  std::ifstream file(path, std::ios::binary);
  std::string script{std::istreambuf_iterator<char>(file), {}};
  ReplaceFolder(script, "examples", KOPRAX_SOURCE_DIR "/examples");
  ReplaceFolder(script, "output", output);
  return script;
}

TEST(ScriptExamples, EachPlaysWithoutAFault) {
  int scripts = 0;
  for (const auto& entry : std::filesystem::directory_iterator(KOPRAX_SOURCE_DIR "/examples")) {
    if (entry.path().extension() == ".kop") {
      SCOPED_TRACE(entry.path());
      WorkbenchSession session;
      const std::vector<Json> answers = session.Play(ReadScript(entry.path(), session.Folder()));
      ASSERT_FALSE(answers.empty());
      EXPECT_EQ(answers.back()["events"].back()["event"], "quit");
      ++scripts;
    }
  }
  EXPECT_GT(scripts, 0);
}

}  // namespace
}  // namespace koprax
