// The tool's subcommands. Each Add*Command registers one on `app`; when it
// runs it sets `exit_code`: 0 success, 1 a finding, a difference or a
// failure, 2 a usage error or an input that cannot be read. Results go to
// stdout, diagnostics to stderr. Every subcommand's help ends with an
// example.
#ifndef TOOLS_Q3A_TUNING_COMMANDS_COMMANDS_H_
#define TOOLS_Q3A_TUNING_COMMANDS_COMMANDS_H_

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <string>

#include "tools/q3a_tuning/commands/diagnostic_sink.h"
#include "tools/q3a_tuning/io/table_file.h"
#include "tools/q3a_tuning/io/tool_error.h"

namespace q3a_tool {

void AddGetCommand(CLI::App& app, int& exit_code);
void AddSetCommand(CLI::App& app, int& exit_code);
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
void AddReportCommand(CLI::App& app, int& exit_code);
void AddSchemaCommand(CLI::App& app, int& exit_code);
void AddCompletionCommand(CLI::App& app, int& exit_code);

// Writes the four tables of `tuning` into `directory` (export and dump) and
// reports each file: written or already holding its table on stdout,
// warnings and refusals on stderr. Returns the exit code.
int ExportTableFiles(const qawb::QAWBTuning& tuning,
                     const std::string& directory,
                     const TableFileOptions& options);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_COMMANDS_COMMANDS_H_
