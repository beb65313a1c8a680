#include <gtest/gtest.h>

#include <set>

#include "coordinator/tuning_map.h"

namespace {

TEST(GetTuningMap, RegistryHoldsTheSevenNodeTypes) {
  const TuningMap& registry = q3a_coordinator::GetTuningMap();
  std::set<int> node_types;
  for (const auto& [node_type, table] : registry) {
    node_types.insert(node_type);
    EXPECT_NE(table, nullptr);
  }
  EXPECT_EQ(node_types, (std::set<int>{0, 1, 2, 6, 7, 8, 12}));
  EXPECT_EQ(registry.count(static_cast<q3a_api::NodeType>(3)), 0u);
  EXPECT_EQ(registry.max_load_factor(), 1.0f);
  EXPECT_EQ(&registry, &q3a_coordinator::GetTuningMap());
}

TEST(GetTuningMap, CopyReplacesWhatTheCallerHeld) {
  const NodeTuningMap stale_table;
  TuningMap copy;
  copy.max_load_factor(4.0f);
  copy[static_cast<q3a_api::NodeType>(3)] = &stale_table;
  copy[q3a_api::kAwb] = &stale_table;

  GetTuningMap(&copy);

  const TuningMap& registry = q3a_coordinator::GetTuningMap();
  EXPECT_EQ(copy, registry);  // same node types, same table pointers
  EXPECT_EQ(copy.max_load_factor(), 1.0f);
  EXPECT_EQ(copy.count(static_cast<q3a_api::NodeType>(3)), 0u);
}

TEST(GetTuningMap, CopyIntoTheRegistryItselfOrNullChangesNothing) {
  auto& registry = const_cast<TuningMap&>(q3a_coordinator::GetTuningMap());
  const TuningMap before = registry;
  GetTuningMap(&registry);
  EXPECT_EQ(registry, before);
  GetTuningMap(nullptr);
  EXPECT_EQ(registry, before);
}

}  // namespace
