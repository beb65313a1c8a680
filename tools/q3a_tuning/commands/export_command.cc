// `export`: the four AWB tables of a registered container, or the mutable
// container's defaults, written as tuning files through the library's
// writers (or in the compact form).
#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/diagnostic_sink.h"
#include "tools/q3a_tuning/commands/table_files_output.h"
#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/io/json_schema.h"
#include "tools/q3a_tuning/io/output_file.h"
#include "tools/q3a_tuning/io/table_id.h"
#include "tools/q3a_tuning/io/table_file.h"

namespace q3a_tool {
namespace {

struct ExportOptions {
  std::string node = "awb";
  std::string key;
  bool defaults = false;
  TableFilesOutput output;
  bool schemas = false;
};

// Each table's JSON Schema beside its file; prints each one written.
int WriteSchemaFiles(const std::string& directory) {
  int exit_code = kExitOk;
  for (qawb::TableId id : kAllTableIds) {
    const std::string path = directory + "/" + SchemaFileName(id);
    if (auto error = WriteOutputFile(path, TableJsonSchema(id), {.text = true});
        !error.ok()) {
      exit_code = ReportError(error.error());
      continue;
    }
    fmt::print("{}\n", path);
  }
  return exit_code;
}

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
  if (options.schemas && write->format != FileFormat::kJson) {
    return ReportError(
        {"--schemas: schemas describe JSON files; drop --format binary",
         kExitUsage});
  }
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
  const int exit_code =
      ExportTableFiles(*tuning, options.output.directory, *write);
  if (!options.schemas || exit_code == kExitUsage) return exit_code;
  return std::max(exit_code, WriteSchemaFiles(options.output.directory));
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
  command->add_flag("--schemas", options->schemas,
                    "Also write each table's JSON Schema beside its file, "
                    "as basic.schema.json and so on (JSON only)");
}

}  // namespace q3a_tool
