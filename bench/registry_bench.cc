#include <array>
#include <cstddef>

#include "bench/registration.h"
#include "coordinator/tuning_map.h"

namespace q3a_bench {
namespace {

struct Lookup {
  q3a_api::NodeType node;
  q3a_api::TuningKey key;
};

// Registered keys of several node types, plus one key that misses.
constexpr std::array<Lookup, 8> kLookups = {{
    {q3a_api::kAwb, {8, -1, 1, 0, -1}},
    {q3a_api::kAe, {3, -1, 1, 2, -1}},
    {q3a_api::kAf, {1, -1, 1, 0, -1}},
    {q3a_api::kAwb, {4, -1, 2, 5, -1}},
    {q3a_api::kActuator, {0, -1, 1, 2, -1}},
    {q3a_api::kStaticCameraCharacteristics, {0, -1, -1, -1, -1}},
    {q3a_api::kAwb, {0, -1, 1, 1, -1}},
    {q3a_api::kAwb, {8, -1, 1, 0, 0}},
}};

// GetTuningMap() and the two finds a caller makes, per lookup.
void RegistryLookup(benchmark::State& state) {
  std::size_t i = 0;
  for (auto _ : state) {
    const Lookup& lookup = kLookups[i++ % kLookups.size()];
    const TuningMap& registry = q3a_coordinator::GetTuningMap();
    const auto node = registry.find(lookup.node);
    const q3abase::TuningCommon* found = nullptr;
    if (node != registry.end()) {
      const auto entry = node->second->find(lookup.key);
      if (entry != node->second->end()) found = entry->second;
    }
    benchmark::DoNotOptimize(found);
  }
}

void RegistryCopy(benchmark::State& state) {
  TuningMap map;
  for (auto _ : state) {
    GetTuningMap(&map);
    benchmark::DoNotOptimize(&map);
  }
}

// Copy-assigning a map with the registry's entries, done by the caller.
void MapCopy(benchmark::State& state) {
  const TuningMap source = q3a_coordinator::GetTuningMap();
  TuningMap map;
  for (auto _ : state) {
    map = source;
    benchmark::DoNotOptimize(&map);
  }
}

}  // namespace

void RegisterRegistryBenchmarks() {
  benchmark::RegisterBenchmark("registry_lookup", RegistryLookup)
      ->Unit(benchmark::kNanosecond);
  benchmark::RegisterBenchmark("registry_copy", RegistryCopy)
      ->Unit(benchmark::kNanosecond);
  benchmark::RegisterBenchmark("map_copy", MapCopy)
      ->Unit(benchmark::kNanosecond);
}

}  // namespace q3a_bench
