// What the commands that write the four tables as tuning files in a
// directory (export, dump) take on the command line, defined once.
#ifndef TOOLS_Q3A_TUNING_COMMANDS_TABLE_FILES_OUTPUT_H_
#define TOOLS_Q3A_TUNING_COMMANDS_TABLE_FILES_OUTPUT_H_

#include <CLI/CLI.hpp>
#include <span>
#include <string>

#include "tools/q3a_tuning/io/table_file.h"
#include "tools/q3a_tuning/io/tool_error.h"

namespace q3a_tool {

struct TableFilesOutput {
  std::string directory;
  std::string format = "json";
  bool compact = false;
  bool force = false;
};

// -o DIR, --format, --compact and --force.
void AddTableFilesOutput(CLI::App& command, TableFilesOutput& output);

// The write options `output` asks for, `inputs` being the command's input
// files; a usage error for a --format that is neither json nor binary.
Result<TableFileOptions> TableFilesOptions(
    const TableFilesOutput& output, std::span<const std::string> inputs = {});

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_COMMANDS_TABLE_FILES_OUTPUT_H_
