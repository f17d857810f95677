#include "workspace/help_topics.h"

#include "workspace/help_texts.h"

namespace koprax {
namespace {

// In the order of the topics.
constexpr std::array<std::string_view, HelpTopicCount> Subjects{
    "Load Profile from disk",
    "Save Profile on disk",
    "Display profile(s) and work",
    "Profile manipulation",
    "Fit",
    "Erase buffer",
    "KOPRAX",
    "the disclaimer",
    "Calibration",
    "Refine cell",
    "ITAL STRUCTURES format",
    "one column format",
    "two columns format",
    "CPS-120 format",
    "PHILIPS format",
    "SIEMENS/BRUKER format",
    "Powder Diffraction File format",
    "Zoom",
    "Arithmetic",
    "Main Menu",
    "Bitmap",
    "Edit",
    "Undo-Zoom",
    "Save",
    "Manual Explorer",
    "Accept",
    "Show changes",
    "Cancel",
    "Save list",
    "Quit Man. Expl.",
    "Print profile",
    "Erase last peak",
    "Clear list",
    "Change all",
    "Save of one of several profiles",
    "Y=Y1 and Y=Y2",
    "Y=Y1+Y2",
    "Y=Y1-Y2",
    "Smoothing",
    "Background",
    "DFT",
    "DFT inv.",
    "Filter",
    "Quit of the background",
    "Zoom of the background",
    "Resume",
    "Print of the background",
    "Subtract",
    "Save of the background",
    "Rescaling bckg",
    "Select range",
    "Main Menu of the fit",
    "Parameters",
    "Load bkg",
    "Draw bkg",
    "Define Background",
    "Define Peaks to fit",
    "Load peaks",
    "Select peaks",
    "Start fit",
    "the frame Fit",
    "Save of the fit",
    "Al2O3 (Corundum)",
    "Silicon",
    "Start coupling",
    "Start calibration",
    "Save of the calibration",
};

std::string WithCarriageReturns(std::string_view text) {
  std::string lines;
  lines.reserve(text.size() + text.size() / 32);
  for (const char character : text) {
    if (character == '\n') {
      lines += '\r';
    }
    lines += character;
  }
  return lines;
}

}  // namespace

std::string_view HelpSubject(HelpTopic topic) { return Subjects.at(static_cast<std::size_t>(topic)); }

std::string HelpText(HelpTopic topic) {
  for (const auto texts :
       {MainMenuHelp, FormatHelp, DisplayHelp, ArithmeticHelp, ManipulationHelp, FitHelp, CalibrationHelp}) {
    if (const std::string_view text = texts(topic); !text.empty()) {
      return WithCarriageReturns(text);
    }
  }
  return {};
}

HelpTextTable AllHelpTexts() {
  HelpTextTable texts;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    texts[i] = HelpText(static_cast<HelpTopic>(i));
  }
  return texts;
}

}  // namespace koprax
