#include "protomsg/internal/field_codec.h"
#include "protomsg/record_conversions.h"

namespace protomsg {

QAWB_FEATURE_TABLE_RECORDS(PROTOMSG_DEFINE_CONVERSIONS)

}  // namespace protomsg
