// The tool's subcommands. Each Add*Command registers one on `app`; when it
// runs it sets `exit_code`: 0 success, 1 a finding or a failure. Usage
// errors throw CLI::ValidationError, which main turns into exit code 2.
// Results go to stdout, diagnostics to stderr.
#ifndef TOOLS_Q3A_TUNING_COMMANDS_H_
#define TOOLS_Q3A_TUNING_COMMANDS_H_

#include <CLI/CLI.hpp>

#include "tools/q3a_tuning/tool_error.h"

namespace q3a_tool {

void AddListCommand(CLI::App& app, int& exit_code);
void AddExportCommand(CLI::App& app, int& exit_code);
void AddValidateCommand(CLI::App& app, int& exit_code);
void AddConvertCommand(CLI::App& app, int& exit_code);
void AddDumpCommand(CLI::App& app, int& exit_code);
void AddRestoreCommand(CLI::App& app, int& exit_code);
void AddInspectCommand(CLI::App& app, int& exit_code);
void AddDiffCommand(CLI::App& app, int& exit_code);
void AddLoadCommand(CLI::App& app, int& exit_code);
void AddPlotCommand(CLI::App& app, int& exit_code);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_COMMANDS_H_
