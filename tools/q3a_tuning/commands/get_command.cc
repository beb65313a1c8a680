// `get`: one value of a table without opening a 12,000-line file, printed
// as the library reads it at a path.
#include <fmt/format.h>

#include <memory>
#include <string>

#include "protomsg/record_conversions.h"
#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/io/table_edit.h"

namespace q3a_tool {
namespace {

struct GetOptions {
  std::string input;
  std::string path;
  std::string table;
  std::string from;
};

int RunGet(const GetOptions& options) {
  const auto defaults = DefaultContainer();
  const Result<TableOperand> operand =
      ParseTableOperand(options.input, *defaults, options.from);
  if (!operand.ok()) return ReportError(operand.error());
  const Result<qawb::TableId> kind = OperandKind(*operand, options.table);
  if (!kind.ok()) return ReportError(kind.error());
  return qawb::VisitTable(*kind, [&]<typename Record>() {
    auto table = MakeZeroedTable<Record>();
    if (auto error = LoadOperand(*operand, *table); !error.ok()) {
      return ReportError(error.error());
    }
    typename protomsg::TuningTableTraits<Record>::Message message;
    protomsg::ConvertToMessage(*table, message);
    const Result<std::string> value = GetValueJson(message, options.path);
    if (!value.ok()) return ReportError(value.error());
    std::string_view text = *value;
    while (text.ends_with('\n')) text.remove_suffix(1);
    fmt::print("{}\n", text);
    return kExitOk;
  });
}

}  // namespace

void AddGetCommand(CLI::App& app, int& exit_code) {
  auto [command, options] = AddSubcommand(app, exit_code, "get", RunGet);
  AddOperand(*command, "table_operand", options->input, "The table");
  AddOperand(*command, "path", options->path,
             "e.g. face_tuning_table.max_face_count or "
             "illuminant_weight_table.cct_list[3]");
  AddTableOption(*command, options->table);
  AddFromOption(*command, options->from);
}

}  // namespace q3a_tool
