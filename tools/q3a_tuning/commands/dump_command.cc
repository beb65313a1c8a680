// `dump`: a tuning binary file of the mutable container split into four
// tuning files.
#include <fmt/format.h>

#include <memory>
#include <string>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
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
  auto* command = app.add_subcommand(
      "dump",
      "Split a tuning binary file into four tuning files (basic, advance, "
      "color, feature) in a directory. A file there that holds anything "
      "else (an edit) is left as it was, and named, unless --force.");
  command->add_option("input", options->input, "Tuning binary file")
      ->required();
  command->add_option("-o,--output", options->directory, "Output directory")
      ->required();
  command->add_option("--format", options->format, "json or binary")
      ->capture_default_str();
  command->add_flag("--compact", options->compact,
                    "Write only what carries meaning (see export)");
  command->add_flag("--force", options->force,
                    "Replace files that hold something else");
  command->footer("Example:\n  q3a-tuning dump tuning.bin -o tables");
  command->callback([&exit_code, options] { exit_code = RunDump(*options); });
}

}  // namespace q3a_tool
