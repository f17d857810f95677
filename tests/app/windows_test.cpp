// All windows as they stand at their load, against the listing windows.golden, and what their help buttons
// show.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/script_values.h"
#include "app/workbench_session.h"
#include "calibration/calibration_window.h"
#include "cell/cell_window.h"
#include "display/arithmetic_window.h"
#include "display/colours_window.h"
#include "display/several_profiles_window.h"
#include "files/peak_list_window.h"
#include "files/title_window.h"
#include "files/wavelength_window.h"
#include "fit/parameters_window.h"
#include "fit/refined_peaks_window.h"
#include "fit/refinement_results_window.h"
#include "forms/desktop.h"
#include "golden_file.h"
#include "workspace/buffer_picker.h"
#include "workspace/help_topics.h"

namespace koprax {
namespace {

constexpr const char* KindWords[] = {"button", "option",  "check", "text", "combo", "label",
                                     "frame",  "picture", "shape", "line", "image"};

/// `Form6.cmdZoom button "Zoom" tip "Enlarge a selected part of the profile"`; what is off, hidden or
/// locked says so. Of a text of many lines stands the first.
std::string LineOf(const std::string& form, const Control& control) {
  const Json all = JsonOfControl(control);
  std::string line = form + "." + control.FullName() + " " + KindWords[static_cast<int>(control.Kind())];
  const auto add_text = [&](const char* property, const std::string& heading) {
    if (all.contains(property)) {
      const std::string text = all[property];
      line += heading + " \"" + text.substr(0, text.find("\r\n")) + "\"";
    }
  };
  add_text("Caption", "");
  add_text("Text", "");
  if (all.value("ToolTip", "") != "") add_text("ToolTip", " tip");
  if (all.contains("Font") && all["Font"] != "MS Sans Serif") add_text("Font", " font");
  if (all.contains("Value") && all["Value"] != false && all["Value"] != 0) line += " chosen";
  if (!all.value("Enabled", true)) line += " off";
  if (!all.value("Visible", true)) line += " hidden";
  if (all.value("Locked", false)) line += " locked";
  if (const auto* box = dynamic_cast<const TextBox*>(&control); box != nullptr && box->FollowsEnd)
    line += " end";
  for (const char* place : {"Left", "Top", "Width", "Height", "X1", "Y1", "X2", "Y2"}) {
    if (all.contains(place)) line.append(" ").append(place).append(" ").append(all[place].dump());
  }
  for (const auto& item : all.value("Items", Json::array())) {
    line += "\n    \"" + item.get<std::string>() + "\"";
  }
  return line + "\n";
}

/// The windows of several profiles, of arithmetic, of a zoom, of a picture and of a card.
void ListSeveralProfiles(WorkbenchSession& session, const std::string& path, const auto& add) {
  session.Play("close Form11\n" + WorkbenchSession::LoadCommands(path, 3, 'a') +
               "close Form6\nclick Form1.cmdDisp\nclick Form11.Check1\nclick Form11.Check2\n");
  add("click Form11.Command1\n", "Form2");
  add("click Form2.cmdMod\n", "Form8");
  add("click Form8.Command1\n", "Form30");
  session.Play(
      "click Form30.cmdCancel\nclick Form2.cmdZoom\ndown Form2.Picture1 left 30 60\n"
      "move Form2.Picture1 90 60\nup Form2.Picture1 left 90 60\n");
  add("click Form2.optOK\n", "Form15");
  add("file " + Json(session.Folder() + "/zoom.bmp").dump() + "\nclick Form15.Command1\n", "Form36");
  add("modal click Form33.cmdComboOK\n" +
          WorkbenchSession::LoadCommands(KOPRAX_SOURCE_DIR "/examples/corundum.aid", 7, 'c'),
      "Form34");
}

std::string ListingOfAllWindows() {
  WorkbenchSession session;
  SilentServices services(session);
  std::string listing;
  const auto add = [&](const std::string& script, const std::string& name) {
    session.Play(script);
    const auto form = session.Desk().Find(name);
    ASSERT_NE(form, nullptr) << name;
    listing += name + " \"" + form->Caption.Get() + "\"\n";
    for (const Control* control : form->Controls()) {
      // Of a table of controls that look alike the first stands for all.
      if (control->Index().value_or(0) == 0 || control->Name() == "Number") listing += LineOf(name, *control);
    }
    listing += "\n";
  };
  add("forms\n", "Form1");
  add("click Form1.Command8\n", "Form5");
  add("click Form1.cmdNew\n", "Form35");
  session.Play("close Form35\n");
  const std::string path = session.File("quartz.xy", "Quartz\r\n1.5406\r\n10 5\r\n10.5 7\r\n11 6\r\n");
  session.Data().FileName = path;
  add("file " + Json(path).dump() + "\nclick Form1.cmdInp\n", "Form4");
  add("click Form4.cmdOK\n", "Form7");
  add("click Form7.Option3\n", "Form10");
  add("click Form10.optB\n", "Form6");
  add("click Form6.cmdSave\n", "Form3");
  add("click Form1.cmdDisp\n", "Form11");
  add("click Form1.cmdDelBuff\n", "Form17");
  session.Play("click Form1.cmdAnal\n");
  add("click Form10.optB\n", "Form12");
  session.Play("click Form12.cmdMain\nclick Form1.cmdFit\n");
  add("click Form10.optB\n", "Form19");
  session.Desk().Load<Form20>(services.Context, ParameterActions{});
  add("", "Form20");
  session.Desk().Load<Form22>(services.Context, RefinementActions{});
  add("", "Form22");
  session.Desk().Load<Form23>(services.Context);
  add("", "Form23");
  session.Play("click Form19.cmdMain\n");
  session.Data().Current().NPeaks = 1;
  session.Data().Current().PeakTheta[1] = "28.44";
  session.Desk().Load<Form24>(services.Context);
  add("", "Form24");
  session.Desk().Load<Form26>(services.Context);
  add("", "Form26");
  ListSeveralProfiles(session, path, add);
  session.Desk().Load<TitleWindow>(services.Context, title_windows::ComputedProfile, [] {});
  add("", "Form14");
  for (const PeakListWindowKind& kind : {peak_list_windows::Calibration, peak_list_windows::Cell}) {
    session.Desk().Load<PeakListWindow>(services.Context, kind, " 28.44  100  3.1355\r\n", PeakListActions{});
    add("", kind.Name);
  }
  session.Desk().Load<Form31>(services.Context);
  add("", "Form31");
  session.Desk().Load<Form33>(services.Context);
  add("", "Form33");
  for (const PickerKind& kind :
       {pickers::CalibrationOrBackground, pickers::SmoothedResult, pickers::FitBackground, pickers::Cell,
        pickers::ComputedProfile, pickers::SeveralSaved}) {
    const auto picker = session.Desk().Load<BufferPicker>(services.Context, kind, PickerActions{});
    listing += picker->Name() + " \"" + picker->Caption.Get() + "\"\n";
  }
  for (auto at = listing.find(session.Folder()); at != std::string::npos;
       at = listing.find(session.Folder())) {
    listing.replace(at, session.Folder().size(), "FOLDER");
  }
  return listing;
}

TEST(Windows, StandAtTheirLoadAsTheListingTells) {
  ExpectGolden(ListingOfAllWindows(), "app/windows.golden");
}

TEST(Windows, HelpButtonsShowTheTopicOfTheCommandBesideThem) {
  using enum HelpTopic;
  constexpr auto none = static_cast<HelpTopic>(-1);  // no button of that number shows a topic
  const std::vector<std::pair<std::string, std::vector<HelpTopic>>> windows{
      // of Command1, Command2, ...
      {"Form1",
       {HelpLoad, HelpSaveDisk, HelpDisplay, HelpManipulation, HelpFit, HelpErase, HelpAbout, HelpDisclaimer,
        HelpCalibration, HelpRefineCell}},
      {"Form7",
       {HelpFormatItal, HelpFormatOneColumn, HelpFormatTwoColumns, HelpFormatCps, HelpFormatPhilips,
        HelpFormatUxd, HelpFormatCard}},
      {"Form6",
       {HelpClearList, HelpEdit, HelpArithmetic, HelpUndoZoom, HelpSave, HelpMainMenu, HelpExplorer,
        HelpAccept, HelpShowChanges, HelpCancel, HelpSaveList, HelpQuitExplorer, HelpPrint, HelpEraseLast,
        none, HelpChangeAll, none, HelpBitmap}},
      {"Form12",
       {HelpBackground,
        HelpDftInverse,
        HelpFilter,
        HelpDft,
        HelpSaveBackground,
        HelpSmoothing,
        none,
        HelpZoomBackground,
        HelpResume,
        HelpPrintBackground,
        HelpSubtract,
        HelpQuitBackground,
        HelpDft,
        none,
        HelpSmoothing,
        none,
        none,
        none,
        HelpBitmap,
        HelpRescale}},
      {"Form19",
       {HelpSelectRange, none, HelpLoadPeaks, HelpSelectPeaks, none, HelpQuitFit, HelpShowParam,
        HelpBackgroundBuffer, HelpDrawBackground, none, HelpDefinePeaks, HelpDefineBackground, HelpStartFit,
        HelpFitFrame, none, HelpSaveFit}},
      {"Form24",
       {none, none, none, none, HelpCorundum, HelpSilicon, HelpCoupling, HelpStartCalibration,
        HelpSaveCalibration}},
      {"Form2", {none, HelpPrint, HelpArithmetic, HelpBitmap, HelpSaveSelected, HelpMainMenu}},
      {"Form8", {none, none, HelpDefineY, HelpAddProfiles, none, HelpSubtractProfiles}},
  };
  WorkbenchSession session;
  session.Play(WorkbenchSession::LoadCommands(session.File("q.xy", "Q\r\n1.5\r\n10 5\r\n11 6\r\n"), 3, 'a'));
  session.Data().Buffer(1).NPeaks = 1;
  session.Play(
      "click Form1.cmdAnal\nclick Form10.optA\nclick Form1.cmdFit\nclick Form10.optA\nclick Form1.cmdCalib\n"
      "click Form16.optA\nfile \"x\"\nclick Form1.cmdInp\nclick Form4.cmdOK\n");
  SilentServices services(session);
  session.Desk().Load<Form2>(services.Context);
  OpenArithmetic(services.Context, {.Profiles = 2});
  const auto expect = [&](const std::string& form, const std::string& name, HelpTopic topic) {
    // Some stand in frames that are hidden now, out of a user's reach.
    auto* const button = dynamic_cast<Button*>(session.Desk().Find(form)->Find(name));
    ASSERT_NE(button, nullptr) << form << "." << name;
    button->OnClick();
    const bool alone = form == "Form2" || form == "Form8";
    const std::string shown = alone ? HelpText(services.Helped.value_or(none))
                                    : session.Value("get Form5.Text1.Text").get<std::string>();
    EXPECT_EQ(shown, HelpText(topic)) << form << "." << name;
  };
  expect("Form6", "cmdZoomGuide", HelpZoom);
  expect("Form2", "cmdZoomGuide", HelpZoom);
  expect("Form12", "cmdSmoGuide", HelpSmoothing);
  for (const auto& [form, topics] : windows) {
    for (std::size_t i = 0; i < topics.size(); ++i) {
      if (topics[i] != none) expect(form, "Command" + std::to_string(i + 1), topics[i]);
    }
  }
}

}  // namespace
}  // namespace koprax
