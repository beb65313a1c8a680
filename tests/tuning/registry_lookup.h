// Lookups in the built-in registry for the tuning tests.
#ifndef TESTS_TUNING_REGISTRY_LOOKUP_H_
#define TESTS_TUNING_REGISTRY_LOOKUP_H_

#include "coordinator/tuning_map.h"

namespace q3a_test {

// The object registered under `node` and `key`, or null.
inline const q3abase::TuningCommon* Find(q3a_api::NodeType node,
                                         const q3a_api::TuningKey& key) {
  const TuningMap& registry = q3a_coordinator::GetTuningMap();
  const auto table = registry.find(node);
  if (table == registry.end()) return nullptr;
  const auto entry = table->second->find(key);
  return entry == table->second->end() ? nullptr : entry->second;
}

// The object under `node` and `key` as the class the node implies, or null.
template <typename T>
const T* FindAs(q3a_api::NodeType node, const q3a_api::TuningKey& key) {
  return static_cast<const T*>(Find(node, key));
}

}  // namespace q3a_test

#endif  // TESTS_TUNING_REGISTRY_LOOKUP_H_
