// A walk through the workbench by a user who clicks, types and drags whatever the input says, and answers
// every question as it says: nothing breaks, the buffers keep their limits, and there is always a way on.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "app/script_actions.h"
#include "app/script_command.h"
#include "app/workbench.h"
#include "forms/fixed_text.h"
#include "forms/scripted_runtime.h"
#include "fuzz/law.h"
#include "fuzz/sample_files.h"
#include "tests/forms/memory_platform.h"

namespace koprax {
namespace {

constexpr int MostSteps = 200;

/// What is typed into boxes: numbers of all sorts, and what is none.
constexpr std::array<std::string_view, 18> Texts{"1.5406",
                                                 "",
                                                 "0",
                                                 "-5",
                                                 "1E39",
                                                 "abc",
                                                 "20",
                                                 "30",
                                                 "28.4",
                                                 "50.5",
                                                 "1E-30",
                                                 "9999999",
                                                 "1 2",
                                                 "0.001",
                                                 "Y",
                                                 "n",
                                                 " X Y\\r\\n20 5\\r\\n",
                                                 " X Y\\r\\n20.02 1E39\\r\\n20.01\\r\\n-1E30 8"};

/// The input as a row of decisions; behind its end each is the first choice.
class Decisions {
 public:
  explicit Decisions(std::string_view bytes) : rest_(bytes) {}

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
  std::size_t Below(std::size_t count) {
    if (rest_.empty()) return 0;
    const auto byte = static_cast<unsigned char>(rest_.front());
    rest_.remove_prefix(1);
    return byte % count;
  }
  template <class List>
  auto Of(const List& list) {
    return list[Below(list.size())];
  }

 private:
  std::string_view rest_;
};

/// The end of the workbench towards the user, whose answers come from the decisions.
class Walker final : public Runtime {
 public:
  Walker(Decisions& decisions, const SampleFiles& files) : decisions_(decisions), files_(files) {
    platform_.Settings["MyApp/General/DontShow"] = "1";  // the walk starts from the main menu
  }

  MessageAnswer MsgBox(const Message& message) override {
    Require(!message.Text.empty(), "a message has words");
    if (message.Buttons == MessageButtons::Ok) return MessageAnswer::Ok;
    return decisions_.Below(2) == 0 ? MessageAnswer::Yes : MessageAnswer::No;
  }
  /// Some questions come back until they are answered well, which the user finds out sooner or later.
  std::string InputBox(const InputRequest& /*request*/) override {
    constexpr int patience = 8;
    if (++questions_ > patience) return questions_ % 2 == 0 ? "5" : "6";
    return std::string(decisions_.Of(Texts));
  }
  std::optional<std::string> FileDialog(const FileDialogRequest& request) override {
    if (decisions_.Below(8) == 0) return std::nullopt;
    const bool save = request.Type == FileDialogRequest::Kind::Save;
    return decisions_.Of(save ? files_.ToSave() : files_.ToOpen());
  }
  bool PrinterDialog(Printer& printer) override {
    if (decisions_.Below(4) == 0) return false;
    ScriptedRuntime::SetUpPrinter(printer, {});
    return true;
  }
  std::optional<std::string> PrintDocument(Printer& /*printer*/) override { return std::nullopt; }
  std::optional<std::string> SavePicture(const PictureBox& /*picture*/,
                                         const std::string& /*path*/) override {
    return decisions_.Below(8) == 0 ? std::optional<std::string>("no room") : std::nullopt;
  }
  LoadedImage LoadPicture(const std::string& /*path*/) override {
    return PixelImage{.Width = 1, .Height = 1, .Pixels = {colours::Red}};
  }
  void RunModal(Form& form) override {
    constexpr int patience = 8;
    for (int step = 0; step < patience && form.Visible(); ++step) ActOn(form);
    if (form.Visible()) form.CloseBox();
    Require(!form.Visible(), "a modal window can be closed");
  }
  void Quit() override {}
  std::string GetSetting(std::string_view application, std::string_view section, std::string_view key,
                         std::string_view absent) override {
    return platform_.GetSetting(application, section, key, absent);
  }
  std::optional<std::string> SaveSetting(std::string_view application, std::string_view section,
                                         std::string_view key, std::string_view value) override {
    platform_.SettingFailure =
        decisions_.Below(8) == 0 ? std::optional<std::string>("no room") : std::nullopt;
    return platform_.SaveSetting(application, section, key, value);
  }
  std::optional<std::string> Shell(const std::string& /*command*/) override { return std::nullopt; }
  Machine& TheMachine() override { return platform_.TheMachine(); }

  void StartAction() { questions_ = 0; }

  /// What the walk does with a form; set when there is a workbench to walk through.
  std::function<void(Form&)> ActOn;

 private:
  Decisions& decisions_;
  const SampleFiles& files_;
  MemoryPlatform platform_;
  int questions_ = 0;  ///< of the action that runs
};

class Walk {
 public:
  Walk(std::string_view bytes, const SampleFiles& files) : decisions_(bytes), walker_(decisions_, files) {
    walker_.ActOn = [this](Form& form) { ActOn(form); };
  }

