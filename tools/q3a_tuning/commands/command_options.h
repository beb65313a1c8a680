// How a subcommand is registered, and the options several subcommands
// take, each defined once here so that they read and behave alike
// everywhere.
#ifndef TOOLS_Q3A_TUNING_COMMANDS_COMMAND_OPTIONS_H_
#define TOOLS_Q3A_TUNING_COMMANDS_COMMAND_OPTIONS_H_

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <string_view>

namespace q3a_tool {

namespace internal {
// Adds the subcommand `name` with its help from subcommands.md.
CLI::App* AddHelpedSubcommand(CLI::App& app, std::string_view name);
}  // namespace internal

// A registered subcommand and the options its flags fill.
template <typename Options>
struct Subcommand {
  CLI::App* command;
  std::shared_ptr<Options> options;
};

// Registers the subcommand `name`, its help (ending with an example) read
// from subcommands.md. When it runs, `run` gets the options as its flags
// filled them, and its result becomes the tool's exit code.
template <typename Options>
Subcommand<Options> AddSubcommand(CLI::App& app, int& exit_code,
                                  std::string_view name,
                                  int (*run)(const Options&)) {
  auto options = std::make_shared<Options>();
  CLI::App* command = internal::AddHelpedSubcommand(app, name);
  command->callback(
      [&exit_code, options, run] { exit_code = run(*options); });
  return {command, std::move(options)};
}

// A positional argument the command cannot run without.
template <typename T>
CLI::Option* AddOperand(CLI::App& command, std::string name, T& value,
                        std::string help) {
  return command.add_option(std::move(name), value, std::move(help))
      ->required();
}

// --from FORMAT: the format of the command's input tuning files, for names
// that do not tell (feature.json~, feature.bak, /dev/stdin).
CLI::Option* AddFromOption(CLI::App& command, std::string& from);

// --table TABLE: which table the input holds, guessed if omitted.
CLI::Option* AddTableOption(CLI::App& command, std::string& table);

// --key KEY: a registered AWB container; `role` says what the command does
// with it.
CLI::Option* AddKeyOption(CLI::App& command, std::string& key,
                          const std::string& role);

// --format json|binary: what the written tuning files hold.
CLI::Option* AddFormatOption(CLI::App& command, std::string& format);

// --compact: write only what carries meaning.
CLI::Option* AddCompactFlag(CLI::App& command, bool& compact);

// --force: replace files in the output directory that hold something else.
CLI::Option* AddReplaceFlag(CLI::App& command, bool& force);

// -o/--output: where the command writes, `what` being the help text.
CLI::Option* AddOutputOption(CLI::App& command, std::string& output,
                             const std::string& what);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_COMMANDS_COMMAND_OPTIONS_H_
