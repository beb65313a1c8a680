#include "coordinator/built_in_registry.h"
#include "coordinator/tuning_map.h"

namespace q3a_coordinator {

const TuningMap& GetTuningMap() { return internal::BuiltInRegistry(); }

}  // namespace q3a_coordinator

extern "C" void GetTuningMap(TuningMap* map) {
  const TuningMap& registry = q3a_coordinator::GetTuningMap();
  if (map == nullptr || map == &registry) return;
  map->max_load_factor(registry.max_load_factor());
  *map = registry;
}
