// Where a table can come from besides a file: an AWB container of the
// registry, or the mutable container's default tables. Parsed from the
// tool's operands and options.
#ifndef TOOLS_Q3A_TUNING_COMMANDS_TABLE_SOURCES_H_
#define TOOLS_Q3A_TUNING_COMMANDS_TABLE_SOURCES_H_

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "libs_v4/qAWB/src/base/qawb_tuning.h"
#include "tools/q3a_tuning/lint/table_diagnostics.h"
#include "tools/q3a_tuning/io/table_guess.h"
#include "tools/q3a_tuning/io/table_kind.h"
#include "tools/q3a_tuning/io/tool_error.h"

namespace q3a_tool {

// The AWB container registered under the key text ("0,-1,1,0,-1"). A usage
// error for a malformed key or one that names no AWB container.
Result<const qawb::QAWBTuning*> RegisteredContainer(std::string_view key_text);

// A fresh mutable container: it holds the library's default tables.
std::unique_ptr<qawb::MutableQAWBTuning> DefaultContainer();

// A table operand: "awb:KEY:TABLE" (a registered container's table),
// "defaults:TABLE", or a file path.
struct TableOperand {
  std::string file;  // empty for a container's table
  const qawb::QAWBTuning* container = nullptr;
  std::optional<TableKind> kind;  // named by the operand
  std::string name;               // as the operand was written
};

// A usage error for a malformed container operand.
Result<TableOperand> ParseTableOperand(std::string_view text,
                                       const qawb::QAWBTuning& defaults);

// Reads the operand's table into `table`: a copy of the container's table,
// or the file through LoadTableFile. On failure `table` is unchanged.
template <typename Record>
std::optional<ToolError> LoadOperand(const TableOperand& operand,
                                     Record& table) {
  if (operand.container != nullptr) {
    const Record* source = qawb::GetTable<Record>(*operand.container);
    if (source == nullptr) {
      return ToolError{operand.name + ": the container has no such table"};
    }
    table = *source;
    return std::nullopt;
  }
  const Result<FileFormat> format = ResolveFormat(operand.file, "");
  if (!format.ok()) return format.error();
  return LoadTableFile(operand.file, *format, table);
}

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_COMMANDS_TABLE_SOURCES_H_
