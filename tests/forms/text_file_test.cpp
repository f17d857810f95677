#include "forms/text_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "file_text.h"
#include "forms/fixed_text.h"
#include "forms/text_encoding.h"

namespace koprax {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

/// A folder of the test's own, gone at its end.
class TextFileTest : public testing::Test {
 protected:
  TextFileTest() : folder_(fs::temp_directory_path() / ("text_file_test_" + std::to_string(::getpid()))) {
    fs::create_directories(folder_);
  }
  ~TextFileTest() override { fs::remove_all(folder_); }

  [[nodiscard]] std::string Path(const std::string& name) const { return (folder_ / name).string(); }
  [[nodiscard]] std::string Put(const std::string& name, const std::string& bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return Path(name);
  }
  [[nodiscard]] std::size_t FilesInFolder() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
  }

  fs::path folder_;
};

std::vector<std::string> Lines(const std::string& text) {
  LineReader reader(text);
  std::vector<std::string> lines;
  while (!reader.AtEnd()) lines.emplace_back(reader.NextLine());
  EXPECT_EQ(reader.LineNumber(), static_cast<int>(lines.size()));
  return lines;
}

TEST(LineReader, EndsLinesAtLineFeedsWithAllReturnsBeforeThem) {
  using List = std::vector<std::string>;
  EXPECT_EQ(Lines(""), List{});
  EXPECT_EQ(Lines("a\r\nb\nc"), (List{"a", "b", "c"}));
  EXPECT_EQ(Lines("a\r\n"), (List{"a"}));
  EXPECT_EQ(Lines("\n\r\n\n"), (List{"", "", ""}));
  EXPECT_EQ(Lines("a\r\r\r\nb\rc\r"), (List{"a", "b\rc"}));
  EXPECT_EQ(Lines("x\0y\n\0"s), (List{"x\0y"s, "\0"s}));
  EXPECT_EQ(Lines(std::string(1 << 20, 'z') + "\n1"), (List{std::string(1 << 20, 'z'), "1"}));
}

TEST(LineReader, ReadsFreeFormatNumbersAcrossLinesAndGoesOnBehindTheirEnd) {
  LineReader reader("title\r\n\r\n  100 \r\n10,20.5 , 0.02   \r\nfirst\r\n7 second\r\n8,\r\nlast");
  std::string read;  // with the number of the line that it ended on
  for (const char what : std::string("lnnnnlnlnll")) {
    const auto next = what == 'l' ? std::optional(reader.NextLine()) : reader.NextNumber();
    read.append(next.value_or("none")).append("@").append(std::to_string(reader.LineNumber())).append(" ");
  }
  // Behind the comma of line 7 stands an empty rest.
  EXPECT_EQ(read, "title@1 100@3 10@4 20.5@4 0.02@4 first@5 7@6 second@6 8@7 @7 last@8 ");
  EXPECT_EQ(reader.NextNumber(), std::nullopt);
}

TEST(LineReader, GivesAnEmptyNumberForACommaAlone) {
  LineReader reader("1,,3\n \n \n");
  EXPECT_EQ(reader.NextNumber(), "1");
  EXPECT_EQ(reader.NextNumber(), "");
  EXPECT_EQ(reader.NextNumber(), "3");
  EXPECT_EQ(reader.NextNumber(), std::nullopt);
  EXPECT_TRUE(reader.AtEnd());
}

// ---- Encodings -------------------------------------------------------------------------------------

/// A code point written by the definition of UTF-8 in the given number of bytes, overlong ones too.
std::string EncodedByDefinition(std::uint32_t point, int length) {
  if (length == 1) return std::string(1, static_cast<char>(point));
  std::string bytes;
  for (int i = 1; i < length; ++i) {
    bytes.insert(bytes.begin(), static_cast<char>(0x80U | (point & 0x3FU)));
    point >>= 6U;
  }
  const std::uint32_t lead = (0xF00U >> static_cast<unsigned>(length)) & 0xFFU;
  bytes.insert(bytes.begin(), static_cast<char>(lead | point));
  return bytes;
}

