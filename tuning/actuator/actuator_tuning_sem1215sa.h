// Actuator tuning of the sem1215sa lens driver (10-bit codes), tele camera.
#ifndef TUNING_ACTUATOR_ACTUATOR_TUNING_SEM1215SA_H_
#define TUNING_ACTUATOR_ACTUATOR_TUNING_SEM1215SA_H_

#include <climits>

#include "coordinator/actuator_tuning.h"
#include "tuning/tuning_source_dir.h"

namespace q3a_tuning::sem1215sa {

inline constexpr char kName[] =
    Q3A_TUNING_SOURCE_DIR "tuning/actuator/actuator_tuning_sem1215sa.h";

inline constexpr actuator::ActuatorPoint kPoints[] = {
    {14, 4.5f}, {26, 5.8f}, {53, 7.6f}, {136, 16.1f}, {324, 24.0f},
};

inline constexpr actuator::ActuatorTuningConstants kConstants = {
    .params = {200, 41, 291, 293, 297, 800, 32232, 37000},
    .limit = INT_MAX,
    .ratio = 0.523f,
    .codes = {1023, 0, 324, 0},
    .points = kPoints,
};

}  // namespace q3a_tuning::sem1215sa

#endif  // TUNING_ACTUATOR_ACTUATOR_TUNING_SEM1215SA_H_
