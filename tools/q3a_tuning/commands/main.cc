// q3a-tuning: the command-line tool of tuning engineers. Exports the phone's
// built-in AWB tables, checks edited tuning files, converts, compares, edits
// and plots them, and runs the override loader the way the camera service
// does.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "tools/q3a_tuning/commands/commands.h"

namespace {

// The project version, given by the build.
constexpr char kVersion[] = Q3A_VERSION;

// CLI11 reads an unknown first word as a stray argument and asks for a
// subcommand; name it instead, with the list.
bool ReportUnknownSubcommand(const CLI::App& app, int argc, char** argv) {
  if (argc < 2 || argv[1][0] == '-') return false;
  const std::string_view word = argv[1];
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands({})) {
    if (command->get_name() == word) return false;
    if (command->get_group().empty()) continue;  // hidden
    names.push_back(command->get_name());
  }
  fmt::print(stderr,
             "q3a-tuning: '{}' is not a subcommand; the subcommands are: {}\n"
             "Run q3a-tuning --help for more.\n",
             word, fmt::join(names, ", "));
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Inspect, check and edit the AWB tuning of libq3a_tuning.",
               "q3a-tuning"};
  app.require_subcommand(1);
  app.set_version_flag("--version", kVersion);
  app.footer(
      "Exit status: 0 success, 1 a finding, a difference or a failure, 2 a "
      "usage error or an input that cannot be read.\n"
      "Example:\n  q3a-tuning validate feature.json --key 0,-1,1,0,-1");
  int exit_code = q3a_tool::kExitOk;
  for (auto* add_command : q3a_tool::kAddCommands) add_command(app, exit_code);
  q3a_tool::AddCompletionCommand(app, exit_code);
  if (ReportUnknownSubcommand(app, argc, argv)) return q3a_tool::kExitUsage;
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const int status = app.exit(error);
    return status == 0 ? q3a_tool::kExitOk : q3a_tool::kExitUsage;
  }
  return exit_code;
}
