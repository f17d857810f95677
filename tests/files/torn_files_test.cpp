// Processes that are killed while they save leave the old file or the new one, whole, and no files beside it.
#include <functional>
#include <string>
#include <vector>

#include "files/calibration_file.h"
#include "files/file_writing.h"
#include "files/peak_list_file.h"
#include "files/profile_writers.h"
#include "forms/fixed_text.h"
#include "forms/whole_file.h"
#include "torn_writes.h"

namespace koprax {
namespace {

/// Long enough for several writes.
std::string LongText(bool other) { return std::string(100000, other ? '2' : '1'); }

TEST(TornFile, WholeFilesAreWrittenUnderNoNameOrATemporaryOne) {
  const auto writer = [](NewFile way) {
    return [way](const std::string& path, bool other) { return !WriteWholeFile(path, LongText(other), way); };
  };
  ExpectNoTornFile(writer(NewFile::Nameless));
  const TornWrites named = ExpectNoTornFile(writer(NewFile::Named));
  EXPECT_GT(named.WithOthers, Kills / 50);  // else no kill fell into the writing
}

TEST(TornFile, OtherWaysToWriteAreFoundOut) {
  const TornWrites in_place =
      TornWriteTrial(
          [](const std::string& path, bool other) { return (std::ofstream(path) << LongText(other)).good(); },
          "file")
          .Kill(Kills);
  EXPECT_GT(in_place.Torn, 0);
  const TornWrites renamed = TornWriteTrial(
                                 [](const std::string& path, bool other) {
                                   const std::string temporary = path + std::to_string(::getpid());
                                   std::ofstream(temporary) << LongText(other);
                                   return ::rename(temporary.c_str(), path.c_str()) == 0;
                                 },
                                 "file")
                                 .Kill(Kills);
  EXPECT_EQ(renamed.Torn, 0);
  EXPECT_GT(renamed.MostOthers, 1);
  EXPECT_GT(renamed.OthersLeft, 0);
}

struct Writer {
  std::string Name;
  std::function<std::optional<Message>(Workspace&)> Save;  ///< the permanent copy of buffer a to FileName
};

const std::vector<Writer> Writers{
    {"ItalDat", SaveItalDat},
    {"OneColumn", SaveOneColumn},
    {"TwoColumns", [](Workspace& data) { return SaveTwoColumns(data, {}); }},
    {"Channels", SaveAdf},
    {"Philips", SaveUdf},
    {"Siemens", SaveUxd},
    {"SortedPeaks",
     [](Workspace& data) {
       return WriteLines(data.FileName, SortedPeakLines(data.Buffer(1)), TextEncoding::Utf8);
     }},
    {"HeldPeaks",
     [](Workspace& data) {
       return WriteLines(data.FileName, HeldPeakLines(data.Buffer(1)), TextEncoding::Utf8);
     }},
    {"Calibration",
     [](Workspace& data) {
       const std::vector<float> coefficients{data.Buffer(1).PermY[1], 0.02F};
       return WriteLines(data.FileName, CalibrationLines("Silicon", coefficients), TextEncoding::Utf8);
     }},
};

/// A profile with a peak list that each of the writers can save.
void MakeProfile(ProfileBuffer& buffer) {
  buffer.Title = FixedField("_SAMPLE='Quartz'", TitleWidth);
  buffer.XStep = 0.02F;
  buffer.Wavelength = 1.5406F;
  buffer.PermNpts = buffer.WorkNpts = 500;
  for (std::size_t i = 1; i <= 500; ++i) {
    buffer.PermX[i] = static_cast<float>(10 + 0.02 * static_cast<double>(i));
    buffer.PermY[i] = buffer.WorkY[i] = static_cast<float>(100 + i % 900);
  }
  buffer.PermXMin = buffer.PermX[1];
  buffer.PermXMax = buffer.PermX[500];
  buffer.UdfHeader[1] = "RawScan";
  buffer.UxdHeader[1] = "_SAMPLE=";
  buffer.UxdHeader[2] = "_2THETACOUNTS";
  buffer.UxdHeaderLines = 2;
  buffer.NPeaks = 1;
  buffer.PeakTheta[1] = "26.640";
  buffer.PeakD[1] = "3.3434";
}

class TornFiles : public testing::TestWithParam<Writer> {};

TEST_P(TornFiles, AWriterLeavesTheOldFileOrTheNewOne) {
  Workspace data;
  MakeProfile(data.Buffer(1));
  data.CurBuf = 1;
  const auto save = [&](const std::string& path, bool other) {
    data.FileName = path;
    ProfileBuffer& buffer = data.Buffer(1);
    buffer.PermY[1] = buffer.WorkY[1] = other ? 101.0F : 102.0F;
    buffer.PeakY[1] = other ? "101" : "102";
    return !GetParam().Save(data);
  };
  ExpectNoTornFile(save);
}

INSTANTIATE_TEST_SUITE_P(Each, TornFiles, testing::ValuesIn(Writers),
                         [](const auto& of) { return of.param.Name; });

}  // namespace
}  // namespace koprax
