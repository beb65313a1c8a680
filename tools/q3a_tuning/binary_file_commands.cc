// `dump`, `restore` and `inspect`: the tuning binary file of the mutable
// container, split into four tuning files, built from them, and looked at.
#include <fmt/format.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "tools/q3a_tuning/commands.h"
#include "tools/q3a_tuning/table_diagnostics.h"
#include "tools/q3a_tuning/table_guess.h"
#include "tools/q3a_tuning/table_sources.h"
#include "tools/q3a_tuning/tuning_binary_file.h"

namespace q3a_tool {
namespace {

using qawb::MutableQAWBTuning;

// Checks the size before the container reads, so the user gets the reason
// on stderr rather than only in the Android log.
bool ReadTuningBinaryFile(const std::string& path, MutableQAWBTuning& tuning) {
  std::string error;
  const std::optional<TuningBinaryFileInfo> info =
      InspectTuningBinaryFile(path, error);
  if (!info) {
    fmt::print(stderr, "{}: cannot read the file: {}\n", path, error);
    return false;
  }
  if (!info->size_ok) {
    fmt::print(stderr,
               "{}: {} bytes, but a tuning binary file has exactly {}\n", path,
               info->size, MutableQAWBTuning::kTuningBinaryFileSize);
    return false;
  }
  if (!tuning.ReadFromFile(path)) {
    fmt::print(stderr, "{}: the container refused the file\n", path);
    return false;
  }
  return true;
}

bool WriteTuningBinaryFile(const std::string& path,
                           const MutableQAWBTuning& tuning) {
  std::error_code ignored;
  std::filesystem::remove(path, ignored);
  tuning.WriteToFile(path);
  if (std::filesystem::file_size(path, ignored) !=
      MutableQAWBTuning::kTuningBinaryFileSize) {
    fmt::print(stderr, "{}: could not write the tuning binary file\n", path);
    return false;
  }
  return true;
}

struct DumpOptions {
  std::string input;
  std::string directory;
  std::string format = "json";
};

int RunDump(const DumpOptions& options) {
  const std::optional<FileFormat> format = ParseFileFormat(options.format);
  if (!format) throw CLI::ValidationError("--format", "use json or binary");
  auto tuning = std::make_unique<MutableQAWBTuning>();
  if (!ReadTuningBinaryFile(options.input, *tuning)) return kExitFailure;
  return WriteTableFiles(*tuning, options.directory, *format) ? kExitOk
                                                              : kExitFailure;
}

struct RestoreOptions {
  std::map<TableKind, std::string> files;
  std::string base;
  std::string key;
  std::string output;
};

int RunRestore(const RestoreOptions& options) {
  auto tuning = std::make_unique<MutableQAWBTuning>();
  std::string base_name = "defaults";
  if (!options.key.empty()) {
    const qawb::QAWBTuning& fixed = RegisteredContainer(options.key);
    tuning->ReadFromTable(
        fixed.GetBasicTuningTable(), fixed.GetAdvanceTuningTable(),
        fixed.GetColorControlTuningTable(), fixed.GetFeatureTuningTable());
    base_name = "awb:" + options.key;
  } else if (!options.base.empty()) {
    if (!ReadTuningBinaryFile(options.base, *tuning)) return kExitFailure;
    base_name = options.base;
  }
  for (TableKind kind : kAllTableKinds) {
    const auto file = options.files.find(kind);
    std::string source = base_name;
    if (file != options.files.end()) {
      const FileFormat format = ResolveFormat(file->second, "");
      const bool loaded = VisitTableKind(kind, [&](auto type) {
        using Record = typename decltype(type)::type;
        auto table = MakeZeroedTable<Record>();
        std::string error;
        if (!LoadTableFile(file->second, format, *table, error)) {
          fmt::print(stderr, "{}\n", error);
          return false;
        }
        if constexpr (std::is_same_v<Record, qawb::QAWBBasicTuningTable>) {
          tuning->SetBasicTuningTable(table.get());
        } else if constexpr (std::is_same_v<Record,
                                            qawb::QAWBAdvanceTuningTable>) {
          tuning->SetAdvanceTuningTable(table.get());
        } else if constexpr (std::is_same_v<
                                 Record, qawb::QAWBColorControlTuningTable>) {
          tuning->SetColorControlTuningTable(table.get());
        } else {
          tuning->SetFeatureTuningTable(table.get());
        }
        return true;
      });
      if (!loaded) return kExitFailure;
      source = file->second;
    }
    fmt::print("{:<8} {:<6} from {}\n", TableName(kind),
               VersionString(*TableVersion(*tuning, kind)), source);
  }
  if (!WriteTuningBinaryFile(options.output, *tuning)) return kExitFailure;
  fmt::print("{}\n", options.output);
  return kExitOk;
}

int RunInspect(const std::string& path) {
  std::string error;
  const std::optional<TuningBinaryFileInfo> info =
      InspectTuningBinaryFile(path, error);
  if (!info) {
    fmt::print(stderr, "{}: cannot read the file: {}\n", path, error);
    return kExitFailure;
  }
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
  return info->size_ok ? kExitOk : kExitFailure;
}

}  // namespace

void AddDumpCommand(CLI::App& app, int& exit_code) {
  auto options = std::make_shared<DumpOptions>();
  auto* command = app.add_subcommand(
      "dump",
      "Split a tuning binary file into four tuning files (basic, advance, "
      "color, feature) in a directory.");
  command->add_option("input", options->input, "Tuning binary file")
      ->required();
  command->add_option("-o,--output", options->directory, "Output directory")
      ->required();
  command->add_option("--format", options->format, "json or binary")
      ->capture_default_str();
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
  command->add_option("-o,--output", options->output, "Tuning binary file")
      ->required();
  command->callback(
      [&exit_code, options] { exit_code = RunRestore(*options); });
}

void AddInspectCommand(CLI::App& app, int& exit_code) {
  auto path = std::make_shared<std::string>();
  auto* command = app.add_subcommand(
      "inspect",
      "Show a tuning binary file's size and its four tables' offsets and "
      "version heads. Exit 1 if the size is wrong.");
  command->add_option("input", *path, "Tuning binary file")->required();
  command->callback([&exit_code, path] { exit_code = RunInspect(*path); });
}

}  // namespace q3a_tool
