#include "libs_v4/qAWB/src/base/fixed_qawb_tuning.h"

namespace qawb {

FixedQAWBTuning::~FixedQAWBTuning() = default;

const QAWBBasicTuningTable* FixedQAWBTuning::GetBasicTuningTable() const {
  return basic_;
}

const QAWBAdvanceTuningTable* FixedQAWBTuning::GetAdvanceTuningTable() const {
  return advance_;
}

const QAWBColorControlTuningTable* FixedQAWBTuning::GetColorControlTuningTable()
    const {
  return color_control_;
}

const QAWBFeatureTuningTable* FixedQAWBTuning::GetFeatureTuningTable() const {
  return feature_;
}

}  // namespace qawb
