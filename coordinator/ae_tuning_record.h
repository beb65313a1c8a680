// The auto-exposure tuning record (2912 bytes). Its layout belongs to the
// auto-exposure algorithm that reads it; this library only keeps the built-in
// records as constant data and registers them in place.
#ifndef COORDINATOR_AE_TUNING_RECORD_H_
#define COORDINATOR_AE_TUNING_RECORD_H_

#include <cstddef>
#include <cstdint>

#include "coordinator/tuning_common.h"

// One row of the exposure table.
struct AeExposureEntry {
  std::int32_t exposure_us;
  std::int32_t analog_gain_x1000;
  std::int32_t digital_gain_x1000;
  std::int32_t bv_x100;
};

// Registered under node type kAe.
struct AeTuningRecord : public q3abase::TuningCommon {
  std::int32_t metering_mode;  // 0 or 1
  std::int32_t channel_count;  // 4
  float luma_weights[3];       // red, green, blue
  std::int32_t luma_shift;
  float luma_maximum;
  float luma_target;
  std::int32_t use_case_class;
  float lens_sensitivity;  // 100 / lens_scalar of the camera
  std::int32_t exposure_entry_count;
  AeExposureEntry exposure_table[64];
  std::int32_t target_bv_x100[32];
  float target_luma[32];
  float metering_weights[16][16];
  std::int32_t convergence_params[16];
  std::int32_t reserved[125];
};
static_assert(sizeof(AeTuningRecord) == 2912);
static_assert(offsetof(AeTuningRecord, lens_sensitivity) == 9 * 4);

#endif  // COORDINATOR_AE_TUNING_RECORD_H_
