// Template definitions for table_file.h.
#ifndef TOOLS_Q3A_TUNING_IO_TABLE_FILE_INL_H_
#define TOOLS_Q3A_TUNING_IO_TABLE_FILE_INL_H_

#include <fmt/format.h>

#include <cstring>
#include <fstream>
#include <memory>

#include "protomsg/record_conversions.h"
#include "protomsg/tuning_files.h"
#include "tools/q3a_tuning/io/compact_table.h"
#include "tools/q3a_tuning/io/output_file.h"

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
             ? TableTraits<Record>::kReadJson(path, table)
             : TableTraits<Record>::kReadProtobuf(path, table);
}

template <typename Record>
std::optional<ToolError> WriteTableFile(const std::string& path,
                                        FileFormat format, const Record& table,
                                        std::span<const std::string> inputs,
                                        bool compact) {
  using Message = typename TableTraits<Record>::Message;
  Message message;
  protomsg::ConvertToMessage(table, message);
  std::string compact_bytes;
  if (compact) {
    Message zero_form;
    protomsg::ConvertToMessage(*MakeZeroedTable<Record>(), zero_form);
    CompactTableMessage(message, zero_form);
    compact_bytes = SerializeTableMessage(message, format, /*full=*/false);
  }
  // What a reader must get back from the file: the table as its message
  // carries it, read over a zeroed record.
  auto meant = MakeZeroedTable<Record>();
  protomsg::ConvertToStruct(message, *meant);

  const auto produce = [&](const std::string& temporary) {
    if (compact) {
      std::ofstream(temporary, std::ios::binary | std::ios::trunc)
          << compact_bytes;
    } else if (format == FileFormat::kJson) {
      protomsg::SaveTuningTableWithJson(temporary, table);
    } else {
      protomsg::SaveTuningTableWithProtobuf(temporary, table);
    }
  };
  const auto verify =
      [&](const std::string& temporary) -> std::optional<ToolError> {
    auto back = MakeZeroedTable<Record>();
    if (ReadTableFile(temporary, format, *back) &&
        std::memcmp(back.get(), meant.get(), sizeof(Record)) == 0) {
      return std::nullopt;
    }
    return ToolError{fmt::format("{}: the {} table written does not read "
                                 "back as written (disk full or file-size "
                                 "limit?); the file is left as it was",
                                 path, TableTraits<Record>::kName),
                     kExitFailure};
  };
  return WriteOutputFileWith(path, inputs, produce, verify);
}

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_TABLE_FILE_INL_H_
