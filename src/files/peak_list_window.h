// Form25 and Form28: the lines of a peak list, to be looked at before its peaks are taken into CurBuf.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "files/peak_list_file.h"
#include "forms/form.h"
#include "workspace/services.h"

namespace koprax {

/// What tells one list window from the other.
struct PeakListWindowKind {
  const char* Name;
  const char* Caption;
  std::size_t MaxLines;  ///< of a list of so many lines or more no peak is taken
  PeakListEnd End;
  void (*Take)(ProfileBuffer& buffer, const std::vector<ListedPeak>& peaks);
};

namespace peak_list_windows {
inline constexpr PeakListWindowKind Calibration{"Form25", "Input file (Form25)", 100, PeakListEnd::LastLine,
                                                TakePeaksForCalibration};
inline constexpr PeakListWindowKind Cell{"Form28", "Input file (Form28)", 200, PeakListEnd::ZeroPosition,
                                         TakePeaksForCell};
}  // namespace peak_list_windows

/// What follows when the user has closed the window; both have to be there.
struct PeakListActions {
  std::function<void()> Taken;    ///< the peaks are in the buffer
  std::function<void()> GivenUp;  ///< by the cancel or the close box
};

class PeakListWindow final : public Form {
 public:
  /// `contents` is the text of the file FileName.
  PeakListWindow(const WindowContext& context, const PeakListWindowKind& kind, std::string_view contents,
                 PeakListActions actions);

 private:
  void OnLoad() override;
  void OnCloseBox() override { GiveUp(); }
  void Accept();
  void GiveUp();
  /// Tells what of the list is left out, or that there is nothing in it.
  void TellLimits(std::size_t peaks);
  void Tell(const Message& message);

  WindowContext context_;
  PeakListWindowKind kind_;
  std::string file_name_;
  std::vector<std::string> lines_;
  PeakListActions actions_;

  TextBox Text1{*this,
                "Text1",
                {.Meaning = "Lines of the peak list",
                 .Font = "Courier",
                 .Locked = true,
                 .MultiLine = true,
                 .Columns = 84,
                 .Rows = 22}};
  Button cmdOK{*this, "cmdOK", {.Caption = "OK"}};
  Button cmdCancel{*this, "cmdCancel", {.Caption = "Cancel"}};
};

}  // namespace koprax
