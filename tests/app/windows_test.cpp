// All windows as they stand at their load, against the listing windows.golden, and what their help buttons
// show.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/script_values.h"
#include "app/workbench_session.h"
#include "files/title_window.h"
#include "forms/desktop.h"
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
  for (const char* place : {"Left", "Top", "Width", "Height", "X1", "Y1", "X2", "Y2"}) {
    if (all.contains(place)) line.append(" ").append(place).append(" ").append(all[place].dump());
  }
  for (const auto& item : all.value("Items", Json::array())) {
    line += "\n    \"" + item.get<std::string>() + "\"";
  }
  return line + "\n";
}

std::string ListingOf(WorkbenchSession& session, const char* name) {
  const auto form = session.Desk().Find(name);
  if (!form) {
    ADD_FAILURE() << name << " is not loaded";
    return {};
  }
  std::string listing = std::string(name) + " \"" + form->Caption.Get() + "\"\n";
  for (const Control* control : form->Controls()) {
    listing += LineOf(name, *control);
  }
  return listing + "\n";
}

std::string ListingOfAllWindows() {
  WorkbenchSession session;
  SilentServices services(session);
  std::string listing;
  const auto add = [&](const std::string& script, const std::vector<const char*>& forms) {
    session.Play(script);
    for (const char* form : forms) {
      listing += ListingOf(session, form);
    }
  };
  add("click Form1.Command8\n", {"Form1", "Form5"});
  const std::string path = session.File("quartz.xy", "Quartz\r\n1.5406\r\n10 5\r\n10.5 7\r\n11 6\r\n");
  session.Data().FileName = path;
  add("file " + Json(path).dump() + "\nclick Form1.cmdInp\n", {"Form4"});
  add("click Form4.cmdOK\n", {"Form7"});
  add("click Form7.Option3\n", {"Form10"});
  add("click Form10.optB\n", {"Form6"});
  add("click Form6.cmdSave\n", {"Form3"});
  add("click Form1.cmdDisp\n", {"Form11"});
  add("click Form1.cmdDelBuff\n", {"Form17"});
  session.Desk().Load<TitleWindow>(services.Context, title_windows::ComputedProfile, [] {});
  add("", {"Form14"});
  for (const PickerKind& kind : {pickers::Calibration, pickers::SmoothedResult, pickers::FitBackground,
                                 pickers::Cell, pickers::ComputedProfile, pickers::SeveralSaved}) {
    const auto picker = session.Desk().Load<BufferPicker>(services.Context, kind, PickerActions{});
    listing += picker->Name() + " \"" + picker->Caption.Get() + "\"\n";
  }
  for (auto at = listing.find(session.Folder()); at != std::string::npos;
       at = listing.find(session.Folder())) {
    listing.replace(at, session.Folder().size(), "FOLDER");
  }
  return listing;
}

std::string Contents(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Windows, StandAtTheirLoadAsTheListingTells) {
  const std::filesystem::path golden = KOPRAX_SOURCE_DIR "/tests/app/windows.golden";
  const auto fresh = std::filesystem::current_path() / "windows.golden.new";
  const std::string listing = ListingOfAllWindows();
  if (listing != Contents(golden)) {
    std::ofstream(fresh, std::ios::binary) << listing;
    ADD_FAILURE() << "The windows differ from their listing. Compare with\n  diff " << golden.string() << " "
                  << fresh.string() << "\nand, where the new text is right, promote it with\n  cp "
                  << fresh.string() << " " << golden.string();
  }
}

TEST(Windows, HelpButtonsShowTheTopicOfTheCommandBesideThem) {
  using enum HelpTopic;
  const std::vector<std::pair<const char*, std::vector<std::pair<const char*, HelpTopic>>>> windows{
      {"Form1",
       {{"Command1", HelpLoad},
        {"Command2", HelpSaveDisk},
        {"Command3", HelpDisplay},
        {"Command4", HelpManipulation},
        {"Command5", HelpFit},
        {"Command6", HelpErase},
        {"Command7", HelpAbout},
        {"Command8", HelpDisclaimer},
        {"Command9", HelpCalibration},
        {"Command10", HelpRefineCell}}},
      {"Form7",
       {{"Command1", HelpFormatItal},
        {"Command2", HelpFormatOneColumn},
        {"Command3", HelpFormatTwoColumns},
        {"Command4", HelpFormatCps},
        {"Command5", HelpFormatPhilips},
        {"Command6", HelpFormatUxd},
        {"Command7", HelpFormatCard}}},
      {"Form6",
       {{"cmdZoomGuide", HelpZoom},
        {"Command1", HelpClearList},
        {"Command2", HelpEdit},
        {"Command3", HelpArithmetic},
        {"Command4", HelpUndoZoom},
        {"Command5", HelpSave},
        {"Command6", HelpMainMenu},
        {"Command7", HelpExplorer},
        {"Command8", HelpAccept},
        {"Command9", HelpShowChanges},
        {"Command10", HelpCancel},
        {"Command11", HelpSaveList},
        {"Command12", HelpQuitExplorer},
        {"Command13", HelpPrint},
        {"Command14", HelpEraseLast},
        {"Command16", HelpChangeAll},
        {"Command18", HelpBitmap}}},
  };
  WorkbenchSession session;
  session.Play(WorkbenchSession::LoadCommands(session.File("q.xy", "Q\r\n1.5\r\n10 5\r\n11 6\r\n"), 3, 'a'));
  session.Play("file \"x\"\nclick Form1.cmdInp\nclick Form4.cmdOK\n");
  for (const auto& [form, buttons] : windows) {
    for (const auto& [name, topic] : buttons) {
      // Some stand in frames that are hidden now, out of a user's reach.
      auto* const button = dynamic_cast<Button*>(session.Desk().Find(form)->Find(name));
      ASSERT_NE(button, nullptr) << form << "." << name;
      button->OnClick();
      EXPECT_EQ(session.Value("get Form5.Text1.Text"), HelpText(topic)) << form << "." << name;
    }
  }
}

}  // namespace
}  // namespace koprax
