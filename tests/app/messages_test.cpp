// All message boxes, input boxes and file dialogs of the system, as a walk through its windows brings them
// up, against the listing messages.golden. The walk stands in messages/*.kop, one script a wing.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "app/workbench_session.h"
#include "file_text.h"
#include "forms/desktop.h"
#include "golden_file.h"

namespace koprax {
namespace {

/// The pieces of a text, each with the separator that ends it, in quotes below each other.
std::string Quoted(const std::string& text, const std::string& separator, int pieces = 1) {
  std::string lines;
  for (std::size_t start = 0; start < text.size() || lines.empty();) {
    std::size_t end = start;
    for (int i = 0; i < pieces && end < text.size(); ++i) {
      const auto found = text.find(separator, end);
      end = found == std::string::npos ? text.size() : found + separator.size();
    }
    lines += "        \"" + Replaced(text.substr(start, end - start), "\r\n", "") + "\"\n";
    start = end;
  }
  return lines;
}

/// What an event shows to the user: `message "Warning", stop, ok` and its lines; nothing of other events.
std::string BoxOf(const Json& event) {
  const auto field = [&](const char* name) { return event[name].get<std::string>(); };
  const std::string kind = event["event"];
  if (kind == "message") {
    const std::string icon = field("icon") == "none" ? "" : ", " + field("icon");
    const std::string buttons = field("buttons") == "yesno" ? ", Yes and No" : "";
    return "    message \"" + field("title") + "\"" + icon + buttons + "\n" + Quoted(field("text"), "\r\n");
  }
  if (kind == "input") {
    return "    input box \"" + field("title") + "\", default \"" + field("default") + "\"\n" +
           Quoted(field("prompt"), "\r\n");
  }
  if (kind == "dialog" && field("kind") == "printer") return "    printer dialog\n";
  if (kind == "dialog") {
    return "    " + field("kind") + " dialog, name \"" + field("name") + "\", filter " +
           event["filterIndex"].dump() + " of\n" + Quoted(field("filter"), "|", 2);
  }
  return "";
}

/// The boxes by window and by the command that brings them up, each once.
class Listing {
 public:
  void Add(const std::string& window, const std::string& command, const std::string& box) {
    if (box.empty() || !seen_.insert(command + box).second) return;
    auto& commands = windows_[window];
    auto found = std::ranges::find(commands, command, &Boxes::first);
    if (found == commands.end()) found = commands.insert(commands.end(), {command, {}});
    found->second += box;
  }
  void Name(const std::string& window, const std::string& caption) { captions_[window] = caption; }
  [[nodiscard]] std::string Text() {
    std::string text;
    for (const auto& [window, commands] : windows_) {
      text.append("== ").append(window).append(" \"").append(captions_[window]).append("\" ==\n");
      for (const auto& [command, boxes] : commands) text.append(command).append("\n").append(boxes);
      text += "\n";
    }
    return text;
  }

 private:
  using Boxes = std::pair<std::string, std::string>;
  struct ByNumber {
    bool operator()(const std::string& a, const std::string& b) const {
      return std::pair(a.size(), a) < std::pair(b.size(), b);
    }
  };
  std::map<std::string, std::vector<Boxes>, ByNumber> windows_;
  std::map<std::string, std::string> captions_;
  std::set<std::string> seen_;
};

/// Plays the scripts of the walk. Beside the commands of the script tool they have these lines:
///   begin                       a fresh workbench, with an empty FOLDER
///   write NAME TEXT [N TEXT]    a file in FOLDER; the second text is repeated, "#" in it is the number, "##"
///                               its last two digits
///   load LETTER FORMAT NAME     loads that file, in format 1 to 7, into a buffer
///   save LETTER NAME            chooses a buffer to be saved there, up to the choice of the format
///   show LETTERS                displays buffers
///   drag FORM X Y X Y           presses the mouse at one place of the picture and lets it go at another one
///   times N COMMAND; COMMAND    the same again and again
///   fail print|picture|reading|setting REASON    the machine can't do that from now on; "" and it can again
///   screen RESULT               the machine has modes of 16 bits; what a change comes to
class Walk {
 public:
  void Play(const std::string& path) {
    std::ifstream script(path);
    ASSERT_TRUE(script) << path;
    int number = 0;
    for (std::string line; std::getline(script, line);) {
      ++number;
      std::istringstream words(line);
      std::string verb;
      words >> verb;
      if (verb.empty() || verb.starts_with("#")) continue;
      SCOPED_TRACE(path + ":" + std::to_string(number));
      if (Prepare(verb, words)) continue;
      const std::string commands = Commands(verb, words);
      queue_ += commands.empty() ? line + "\n" : commands;
      const std::set<std::string> queued{"input", "answer", "file", "printer", "modal"};
      if (!queued.contains(verb)) Act();
      if (testing::Test::HasFailure()) return;  // what follows would build on it
    }
  }
  [[nodiscard]] std::string Text() { return listing_.Text(); }

