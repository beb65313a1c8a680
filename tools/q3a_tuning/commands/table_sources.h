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
#include "tools/q3a_tuning/io/table_id.h"
#include "tools/q3a_tuning/io/tool_error.h"
#include "tools/q3a_tuning/lint/table_diagnostics.h"

namespace q3a_tool {

// The AWB container registered under the key text ("0,-1,1,0,-1"). A usage
// error for a malformed key or one that names no AWB container; it names the
// key as `label` (the option, or the operand the key came in).
Result<const qawb::QAWBTuning*> RegisteredContainer(
    std::string_view key_text, std::string_view label = "--key");

// A fresh mutable container: it holds the library's default tables.
std::unique_ptr<qawb::MutableQAWBTuning> DefaultContainer();

// A table operand: "awb:KEY:TABLE" (a registered container's table),
// "defaults:TABLE", or a file path.
struct TableOperand {
  std::string file;  // empty for a container's table
  const qawb::QAWBTuning* container = nullptr;
  std::optional<qawb::TableId> kind;  // named by the operand
  std::string name;               // as the operand was written
  std::string from;               // --from, for a file
};

// A usage error for a malformed container operand. `from` is the command's
// --from.
Result<TableOperand> ParseTableOperand(std::string_view text,
                                       const qawb::QAWBTuning& defaults,
                                       const std::string& from = "");

// For commands that take tuning files only: a usage error for a container
// operand, saying what `command` takes and how to make such a file.
Result<> RequireFileOperand(std::string_view text, std::string_view command);

// The format of the input file `path`: `from` if given, else from its name.
// The file is checked first (input_file.h), so a directory is named as one
// rather than as a name without an extension.
Result<FileFormat> InputFormat(const std::string& path,
                               const std::string& from);

// A --table option's table; a usage error naming the tables otherwise.
Result<qawb::TableId> ParseTableOption(std::string_view text);

// The file's format from --from/--to text if given, else from the path.
// A usage error when neither decides.
Result<FileFormat> ResolveFormat(const std::string& path,
                                 const std::string& format_option);

// The table of the file at `path`: --table if given (checked against the
// file with CheckTableFits), else the guess, which `guess` receives if
// given. Fails for an unreadable file (exit 2), one that fits no single
// table, or a contradiction (exit 1).
Result<qawb::TableId> ResolveTable(const std::string& path, FileFormat format,
                                   const std::string& table_option,
                                   TableGuess* guess = nullptr);

// Reads the tuning binary file at `path` into `tuning`. Its size and
// plausibility are checked before the container reads, so the user gets the
// reason on stderr rather than only in the Android log. On failure `tuning`
// is unchanged.
Result<> ReadTuningBinaryFile(const std::string& path,
                              qawb::MutableQAWBTuning& tuning);

// The table of an operand: the one it names, else --table or the guess.
Result<qawb::TableId> OperandKind(const TableOperand& operand,
                                  const std::string& table_option);

// Reads the operand's table into `table`: a copy of the container's table,
// or the file through LoadTableFile. On failure `table` is unchanged.
template <typename Record>
Result<> LoadOperand(const TableOperand& operand, Record& table) {
  if (operand.container != nullptr) {
    const Record* source = qawb::GetTable<Record>(*operand.container);
    if (source == nullptr) {
      return ToolError{operand.name + ": the container has no such table"};
    }
    table = *source;
    return {};
  }
  const Result<FileFormat> format = InputFormat(operand.file, operand.from);
  if (!format.ok()) return format.error();
  return LoadTableFile(operand.file, *format, table);
}

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_COMMANDS_TABLE_SOURCES_H_
