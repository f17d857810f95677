#include "tools/example_files.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "tools/example_profiles.h"

namespace koprax::examples {
namespace {

using Lines = std::vector<std::string>;

std::string Joined(const std::string& head, const Lines& lines) {
  std::string text = head + "\r\n";
  for (const std::string& line : lines) {
    text += line + "\r\n";
  }
  return text;
}

/// A number in a field, as "%9.1f" asks for it.
template <class Number>
std::string Field(const char* pattern, Number number) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), pattern, number);
  return text.data();
}

std::string Angle(double first, double step, std::size_t i) {
  return Field("%.2f", first + step * static_cast<double>(i));
}

Lines AsLines(const std::vector<long>& counts) {
  Lines lines;
  lines.reserve(counts.size());
  for (const long count : counts) {
    lines.push_back(std::to_string(count));
  }
  return lines;
}

/// The format of the ITAL STRUCTURES diffractometers, with the wavelength of K-alpha 1.
ExampleFile SiliconFile() {
  const std::vector<long> counts = Counts({EvenAngles(20, 0.02, 6001), 0.02, {{Silicon(), 45000}}, 1915});
  Lines lines = AsLines(counts);
  lines.insert(lines.begin(), {"6001", "20,140,0.02"});
  const auto [least, greatest] = std::minmax_element(counts.begin(), counts.end());
  lines.push_back(std::to_string(*greatest) + "," + std::to_string(*least));
  lines.emplace_back("1.540596");
  return {"silicon.dat", Joined("Silicon powder, Cu K-alpha, 20-140 deg", lines)};
}

/// One column, with a header that leaves the wavelength out: the workbench asks for it.
ExampleFile CorundumFile() {
  Lines lines = AsLines(Counts({EvenAngles(20, 0.02, 4001), 0.02, {{Corundum(), 26000}}, 1930}));
  lines.insert(lines.begin(), "20 0.02");
  return {"corundum_one_column.txt", Joined("Corundum powder, Cu K-alpha, 20-100 deg", lines)};
}

/// Two columns in steps of 0.02 degrees, with a wavelength record.
std::string TwoColumns(const std::string& title, double first, const std::vector<long>& counts) {
  Lines lines{" 1.540596"};
  for (std::size_t i = 0; i < counts.size(); ++i) {
    lines.push_back(" " + Angle(first, 0.02, i) + "   " + std::to_string(counts[i]));
  }
  return Joined(title, lines);
}

ExampleFile MixtureFile() {
  const std::vector<long> counts =
      Counts({EvenAngles(20, 0.02, 3501), 0.02, {{Silicon(), 24000}, {Corundum(), 15000}}, 1968});
  return {"silicon_corundum_two_columns.txt",
          TwoColumns("Silicon and corundum mixed, Cu K-alpha, 20-90 deg", 20, counts)};
}

/// One wavelength, as a monochromator leaves it, so that each reflection is one peak; and a zero error.
ExampleFile MonochromaticFile() {
  const std::vector<long> counts = Counts({.Angles = EvenAngles(25, 0.02, 4801),
                                           .Step = 0.02,
                                           .Sample = {{Silicon(), 250000}},
                                           .Seed = 1951,
                                           .Tube = {{AlphaOne, 1}},
                                           .ZeroError = MonochromaticZeroError});
  return {"silicon_monochromatic.txt", TwoColumns("Silicon powder, Cu K-alpha 1, 25-121 deg", 25, counts)};
}

// ---- A series, for examples/batch -------------------------------------------------------------------

/// How much longer silicon is at a temperature (kelvin) than at 22.5 degrees Celsius, where its cell is
/// certified: the thermal expansion of Y. Okada and Y. Tokumaru, Journal of Applied Physics 56 (1984) 314.
double Stretched(double temperature) {
  const auto integral = [](double t) {
    return 3.725 * (t + std::exp(-5.88e-3 * (t - 124)) / 5.88e-3) + 5.548e-4 * t * t / 2;
  };
  return std::exp(1e-6 * (integral(temperature) - integral(295.65)));
}

/// The line 220 of silicon in one wavelength.
ExampleFile HotSiliconFile(int temperature) {
  Phase phase = Silicon();
  phase.A = phase.C = phase.A * Stretched(temperature);
  const std::vector<long> counts = Counts({.Angles = EvenAngles(46.4, 0.02, 91),
                                           .Step = 0.02,
                                           .Sample = {{phase, 400000}},
                                           .Seed = 1984U + static_cast<unsigned>(temperature),
                                           .Tube = {{AlphaOne, 1}}});
  const std::string kelvin = std::to_string(temperature);
  return {"batch/profiles/silicon_" + kelvin + "K.txt",
          TwoColumns("Silicon at " + kelvin + " K, Cu K-alpha 1", 46.4, counts)};
}

// ---- A detector of 4096 channels -------------------------------------------------------------------

/// 2-theta of channel c is A1 + A2 c + A3 c^2 + A4 c^3, degrees: a detector that bends the scale a little.
constexpr std::array Coefficients{8.25, 0.02715, -1.5e-7, 2e-11};

double AngleOfChannel(int channel) {
  const auto [a1, a2, a3, a4] = Coefficients;
  return a1 + channel * (a2 + channel * (a3 + channel * a4));
}

