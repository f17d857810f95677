#include "display/display_modes.h"

namespace koprax {

namespace {

enum class Entry : char {
  Off,
  On,
  Keep,    // not touched
  Single,  // on with one profile alone
  Zoomed,  // on in a zoomed view
};

using Row = std::array<Entry, DisplayCommandCount>;

constexpr Row RowOf(DisplayMode mode) {
  constexpr Entry off = Entry::Off;
  constexpr Entry on = Entry::On;
  constexpr Entry keep = Entry::Keep;
  constexpr Entry single = Entry::Single;
  constexpr Entry zoomed = Entry::Zoomed;
  switch (mode) {
    // clang-format off
    //                                               Edit    Zoom    Unzoom  Mod     Save    Expl    Main    Print   Bitmap
    case DisplayMode::Prompt:                return {off,    off,    off,    off,    off,    off,    on,     off,    off};
    case DisplayMode::PlainAfterPrompt:      return {on,     on,     off,    on,     on,     on,     on,     on,     on};
    case DisplayMode::ZoomSelection:         return {off,    keep,   keep,   off,    off,    off,    off,    off,    off};
    case DisplayMode::Zoomed:                return {single, on,     zoomed, on,     single, off,    on,     keep,   on};
    case DisplayMode::ZoomCancelled:         return {on,     on,     keep,   on,     on,     on,     on,     on,     on};
    case DisplayMode::UndoZoomed:            return {single, on,     off,    on,     single, on,     on,     on,     keep};
    case DisplayMode::Saved:                 return {on,     on,     off,    on,     on,     keep,   on,     keep,   keep};
    case DisplayMode::EditSelection:         return {off,    off,    off,    off,    off,    off,    off,    off,    off};
    case DisplayMode::EditLeft:              return {single, on,     zoomed, on,     single, keep,   on,     on,     on};
    case DisplayMode::Explorer:              return {off,    off,    off,    off,    off,    off,    on,     keep,   keep};
    case DisplayMode::ExplorerPaused:        return {keep,   on,     keep,   keep,   keep,   on,     keep,   keep,   keep};
    case DisplayMode::ExplorerZoomCancelled: return {off,    keep,   keep,   off,    off,    on,     on,     keep,   keep};
    case DisplayMode::ExplorerZoomLeft:      return {keep,   keep,   keep,   keep,   keep,   on,     on,     on,     on};
    case DisplayMode::ExplorerLeft:          return {on,     on,     zoomed, on,     on,     on,     on,     keep,   keep};
      // clang-format on
  }
  return {};
}

bool IsOn(Entry entry, const DisplayConditions& conditions) {
  switch (entry) {
    case Entry::Single:
      return conditions.SingleProfile;
    case Entry::Zoomed:
      return conditions.Zoomed;
    default:
      return entry == Entry::On;
  }
}

}  // namespace

void EnterDisplayMode(DisplayMode mode, const DisplayCommands& commands,
                      const DisplayConditions& conditions) {
  const Row row = RowOf(mode);
  for (std::size_t i = 0; i < commands.size(); ++i) {
    if (row[i] != Entry::Keep) {
      commands[i]->Enabled = IsOn(row[i], conditions);
    }
  }
}

}  // namespace koprax
