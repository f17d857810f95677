// koprax-collect: the values that many runs of koprax-script have answered, as one table.

#include <iostream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "app/collected_table.h"
#include "app/command_line.h"
#include "forms/text_file.h"

namespace {

const koprax::ProgramHelp Program{
    .Name = "koprax-collect",
    .Usage = "koprax-collect [--output FILE] FILE...",
    .Text =
        "Puts the answers of many runs of koprax-script together: a table of\n"
        "comma-separated values with one row a file and one column for each value that\n"
        "its commands get and state have asked for. The exit status is 0 when each file\n"
        "holds the answers of a run, else 1.\n"
        "\n"
        "  --output FILE  writes the table to FILE, all of it or nothing\n",
    .Values = {"--output"}};

/// A name of a file, or a column of one, as it may go to a terminal: control characters as "\x1B".
std::string Readable(const std::string& name) {
  constexpr std::string_view Digits = "0123456789ABCDEF";
  std::string readable;
  for (const char each : name) {
    const auto code = static_cast<unsigned char>(each);
    if (code >= 0x20 && code != 0x7F) {
      readable += each;
    } else {
      readable.append("\\x").append({Digits[code / 16U], Digits[code % 16U]});
    }
  }
  return readable;
}

void Tell(const std::string& file, const std::string& text) {
  std::cerr << Program.Name << ": " << Readable(file) << ": " << Readable(text) << '\n';
}

koprax::CollectedRun Collect(const std::string& file) {
  koprax::CollectedRun run = koprax::CollectFile(file);
  if (!run.Broken.empty()) Tell(file, run.Broken);
  for (const std::string& column : run.LeftOut) {
    Tell(file,
         column + " is left out, an array of more than " + std::to_string(koprax::LongestArray) + " entries");
  }
  return run;
}

int Write(const std::vector<std::string>& lines, const std::string& output, int status) {
  if (const auto error = koprax::WriteTextFile(output, lines, koprax::TextEncoding::Utf8)) {
    Tell(output, "it can't be written: " + error->Reason);
    return 1;
  }
  return status;
}

}  // namespace

int main(int argument_count, char** arguments) {
  koprax::LetRefusedWritesReturn();
  const auto call = koprax::ReadCommandLine(argument_count, arguments, Program);
  if (const int* status = std::get_if<int>(&call)) return *status;
  const auto& line = std::get<koprax::CommandLine>(call);
  const auto output = line.Options.find("--output");
  const bool to_file = output != line.Options.end();
  std::vector<koprax::CollectedRun> runs;
  int status = 0;
  for (const std::string& file : line.Files) {
    if (file == "-") {
      return koprax::TellWrongCall(Program, "standard input is not read; give ./- for a file of the name -");
    }
    if (to_file && koprax::WouldReplace(output->second, file)) {
      return koprax::TellWrongCall(Program, "the table would replace " + Readable(file));
    }
    runs.push_back(Collect(file));
    if (!runs.back().Broken.empty()) status = 1;
  }
  const auto lines = koprax::TableOfRuns(runs);
  if (to_file) return Write(lines, output->second, status);
  for (const std::string& each : lines) std::cout << each << "\r\n";
  return koprax::EndOutput(Program.Name, status);
}