TEST(TextEncoding, AcceptsEachCodePointInItsShortestFormOnly) {
  for (std::uint32_t point = 0; point < 0x200000; ++point) {
    const int shortest = point < 0x80 ? 1 : point < 0x800 ? 2 : point < 0x10000 ? 3 : 4;
    const bool exists = point <= 0x10FFFF && (point < 0xD800 || point > 0xDFFF);
    for (int length = shortest; length <= 4; ++length) {
      const std::string text = "a" + EncodedByDefinition(point, length) + "b";
      ASSERT_EQ(IsUtf8(text), exists && length == shortest) << point << " in " << length;
    }
  }
  for (const char* broken : {"\x80", "1234567\xC3", "\xE2\x82", "\xC3(", "\xF0\x9F\x98", "\xFF"}) {
    EXPECT_FALSE(IsUtf8(broken));
  }
}

TEST(TextEncoding, CarriesLatin1ThereAndBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_FALSE(IsUtf8(all));
  EXPECT_TRUE(IsUtf8(Latin1ToUtf8(all)));
  EXPECT_EQ(Utf8ToLatin1(Latin1ToUtf8(all)), all);
  EXPECT_EQ(Utf8ToLatin1("\xC3\x85 \xE2\x82\xAC \xF0\x9F\x98\x80 \xC4\x80"), "\xC5 ? ? ?");
}

TEST(FixedText, CountsCharactersNotBytes) {
  const std::string text = "2\xCE\xB8 \xC3\x85";  // four characters in six bytes
  EXPECT_EQ(CharacterCount(text), 4U);
  EXPECT_EQ(FirstCharacters(text, 2), "2\xCE\xB8");
  EXPECT_EQ(FirstCharacters(text, 9), text);
  EXPECT_EQ(FixedField(text, 6), text + "  ");
  EXPECT_EQ(FixedField(text, 3), "2\xCE\xB8 ");
  EXPECT_EQ(RightTrimmed(" a  "), " a");
  EXPECT_EQ(RightTrimmed("   "), "");
}

// ---- Whole files -----------------------------------------------------------------------------------

TEST_F(TextFileTest, ReadsUtf8OrElseLatin1) {
  const auto read = [&](const std::string& bytes) { return ReadTextFile(Put("text", bytes)); };
  const auto marked = read("\xEF\xBB\xBF\xC3\x85\r\n");
  EXPECT_EQ(std::get<TextFile>(marked).Contents(), "\xC3\x85\r\n");
  EXPECT_EQ(std::get<TextFile>(marked).Encoding(), TextEncoding::Utf8);
  EXPECT_EQ(std::get<TextFile>(read("\xEF\xBB\xBF\xEF\xBB\xBFt")).Contents(), "t");
  const auto latin = read("1.54 \xC5\r\n");
  EXPECT_EQ(std::get<TextFile>(latin).Contents(), "1.54 \xC3\x85\r\n");
  EXPECT_EQ(std::get<TextFile>(latin).Encoding(), TextEncoding::Latin1);
  const std::string large(300000, '\0');
  EXPECT_EQ(std::get<TextFile>(read(large)).Contents(), large);
  EXPECT_EQ(std::get<TextFile>(read("")).Contents(), "");
}

TEST_F(TextFileTest, TellsWhyAFileCannotBeRead) {
  const auto reason = [](const std::string& path) {
    const auto read = ReadTextFile(path);
    return std::holds_alternative<FileError>(read) ? std::get<FileError>(read).Reason : "read";
  };
  EXPECT_EQ(reason(Path("nowhere")), std::strerror(ENOENT));
  EXPECT_EQ(reason(folder_.string()), std::strerror(EISDIR));
  EXPECT_EQ(reason(""), std::strerror(ENOENT));
  EXPECT_EQ(reason(Put("file", "x") + "/below"), std::strerror(ENOTDIR));
  EXPECT_EQ(reason("/dev/zero"), std::strerror(EFBIG));
  EXPECT_EQ(reason(Path("file") + "\0hidden"s), std::strerror(EINVAL));
  // A pipe that nobody writes to reads as empty instead of waiting for ever.
  ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(reason(Path("pipe")), "read");
}

TEST_F(TextFileTest, WritesLinesThatReadBackInBothEncodings) {
  const std::vector<std::string> lines{"\xC3\x85ngstr\xC3\xB6m", "", "1 2"};
  EXPECT_FALSE(WriteTextFile(Path("utf8"), lines, TextEncoding::Utf8));
  EXPECT_EQ(BytesOf(Path("utf8")), "\xC3\x85ngstr\xC3\xB6m\r\n\r\n1 2\r\n");
  EXPECT_FALSE(WriteTextFile(Path("latin1"), lines, TextEncoding::Latin1));
  EXPECT_EQ(BytesOf(Path("latin1")), "\xC5ngstr\xF6m\r\n\r\n1 2\r\n");
  for (const char* name : {"utf8", "latin1"}) {
    const auto read = ReadTextFile(Path(name));
    EXPECT_EQ(Lines(std::string(std::get<TextFile>(read).Contents())), lines);
  }
}

