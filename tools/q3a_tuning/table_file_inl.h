// Template definitions for table_file.h.
#ifndef TOOLS_Q3A_TUNING_TABLE_FILE_INL_H_
#define TOOLS_Q3A_TUNING_TABLE_FILE_INL_H_

#include <cstring>
#include <filesystem>
#include <memory>
#include <system_error>

#include "protomsg/tuning_files.h"

namespace q3a_tool {

template <typename Record>
bool WriteTableFile(const std::string& path, FileFormat format,
                    const Record& table) {
  std::error_code ignored;
  std::filesystem::remove(path, ignored);
  if (format == FileFormat::kJson) {
    protomsg::SaveTuningTableWithJson(path, table);
  } else {
    protomsg::SaveTuningTableWithProtobuf(path, table);
  }
  return std::filesystem::exists(path, ignored);
}

template <typename Record>
std::unique_ptr<Record> MakeZeroedTable() {
  auto table = std::make_unique<Record>();
  std::memset(static_cast<void*>(table.get()), 0, sizeof(Record));
  return table;
}

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_TABLE_FILE_INL_H_
