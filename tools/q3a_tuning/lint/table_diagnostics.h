// Messages for tuning files the library's readers refuse, in the form
// editors understand: "FILE:LINE:COL: PATH: reason" for JSON files (reason
// from protobuf, place found by the tool), "FILE: reason" otherwise.
#ifndef TOOLS_Q3A_TUNING_LINT_TABLE_DIAGNOSTICS_H_
#define TOOLS_Q3A_TUNING_LINT_TABLE_DIAGNOSTICS_H_

#include <string>
#include <string_view>

#include "tools/q3a_tuning/io/diagnostic.h"
#include "tools/q3a_tuning/io/input_file.h"
#include "tools/q3a_tuning/io/table_file.h"
#include "tools/q3a_tuning/lint/json_document.h"
#include "tools/q3a_tuning/lint/table_guess.h"

namespace q3a_tool {

// Why `path` cannot be read as a `kind` table in `format`: missing or
// unreadable file, empty file, syntax error, unknown field (with the nearest
// field name), bad enum name, invalid binary message. Rule "rejected".
Diagnostic DiagnoseReadFailure(const std::string& path, FileFormat format,
                               qawb::TableId kind);

// DiagnosticText of DiagnoseReadFailure.
std::string DescribeReadFailure(const std::string& path, FileFormat format,
                                qawb::TableId kind);

// The place of the value at `json_path` in a JSON document, or of the
// nearest enclosing value the document has.
TextPosition PositionOfPath(const JsonValue& document,
                            std::string_view json_path);

// Reads `path` into `table` with the library's reader over a zeroed record,
// as the override loader does, after checking that the file can be read
// (input_file.h) and holds this table (CheckTableFits). On failure `table`
// is unchanged; a file the reader refuses gives DescribeReadFailure.
template <typename Record>
Result<> LoadTableFile(const std::string& path, FileFormat format,
                       Record& table) {
  const Result<std::string> content = ReadInputFile(path);
  if (!content.ok()) return content.error();
  if (auto refused = CheckTableFits(path, *content, format,
                                    protomsg::TuningTableTraits<Record>::kId);
      !refused.ok()) {
    return refused;
  }
  auto scratch = MakeZeroedTable<Record>();
  if (!ReadTableFile(path, format, *scratch)) {
    return ToolError{DescribeReadFailure(
        path, format, protomsg::TuningTableTraits<Record>::kId)};
  }
  table = *scratch;
  return {};
}

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_LINT_TABLE_DIAGNOSTICS_H_
