// The autofocus tuning records: the contrast-detect configuration (one per
// sensor and sensor mode) and the autofocus algorithm parameters (one per
// sensor and use case). The autofocus algorithms outside this library read
// them; this library only builds and registers them, so the layouts below are
// the readers' and are checked by size.
#ifndef COORDINATOR_QAF_TUNING_H_
#define COORDINATOR_QAF_TUNING_H_

#include <array>
#include <cstdint>
#include <string>

#include "coordinator/tuning_common.h"

namespace qaf {

// A second-order filter b0 + b1 z^-1 + b2 z^-2 over 1 + a1 z^-1 + a2 z^-2;
// the contrast filters are band-pass, b1 = 0 and b2 = -b0.
struct CdafFilter {
  float b0;
  float b1;
  float b2;
  float a1;
  float a2;
};

// One contrast-detect statistics configuration.
struct CdafConfigEntry {
  std::int32_t enable;
  std::uint8_t flags[12];
  float luma_weights[4];           // red, two greens, blue
  std::uint16_t gamma_points[80];  // 12-bit scale, ascending
  std::int32_t gamma_maximum;
  std::int32_t horizontal_filter_enable;
  std::int32_t vertical_filter_enable;
  std::int32_t window_columns;
  std::int32_t window_rows;
  std::int32_t filter_count;
  std::int32_t coring_thresholds[8];
  std::int32_t output_shifts[4];
  std::int32_t window_weights[9];
  CdafFilter filters[12];
};
static_assert(sizeof(CdafConfigEntry) == 540);

using CdafConfigBlock = std::array<CdafConfigEntry, 8>;
static_assert(sizeof(CdafConfigBlock) == 4320);

// Registered under node type kCdaf. Not polymorphic: begins with `name`, the
// source path of the tuning header it was generated from.
struct CDAFTuningStructure : public q3abase::TuningCommon {
  // Copies both blocks whole.
  CDAFTuningStructure(const char* name, const CdafConfigBlock& first,
                      const CdafConfigBlock& second)
      : name(name), first_config(first), second_config(second) {}

  std::string name;
  CdafConfigBlock first_config;
  CdafConfigBlock second_config;
};

// Parameters ahead of the level table.
struct QafParamsHead {
  std::uint8_t af_enable;
  std::uint8_t pdaf_enable;
  std::uint8_t cdaf_enable;
  std::uint8_t continuous_enable;
  std::int16_t lens_position_minimum;
  std::int16_t lens_position_maximum;
  std::int32_t lens_position_infinity;
  std::int32_t lens_position_macro;
  std::int32_t lens_position_hyperfocal;
  std::int32_t coarse_search_step;
  std::int32_t fine_search_step;
  float pd_confidence_threshold;
  float pd_defocus_gain;
  std::int32_t roi_width_percent;
  std::int32_t roi_height_percent;
  std::int32_t scene_change_luma_threshold;
  float scene_change_sad_threshold;
  std::int32_t scene_change_frames;
  float focus_distance_cm[20];
  std::int32_t lens_position_by_distance[20];
  std::int32_t pd_conversion_coefficients[30];
  float pd_confidence_curve[30];
  std::int32_t search_range_by_gain[30];
};
static_assert(sizeof(QafParamsHead) == 576);

// One row of the level table: a level and the search settings for it.
struct QafLevelRow {
  std::int32_t level;
  std::int32_t step_minimum;
  std::int32_t step_maximum;
  float step_gain;
  std::int32_t ranges[8];  // four (low, high) pairs
};
static_assert(sizeof(QafLevelRow) == 48);

using QafLevelTable = std::array<QafLevelRow, 10>;

// Parameters after the level table; the last 400 bytes are reserved, zero.
struct QafParamsTail {
  std::uint8_t face_priority_enable;
  std::uint8_t tracking_enable;
  std::uint8_t touch_enable;
  std::uint8_t hybrid_mode;
  std::int16_t stable_frames;
  std::int16_t lost_frames;
  std::int32_t convergence_frames;
  float haf_pd_weight;
  float haf_cd_weight;
  std::int32_t tracking_window_percent;
  float motion_thresholds[4];
  std::int32_t retrigger_params[5];
  std::int32_t fine_search_table[150];
  float confidence_table[150];
  std::int32_t reserved[100];
};
static_assert(sizeof(QafParamsTail) == 1660);

// Registered under node type kAf. Not polymorphic: begins with `name`, the
// source path of the tuning header it was generated from.
struct QAFTuningStructure : public q3abase::TuningCommon {
  // Copies the parameters and the level table whole.
  QAFTuningStructure(const char* name, const QafParamsHead& head,
                     const QafLevelTable& levels, const QafParamsTail& tail)
      : name(name), params_head(head), level_table(levels), params_tail(tail) {}

  std::string name;
  QafParamsHead params_head;
  QafLevelTable level_table;
  QafParamsTail params_tail;
};

}  // namespace qaf

#endif  // COORDINATOR_QAF_TUNING_H_
