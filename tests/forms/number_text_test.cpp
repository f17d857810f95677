#include "forms/number_text.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <locale>
#include <random>
#include <regex>
#include <string>
#include <thread>
#include <vector>

namespace koprax {
namespace {

constexpr float infinity32 = std::numeric_limits<float>::infinity();
constexpr double infinity64 = std::numeric_limits<double>::infinity();

std::string Printed(const char* format, int precision, double value) {
  std::array<char, 1600> text{};
  const int length = std::snprintf(text.data(), text.size(), format, precision, value);
  return {text.data(), static_cast<std::size_t>(length)};
}

// ---- The general form ------------------------------------------------------------------------------

float ReadBack(const std::string& text, float /*width*/) { return std::strtof(text.c_str(), nullptr); }
double ReadBack(const std::string& text, double /*width*/) { return std::strtod(text.c_str(), nullptr); }

/// The general form by trial: the fewest digits that read back, at most the given number of them.
template <class Float>
std::string PlainGeneralText(Float value, int most_digits) {
  const auto wide = static_cast<double>(value);
  if (wide == 0) return "0";
  int digits = most_digits;
  while (digits > 1 && ReadBack(Printed("%.*e", digits - 2, wide), value) == value) --digits;
  const std::string scientific = Printed("%.*e", digits - 1, wide);
  const auto letter = scientific.find('e');
  const int exponent = std::atoi(scientific.c_str() + letter + 1);
  std::string mantissa = scientific.substr(0, letter);
  if (mantissa.find('.') != std::string::npos) {
    while (mantissa.back() == '0') mantissa.pop_back();
    if (mantissa.back() == '.') mantissa.pop_back();
  }
  const int shown = static_cast<int>(mantissa.size()) - (wide < 0 ? 1 : 0);
  const int decimals = std::max(0, (shown > 1 ? shown - 2 : 0) - exponent);
  if (exponent < most_digits && (exponent >= -4 || decimals <= most_digits)) {
    return Printed("%.*f", decimals, ReadBack(scientific, 0.0));
  }
  std::array<char, 16> power{};
  std::snprintf(power.data(), power.size(), "E%+03d", exponent);
  return mantissa + power.data();
}

/// The texts of some numbers, separated by blanks.
template <class Float>
std::string Shown(const std::vector<Float>& values) {
  std::string texts;
  for (const Float value : values) texts.append(texts.empty() ? "" : " ").append(GeneralText(value));
  return texts;
}

TEST(GeneralText, ShowsTheShortestText) {
  using Limits = std::numeric_limits<float>;
  EXPECT_EQ(Shown<float>({0, -0.0F, -3, 0.1F, 1.0F / 3, 99.999999F}), "0 0 -3 0.1 0.3333333 100");
  EXPECT_EQ(Shown<float>({1e7F, 0.00005F, 1e-8F, -1.234567e-5F}), "1E+07 0.00005 1E-08 -1.234567E-05");
  EXPECT_EQ(Shown<float>({Limits::max(), Limits::denorm_min(), infinity32, -infinity32, Limits::quiet_NaN()}),
            "3.402823E+38 1E-45 Inf -Inf NaN");
  EXPECT_EQ(Shown<double>({0.1 + 0.2, 2.9999999999999996, 999999999999999.9}), "0.3 3 1E+15");
  EXPECT_EQ(Shown<double>({1e-15, 1e-16, 5e-324, -1.7976931348623157e308}),
            "0.000000000000001 1E-16 5E-324 -1.79769313486232E+308");
}

/// Compares with the trial for every `stride`-th of all 2^32 floats; returns the first float that differs.
std::string FirstDifference(std::uint64_t start, std::uint64_t stride) {
  for (std::uint64_t bits = start; bits <= 0xFFFFFFFFU; bits += stride) {
    const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    if (!std::isfinite(value)) continue;
    const std::string plain = PlainGeneralText(value, 7);
    const std::string text = GeneralText(value);
    if (text != plain) return std::string(text).append(" instead of ").append(plain);
  }
  return {};
}

TEST(GeneralText, AgreesWithTrialOverAll32BitFloats) {
  // All of them when KOPRAX_EXHAUSTIVE is set, else every 65537th, a prime.
  const std::uint64_t step = std::getenv("KOPRAX_EXHAUSTIVE") != nullptr ? 1 : 65537;
  const std::uint64_t workers = std::max(1U, std::thread::hardware_concurrency());
  std::vector<std::string> differences(workers);
  std::vector<std::thread> threads;
  for (std::uint64_t worker = 0; worker < workers; ++worker) {
    threads.emplace_back(
        [&, worker] { differences[worker] = FirstDifference(worker * step, workers * step); });
  }
  for (std::thread& thread : threads) thread.join();
  for (const std::string& difference : differences) EXPECT_EQ(difference, "");
  // The powers of two, whose neighbours lie unevenly.
  EXPECT_EQ(FirstDifference(0, 1U << 23U), "");
}

TEST(GeneralText, AgreesWithTrialOver64BitFloats) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 20000; ++i) {
    const auto any = std::bit_cast<double>(random());
    const double usual =
        std::ldexp(static_cast<double>(random() >> 40U), static_cast<int>(random() % 60) - 50);
    if (std::isfinite(any)) {
      ASSERT_EQ(GeneralText(any), PlainGeneralText(any, 15));
    }
    ASSERT_EQ(GeneralText(usual), PlainGeneralText(usual, 15));
  }
}

