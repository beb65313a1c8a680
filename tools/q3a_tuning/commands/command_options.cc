#include "tools/q3a_tuning/commands/command_options.h"

#include "tools/q3a_tuning/commands/subcommand_help.h"
#include "tools/q3a_tuning/io/table_id.h"

namespace q3a_tool {

CLI::App* internal::AddHelpedSubcommand(CLI::App& app, std::string_view name) {
  SubcommandHelp help = FindSubcommandHelp(name);
  CLI::App* command =
      app.add_subcommand(std::string(name), std::move(help.description));
  command->footer("Example:\n  " + help.example);
  return command;
}

CLI::Option* AddFromOption(CLI::App& command, std::string& from) {
  return command.add_option(
      "--from", from,
      "Format of the input tuning files, json or binary (from the name, "
      ".json or .pb, if omitted)");
}

CLI::Option* AddTableOption(CLI::App& command, std::string& table) {
  return command.add_option("--table", table,
                            TableNames() + " (guessed if omitted)");
}

CLI::Option* AddKeyOption(CLI::App& command, std::string& key,
                          const std::string& role) {
  return command.add_option(
      "--key", key,
      "Tuning key of a registered AWB container (use_case,sensor_mode,"
      "camera_position,lens_type,reserved, e.g. 0,-1,1,0,-1): " +
          role);
}

CLI::Option* AddFormatOption(CLI::App& command, std::string& format) {
  return command.add_option("--format", format, "json or binary")
      ->capture_default_str();
}

CLI::Option* AddCompactFlag(CLI::App& command, bool& compact) {
  return command.add_flag("--compact", compact,
                          "Write only what carries meaning: lists up to "
                          "their counts, no zero tails, no default scalars");
}

CLI::Option* AddReplaceFlag(CLI::App& command, bool& force) {
  return command.add_flag("--force", force,
                          "Replace files that hold something else");
}

CLI::Option* AddOutputOption(CLI::App& command, std::string& output,
                             const std::string& what) {
  return command.add_option("-o,--output", output, what);
}

}  // namespace q3a_tool
