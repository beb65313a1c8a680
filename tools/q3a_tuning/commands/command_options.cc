#include "tools/q3a_tuning/commands/command_options.h"

namespace q3a_tool {

CLI::Option* AddFromOption(CLI::App& command, std::string& from) {
  return command.add_option(
      "--from", from,
      "Format of the input tuning files, json or binary (from the name, "
      ".json or .pb, if omitted)");
}

}  // namespace q3a_tool
