// An AWB tuning over four constant tables that outlive it.
#ifndef LIBS_V4_QAWB_SRC_BASE_FIXED_QAWB_TUNING_H_
#define LIBS_V4_QAWB_SRC_BASE_FIXED_QAWB_TUNING_H_

#include "base/q3a_export.h"
#include "libs_v4/qAWB/src/base/qawb_tuning.h"

namespace qawb {

// Holds the four table pointers it was built with, unchecked (null is
// allowed and handed back as null), and never frees them. Several containers
// may share a table. Immutable, so safe to use from any number of threads.
class Q3A_EXPORT FixedQAWBTuning : public QAWBTuning {
 public:
  constexpr FixedQAWBTuning(const QAWBBasicTuningTable* basic,
                            const QAWBAdvanceTuningTable* advance,
                            const QAWBColorControlTuningTable* color_control,
                            const QAWBFeatureTuningTable* feature)
      : basic_(basic),
        advance_(advance),
        color_control_(color_control),
        feature_(feature) {}
  ~FixedQAWBTuning() override;

  const QAWBBasicTuningTable* GetBasicTuningTable() const override;
  const QAWBAdvanceTuningTable* GetAdvanceTuningTable() const override;
  const QAWBColorControlTuningTable* GetColorControlTuningTable()
      const override;
  const QAWBFeatureTuningTable* GetFeatureTuningTable() const override;

 private:
  const QAWBBasicTuningTable* basic_;
  const QAWBAdvanceTuningTable* advance_;
  const QAWBColorControlTuningTable* color_control_;
  const QAWBFeatureTuningTable* feature_;
};

}  // namespace qawb

#endif  // LIBS_V4_QAWB_SRC_BASE_FIXED_QAWB_TUNING_H_
