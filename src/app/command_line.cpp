#include "app/command_line.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <optional>
#include <span>
#include <system_error>

#include "app/version.h"

namespace koprax {

namespace {

bool Has(const std::vector<std::string_view>& options, std::string_view name) {
  return std::ranges::find(options, name) != options.end();
}

/// The arguments one after the other.
class CommandLineReader {
 public:
  CommandLineReader(const ProgramHelp& program, std::span<const char* const> arguments)
      : program_(program), rest_(arguments) {}

  /// What is wrong, if anything is.
  std::optional<std::string> Read(CommandLine& line) {
    while (!rest_.empty()) {
      const std::string argument = Next();
      if (options_ended_ || argument == "-" || !argument.starts_with('-')) {
        line.Files.push_back(argument);
      } else if (argument == "--") {
        options_ended_ = true;
      } else if (auto wrong = TakeOption(argument, line)) {
        return wrong;
      }
    }
    return std::nullopt;
  }

 private:
  std::string Next() {
    std::string next = rest_.front();
    rest_ = rest_.subspan(1);
    return next;
  }

  std::optional<std::string> TakeOption(const std::string& argument, CommandLine& line) {
    const std::size_t equals = argument.find('=');
    const std::string name = argument.substr(0, equals);
    const bool has_value = equals != std::string::npos;
    if (Has(program_.Flags, name) && !has_value) {
      line.Options[name] = "";
      return std::nullopt;
    }
    if (!Has(program_.Values, name)) return "there is no option " + argument;
    if (!has_value && rest_.empty()) return "the option " + name + " wants a value";
    line.Options[name] = has_value ? argument.substr(equals + 1) : Next();
    return std::nullopt;
  }

  const ProgramHelp& program_;
  std::span<const char* const> rest_;
  bool options_ended_ = false;
};

constexpr std::string_view CommonOptions =
    "  --help     shows this text\n"
    "  --version  shows the version\n";

}  // namespace

std::variant<CommandLine, int> ReadCommandLine(int argument_count, const char* const* arguments,
                                               const ProgramHelp& program) {
  const std::span all(arguments, static_cast<std::size_t>(argument_count));
  const auto given = all.subspan(std::min<std::size_t>(1, all.size()));
  if (given.size() == 1 && std::string_view(given[0]) == "--help") {
    std::cout << "usage: " << program.Usage << "\n\n" << program.Text << CommonOptions;
    return EndOutput(program.Name, 0);
  }
  if (given.size() == 1 && std::string_view(given[0]) == "--version") {
    std::cout << program.Name << ' ' << ProgramVersion << '\n';
    return EndOutput(program.Name, 0);
  }
  CommandLine line;
  if (const auto wrong = CommandLineReader(program, given).Read(line)) return TellWrongCall(program, *wrong);
  if (line.Files.empty()) return TellWrongCall(program, "no file is named");
  return line;
}

int TellWrongCall(const ProgramHelp& program, std::string_view what) {
  std::cerr << program.Name << ": " << what << "\nusage: " << program.Usage << '\n';
  return WrongCallStatus;
}

bool WouldReplace(const std::string& output, const std::string& input) {
  std::error_code error;  // a file that isn't there is no other
  return std::filesystem::is_regular_file(output, error) && std::filesystem::equivalent(output, input, error);
}

int EndOutput(std::string_view program, int status) {
  errno = 0;
  if (std::cout.flush()) return status;
  std::cerr << program << ": can't write to standard output: " << std::strerror(errno != 0 ? errno : EIO)
            << '\n';
  return status != 0 ? status : 1;
}

}  // namespace koprax
