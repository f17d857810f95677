// What a writer wrote reads back through its reader: the law that the fuzz targets hold the formats to, on
// the files that are kept for them. A file that breaks it ends the program with words.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "fuzz/profile_formats.h"

namespace koprax {
namespace {

struct KeptFiles {
  const char* Folder;
  const ProfileFormat& Format;
};

constexpr std::array Kept{KeptFiles{"read_ital_dat", formats::ItalDat},
                          KeptFiles{"read_one_column", formats::OneColumn},
                          KeptFiles{"read_two_columns", formats::TwoColumns},
                          KeptFiles{"read_adf", formats::Channels},
                          KeptFiles{"read_udf", formats::Philips},
                          KeptFiles{"read_uxd", formats::Siemens}};

class SaveRoundTrip : public testing::TestWithParam<KeptFiles> {};

TEST_P(SaveRoundTrip, GivesTheSameProfileAndTheSameBytes) {
  ProfileLaw law(GetParam().Format);
  int files = 0;
  const auto folder = std::filesystem::path(KOPRAX_SOURCE_DIR "/fuzz/corpus") / GetParam().Folder;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    SCOPED_TRACE(entry.path());
    std::ifstream file(entry.path(), std::ios::binary);
    law.Check(std::string{std::istreambuf_iterator<char>(file), {}});
    ++files;
  }
  EXPECT_GT(files, 10);
}

INSTANTIATE_TEST_SUITE_P(Kept, SaveRoundTrip, testing::ValuesIn(Kept),
                         [](const auto& test) { return std::string(test.param.Folder); });

}  // namespace
}  // namespace koprax
