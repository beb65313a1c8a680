// The phone's built-in tuning registry, built by this file's static
// initialiser when the library loads. Objects and tables are defined in build
// order, so they are constructed in that order and destroyed in reverse.
#include "coordinator/built_in_registry.h"
#include "coordinator/tuning_map.h"

namespace {

NodeTuningMap actuator_table;
NodeTuningMap camera_session_parameters_table;
NodeTuningMap cdaf_table;
NodeTuningMap ae_table;
NodeTuningMap af_table;
NodeTuningMap awb_table;
NodeTuningMap static_camera_characteristics_table;

TuningMap registry = {
    {q3a_api::kActuator, &actuator_table},
    {q3a_api::kAe, &ae_table},
    {q3a_api::kAf, &af_table},
    {q3a_api::kCdaf, &cdaf_table},
    {q3a_api::kAwb, &awb_table},
    {q3a_api::kStaticCameraCharacteristics,
     &static_camera_characteristics_table},
    {q3a_api::kCameraSessionParameters, &camera_session_parameters_table},
};

}  // namespace

namespace q3a_coordinator::internal {

const TuningMap& BuiltInRegistry() { return registry; }

}  // namespace q3a_coordinator::internal