TEST(FormatDigits, ShowsDigitsOnlyWhereTheValueHasThem) {
  std::string decimals;
  for (const double value : {0.3, 2.9999999999999996, 12.5, -0.0625, 100.0, -0.0001, infinity64}) {
    decimals += FormatDigits(value, 3) + " ";
  }
  EXPECT_EQ(decimals, ".3 3. 12.5 -.062 100. . Inf ");
  std::string wholes;
  for (const double value : {0.0, -0.4, 2.5, 120.0}) wholes += FormatDigits(value, 0) + ",";
  EXPECT_EQ(wholes, ",,2,120,");
  EXPECT_EQ(FormatDigits(1e300, 0).size(), 301U);
}

// ---- Rounding --------------------------------------------------------------------------------------

/// The C library prints the exact value, an exact half to the even digit.
void ExpectRoundedAsPrinted(double value, int decimals) {
  const std::string text = Printed("%.*f", decimals, value);
  ASSERT_EQ(RoundDecimals(value, decimals), std::strtod(text.c_str(), nullptr)) << text;
  const auto narrow = static_cast<float>(value);
  const std::string narrow_text = Printed("%.*f", decimals, static_cast<double>(narrow));
  ASSERT_EQ(RoundDecimals(narrow, decimals), std::strtof(narrow_text.c_str(), nullptr)) << narrow_text;
}

TEST(RoundDecimals, TakesTheExactValueOfAnySize) {
  EXPECT_EQ(RoundDecimals(0.15F, 1), 0.2F);
  EXPECT_EQ(RoundDecimals(0.15, 1), 0.1);               // 0.1499999999999999944
  EXPECT_EQ(RoundDecimals(0.49999999999999994, 0), 0);  // half added to it is 1 in 64 bits
  EXPECT_EQ(RoundDecimals(1e300, 3), 1e300);
  EXPECT_EQ(RoundDecimals(0.1, 2000), 0.1);
  EXPECT_EQ(RoundDecimals(-infinity32, 2), -infinity32);
  EXPECT_TRUE(std::isnan(RoundDecimals(std::nan(""), 2)));
}

TEST(RoundDecimals, AgreesWithPrintedDecimals) {
  std::mt19937_64 random(2);
  for (int i = 0; i < 20000; ++i) {
    const int decimals = static_cast<int>(random() % 10);
    const double sign = random() % 2 == 0 ? 1 : -1;
    // Any value, then the two neighbours of a half, then dyadic fractions, many of which are halves.
    const double any =
        std::ldexp(static_cast<double>(random() >> 11U), -33 - static_cast<int>(random() % 25));
    const double half = (static_cast<double>(random() % 100000) + 0.5) / std::pow(10.0, decimals);
    const double dyadic = static_cast<double>(random() % 65536) / static_cast<double>(1U << (random() % 12));
    for (const double value : {any, half, std::nextafter(half, 0), std::nextafter(half, 1e9), dyadic}) {
      ExpectRoundedAsPrinted(sign * value, decimals);
    }
  }
}

TEST(ToInt16, TakesHalvesToTheEvenNeighbourWithinItsRange) {
  for (int quarters = -4 * 32768; quarters <= 4 * 32767; ++quarters) {
    const int below = (quarters + 4 * 40000) / 4 - 40000;
    const int rest = quarters - 4 * below;
    const int expected = rest > 2 || (rest == 2 && below % 2 != 0) ? below + 1 : below;
    ASSERT_EQ(ToInt16(quarters / 4.0), expected) << quarters / 4.0;
  }
  EXPECT_EQ(ToInt16(32767.49), 32767);
  EXPECT_EQ(ToInt16(-32768.5), -32768);
  EXPECT_EQ(ToInt16(0.49999999999999994), 0);
  for (const double value : {32767.5, -32769.0, 1e300, infinity64, std::nan("")}) {
    EXPECT_EQ(ToInt16(value), std::nullopt) << value;
  }
}