TEST_F(TextFileTest, KeepsRightsAndFollowsLinks) {
  const std::string target = Put("target", "old");
  fs::permissions(target, fs::perms{0640});
  fs::create_directory(Path("links"));
  fs::create_symlink("../target", Path("links/link"));
  fs::create_symlink("not yet there", Path("dangling"));
  EXPECT_FALSE(WriteTextFile(Path("links/link"), {"new"}, TextEncoding::Utf8));
  EXPECT_EQ(BytesOf(target), "new\r\n");
  EXPECT_TRUE(fs::is_symlink(Path("links/link")));
  EXPECT_EQ(fs::status(target).permissions(), fs::perms{0640});
  EXPECT_FALSE(WriteTextFile(Path("dangling"), {"here"}, TextEncoding::Utf8));
  EXPECT_EQ(BytesOf(Path("not yet there")), "here\r\n");
  EXPECT_TRUE(fs::is_symlink(Path("dangling")));
}

TEST_F(TextFileTest, LeavesNothingBehindWhenWritingFails) {
  const auto reason = [](const std::string& path) {
    const auto error = WriteTextFile(path, {"line"}, TextEncoding::Utf8);
    return error ? error->Reason : "written";
  };
  fs::create_directory(Path("folder"));
  EXPECT_EQ(reason(Path("folder")), std::strerror(EISDIR));
  EXPECT_EQ(reason(Path("nowhere/file")), std::strerror(ENOENT));
  EXPECT_EQ(reason(Path("new/")), std::strerror(EISDIR));
  EXPECT_EQ(reason(""), std::strerror(ENOENT));
  EXPECT_EQ(reason("/dev/full"), std::strerror(ENOSPC));
  EXPECT_EQ(reason("/dev/null"), "written");
  fs::create_symlink("circle", Path("circle"));
  EXPECT_EQ(reason(Path("circle")), std::strerror(ELOOP));
  EXPECT_EQ(FilesInFolder(), 2U);  // the folder and the circle
}

TEST_F(TextFileTest, RemovesTemporaryFilesThatNobodyWrites) {
  const std::string written = Put(".koprax-" + std::to_string(::getpid()) + "-0.tmp", "half a file");
  const std::string others = Put(".koprax-notes.tmp", "of the user");
  const int lock = ::open(written.c_str(), O_RDONLY);
  ASSERT_EQ(::flock(lock, LOCK_EX), 0);
  for (const NewFile way : {NewFile::Nameless, NewFile::Named}) {
    const std::string left = Put(".koprax-1-12.tmp", "half a file");
    EXPECT_FALSE(WriteWholeFile(Path("file"), "whole", way));
    EXPECT_EQ(BytesOf(Path("file")), "whole");
    EXPECT_FALSE(fs::exists(left));
    EXPECT_EQ(FilesInFolder(), 3U);
  }
  ::close(lock);
  EXPECT_FALSE(WriteTextFile(Path("file"), {"again"}, TextEncoding::Utf8));
  EXPECT_EQ(BytesOf(others), "of the user");
  EXPECT_EQ(FilesInFolder(), 2U);
}

/// The rights of an ordinary user, for a test that runs as one who has all.
class OrdinaryUser {
 public:
  OrdinaryUser() {
    if (before_ == 0) changed_ = ::seteuid(65534) == 0;
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  ~OrdinaryUser() { EXPECT_EQ(changed_ ? ::seteuid(before_) : 0, 0); }

 private:
  uid_t before_ = ::geteuid();
  bool changed_ = false;
};

TEST_F(TextFileTest, LeavesAProtectedFileAsItWas) {
  const std::string path = Put("protected", "old");
  fs::permissions(path, fs::perms{0444});
  fs::permissions(folder_, fs::perms{0777});
  {
    const OrdinaryUser user;
    const auto error = WriteTextFile(path, {"new"}, TextEncoding::Utf8);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Reason, std::strerror(EACCES));
  }
  EXPECT_EQ(BytesOf(path), "old");
  EXPECT_EQ(FilesInFolder(), 1U);
}

}  // namespace
}  // namespace koprax
