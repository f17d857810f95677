// All windows as they stand at their load, against the listing windows.golden.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "app/script_values.h"
#include "app/window_walk.h"
#include "app/workbench.h"
#include "file_text.h"
#include "golden_file.h"

namespace koprax {
namespace {

constexpr const char* KindWords[] = {"button", "option",  "check", "text", "combo", "label",
                                     "frame",  "picture", "shape", "line", "image"};

/// `Form6.cmdZoom button "Zoom" tip "Enlarge a selected part of the profile"`; what is off, hidden or
/// locked says so. Of a text of many lines stands the first. A help button tells its subject, and beside
/// which control it stands.
std::string LineOf(const std::string& form, const Control& control, const std::string& before) {
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
  std::string tip = all.value("ToolTip", "");
  if (const auto end = tip.find("\r\n"); end != std::string::npos) tip.replace(end, 2, " ");
  if (!tip.empty()) line.append(" tip \"").append(tip).append("\"");
  if (control.Meaning.starts_with("Help on "))
    line += " tells of " + control.Meaning.substr(8) + ", beside " + before;
  if (all.contains("Font") && all["Font"] != "MS Sans Serif") add_text("Font", " font");
  if (all.contains("Value") && all["Value"] != false && all["Value"] != 0) line += " chosen";
  if (const Control* around = control.Container(); around != nullptr) line += " in " + around->Name();
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

std::string ListingOfAllWindows() {
  WindowWalk walk;
  std::string listing;
  const auto add_heading = [&](const Form& form) {
    listing += form.Name() + " \"" + form.Caption.Get() + "\"\n";
  };
  walk.VisitWindows([&](const Form& form) {
    add_heading(form);
    auto before = ControlBefore(form);
    for (const Control* control : form.Controls()) {
      // Of a table of controls that look alike the first stands for all.
      if (control->Index().value_or(0) == 0 || control->Name() == "Number") {
        listing += LineOf(form.Name(), *control, before[control]);
      }
    }
    listing += "\n";
  });
  walk.VisitOtherPickers(add_heading);
  return Replaced(listing, walk.Session.Folder(), "FOLDER");
}

TEST(Windows, StandAtTheirLoadAsTheListingTells) {
  ExpectGolden(ListingOfAllWindows(), "app/windows.golden");
}

TEST(Windows, TellAScreenReaderTheirBoxesAndWhatTheMouseDoesInTheirPictures) {
  WindowWalk().VisitWindows([](const Form& form) {
    std::set<std::string> meanings;
    for (const Control* control : form.Controls()) {
      const auto* picture = dynamic_cast<const PictureBox*>(control);
      const bool box = control->Kind() == ControlKind::TextBox || control->Kind() == ControlKind::ComboBox;
      const std::string name = form.Name() + "." + control->FullName() + " " + control->Meaning;
      if (picture != nullptr || box) {
        EXPECT_TRUE(!control->Meaning.empty() && meanings.insert(control->Meaning).second) << name;
      }
      if (picture != nullptr && !picture->Operations().empty()) {  // where nothing is drawn, nothing is read
        EXPECT_EQ(picture->ToolTip.Get().empty(), !picture->OnMouseMove) << name;
      }
    }
  });
}

TEST(Windows, EscGivesUpTheSmallOnesAndNoneThatHoldsWork) {
  WindowWalk walk;
  WorkbenchSession& session = walk.Session;
  session.Play("file \"none\"\nclick Form1.cmdInp\n");
  EXPECT_TRUE(session.Desk().Find("Form4")->PressEnter());
  EXPECT_TRUE(session.Desk().Find("Form7")->PressEscape());
  EXPECT_EQ(session.Desk().Find("Form7"), nullptr);
  walk.VisitWindows([](const Form&) {});
  walk.VisitOtherPickers([](const Form&) {});
  std::vector<std::string> stay;
  for (const std::string& name : Workbench::FormNames()) {
    const auto form = session.Desk().Find(name);
    if (form == nullptr || name == "Form9") continue;
    form->Show();
    form->PressEscape();
    if (form->Loaded()) stay.push_back(name);
  }
  EXPECT_THAT(stay, testing::ElementsAre("Form1", "Form2", "Form6", "Form15", "Form24", "Form26", "Form33",
                                         "Form34"));
}

}  // namespace
}  // namespace koprax