  void Go() {
    bench_.Start();
    CheckState();
    for (int step = 0; step < MostSteps && !decisions_.AtEnd() && !bench_.Desk().HasQuit(); ++step) {
      const auto shown = bench_.Desk().ShownForms();
      Require(!shown.empty(), "there is a window while the run lasts");
      ActOn(*decisions_.Of(shown));
      Require(bench_.Desk().ModalForm() == nullptr, "a modal window ends with its command");
      CheckState();
    }
  }

 private:
  /// What a user can do something to. Labels and images only take up room in a row of decisions.
  std::vector<const Control*> UsableControls(const Form& form) {
    std::vector<const Control*> usable;
    std::ranges::copy_if(form.Controls(), std::back_inserter(usable), [this](const Control* control) {
      const bool still = dynamic_cast<const Label*>(control) != nullptr ||
                         dynamic_cast<const Image*>(control) != nullptr ||
                         dynamic_cast<const Frame*>(control) != nullptr;
      return !still && !bench_.Desk().WhyUnusable(*control);
    });
    return usable;
  }

  /// Closes a form, or does to one of its controls what can be done to one of its kind.
  void ActOn(Form& form) {
    const auto kept = form.shared_from_this();
    const auto usable = UsableControls(form);
    const std::size_t choice = decisions_.Below(usable.size() + 1);
    if (choice == usable.size()) {
      Do("close " + form.Name());
      return;
    }
    const Control& control = *usable[choice];
    const std::string name = form.Name() + "." + control.FullName();
    if (const auto* picture = dynamic_cast<const PictureBox*>(&control)) {
      Drag(name, picture->Scale());
    } else if (dynamic_cast<const TextBox*>(&control) != nullptr ||
               dynamic_cast<const ComboBox*>(&control) != nullptr) {
      Do("set " + name + " \"" + std::string(decisions_.Of(Texts)) + "\"");
    } else {
      Do("click " + name);
    }
  }

  void Drag(const std::string& name, const UserScale& scale) {
    const std::string button = decisions_.Below(2) == 0 ? " left " : " right ";
    const std::string from = Place(scale);
    const std::string to = Place(scale);
    Do("down " + name + button + from);
    Do("move " + name + " " + to);
    Do("up " + name + button + to);
  }

  /// A place in a picture, or a little beside it.
  std::string Place(const UserScale& scale) {
    const auto along = [this] { return static_cast<float>(decisions_.Below(256)) / 240 - 0.03F; };
    const float x = scale.Left + scale.Width * along();
    const float y = scale.Top + scale.Height * along();
    return std::to_string(x) + " " + std::to_string(y);
  }

  /// A command that can't be carried out is refused, which is the way of the world.
  void Do(const std::string& line) {
    if (bench_.Desk().HasQuit()) return;
    if (tell_) static_cast<void>(std::fprintf(stderr, "%s\n", line.c_str()));
    const auto parsed = ParseScriptCommand(line);
    Require(std::holds_alternative<ScriptCommand>(parsed), line + " is a command");
    walker_.StartAction();
    static_cast<void>(actions_.Do(std::get<ScriptCommand>(parsed)));
  }

  void CheckState() {
    const Workspace& data = bench_.Data();
    Require(data.CurBuf >= 0 && data.CurBuf <= NumBuffers, "the current buffer is one of them");
    for (int slot = 1; slot <= NumBuffers; ++slot) CheckBuffer(data.Buffer(slot));
  }

  static void CheckBuffer(const ProfileBuffer& buffer) {
    Require(CharacterCount(buffer.Title) == TitleWidth, "a title has 80 characters");
    Require(buffer.NPeaks >= 0 && buffer.NPeaks <= MaxPeaks, "the peak list keeps its limit");
    CheckPoints(buffer.PermX, buffer.PermY, buffer.PermNpts);
    CheckPoints(buffer.WorkX, buffer.WorkY, buffer.WorkNpts);
  }

  static void CheckPoints(const PointTable& x, const PointTable& y, int count) {
    Require(count >= 0 && count <= MaxPoints, "a profile keeps its limit");
    // The first ones stand for all: a look at 4096 channels after each step would take most of the time.
    constexpr int looked_at = 20;
    for (std::size_t i = 1; i <= static_cast<std::size_t>(std::min(count, looked_at)); ++i) {
      Require(std::isfinite(x[i]) && std::isfinite(y[i]), "points are numbers");
    }
  }

  /// Set to see the way that led to a finding.
  const bool tell_ = std::getenv("KOPRAX_TELL_WALK") != nullptr;
  Decisions decisions_;
  Walker walker_;
  Workbench bench_{walker_};
  MemoryPlatform platform_;  // the scripts' actions want one for what a walk never does
  ScriptedRuntime no_script_{platform_};
  ScriptActions actions_{{.Desk = bench_.Desk(),
                          .Data = bench_.Data(),
                          .FormNames = Workbench::FormNames(),
                          .Runtime = no_script_,
                          .Host = platform_}};
};

}  // namespace
}  // namespace koprax

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const koprax::SampleFiles files;
  files.RemoveSaved();
  koprax::Walk(koprax::InputBytes(data, size), files).Go();
  return 0;
}
