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

#include "tools/q3a_tuning/io/diagnostic.h"
#include "tools/q3a_tuning/io/output_file.h"
#include "tools/q3a_tuning/io/table_id.h"
#include "tools/q3a_tuning/io/tool_error.h"

namespace q3a_tool {

enum class FileFormat { kJson, kBinary };

// ".json" is JSON; ".pb" is binary protobuf. Anything else is nullopt: the
// caller asks for --from/--to. ".bin" is neither: the tool's name for a
// tuning binary file (the container's dump), never for a tuning file.
std::optional<FileFormat> FormatFromPath(std::string_view path);

// "json" or "binary" (also "pb").
std::optional<FileFormat> ParseFileFormat(std::string_view name);

// ".json" or ".pb".
std::string_view FileExtension(FileFormat format);

// The library's reader for the record type and format; true on success, and
// on false `table` is unchanged.
template <typename Record>
bool ReadTableFile(const std::string& path, FileFormat format, Record& table);

// How WriteTableFile writes a table.
struct TableFileOptions {
  FileFormat format = FileFormat::kJson;
  // The compact form instead of the full one (compact_table.h).
  bool compact = false;
  // Where the file may go and what it may replace; `text` and `verify` are
  // set by WriteTableFile.
  OutputOptions output = {};
};

// Writes `table` to `path` through the output routine (output_file.h), as
// the library's writer prints it, and reads the written file back with the
// library's reader to compare it with the table meant. Values JSON cannot
// hold are first made what a JSON file reads back (-0 is 0); the result
// holds a warning about the file where that changed anything.
template <typename Record>
Result<std::vector<Diagnostic>> WriteTableFile(const std::string& path,
                                               const Record& table,
                                               const TableFileOptions& options);

// What the export of four tables into a directory did.
struct TableFilesResult {
  std::vector<std::string> written;   // each file that holds its table now
  std::vector<Diagnostic> warnings;   // from WriteTableFile
  std::vector<ToolError> errors;      // each file not written, and why
};

// Writes the four tables of `tuning` into `directory` (created if needed,
// never emptied) as basic, advance, color and feature files of the format,
// each through WriteTableFile. A failure for one file does not stop the
// others.
TableFilesResult WriteTableFiles(const qawb::QAWBTuning& tuning,
                                 const std::string& directory,
                                 const TableFileOptions& options);

// Makes the floats of `message` (any table message) what its JSON text
// reads back as: -0 becomes 0, and any NaN the NaN that "NaN" reads as.
// Returns what changed, for a warning, or nullopt if nothing did.
std::optional<std::string> MakeJsonExact(google::protobuf::Message& message);

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
