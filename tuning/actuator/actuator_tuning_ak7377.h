// Actuator tuning of the ak7377 lens driver (12-bit codes), main camera.
#ifndef TUNING_ACTUATOR_ACTUATOR_TUNING_AK7377_H_
#define TUNING_ACTUATOR_ACTUATOR_TUNING_AK7377_H_

#include <climits>

#include "coordinator/actuator_tuning.h"
#include "tuning/tuning_source_dir.h"

namespace q3a_tuning::ak7377 {

inline constexpr char kName[] =
    Q3A_TUNING_SOURCE_DIR "tuning/actuator/actuator_tuning_ak7377.h";

inline constexpr actuator::ActuatorPoint kPoints[] = {
    {17, 18.0f}, {28, 19.0f}, {57, 24.0f}, {144, 38.5f}, {324, 52.9f},
};

inline constexpr actuator::ActuatorTuningConstants kConstants = {
    .params = {200, 14, 291, 290, 296, 105, 5222, 10000},
    .limit = INT_MAX,
    .ratio = 0.5528f,
    .codes = {4095, 0, 324, 0},
    .points = kPoints,
};

}  // namespace q3a_tuning::ak7377

#endif  // TUNING_ACTUATOR_ACTUATOR_TUNING_AK7377_H_
