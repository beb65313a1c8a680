// `diff`: two tables compared field by field, each from a tuning file, a
// registered container or the default tables. Exit codes as diff(1): 0 the
// same, 1 different, 2 trouble (usage, an operand that cannot be read, or
// operands that hold different tables).
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <variant>

#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/diagnostic_sink.h"
#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/io/diagnostic.h"
#include "tools/q3a_tuning/io/input_file.h"
#include "tools/q3a_tuning/io/record_diff.h"
#include "tools/q3a_tuning/lint/json_document.h"

namespace q3a_tool {
namespace {

struct DiffOptions {
  std::string a;
  std::string b;
  std::string table;
  double tolerance = 0.0;
  bool json = false;
  std::string from;
};

ToolError Trouble(ToolError error) {
  error.exit_code = kExitUsage;
  return error;
}

// The table both operands hold: named by --table or a container operand,
// else guessed from the files, which must agree.
Result<qawb::TableId> CommonTable(const TableOperand& a, const TableOperand& b,
                                  const std::string& table_option) {
  std::optional<qawb::TableId> kind;
  if (!table_option.empty()) {
    const Result<qawb::TableId> named = ParseTableOption(table_option);
    if (!named.ok()) return named;
    kind = *named;
  }
  // A container operand names its table; files are checked against it.
  if (!kind) kind = a.kind ? a.kind : b.kind;
  for (const TableOperand* operand : {&a, &b}) {
    std::optional<qawb::TableId> own = operand->kind;
    if (!own && !operand->file.empty()) {
      const Result<FileFormat> format =
          InputFormat(operand->file, operand->from);
      if (!format.ok()) return format.error();
      const Result<qawb::TableId> guessed = ResolveTable(
          operand->file, *format, kind ? std::string(TableName(*kind)) : "");
      if (!guessed.ok()) return guessed.error();
      own = *guessed;
    }
    if (own && kind && *own != *kind) {
      return ToolError{TableMismatch(operand->name, *own, *kind)};
    }
    if (own) kind = own;
  }
  return *kind;
}

// The differences as validate prints findings: the new operand's file and,
// for a JSON file, the place of each value in it.
void PrintJson(const TableOperand& b,
               const std::vector<Difference>& differences) {
  std::optional<JsonDocument> document;
  if (!b.file.empty() && FormatFromPath(b.file) == FileFormat::kJson) {
    const Result<std::string> content = ReadInputFile(b.file);
    if (content.ok()) {
      auto parsed = ParseJsonDocument(*content);
      if (auto* parsed_document = std::get_if<JsonDocument>(&parsed)) {
        document = std::move(*parsed_document);
      }
    }
  }
  DiagnosticSink sink(stdout, /*json=*/true);
  for (const Difference& d : differences) {
    Diagnostic difference{.file = b.name,
                          .path = d.path,
                          .rule = "differs",
                          .message = d.old_value + " -> " + d.new_value,
                          .severity = Severity::kNote};
    if (document) {
      const TextPosition at = PositionOfPath(document->root(), d.path);
      difference.line = at.line;
      difference.column = at.column;
    }
    sink.Report(difference);
  }
  sink.Finish();
}

int RunDiff(const DiffOptions& options) {
  if (!(options.tolerance >= 0) || !std::isfinite(options.tolerance)) {
    return ReportError({fmt::format("--tolerance: {} is not a finite number "
                                    "of zero or more",
                                    options.tolerance),
                        kExitUsage});
  }
  const auto defaults = DefaultContainer();
  const Result<TableOperand> a =
      ParseTableOperand(options.a, *defaults, options.from);
  if (!a.ok()) return ReportError(a.error());
  const Result<TableOperand> b =
      ParseTableOperand(options.b, *defaults, options.from);
  if (!b.ok()) return ReportError(b.error());
  const Result<qawb::TableId> kind = CommonTable(*a, *b, options.table);
  if (!kind.ok()) return ReportError(Trouble(kind.error()));
  return qawb::VisitTable(*kind, [&]<typename Record>() {
    auto old_table = MakeZeroedTable<Record>();
    auto new_table = MakeZeroedTable<Record>();
    for (auto [operand, table] :
         {std::pair{&*a, old_table.get()}, std::pair{&*b, new_table.get()}}) {
      if (auto error = LoadOperand(*operand, *table); !error.ok()) {
        return ReportError(Trouble(error.error()));
      }
    }
    const std::vector<Difference> differences =
        DiffRecords(*old_table, *new_table, options.tolerance);
    if (options.json) {
      PrintJson(*b, differences);
    } else {
      for (const Difference& d : differences) {
        fmt::print("{}: {} -> {}\n", d.path, d.old_value, d.new_value);
      }
      fmt::print("{} table: {} field(s) differ\n", TableName(*kind),
                 differences.size());
    }
    return differences.empty() ? kExitOk : kExitFailure;
  });
}

}  // namespace

void AddDiffCommand(CLI::App& app, int& exit_code) {
  auto [command, options] = AddSubcommand(app, exit_code, "diff", RunDiff);
  AddOperand(*command, "old", options->a, "The first table");
  AddOperand(*command, "new", options->b, "The second table");
  AddTableOption(*command, options->table);
  command
      ->add_option("--tolerance", options->tolerance,
                   "Floats this close count as equal")
      ->capture_default_str();
  AddFromOption(*command, options->from);
  command->add_flag("--json", options->json,
                    "The differences as a JSON array of {severity, file, "
                    "line, column, path, rule, message: \"old -> new\"}, "
                    "placed in NEW");
}

}  // namespace q3a_tool
