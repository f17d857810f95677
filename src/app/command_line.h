// The command line of the small programs: files, and options in front of or between them. What an option
// means is left to its program.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace koprax {

/// What a program tells of itself.
struct ProgramHelp {
  std::string_view Name{};
  std::string_view Usage{};                ///< "koprax-filecheck [--json] FILE..."
  std::string_view Text{};                 ///< what it does and its options, behind the usage
  std::vector<std::string_view> Flags{};   ///< options without a value: "--json"
  std::vector<std::string_view> Values{};  ///< options with one: "--output"
};

struct CommandLine {
  std::vector<std::string> Files{};
  std::map<std::string, std::string, std::less<>> Options{};  ///< those given; a flag has the value ""
};

inline constexpr int WrongCallStatus = 2;

/// Reads a command line; "--" ends the options. `--help`, `--version` and a wrong call are answered here:
/// then what comes back is the exit status.
[[nodiscard]] std::variant<CommandLine, int> ReadCommandLine(int argument_count, const char* const* arguments,
                                                             const ProgramHelp& program);

/// Tells how the program is called, behind what is wrong with the call. Returns the exit status.
int TellWrongCall(const ProgramHelp& program, std::string_view what);

/// Whether to write a file would replace the other, which may have several names.
[[nodiscard]] bool WouldReplace(const std::string& output, const std::string& input);

/// The exit status of a program that has written to standard output: another one, with a message, where that
/// couldn't take all of it.
[[nodiscard]] int EndOutput(std::string_view program, int status);

}  // namespace koprax
