// `dump`: a tuning binary file of the mutable container split into four
// tuning files.
#include <fmt/format.h>

#include <memory>
#include <string>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/table_sources.h"

namespace q3a_tool {
namespace {

using qawb::MutableQAWBTuning;

struct DumpOptions {
  std::string input;
  std::string directory;
  std::string format = "json";
  bool compact = false;
  bool force = false;
};

int RunDump(const DumpOptions& options) {
  const std::optional<FileFormat> format = ParseFileFormat(options.format);
  if (!format) return ReportError({"--format: use json or binary", kExitUsage});
  auto tuning = std::make_unique<MutableQAWBTuning>();
  if (auto error = ReadTuningBinaryFile(options.input, *tuning)) {
    return ReportError(*error);
  }
  const std::string inputs[] = {options.input};
  return ExportTableFiles(
      *tuning, options.directory,
      {*format, options.compact,
       {.inputs = inputs, .keep_differing = !options.force}});
}

}  // namespace

void AddDumpCommand(CLI::App& app, int& exit_code) {
  auto options = std::make_shared<DumpOptions>();
  CLI::App* command = AddSubcommand(
      app, exit_code, "dump",
      "Split a tuning binary file into four tuning files (basic, advance, "
      "color, feature) in a directory. A file there that holds anything "
      "else (an edit) is left as it was, and named, unless --force.",
      "q3a-tuning dump tuning.bin -o tables", options, RunDump);
  command->add_option("input", options->input, "Tuning binary file")
      ->required();
  AddOutputOption(*command, options->directory, "Output directory")
      ->required();
  AddFormatOption(*command, options->format);
  AddCompactFlag(*command, options->compact);
  AddReplaceFlag(*command, options->force);
}

}  // namespace q3a_tool
