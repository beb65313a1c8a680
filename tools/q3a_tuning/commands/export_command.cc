// `export`: the four AWB tables of a registered container, or the mutable
// container's defaults, written as tuning files through the library's
// writers (or in the compact form).
#include <fmt/format.h>

#include <memory>
#include <string>
#include <vector>

#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/diagnostic_sink.h"
#include "tools/q3a_tuning/commands/table_files_output.h"
#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/io/table_file.h"

namespace q3a_tool {
namespace {

struct ExportOptions {
  std::string node = "awb";
  std::string key;
  bool defaults = false;
  TableFilesOutput output;
};

int RunExport(const ExportOptions& options) {
  if (options.node != "awb") {
    return ReportError(
        {fmt::format("--node: only AWB containers have tables to export, not "
                     "'{}'",
                     options.node),
         kExitUsage});
  }
  const Result<TableFileOptions> write = TableFilesOptions(options.output);
  if (!write.ok()) return ReportError(write.error());
  std::unique_ptr<qawb::MutableQAWBTuning> defaults;
  const qawb::QAWBTuning* tuning = nullptr;
  if (options.defaults) {
    defaults = DefaultContainer();
    tuning = defaults.get();
  } else {
    const auto container = RegisteredContainer(options.key);
    if (!container.ok()) return ReportError(container.error());
    tuning = *container;
  }
  return ExportTableFiles(*tuning, options.output.directory, *write);
}

}  // namespace

int ExportTableFiles(const qawb::QAWBTuning& tuning,
                     const std::string& directory,
                     const TableFileOptions& options) {
  if (directory == kStdoutPath) {
    return ReportError({"-o -: four files cannot go to stdout; name a "
                        "directory",
                        kExitUsage});
  }
  const TableFilesResult result = WriteTableFiles(tuning, directory, options);
  DiagnosticSink().Report(result.warnings);
  for (const ToolError& error : result.errors) ReportError(error);
  for (const std::string& path : result.written) fmt::print("{}\n", path);
  return result.errors.empty() ? kExitOk : kExitFailure;
}

void AddExportCommand(CLI::App& app, int& exit_code) {
  auto [command, options] = AddSubcommand(app, exit_code, "export", RunExport);
  command->add_option("--node", options->node, "Node type (only awb)")
      ->capture_default_str();
  auto* key = AddKeyOption(*command, options->key, "the tables to export");
  auto* defaults = command->add_flag(
      "--defaults", options->defaults,
      "Export the tables a fresh mutable container starts with");
  key->excludes(defaults);
  // One of them is needed; checked before the command runs.
  command->parse_complete_callback([key, defaults] {
    if (key->count() == 0 && defaults->count() == 0) {
      throw CLI::ValidationError("export", "give --key KEY or --defaults");
    }
  });
  AddTableFilesOutput(*command, options->output);
}

}  // namespace q3a_tool
