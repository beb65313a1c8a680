// The lens-actuator tuning record: one per actuator part, read by the
// actuator driver outside this library, which only builds and registers it.
#ifndef COORDINATOR_ACTUATOR_TUNING_H_
#define COORDINATOR_ACTUATOR_TUNING_H_

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "coordinator/tuning_common.h"

namespace actuator {

// One calibration point: a driver code and the lens position it gives.
struct ActuatorPoint {
  std::int32_t code;
  float position;
};

// The constant part of an actuator tuning, as its tuning header gives it.
struct ActuatorTuningConstants {
  std::array<std::int32_t, 8> params;
  std::int32_t limit;
  float ratio;
  std::array<std::int32_t, 4> codes;  // codes[0] is the largest driver code
  std::span<const ActuatorPoint> points;
};

// Registered under node type kActuator. Not polymorphic: it begins with
// `name`, the source path of the tuning header it was generated from.
struct ActuatorTuning : public q3abase::TuningCommon {
  // Copies the constants; `point_table` gets exactly the given points, with
  // no spare capacity.
  ActuatorTuning(const char* name, const ActuatorTuningConstants& constants)
      : name(name),
        params(constants.params),
        limit(constants.limit),
        ratio(constants.ratio),
        codes(constants.codes),
        point_table(constants.points.begin(), constants.points.end()) {}

  std::string name;
  std::array<std::int32_t, 8> params;
  std::int32_t limit;
  float ratio;
  std::array<std::int32_t, 4> codes;
  std::vector<ActuatorPoint> point_table;
};

}  // namespace actuator

#endif  // COORDINATOR_ACTUATOR_TUNING_H_
