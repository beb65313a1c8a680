// Tuning files of one AWB table as the tool reads and writes them: the format
// from the file name, the library's readers and writers behind one name per
// direction, the parsed message for diagnostics and lint, and a guess of
// which table a file holds.
#ifndef TOOLS_Q3A_TUNING_TABLE_FILE_H_
#define TOOLS_Q3A_TUNING_TABLE_FILE_H_

#include <google/protobuf/message.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/q3a_tuning/table_kind.h"

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
bool ReadTableFile(const std::string& path, FileFormat format,
                   qawb::QAWBBasicTuningTable& table);
bool ReadTableFile(const std::string& path, FileFormat format,
                   qawb::QAWBAdvanceTuningTable& table);
bool ReadTableFile(const std::string& path, FileFormat format,
                   qawb::QAWBColorControlTuningTable& table);
bool ReadTableFile(const std::string& path, FileFormat format,
                   qawb::QAWBFeatureTuningTable& table);

// The library's writer for the record's type and the format. Checks
// afterwards that the file exists, since the writers report nothing; false
// when it does not.
template <typename Record>
bool WriteTableFile(const std::string& path, FileFormat format,
                    const Record& table);

// Writes the four tables of `tuning` into `directory` (created if needed) as
// basic, advance, color and feature files of `format`. Prints each file
// written to stdout and each failure, naming the file, to stderr; false if
// anything could not be written.
bool WriteTableFiles(const qawb::QAWBTuning& tuning,
                     const std::string& directory, FileFormat format);

// The whole content of a file, or nullopt with `error` set (errno's text).
std::optional<std::string> ReadWholeFile(const std::string& path,
                                         std::string& error);

// Why a file does not parse as a table's message, as protobuf says it.
struct ParseFailure {
  std::string reason;
};

// Parses `content` in `format` into `message` with the options the library's
// JSON reader uses (unknown fields and enum names in other letter case
// rejected). nullopt on success.
std::optional<ParseFailure> ParseTableMessage(
    std::string_view content, FileFormat format,
    google::protobuf::Message& message);

// The tables whose message `content` parses as. A JSON file names its fields,
// so one table's file fails the other readers; a binary message is accepted
// only where it leaves no unknown fields anywhere. An empty object fits all
// four.
std::vector<TableKind> CandidateTables(std::string_view content,
                                       FileFormat format);

// A fresh, zeroed table on the heap (tables are tens of kilobytes).
template <typename Record>
std::unique_ptr<Record> MakeZeroedTable();

}  // namespace q3a_tool

#include "tools/q3a_tuning/table_file_inl.h"

#endif  // TOOLS_Q3A_TUNING_TABLE_FILE_H_
