// Template definitions for table_file.h.
#ifndef TOOLS_Q3A_TUNING_IO_TABLE_FILE_INL_H_
#define TOOLS_Q3A_TUNING_IO_TABLE_FILE_INL_H_

#include <fmt/format.h>

#include <cstring>
#include <memory>
#include <vector>

#include "protomsg/internal/json_writer.h"
#include "protomsg/internal/wire_encoder.h"
#include "protomsg/record_conversions.h"
#include "protomsg/tuning_files.h"
#include "tools/q3a_tuning/io/compact_table.h"
#include "tools/q3a_tuning/io/output_file.h"
#include "tools/q3a_tuning/io/record_diff.h"

namespace q3a_tool {

template <typename Record>
std::unique_ptr<Record> MakeZeroedTable() {
  auto table = std::make_unique<Record>();
  std::memset(static_cast<void*>(table.get()), 0, sizeof(Record));
  return table;
}

template <typename Record>
bool ReadTableFile(const std::string& path, FileFormat format, Record& table) {
  return format == FileFormat::kJson
             ? protomsg::TuningTableTraits<Record>::kReadJson(path, table)
             : protomsg::TuningTableTraits<Record>::kReadProtobuf(path, table);
}

template <typename Record>
Result<std::vector<Diagnostic>> WriteTableFile(
    const std::string& path, const Record& table,
    const TableFileOptions& options) {
  using Message = typename protomsg::TuningTableTraits<Record>::Message;
  const FileFormat format = options.format;
  Message message;
  protomsg::ConvertToMessage(table, message);
  std::vector<Diagnostic> warnings;
  if (format == FileFormat::kJson) {
    if (auto changed = MakeJsonExact(message)) {
      warnings.push_back(
          {.file = path, .message = *changed, .severity = Severity::kWarning});
    }
  }
  if (options.compact) {
    Message zero_form;
    protomsg::ConvertToMessage(*MakeZeroedTable<Record>(), zero_form);
    CompactTableMessage(message, zero_form);
  }
  // What a reader must get back from the file: the table as its message
  // carries it, read over a zeroed record.
  auto meant = MakeZeroedTable<Record>();
  protomsg::ConvertToStruct(message, *meant);
  std::string bytes;
  if (options.compact) {
    bytes = SerializeTableMessage(message, format, /*full=*/false);
  } else if (format == FileFormat::kJson) {
    protomsg::internal::PrintJson(*meant, bytes);
  } else {
    bytes = protomsg::internal::EncodeRecord(*meant);
  }

  OutputOptions output = options.output;
  output.text = format == FileFormat::kJson;
  output.verify =
      [&](const std::string& written) -> std::optional<std::string> {
    auto back = MakeZeroedTable<Record>();
    if (!ReadTableFile(written, format, *back)) {
      return fmt::format(
          "the {} table written does not read back: the "
          "library's reader refuses it",
          protomsg::TuningTableTraits<Record>::kName);
    }
    if (std::memcmp(back.get(), meant.get(), sizeof(Record)) == 0) {
      return std::nullopt;
    }
    const std::vector<Difference> differences = DiffRecords(*meant, *back);
    return fmt::format(
        "the {} table written does not read back as written{}",
        protomsg::TuningTableTraits<Record>::kName,
        differences.empty()
            ? ""
            : fmt::format(" ({}: {} reads as {})", differences[0].path,
                          differences[0].old_value, differences[0].new_value));
  };
  if (auto error = WriteOutputFile(path, bytes, output); !error.ok()) {
    return error.error();
  }
  return warnings;
}

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_TABLE_FILE_INL_H_
