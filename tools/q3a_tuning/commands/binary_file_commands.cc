// `dump`, `restore` and `inspect`: the tuning binary file of the mutable
// container, split into four tuning files, built from them, and looked at.
#include <fmt/format.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/io/input_file.h"
#include "tools/q3a_tuning/io/output_file.h"
#include "tools/q3a_tuning/io/table_guess.h"
#include "tools/q3a_tuning/io/tuning_binary_file.h"
#include "tools/q3a_tuning/lint/table_diagnostics.h"

namespace q3a_tool {
namespace {

using qawb::MutableQAWBTuning;

// Checks the size before the container reads, so the user gets the reason
// on stderr rather than only in the Android log.
std::optional<ToolError> ReadTuningBinaryFile(const std::string& path,
                                              MutableQAWBTuning& tuning) {
  const Result<TuningBinaryFileInfo> info = InspectTuningBinaryFile(path);
  if (!info.ok()) return info.error();
  if (!info->size_ok) {
    return ToolError{fmt::format(
        "{}: {} bytes, but a tuning binary file has exactly {}", path,
        info->size, MutableQAWBTuning::kTuningBinaryFileSize)};
  }
  if (!info->Plausible()) return ToolError{info->ImplausibleText(path)};
  if (!tuning.ReadFromFile(path)) {
    return ToolError{path + ": the container refused the file"};
  }
  return std::nullopt;
}

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

struct RestoreOptions {
  std::map<TableKind, std::string> files;
  std::string base;
  std::string key;
  std::string output;
  std::string from;
};

int RunRestore(const RestoreOptions& options) {
  std::vector<std::string> inputs;
  for (const auto& [kind, path] : options.files) inputs.push_back(path);
  if (!options.base.empty()) inputs.push_back(options.base);
  const OutputOptions output{.inputs = inputs};
  if (auto refused = CheckOutputPath(options.output, output)) {
    return ReportError(*refused);
  }
  auto tuning = std::make_unique<MutableQAWBTuning>();
  std::string base_name = "defaults";
  if (!options.key.empty()) {
    const auto fixed = RegisteredContainer(options.key);
    if (!fixed.ok()) return ReportError(fixed.error());
    qawb::CopyTables(**fixed, *tuning);
    base_name = "awb:" + options.key;
  } else if (!options.base.empty()) {
    if (auto error = ReadTuningBinaryFile(options.base, *tuning)) {
      return ReportError(*error);
    }
    base_name = options.base;
  }
  std::vector<std::string> lines;
  for (TableKind kind : kAllTableKinds) {
    const auto file = options.files.find(kind);
    std::string source = base_name;
    if (file != options.files.end()) {
      const Result<FileFormat> format =
          InputFormat(file->second, options.from);
      if (!format.ok()) return ReportError(format.error());
      const std::optional<ToolError> error =
          VisitTableKind(kind, [&](auto type) -> std::optional<ToolError> {
            using Record = typename decltype(type)::type;
            auto table = MakeZeroedTable<Record>();
            if (auto failed = LoadTableFile(file->second, *format, *table)) {
              return failed;
            }
            qawb::SetTable(*tuning, table.get());
            return std::nullopt;
          });
      if (error) return ReportError(*error);
      source = file->second;
    }
    lines.push_back(fmt::format("{:<8} {:<6} from {}", TableName(kind),
                                VersionString(*TableVersion(*tuning, kind)),
                                source));
  }
  if (auto error = WriteTuningBinaryFile(options.output, *tuning, output)) {
    return ReportError(*error);
  }
  for (const std::string& line : lines) fmt::print("{}\n", line);
  fmt::print("{}\n", options.output);
  return kExitOk;
}

int RunInspect(const std::string& path) {
  const Result<TuningBinaryFileInfo> info = InspectTuningBinaryFile(path);
  if (!info.ok()) return ReportError(info.error());
  fmt::print("{}: {} bytes, {}\n", path, info->size,
             info->size_ok
                 ? "the size of a tuning binary file"
                 : fmt::format("but a tuning binary file has exactly {}; the "
                               "container will refuse it",
                               MutableQAWBTuning::kTuningBinaryFileSize));
  for (const TableHead& head : info->tables) {
    fmt::print("  {:<8} offset {:>6} size {:>6} version {}\n",
               TableName(head.kind), head.offset, head.size,
               head.version ? VersionString(*head.version) : "(past the end)");
  }
  if (info->size_ok && !info->Plausible()) {
    fmt::print(stderr, "{}\n", info->ImplausibleText(path));
  }
  return info->size_ok && info->Plausible() ? kExitOk : kExitFailure;
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

void AddRestoreCommand(CLI::App& app, int& exit_code) {
  auto options = std::make_shared<RestoreOptions>();
  auto* command = app.add_subcommand(
      "restore",
      "Build a tuning binary file from tuning files. Tables without a file "
      "come from --base, --key or the default tables; each file is read over "
      "a zeroed table, as the override loader does.");
  for (TableKind kind : kAllTableKinds) {
    command->add_option_function<std::string>(
        "--" + std::string(TableName(kind)),
        [options, kind](const std::string& path) {
          options->files[kind] = path;
        },
        "Tuning file of the " + std::string(TableName(kind)) + " table");
  }
  auto* base =
      command->add_option("--base", options->base, "Tuning binary file");
  auto* key = command->add_option("--key", options->key,
                                  "Key of a registered AWB container");
  base->excludes(key);
  AddFromOption(*command, options->from);
  command->add_option("-o,--output", options->output, "Tuning binary file")
      ->required();
  command->footer(
      "Example:\n  q3a-tuning restore --key 0,-1,1,0,-1 --feature "
      "feature.json -o tuning.bin");
  command->callback(
      [&exit_code, options] { exit_code = RunRestore(*options); });
}

void AddInspectCommand(CLI::App& app, int& exit_code) {
  auto path = std::make_shared<std::string>();
  auto* command = app.add_subcommand(
      "inspect",
      "Show a tuning binary file's size and its four tables' offsets and "
      "version heads. Exit 1 if the size is wrong or the tables hold what "
      "no table holds (versions, counts, frame-summary kinds, flags).");
  command->add_option("input", *path, "Tuning binary file")->required();
  command->footer("Example:\n  q3a-tuning inspect tuning.bin");
  command->callback([&exit_code, path] { exit_code = RunInspect(*path); });
}

}  // namespace q3a_tool
