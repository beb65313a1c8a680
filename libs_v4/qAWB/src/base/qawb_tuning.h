// The interface through which the AWB algorithm reads its four tuning tables.
#ifndef LIBS_V4_QAWB_SRC_BASE_QAWB_TUNING_H_
#define LIBS_V4_QAWB_SRC_BASE_QAWB_TUNING_H_

#include "awb_records/qawb_advance_tuning_table.h"
#include "awb_records/qawb_basic_tuning_table.h"
#include "awb_records/qawb_color_control_tuning_table.h"
#include "awb_records/qawb_feature_tuning_table.h"
#include "base/q3a_export.h"
#include "coordinator/tuning_common.h"

namespace qawb {

// Implemented by FixedQAWBTuning (constant built-in tables) and
// MutableQAWBTuning (owned, replaceable tables). The getters never copy; the
// slot order of the virtual functions is part of the binary interface.
class Q3A_EXPORT QAWBTuning : public q3abase::TuningCommon {
 public:
  virtual ~QAWBTuning() = default;

  virtual const QAWBBasicTuningTable* GetBasicTuningTable() const = 0;
  virtual const QAWBAdvanceTuningTable* GetAdvanceTuningTable() const = 0;
  virtual const QAWBColorControlTuningTable* GetColorControlTuningTable()
      const = 0;
  virtual const QAWBFeatureTuningTable* GetFeatureTuningTable() const = 0;
};

}  // namespace qawb

#endif  // LIBS_V4_QAWB_SRC_BASE_QAWB_TUNING_H_
