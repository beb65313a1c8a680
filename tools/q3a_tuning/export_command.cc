// `export`: the four AWB tables of a registered container, or the mutable
// container's defaults, written as tuning files through the library's
// writers.
#include <fmt/format.h>

#include <filesystem>
#include <memory>
#include <string>

#include "tools/q3a_tuning/commands.h"
#include "tools/q3a_tuning/table_file.h"
#include "tools/q3a_tuning/table_sources.h"

namespace q3a_tool {
namespace {

struct ExportOptions {
  std::string node = "awb";
  std::string key;
  bool defaults = false;
  std::string directory;
  std::string format = "json";
};

int RunExport(const ExportOptions& options) {
  if (options.node != "awb") {
    throw CLI::ValidationError(
        "--node", fmt::format("only AWB containers have tables to export, "
                              "not '{}'",
                              options.node));
  }
  const std::optional<FileFormat> format = ParseFileFormat(options.format);
  if (!format) {
    throw CLI::ValidationError("--format", "use json or binary");
  }
  std::unique_ptr<qawb::MutableQAWBTuning> defaults;
  const qawb::QAWBTuning* tuning = nullptr;
  if (options.defaults) {
    defaults = DefaultContainer();
    tuning = defaults.get();
  } else {
    tuning = &RegisteredContainer(options.key);
  }

  return WriteTableFiles(*tuning, options.directory, *format) ? kExitOk
                                                              : kExitFailure;
}

}  // namespace

void AddExportCommand(CLI::App& app, int& exit_code) {
  auto options = std::make_shared<ExportOptions>();
  auto* command = app.add_subcommand(
      "export",
      "Write the four AWB tables of a registered container (or the mutable "
      "container's defaults) as tuning files basic, advance, color and "
      "feature in a directory; prints the files written.");
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
  command->callback([&exit_code, options, key, defaults] {
    if (key->count() == 0 && defaults->count() == 0) {
      throw CLI::ValidationError("export", "give --key KEY or --defaults");
    }
    exit_code = RunExport(*options);
  });
}

}  // namespace q3a_tool
