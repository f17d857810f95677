#include "files/card_format.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>
#include <string>
#include <vector>

#include "files/reader_test.h"

namespace koprax {
namespace {

/// One line of three reflections, each with its d, intensity 10 and the indices 1 -2 3; "" for a blank one.
std::string ReflectionLine(const std::array<std::string, 3>& spacings, int number, const char* tag = "I") {
  std::string line;
  for (const std::string& d : spacings) {
    std::array<char, 32> field{};
    const char* pattern = d.empty() ? "%20s   " : "%7.7s 107  1 -2  377 ";  // 7 where nothing is read
    std::snprintf(field.data(), field.size(), pattern, d.c_str());
    line += field.data();
  }
  const std::string digits = std::to_string(number % 100);
  return line + (digits.size() < 2 ? " " : "") + digits + "        " + tag + "\r\n";
}

std::string Header() {
  return "   4.9134   4.9134   5.4052   90.00   90.00  120.00 rest\r\nI\r\n P 32 2 1 rest\r\n\r\n" +
         std::string(79, ' ') + "F\r\n\"Quartz\"\r\n" + ReflectionLine({"1", "1", "1"}, 1) +
         std::string(79, ' ') + "F\r\nnot yet\r\n";
}

class CardFormat : public ReaderTest {
 protected:
  Reader At(float wavelength) {
    return [this, wavelength](Workspace& data, int slot, const TellUser& tell) {
      return ReadAid(data, slot, tell, [this, wavelength] {
        ++Asked;
        return wavelength;
      });
    };
  }
  /// 2-theta in degrees by Bragg's law.
  static double Bragg(double d, double wavelength) {
    return 2 * std::asin(wavelength / (2 * d)) * 180 / std::numbers::pi;
  }
  void ExpectWavelengthRefused(float wavelength) {
    ExpectFailure(At(wavelength), Header() + ReflectionLine({"2", "", ""}, 1), {"above 0", "1.54184"});
    EXPECT_EQ(Buffer().Wavelength, 0);
  }

