// Every AWB record, listed once: the five record headers' lists joined, as an
// X-macro for code that pastes names (X(Record, Message, FIELDS), as in each
// header) and as a type list for code that only needs the types.
#ifndef AWB_RECORDS_ALL_RECORDS_H_
#define AWB_RECORDS_ALL_RECORDS_H_

#include "awb_records/qawb_advance_tuning_table.h"
#include "awb_records/qawb_basic_tuning_table.h"
#include "awb_records/qawb_color_control_tuning_table.h"
#include "awb_records/qawb_feature_tuning_table.h"
#include "awb_records/qawb_shared_records.h"
#include "awb_records/type_list.h"

#define QAWB_ALL_RECORDS(X)           \
  QAWB_SHARED_RECORDS(X)              \
  QAWB_BASIC_TABLE_RECORDS(X)         \
  QAWB_ADVANCE_TABLE_RECORDS(X)       \
  QAWB_COLOR_CONTROL_TABLE_RECORDS(X) \
  QAWB_FEATURE_TABLE_RECORDS(X)

namespace qawb {

#define QAWB_INTERNAL_RECORD_TYPE(Record, Message, FIELDS) , ::qawb::Record
using AllRecords = internal::DropPlaceholder<void QAWB_ALL_RECORDS(
    QAWB_INTERNAL_RECORD_TYPE)>::type;
#undef QAWB_INTERNAL_RECORD_TYPE

}  // namespace qawb

#endif  // AWB_RECORDS_ALL_RECORDS_H_
