// One reading of a text by the reader of a format, and all that can be seen of it from outside. What is odd
// in it is left to the check of files.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/text_file.h"

namespace koprax {

/// A point as it is read.
struct CheckedPoint {
  int Number = 0;  ///< from 1
  float X = 0;
  float Y = 0;
};

/// What a reader makes of a file.
struct ReadSummary {
  bool Read = false;
  std::string Refusal{};  ///< why not, in the words of the reader
  int RefusalLine = 0;    ///< where the reader stopped, if its words don't tell; else 0
  bool RefusalLineBlank = false;
  int Points = 0;
  CheckedPoint First{};
  CheckedPoint Last{};                ///< the last one that the file has
  float Step = 0;                     ///< 0 is a variable one
  std::optional<float> Wavelength{};  ///< angstrom; nothing where the file tells none
  std::string Title{};
};

struct TrialReading {
  struct Remark {
    int Line = 0;
    std::string Text{};
  };

  ReadSummary Summary{};
  std::vector<float> X{0};  ///< from 1, as many as the profile has; no numbers where the file has none
  std::vector<float> Y{0};
  std::vector<int> PointLines{};  ///< the line of each point that was stored, from 0; none for cards
  int LastLine = 0;               ///< the line that was read last
  float StatedEnd = 0;            ///< last X as the head tells it, of a profile with a step
  std::vector<Remark> Told{};     ///< what the reader told on its way

  [[nodiscard]] CheckedPoint Point(int number) const;
};

/// The wavelength at which the reflections of cards are placed, angstrom: the first that the program offers.
inline constexpr float CardWavelength = 1.54184F;

/// Reads a text by the reader of a format, 1 to 7. The reader tells of the text by this name.
[[nodiscard]] TrialReading ReadOnTrial(const std::string& file_name, const TextFile& file, int format);

}  // namespace koprax
