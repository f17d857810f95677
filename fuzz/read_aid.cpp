// Cards: they are read or refused, and their reflections lie where the law of Bragg has them. There is no
// writer.
#include <array>
#include <cmath>
#include <filesystem>
#include <limits>
#include <numbers>

#include "files/card_format.h"
#include "fuzz/profile_law.h"

namespace koprax {
namespace {

/// Not all of them make sense; the length of the input chooses one, so that the fuzzer can.
constexpr std::array<float, 6> Wavelengths{1.54184F, 0.55941F, 200, 0, -1, std::numeric_limits<float>::max()};

/// What the reader tells of reflections out of reach is no matter of the law.
ReadOutcome ReadCardOfInput(Workspace& data, int slot, const TellUser& /*tell*/) {
  const auto size = std::filesystem::file_size(data.FileName);
  const auto ask = [&] { return Wavelengths.at(size % Wavelengths.size()); };
  return ReadAid(
      data, slot, [](const Message&) {}, ask);
}

void CheckReflection(const ProfileBuffer& buffer, std::size_t i) {
  const double theta = buffer.PermX[i] * std::numbers::pi / 360;
  const double wavelength = 2.0 * buffer.CardD[i] * std::sin(theta);
  Require(buffer.CardD[i] > 0, "d is above 0");
  Require(buffer.PermX[i] >= 0 && buffer.PermX[i] < 180.001F, "2-theta lies between 0 and 180 degrees");
  // Angles of a d that no crystal has get lost among the smallest numbers of 32 bits.
  if (theta < 1e-30) return;
  Require(std::abs(wavelength / buffer.Wavelength - 1) < 1e-6, "the reflection obeys the law of Bragg");
}

void CheckCard(const ProfileBuffer& buffer) {
  Require(buffer.PermNpts <= MaxReflections, "a card has up to 500 reflections");
  for (std::size_t i = 1; i <= static_cast<std::size_t>(buffer.PermNpts); ++i) CheckReflection(buffer, i);
  for (const float value : buffer.CardCell) Require(std::isfinite(value), "the cell is made of numbers");
}

constexpr ProfileFormat Format{.InputFormat = 7, .Read = ReadCardOfInput, .CheckRead = CheckCard};

}  // namespace
}  // namespace koprax

KOPRAX_FUZZ_PROFILE_FORMAT(koprax::Format)
