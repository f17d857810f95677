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

/// A script with the paths of its sample profiles made whole.
std::string ReadScript(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string script{std::istreambuf_iterator<char>(file), {}};
  const std::string samples = "\"examples/";
  const std::string whole = "\"" KOPRAX_SOURCE_DIR "/examples/";
  for (auto at = script.find(samples); at != std::string::npos;
       at = script.find(samples, at + whole.size())) {
    script.replace(at, samples.size(), whole);
  }
  return script;
}

TEST(ScriptExamples, EachPlaysWithoutAFault) {
  int scripts = 0;
  for (const auto& entry : std::filesystem::directory_iterator(KOPRAX_SOURCE_DIR "/examples")) {
    if (entry.path().extension() == ".kop") {
      SCOPED_TRACE(entry.path());
      WorkbenchSession session;
      const std::vector<Json> answers = session.Play(ReadScript(entry.path()));
      ASSERT_FALSE(answers.empty());
      EXPECT_EQ(answers.back()["events"].back()["event"], "quit");
      ++scripts;
    }
  }
  EXPECT_GT(scripts, 0);
}

}  // namespace
}  // namespace koprax
