// The four default tables a MutableQAWBTuning starts with. They are tuning
// data, compiled from JSON tuning files at build time into constant tables.
#ifndef LIBS_V4_QAWB_SRC_BASE_DEFAULT_QAWB_TUNING_TABLES_H_
#define LIBS_V4_QAWB_SRC_BASE_DEFAULT_QAWB_TUNING_TABLES_H_

#include "awb_records/qawb_advance_tuning_table.h"
#include "awb_records/qawb_basic_tuning_table.h"
#include "awb_records/qawb_color_control_tuning_table.h"
#include "awb_records/qawb_feature_tuning_table.h"

namespace qawb::internal {

extern const QAWBBasicTuningTable kDefaultBasicTuningTable;
extern const QAWBAdvanceTuningTable kDefaultAdvanceTuningTable;
extern const QAWBColorControlTuningTable kDefaultColorControlTuningTable;
extern const QAWBFeatureTuningTable kDefaultFeatureTuningTable;

}  // namespace qawb::internal

#endif  // LIBS_V4_QAWB_SRC_BASE_DEFAULT_QAWB_TUNING_TABLES_H_
