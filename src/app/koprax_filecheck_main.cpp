// koprax-filecheck: what each reader would make of a file, before anyone loads it.

#include <iostream>
#include <string>
#include <variant>

#include "app/command_line.h"
#include "app/file_report.h"
#include "forms/text_file.h"

namespace {

const koprax::ProgramHelp Program{
    .Name = "koprax-filecheck",
    .Usage = "koprax-filecheck [--json] FILE...",
    .Text =
        "Tells what each reader of the workbench makes of a file, and what may surprise\n"
        "whoever loads it. The exit status is 0 when each file is read by one of them\n"
        "without a warning, else 1.\n"
        "\n"
        "  --json     writes one JSON object a file\n",
    .Flags = {"--json"}};

}  // namespace

int main(int argument_count, char** arguments) {
  koprax::LetRefusedWritesReturn();
  const auto call = koprax::ReadCommandLine(argument_count, arguments, Program);
  if (const int* status = std::get_if<int>(&call)) return *status;
  const auto& line = std::get<koprax::CommandLine>(call);
  const bool json = line.Options.contains("--json");
  bool good = true;
  std::string gap;
  for (const std::string& file : line.Files) {
    const koprax::FileCheck check = koprax::CheckFile(file);
    good = good && check.Good();
    if (json) {
      std::cout << koprax::JsonLine(koprax::JsonOfFileCheck(check)) << '\n';
    } else {
      std::cout << gap << koprax::FileReport(check);
      gap = "\n";
    }
  }
  return koprax::EndOutput(Program.Name, good ? 0 : 1);
}
