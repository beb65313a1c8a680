// `set`: changes values of a tuning file through the schema and writes the
// file back through the output routine (in place, atomically, unless -o
// names another file).
#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "protomsg/record_conversions.h"
#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/diagnostic_sink.h"
#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/io/edit_counts.h"
#include "tools/q3a_tuning/io/edit_lock.h"
#include "tools/q3a_tuning/io/output_file.h"
#include "tools/q3a_tuning/io/table_edit.h"
#include "tools/q3a_tuning/lint/lint.h"

namespace q3a_tool {
namespace {

struct SetOptions {
  std::string input;
  std::vector<std::string> assignments;
  std::string output;
  std::string table;
  std::string from;
  bool compact = false;
  bool force = false;
};

// The edit of `message`: each assignment applied, then checked against the
// count rules and the lint. Reports the warnings; returns the change lines,
// or the error that stops the edit.
Result<std::vector<std::string>> ApplyAssignments(
    google::protobuf::Message& message, const SetOptions& options,
    DiagnosticSink& diagnostics) {
  std::vector<std::string> before_findings;
  for (const Diagnostic& f : LintTableMessage(message)) {
    before_findings.push_back(f.path + f.message);
  }
  std::vector<std::string> changes;
  std::vector<std::string> paths;
  for (const std::string& assignment : options.assignments) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos) {
      return ToolError{fmt::format("'{}': expected PATH=VALUE", assignment),
                       kExitUsage};
    }
    const std::string path = assignment.substr(0, equals);
    const std::string value = assignment.substr(equals + 1);
    const Result<std::string> old = SetValue(message, path, value);
    if (!old.ok()) return old.error();
    changes.push_back(fmt::format("{}: {} -> {}", path, *old,
                                  *GetValueJson(message, path)));
    paths.push_back(path);
  }
  const EditCountCheck counts = CheckEditedCounts(message, paths);
  if (!counts.over_capacity.empty() && !options.force) {
    return ToolError{
        fmt::format("{}: {}; nothing written (give --force to write it "
                    "anyway)",
                    options.input, fmt::join(counts.over_capacity, "; "))};
  }
  for (Diagnostic warning : counts.unused_entries) {
    warning.file = options.input;
    diagnostics.Warn(warning);
  }
  for (Diagnostic& f : LintTableMessage(message)) {
    if (std::find(before_findings.begin(), before_findings.end(),
                  f.path + f.message) == before_findings.end()) {
      f.file = options.input;
      diagnostics.Warn(f);
    }
  }
  return changes;
}

int RunSet(const SetOptions& options) {
  if (auto refused = RequireFileOperand(options.input, "set"); !refused.ok()) {
    return ReportError(refused.error());
  }
  const Result<FileFormat> from = InputFormat(options.input, options.from);
  if (!from.ok()) return ReportError(from.error());
  const bool in_place = options.output.empty();
  const std::string& output = in_place ? options.input : options.output;
  // The output's name may choose the other format; else it is the input's.
  const FileFormat to =
      in_place ? *from : FormatFromPath(options.output).value_or(*from);
  // Only the in-place edit may write over its input; it does so atomically.
  std::vector<std::string> inputs;
  if (!in_place) inputs.push_back(options.input);
  TableFileOptions write{to, options.compact, {.inputs = inputs}};
  write.output.text = to == FileFormat::kJson;
  if (auto refused = CheckOutputPath(output, write.output); !refused.ok()) {
    return ReportError(refused.error());
  }
  // Held until the file is replaced: a parallel edit waits for this one.
  std::optional<EditLock> lock;
  if (in_place) {
    Result<EditLock> locked = EditLock::Acquire(options.input);
    if (!locked.ok()) return ReportError(locked.error());
    lock.emplace(std::move(*locked));
    write.output.unchanged_since = lock->stamp();
  }
  const Result<qawb::TableId> kind =
      ResolveTable(options.input, *from, options.table);
  if (!kind.ok()) return ReportError(kind.error());
  return qawb::VisitTable(*kind, [&]<typename Record>() {
    auto table = MakeZeroedTable<Record>();
    if (auto error = LoadTableFile(options.input, *from, *table); !error.ok()) {
      return ReportError(error.error());
    }
    typename protomsg::TuningTableTraits<Record>::Message message;
    protomsg::ConvertToMessage(*table, message);
    DiagnosticSink diagnostics;
    const Result<std::vector<std::string>> changes =
        ApplyAssignments(message, options, diagnostics);
    if (!changes.ok()) return ReportError(changes.error());
    auto edited = MakeZeroedTable<Record>();
    protomsg::ConvertToStruct(message, *edited);
    const Result<std::vector<Diagnostic>> warnings =
        WriteTableFile(output, *edited, write);
    if (!warnings.ok()) return ReportError(warnings.error());
    diagnostics.Report(*warnings);
    // With the table itself on stdout, the report goes to stderr.
    std::FILE* report = output == kStdoutPath ? stderr : stdout;
    for (const std::string& change : *changes) {
      fmt::print(report, "{}\n", change);
    }
    ReportWritten(output);
    return kExitOk;
  });
}

}  // namespace

void AddSetCommand(CLI::App& app, int& exit_code) {
  auto [command, options] = AddSubcommand(app, exit_code, "set", RunSet);
  AddOperand(*command, "file", options->input, "Tuning file");
  AddOperand(*command, "assignments", options->assignments, "PATH=VALUE ...");
  AddOutputOption(*command, options->output,
                  "Write here instead of over the file; - for stdout");
  AddTableOption(*command, options->table);
  AddFromOption(*command, options->from);
  AddCompactFlag(*command, options->compact);
  command->add_flag("--force", options->force,
                    "Write a count above its list's capacity");
}

}  // namespace q3a_tool
