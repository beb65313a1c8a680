// Tuning files: one top-level AWB table per file, as JSON text or as the
// binary protobuf wire format of the table's interchange message.
//
// Writers write the record as its message, creating or truncating the file;
// they report nothing. Readers return true only if the
// file was read, parsed as the table's message (JSON: unknown fields and
// enum names in other letter case rejected) and converted into `table`. On
// false `table` is untouched; on true it is converted in place: scalars take
// the file's values (0 where left out) and array elements the file does not
// supply keep their previous contents. No state is kept between calls.
#ifndef PROTOMSG_TUNING_FILES_H_
#define PROTOMSG_TUNING_FILES_H_

#include <string>

#include "awb_records/tuning_tables.h"
#include "base/q3a_export.h"

namespace protomsg {

// For each of the four tables (awb_records/tuning_tables.h), e.g. the basic
// table:
//
// SaveTuningTableWithJson(path, const QAWBBasicTuningTable&): indented, every
// scalar printed even when 0, enum values by name, the schema's snake_case
// field names, no trailing newline.
//
// SaveTuningTableWithProtobuf(path, const QAWBBasicTuningTable&): the
// message's wire format, nothing before or after it.
//
// ReadQAWBBasicTuningTableWithJson(path, QAWBBasicTuningTable&): an empty path
// or an empty file gives false.
//
// ReadQAWBBasicTuningTableFromProtobuf(path, QAWBBasicTuningTable&): an empty
// path gives false; a 0-byte file is an empty message and gives true.
#define PROTOMSG_INTERNAL_DECLARE_TUNING_FILES(Id, Stem, name, load_position) \
  Q3A_EXPORT void SaveTuningTableWithJson(const std::string& path,            \
                                          const qawb::QAWB##Stem& table);     \
  Q3A_EXPORT void SaveTuningTableWithProtobuf(const std::string& path,        \
                                              const qawb::QAWB##Stem& table); \
  Q3A_EXPORT bool ReadQAWB##Stem##WithJson(const std::string& path,           \
                                           qawb::QAWB##Stem& table);          \
  Q3A_EXPORT bool ReadQAWB##Stem##FromProtobuf(const std::string& path,       \
                                               qawb::QAWB##Stem& table);
QAWB_TUNING_TABLES(PROTOMSG_INTERNAL_DECLARE_TUNING_FILES)
#undef PROTOMSG_INTERNAL_DECLARE_TUNING_FILES

}  // namespace protomsg

#endif  // PROTOMSG_TUNING_FILES_H_
