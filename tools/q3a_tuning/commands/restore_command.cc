// `restore`: a tuning binary file of the mutable container built from
// tuning files over a base.
#include <fmt/format.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/io/output_file.h"
#include "tools/q3a_tuning/io/tuning_binary_file.h"

namespace q3a_tool {
namespace {

using qawb::MutableQAWBTuning;

struct RestoreOptions {
  std::map<qawb::TableId, std::string> files;
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
  if (auto refused = CheckOutputPath(options.output, output); !refused.ok()) {
    return ReportError(refused.error());
  }
  auto tuning = std::make_unique<MutableQAWBTuning>();
  std::string base_name = "defaults";
  if (!options.key.empty()) {
    const auto fixed = RegisteredContainer(options.key);
    if (!fixed.ok()) return ReportError(fixed.error());
    qawb::CopyTables(**fixed, *tuning);
    base_name = "awb:" + options.key;
  } else if (!options.base.empty()) {
    if (auto error = ReadTuningBinaryFile(options.base, *tuning); !error.ok()) {
      return ReportError(error.error());
    }
    base_name = options.base;
  }
  std::vector<std::string> lines;
  for (qawb::TableId kind : kAllTableIds) {
    const auto file = options.files.find(kind);
    std::string source = base_name;
    if (file != options.files.end()) {
      const Result<FileFormat> format =
          InputFormat(file->second, options.from);
      if (!format.ok()) return ReportError(format.error());
      const Result<> error =
          qawb::VisitTable(kind, [&]<typename Record>() -> Result<> {
            auto table = MakeZeroedTable<Record>();
            if (auto failed = LoadTableFile(file->second, *format, *table);
                !failed.ok()) {
              return failed;
            }
            qawb::SetTable(*tuning, table.get());
            return {};
          });
      if (!error.ok()) return ReportError(error.error());
      source = file->second;
    }
    lines.push_back(fmt::format("{:<8} {:<6} from {}", TableName(kind),
                                VersionString(*TableVersion(*tuning, kind)),
                                source));
  }
  if (auto error = WriteTuningBinaryFile(options.output, *tuning, output);
      !error.ok()) {
    return ReportError(error.error());
  }
  for (const std::string& line : lines) fmt::print("{}\n", line);
  fmt::print("{}\n", options.output);
  return kExitOk;
}

}  // namespace

void AddRestoreCommand(CLI::App& app, int& exit_code) {
  auto [command, options] =
      AddSubcommand(app, exit_code, "restore", RunRestore);
  for (qawb::TableId kind : kAllTableIds) {
    command->add_option_function<std::string>(
        "--" + std::string(TableName(kind)),
        [options, kind](const std::string& path) {
          options->files[kind] = path;
        },
        "Tuning file of the " + std::string(TableName(kind)) + " table");
  }
  auto* base =
      command->add_option("--base", options->base, "Tuning binary file");
  AddKeyOption(*command, options->key, "its tables are the base")
      ->excludes(base);
  AddFromOption(*command, options->from);
  AddOutputOption(*command, options->output, "Tuning binary file")
      ->required();
}

}  // namespace q3a_tool