// ---- Numbers from text -----------------------------------------------------------------------------

/// The rule as a pattern; what it accepts goes to strtod.
double PlainLeadingNumber(const std::string& text) {
  static const std::regex rule(R"( *([+-]?(?:\d+\.?\d*|\.\d+))(?:[EeDd]([+-]?\d+))?)");
  std::smatch parts;
  if (!std::regex_search(text, parts, rule, std::regex_constants::match_continuous)) return 0;
  const std::string number = parts.str(1) + "E" + (parts[2].matched ? parts.str(2) : "0");
  return std::strtod(number.c_str(), nullptr);
}

TEST(LeadingNumber, StopsAtTheFirstCharacterThatDoesNotFit) {
  const std::vector<std::pair<std::string, double>> cases{
      {"", 0}, {"abc", 0}, {"\t12", 0}, {"0x10", 0}, {"inf", 0}, {"nan", 0}, {"-1.5d-2x", -0.015}};
  for (const auto& [text, value] : cases) EXPECT_EQ(LeadingNumber(text), value) << text;
}

TEST(LeadingNumber, GoesToInfinityOrZeroBeyondTheRange) {
  const std::string zeros(400, '0');
  const std::vector<std::pair<std::string, double>> cases{
      {"1E400", infinity64},
      {"-1D99999999999999999999", -infinity64},
      {"1E-400", 0},
      {"0E400", 0},
      {"0.0000E99999999999", 0},
      {std::string(400, '9'), infinity64},
      {"0." + zeros + "1", 0},
      {"0." + zeros + "1E401", 1},
      {"1" + zeros + "E-400", 1},
      {"4.9E-324", std::numeric_limits<double>::denorm_min()}};
  for (const auto& [text, value] : cases) EXPECT_EQ(LeadingNumber(text), value) << text;
  EXPECT_EQ(LeadingNumber(std::string(1000000, '0') + "5"), 5);
}

TEST(LeadingNumber, AgreesWithThePattern) {
  const std::string alphabet = "00123456789999..+-EeDd x,";
  std::mt19937 random(3);
  for (int i = 0; i < 50000; ++i) {
    std::string text;
    for (auto length = random() % 26; length > 0; --length) text += alphabet[random() % alphabet.size()];
    ASSERT_EQ(LeadingNumber(text), PlainLeadingNumber(text)) << text;
  }
  // Words of digits with a period at any place: the quick conversion and the long one meet here.
  for (int i = 0; i < 50000; ++i) {
    std::string text;
    for (auto length = 1 + random() % 22; length > 0; --length)
      text += static_cast<char>('0' + random() % 10);
    text.insert(random() % (text.size() + 1), ".");
    ASSERT_EQ(LeadingNumber(text), PlainLeadingNumber(text)) << text;
  }
}

TEST(StartsWithNumber, AsksForADigitBehindSignAndPeriod) {
  for (const char* text : {"1", " -.5", "+3x", "0"}) EXPECT_TRUE(StartsWithNumber(text)) << text;
  for (const char* text : {"", " ", "-", ".", "-.", "E5", "x1", ",1"}) {
    EXPECT_FALSE(StartsWithNumber(text)) << text;
  }
}

class CommaNumbers : public std::numpunct<char> {
 protected:
  [[nodiscard]] char do_decimal_point() const override { return ','; }
};

/// Puts a comma into all numbers of the language's streams, and of its C functions where the machine has
/// such a locale; restores the plain one.
class CommaLocale {
 public:
  CommaLocale() : before_(std::locale::global(std::locale(std::locale::classic(), new CommaNumbers))) {
    for (const char* name : {"de_DE.UTF-8", "it_IT.UTF-8", "fr_FR.UTF-8", "de_DE"}) {
      if (std::setlocale(LC_ALL, name) != nullptr) return;
    }
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  ~CommaLocale() {
    std::locale::global(before_);
    std::setlocale(LC_ALL, "C");
  }

 private:
  std::locale before_;
};

TEST(NumberTexts, DoNotDependOnTheLocale) {
  const CommaLocale locale;
  EXPECT_EQ(GeneralText(0.5F), "0.5");
  EXPECT_EQ(FormatDigits(1234.5, 3), "1234.5");
  EXPECT_EQ(RoundDecimals(0.125, 2), 0.12);
  EXPECT_EQ(LeadingNumber("1.25E1,5"), 12.5);
}

}  // namespace
}  // namespace koprax
