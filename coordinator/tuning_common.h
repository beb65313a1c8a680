// Base class of every object the tuning registry can hold.
#ifndef COORDINATOR_TUNING_COMMON_H_
#define COORDINATOR_TUNING_COMMON_H_

namespace q3abase {

// Empty and non-polymorphic, so it adds no storage and a `TuningCommon const*`
// has the address of the object it designates. Nothing in an object tells its
// class: the registry's node type does, and callers static_cast to it.
class TuningCommon {};

}  // namespace q3abase

#endif  // COORDINATOR_TUNING_COMMON_H_
