// The built-in auto-exposure records. Each is assembled at compile time from
// the few settings that tell it apart (the table at the end); the exposure
// table, target curve and metering weights follow from those settings, so
// every record is constant data in read-only memory.
#include "tuning/ae/ae_tuning_records.h"

#include <cstdint>

namespace q3a_tuning::ae {
namespace {

// Per camera: 100 / lens_scalar of the camera description.
constexpr float kMainSensitivity = 2.25f;
constexpr float kWideSensitivity = 1.97f;
constexpr float kTeleSensitivity = 3.37f;
constexpr float kFrontSensitivity = 1.76f;

struct AeSettings {
  std::int32_t metering_mode;  // 0 average, 1 centre-weighted
  std::int32_t use_case_class;
  float lens_sensitivity;
  std::int32_t max_exposure_us;
  std::int32_t max_analog_gain_x1000;
  std::int32_t bv_offset_x100;
  float target_offset;    // added to the luma target curve
  float centre_strength;  // metering weight added at the centre
  std::int32_t convergence_speed;
  std::int32_t stable_frames;
};

constexpr AeTuningRecord MakeRecord(const AeSettings& s) {
  AeTuningRecord r{};
  r.metering_mode = s.metering_mode;
  r.channel_count = 4;
  r.luma_weights[0] = 0.299f;
  r.luma_weights[1] = 0.587f;
  r.luma_weights[2] = 0.114f;
  r.luma_shift = 10;
  r.luma_maximum = 200.0f;
  r.luma_target = 184.0f;
  r.use_case_class = s.use_case_class;
  r.lens_sensitivity = s.lens_sensitivity;

  // Exposure grows first (to the use case's longest frame), then gain.
  r.exposure_entry_count = 64;
  std::int32_t exposure = 100;
  std::int32_t gain = 1000;
  for (int i = 0; i < 64; ++i) {
    r.exposure_table[i] = {exposure, gain, 1000,
                           s.bv_offset_x100 + 1200 - 25 * i};
    if (exposure * 9 / 8 <= s.max_exposure_us) {
      exposure = exposure * 9 / 8;
    } else if (gain * 9 / 8 <= s.max_analog_gain_x1000) {
      gain = gain * 9 / 8;
    }
  }

  // Darker scenes are allowed to stay darker.
  for (int i = 0; i < 32; ++i) {
    r.target_bv_x100[i] = s.bv_offset_x100 - 600 + 60 * i;
    const float ramp = static_cast<float>(i < 16 ? i : 16) / 16.0f;
    r.target_luma[i] = 120.0f + 60.0f * ramp + s.target_offset;
  }

  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 16; ++x) {
      const float dx = (static_cast<float>(x) - 7.5f) / 7.5f;
      const float dy = (static_cast<float>(y) - 7.5f) / 7.5f;
      const float d2 = (dx * dx + dy * dy) / 2.0f;
      r.metering_weights[y][x] = 1.0f + s.centre_strength * (1.0f - d2);
    }
  }

  const std::int32_t convergence[16] = {s.convergence_speed,
                                        s.stable_frames,
                                        8,
                                        3,
                                        16,
                                        32,
                                        4,
                                        2,
                                        100,
                                        250,
                                        6,
                                        12,
                                        1,
                                        0,
                                        5,
                                        10};
  for (int i = 0; i < 16; ++i) r.convergence_params[i] = convergence[i];
  return r;
}

}  // namespace

// clang-format off
//                                    metering, class, sensitivity, max exposure us, max gain, bv offset, target offset, centre, speed, stable
constexpr AeTuningRecord kMainPreview =          MakeRecord({1,  0, kMainSensitivity,   33333, 16000,    0,   0.0f, 1.0f, 30, 3});
constexpr AeTuningRecord kMainUseCase13 =        MakeRecord({0, 13, kMainSensitivity,  250000, 64000,    0,  -6.0f, 0.5f, 20, 4});
constexpr AeTuningRecord kMainVideo =            MakeRecord({1,  3, kMainSensitivity,   33333, 16000,    0,  -2.0f, 1.0f, 15, 5});
constexpr AeTuningRecord kMainUseCase16 =        MakeRecord({1, 16, kMainSensitivity,   16666, 32000,    0,   2.0f, 1.5f, 35, 3});
constexpr AeTuningRecord kMainUseCase14 =        MakeRecord({0, 14, kMainSensitivity,  100000, 32000,    0,   0.0f, 0.0f, 25, 3});
constexpr AeTuningRecord kMainUseCase15 =        MakeRecord({1, 15, kMainSensitivity,   33333,  8000,    0,   4.0f, 2.0f, 30, 2});
constexpr AeTuningRecord kMainVideoSensorMode3 = MakeRecord({1,  3, kMainSensitivity,   16666, 16000,    0,  -2.0f, 1.0f, 15, 5});
constexpr AeTuningRecord kWidePreview =          MakeRecord({1,  0, kWideSensitivity,   33333, 16000,  -40,   0.0f, 0.8f, 30, 3});
constexpr AeTuningRecord kWideUseCase13 =        MakeRecord({0, 13, kWideSensitivity,  200000, 32000,  -40,  -6.0f, 0.4f, 20, 4});
constexpr AeTuningRecord kWideVideo =            MakeRecord({1,  3, kWideSensitivity,   33333, 16000,  -40,  -2.0f, 0.8f, 15, 5});
constexpr AeTuningRecord kWideUseCase16 =        MakeRecord({1, 16, kWideSensitivity,   16666, 32000,  -40,   2.0f, 1.2f, 35, 3});
constexpr AeTuningRecord kWideUseCase14 =        MakeRecord({0, 14, kWideSensitivity,  100000, 32000,  -40,   0.0f, 0.0f, 25, 3});
constexpr AeTuningRecord kFrontPreview =         MakeRecord({1,  0, kFrontSensitivity,  33333, 16000, -120,   6.0f, 2.5f, 30, 3});
constexpr AeTuningRecord kFrontUseCase13 =       MakeRecord({0, 13, kFrontSensitivity, 125000, 32000, -120,   0.0f, 1.5f, 20, 4});
constexpr AeTuningRecord kFrontVideo =           MakeRecord({1,  3, kFrontSensitivity,  33333, 16000, -120,   4.0f, 2.5f, 15, 5});
constexpr AeTuningRecord kFrontUseCase14 =       MakeRecord({0, 14, kFrontSensitivity, 100000, 32000, -120,   2.0f, 0.5f, 25, 3});
constexpr AeTuningRecord kFrontUseCase11 =       MakeRecord({1, 11, kFrontSensitivity,  33333, 12000, -120,   8.0f, 3.0f, 30, 2});
constexpr AeTuningRecord kFrontUseCase12 =       MakeRecord({1, 12, kFrontSensitivity,  66666, 24000, -120,   8.0f, 3.0f, 25, 3});
constexpr AeTuningRecord kTelePreview =          MakeRecord({1,  0, kTeleSensitivity,   33333, 16000,   60,   0.0f, 1.2f, 30, 3});
constexpr AeTuningRecord kTeleUseCase13 =        MakeRecord({0, 13, kTeleSensitivity,  125000, 64000,   60,  -6.0f, 0.6f, 20, 4});
constexpr AeTuningRecord kTeleVideo =            MakeRecord({1,  3, kTeleSensitivity,   33333, 16000,   60,  -2.0f, 1.2f, 15, 5});
// clang-format on

}  // namespace q3a_tuning::ae
