// Keys of the tuning registry: the 3A node type and the five-field tuning key.
#ifndef COORDINATOR_TUNING_KEY_H_
#define COORDINATOR_TUNING_KEY_H_

#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace q3a_api {

// The 3A node a tuning object is for; it also tells the object's class.
enum NodeType : std::int32_t {
  kAe = 0,        // AeTuningRecord
  kAf = 1,        // qaf::QAFTuningStructure
  kAwb = 2,       // qawb::FixedQAWBTuning
  kCdaf = 6,      // qaf::CDAFTuningStructure
  kActuator = 7,  // actuator::ActuatorTuning
  kStaticCameraCharacteristics =
      8,  // q3a_coordinator::StaticCameraCharacteristics
  kCameraSessionParameters = 12,  // q3a_coordinator::CameraSessionParameters
};

// Which tuning of a node: -1 marks a field that does not apply, and is an
// ordinary value, not a wildcard. Keys are equal only if all five fields are.
struct TuningKey {
  std::int32_t use_case;
  std::int32_t sensor_mode;
  std::int32_t camera_position;
  std::int32_t lens_type;
  std::int32_t reserved;

  friend bool operator==(const TuningKey&, const TuningKey&) = default;
};
static_assert(sizeof(TuningKey) == 20 && alignof(TuningKey) == 4);

// Hash of a TuningKey. The fields enter in the order camera_position,
// lens_type, reserved, sensor_mode, use_case, each as its 32-bit pattern
// zero-extended, through the combine step
// h ^= v + 0x9E3779B9 + (h << 6) + (h >> 2) on 64-bit unsigned arithmetic.
struct TuningKeyHash {
  constexpr std::size_t operator()(const TuningKey& key) const noexcept {
    std::uint64_t hash = 0;
    for (std::int32_t field : {key.camera_position, key.lens_type, key.reserved,
                               key.sensor_mode, key.use_case}) {
      const std::uint64_t value = static_cast<std::uint32_t>(field);
      hash ^= value + 0x9E3779B9u + (hash << 6) + (hash >> 2);
    }
    return hash;
  }
};

}  // namespace q3a_api

#endif  // COORDINATOR_TUNING_KEY_H_
