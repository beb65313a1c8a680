#include "tools/q3a_tuning/commands/table_files_output.h"

#include "tools/q3a_tuning/commands/command_options.h"

namespace q3a_tool {

void AddTableFilesOutput(CLI::App& command, TableFilesOutput& output) {
  AddOutputOption(command, output.directory, "Output directory")->required();
  AddFormatOption(command, output.format);
  AddCompactFlag(command, output.compact);
  AddReplaceFlag(command, output.force);
}

Result<TableFileOptions> TableFilesOptions(
    const TableFilesOutput& output, std::span<const std::string> inputs) {
  const std::optional<FileFormat> format = ParseFileFormat(output.format);
  if (!format) return ToolError{"--format: use json or binary", kExitUsage};
  return TableFileOptions{
      *format,
      output.compact,
      {.inputs = inputs, .keep_differing = !output.force}};
}

}  // namespace q3a_tool
