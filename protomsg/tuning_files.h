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

#include "awb_records/qawb_advance_tuning_table.h"
#include "awb_records/qawb_basic_tuning_table.h"
#include "awb_records/qawb_color_control_tuning_table.h"
#include "awb_records/qawb_feature_tuning_table.h"
#include "base/q3a_export.h"

namespace protomsg {

// JSON writers: indented, every scalar printed even when 0, enum values by
// name, the schema's snake_case field names, no trailing newline.
Q3A_EXPORT void SaveTuningTableWithJson(
    const std::string& path, const qawb::QAWBBasicTuningTable& table);
Q3A_EXPORT void SaveTuningTableWithJson(
    const std::string& path, const qawb::QAWBAdvanceTuningTable& table);
Q3A_EXPORT void SaveTuningTableWithJson(
    const std::string& path, const qawb::QAWBColorControlTuningTable& table);
Q3A_EXPORT void SaveTuningTableWithJson(
    const std::string& path, const qawb::QAWBFeatureTuningTable& table);

// Binary writers: the message's wire format, nothing before or after it.
Q3A_EXPORT void SaveTuningTableWithProtobuf(
    const std::string& path, const qawb::QAWBBasicTuningTable& table);
Q3A_EXPORT void SaveTuningTableWithProtobuf(
    const std::string& path, const qawb::QAWBAdvanceTuningTable& table);
Q3A_EXPORT void SaveTuningTableWithProtobuf(
    const std::string& path, const qawb::QAWBColorControlTuningTable& table);
Q3A_EXPORT void SaveTuningTableWithProtobuf(
    const std::string& path, const qawb::QAWBFeatureTuningTable& table);

// JSON readers. An empty path or an empty file gives false.
Q3A_EXPORT bool ReadQAWBBasicTuningTableWithJson(
    const std::string& path, qawb::QAWBBasicTuningTable& table);
Q3A_EXPORT bool ReadQAWBAdvanceTuningTableWithJson(
    const std::string& path, qawb::QAWBAdvanceTuningTable& table);
Q3A_EXPORT bool ReadQAWBColorControlTuningTableWithJson(
    const std::string& path, qawb::QAWBColorControlTuningTable& table);
Q3A_EXPORT bool ReadQAWBFeatureTuningTableWithJson(
    const std::string& path, qawb::QAWBFeatureTuningTable& table);

// Binary readers. An empty path gives false; a 0-byte file is an empty
// message and gives true.
Q3A_EXPORT bool ReadQAWBBasicTuningTableFromProtobuf(
    const std::string& path, qawb::QAWBBasicTuningTable& table);
Q3A_EXPORT bool ReadQAWBAdvanceTuningTableFromProtobuf(
    const std::string& path, qawb::QAWBAdvanceTuningTable& table);
Q3A_EXPORT bool ReadQAWBColorControlTuningTableFromProtobuf(
    const std::string& path, qawb::QAWBColorControlTuningTable& table);
Q3A_EXPORT bool ReadQAWBFeatureTuningTableFromProtobuf(
    const std::string& path, qawb::QAWBFeatureTuningTable& table);

}  // namespace protomsg

#endif  // PROTOMSG_TUNING_FILES_H_
