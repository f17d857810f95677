// What the mouse does over the picture of a plot, as its tool tip tells it: one text for each mode. Which of
// them holds is told by the windows.
#pragma once

namespace koprax::mouse_tips {

inline constexpr const char* NoPlot = "";
inline constexpr const char* ReadOut = "The boxes below show x and y under the mouse.";
inline constexpr const char* ReadOutWithD = "The boxes below show position, d and y under the mouse.";
inline constexpr const char* SelectPart =
    "Press the left button at the upper left corner of the part,\r\ndrag to its right end and let go.";
inline constexpr const char* SelectPortion =
    "Press the left button at the left end of the portion,\r\ndrag to its right end and let go.";
inline constexpr const char* Selected =
    "\"OK\" takes what is selected, \"Cancel\" leaves it.\r\nDrag with the left button to select anew.";
inline constexpr const char* Explore =
    "The right button picks a peak at the blue line.\r\nThe left button pauses the explorer.";
inline constexpr const char* ExplorerPaused =
    "The explorer is paused.\r\n\"Resume\" goes on with it, \"Zoom\" enlarges a part.";
inline constexpr const char* PickInZoom =
    "The right button picks a peak at the blue line.\r\nThe boxes below show position, d and y under the "
    "mouse.";

}  // namespace koprax::mouse_tips
