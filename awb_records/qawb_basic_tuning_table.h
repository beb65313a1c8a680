// The basic tuning table (24208 bytes) and its records: initial gains,
// statistics resize, golden modules, reference points, regions, illuminant and
// luminance weights, history lengths, convergence, preference, manual WB,
// flash, skipping.
//
// Every record is a plain, trivially copyable struct whose bytes are part of
// the tuning binary file format: sizes and offsets are checked below. The
// field list beside each struct names its fields in layout order; the
// conversions to and from the interchange messages are derived from it.
#ifndef AWB_RECORDS_QAWB_BASIC_TUNING_TABLE_H_
#define AWB_RECORDS_QAWB_BASIC_TUNING_TABLE_H_

#include <cstddef>
#include <cstdint>

#include "awb_records/qawb_shared_records.h"
#include "awb_records/record_description.h"

namespace qawb {

// The statistics crop by zoom ratio, the field-of-view ratios and the
// subsampling intervals.
struct QAWBStatsResize {
  int32_t zoom_crop_enable_flag;
  float zoom_ratio_start_point;
  float zoom_ratio_end_point;
  float crop_maximum_ratio;
  float horizontal_fov_ratio;
  float vertical_fov_ratio;
  int32_t horizontal_subsample_interval;
  int32_t vertical_subsample_interval;
};
#define QAWB_STATS_RESIZE_FIELDS(X) \
  X(zoom_crop_enable_flag)          \
  X(zoom_ratio_start_point)         \
  X(zoom_ratio_end_point)           \
  X(crop_maximum_ratio)             \
  X(horizontal_fov_ratio)           \
  X(vertical_fov_ratio)             \
  X(horizontal_subsample_interval)  \
  X(vertical_subsample_interval)
QAWB_DESCRIBE_RECORD(QAWBStatsResize, QAWB_STATS_RESIZE_FIELDS);
static_assert(sizeof(QAWBStatsResize) == 32);
static_assert(offsetof(QAWBStatsResize, zoom_crop_enable_flag) == 0);
static_assert(offsetof(QAWBStatsResize, zoom_ratio_start_point) == 4);
static_assert(offsetof(QAWBStatsResize, zoom_ratio_end_point) == 8);
static_assert(offsetof(QAWBStatsResize, crop_maximum_ratio) == 12);
static_assert(offsetof(QAWBStatsResize, horizontal_fov_ratio) == 16);
static_assert(offsetof(QAWBStatsResize, vertical_fov_ratio) == 20);
static_assert(offsetof(QAWBStatsResize, horizontal_subsample_interval) == 24);
static_assert(offsetof(QAWBStatsResize, vertical_subsample_interval) == 28);

// One golden module's reference white point and its calibration type.
struct QAWBGoldenModuleData {
  QAWBCCTReferencePointData golden_reference_point;
  int32_t calibration_type;
};
#define QAWB_GOLDEN_MODULE_DATA_FIELDS(X) \
  X(golden_reference_point)               \
  X(calibration_type)
QAWB_DESCRIBE_RECORD(QAWBGoldenModuleData, QAWB_GOLDEN_MODULE_DATA_FIELDS);
static_assert(sizeof(QAWBGoldenModuleData) == 16);
static_assert(offsetof(QAWBGoldenModuleData, golden_reference_point) == 0);
static_assert(offsetof(QAWBGoldenModuleData, calibration_type) == 12);

// Golden-module calibration: switches, the number of golden modules in use and
// up to 9 golden-module entries.
struct QAWBGoldenReferenceTable {
  int32_t enable_flag;
  int32_t light_panel_compensation_enable_flag;
  int32_t golden_module_number;
  QAWBGoldenModuleData golden_module_data[9];
};
#define QAWB_GOLDEN_REFERENCE_TABLE_FIELDS(X) \
  X(enable_flag)                              \
  X(light_panel_compensation_enable_flag)     \
  X(golden_module_number)                     \
  X(golden_module_data)
QAWB_DESCRIBE_RECORD(QAWBGoldenReferenceTable,
                     QAWB_GOLDEN_REFERENCE_TABLE_FIELDS);
static_assert(sizeof(QAWBGoldenReferenceTable) == 156);
static_assert(offsetof(QAWBGoldenReferenceTable, enable_flag) == 0);
static_assert(offsetof(QAWBGoldenReferenceTable,
                       light_panel_compensation_enable_flag) == 4);
static_assert(offsetof(QAWBGoldenReferenceTable, golden_module_number) == 8);
static_assert(offsetof(QAWBGoldenReferenceTable, golden_module_data) == 12);

// The reference white points: the number in use and up to 9 points.
struct QAWBCCTReferencePoint {
  int32_t reference_point_number;
  QAWBCCTReferencePointData reference_point_list[9];
};
#define QAWB_CCT_REFERENCE_POINT_FIELDS(X) \
  X(reference_point_number)                \
  X(reference_point_list)
QAWB_DESCRIBE_RECORD(QAWBCCTReferencePoint, QAWB_CCT_REFERENCE_POINT_FIELDS);
static_assert(sizeof(QAWBCCTReferencePoint) == 112);
static_assert(offsetof(QAWBCCTReferencePoint, reference_point_number) == 0);
static_assert(offsetof(QAWBCCTReferencePoint, reference_point_list) == 4);

// One CCT segment: its CCT interval and a weight curve of up to 8 (radius,
// weight) pairs.
struct QAWBRadiusWeightData {
  int32_t cct_up;
  int32_t cct_down;
  int32_t radius_list[8];
  float weight_list[8];
};
#define QAWB_RADIUS_WEIGHT_DATA_FIELDS(X) \
  X(cct_up)                               \
  X(cct_down)                             \
  X(radius_list)                          \
  X(weight_list)
QAWB_DESCRIBE_RECORD(QAWBRadiusWeightData, QAWB_RADIUS_WEIGHT_DATA_FIELDS);
static_assert(sizeof(QAWBRadiusWeightData) == 72);
static_assert(offsetof(QAWBRadiusWeightData, cct_up) == 0);
static_assert(offsetof(QAWBRadiusWeightData, cct_down) == 4);
static_assert(offsetof(QAWBRadiusWeightData, radius_list) == 8);
static_assert(offsetof(QAWBRadiusWeightData, weight_list) == 40);

// One BV row: its BV and up to 13 CCT segments with their radius weights.
struct QAWBCCTRegionBV {
  int32_t bv_value;
  QAWBRadiusWeightData region_list[13];
};
#define QAWB_CCT_REGION_BV_FIELDS(X) X(bv_value) X(region_list)
QAWB_DESCRIBE_RECORD(QAWBCCTRegionBV, QAWB_CCT_REGION_BV_FIELDS);
static_assert(sizeof(QAWBCCTRegionBV) == 940);
static_assert(offsetof(QAWBCCTRegionBV, bv_value) == 0);
static_assert(offsetof(QAWBCCTRegionBV, region_list) == 4);

// The CCT regions by BV: switches, counts and up to 10 BV rows.
struct QAWBCCTRegion {
  int32_t enable_flag;
  int32_t radius_heuristic_enable_flag;
  int32_t reference_point_number;
  int32_t bv_number;
  int32_t radius_numbers;
  QAWBCCTRegionBV region_bv_list[10];
};
#define QAWB_CCT_REGION_FIELDS(X) \
  X(enable_flag)                  \
  X(radius_heuristic_enable_flag) \
  X(reference_point_number)       \
  X(bv_number)                    \
  X(radius_numbers)               \
  X(region_bv_list)
QAWB_DESCRIBE_RECORD(QAWBCCTRegion, QAWB_CCT_REGION_FIELDS);
static_assert(sizeof(QAWBCCTRegion) == 9420);
static_assert(offsetof(QAWBCCTRegion, enable_flag) == 0);
static_assert(offsetof(QAWBCCTRegion, radius_heuristic_enable_flag) == 4);
static_assert(offsetof(QAWBCCTRegion, reference_point_number) == 8);
static_assert(offsetof(QAWBCCTRegion, bv_number) == 12);
static_assert(offsetof(QAWBCCTRegion, radius_numbers) == 16);
static_assert(offsetof(QAWBCCTRegion, region_bv_list) == 20);

// Illuminant weights over CCT, by BV: a switch, the numbers of CCT columns and
// BV rows in use, up to 36 CCT columns and up to 14 BV rows of 36 weights.
struct QAWBIlluminantWeight {
  int32_t enable_flag;
  int32_t cct_number;
  int32_t bv_number;
  int32_t cct_list[36];
  QAWBIlluminantWeightData illuminant_cct_list[14];
};
#define QAWB_ILLUMINANT_WEIGHT_FIELDS(X) \
  X(enable_flag)                         \
  X(cct_number)                          \
  X(bv_number)                           \
  X(cct_list)                            \
  X(illuminant_cct_list)
QAWB_DESCRIBE_RECORD(QAWBIlluminantWeight, QAWB_ILLUMINANT_WEIGHT_FIELDS);
static_assert(sizeof(QAWBIlluminantWeight) == 2228);
static_assert(offsetof(QAWBIlluminantWeight, enable_flag) == 0);
static_assert(offsetof(QAWBIlluminantWeight, cct_number) == 4);
static_assert(offsetof(QAWBIlluminantWeight, bv_number) == 8);
static_assert(offsetof(QAWBIlluminantWeight, cct_list) == 12);
static_assert(offsetof(QAWBIlluminantWeight, illuminant_cct_list) == 156);

// Luminance weights: a switch, counts, a scale factor, up to 10 BV values, up
// to 10 luminance thresholds and a 10 × 9 mask.
struct QAWBLuminanceWeight {
  int32_t enable_flag;
  int32_t cct_number;
  int32_t bv_number;
  uint16_t scalar_factor;
  uint8_t padding0[2];  // not carried by the message
  int32_t bv_value_list[10];
  int16_t threshold_list[10];
  bool mask_list[10][9];  // 10 rows of 9 flags
  uint8_t padding1[2];    // not carried by the message
};
#define QAWB_LUMINANCE_WEIGHT_FIELDS(X) \
  X(enable_flag)                        \
  X(cct_number)                         \
  X(bv_number)                          \
  X(scalar_factor)                      \
  X(bv_value_list)                      \
  X(threshold_list)                     \
  X(mask_list)
QAWB_DESCRIBE_RECORD_WITH_PADDING(QAWBLuminanceWeight,
                                  QAWB_LUMINANCE_WEIGHT_FIELDS, 4);
static_assert(sizeof(QAWBLuminanceWeight) == 168);
static_assert(offsetof(QAWBLuminanceWeight, enable_flag) == 0);
static_assert(offsetof(QAWBLuminanceWeight, cct_number) == 4);
static_assert(offsetof(QAWBLuminanceWeight, bv_number) == 8);
static_assert(offsetof(QAWBLuminanceWeight, scalar_factor) == 12);
static_assert(offsetof(QAWBLuminanceWeight, padding0) == 14);
static_assert(offsetof(QAWBLuminanceWeight, bv_value_list) == 16);
static_assert(offsetof(QAWBLuminanceWeight, threshold_list) == 56);
static_assert(offsetof(QAWBLuminanceWeight, mask_list) == 76);
static_assert(offsetof(QAWBLuminanceWeight, padding1) == 166);

// History lengths, in frames, for the algorithm decision, the temporal CCT
// decision and the brightness, each for the normal case and for torch, camera
// switch and manual exposure.
struct QAWBTemporalFilter {
  int32_t algorithm_decision_history_count;
  int32_t algorithm_decision_history_count_torch;
  int32_t algorithm_decision_history_count_switch;
  int32_t algorithm_decision_history_count_manual_ae;
  int32_t temporal_decision_cct_history_count;
  int32_t temporal_decision_cct_history_count_torch;
  int32_t temporal_decision_cct_history_count_switch;
  int32_t temporal_decision_cct_history_count_manual_ae;
  int32_t brightness_history_count;
  int32_t brightness_history_count_torch;
  int32_t brightness_history_count_switch;
  int32_t brightness_history_count_manual_ae;
  int32_t brightness_history_mean_count;
  int32_t brightness_history_mean_count_torch;
  int32_t brightness_history_mean_count_manual_ae;
};
#define QAWB_TEMPORAL_FILTER_FIELDS(X)             \
  X(algorithm_decision_history_count)              \
  X(algorithm_decision_history_count_torch)        \
  X(algorithm_decision_history_count_switch)       \
  X(algorithm_decision_history_count_manual_ae)    \
  X(temporal_decision_cct_history_count)           \
  X(temporal_decision_cct_history_count_torch)     \
  X(temporal_decision_cct_history_count_switch)    \
  X(temporal_decision_cct_history_count_manual_ae) \
  X(brightness_history_count)                      \
  X(brightness_history_count_torch)                \
  X(brightness_history_count_switch)               \
  X(brightness_history_count_manual_ae)            \
  X(brightness_history_mean_count)                 \
  X(brightness_history_mean_count_torch)           \
  X(brightness_history_mean_count_manual_ae)
QAWB_DESCRIBE_RECORD(QAWBTemporalFilter, QAWB_TEMPORAL_FILTER_FIELDS);
static_assert(sizeof(QAWBTemporalFilter) == 60);
static_assert(offsetof(QAWBTemporalFilter, algorithm_decision_history_count) ==
              0);
static_assert(offsetof(QAWBTemporalFilter,
                       algorithm_decision_history_count_torch) == 4);
static_assert(offsetof(QAWBTemporalFilter,
                       algorithm_decision_history_count_switch) == 8);
static_assert(offsetof(QAWBTemporalFilter,
                       algorithm_decision_history_count_manual_ae) == 12);
static_assert(offsetof(QAWBTemporalFilter,
                       temporal_decision_cct_history_count) == 16);
static_assert(offsetof(QAWBTemporalFilter,
                       temporal_decision_cct_history_count_torch) == 20);
static_assert(offsetof(QAWBTemporalFilter,
                       temporal_decision_cct_history_count_switch) == 24);
static_assert(offsetof(QAWBTemporalFilter,
                       temporal_decision_cct_history_count_manual_ae) == 28);
static_assert(offsetof(QAWBTemporalFilter, brightness_history_count) == 32);
static_assert(offsetof(QAWBTemporalFilter, brightness_history_count_torch) ==
              36);
static_assert(offsetof(QAWBTemporalFilter, brightness_history_count_switch) ==
              40);
static_assert(offsetof(QAWBTemporalFilter,
                       brightness_history_count_manual_ae) == 44);
static_assert(offsetof(QAWBTemporalFilter, brightness_history_mean_count) ==
              48);
static_assert(offsetof(QAWBTemporalFilter,
                       brightness_history_mean_count_torch) == 52);
static_assert(offsetof(QAWBTemporalFilter,
                       brightness_history_mean_count_manual_ae) == 56);

// Gain convergence speed ratios for the initial frames, the ordinary camera
// case, torch, camera switch and manual exposure.
struct QAWBConvergenceSpeedRatioGain {
  float initial_ratio_gain;
  float camera_ratio_gain;
  float torch_ratio_gain;
  float switch_ratio_gain;
  float manual_ae_ratio_gain;
};
#define QAWB_CONVERGENCE_SPEED_RATIO_GAIN_FIELDS(X) \
  X(initial_ratio_gain)                             \
  X(camera_ratio_gain)                              \
  X(torch_ratio_gain)                               \
  X(switch_ratio_gain)                              \
  X(manual_ae_ratio_gain)
QAWB_DESCRIBE_RECORD(QAWBConvergenceSpeedRatioGain,
                     QAWB_CONVERGENCE_SPEED_RATIO_GAIN_FIELDS);
static_assert(sizeof(QAWBConvergenceSpeedRatioGain) == 20);
static_assert(offsetof(QAWBConvergenceSpeedRatioGain, initial_ratio_gain) == 0);
static_assert(offsetof(QAWBConvergenceSpeedRatioGain, camera_ratio_gain) == 4);
static_assert(offsetof(QAWBConvergenceSpeedRatioGain, torch_ratio_gain) == 8);
static_assert(offsetof(QAWBConvergenceSpeedRatioGain, switch_ratio_gain) == 12);
static_assert(offsetof(QAWBConvergenceSpeedRatioGain, manual_ae_ratio_gain) ==
              16);

// Frame counts and speed ratios of the convergence of the white-balance gains
// and the CCM.
struct QAWBConvergenceControl {
  int32_t convergence_stable_frames;
  int32_t convergence_stable_switch_frames;
  int32_t convergence_gain_initial_frame_count;
  int32_t convergence_gain_switch_frame_count;
  QAWBConvergenceSpeedRatioGain ratio_gain;
  float ratio_ccm;
};
#define QAWB_CONVERGENCE_CONTROL_FIELDS(X) \
  X(convergence_stable_frames)             \
  X(convergence_stable_switch_frames)      \
  X(convergence_gain_initial_frame_count)  \
  X(convergence_gain_switch_frame_count)   \
  X(ratio_gain)                            \
  X(ratio_ccm)
QAWB_DESCRIBE_RECORD(QAWBConvergenceControl, QAWB_CONVERGENCE_CONTROL_FIELDS);
static_assert(sizeof(QAWBConvergenceControl) == 40);
static_assert(offsetof(QAWBConvergenceControl, convergence_stable_frames) == 0);
static_assert(offsetof(QAWBConvergenceControl,
                       convergence_stable_switch_frames) == 4);
static_assert(offsetof(QAWBConvergenceControl,
                       convergence_gain_initial_frame_count) == 8);
static_assert(offsetof(QAWBConvergenceControl,
                       convergence_gain_switch_frame_count) == 12);
static_assert(offsetof(QAWBConvergenceControl, ratio_gain) == 16);
static_assert(offsetof(QAWBConvergenceControl, ratio_ccm) == 36);

// A BV interval and its threshold.
struct QAWBConvergenceStableThresholdBV {
  QAWBBVRange bv_value;
  float threshold;
};
#define QAWB_CONVERGENCE_STABLE_THRESHOLD_BV_FIELDS(X) X(bv_value) X(threshold)
QAWB_DESCRIBE_RECORD(QAWBConvergenceStableThresholdBV,
                     QAWB_CONVERGENCE_STABLE_THRESHOLD_BV_FIELDS);
static_assert(sizeof(QAWBConvergenceStableThresholdBV) == 12);
static_assert(offsetof(QAWBConvergenceStableThresholdBV, bv_value) == 0);
static_assert(offsetof(QAWBConvergenceStableThresholdBV, threshold) == 8);

// The number of BV entries in use and up to 2 entries.
struct QAWBConvergenceStableThresholdSet {
  int32_t bv_number;
  QAWBConvergenceStableThresholdBV bv_value_list[2];
};
#define QAWB_CONVERGENCE_STABLE_THRESHOLD_SET_FIELDS(X) \
  X(bv_number)                                          \
  X(bv_value_list)
QAWB_DESCRIBE_RECORD(QAWBConvergenceStableThresholdSet,
                     QAWB_CONVERGENCE_STABLE_THRESHOLD_SET_FIELDS);
static_assert(sizeof(QAWBConvergenceStableThresholdSet) == 28);
static_assert(offsetof(QAWBConvergenceStableThresholdSet, bv_number) == 0);
static_assert(offsetof(QAWBConvergenceStableThresholdSet, bv_value_list) == 4);

// The default stable-convergence threshold and up to 2 BV-dependent threshold
// sets.
struct QAWBConvergenceStableThreshold {
  float default_convergence_threshold;
  QAWBConvergenceStableThresholdSet threshold_list[2];
};
#define QAWB_CONVERGENCE_STABLE_THRESHOLD_FIELDS(X) \
  X(default_convergence_threshold)                  \
  X(threshold_list)
QAWB_DESCRIBE_RECORD(QAWBConvergenceStableThreshold,
                     QAWB_CONVERGENCE_STABLE_THRESHOLD_FIELDS);
static_assert(sizeof(QAWBConvergenceStableThreshold) == 60);
static_assert(offsetof(QAWBConvergenceStableThreshold,
                       default_convergence_threshold) == 0);
static_assert(offsetof(QAWBConvergenceStableThreshold, threshold_list) == 4);

// A radius interval, left bound first.
struct QAWBRadiusRange {
  int32_t radius_left;
  int32_t radius_right;
};
#define QAWB_RADIUS_RANGE_FIELDS(X) X(radius_left) X(radius_right)
QAWB_DESCRIBE_RECORD(QAWBRadiusRange, QAWB_RADIUS_RANGE_FIELDS);
static_assert(sizeof(QAWBRadiusRange) == 8);
static_assert(offsetof(QAWBRadiusRange, radius_left) == 0);
static_assert(offsetof(QAWBRadiusRange, radius_right) == 4);

// One radius entry: its radius interval, its colour adjustment and its second
// colour adjustment (`mcc_adjust_gain`).
struct QAWBPreferenceAdjustData {
  QAWBRadiusRange region_radius;
  QAWBPreferenceColorAdjust adjust_gain;
  QAWBPreferenceColorAdjust mcc_adjust_gain;
};
#define QAWB_PREFERENCE_ADJUST_DATA_FIELDS(X) \
  X(region_radius)                            \
  X(adjust_gain)                              \
  X(mcc_adjust_gain)
QAWB_DESCRIBE_RECORD(QAWBPreferenceAdjustData,
                     QAWB_PREFERENCE_ADJUST_DATA_FIELDS);
static_assert(sizeof(QAWBPreferenceAdjustData) == 24);
static_assert(offsetof(QAWBPreferenceAdjustData, region_radius) == 0);
static_assert(offsetof(QAWBPreferenceAdjustData, adjust_gain) == 8);
static_assert(offsetof(QAWBPreferenceAdjustData, mcc_adjust_gain) == 16);

// One CCT entry: its CCT interval, the number of radius entries in use and up
// to 3 radius entries.
struct QAWBPreferenceAdjustCCT {
  QAWBCCTRange region_cct;
  int32_t radius_number;
  QAWBPreferenceAdjustData adjust_data_list[3];
};
#define QAWB_PREFERENCE_ADJUST_CCT_FIELDS(X) \
  X(region_cct)                              \
  X(radius_number)                           \
  X(adjust_data_list)
QAWB_DESCRIBE_RECORD(QAWBPreferenceAdjustCCT,
                     QAWB_PREFERENCE_ADJUST_CCT_FIELDS);
static_assert(sizeof(QAWBPreferenceAdjustCCT) == 84);
static_assert(offsetof(QAWBPreferenceAdjustCCT, region_cct) == 0);
static_assert(offsetof(QAWBPreferenceAdjustCCT, radius_number) == 8);
static_assert(offsetof(QAWBPreferenceAdjustCCT, adjust_data_list) == 12);

// One BV row: its BV interval, the number of CCT entries in use and up to 13
// CCT entries.
struct QAWBPreferenceAdjustBV {
  QAWBBVRange region_bv;
  int32_t cct_number;
  QAWBPreferenceAdjustCCT adjust_cct_list[13];
};
#define QAWB_PREFERENCE_ADJUST_BV_FIELDS(X) \
  X(region_bv)                              \
  X(cct_number)                             \
  X(adjust_cct_list)
QAWB_DESCRIBE_RECORD(QAWBPreferenceAdjustBV, QAWB_PREFERENCE_ADJUST_BV_FIELDS);
static_assert(sizeof(QAWBPreferenceAdjustBV) == 1104);
static_assert(offsetof(QAWBPreferenceAdjustBV, region_bv) == 0);
static_assert(offsetof(QAWBPreferenceAdjustBV, cct_number) == 8);
static_assert(offsetof(QAWBPreferenceAdjustBV, adjust_cct_list) == 12);

// Preference adjustment of the red and blue gains by BV, CCT and radius:
// switches, the number of BV rows in use and up to 10 BV rows.
struct QAWBPreferenceAdjust {
  int32_t enable_flag;
  int32_t mcc_enable_flag;
  int32_t bv_number;
  QAWBPreferenceAdjustBV adjust_bv_list[10];
};
#define QAWB_PREFERENCE_ADJUST_FIELDS(X) \
  X(enable_flag)                         \
  X(mcc_enable_flag)                     \
  X(bv_number)                           \
  X(adjust_bv_list)
QAWB_DESCRIBE_RECORD(QAWBPreferenceAdjust, QAWB_PREFERENCE_ADJUST_FIELDS);
static_assert(sizeof(QAWBPreferenceAdjust) == 11052);
static_assert(offsetof(QAWBPreferenceAdjust, enable_flag) == 0);
static_assert(offsetof(QAWBPreferenceAdjust, mcc_enable_flag) == 4);
static_assert(offsetof(QAWBPreferenceAdjust, bv_number) == 8);
static_assert(offsetof(QAWBPreferenceAdjust, adjust_bv_list) == 12);

// One manual preset: its gains and its CCT.
struct QAWBMaunalGain {
  QAWBGains awb_gain;
  int32_t cct;
};
#define QAWB_MAUNAL_GAIN_FIELDS(X) X(awb_gain) X(cct)
QAWB_DESCRIBE_RECORD(QAWBMaunalGain, QAWB_MAUNAL_GAIN_FIELDS);
static_assert(sizeof(QAWBMaunalGain) == 16);
static_assert(offsetof(QAWBMaunalGain, awb_gain) == 0);
static_assert(offsetof(QAWBMaunalGain, cct) == 12);

// Manual white balance: up to 7 (gains, CCT) presets and up to 9 CCT ranges.
struct QAWBManualAWB {
  QAWBMaunalGain awb_gain_list[7];
  RangeUpDown<int> cct_range_list[9];
};
#define QAWB_MANUAL_AWB_FIELDS(X) X(awb_gain_list) X(cct_range_list)
QAWB_DESCRIBE_RECORD(QAWBManualAWB, QAWB_MANUAL_AWB_FIELDS);
static_assert(sizeof(QAWBManualAWB) == 184);
static_assert(offsetof(QAWBManualAWB, awb_gain_list) == 0);
static_assert(offsetof(QAWBManualAWB, cct_range_list) == 112);

// The flash decision target ratios and the flash preference adjustment.
struct QAWBFlash {
  float target_flash_decision_rg;
  float target_flash_decision_bg;
  QAWBPreferenceColorAdjust target_flash_preference_adjust;
};
#define QAWB_FLASH_FIELDS(X)  \
  X(target_flash_decision_rg) \
  X(target_flash_decision_bg) \
  X(target_flash_preference_adjust)
QAWB_DESCRIBE_RECORD(QAWBFlash, QAWB_FLASH_FIELDS);
static_assert(sizeof(QAWBFlash) == 16);
static_assert(offsetof(QAWBFlash, target_flash_decision_rg) == 0);
static_assert(offsetof(QAWBFlash, target_flash_decision_bg) == 4);
static_assert(offsetof(QAWBFlash, target_flash_preference_adjust) == 8);

// How often the algorithm runs, in frames, for normal, automatic-frame-rate and
// fixed 60 fps streaming, and whether convergence runs on skipped frames.
struct QAWBSKipFrameSet {
  int32_t run_every_n_frames_normal;
  int32_t run_every_n_frames_auto_fps;
  int32_t run_every_n_frames_fixed60_fps;
  int32_t run_convergence_on_skip_frame;
};
#define QAWB_S_KIP_FRAME_SET_FIELDS(X) \
  X(run_every_n_frames_normal)         \
  X(run_every_n_frames_auto_fps)       \
  X(run_every_n_frames_fixed60_fps)    \
  X(run_convergence_on_skip_frame)
QAWB_DESCRIBE_RECORD(QAWBSKipFrameSet, QAWB_S_KIP_FRAME_SET_FIELDS);
static_assert(sizeof(QAWBSKipFrameSet) == 16);
static_assert(offsetof(QAWBSKipFrameSet, run_every_n_frames_normal) == 0);
static_assert(offsetof(QAWBSKipFrameSet, run_every_n_frames_auto_fps) == 4);
static_assert(offsetof(QAWBSKipFrameSet, run_every_n_frames_fixed60_fps) == 8);
static_assert(offsetof(QAWBSKipFrameSet, run_convergence_on_skip_frame) == 12);

// The basic AWB tuning table.
struct QAWBBasicTuningTable {
  QAWBParameterVersion version;
  QAWBGains initial_gain;
  int32_t initial_cct;
  QAWBStatsResize stats_resize;
  QAWBGoldenReferenceTable golden_module_table;
  QAWBCCTReferencePoint reference_point_list;
  QAWBCCTRegion region_list;
  QAWBIlluminantWeight illuminant_weight_table;
  QAWBLuminanceWeight luminance_weight_table;
  QAWBTemporalFilter temporal_filter;
  QAWBConvergenceControl convergence_control;
  QAWBConvergenceStableThreshold convergence_stable_threshold;
  QAWBFinalTrustLevel grey_final_trust_level_list;
  QAWBPreferenceAdjust adjust_list;
  QAWBManualAWB manual_awb_setting;
  QAWBFlash flash;
  QAWBSKipFrameSet skip_frame;
};
#define QAWB_BASIC_TUNING_TABLE_FIELDS(X) \
  X(version)                              \
  X(initial_gain)                         \
  X(initial_cct)                          \
  X(stats_resize)                         \
  X(golden_module_table)                  \
  X(reference_point_list)                 \
  X(region_list)                          \
  X(illuminant_weight_table)              \
  X(luminance_weight_table)               \
  X(temporal_filter)                      \
  X(convergence_control)                  \
  X(convergence_stable_threshold)         \
  X(grey_final_trust_level_list)          \
  X(adjust_list)                          \
  X(manual_awb_setting)                   \
  X(flash)                                \
  X(skip_frame)
QAWB_DESCRIBE_RECORD(QAWBBasicTuningTable, QAWB_BASIC_TUNING_TABLE_FIELDS);
static_assert(sizeof(QAWBBasicTuningTable) == 24208);
static_assert(offsetof(QAWBBasicTuningTable, version) == 0);
static_assert(offsetof(QAWBBasicTuningTable, initial_gain) == 4);
static_assert(offsetof(QAWBBasicTuningTable, initial_cct) == 16);
static_assert(offsetof(QAWBBasicTuningTable, stats_resize) == 20);
static_assert(offsetof(QAWBBasicTuningTable, golden_module_table) == 52);
static_assert(offsetof(QAWBBasicTuningTable, reference_point_list) == 208);
static_assert(offsetof(QAWBBasicTuningTable, region_list) == 320);
static_assert(offsetof(QAWBBasicTuningTable, illuminant_weight_table) == 9740);
static_assert(offsetof(QAWBBasicTuningTable, luminance_weight_table) == 11968);
static_assert(offsetof(QAWBBasicTuningTable, temporal_filter) == 12136);
static_assert(offsetof(QAWBBasicTuningTable, convergence_control) == 12196);
static_assert(offsetof(QAWBBasicTuningTable, convergence_stable_threshold) ==
              12236);
static_assert(offsetof(QAWBBasicTuningTable, grey_final_trust_level_list) ==
              12296);
static_assert(offsetof(QAWBBasicTuningTable, adjust_list) == 12940);
static_assert(offsetof(QAWBBasicTuningTable, manual_awb_setting) == 23992);
static_assert(offsetof(QAWBBasicTuningTable, flash) == 24176);
static_assert(offsetof(QAWBBasicTuningTable, skip_frame) == 24192);

// Every record of this header with its message and field list, for code that
// is generated per record (the conversions, the tests).
#define QAWB_BASIC_TABLE_RECORDS(X)                                            \
  X(QAWBStatsResize, QAWBStatsResize, QAWB_STATS_RESIZE_FIELDS)                \
  X(QAWBGoldenModuleData, QAWBGoldenModuleData,                                \
    QAWB_GOLDEN_MODULE_DATA_FIELDS)                                            \
  X(QAWBGoldenReferenceTable, QAWBGoldenReferenceTable,                        \
    QAWB_GOLDEN_REFERENCE_TABLE_FIELDS)                                        \
  X(QAWBCCTReferencePoint, QAWBCCTReferencePoint,                              \
    QAWB_CCT_REFERENCE_POINT_FIELDS)                                           \
  X(QAWBRadiusWeightData, QAWBRadiusWeightData,                                \
    QAWB_RADIUS_WEIGHT_DATA_FIELDS)                                            \
  X(QAWBCCTRegionBV, QAWBCCTRegionBV, QAWB_CCT_REGION_BV_FIELDS)               \
  X(QAWBCCTRegion, QAWBCCTRegion, QAWB_CCT_REGION_FIELDS)                      \
  X(QAWBIlluminantWeight, QAWBIlluminantWeight, QAWB_ILLUMINANT_WEIGHT_FIELDS) \
  X(QAWBLuminanceWeight, QAWBLuminanceWeight, QAWB_LUMINANCE_WEIGHT_FIELDS)    \
  X(QAWBTemporalFilter, QAWBTemporalFilter, QAWB_TEMPORAL_FILTER_FIELDS)       \
  X(QAWBConvergenceSpeedRatioGain, QAWBConvergenceSpeedRatioGain,              \
    QAWB_CONVERGENCE_SPEED_RATIO_GAIN_FIELDS)                                  \
  X(QAWBConvergenceControl, QAWBConvergenceControl,                            \
    QAWB_CONVERGENCE_CONTROL_FIELDS)                                           \
  X(QAWBConvergenceStableThresholdBV, QAWBConvergenceStableThresholdBV,        \
    QAWB_CONVERGENCE_STABLE_THRESHOLD_BV_FIELDS)                               \
  X(QAWBConvergenceStableThresholdSet, QAWBConvergenceStableThresholdSet,      \
    QAWB_CONVERGENCE_STABLE_THRESHOLD_SET_FIELDS)                              \
  X(QAWBConvergenceStableThreshold, QAWBConvergenceStableThreshold,            \
    QAWB_CONVERGENCE_STABLE_THRESHOLD_FIELDS)                                  \
  X(QAWBRadiusRange, QAWBRadiusRange, QAWB_RADIUS_RANGE_FIELDS)                \
  X(QAWBPreferenceAdjustData, QAWBPreferenceAdjustData,                        \
    QAWB_PREFERENCE_ADJUST_DATA_FIELDS)                                        \
  X(QAWBPreferenceAdjustCCT, QAWBPreferenceAdjustCCT,                          \
    QAWB_PREFERENCE_ADJUST_CCT_FIELDS)                                         \
  X(QAWBPreferenceAdjustBV, QAWBPreferenceAdjustBV,                            \
    QAWB_PREFERENCE_ADJUST_BV_FIELDS)                                          \
  X(QAWBPreferenceAdjust, QAWBPreferenceAdjust, QAWB_PREFERENCE_ADJUST_FIELDS) \
  X(QAWBMaunalGain, QAWBMaunalGain, QAWB_MAUNAL_GAIN_FIELDS)                   \
  X(QAWBManualAWB, QAWBManualAWB, QAWB_MANUAL_AWB_FIELDS)                      \
  X(QAWBFlash, QAWBFlash, QAWB_FLASH_FIELDS)                                   \
  X(QAWBSKipFrameSet, QAWBSKipFrameSet, QAWB_S_KIP_FRAME_SET_FIELDS)           \
  X(QAWBBasicTuningTable, QAWBBasicTuningTable, QAWB_BASIC_TUNING_TABLE_FIELDS)

}  // namespace qawb

#endif  // AWB_RECORDS_QAWB_BASIC_TUNING_TABLE_H_
