// What every built-in contrast-detect configuration entry shares, and the
// assembly of a block of eight entries from the few settings that tell the
// block apart.
#ifndef TUNING_CDAF_CDAF_TUNING_COMMON_H_
#define TUNING_CDAF_CDAF_TUNING_COMMON_H_

#include <cstdint>

#include "coordinator/qaf_tuning.h"

namespace q3a_tuning::cdaf {

inline constexpr std::uint8_t kFlags[12] = {0, 0, 1, 1, 0, 0, 1, 1, 0, 0, 1, 0};

// Luminance weights of red, the two greens and blue.
inline constexpr float kLumaWeights[4] = {0.2126f, 0.3576f, 0.3576f, 0.0722f};

// Gamma knee points on the 12-bit scale: finer steps in the shadows.
inline constexpr std::uint16_t kGammaPoints[80] = {
    0,    16,   32,   48,   64,   80,   96,   112,  128,  144,  160,  176,
    192,  208,  224,  240,  256,  272,  288,  304,  320,  336,  352,  368,
    384,  400,  416,  432,  448,  464,  480,  496,  512,  544,  576,  608,
    640,  672,  704,  736,  768,  800,  832,  864,  896,  928,  960,  992,
    1024, 1088, 1152, 1216, 1280, 1344, 1408, 1472, 1536, 1600, 1664, 1728,
    1792, 1856, 1920, 1984, 2048, 2175, 2303, 2431, 2559, 2687, 2815, 2943,
    3071, 3199, 3327, 3455, 3583, 3711, 3839, 3967,
};

inline constexpr std::int32_t kGammaMaximum = 4095;  // largest 12-bit value

// Window weights of the entries that filter horizontally only (the even
// ones), which weigh the centre most, and of those that add the vertical
// filter (the odd ones).
inline constexpr std::int32_t kCentreWeights[9] = {1, 2, 1, 2, 4, 2, 1, 2, 1};
inline constexpr std::int32_t kFlatterWeights[9] = {1, 1, 1, 1, 2, 1, 1, 1, 1};

// A band-pass filter b0 (1 - z^-2) / (1 + a1 z^-1 + a2 z^-2).
struct BandPass {
  float b0;
  float a1;
  float a2;
};

// What sets a block of eight entries apart.
struct BlockSettings {
  std::int32_t coring_thresholds[8];  // every entry's
  // The even entries'; the odd ones shift the first output one more.
  std::int32_t output_shifts[4];
  std::int32_t windows[8][2];  // each entry's columns and rows
  BandPass filters[12];        // the bank every entry uses
};

constexpr qaf::CdafConfigEntry MakeEntry(const BlockSettings& block,
                                         int index) {
  const bool vertical = index % 2 == 1;
  qaf::CdafConfigEntry entry{};
  entry.enable = 1;
  for (int i = 0; i < 12; ++i) entry.flags[i] = kFlags[i];
  for (int i = 0; i < 4; ++i) entry.luma_weights[i] = kLumaWeights[i];
  for (int i = 0; i < 80; ++i) entry.gamma_points[i] = kGammaPoints[i];
  entry.gamma_maximum = kGammaMaximum;
  entry.horizontal_filter_enable = 1;
  entry.vertical_filter_enable = vertical ? 1 : 0;
  entry.window_columns = block.windows[index][0];
  entry.window_rows = block.windows[index][1];
  entry.filter_count = 12;
  for (int i = 0; i < 8; ++i) {
    entry.coring_thresholds[i] = block.coring_thresholds[i];
  }
  for (int i = 0; i < 4; ++i) entry.output_shifts[i] = block.output_shifts[i];
  if (vertical) ++entry.output_shifts[0];
  for (int i = 0; i < 9; ++i) {
    entry.window_weights[i] = vertical ? kFlatterWeights[i] : kCentreWeights[i];
  }
  for (int i = 0; i < 12; ++i) {
    const BandPass& f = block.filters[i];
    entry.filters[i] = {f.b0, 0.0f, -f.b0, f.a1, f.a2};
  }
  return entry;
}

constexpr qaf::CdafConfigBlock MakeBlock(const BlockSettings& settings) {
  qaf::CdafConfigBlock block{};
  for (int i = 0; i < 8; ++i) block[i] = MakeEntry(settings, i);
  return block;
}

}  // namespace q3a_tuning::cdaf

#endif  // TUNING_CDAF_CDAF_TUNING_COMMON_H_