 private:
  static std::string JsonText(std::istream& words) {
    Json text;
    words >> text;
    return text;
  }

  static std::string Letter(char letter) { return {static_cast<char>(letter - 'a' + 'A')}; }

  /// Commands that a short line stands for; "" if it stands for none.
  static std::string Commands(const std::string& verb, std::istream& words) {
    std::string commands;
    std::string name;
    char letter = 0;
    if (int format = 0; verb == "load") {
      words >> letter >> format >> name;
      return WorkbenchSession::LoadCommands(name.starts_with("EXAMPLES") ? name : "FOLDER/" + name, format,
                                            letter);
    }
    if (verb == "save") {
      words >> letter >> name;
      return "click Form1.cmdOut\nfile \"FOLDER/" + name + "\"\nclick Form10.opt" + Letter(letter) + "\n";
    }
    if (verb == "show") {
      commands = "click Form1.cmdDisp\n";
      while (words >> letter) commands += "click Form11.Check" + std::to_string(letter - 'a' + 1) + "\n";
      return commands + "click Form11.Command1\n";
    }
    if (std::string x1, y1, x2, y2; verb == "drag") {
      words >> name >> x1 >> y1 >> x2 >> y2;
      const std::string picture = " " + name + ".Picture1 ";
      return "down" + picture + "left " + x1 + " " + y1 + "\nmove" + picture + x2 + " " + y2 + "\nup" +
             picture + "left " + x2 + " " + y2 + "\n";
    }
    if (int count = 0; verb == "times") {
      words >> count;
      std::getline(words >> std::ws, name);
      for (; count > 0; --count) commands += Replaced(name, "; ", "\n") + "\n";
    }
    return commands;
  }

  /// Carries out what changes the world around the workbench.
  bool Prepare(const std::string& verb, std::istream& words) {
    std::string name;
    if (verb == "begin") {
      session_ = std::make_unique<WorkbenchSession>();
    } else if (verb == "write") {
      words >> name;
      std::string text = JsonText(words);
      if (int count = 0; words >> count) {
        const std::string repeated = JsonText(words);
        for (int i = 1; i <= count; ++i) {
          const std::string digits = std::to_string(100 + i % 100).substr(1);
          text += Replaced(Replaced(repeated, "##", digits), "#", std::to_string(i));
        }
      }
      session_->File(name, text);
    } else if (verb == "fail") {
      words >> name;
      const std::string reason = JsonText(words);
      auto& platform = session_->Platform();
      (name == "print"     ? platform.PrintFailure
       : name == "picture" ? platform.PictureFailure
       : name == "reading" ? platform.ReadingFailure
                           : platform.SettingFailure) = reason.empty() ? std::nullopt : std::optional(reason);
    } else if (verb == "screen") {
      auto& machine = session_->Platform().Host;
      machine.Modes = {{.BitsPerPixel = 16, .Width = 800, .Height = 600}};
      words >> machine.ChangeResult;
    } else {
      return false;
    }
    return true;
  }

  /// Plays what is queued and lists what each command has brought up.
  void Act() {
    const std::string script = std::exchange(queue_, "");
    for (const std::string& name : Workbench::FormNames()) {  // those that the commands may close
      if (const auto form = session_->Desk().Find(name)) listing_.Name(name, form->Caption);
    }
    const std::string examples = KOPRAX_SOURCE_DIR "/examples";
    for (const Json& answer :
         session_->Play(Replaced(Replaced(script, "FOLDER", session_->Folder()), "EXAMPLES", examples))) {
      std::istringstream words(answer["command"].get<std::string>());
      std::string verb;
      std::string name;
      words >> verb >> name;
      if (verb == "modal") words >> verb >> name;
      const std::string window = name.substr(0, name.find('.'));
      verb.append(" ").append(name);
      for (const Json& event : answer.value("events", Json::array())) {
        std::string box = BoxOf(event);
        box = Replaced(Replaced(box, session_->Folder(), "FOLDER"), examples, "EXAMPLES");
        listing_.Add(window, verb, box);
      }
    }
  }

  std::unique_ptr<WorkbenchSession> session_;
  std::string queue_;  // answers and the like for the next command
  Listing listing_;
};

TEST(Messages, StandInTheWindowsAsTheListingTells) {
  Walk walk;
  std::vector<std::string> scripts;
  for (const auto& entry : std::filesystem::directory_iterator(KOPRAX_SOURCE_DIR "/tests/app/messages")) {
    scripts.push_back(entry.path().string());
  }
  std::ranges::sort(scripts);
  for (const std::string& script : scripts) walk.Play(script);
  ExpectGolden(walk.Text(), "app/messages.golden");
}

}  // namespace
}  // namespace koprax
