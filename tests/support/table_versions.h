// Table versions as the tool and the override loader print them, taken from
// the library's default tables and from the registry, so tests follow the
// data instead of retyping it.
#ifndef TESTS_SUPPORT_TABLE_VERSIONS_H_
#define TESTS_SUPPORT_TABLE_VERSIONS_H_

#include <string>

#include "awb_records/qawb_shared_records.h"
#include "coordinator/tuning_key.h"
#include "coordinator/tuning_map.h"
#include "libs_v4/qAWB/src/base/fixed_qawb_tuning.h"
#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "libs_v4/qAWB/src/base/table_access.h"

namespace q3a_test {

// "major.minor".
inline std::string VersionText(const qawb::QAWBParameterVersion& version) {
  return std::to_string(version.major) + "." + std::to_string(version.minor);
}

// The version of a fresh mutable container's table of type Record.
template <typename Record>
std::string DefaultVersion() {
  const qawb::MutableQAWBTuning defaults;
  return VersionText(qawb::GetTable<Record>(defaults)->version);
}

// The version of the table of type Record in the AWB container registered
// under `key`; "" if nothing is registered there.
template <typename Record>
std::string BuiltInVersion(const q3a_api::TuningKey& key) {
  const TuningMap& registry = q3a_coordinator::GetTuningMap();
  const auto awb = registry.find(q3a_api::kAwb);
  if (awb == registry.end()) return "";
  const auto entry = awb->second->find(key);
  if (entry == awb->second->end()) return "";
  const auto* container =
      static_cast<const qawb::FixedQAWBTuning*>(entry->second);
  return VersionText(qawb::GetTable<Record>(*container)->version);
}

}  // namespace q3a_test

#endif  // TESTS_SUPPORT_TABLE_VERSIONS_H_
