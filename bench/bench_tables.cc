#include "bench/bench_tables.h"

#include "coordinator/tuning_map.h"

namespace q3a_bench {

const char* ContentName(Content content) {
  return content == Content::kBuiltIn ? "built_in" : "full";
}

const qawb::QAWBTuning& BuiltInAwbTuning() {
  // Use case 8 (still), main camera: position 1, lens 0.
  const q3a_api::TuningKey key{8, -1, 1, 0, -1};
  const NodeTuningMap& awb = *q3a_coordinator::GetTuningMap().at(q3a_api::kAwb);
  return *static_cast<const qawb::QAWBTuning*>(awb.at(key));
}

const std::string& ScratchDir() {
  static const std::string* const dir =
      new std::string(q3a_test::ProcessTempDir().path().string());
  return *dir;
}

}  // namespace q3a_bench
