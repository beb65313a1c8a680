// Tuning files of one AWB table as the tool reads and writes them: the format
// from the file name, the library's readers and writers behind one name per
// direction, the parsed message for diagnostics and lint, and a guess of
// which table a file holds.
#ifndef TOOLS_Q3A_TUNING_IO_TABLE_FILE_H_
#define TOOLS_Q3A_TUNING_IO_TABLE_FILE_H_

#include <google/protobuf/message.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/q3a_tuning/io/table_kind.h"
#include "tools/q3a_tuning/io/tool_error.h"

namespace q3a_tool {

enum class FileFormat { kJson, kBinary };

// ".json" is JSON; ".pb" and ".bin" are binary protobuf. Anything else is
// nullopt: the caller asks for --from/--to.
std::optional<FileFormat> FormatFromPath(std::string_view path);

// "json" or "binary" (also "pb").
std::optional<FileFormat> ParseFileFormat(std::string_view name);

// ".json" or ".pb".
std::string_view FileExtension(FileFormat format);

// The library's reader for the record type and format; true on success, and
// on false `table` is unchanged.
template <typename Record>
bool ReadTableFile(const std::string& path, FileFormat format, Record& table);

// Writes `table` to `path` through the output routine (output_file.h): the
// library's writer produces the temporary, which is read back with the
// library's reader and compared with the table meant (the writers report
// nothing, and a binary file cut short can still parse). `compact` writes
// the compact form instead (compact_table.h). Refuses a `path` that is one of
// `inputs`.
template <typename Record>
std::optional<ToolError> WriteTableFile(const std::string& path,
                                        FileFormat format, const Record& table,
                                        std::span<const std::string> inputs,
                                        bool compact = false);

// Writes the four tables of `tuning` into `directory` (created if needed,
// never emptied) as basic, advance, color and feature files of `format`,
// each through WriteTableFile. `written` receives each file written; the
// first failure stops the export.
std::optional<ToolError> WriteTableFiles(const qawb::QAWBTuning& tuning,
                                         const std::string& directory,
                                         FileFormat format, bool compact,
                                         std::span<const std::string> inputs,
                                         std::vector<std::string>& written);

// Why a file does not parse as a table's message, as protobuf says it.
struct ParseFailure {
  std::string reason;
};

// `message` as a tuning file: JSON with the library's print options (every
// scalar printed when `full`, else only those not at their default), or the
// binary wire format.
std::string SerializeTableMessage(const google::protobuf::Message& message,
                                  FileFormat format, bool full);

// Parses `content` in `format` into `message` with the options the library's
// JSON reader uses (unknown fields and enum names in other letter case
// rejected). nullopt on success.
std::optional<ParseFailure> ParseTableMessage(
    std::string_view content, FileFormat format,
    google::protobuf::Message& message);

// A fresh, zeroed table on the heap (tables are tens of kilobytes).
template <typename Record>
std::unique_ptr<Record> MakeZeroedTable();

}  // namespace q3a_tool

#include "tools/q3a_tuning/io/table_file_inl.h"

#endif  // TOOLS_Q3A_TUNING_IO_TABLE_FILE_H_