  int Asked = 0;
};

TEST_F(CardFormat, ReflectionsStandWhereBraggsLawPutsThem) {
  const std::vector<std::string> spacings{"4.2570", "3.3420", "2.4570", "2.2820",
                                          "1.5418", "0.8116", "0.7800"};
  Buffer().CardD[8] = Buffer().CardL[500] = stale;
  Load(At(1.54184F),
       Header() + ReflectionLine({spacings[0], spacings[1], spacings[2]}, 1) +
           ReflectionLine({spacings[3], spacings[4], spacings[5]}, 2, " ") +
           ReflectionLine({spacings[6], "", ""}, 3) + ReflectionLine({"0.7710", "", ""}, 5),
       true);
  EXPECT_EQ(Buffer().FormatCode, 7);
  EXPECT_EQ(Title(), " Quartz");
  EXPECT_EQ(Buffer().CardSpaceGroup, "P 32 2 1");
  EXPECT_EQ(Buffer().CardCell, (std::array<float, 7>{0, 4.9134F, 4.9134F, 5.4052F, 90, 90, 120}));
  EXPECT_EQ(Buffer().Wavelength, 1.54184F);
  EXPECT_EQ(Buffer().XStep, 0);
  ASSERT_EQ(Buffer().PermNpts, 7);
  for (std::size_t i = 1; i <= 7; ++i) {
    const std::array<float, 5> card{Buffer().CardD[i], Buffer().PermY[i], Buffer().CardH[i],
                                    Buffer().CardK[i], Buffer().CardL[i]};
    EXPECT_EQ(card, (std::array<float, 5>{std::stof(spacings[i - 1]), 10, 1, -2, 3})) << i;
    // Sine, tangent and angle are each rounded to 24 bits. That of the sine moves 2-theta by up to
    // 2 tan(theta) 2^-24 rad, 5E-5 degrees for the last of these, at 162.5; the others by 1E-5 each.
    EXPECT_NEAR(Buffer().PermX[i], Bragg(Buffer().CardD[i], Buffer().Wavelength), 1e-4) << i;
  }
  // The same steps, each rounded to 32 bits by another program; rounded only once they end on other floats.
  EXPECT_EQ((std::vector<float>{X(2), X(4), X(5)}),
            (std::vector<float>{26.6737766F, 39.4890137F, 60.001709F}));
  EXPECT_EQ(Buffer().FileXMin, X(1));
  EXPECT_EQ(Buffer().FileXMax, X(7));
  EXPECT_EQ(Buffer().PermYMin, 0);  // of the blank ones
  EXPECT_EQ(Buffer().PermYMax, 10);
  EXPECT_EQ(Buffer().CardD[8], 0);
  EXPECT_EQ(Buffer().CardL[500], 0);
}

TEST_F(CardFormat, ColumnsAreCountedInCharacters) {
  std::string line = ReflectionLine({"2.5", "1.5", "1.25"}, 1);
  line[10] = '\xC5';
  Load(At(1), Header() + line, true);
  EXPECT_EQ(Buffer().PermNpts, 3);
  EXPECT_EQ(Buffer().CardD[3], 1.25F);
  EXPECT_EQ(Buffer().CardK[1], -2);
}

TEST_F(CardFormat, WhatTheWavelengthCannotReachIsLeftOut) {
  const std::string card = Header() + ReflectionLine({"2", "0.7", "1"}, 1);
  const std::vector<std::string> warning{
      "A value of \"d\" incompatible with the given wave length has been found.\r\n"
      "All successive diffraction peaks will be ignored."};
  Load(At(1.54184F), card, true);
  EXPECT_EQ(Told, warning);
  EXPECT_EQ(Buffer().PermNpts, 1);
  EXPECT_EQ(Buffer().FileXMax, X(1));
  EXPECT_EQ(Buffer().CardD[3], 1);
  Load(At(4), card, true);  // the sine of the first one is 1
  EXPECT_EQ(Told, warning);
  EXPECT_FLOAT_EQ(X(1), 180);
  Load(At(5), card, true);
  EXPECT_EQ(Told, warning);
  EXPECT_EQ(Buffer().PermNpts, 0);
  EXPECT_EQ(Buffer().FileXMax, X(0));
  EXPECT_EQ(Buffer().FileXMin, X(1));  // of the reading before
  Read(
      [&](Workspace& data, int slot, const TellUser&) {
        const auto icon = [](const Message& message) {
          EXPECT_EQ(message.Title, "Warning");
          EXPECT_EQ(message.Icon, MessageIcon::None);
        };
        return ReadAid(data, slot, icon, [] { return 4.1F; });
      },
      card);
}

TEST_F(CardFormat, IntensitiesBeyondTheStartOfTheLimitsAreNone) {
  std::string line = ReflectionLine({"2", "2", "2"}, 1);
  for (const std::size_t at : {7U, 30U, 53U}) line.replace(at, 3, "2E4");
  Load(At(1), Header() + line, true);
  EXPECT_EQ(Buffer().PermYMin, 10000);
  EXPECT_EQ(Buffer().PermYMax, 20000);
  for (const std::size_t at : {7U, 30U, 53U}) line.replace(at, 3, "-9E");
  Load(At(1), Header() + line, true);
  EXPECT_EQ(Buffer().PermYMax, -9);
}

TEST_F(CardFormat, TakesNoMoreThan500Reflections) {
  std::string lines;
  for (int r = 1; r <= 166; ++r) lines += ReflectionLine({"2", "2", "2"}, r);
  // Line 168 is blank but for its number, so only the list before it counts.
  Load(At(1), Header() + lines + ReflectionLine({"2", "2", ""}, 167) + ReflectionLine({"", "", ""}, 168),
       true);
  EXPECT_EQ(Buffer().PermNpts, 500);
  EXPECT_EQ(Buffer().CardD[500], 2);
  std::string blank = lines;
  blank.replace(99 * (lines.size() / 166) + 69, 2, "  ");  // line 100, whose number is " 0"
  Load(At(1), Header() + blank, true);
  EXPECT_EQ(Buffer().PermNpts, 297);
  Asked = 0;
  ExpectFailure(At(1), Header() + lines + ReflectionLine({"2", "2", "2"}, 167), {"line 176", "500"});
  EXPECT_EQ(Asked, 0);
}

TEST_F(CardFormat, TellsWhatIsWrong) {
  const auto card = [](const std::string& lines) { return Header() + lines; };
  ExpectFailure(At(1), "1 1 1\r\n", {"too early", "\"F\"", "80"});
  ExpectFailure(At(1), Header(), {"too early", "\"I\"", "80"});
  ExpectFailure(At(1), "1E39\r\n", {"line 1", "cell", "range"});
  ExpectFailure(At(1), card(ReflectionLine({"2", "", ""}, 2)), {"line 10", "running number 1"});
  ExpectFailure(At(1), card(ReflectionLine({"", "", ""}, 1)), {"line 10", "expected a reflection"});
  ExpectFailure(At(1), card(ReflectionLine({"2", "", "1"}, 1)), {"line 10", "reflection 2"});
  ExpectFailure(At(1), card(ReflectionLine({"2", "2", "2"}, 1) + ReflectionLine({"-1", "", ""}, 2)),
                {"line 11", "reflection 4"});
  ExpectFailure(At(1), card(ReflectionLine({"1E39", "", ""}, 1)), {"line 10", "range"});
  EXPECT_EQ(Asked, 0);
  for (const float wavelength : {0.0F, -1.0F, std::numeric_limits<float>::infinity()}) {
    ExpectWavelengthRefused(wavelength);
  }
}

}  // namespace
}  // namespace koprax
