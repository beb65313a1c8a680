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

// Registers one subcommand on `app`.
using AddCommandFunction = void(CLI::App& app, int& exit_code);
AddCommandFunction AddGetCommand, AddSetCommand, AddListCommand,
    AddExportCommand, AddValidateCommand, AddConvertCommand, AddDumpCommand,
    AddRestoreCommand, AddInspectCommand, AddDiffCommand, AddLoadCommand,
    AddPlotCommand, AddReportCommand, AddSchemaCommand;

// `completion bash`, hidden from the help: the completion script made from
// the subcommands registered on `app` before it.
AddCommandFunction AddCompletionCommand;

// Every subcommand, in the order --help lists them.
inline constexpr AddCommandFunction* kAddCommands[] = {
    AddListCommand,    AddExportCommand,  AddValidateCommand, AddGetCommand,
    AddSetCommand,     AddConvertCommand, AddDumpCommand,     AddRestoreCommand,
    AddInspectCommand, AddDiffCommand,    AddLoadCommand,     AddPlotCommand,
    AddReportCommand,  AddSchemaCommand};

// Writes the four tables of `tuning` into `directory` (export and dump) and
// reports each file: written or already holding its table on stdout,
// warnings and refusals on stderr. Returns the exit code.
int ExportTableFiles(const qawb::QAWBTuning& tuning,
                     const std::string& directory,
                     const TableFileOptions& options);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_COMMANDS_COMMANDS_H_
