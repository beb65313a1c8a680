// `diff`: two tables compared field by field, each from a tuning file, a
// registered container or the default tables.
#include <fmt/format.h>

#include <memory>
#include <string>

#include "tools/q3a_tuning/commands.h"
#include "tools/q3a_tuning/record_diff.h"
#include "tools/q3a_tuning/table_diagnostics.h"
#include "tools/q3a_tuning/table_guess.h"
#include "tools/q3a_tuning/table_sources.h"

namespace q3a_tool {
namespace {

struct DiffOptions {
  std::string a;
  std::string b;
  std::string table;
  double tolerance = 0.0;
};

// Loads an operand's table into `table`; false with the reason printed.
template <typename Record>
bool LoadOperand(const TableOperand& operand, Record& table) {
  if (operand.container != nullptr) {
    const Record* source = TableTraits<Record>::Get(*operand.container);
    if (source == nullptr) {
      fmt::print(stderr, "{}: the container has no such table\n", operand.name);
      return false;
    }
    table = *source;
    return true;
  }
  std::string error;
  if (!LoadTableFile(operand.file, ResolveFormat(operand.file, ""), table,
                     error)) {
    fmt::print(stderr, "{}\n", error);
    return false;
  }
  return true;
}

// The table both operands hold: named by --table or a container operand,
// else guessed from the files, which must agree.
std::optional<TableKind> CommonTable(const TableOperand& a,
                                     const TableOperand& b,
                                     const std::string& table_option) {
  std::optional<TableKind> kind;
  if (!table_option.empty()) {
    std::string unused;
    kind = ResolveTable("", FileFormat::kJson, table_option, unused);
  }
  for (const TableOperand* operand : {&a, &b}) {
    std::optional<TableKind> own = operand->kind;
    if (!own && !kind) {
      std::string error;
      own = ResolveTable(operand->file, ResolveFormat(operand->file, ""), "",
                         error);
      if (!own) {
        fmt::print(stderr, "{}\n", error);
        return std::nullopt;
      }
    }
    if (own && kind && *own != *kind) {
      fmt::print(stderr, "{} holds a {} table, not a {} table\n", operand->name,
                 TableName(*own), TableName(*kind));
      return std::nullopt;
    }
    if (own) kind = own;
  }
  return kind;
}

int RunDiff(const DiffOptions& options) {
  if (options.tolerance < 0) {
    throw CLI::ValidationError("--tolerance", "must not be negative");
  }
  const auto defaults = DefaultContainer();
  const TableOperand a = ParseTableOperand(options.a, *defaults);
  const TableOperand b = ParseTableOperand(options.b, *defaults);
  const std::optional<TableKind> kind = CommonTable(a, b, options.table);
  if (!kind) return kExitFailure;
  return VisitTableKind(*kind, [&](auto type) {
    using Record = typename decltype(type)::type;
    auto old_table = MakeZeroedTable<Record>();
    auto new_table = MakeZeroedTable<Record>();
    if (!LoadOperand(a, *old_table) || !LoadOperand(b, *new_table)) {
      return kExitFailure;
    }
    const std::vector<Difference> differences =
        DiffRecords(*old_table, *new_table, options.tolerance);
    for (const Difference& d : differences) {
      fmt::print("{}: {} -> {}\n", d.path, d.old_value, d.new_value);
    }
    fmt::print("{} table: {} field(s) differ\n", TableName(*kind),
               differences.size());
    return differences.empty() ? kExitOk : kExitFailure;
  });
}

}  // namespace

void AddDiffCommand(CLI::App& app, int& exit_code) {
  auto options = std::make_shared<DiffOptions>();
  auto* command = app.add_subcommand(
      "diff",
      "Compare two tables field by field and print `path: old -> new`. An "
      "operand is a tuning file (.json, .pb), awb:KEY:TABLE for a registered "
      "container's table (awb:0,-1,1,0,-1:feature) or defaults:TABLE. Files "
      "are read over zeroed tables, as the override loader reads them. Exit "
      "1 when they differ.");
  command->add_option("old", options->a, "The first table")->required();
  command->add_option("new", options->b, "The second table")->required();
  command->add_option("--table", options->table,
                      "basic, advance, color or feature (guessed if omitted)");
  command
      ->add_option("--tolerance", options->tolerance,
                   "Floats this close count as equal")
      ->capture_default_str();
  command->callback([&exit_code, options] { exit_code = RunDiff(*options); });
}

}  // namespace q3a_tool
