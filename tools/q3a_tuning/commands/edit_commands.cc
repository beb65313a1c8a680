// `get` and `set`: one value of a table without opening a 12,000-line file.
// `get` prints what the library reads at a path; `set` changes values
// through the schema and writes the file back through the output routine
// (in place, atomically, unless -o names another file).
#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "protomsg/record_conversions.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/io/input_file.h"
#include "tools/q3a_tuning/io/output_file.h"
#include "tools/q3a_tuning/lint/lint.h"
#include "tools/q3a_tuning/io/table_edit.h"
#include "tools/q3a_tuning/commands/table_sources.h"

namespace q3a_tool {
namespace {

struct GetOptions {
  std::string input;
  std::string path;
  std::string table;
};

// The table of a get/set operand, as the library reads it.
Result<TableKind> OperandTable(const TableOperand& operand,
                               const std::string& table_option) {
  if (operand.kind) return *operand.kind;
  const Result<FileFormat> format = ResolveFormat(operand.file, "");
  if (!format.ok()) return format.error();
  return ResolveTable(operand.file, *format, table_option);
}

int RunGet(const GetOptions& options) {
  const auto defaults = DefaultContainer();
  const Result<TableOperand> operand =
      ParseTableOperand(options.input, *defaults);
  if (!operand.ok()) return ReportError(operand.error());
  const Result<TableKind> kind = OperandTable(*operand, options.table);
  if (!kind.ok()) return ReportError(kind.error());
  return VisitTableKind(*kind, [&](auto type) {
    using Record = typename decltype(type)::type;
    auto table = MakeZeroedTable<Record>();
    if (auto error = LoadOperand(*operand, *table)) return ReportError(*error);
    typename TableTraits<Record>::Message message;
    protomsg::ConvertToMessage(*table, message);
    const Result<std::string> value = GetValueJson(message, options.path);
    if (!value.ok()) return ReportError(value.error());
    std::string_view text = *value;
    while (text.ends_with('\n')) text.remove_suffix(1);
    fmt::print("{}\n", text);
    return kExitOk;
  });
}

struct SetOptions {
  std::string input;
  std::vector<std::string> assignments;
  std::string output;
  std::string table;
  bool compact = false;
};

int RunSet(const SetOptions& options) {
  if (auto refused = CheckInputFile(options.input)) {
    return ReportError(*refused);
  }
  const std::string& output =
      options.output.empty() ? options.input : options.output;
  // Only the in-place edit may write over its input; it does so atomically.
  std::vector<std::string> inputs;
  if (!options.output.empty()) inputs.push_back(options.input);
  if (auto refused = CheckOutputPath(output, inputs)) {
    return ReportError(*refused);
  }
  const Result<FileFormat> from = ResolveFormat(options.input, "");
  if (!from.ok()) return ReportError(from.error());
  const Result<FileFormat> to = ResolveFormat(output, "");
  if (!to.ok()) return ReportError(to.error());
  const Result<TableKind> kind =
      ResolveTable(options.input, *from, options.table);
  if (!kind.ok()) return ReportError(kind.error());
  return VisitTableKind(*kind, [&](auto type) {
    using Record = typename decltype(type)::type;
    auto table = MakeZeroedTable<Record>();
    if (auto error = LoadTableFile(options.input, *from, *table)) {
      return ReportError(*error);
    }
    typename TableTraits<Record>::Message message;
    protomsg::ConvertToMessage(*table, message);
    std::vector<std::string> before_findings;
    for (const Finding& f : LintTableMessage(message)) {
      before_findings.push_back(f.path + f.message);
    }
    std::vector<std::string> changes;
    for (const std::string& assignment : options.assignments) {
      const std::size_t equals = assignment.find('=');
      if (equals == std::string::npos) {
        return ReportError({fmt::format("'{}': expected PATH=VALUE",
                                        assignment),
                            kExitUsage});
      }
      const std::string path = assignment.substr(0, equals);
      const std::string value = assignment.substr(equals + 1);
      const Result<std::string> old = SetValue(message, path, value);
      if (!old.ok()) return ReportError(old.error());
      changes.push_back(fmt::format("{}: {} -> {}", path, *old,
                                    *GetValueJson(message, path)));
    }
    for (const Finding& f : LintTableMessage(message)) {
      if (std::find(before_findings.begin(), before_findings.end(),
                    f.path + f.message) == before_findings.end()) {
        fmt::print(stderr, "warning: {}: {}\n", f.path, f.message);
      }
    }
    auto edited = MakeZeroedTable<Record>();
    protomsg::ConvertToStruct(message, *edited);
    if (auto error =
            WriteTableFile(output, *to, *edited, inputs, options.compact)) {
      return ReportError(*error);
    }
    for (const std::string& change : changes) fmt::print("{}\n", change);
    fmt::print("{}\n", output);
    return kExitOk;
  });
}

}  // namespace

void AddGetCommand(CLI::App& app, int& exit_code) {
  auto options = std::make_shared<GetOptions>();
  auto* command = app.add_subcommand(
      "get",
      "Print the value or sub-table at PATH as JSON, as the library reads "
      "the table. The table is a tuning file, awb:KEY:TABLE or "
      "defaults:TABLE.");
  command->add_option("table_operand", options->input, "The table")
      ->required();
  command->add_option("path", options->path,
                      "e.g. face_tuning_table.max_face_count or "
                      "illuminant_weight_table.cct_list[3]")
      ->required();
  command->add_option("--table", options->table,
                      TableNames() + " (guessed if omitted)");
  command->footer(
      "Example:\n  q3a-tuning get feature.json "
      "face_tuning_table.max_face_count");
  command->callback([&exit_code, options] { exit_code = RunGet(*options); });
}

void AddSetCommand(CLI::App& app, int& exit_code) {
  auto options = std::make_shared<SetOptions>();
  auto* command = app.add_subcommand(
      "set",
      "Change values of a JSON or binary tuning file through the schema "
      "(type, range of the record's field and list capacity checked) and "
      "write it back in place, atomically, or to -o. The file is written "
      "by the library's writer (full form) unless --compact. Prints each "
      "change as `path: old -> new`.");
  command->add_option("file", options->input, "Tuning file")->required();
  command->add_option("assignments", options->assignments, "PATH=VALUE ...")
      ->required();
  command->add_option("-o,--output", options->output,
                      "Write here instead of over the file");
  command->add_option("--table", options->table,
                      TableNames() + " (guessed if omitted)");
  command->add_flag("--compact", options->compact,
                    "Write the compact form (see export)");
  command->footer(
      "Example:\n  q3a-tuning set feature.json "
      "face_tuning_table.max_face_count=6 version.minor=4");
  command->callback([&exit_code, options] { exit_code = RunSet(*options); });
}

}  // namespace q3a_tool
