// How a window asks for a wavelength that a profile or card doesn't tell: its question, and the wavelengths
// of the common anodes to choose from. Taking the answer is left to typed_wavelength.h and the windows.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "forms/control.h"

namespace koprax {

inline constexpr const char* WavelengthQuestion =
    "Give the value of the wave length   used for this experiment.             Chose among the given "
    "options or type your own value.";

/// The wavelengths in angstrom, each with a remark behind it that is not part of the number.
[[nodiscard]] inline ComboSetup WavelengthChoices() {
  return {.Meaning = "Wavelength in angstrom",
          .Text = "1.54184   (Cu   K-a1+ K-a2)",
          .Items = {"1.54184   (Cu  K-a1+ K-a2)", "1.54056   (Cu  K-a1)", "0.71073   (Mo  K-a1 + K-a2)",
                    "0.70930   (Mo  K-a1)", "1.79026   (Co   K-a1 + K-a2)", "1.78896   (Co   K-a1)",
                    "0.56087   (Ag   K-a1 + K-a2)", "0.55941   (Ag   K-a1)",
                    "1.65919   (Ni    K-a1  + K-a2) ", "1.65791   (Ni    K-a1)"}};
}

/// The same for work on a peak list, without nickel; the preset texts of its windows differ.
[[nodiscard]] inline ComboSetup WavelengthChoicesForPeaks(std::string preset) {
  ComboSetup choices = WavelengthChoices();
  choices.Text = std::move(preset);
  std::erase_if(choices.Items, [](const std::string& item) { return item.find("(Ni") != std::string::npos; });
  return choices;
}

}  // namespace koprax
