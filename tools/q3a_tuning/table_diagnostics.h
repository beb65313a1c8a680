// Messages for tuning files the library's readers refuse, in the form
// editors understand: "FILE:LINE:COL: PATH: reason" for JSON files (reason
// from protobuf, place found by the tool), "FILE: reason" otherwise.
#ifndef TOOLS_Q3A_TUNING_TABLE_DIAGNOSTICS_H_
#define TOOLS_Q3A_TUNING_TABLE_DIAGNOSTICS_H_

#include <string>
#include <string_view>

#include "tools/q3a_tuning/json_document.h"
#include "tools/q3a_tuning/table_file.h"

namespace q3a_tool {

// Why `path` cannot be read as a `kind` table in `format`: missing or
// unreadable file, empty file, syntax error, unknown field, bad enum name,
// invalid binary message.
std::string DescribeReadFailure(const std::string& path, FileFormat format,
                                TableKind kind);

// "FILE:LINE:COL: " for the value at `json_path` of a JSON document (or of
// the nearest enclosing value the document has), "FILE: " when `document`
// is null.
std::string PositionPrefix(const std::string& file, const JsonValue* document,
                           std::string_view json_path);

// Reads `path` into `table` with the library's reader over a zeroed record,
// as the override loader does. On failure `error` holds DescribeReadFailure
// and `table` is unchanged.
template <typename Record>
bool LoadTableFile(const std::string& path, FileFormat format, Record& table,
                   std::string& error) {
  auto scratch = MakeZeroedTable<Record>();
  if (!ReadTableFile(path, format, *scratch)) {
    error = DescribeReadFailure(path, format, TableTraits<Record>::kKind);
    return false;
  }
  table = *scratch;
  return true;
}

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_TABLE_DIAGNOSTICS_H_
