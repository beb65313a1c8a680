// The description of the phone's cameras that the registry hands the 3A
// coordinator: per camera position and lens, what the 3A controls support
// (static camera characteristics) and the session parameters.
#ifndef COORDINATOR_CAMERA_CHARACTERISTICS_H_
#define COORDINATOR_CAMERA_CHARACTERISTICS_H_

#include <array>
#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

#include "coordinator/tuning_common.h"

namespace lumen_api {

// Camera positions as the camera service numbers them.
enum CameraPosition : std::int32_t {
  kCameraPositionBack = 0,
  kCameraPositionFront = 1,
};

// Lens (camera module) at a position, as the camera service numbers them.
enum LensType : std::int32_t {
  kLensTypeMain = 0,
  kLensTypeUltraWide = 1,
  kLensTypeTelephoto = 2,
  kLensTypeFrontWide = 5,
};

}  // namespace lumen_api

namespace q3a_coordinator {

// A target frame-rate range, frames per second.
struct FpsRange {
  std::int32_t min_fps;
  std::int32_t max_fps;
};

// What the 3A controls of one lens support. The mode lists hold the Android
// camera control enumerator values; this library stores them and interprets
// none of them.
struct CameraCharacteristics {
  float lens_scalar;
  std::vector<std::uint8_t> ae_available_antibanding_modes;
  std::vector<std::uint8_t> ae_available_modes;
  std::vector<FpsRange> ae_available_target_fps_ranges;
  std::vector<std::int32_t> ae_compensation_range;  // minimum, maximum
  // The step as numerator and denominator, then two values of the consumer's.
  std::array<std::int32_t, 4> ae_compensation_step;
  std::vector<std::uint8_t> af_available_modes;
  std::int32_t af_supported;  // 1 if af_available_modes holds more than off
  std::vector<std::uint8_t> awb_available_modes;
  std::array<std::uint8_t, 8> trailing_flags;
};

// Two values per lens whose meaning the consumer defines.
struct SessionParameters {
  std::int32_t first;
  std::int32_t second;
};

// Camera position -> lens type -> T, both levels with maximum load factor 1.
template <typename T>
using PerLensMap =
    std::unordered_map<lumen_api::CameraPosition,
                       std::unordered_map<lumen_api::LensType, T>>;

// Registered under node type kStaticCameraCharacteristics. Built once at load
// and read-only afterwards.
struct StaticCameraCharacteristics : public q3abase::TuningCommon {
  explicit StaticCameraCharacteristics(PerLensMap<CameraCharacteristics> map)
      : characteristics(std::move(map)) {}

  PerLensMap<CameraCharacteristics> characteristics;
};

// Registered under node type kCameraSessionParameters. Built once at load
// and read-only afterwards.
struct CameraSessionParameters : public q3abase::TuningCommon {
  explicit CameraSessionParameters(PerLensMap<SessionParameters> map)
      : session_parameters(std::move(map)) {}

  PerLensMap<SessionParameters> session_parameters;
};

}  // namespace q3a_coordinator

#endif  // COORDINATOR_CAMERA_CHARACTERISTICS_H_
