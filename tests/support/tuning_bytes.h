// The bytes a mutable container's tuning binary file holds, read from its
// four tables in memory, for comparing containers with files byte for byte.
#ifndef TESTS_SUPPORT_TUNING_BYTES_H_
#define TESTS_SUPPORT_TUNING_BYTES_H_

#include <string>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"

namespace q3a_test {

inline std::string TableBytes(const qawb::MutableQAWBTuning& tuning) {
  std::string bytes;
  auto append = [&bytes](const auto* table) {
    bytes.append(reinterpret_cast<const char*>(table), sizeof(*table));
  };
  append(tuning.GetBasicTuningTable());
  append(tuning.GetAdvanceTuningTable());
  append(tuning.GetColorControlTuningTable());
  append(tuning.GetFeatureTuningTable());
  return bytes;
}

}  // namespace q3a_test

#endif  // TESTS_SUPPORT_TUNING_BYTES_H_
