// The texts of the on-line help, one a topic: what the command beside a "?" button does, with its limits.
// Showing them is left to the help window.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace koprax {

enum class HelpTopic {
  // The main menu.
  HelpLoad,
  HelpSaveDisk,
  HelpDisplay,
  HelpManipulation,
  HelpFit,
  HelpErase,
  HelpAbout,
  HelpDisclaimer,
  HelpCalibration,
  HelpRefineCell,
  // The formats of profile files.
  HelpFormatItal,
  HelpFormatOneColumn,
  HelpFormatTwoColumns,
  HelpFormatCps,
  HelpFormatPhilips,
  HelpFormatUxd,
  HelpFormatCard,
  // Topics that several windows with a profile share.
  HelpZoom,
  HelpArithmetic,
  HelpMainMenu,
  HelpBitmap,
  // The display and work window.
  HelpEdit,
  HelpUndoZoom,
  HelpSave,
  HelpExplorer,
  HelpAccept,
  HelpShowChanges,
  HelpCancel,
  HelpSaveList,
  HelpQuitExplorer,
  HelpPrint,
  HelpEraseLast,
  HelpClearList,
  HelpChangeAll,
  // The window with several profiles.
  HelpSaveSelected,
  // Arithmetic on profiles.
  HelpDefineY,
  HelpAddProfiles,
  HelpSubtractProfiles,
  // The profile manipulation window.
  HelpSmoothing,
  HelpBackground,
  HelpDft,
  HelpDftInverse,
  HelpFilter,
  HelpQuitBackground,
  HelpZoomBackground,
  HelpResume,
  HelpPrintBackground,
  HelpSubtract,
  HelpSaveBackground,
  HelpRescale,
  // The fit of peaks.
  HelpSelectRange,
  HelpQuitFit,
  HelpShowParam,
  HelpBackgroundBuffer,
  HelpDrawBackground,
  HelpDefineBackground,
  HelpDefinePeaks,
  HelpLoadPeaks,
  HelpSelectPeaks,
  HelpStartFit,
  HelpFitFrame,
  HelpSaveFit,
  // The calibration of a channel detector.
  HelpCorundum,
  HelpSilicon,
  HelpCoupling,
  HelpStartCalibration,
  HelpSaveCalibration,
};

inline constexpr std::size_t HelpTopicCount = static_cast<std::size_t>(HelpTopic::HelpSaveCalibration) + 1;

/// The texts of all topics, in the order of the topics.
using HelpTextTable = std::array<std::string, HelpTopicCount>;

/// What a topic is about, in a few words: "Zoom", "ITAL STRUCTURES format". No two topics share them.
[[nodiscard]] std::string_view HelpSubject(HelpTopic topic);

/// The whole text of a topic. Each line ends with CR LF.
[[nodiscard]] std::string HelpText(HelpTopic topic);
[[nodiscard]] HelpTextTable AllHelpTexts();

}  // namespace koprax
