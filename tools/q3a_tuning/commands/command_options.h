// Options that several subcommands take, each defined once here so that
// they read and behave alike everywhere.
#ifndef TOOLS_Q3A_TUNING_COMMANDS_COMMAND_OPTIONS_H_
#define TOOLS_Q3A_TUNING_COMMANDS_COMMAND_OPTIONS_H_

#include <CLI/CLI.hpp>
#include <string>

namespace q3a_tool {

// --from FORMAT: the format of the command's input tuning files, for names
// that do not tell (feature.json~, feature.bak, /dev/stdin).
CLI::Option* AddFromOption(CLI::App& command, std::string& from);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_COMMANDS_COMMAND_OPTIONS_H_
