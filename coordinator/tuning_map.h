// The tuning registry: node type -> node table -> tuning key -> object.
//
// The registry is built once when the library loads and never changes, so
// any number of threads may read it, its tables and its objects at once.
#ifndef COORDINATOR_TUNING_MAP_H_
#define COORDINATOR_TUNING_MAP_H_

#include <functional>
#include <unordered_map>

#include "base/q3a_export.h"
#include "coordinator/tuning_common.h"
#include "coordinator/tuning_key.h"

// One node's table; the pointers designate constant objects owned by the
// library, often several keys to one object.
using NodeTuningMap =
    std::unordered_map<q3a_api::TuningKey, const q3abase::TuningCommon*,
                       q3a_api::TuningKeyHash,
                       std::equal_to<q3a_api::TuningKey>>;

// The registry: each node type to a pointer to its constant table.
using TuningMap = std::unordered_map<q3a_api::NodeType, const NodeTuningMap*>;

namespace q3a_coordinator {

// The process-wide registry itself. Never fails; valid while the library
// stays loaded.
Q3A_EXPORT const TuningMap& GetTuningMap();

}  // namespace q3a_coordinator

// Copy-assigns the registry into the caller's map: afterwards `map` holds
// exactly the registry's entries (pointers to the same node tables) and its
// maximum load factor. Does nothing when `map` is null or the registry
// itself.
extern "C" Q3A_EXPORT void GetTuningMap(TuningMap* map);

#endif  // COORDINATOR_TUNING_MAP_H_
