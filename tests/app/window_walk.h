// A walk through all windows of the workbench, for tests that look at each of them as it stands at its load.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>

#include "app/workbench_session.h"
#include "calibration/calibration_window.h"
#include "cell/cell_window.h"
#include "display/colours_window.h"
#include "files/peak_list_window.h"
#include "files/title_window.h"
#include "files/wavelength_window.h"
#include "fit/parameters_window.h"
#include "fit/refined_peaks_window.h"
#include "fit/refinement_results_window.h"
#include "forms/desktop.h"
#include "workspace/buffer_picker.h"

namespace koprax {

/// For each control of a window the name of the one before it in the layout.
inline std::map<const Control*, std::string> ControlBefore(const Form& form) {
  std::map<const Control*, std::string> before;
  std::string last;
  const auto add = [&](const auto& self, const LayoutNode& node) -> void {
    if (node.Item != nullptr) {
      before[node.Item] = std::exchange(last, node.Item->FullName());
    }
    for (const LayoutNode& child : node.Children) self(self, child);
  };
  add(add, form.Layout());
  return before;
}

class WindowWalk {
 public:
  /// All windows but the pickers that `VisitOtherPickers` takes.
  void VisitWindows(const auto& visit) {
    VisitAfter("forms\n", "Form1", visit);
    VisitAfter("click Form1.Command8\n", "Form5", visit);
    VisitAfter("click Form1.cmdNew\n", "Form35", visit);
    Session.Play("close Form35\n");
    const std::string path = Session.File("quartz.xy", "Quartz\r\n1.5406\r\n10 5\r\n10.5 7\r\n11 6\r\n");
    VisitOneProfile(path, visit);
    VisitSeveralProfiles(path, visit);
    VisitSmallWindows(visit);
  }
  void VisitOtherPickers(const auto& visit) {
    for (const PickerKind& kind :
         {pickers::CalibrationOrBackground, pickers::SmoothedResult, pickers::FitBackground, pickers::Cell,
          pickers::ComputedProfile, pickers::SeveralSaved}) {
      visit(*Session.Desk().Load<BufferPicker>(Services.Context, kind, PickerActions{}));
    }
  }

  WorkbenchSession Session;
  SilentServices Services{Session};

 private:
  void VisitAfter(const std::string& script, const std::string& name, const auto& visit) {
    Session.Play(script);
    const auto form = Session.Desk().Find(name);
    ASSERT_NE(form, nullptr) << name;
    visit(*form);
  }
  template <class Window>
  void VisitLoaded(const auto& visit, auto&&... arguments) {
    visit(*Session.Desk().Load<Window>(Services.Context, arguments...));
  }

  void VisitOneProfile(const std::string& path, const auto& visit) {
    Session.Data().FileName = path;
    VisitAfter("file " + Json(path).dump() + "\nclick Form1.cmdInp\n", "Form4", visit);
    VisitAfter("click Form4.cmdOK\n", "Form7", visit);
    VisitAfter("click Form7.Option3\n", "Form10", visit);
    VisitAfter("click Form10.optB\n", "Form6", visit);
    VisitAfter("click Form6.cmdSave\n", "Form3", visit);
    VisitAfter("click Form1.cmdDisp\n", "Form11", visit);
    VisitAfter("click Form1.cmdDelBuff\n", "Form17", visit);
    VisitAfter("click Form1.cmdAnal\nclick Form10.optB\n", "Form12", visit);
    VisitAfter("click Form12.cmdMain\nclick Form1.cmdFit\nclick Form10.optB\n", "Form19", visit);
    VisitLoaded<Form20>(visit, ParameterActions{});
    VisitLoaded<Form22>(visit, RefinementActions{});
    VisitLoaded<Form23>(visit);
    Session.Play("click Form19.cmdMain\n");
    Session.Data().Current().NPeaks = 1;
    Session.Data().Current().PeakTheta[1] = "28.44";
    VisitLoaded<Form24>(visit);
    VisitLoaded<Form26>(visit);
  }
  /// The windows of several profiles, of arithmetic, of a zoom, of a picture and of a card.
  void VisitSeveralProfiles(const std::string& path, const auto& visit) {
    Session.Play("close Form11\n" + WorkbenchSession::LoadCommands(path, 3, 'a') +
                 "click Form1.cmdDisp\nclick Form11.Check1\nclick Form11.Check2\n");
    VisitAfter("click Form11.Command1\n", "Form2", visit);
    VisitAfter("click Form2.cmdMod\n", "Form8", visit);
    VisitAfter("click Form8.Command1\n", "Form30", visit);
    Session.Play(
        "click Form30.cmdCancel\nclick Form2.cmdZoom\ndown Form2.Picture1 left 30 60\n"
        "move Form2.Picture1 90 60\nup Form2.Picture1 left 90 60\n");
    VisitAfter("click Form2.optOK\n", "Form15", visit);
    VisitAfter("file " + Json(Session.Folder() + "/zoom.bmp").dump() + "\nclick Form15.Command1\n", "Form36",
               visit);
    VisitAfter("modal click Form33.cmdComboOK\n" +
                   WorkbenchSession::LoadCommands(KOPRAX_SOURCE_DIR "/examples/corundum.aid", 7, 'c'),
               "Form34", visit);
  }
  void VisitSmallWindows(const auto& visit) {
    VisitLoaded<TitleWindow>(visit, title_windows::ComputedProfile, [] {});
    for (const PeakListWindowKind& kind : {peak_list_windows::Calibration, peak_list_windows::Cell}) {
      VisitLoaded<PeakListWindow>(visit, kind, " 28.44  100  3.1355\r\n", PeakListActions{[] {}, [] {}});
    }
    VisitLoaded<Form31>(visit);
    VisitLoaded<Form33>(visit);
  }
};

}  // namespace koprax
