// `load`: runs the library's override loader over a registered container
// exactly as the camera service does, and shows what it did: its DEBUG
// lines, and for each table whether it came from a file, from the fixed
// container, or stayed as it was because the file was not loaded (which
// the loader itself never reports).
#include <android-base/logging.h>
#include <fmt/format.h>

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/diagnostic_sink.h"
#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/io/input_file.h"
#include "tools/q3a_tuning/io/output_file.h"
#include "tools/q3a_tuning/io/tuning_binary_file.h"
#include "tools/q3a_tuning/lint/table_diagnostics.h"
#include "tools/q3a_tuning/lint/table_guess.h"
#include "tuning/qawb/load_qawb_tuning_from_file.h"

namespace q3a_tool {
namespace {

struct LoadOptions {
  std::vector<std::string> assignments;
  std::string key;
  std::string output;
};

// The setter the loader names in its DEBUG line for each table.
std::string_view SetterName(qawb::TableId kind) {
  return qawb::VisitTable(kind, []<typename Record>() {
    return protomsg::TuningTableTraits<Record>::kSetterName;
  });
}

std::string_view SeverityLetter(android::base::LogSeverity severity) {
  static constexpr std::string_view kLetters = "VDIWEFF";
  const int index = static_cast<int>(severity);
  return index >= 0 && index < static_cast<int>(kLetters.size())
             ? kLetters.substr(index, 1)
             : "?";
}

// Why the loader did not take `path` as the `kind` table.
Diagnostic WhyNotLoaded(const std::string& path, qawb::TableId kind) {
  const Result<std::string> content = ReadInputFile(path);
  if (!content.ok()) return DiagnosticOf(content.error(), path);
  if (FormatFromPath(path) == FileFormat::kBinary) {
    return {.file = path,
            .message =
                "the loader reads JSON tuning files only; this one is "
                "binary (`q3a-tuning convert` makes a JSON file of it)"};
  }
  if (auto refused = CheckTableFits(path, *content, FileFormat::kJson, kind);
      !refused.ok()) {
    return DiagnosticOf(refused.error(), path);
  }
  return DiagnoseReadFailure(path, FileFormat::kJson, kind);
}

int RunLoad(const LoadOptions& options) {
  // The loader looks up exact keys; the map's string_views point into this.
  std::unordered_map<std::string, std::string> files;
  std::vector<std::string> inputs;
  for (const std::string& assignment : options.assignments) {
    const std::size_t equals = assignment.find('=');
    const std::string name = assignment.substr(0, equals);
    if (equals == std::string::npos || !qawb::FindTable(name)) {
      return ReportError(
          {fmt::format("'{}': expected TABLE=PATH with TABLE one of {} (the "
                       "loader would silently ignore any other name)",
                       assignment, TableNames()),
           kExitUsage});
    }
    if (files.contains(name)) {
      return ReportError(
          {fmt::format("'{}': the {} table is already given as '{}'; the "
                       "loader takes one file per table",
                       assignment, name, files[name]),
           kExitUsage});
    }
    files[name] = assignment.substr(equals + 1);
    if (!files[name].empty()) inputs.push_back(files[name]);
  }
  const auto fixed = RegisteredContainer(options.key);
  if (!fixed.ok()) return ReportError(fixed.error());
  const OutputOptions output{.inputs = inputs};
  if (!options.output.empty()) {
    if (auto refused = CheckOutputPath(options.output, output); !refused.ok()) {
      return ReportError(refused.error());
    }
  }
  // A path the tool will not open (a FIFO would block the loader) is handed
  // over as empty, which leaves the table as a failed read does.
  std::unordered_map<std::string_view, std::string> file_map;
  for (const auto& [name, path] : files) {
    file_map.emplace(name,
                     path.empty() || !CheckInputFile(path).ok() ? "" : path);
  }

  std::vector<std::string> lines;
  android::base::SetMinimumLogSeverity(android::base::VERBOSE);
  android::base::SetLogger([&lines](android::base::LogId,
                                    android::base::LogSeverity severity,
                                    const char* tag, const char*, unsigned int,
                                    const char* message) {
    lines.push_back(fmt::format("{} {}: {}", SeverityLetter(severity),
                                tag == nullptr ? "" : tag, message));
  });
  const qawb::QAWBTuning* result =
      q3a_coordinator::LoadQawbTuningFromFile(file_map, *fixed);
  android::base::SetLogger(android::base::StderrLogger);

  for (const std::string& line : lines) fmt::print("{}\n", line);
  if (result == nullptr) {
    return ReportError({"the loader returned no container", kExitFailure});
  }
  int status = kExitOk;
  DiagnosticSink diagnostics;
  for (qawb::TableId kind : kAllTableIds) {
    const std::string version = VersionString(*TableVersion(*result, kind));
    const auto file = files.find(std::string(TableName(kind)));
    if (file == files.end()) {
      fmt::print("{:<8} {:<6} from the fixed container awb:{}\n",
                 TableName(kind), version, options.key);
      continue;
    }
    bool logged = false;
    for (const std::string& line : lines) {
      if (line.find(SetterName(kind)) != std::string::npos) logged = true;
    }
    if (logged) {
      fmt::print("{:<8} {:<6} from {}\n", TableName(kind), version,
                 file->second);
      continue;
    }
    fmt::print("{:<8} {:<6} unchanged (the default table): {}\n",
               TableName(kind), version,
               file->second.empty() ? "the path is empty"
                                    : file->second + " was not loaded");
    Diagnostic why = file->second.empty()
                         ? Diagnostic{.message = "the path is empty"}
                         : WhyNotLoaded(file->second, kind);
    why.message = fmt::format(
        "the {} table was not loaded: {}{}; the container keeps the table it "
        "held, here a fresh container's default {} table (version {}), not "
        "awb:{}'s",
        TableName(kind), why.path.empty() ? "" : why.path + ": ", why.message,
        TableName(kind), version, options.key);
    why.path.clear();
    diagnostics.Warn(why);
    status = kExitFailure;
  }
  if (!options.output.empty()) {
    auto copy = std::make_unique<qawb::MutableQAWBTuning>();
    qawb::CopyTables(*result, *copy);
    if (auto error = WriteTuningBinaryFile(options.output, *copy, output);
        !error.ok()) {
      return ReportError(error.error());
    }
    fmt::print("{}\n", options.output);
  }
  return status;
}

}  // namespace

void AddLoadCommand(CLI::App& app, int& exit_code) {
  auto [command, options] = AddSubcommand(app, exit_code, "load", RunLoad);
  command->add_option("files", options->assignments,
                      std::string("TABLE=PATH, TABLE one of ") + TableNames());
  AddKeyOption(*command, options->key, "the container to fall back to")
      ->required();
  AddOutputOption(*command, options->output,
                  "Write the result as a tuning binary file");
}

}  // namespace q3a_tool
