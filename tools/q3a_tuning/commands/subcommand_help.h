// The help of each subcommand: its description and the example its help
// ends with, kept as text in subcommands.md and built into the tool.
#ifndef TOOLS_Q3A_TUNING_COMMANDS_SUBCOMMAND_HELP_H_
#define TOOLS_Q3A_TUNING_COMMANDS_SUBCOMMAND_HELP_H_

#include <string>
#include <string_view>

namespace q3a_tool {

struct SubcommandHelp {
  std::string description;  // one line
  std::string example;      // a command line
};

// The help of subcommand `name`; both strings empty if subcommands.md has
// no section for it.
SubcommandHelp FindSubcommandHelp(std::string_view name);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_COMMANDS_SUBCOMMAND_HELP_H_
