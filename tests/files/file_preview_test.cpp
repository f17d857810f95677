// What the preview of a file shows, by its length.
#include "files/file_preview.h"

#include <gtest/gtest.h>

#include <string>

namespace koprax {
namespace {

std::string NumberedLines(int first, int last) {
  std::string lines;
  for (int i = first; i <= last; ++i) lines += std::to_string(i) + "\r\n";
  return lines;
}

TEST(FilePreview, ShowsTheFrontAndTheEndOfAFileFrom30LinesOn) {
  const std::string between = "etc.......\r\netc.......\r\netc.......\r\n";
  const FilePreview shorter = PreviewOf(NumberedLines(1, 29));
  EXPECT_EQ(shorter.Text, NumberedLines(1, 29));
  EXPECT_EQ(shorter.NLines, 30);
  EXPECT_EQ(shorter.PreviewLine[29], "29" + std::string(78, ' '));
  EXPECT_EQ(shorter.PreviewLine[30], std::string(80, ' '));
  const FilePreview exact = PreviewOf(NumberedLines(1, 30));
  EXPECT_EQ(exact.Text, NumberedLines(1, 30) + between + NumberedLines(21, 30));
  EXPECT_EQ(exact.NLines, 0);
  EXPECT_EQ(PreviewOf(std::string(90, 'x') + "\n" + NumberedLines(2, 45)).Text,
            std::string(80, 'x') + "\r\n" + NumberedLines(2, 30) + between + NumberedLines(36, 45));
}

TEST(FilePreview, SaysWhyAFileCannotBeRead) {
  const FilePreview preview = PreviewOfFile("/nowhere/profile.dat");
  EXPECT_TRUE(preview.Text.starts_with("The file /nowhere/profile.dat can't be read: ")) << preview.Text;
  EXPECT_EQ(preview.NLines, 1);
}

}  // namespace
}  // namespace koprax
