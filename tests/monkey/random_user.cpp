#include "tests/monkey/random_user.h"

#include <algorithm>
#include <array>
#include <utility>
#include <variant>

#include "app/script_lines.h"
#include "forms/number_text.h"
#include "forms/scripted_runtime.h"
#include "forms/text_file.h"
#include "fuzz/law.h"
#include "tests/monkey/workbench_laws.h"

namespace koprax {

namespace {

constexpr std::array<std::string_view, 34> Texts{"NAN",
                                                 "INF",
                                                 "1E-45",
                                                 "0x10",
                                                 "\t+5 ",
                                                 "180",
                                                 "1.5406",
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
                                                 "1",
                                                 "2",
                                                 "0.3",
                                                 "90",
                                                 "5.4309",
                                                 "3E38",
                                                 "-1",
                                                 "1,5",
                                                 "\xC3\x85ngstr\xC3\xB6m, \xCE\xB8 \"quoted\"",
                                                 "Cubic",
                                                 " X Y\r\n20 5\r\n",
                                                 " X Y\r\n20.02 1E39\r\n20.01\r\n-1E30 8"};

/// The planned answer, if there is one, taken off the queue.
template <class Answer>
std::optional<Answer> Next(std::deque<Answer>& queue) {
  if (queue.empty()) return std::nullopt;
  Answer answer = std::move(queue.front());
  queue.pop_front();
  return answer;
}

/// A file that stands for a page or a picture, made as all files are.
std::optional<std::string> WriteStandIn(const std::string& path) {
  const auto failure = WriteTextFile(path, {"a page or a picture"}, TextEncoding::Utf8);
  return failure ? std::optional(failure->Reason) : std::nullopt;
}

}  // namespace

RandomUser::RandomUser(Decisions& decisions, const SampleFiles& files, WalkRecord& record)
    : decisions_(decisions), files_(files), record_(record) {
  // Most walks start from the main menu alone.
  platform_.Settings["MyApp/General/DontShow"] = decisions_.OneIn(16) ? "0" : "1";
  platform_.Host.Separator = decisions_.OneIn(8) ? "," : ".";
  if (decisions_.OneIn(2)) platform_.Host.Modes = {{24, 1024, 768}, {24, 800, 600}};
  platform_.Host.ChangeResult = static_cast<int>(decisions_.Below(6)) - 4;
}

std::string RandomUser::SomeText() {
  if (decisions_.OneIn(64)) return std::string(decisions_.Below(4096), '7');
  if (decisions_.OneIn(2)) return std::string(decisions_.Of(Texts));
  return GeneralText(0.1 * static_cast<double>(decisions_.Below(256)));
}

bool RandomUser::Plan(const ScriptCommand& command) {
  if (const auto* answer = std::get_if<AnswerCommand>(&command)) {
    answers_.push_back(answer->Answer);
  } else if (const auto* input = std::get_if<InputCommand>(&command)) {
    inputs_.push_back(input->Text);
  } else if (const auto* file = std::get_if<FileCommand>(&command)) {
    chosen_files_.push_back(file->Path);
  } else if (const auto* printer = std::get_if<PrinterCommand>(&command)) {
    printers_.push_back(printer->Choice);
  } else if (const auto* modal = std::get_if<std::shared_ptr<const ModalCommand>>(&command)) {
    modal_.push_back((*modal)->Text);
  } else {
    return false;
  }
  return true;
}

void RandomUser::ForgetPlans() {
  answers_.clear();
  inputs_.clear();
  chosen_files_.clear();
  printers_.clear();
  modal_.clear();
}

void RandomUser::StartAction() {
  questions_ = 0;
  complaint_.clear();
}

/// A command that can't be carried out says why, once. A fit tells of each step that has failed, a line of
/// too many words is told of by whoever reads lines, and an empty page is told of before it goes to a printer
/// that fails.
void RandomUser::CountComplaint(const Message& message) {
  constexpr std::array<std::string_view, 3> told_besides{"Singular matrix", "More than 24 words",
                                                         "The page could not be printed"};
  const auto begins = [&](std::string_view words) { return message.Text.starts_with(words); };
  if (message.Icon != MessageIcon::Stop || std::ranges::any_of(told_besides, begins)) return;
  Require(complaint_.empty(),
          "a command is refused once, not by this and before by that: " + message.Text + "\n" + complaint_);
  complaint_ = message.Text;
}

MessageAnswer RandomUser::MsgBox(const Message& message) {
  RequireWholeMessage(message);
  if (message.Buttons == MessageButtons::Ok) {
    CountComplaint(message);
    return MessageAnswer::Ok;
  }
  MessageAnswer answer = decisions_.OneIn(2) ? MessageAnswer::Yes : MessageAnswer::No;
  if (const auto planned = Next(answers_)) answer = *planned;
  record_.Queue(AnswerLine(answer));
  return answer;
}

/// Some questions come back until they are answered well, which the user finds out sooner or later.
std::string RandomUser::InputBox(const InputRequest& request) {
  RequireWholeQuestion(request);
  complaint_.clear();  // a question that comes back may say why again
  constexpr int patience = 8;
  std::optional<std::string> text = SomeText();
  if (const auto planned = Next(inputs_)) text = *planned;
  if (decisions_.OneIn(8)) text = request.Default;
  if (++questions_ > patience) text = questions_ % 2 == 0 ? "5" : "6";
  Require(questions_ < 1000, "a question comes to an end: " + request.Prompt);
  record_.Queue(InputLine(text));
  return text.value_or("");
}

std::optional<std::string> RandomUser::FileDialog(const FileDialogRequest& request) {
  RequireWholeDialog(request);
  record_.Count("Form9");
  const bool save = request.Type == FileDialogRequest::Kind::Save;
  std::optional<std::string> path;
  if (!decisions_.OneIn(8)) path = decisions_.Of(save ? files_.ToSave() : files_.ToOpen());
  const auto planned = Next(chosen_files_);
  // A plan that has gone wrong must not lead to a file that is to stay as it is.
  const bool meant = planned && (!save || !*planned || files_.MayBeSaved(**planned));
  if (meant) path = *planned;
  record_.Queue(FileLine(path));
  return path;
}

bool RandomUser::PrinterDialog(Printer& printer) {
  std::optional<PrinterChoice> choice;
  if (!decisions_.OneIn(4)) {
    choice = PrinterChoice{.File = decisions_.Of(files_.ToSave())};
    if (decisions_.OneIn(4)) choice->MissingFonts = ScriptedRuntime::PrinterFonts();
    choice->Copies = 1 + static_cast<int>(decisions_.Below(3));
  }
  if (const auto planned = Next(printers_)) choice = *planned;
  record_.Queue(PrinterLine(choice));
  if (!choice) return false;
  ScriptedRuntime::SetUpPrinter(printer, choice->MissingFonts);
  printer.Copies = choice->Copies;
  printed_file_ = choice->File;
  return true;
}

std::optional<std::string> RandomUser::PrintDocument(Printer& printer) {
  RequireFiniteDrawing(printer);
  return WriteStandIn(printed_file_);
}

std::optional<std::string> RandomUser::SavePicture(const PictureBox& picture, const std::string& path) {
  RequireFiniteDrawing(picture);
  return WriteStandIn(path);
}

LoadedImage RandomUser::LoadPicture(const std::string& path) {
  if (decisions_.OneIn(8)) return path + " is no picture";
  return PixelImage{.Width = 1, .Height = 1, .Pixels = {colours::Red}};
}

void RandomUser::RunModal(Form& form) {
  constexpr int patience = 8;
  for (int step = 0; step < patience && form.Visible(); ++step) {
    if (const auto planned = Next(modal_)) {
      Do(*planned);
    } else {
      ActOn(form);
    }
  }
  if (form.Visible()) Do("close " + form.Name());
  Require(!form.Visible(), "a modal window can be closed");
}

std::string RandomUser::GetSetting(std::string_view application, std::string_view section,
                                   std::string_view key, std::string_view absent) {
  return platform_.GetSetting(application, section, key, absent);
}

std::optional<std::string> RandomUser::SaveSetting(std::string_view application, std::string_view section,
                                                   std::string_view key, std::string_view value) {
  platform_.SettingFailure = decisions_.OneIn(8) ? std::optional<std::string>("no room") : std::nullopt;
  return platform_.SaveSetting(application, section, key, value);
}

std::optional<std::string> RandomUser::Shell(const std::string& /*command*/) {
  return decisions_.OneIn(4) ? std::optional<std::string>("There is no such command.") : std::nullopt;
}

}  // namespace koprax
