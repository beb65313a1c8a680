// `dump`: a tuning binary file of the mutable container split into four
// tuning files.
#include <fmt/format.h>

#include <memory>
#include <string>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/table_files_output.h"
#include "tools/q3a_tuning/commands/table_sources.h"

namespace q3a_tool {
namespace {

using qawb::MutableQAWBTuning;

struct DumpOptions {
  std::string input;
  TableFilesOutput output;
};

int RunDump(const DumpOptions& options) {
  const std::string inputs[] = {options.input};
  const Result<TableFileOptions> write =
      TableFilesOptions(options.output, inputs);
  if (!write.ok()) return ReportError(write.error());
  auto tuning = std::make_unique<MutableQAWBTuning>();
  if (auto error = ReadTuningBinaryFile(options.input, *tuning); !error.ok()) {
    return ReportError(error.error());
  }
  return ExportTableFiles(*tuning, options.output.directory, *write);
}

}  // namespace

void AddDumpCommand(CLI::App& app, int& exit_code) {
  auto [command, options] = AddSubcommand(app, exit_code, "dump", RunDump);
  AddOperand(*command, "input", options->input, "Tuning binary file");
  AddTableFilesOutput(*command, options->output);
}

}  // namespace q3a_tool
