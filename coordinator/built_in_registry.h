// The link between the registry accessors and the phone's built-in tuning,
// which defines the registry object next to everything it points at.
#ifndef COORDINATOR_BUILT_IN_REGISTRY_H_
#define COORDINATOR_BUILT_IN_REGISTRY_H_

#include "coordinator/tuning_map.h"

namespace q3a_coordinator::internal {

// Defined by the built-in tuning; filled by its static initialiser.
const TuningMap& BuiltInRegistry();

}  // namespace q3a_coordinator::internal

#endif  // COORDINATOR_BUILT_IN_REGISTRY_H_