ExampleFile ChannelFile() {
  constexpr int channels = 4096;
  Measurement measurement{.Step = 0.027, .Sample = {{Silicon(), 90000}}, .Seed = 1912};
  for (int channel = 1; channel <= channels; ++channel) {
    measurement.Angles.push_back(AngleOfChannel(channel));
  }
  Lines lines{"12/11/26   09:30:00", "1800", "Silicon powder, Cu K-alpha"};
  lines.resize(lines.size() + 5);
  const std::vector<long> counts = Counts(measurement);
  for (std::size_t i = 0; i < counts.size(); ++i) {
    if (i % 8 == 0) {
      lines.emplace_back();
    }
    lines.back() += Field("%9.1f", static_cast<double>(counts[i]));
  }
  return {"silicon_channels.adf", Joined("4096", lines)};
}

ExampleFile CalibrationFile() {
  Lines lines;
  for (const double coefficient : Coefficients) {
    lines.push_back(Field("%.7g", coefficient));
  }
  lines.resize(lines.size() + 3);
  return {"detector.cal", Joined("Detector of silicon_channels.adf", lines)};
}

// ---- The formats with named lines ------------------------------------------------------------------

ExampleFile PhilipsFile() {
  const std::vector<long> counts = Counts({EvenAngles(20, 0.02, 3001), 0.02, {{Corundum(), 21000}}, 1936});
  Lines lines{"Title1,Corundum powder,/",
              "DiffrType,PW1800,/",
              "Anode,Cu,/",
              "LabdaAlpha1, 1.54060,/",
              "LabdaAlpha2, 1.54439,/",
              "RatioAlpha21, 0.50000,/",
              "MonochromatorUse,YES,/",
              "DataAngleRange,  20.0000,  80.0000,/",
              "ScanStepSize,   0.0200,/",
              "ScanType,STEP,/",
              "RawScan"};
  for (std::size_t i = 0; i < counts.size(); ++i) {
    if (i % 8 == 0) {
      lines.emplace_back();
    }
    const bool last = i + 1 == counts.size();
    lines.back() += Field("%8ld", counts[i]) + (last ? ",/" : i % 8 == 7 ? "" : ",");
  }
  return {"corundum.udf", Joined("SampleIdent,CORUNDUM,/", lines)};
}

ExampleFile SiemensFile() {
  const std::vector<long> counts = Counts({EvenAngles(25, 0.02, 2001), 0.02, {{Silicon(), 30000}}, 1947});
  Lines lines{"_FILEVERSION=1",   "_SAMPLE='Silicon powder, Cu K-alpha, 25-65 deg'",
              "; the one range",  "_STEPSIZE=0.020000",
              "_START=25.000000", "_RANGE_WL=1.540596",
              "_2THETACOUNTS"};
  for (std::size_t i = 0; i < counts.size(); ++i) {
    lines.push_back("  " + Angle(25, 0.02, i) + "00   " + std::to_string(counts[i]));
  }
  return {"silicon.uxd", Joined("; a file with one range", lines)};
}

// ---- A card ----------------------------------------------------------------------------------------

/// A line of 80 columns: its contents, and the tag with the mark of the kind of line at its end.
std::string CardLine(std::string contents, char mark) {
  contents.resize(71, ' ');
  return contents + "computed" + mark;
}

std::string CardSlot(const Phase& phase, const Reflection& reflection) {
  return Field("%7.4f", PlaneSpacing(phase, reflection)) + Field("%3.0f", reflection.Intensity) + " " +
         Field("%3d", reflection.H) + Field("%3d", reflection.K) + Field("%3d", reflection.L);
}

ExampleFile CardFile() {
  Phase phase = Corundum();
  std::sort(phase.Reflections.begin(), phase.Reflections.end(), [&](const auto& left, const auto& right) {
    return PlaneSpacing(phase, left) > PlaneSpacing(phase, right);
  });
  const std::string cell = Field("%9.5f", phase.A) + Field("%9.5f", phase.A) + Field("%9.5f", phase.C) +
                           "  90.000  90.000 120.000";
  Lines lines{CardLine("", '2'),
              CardLine("R-3c", '3'),
              CardLine("", '4'),
              CardLine("", '5'),
              CardLine("Corundum, computed from its cell", '6'),
              CardLine("", 'F')};
  std::string contents;
  for (std::size_t i = 0; i < phase.Reflections.size(); ++i) {
    contents.resize(23 * (i % 3), ' ');
    contents += CardSlot(phase, phase.Reflections[i]);
    if (i % 3 == 2 || i + 1 == phase.Reflections.size()) {
      contents.resize(69, ' ');
      lines.push_back(CardLine(contents + Field("%2zu", i / 3 + 1), 'I'));
      contents.clear();
    }
  }
  return {"corundum.aid", Joined(CardLine(cell, '1'), lines)};
}

}  // namespace

std::vector<ExampleFile> ExampleFiles() {
  std::vector<ExampleFile> files{SiliconFile(),       CorundumFile(), MixtureFile(),
                                 MonochromaticFile(), ChannelFile(),  CalibrationFile(),
                                 PhilipsFile(),       SiemensFile(),  CardFile()};
  for (const int temperature : {300, 375, 450, 525, 600}) files.push_back(HotSiliconFile(temperature));
  return files;
}

}  // namespace koprax::examples
