// `export`: the four AWB tables of a registered container, or the mutable
// container's defaults, written as tuning files through the library's
// writers (or in the compact form).
#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/io/json_schema.h"
#include "tools/q3a_tuning/io/table_file.h"

namespace q3a_tool {
namespace {

struct ExportOptions {
  std::string node = "awb";
  std::string key;
  bool defaults = false;
  std::string directory;
  std::string format = "json";
  bool compact = false;
  bool force = false;
  bool schemas = false;
};

// Each table's JSON Schema beside its file; prints each one written.
int WriteSchemaFiles(const std::string& directory) {
  int exit_code = kExitOk;
  for (TableKind kind : kAllTableKinds) {
    const std::string path = directory + "/" + SchemaFileName(kind);
    if (auto error =
            WriteOutputFile(path, TableJsonSchema(kind), {.text = true})) {
      exit_code = ReportError(*error);
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
  const std::optional<FileFormat> format = ParseFileFormat(options.format);
  if (!format) return ReportError({"--format: use json or binary", kExitUsage});
  if (options.schemas && *format != FileFormat::kJson) {
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
      ExportTableFiles(*tuning, options.directory,
                       {*format, options.compact,
                        {.keep_differing = !options.force}});
  if (!options.schemas || exit_code == kExitUsage) return exit_code;
  return std::max(exit_code, WriteSchemaFiles(options.directory));
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
  for (const std::string& warning : result.warnings) {
    fmt::print(stderr, "warning: {}\n", warning);
  }
  for (const ToolError& error : result.errors) ReportError(error);
  for (const std::string& path : result.written) fmt::print("{}\n", path);
  return result.errors.empty() ? kExitOk : kExitFailure;
}

void AddExportCommand(CLI::App& app, int& exit_code) {
  auto options = std::make_shared<ExportOptions>();
  auto* command = app.add_subcommand(
      "export",
      "Write the four AWB tables of a registered container (or the mutable "
      "container's defaults) as tuning files basic, advance, color and "
      "feature in a directory (created if needed); prints the files that "
      "hold them. A file there that holds anything else (an edit) is "
      "left as it was, and named, unless --force.");
  command->add_option("--node", options->node, "Node type (only awb)")
      ->capture_default_str();
  auto* key = command->add_option(
      "--key", options->key,
      "Tuning key use_case,sensor_mode,camera_position,lens_type,reserved");
  auto* defaults = command->add_flag(
      "--defaults", options->defaults,
      "Export the tables a fresh mutable container starts with");
  key->excludes(defaults);
  command->add_option("-o,--output", options->directory, "Output directory")
      ->required();
  command->add_option("--format", options->format, "json or binary")
      ->capture_default_str();
  command->add_flag("--compact", options->compact,
                    "Write only what carries meaning: lists up to their "
                    "counts, no zero tails, no default scalars");
  command->add_flag("--force", options->force,
                    "Replace files that hold something else");
  command->add_flag("--schemas", options->schemas,
                    "Also write each table's JSON Schema beside its file, "
                    "as basic.schema.json and so on (JSON only)");
  command->footer("Example:\n  q3a-tuning export --key 0,-1,1,0,-1 -o tables");
  command->callback([&exit_code, options, key, defaults] {
    if (key->count() == 0 && defaults->count() == 0) {
      throw CLI::ValidationError("export", "give --key KEY or --defaults");
    }
    exit_code = RunExport(*options);
  });
}

}  // namespace q3a_tool
