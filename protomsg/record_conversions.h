// Conversions between every AWB record and its interchange message.
//
// ConvertToMessage(record, message) appends the record to `message`: every
// scalar is set, every sub-message created, and every array written to its
// full capacity whatever the record's count fields say. Pass a newly
// constructed message: repeated fields are appended to, never cleared.
//
// ConvertToStruct(message, record) stores the message into `record` in place:
// scalars are always overwritten (0 where the message leaves them unset, -1
// for frame-summary kinds), narrow fields keep the low bits, and each array
// takes min(message elements, capacity) elements while the rest keep their
// previous contents. An absent sub-message reads as its default instance.
//
// Neither direction validates or fails. Both are safe to call concurrently on
// distinct objects.
#ifndef PROTOMSG_RECORD_CONVERSIONS_H_
#define PROTOMSG_RECORD_CONVERSIONS_H_

#include "awb_records/all_records.h"
#include "base/q3a_export.h"
#include "libs_v4/qAWB/proto/qawb_tuning.pb.h"

namespace protomsg {

// Record value v in [0, 9] becomes v + 1; anything else becomes Invalid (0).
Q3A_EXPORT qawb::tuning::QAWBFrameSummaryType ConvertToMessage(
    qawb::QAWBFrameSummaryType type);
// Message value m in [1, 10] becomes m - 1; anything else becomes -1.
Q3A_EXPORT qawb::QAWBFrameSummaryType ConvertToStruct(
    qawb::tuning::QAWBFrameSummaryType type);

#define PROTOMSG_DECLARE_CONVERSIONS(Record, Message, FIELDS)             \
  Q3A_EXPORT void ConvertToMessage(const ::qawb::Record& record,          \
                                   ::qawb::tuning::Message& message);     \
  Q3A_EXPORT void ConvertToStruct(const ::qawb::tuning::Message& message, \
                                  ::qawb::Record& record);

QAWB_ALL_RECORDS(PROTOMSG_DECLARE_CONVERSIONS)

#undef PROTOMSG_DECLARE_CONVERSIONS

}  // namespace protomsg

#endif  // PROTOMSG_RECORD_CONVERSIONS_H_
