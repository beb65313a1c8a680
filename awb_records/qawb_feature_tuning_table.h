// The feature tuning table (33184 bytes) and its records: face, spectral,
// machine-learning, Asd aggregator, tone-type, face and low-CCT preference,
// low-light statistics weights and dual-camera synchronisation.
//
// Every record is a plain, trivially copyable struct whose bytes are part of
// the tuning binary file format: sizes and offsets are checked below. The
// field list beside each struct names its fields in layout order; the
// conversions to and from the interchange messages are derived from it.
#ifndef AWB_RECORDS_QAWB_FEATURE_TUNING_TABLE_H_
#define AWB_RECORDS_QAWB_FEATURE_TUNING_TABLE_H_

#include <cstddef>
#include <cstdint>

#include "awb_records/qawb_shared_records.h"
#include "awb_records/record_description.h"

namespace qawb {

// The frame counts for a face to enter and to leave.
struct QAWBFaceEnterLeaveFrameInfo {
  int32_t face_enter_frame_number;
  int32_t face_leave_frame_number;
};
#define QAWB_FACE_ENTER_LEAVE_FRAME_INFO_FIELDS(X) \
  X(face_enter_frame_number)                       \
  X(face_leave_frame_number)
QAWB_DESCRIBE_RECORD(QAWBFaceEnterLeaveFrameInfo,
                     QAWB_FACE_ENTER_LEAVE_FRAME_INFO_FIELDS);
static_assert(sizeof(QAWBFaceEnterLeaveFrameInfo) == 8);
static_assert(offsetof(QAWBFaceEnterLeaveFrameInfo, face_enter_frame_number) ==
              0);
static_assert(offsetof(QAWBFaceEnterLeaveFrameInfo, face_leave_frame_number) ==
              4);

// One truetone BV row: the BV and up to 10 CCT/radius regions.
struct QAWBTruetoneRegionBV {
  int32_t bv_value;
  QAWBCCTRegionData region_list[10];
};
#define QAWB_TRUETONE_REGION_BV_FIELDS(X) X(bv_value) X(region_list)
QAWB_DESCRIBE_RECORD(QAWBTruetoneRegionBV, QAWB_TRUETONE_REGION_BV_FIELDS);
static_assert(sizeof(QAWBTruetoneRegionBV) == 164);
static_assert(offsetof(QAWBTruetoneRegionBV, bv_value) == 0);
static_assert(offsetof(QAWBTruetoneRegionBV, region_list) == 4);

// The truetone BV rows of one tone type.
struct QAWBTruetoneRegionToneType {
  QAWBTruetoneRegionBV region_bv_list[6];
};
#define QAWB_TRUETONE_REGION_TONE_TYPE_FIELDS(X) X(region_bv_list)
QAWB_DESCRIBE_RECORD(QAWBTruetoneRegionToneType,
                     QAWB_TRUETONE_REGION_TONE_TYPE_FIELDS);
static_assert(sizeof(QAWBTruetoneRegionToneType) == 984);
static_assert(offsetof(QAWBTruetoneRegionToneType, region_bv_list) == 0);

// The truetone regions: two flags, the counts in use, up to 6 BV rows for all
// tone types and 4 per-tone-type sets of up to 6 BV rows.
struct QAWBTruetoneRegion {
  int32_t enable_face_stats_filtering_flag;
  int32_t enable_face_stats_weighting_flag;
  int32_t cct_number;
  int32_t bv_number;
  QAWBTruetoneRegionBV region_bv_list[6];
  QAWBTruetoneRegionToneType per_tonetype_region_list[4];
};
#define QAWB_TRUETONE_REGION_FIELDS(X) \
  X(enable_face_stats_filtering_flag)  \
  X(enable_face_stats_weighting_flag)  \
  X(cct_number)                        \
  X(bv_number)                         \
  X(region_bv_list)                    \
  X(per_tonetype_region_list)
QAWB_DESCRIBE_RECORD(QAWBTruetoneRegion, QAWB_TRUETONE_REGION_FIELDS);
static_assert(sizeof(QAWBTruetoneRegion) == 4936);
static_assert(offsetof(QAWBTruetoneRegion, enable_face_stats_filtering_flag) ==
              0);
static_assert(offsetof(QAWBTruetoneRegion, enable_face_stats_weighting_flag) ==
              4);
static_assert(offsetof(QAWBTruetoneRegion, cct_number) == 8);
static_assert(offsetof(QAWBTruetoneRegion, bv_number) == 12);
static_assert(offsetof(QAWBTruetoneRegion, region_bv_list) == 16);
static_assert(offsetof(QAWBTruetoneRegion, per_tonetype_region_list) == 1000);

// One point: a face-ratio threshold and its trust level. Also the element of
// `face_size_weight_list` of `QAWBWeightedAverageFaceCCT`.
struct QAWBTrustLevelFaceRatio {
  float face_ratio_threshold;
  float trust_level;
};
#define QAWB_TRUST_LEVEL_FACE_RATIO_FIELDS(X) \
  X(face_ratio_threshold)                     \
  X(trust_level)
QAWB_DESCRIBE_RECORD(QAWBTrustLevelFaceRatio,
                     QAWB_TRUST_LEVEL_FACE_RATIO_FIELDS);
static_assert(sizeof(QAWBTrustLevelFaceRatio) == 8);
static_assert(offsetof(QAWBTrustLevelFaceRatio, face_ratio_threshold) == 0);
static_assert(offsetof(QAWBTrustLevelFaceRatio, trust_level) == 4);

// The weighted average of face CCTs: an enable flag, the number of face-size
// points in use and up to 4 face-size weight points, each a
// `QAWBTrustLevelFaceRatio` (face-ratio threshold, trust level).
struct QAWBWeightedAverageFaceCCT {
  int32_t enable_flag;
  int32_t face_size_number;
  QAWBTrustLevelFaceRatio face_size_weight_list[4];
};
#define QAWB_WEIGHTED_AVERAGE_FACE_CCT_FIELDS(X) \
  X(enable_flag)                                 \
  X(face_size_number)                            \
  X(face_size_weight_list)
QAWB_DESCRIBE_RECORD(QAWBWeightedAverageFaceCCT,
                     QAWB_WEIGHTED_AVERAGE_FACE_CCT_FIELDS);
static_assert(sizeof(QAWBWeightedAverageFaceCCT) == 40);
static_assert(offsetof(QAWBWeightedAverageFaceCCT, enable_flag) == 0);
static_assert(offsetof(QAWBWeightedAverageFaceCCT, face_size_number) == 4);
static_assert(offsetof(QAWBWeightedAverageFaceCCT, face_size_weight_list) == 8);

// The ideal CCTs of one tone type, one per entry of the mapping's
// `face_cct_list`.
struct QAWBFaceToIdealCCTMappingToneType {
  int32_t face_ideal_cct_list[15];
};
#define QAWB_FACE_TO_IDEAL_CCT_MAPPING_TONE_TYPE_FIELDS(X) \
  X(face_ideal_cct_list)
QAWB_DESCRIBE_RECORD(QAWBFaceToIdealCCTMappingToneType,
                     QAWB_FACE_TO_IDEAL_CCT_MAPPING_TONE_TYPE_FIELDS);
static_assert(sizeof(QAWBFaceToIdealCCTMappingToneType) == 60);
static_assert(offsetof(QAWBFaceToIdealCCTMappingToneType,
                       face_ideal_cct_list) == 0);

// One BV row: the BV and one ideal-CCT list per tone type.
struct QAWBFaceToIdealCCTMappingBV {
  int32_t bv_value;
  QAWBFaceToIdealCCTMappingToneType tone_type_face_ideal_cct_list[4];
};
#define QAWB_FACE_TO_IDEAL_CCT_MAPPING_BV_FIELDS(X) \
  X(bv_value)                                       \
  X(tone_type_face_ideal_cct_list)
QAWB_DESCRIBE_RECORD(QAWBFaceToIdealCCTMappingBV,
                     QAWB_FACE_TO_IDEAL_CCT_MAPPING_BV_FIELDS);
static_assert(sizeof(QAWBFaceToIdealCCTMappingBV) == 244);
static_assert(offsetof(QAWBFaceToIdealCCTMappingBV, bv_value) == 0);
static_assert(offsetof(QAWBFaceToIdealCCTMappingBV,
                       tone_type_face_ideal_cct_list) == 4);

// A mapping from face CCT to ideal CCT: the numbers of face CCTs and BV rows in
// use, up to 15 face CCTs and up to 6 BV rows. Used twice in the face table
// (normal and torch).
struct QAWBFaceToIdealCCTMapping {
  int32_t face_cct_number;
  int32_t bv_number;
  int32_t face_cct_list[15];
  QAWBFaceToIdealCCTMappingBV bv_face_ideal_cct_list[6];
};
#define QAWB_FACE_TO_IDEAL_CCT_MAPPING_FIELDS(X) \
  X(face_cct_number)                             \
  X(bv_number)                                   \
  X(face_cct_list)                               \
  X(bv_face_ideal_cct_list)
QAWB_DESCRIBE_RECORD(QAWBFaceToIdealCCTMapping,
                     QAWB_FACE_TO_IDEAL_CCT_MAPPING_FIELDS);
static_assert(sizeof(QAWBFaceToIdealCCTMapping) == 1532);
static_assert(offsetof(QAWBFaceToIdealCCTMapping, face_cct_number) == 0);
static_assert(offsetof(QAWBFaceToIdealCCTMapping, bv_number) == 4);
static_assert(offsetof(QAWBFaceToIdealCCTMapping, face_cct_list) == 8);
static_assert(offsetof(QAWBFaceToIdealCCTMapping, bv_face_ideal_cct_list) ==
              68);

// The weights of one tone type, one per entry of the table's `cct_list`.
struct QAWBFaceIlluminantWeightDataToneType {
  int32_t weight_list[36];
};
#define QAWB_FACE_ILLUMINANT_WEIGHT_DATA_TONE_TYPE_FIELDS(X) X(weight_list)
QAWB_DESCRIBE_RECORD(QAWBFaceIlluminantWeightDataToneType,
                     QAWB_FACE_ILLUMINANT_WEIGHT_DATA_TONE_TYPE_FIELDS);
static_assert(sizeof(QAWBFaceIlluminantWeightDataToneType) == 144);
static_assert(offsetof(QAWBFaceIlluminantWeightDataToneType, weight_list) == 0);

// One BV row: the BV and one weight list per tone type.
struct QAWBFaceIlluminantWeightData {
  int32_t bv_value;
  QAWBFaceIlluminantWeightDataToneType tone_type_weight_list[4];
};
#define QAWB_FACE_ILLUMINANT_WEIGHT_DATA_FIELDS(X) \
  X(bv_value)                                      \
  X(tone_type_weight_list)
QAWB_DESCRIBE_RECORD(QAWBFaceIlluminantWeightData,
                     QAWB_FACE_ILLUMINANT_WEIGHT_DATA_FIELDS);
static_assert(sizeof(QAWBFaceIlluminantWeightData) == 580);
static_assert(offsetof(QAWBFaceIlluminantWeightData, bv_value) == 0);
static_assert(offsetof(QAWBFaceIlluminantWeightData, tone_type_weight_list) ==
              4);

// The number of BV rows in use and up to 4 BV rows.
struct QAWBFaceIlluminantWeight {
  int32_t bv_number;
  QAWBFaceIlluminantWeightData illuminant_cct_list[4];
};
#define QAWB_FACE_ILLUMINANT_WEIGHT_FIELDS(X) \
  X(bv_number)                                \
  X(illuminant_cct_list)
QAWB_DESCRIBE_RECORD(QAWBFaceIlluminantWeight,
                     QAWB_FACE_ILLUMINANT_WEIGHT_FIELDS);
static_assert(sizeof(QAWBFaceIlluminantWeight) == 2324);
static_assert(offsetof(QAWBFaceIlluminantWeight, bv_number) == 0);
static_assert(offsetof(QAWBFaceIlluminantWeight, illuminant_cct_list) == 4);

// One face CCT and its illuminant weights.
struct QAWBFaceIlluminantData {
  int32_t face_cct;
  QAWBFaceIlluminantWeight face_illuminant_weight;
};
#define QAWB_FACE_ILLUMINANT_DATA_FIELDS(X) \
  X(face_cct)                               \
  X(face_illuminant_weight)
QAWB_DESCRIBE_RECORD(QAWBFaceIlluminantData, QAWB_FACE_ILLUMINANT_DATA_FIELDS);
static_assert(sizeof(QAWBFaceIlluminantData) == 2328);
static_assert(offsetof(QAWBFaceIlluminantData, face_cct) == 0);
static_assert(offsetof(QAWBFaceIlluminantData, face_illuminant_weight) == 4);

// The face illuminant table: the number of face CCTs and of CCTs in use, the
// CCT list (the columns of every weight list below) and up to 5 face-CCT
// entries.
struct QAWBFaceIlluminantTable {
  int32_t face_cct_number;
  int32_t cct_number;
  int32_t cct_list[36];
  QAWBFaceIlluminantData face_illuminant_list[5];
};
#define QAWB_FACE_ILLUMINANT_TABLE_FIELDS(X) \
  X(face_cct_number)                         \
  X(cct_number)                              \
  X(cct_list)                                \
  X(face_illuminant_list)
QAWB_DESCRIBE_RECORD(QAWBFaceIlluminantTable,
                     QAWB_FACE_ILLUMINANT_TABLE_FIELDS);
static_assert(sizeof(QAWBFaceIlluminantTable) == 11792);
static_assert(offsetof(QAWBFaceIlluminantTable, face_cct_number) == 0);
static_assert(offsetof(QAWBFaceIlluminantTable, cct_number) == 4);
static_assert(offsetof(QAWBFaceIlluminantTable, cct_list) == 8);
static_assert(offsetof(QAWBFaceIlluminantTable, face_illuminant_list) == 152);

// One point: a display brightness value and its trust level.
struct QAWBTrustLevelDisplayBrightness {
  int32_t display_brightness_value;
  float trust_level;
};
#define QAWB_TRUST_LEVEL_DISPLAY_BRIGHTNESS_FIELDS(X) \
  X(display_brightness_value)                         \
  X(trust_level)
QAWB_DESCRIBE_RECORD(QAWBTrustLevelDisplayBrightness,
                     QAWB_TRUST_LEVEL_DISPLAY_BRIGHTNESS_FIELDS);
static_assert(sizeof(QAWBTrustLevelDisplayBrightness) == 8);
static_assert(offsetof(QAWBTrustLevelDisplayBrightness,
                       display_brightness_value) == 0);
static_assert(offsetof(QAWBTrustLevelDisplayBrightness, trust_level) == 4);

// One face-ratio row: the face-ratio threshold, the number of display-
// brightness points in use and up to 4 points.
struct QAWBTrustLevelFaceRatioDisplayBrightness {
  float face_ratio_threshold;
  int32_t display_brightness_number;
  QAWBTrustLevelDisplayBrightness display_brightness_trust_list[4];
};
#define QAWB_TRUST_LEVEL_FACE_RATIO_DISPLAY_BRIGHTNESS_FIELDS(X) \
  X(face_ratio_threshold)                                        \
  X(display_brightness_number)                                   \
  X(display_brightness_trust_list)
QAWB_DESCRIBE_RECORD(QAWBTrustLevelFaceRatioDisplayBrightness,
                     QAWB_TRUST_LEVEL_FACE_RATIO_DISPLAY_BRIGHTNESS_FIELDS);
static_assert(sizeof(QAWBTrustLevelFaceRatioDisplayBrightness) == 40);
static_assert(offsetof(QAWBTrustLevelFaceRatioDisplayBrightness,
                       face_ratio_threshold) == 0);
static_assert(offsetof(QAWBTrustLevelFaceRatioDisplayBrightness,
                       display_brightness_number) == 4);
static_assert(offsetof(QAWBTrustLevelFaceRatioDisplayBrightness,
                       display_brightness_trust_list) == 8);

// Trust by face ratio: the number of points in use, a BV threshold for the
// display-brightness trust, up to 6 (face-ratio threshold, trust) points and up
// to 6 face-ratio rows with trust by display brightness.
struct QAWBTrustLevelFaceRatioInfo {
  int32_t face_ratio_number;
  int32_t display_brightness_trust_bv_threshold;
  QAWBTrustLevelFaceRatio face_ratio_trust_list[6];
  QAWBTrustLevelFaceRatioDisplayBrightness
      face_ratio_display_brightness_trust_list[6];
};
#define QAWB_TRUST_LEVEL_FACE_RATIO_INFO_FIELDS(X) \
  X(face_ratio_number)                             \
  X(display_brightness_trust_bv_threshold)         \
  X(face_ratio_trust_list)                         \
  X(face_ratio_display_brightness_trust_list)
QAWB_DESCRIBE_RECORD(QAWBTrustLevelFaceRatioInfo,
                     QAWB_TRUST_LEVEL_FACE_RATIO_INFO_FIELDS);
static_assert(sizeof(QAWBTrustLevelFaceRatioInfo) == 296);
static_assert(offsetof(QAWBTrustLevelFaceRatioInfo, face_ratio_number) == 0);
static_assert(offsetof(QAWBTrustLevelFaceRatioInfo,
                       display_brightness_trust_bv_threshold) == 4);
static_assert(offsetof(QAWBTrustLevelFaceRatioInfo, face_ratio_trust_list) ==
              8);
static_assert(offsetof(QAWBTrustLevelFaceRatioInfo,
                       face_ratio_display_brightness_trust_list) == 56);

// The final trust level of the face estimate: by BV, by BV and statistics, and
// by face ratio.
struct QAWBFaceTrustLevel {
  QAWBTrustLevelBVInfo bv_trust_info;
  QAWBTrustLevelBVStatsInfo bv_stats_trust_info;
  QAWBTrustLevelFaceRatioInfo face_ratio_trust_info;
};
#define QAWB_FACE_TRUST_LEVEL_FIELDS(X) \
  X(bv_trust_info)                      \
  X(bv_stats_trust_info)                \
  X(face_ratio_trust_info)
QAWB_DESCRIBE_RECORD(QAWBFaceTrustLevel, QAWB_FACE_TRUST_LEVEL_FIELDS);
static_assert(sizeof(QAWBFaceTrustLevel) == 656);
static_assert(offsetof(QAWBFaceTrustLevel, bv_trust_info) == 0);
static_assert(offsetof(QAWBFaceTrustLevel, bv_stats_trust_info) == 52);
static_assert(offsetof(QAWBFaceTrustLevel, face_ratio_trust_info) == 360);

// The face tuning. Within the feature table it lies at offset 4.
struct QAWBFaceTuningTable {
  int32_t enable_flag;
  int32_t display_trust_level_enable_flag;
  QAWBFaceEnterLeaveFrameInfo face_enter_leave_frame_info;
  int32_t face_temporal_frame_number;
  int32_t face_temporal_frame_number_torch;
  int32_t face_temporal_frame_number_switch;
  QAWBTruetoneRegion truetone_region_list;
  QAWBWeightedAverageFaceCCT weighted_average_facecct;
  QAWBFaceToIdealCCTMapping face_ideal_cct_table;
  QAWBFaceToIdealCCTMapping face_ideal_cct_table_torch;
  QAWBFaceIlluminantTable face_illuminant_table;
  QAWBTrustLevelBVStatsInfo face_ideal_cct_trust_level_list;
  QAWBFaceTrustLevel face_final_trust_level_list;
  int32_t max_face_count;
};
#define QAWB_FACE_TUNING_TABLE_FIELDS(X) \
  X(enable_flag)                         \
  X(display_trust_level_enable_flag)     \
  X(face_enter_leave_frame_info)         \
  X(face_temporal_frame_number)          \
  X(face_temporal_frame_number_torch)    \
  X(face_temporal_frame_number_switch)   \
  X(truetone_region_list)                \
  X(weighted_average_facecct)            \
  X(face_ideal_cct_table)                \
  X(face_ideal_cct_table_torch)          \
  X(face_illuminant_table)               \
  X(face_ideal_cct_trust_level_list)     \
  X(face_final_trust_level_list)         \
  X(max_face_count)
QAWB_DESCRIBE_RECORD(QAWBFaceTuningTable, QAWB_FACE_TUNING_TABLE_FIELDS);
static_assert(sizeof(QAWBFaceTuningTable) == 20828);
static_assert(offsetof(QAWBFaceTuningTable, enable_flag) == 0);
static_assert(offsetof(QAWBFaceTuningTable, display_trust_level_enable_flag) ==
              4);
static_assert(offsetof(QAWBFaceTuningTable, face_enter_leave_frame_info) == 8);
static_assert(offsetof(QAWBFaceTuningTable, face_temporal_frame_number) == 16);
static_assert(offsetof(QAWBFaceTuningTable, face_temporal_frame_number_torch) ==
              20);
static_assert(offsetof(QAWBFaceTuningTable,
                       face_temporal_frame_number_switch) == 24);
static_assert(offsetof(QAWBFaceTuningTable, truetone_region_list) == 28);
static_assert(offsetof(QAWBFaceTuningTable, weighted_average_facecct) == 4964);
static_assert(offsetof(QAWBFaceTuningTable, face_ideal_cct_table) == 5004);
static_assert(offsetof(QAWBFaceTuningTable, face_ideal_cct_table_torch) ==
              6536);
static_assert(offsetof(QAWBFaceTuningTable, face_illuminant_table) == 8068);
static_assert(offsetof(QAWBFaceTuningTable, face_ideal_cct_trust_level_list) ==
              19860);
static_assert(offsetof(QAWBFaceTuningTable, face_final_trust_level_list) ==
              20168);
static_assert(offsetof(QAWBFaceTuningTable, max_face_count) == 20824);

// Illuminant weights by BV: the number of BV rows in use and up to 4 rows of 36
// weights. Used by the spectral illuminant data (`QAWBSpectralIlluminantData`).
struct QAWBFeatureIlluminantWeight {
  int32_t bv_number;
  QAWBIlluminantWeightData illuminant_cct_list[4];
};
#define QAWB_FEATURE_ILLUMINANT_WEIGHT_FIELDS(X) \
  X(bv_number)                                   \
  X(illuminant_cct_list)
QAWB_DESCRIBE_RECORD(QAWBFeatureIlluminantWeight,
                     QAWB_FEATURE_ILLUMINANT_WEIGHT_FIELDS);
static_assert(sizeof(QAWBFeatureIlluminantWeight) == 596);
static_assert(offsetof(QAWBFeatureIlluminantWeight, bv_number) == 0);
static_assert(offsetof(QAWBFeatureIlluminantWeight, illuminant_cct_list) == 4);

// One spectral signal value and its illuminant weights by BV.
struct QAWBSpectralIlluminantData {
  int32_t spectral_signal;
  QAWBFeatureIlluminantWeight spectral_illuminant_weight;
};
#define QAWB_SPECTRAL_ILLUMINANT_DATA_FIELDS(X) \
  X(spectral_signal)                            \
  X(spectral_illuminant_weight)
QAWB_DESCRIBE_RECORD(QAWBSpectralIlluminantData,
                     QAWB_SPECTRAL_ILLUMINANT_DATA_FIELDS);
static_assert(sizeof(QAWBSpectralIlluminantData) == 600);
static_assert(offsetof(QAWBSpectralIlluminantData, spectral_signal) == 0);
static_assert(offsetof(QAWBSpectralIlluminantData,
                       spectral_illuminant_weight) == 4);

// Illuminant weights by spectral signal: the numbers of signals and CCTs in
// use, up to 36 CCTs (the columns of every weight list) and up to 5 spectral-
// signal entries.
struct QAWBSpectralIlluminantTable {
  int32_t spectral_signal_number;
  int32_t cct_number;
  int32_t cct_list[36];
  QAWBSpectralIlluminantData spectral_illuminant_list[5];
};
#define QAWB_SPECTRAL_ILLUMINANT_TABLE_FIELDS(X) \
  X(spectral_signal_number)                      \
  X(cct_number)                                  \
  X(cct_list)                                    \
  X(spectral_illuminant_list)
QAWB_DESCRIBE_RECORD(QAWBSpectralIlluminantTable,
                     QAWB_SPECTRAL_ILLUMINANT_TABLE_FIELDS);
static_assert(sizeof(QAWBSpectralIlluminantTable) == 3152);
static_assert(offsetof(QAWBSpectralIlluminantTable, spectral_signal_number) ==
              0);
static_assert(offsetof(QAWBSpectralIlluminantTable, cct_number) == 4);
static_assert(offsetof(QAWBSpectralIlluminantTable, cct_list) == 8);
static_assert(offsetof(QAWBSpectralIlluminantTable, spectral_illuminant_list) ==
              152);

// One value per spectral channel.
struct QAWBSpectralSignalTypeValue {
  int32_t ir_value;
  int32_t clear_value;
  int32_t r_value;
  int32_t g_value;
  int32_t b_value;
};
#define QAWB_SPECTRAL_SIGNAL_TYPE_VALUE_FIELDS(X) \
  X(ir_value)                                     \
  X(clear_value)                                  \
  X(r_value)                                      \
  X(g_value)                                      \
  X(b_value)
QAWB_DESCRIBE_RECORD(QAWBSpectralSignalTypeValue,
                     QAWB_SPECTRAL_SIGNAL_TYPE_VALUE_FIELDS);
static_assert(sizeof(QAWBSpectralSignalTypeValue) == 20);
static_assert(offsetof(QAWBSpectralSignalTypeValue, ir_value) == 0);
static_assert(offsetof(QAWBSpectralSignalTypeValue, clear_value) == 4);
static_assert(offsetof(QAWBSpectralSignalTypeValue, r_value) == 8);
static_assert(offsetof(QAWBSpectralSignalTypeValue, g_value) == 12);
static_assert(offsetof(QAWBSpectralSignalTypeValue, b_value) == 16);

// The settings of the spectral CCM selection.
struct QAWBSpectralCCMSelectionSetting {
  int32_t enable_flag;
  float ccm_spectral_saturation_threshold;
  float ccm_spectral_valid_lower_bound;
  float ccm_spectral_uv_ir_upper_bound;
  float ccm_spectral_uv_ir_lower_bound;
  int32_t ccm_spectral_lsi_delta_maximum;
  int32_t ccm_spectral_lsi_maximum;
};
#define QAWB_SPECTRAL_CCM_SELECTION_SETTING_FIELDS(X) \
  X(enable_flag)                                      \
  X(ccm_spectral_saturation_threshold)                \
  X(ccm_spectral_valid_lower_bound)                   \
  X(ccm_spectral_uv_ir_upper_bound)                   \
  X(ccm_spectral_uv_ir_lower_bound)                   \
  X(ccm_spectral_lsi_delta_maximum)                   \
  X(ccm_spectral_lsi_maximum)
QAWB_DESCRIBE_RECORD(QAWBSpectralCCMSelectionSetting,
                     QAWB_SPECTRAL_CCM_SELECTION_SETTING_FIELDS);
static_assert(sizeof(QAWBSpectralCCMSelectionSetting) == 28);
static_assert(offsetof(QAWBSpectralCCMSelectionSetting, enable_flag) == 0);
static_assert(offsetof(QAWBSpectralCCMSelectionSetting,
                       ccm_spectral_saturation_threshold) == 4);
static_assert(offsetof(QAWBSpectralCCMSelectionSetting,
                       ccm_spectral_valid_lower_bound) == 8);
static_assert(offsetof(QAWBSpectralCCMSelectionSetting,
                       ccm_spectral_uv_ir_upper_bound) == 12);
static_assert(offsetof(QAWBSpectralCCMSelectionSetting,
                       ccm_spectral_uv_ir_lower_bound) == 16);
static_assert(offsetof(QAWBSpectralCCMSelectionSetting,
                       ccm_spectral_lsi_delta_maximum) == 20);
static_assert(offsetof(QAWBSpectralCCMSelectionSetting,
                       ccm_spectral_lsi_maximum) == 24);

// One point.
struct QAWBSpectralBVSignalValue {
  int32_t bv_value;
  float spectral_signal_value;
};
#define QAWB_SPECTRAL_BV_SIGNAL_VALUE_FIELDS(X) \
  X(bv_value)                                   \
  X(spectral_signal_value)
QAWB_DESCRIBE_RECORD(QAWBSpectralBVSignalValue,
                     QAWB_SPECTRAL_BV_SIGNAL_VALUE_FIELDS);
static_assert(sizeof(QAWBSpectralBVSignalValue) == 8);
static_assert(offsetof(QAWBSpectralBVSignalValue, bv_value) == 0);
static_assert(offsetof(QAWBSpectralBVSignalValue, spectral_signal_value) == 4);

// Spectral signal value by BV: the number of points in use and up to 6 points.
struct QAWBSpectralBVSignalValueSet {
  int32_t bv_number;
  QAWBSpectralBVSignalValue bv_spectral_signal_list[6];
};
#define QAWB_SPECTRAL_BV_SIGNAL_VALUE_SET_FIELDS(X) \
  X(bv_number)                                      \
  X(bv_spectral_signal_list)
QAWB_DESCRIBE_RECORD(QAWBSpectralBVSignalValueSet,
                     QAWB_SPECTRAL_BV_SIGNAL_VALUE_SET_FIELDS);
static_assert(sizeof(QAWBSpectralBVSignalValueSet) == 52);
static_assert(offsetof(QAWBSpectralBVSignalValueSet, bv_number) == 0);
static_assert(offsetof(QAWBSpectralBVSignalValueSet, bv_spectral_signal_list) ==
              4);

// The spectral tuning.
struct QAWBSpectralTuningTable {
  int32_t enable_flag;
  int32_t spectral_wb_mode;
  int32_t spectral_input_type;
  QAWBSpectralIlluminantTable spectral_illuminant_table;
  int32_t signal_scalar;
  int32_t history_buffer_size;
  QAWBSpectralSignalTypeValue saturation_channel_threshold;
  QAWBSpectralSignalTypeValue convergence_channel_threshold;
  QAWBSpectralSignalTypeValue dark_channel_threshold;
  QAWBTrustLevelBVInfo spectral_bv_trust_info;
  QAWBSpectralCCMSelectionSetting spectral_ccm_selection_setting;
  QAWBSpectralBVSignalValueSet bv_spectral_signal_mapping;
};
#define QAWB_SPECTRAL_TUNING_TABLE_FIELDS(X) \
  X(enable_flag)                             \
  X(spectral_wb_mode)                        \
  X(spectral_input_type)                     \
  X(spectral_illuminant_table)               \
  X(signal_scalar)                           \
  X(history_buffer_size)                     \
  X(saturation_channel_threshold)            \
  X(convergence_channel_threshold)           \
  X(dark_channel_threshold)                  \
  X(spectral_bv_trust_info)                  \
  X(spectral_ccm_selection_setting)          \
  X(bv_spectral_signal_mapping)
QAWB_DESCRIBE_RECORD(QAWBSpectralTuningTable,
                     QAWB_SPECTRAL_TUNING_TABLE_FIELDS);
static_assert(sizeof(QAWBSpectralTuningTable) == 3364);
static_assert(offsetof(QAWBSpectralTuningTable, enable_flag) == 0);
static_assert(offsetof(QAWBSpectralTuningTable, spectral_wb_mode) == 4);
static_assert(offsetof(QAWBSpectralTuningTable, spectral_input_type) == 8);
static_assert(offsetof(QAWBSpectralTuningTable, spectral_illuminant_table) ==
              12);
static_assert(offsetof(QAWBSpectralTuningTable, signal_scalar) == 3164);
static_assert(offsetof(QAWBSpectralTuningTable, history_buffer_size) == 3168);
static_assert(offsetof(QAWBSpectralTuningTable, saturation_channel_threshold) ==
              3172);
static_assert(offsetof(QAWBSpectralTuningTable,
                       convergence_channel_threshold) == 3192);
static_assert(offsetof(QAWBSpectralTuningTable, dark_channel_threshold) ==
              3212);
static_assert(offsetof(QAWBSpectralTuningTable, spectral_bv_trust_info) ==
              3232);
static_assert(offsetof(QAWBSpectralTuningTable,
                       spectral_ccm_selection_setting) == 3284);
static_assert(offsetof(QAWBSpectralTuningTable, bv_spectral_signal_mapping) ==
              3312);

// The machine-learning tuning.
struct QAWBMachineLearningTuningTable {
  int32_t enable_flag;
  int32_t enable_for_led_flag;
  int32_t skip_frames;
  QAWBTrustLevelBVInfo machine_learning_bv_trust_info;
};
#define QAWB_MACHINE_LEARNING_TUNING_TABLE_FIELDS(X) \
  X(enable_flag)                                     \
  X(enable_for_led_flag)                             \
  X(skip_frames)                                     \
  X(machine_learning_bv_trust_info)
QAWB_DESCRIBE_RECORD(QAWBMachineLearningTuningTable,
                     QAWB_MACHINE_LEARNING_TUNING_TABLE_FIELDS);
static_assert(sizeof(QAWBMachineLearningTuningTable) == 64);
static_assert(offsetof(QAWBMachineLearningTuningTable, enable_flag) == 0);
static_assert(offsetof(QAWBMachineLearningTuningTable, enable_for_led_flag) ==
              4);
static_assert(offsetof(QAWBMachineLearningTuningTable, skip_frames) == 8);
static_assert(offsetof(QAWBMachineLearningTuningTable,
                       machine_learning_bv_trust_info) == 12);

// The convergence threshold of a model as a score and a count.
struct QAWBAsdModelConvergenceThreshold {
  float score;
  int32_t count;
};
#define QAWB_ASD_MODEL_CONVERGENCE_THRESHOLD_FIELDS(X) X(score) X(count)
QAWB_DESCRIBE_RECORD(QAWBAsdModelConvergenceThreshold,
                     QAWB_ASD_MODEL_CONVERGENCE_THRESHOLD_FIELDS);
static_assert(sizeof(QAWBAsdModelConvergenceThreshold) == 8);
static_assert(offsetof(QAWBAsdModelConvergenceThreshold, score) == 0);
static_assert(offsetof(QAWBAsdModelConvergenceThreshold, count) == 4);

// The tuning of one model.
struct QAWBAsdModelTuning {
  int32_t history_count;
  float score_round_threshold;
  QAWBAsdModelConvergenceThreshold convergence_threshold;
  float bipolar_factor;
};
#define QAWB_ASD_MODEL_TUNING_FIELDS(X) \
  X(history_count)                      \
  X(score_round_threshold)              \
  X(convergence_threshold)              \
  X(bipolar_factor)
QAWB_DESCRIBE_RECORD(QAWBAsdModelTuning, QAWB_ASD_MODEL_TUNING_FIELDS);
static_assert(sizeof(QAWBAsdModelTuning) == 20);
static_assert(offsetof(QAWBAsdModelTuning, history_count) == 0);
static_assert(offsetof(QAWBAsdModelTuning, score_round_threshold) == 4);
static_assert(offsetof(QAWBAsdModelTuning, convergence_threshold) == 8);
static_assert(offsetof(QAWBAsdModelTuning, bipolar_factor) == 16);

// The aggregation strategy and up to 6 model tunings. There is no count field:
// all 6 models are always carried.
struct QAWBAsdAggregatorTuningTable {
  int8_t strategy;
  uint8_t padding[3];  // not carried by the message
  QAWBAsdModelTuning model_tuning[6];
};
#define QAWB_ASD_AGGREGATOR_TUNING_TABLE_FIELDS(X) X(strategy) X(model_tuning)
QAWB_DESCRIBE_RECORD_WITH_PADDING(QAWBAsdAggregatorTuningTable,
                                  QAWB_ASD_AGGREGATOR_TUNING_TABLE_FIELDS, 3);
static_assert(sizeof(QAWBAsdAggregatorTuningTable) == 124);
static_assert(offsetof(QAWBAsdAggregatorTuningTable, strategy) == 0);
static_assert(offsetof(QAWBAsdAggregatorTuningTable, padding) == 1);
static_assert(offsetof(QAWBAsdAggregatorTuningTable, model_tuning) == 4);

// One point.
struct QAWBToneTypeBVConvergenceThresholdMapping {
  int32_t bv_value;
  float convergence_threshold;
};
#define QAWB_TONE_TYPE_BV_CONVERGENCE_THRESHOLD_MAPPING_FIELDS(X) \
  X(bv_value)                                                     \
  X(convergence_threshold)
QAWB_DESCRIBE_RECORD(QAWBToneTypeBVConvergenceThresholdMapping,
                     QAWB_TONE_TYPE_BV_CONVERGENCE_THRESHOLD_MAPPING_FIELDS);
static_assert(sizeof(QAWBToneTypeBVConvergenceThresholdMapping) == 8);
static_assert(offsetof(QAWBToneTypeBVConvergenceThresholdMapping, bv_value) ==
              0);
static_assert(offsetof(QAWBToneTypeBVConvergenceThresholdMapping,
                       convergence_threshold) == 4);

// Convergence threshold by BV: the number of points in use and up to 3 points.
struct QAWBToneTypeBVConvergenceThresholdMappingSet {
  int32_t bv_number;
  QAWBToneTypeBVConvergenceThresholdMapping bv_convergence_threshold_list[3];
};
#define QAWB_TONE_TYPE_BV_CONVERGENCE_THRESHOLD_MAPPING_SET_FIELDS(X) \
  X(bv_number)                                                        \
  X(bv_convergence_threshold_list)
QAWB_DESCRIBE_RECORD(
    QAWBToneTypeBVConvergenceThresholdMappingSet,
    QAWB_TONE_TYPE_BV_CONVERGENCE_THRESHOLD_MAPPING_SET_FIELDS);
static_assert(sizeof(QAWBToneTypeBVConvergenceThresholdMappingSet) == 28);
static_assert(offsetof(QAWBToneTypeBVConvergenceThresholdMappingSet,
                       bv_number) == 0);
static_assert(offsetof(QAWBToneTypeBVConvergenceThresholdMappingSet,
                       bv_convergence_threshold_list) == 4);

// One point.
struct QAWBToneTypeBVTrustLevelMapping {
  int32_t bv_value;
  float trust_level;
};
#define QAWB_TONE_TYPE_BV_TRUST_LEVEL_MAPPING_FIELDS(X) \
  X(bv_value)                                           \
  X(trust_level)
QAWB_DESCRIBE_RECORD(QAWBToneTypeBVTrustLevelMapping,
                     QAWB_TONE_TYPE_BV_TRUST_LEVEL_MAPPING_FIELDS);
static_assert(sizeof(QAWBToneTypeBVTrustLevelMapping) == 8);
static_assert(offsetof(QAWBToneTypeBVTrustLevelMapping, bv_value) == 0);
static_assert(offsetof(QAWBToneTypeBVTrustLevelMapping, trust_level) == 4);

// Trust level by BV: the number of points in use and up to 3 points.
struct QAWBToneTypeBVTrustLevelMappingSet {
  int32_t bv_number;
  QAWBToneTypeBVTrustLevelMapping bv_trust_level_list[3];
};
#define QAWB_TONE_TYPE_BV_TRUST_LEVEL_MAPPING_SET_FIELDS(X) \
  X(bv_number)                                              \
  X(bv_trust_level_list)
QAWB_DESCRIBE_RECORD(QAWBToneTypeBVTrustLevelMappingSet,
                     QAWB_TONE_TYPE_BV_TRUST_LEVEL_MAPPING_SET_FIELDS);
static_assert(sizeof(QAWBToneTypeBVTrustLevelMappingSet) == 28);
static_assert(offsetof(QAWBToneTypeBVTrustLevelMappingSet, bv_number) == 0);
static_assert(offsetof(QAWBToneTypeBVTrustLevelMappingSet,
                       bv_trust_level_list) == 4);

// The mean and scale of each of the three tone-type inputs.
struct QAWBMLToneTypePreprocessingInfo {
  float luma_y_mean;
  float luma_y_scale;
  float cct_mean;
  float cct_scale;
  float radius_mean;
  float radius_scale;
};
#define QAWB_ML_TONE_TYPE_PREPROCESSING_INFO_FIELDS(X) \
  X(luma_y_mean)                                       \
  X(luma_y_scale)                                      \
  X(cct_mean)                                          \
  X(cct_scale)                                         \
  X(radius_mean)                                       \
  X(radius_scale)
QAWB_DESCRIBE_RECORD(QAWBMLToneTypePreprocessingInfo,
                     QAWB_ML_TONE_TYPE_PREPROCESSING_INFO_FIELDS);
static_assert(sizeof(QAWBMLToneTypePreprocessingInfo) == 24);
static_assert(offsetof(QAWBMLToneTypePreprocessingInfo, luma_y_mean) == 0);
static_assert(offsetof(QAWBMLToneTypePreprocessingInfo, luma_y_scale) == 4);
static_assert(offsetof(QAWBMLToneTypePreprocessingInfo, cct_mean) == 8);
static_assert(offsetof(QAWBMLToneTypePreprocessingInfo, cct_scale) == 12);
static_assert(offsetof(QAWBMLToneTypePreprocessingInfo, radius_mean) == 16);
static_assert(offsetof(QAWBMLToneTypePreprocessingInfo, radius_scale) == 20);

// The tone-type tuning.
struct QAWBToneTypeTuningTable {
  int32_t enable_flag;
  int32_t skip_flash_flag;
  int32_t minimum_face_size;
  int32_t skip_frames;
  int32_t history_count;
  int32_t convergence_stable_frames;
  int32_t maximum_attempt_count;
  QAWBToneTypeBVConvergenceThresholdMappingSet convergence_threshold_mapping;
  QAWBToneTypeBVTrustLevelMappingSet trust_level_mapping;
  QAWBMLToneTypePreprocessingInfo tone_type_preprocessing_info;
  int32_t enable_familiar_face_assisted_truetone;
  int32_t convergence_delay;
};
#define QAWB_TONE_TYPE_TUNING_TABLE_FIELDS(X) \
  X(enable_flag)                              \
  X(skip_flash_flag)                          \
  X(minimum_face_size)                        \
  X(skip_frames)                              \
  X(history_count)                            \
  X(convergence_stable_frames)                \
  X(maximum_attempt_count)                    \
  X(convergence_threshold_mapping)            \
  X(trust_level_mapping)                      \
  X(tone_type_preprocessing_info)             \
  X(enable_familiar_face_assisted_truetone)   \
  X(convergence_delay)
QAWB_DESCRIBE_RECORD(QAWBToneTypeTuningTable,
                     QAWB_TONE_TYPE_TUNING_TABLE_FIELDS);
static_assert(sizeof(QAWBToneTypeTuningTable) == 116);
static_assert(offsetof(QAWBToneTypeTuningTable, enable_flag) == 0);
static_assert(offsetof(QAWBToneTypeTuningTable, skip_flash_flag) == 4);
static_assert(offsetof(QAWBToneTypeTuningTable, minimum_face_size) == 8);
static_assert(offsetof(QAWBToneTypeTuningTable, skip_frames) == 12);
static_assert(offsetof(QAWBToneTypeTuningTable, history_count) == 16);
static_assert(offsetof(QAWBToneTypeTuningTable, convergence_stable_frames) ==
              20);
static_assert(offsetof(QAWBToneTypeTuningTable, maximum_attempt_count) == 24);
static_assert(offsetof(QAWBToneTypeTuningTable,
                       convergence_threshold_mapping) == 28);
static_assert(offsetof(QAWBToneTypeTuningTable, trust_level_mapping) == 56);
static_assert(offsetof(QAWBToneTypeTuningTable, tone_type_preprocessing_info) ==
              84);
static_assert(offsetof(QAWBToneTypeTuningTable,
                       enable_familiar_face_assisted_truetone) == 108);
static_assert(offsetof(QAWBToneTypeTuningTable, convergence_delay) == 112);

// One CCT entry: its CCT interval and 4 colour adjustments.
struct QAWBFacePreferenceAdjustData {
  QAWBCCTRange region_cct;
  QAWBPreferenceColorAdjust adjust_gains[4];
};
#define QAWB_FACE_PREFERENCE_ADJUST_DATA_FIELDS(X) X(region_cct) X(adjust_gains)
QAWB_DESCRIBE_RECORD(QAWBFacePreferenceAdjustData,
                     QAWB_FACE_PREFERENCE_ADJUST_DATA_FIELDS);
static_assert(sizeof(QAWBFacePreferenceAdjustData) == 40);
static_assert(offsetof(QAWBFacePreferenceAdjustData, region_cct) == 0);
static_assert(offsetof(QAWBFacePreferenceAdjustData, adjust_gains) == 8);

// One BV row: its BV interval, the number of CCT entries in use and up to 13
// CCT entries.
struct QAWBFacePreferenceAdjustBV {
  QAWBBVRange region_bv;
  int32_t cct_number;
  QAWBFacePreferenceAdjustData adjust_cct_list[13];
};
#define QAWB_FACE_PREFERENCE_ADJUST_BV_FIELDS(X) \
  X(region_bv)                                   \
  X(cct_number)                                  \
  X(adjust_cct_list)
QAWB_DESCRIBE_RECORD(QAWBFacePreferenceAdjustBV,
                     QAWB_FACE_PREFERENCE_ADJUST_BV_FIELDS);
static_assert(sizeof(QAWBFacePreferenceAdjustBV) == 532);
static_assert(offsetof(QAWBFacePreferenceAdjustBV, region_bv) == 0);
static_assert(offsetof(QAWBFacePreferenceAdjustBV, cct_number) == 8);
static_assert(offsetof(QAWBFacePreferenceAdjustBV, adjust_cct_list) == 12);

// A switch, the number of BV rows in use and up to 9 BV rows.
struct QAWBFacePreference {
  int32_t enable_flag;
  int32_t bv_number;
  QAWBFacePreferenceAdjustBV adjust_bv_list[9];
};
#define QAWB_FACE_PREFERENCE_FIELDS(X) \
  X(enable_flag)                       \
  X(bv_number)                         \
  X(adjust_bv_list)
QAWB_DESCRIBE_RECORD(QAWBFacePreference, QAWB_FACE_PREFERENCE_FIELDS);
static_assert(sizeof(QAWBFacePreference) == 4796);
static_assert(offsetof(QAWBFacePreference, enable_flag) == 0);
static_assert(offsetof(QAWBFacePreference, bv_number) == 4);
static_assert(offsetof(QAWBFacePreference, adjust_bv_list) == 8);

// One BV row: its BV and, for each current low CCT column, the preferred CCT.
struct QAWBLowCCTMappingBV {
  int32_t bv_value;
  int32_t preference_cct_list[9];
};
#define QAWB_LOW_CCT_MAPPING_BV_FIELDS(X) X(bv_value) X(preference_cct_list)
QAWB_DESCRIBE_RECORD(QAWBLowCCTMappingBV, QAWB_LOW_CCT_MAPPING_BV_FIELDS);
static_assert(sizeof(QAWBLowCCTMappingBV) == 40);
static_assert(offsetof(QAWBLowCCTMappingBV, bv_value) == 0);
static_assert(offsetof(QAWBLowCCTMappingBV, preference_cct_list) == 4);

// A switch, the numbers of CCT columns and BV rows in use, up to 9 current low
// CCTs and up to 7 BV rows of preferred CCTs.
struct QAWBLowCCTPreference {
  int32_t enable_flag;
  int32_t low_cct_number;
  int32_t bv_number;
  int32_t current_low_cct_list[9];
  QAWBLowCCTMappingBV preference_low_cct_list[7];
};
#define QAWB_LOW_CCT_PREFERENCE_FIELDS(X) \
  X(enable_flag)                          \
  X(low_cct_number)                       \
  X(bv_number)                            \
  X(current_low_cct_list)                 \
  X(preference_low_cct_list)
QAWB_DESCRIBE_RECORD(QAWBLowCCTPreference, QAWB_LOW_CCT_PREFERENCE_FIELDS);
static_assert(sizeof(QAWBLowCCTPreference) == 328);
static_assert(offsetof(QAWBLowCCTPreference, enable_flag) == 0);
static_assert(offsetof(QAWBLowCCTPreference, low_cct_number) == 4);
static_assert(offsetof(QAWBLowCCTPreference, bv_number) == 8);
static_assert(offsetof(QAWBLowCCTPreference, current_low_cct_list) == 12);
static_assert(offsetof(QAWBLowCCTPreference, preference_low_cct_list) == 48);

// One BV row: its BV and, per colour channel, up to 10 pixel values with their
// noise weights.
struct QAWBNoiseWeightTable {
  int32_t bv_value;
  float red_pixel_value_list[10];
  float red_noise_weight_list[10];
  float green_pixel_value_list[10];
  float green_noise_weight_list[10];
  float blue_pixel_value_list[10];
  float blue_noise_weight_list[10];
};
#define QAWB_NOISE_WEIGHT_TABLE_FIELDS(X) \
  X(bv_value)                             \
  X(red_pixel_value_list)                 \
  X(red_noise_weight_list)                \
  X(green_pixel_value_list)               \
  X(green_noise_weight_list)              \
  X(blue_pixel_value_list)                \
  X(blue_noise_weight_list)
QAWB_DESCRIBE_RECORD(QAWBNoiseWeightTable, QAWB_NOISE_WEIGHT_TABLE_FIELDS);
static_assert(sizeof(QAWBNoiseWeightTable) == 244);
static_assert(offsetof(QAWBNoiseWeightTable, bv_value) == 0);
static_assert(offsetof(QAWBNoiseWeightTable, red_pixel_value_list) == 4);
static_assert(offsetof(QAWBNoiseWeightTable, red_noise_weight_list) == 44);
static_assert(offsetof(QAWBNoiseWeightTable, green_pixel_value_list) == 84);
static_assert(offsetof(QAWBNoiseWeightTable, green_noise_weight_list) == 124);
static_assert(offsetof(QAWBNoiseWeightTable, blue_pixel_value_list) == 164);
static_assert(offsetof(QAWBNoiseWeightTable, blue_noise_weight_list) == 204);

// A switch, the number of (pixel value, weight) points in use, the number of BV
// rows in use and up to 10 BV rows.
struct QAWBStatsNoiseWeight {
  int32_t enable_flag;
  int32_t weight_point_number;
  int32_t bv_number;
  QAWBNoiseWeightTable noise_weight_table[10];
};
#define QAWB_STATS_NOISE_WEIGHT_FIELDS(X) \
  X(enable_flag)                          \
  X(weight_point_number)                  \
  X(bv_number)                            \
  X(noise_weight_table)
QAWB_DESCRIBE_RECORD(QAWBStatsNoiseWeight, QAWB_STATS_NOISE_WEIGHT_FIELDS);
static_assert(sizeof(QAWBStatsNoiseWeight) == 2452);
static_assert(offsetof(QAWBStatsNoiseWeight, enable_flag) == 0);
static_assert(offsetof(QAWBStatsNoiseWeight, weight_point_number) == 4);
static_assert(offsetof(QAWBStatsNoiseWeight, bv_number) == 8);
static_assert(offsetof(QAWBStatsNoiseWeight, noise_weight_table) == 12);

// One point: a radius as a ratio and its weight.
struct QAWBROIWeight {
  float roi_radius_ratio;
  float roi_weight;
};
#define QAWB_ROI_WEIGHT_FIELDS(X) X(roi_radius_ratio) X(roi_weight)
QAWB_DESCRIBE_RECORD(QAWBROIWeight, QAWB_ROI_WEIGHT_FIELDS);
static_assert(sizeof(QAWBROIWeight) == 8);
static_assert(offsetof(QAWBROIWeight, roi_radius_ratio) == 0);
static_assert(offsetof(QAWBROIWeight, roi_weight) == 4);

// One BV row: its BV and up to 4 points.
struct QAWBStatsROIWeightTable {
  int32_t bv_value;
  QAWBROIWeight roi_weight_list[4];
};
#define QAWB_STATS_ROI_WEIGHT_TABLE_FIELDS(X) X(bv_value) X(roi_weight_list)
QAWB_DESCRIBE_RECORD(QAWBStatsROIWeightTable,
                     QAWB_STATS_ROI_WEIGHT_TABLE_FIELDS);
static_assert(sizeof(QAWBStatsROIWeightTable) == 36);
static_assert(offsetof(QAWBStatsROIWeightTable, bv_value) == 0);
static_assert(offsetof(QAWBStatsROIWeightTable, roi_weight_list) == 4);

// A switch, the number of BV rows in use, the number of (radius ratio, weight)
// points in use and up to 5 BV rows.
struct QAWBStatsROIWeight {
  int32_t enable_flag;
  int32_t bv_number;
  int32_t roi_weight_number;
  QAWBStatsROIWeightTable roi_weight_table[5];
};
#define QAWB_STATS_ROI_WEIGHT_FIELDS(X) \
  X(enable_flag)                        \
  X(bv_number)                          \
  X(roi_weight_number)                  \
  X(roi_weight_table)
QAWB_DESCRIBE_RECORD(QAWBStatsROIWeight, QAWB_STATS_ROI_WEIGHT_FIELDS);
static_assert(sizeof(QAWBStatsROIWeight) == 192);
static_assert(offsetof(QAWBStatsROIWeight, enable_flag) == 0);
static_assert(offsetof(QAWBStatsROIWeight, bv_number) == 4);
static_assert(offsetof(QAWBStatsROIWeight, roi_weight_number) == 8);
static_assert(offsetof(QAWBStatsROIWeight, roi_weight_table) == 12);

// A switch and the BV threshold of the median filter.
struct QAWBStatsMedianFilter {
  int32_t enable_flag;
  int32_t bv_threshold;
};
#define QAWB_STATS_MEDIAN_FILTER_FIELDS(X) X(enable_flag) X(bv_threshold)
QAWB_DESCRIBE_RECORD(QAWBStatsMedianFilter, QAWB_STATS_MEDIAN_FILTER_FIELDS);
static_assert(sizeof(QAWBStatsMedianFilter) == 8);
static_assert(offsetof(QAWBStatsMedianFilter, enable_flag) == 0);
static_assert(offsetof(QAWBStatsMedianFilter, bv_threshold) == 4);

// One BV row: its BV and one weight per luma value.
struct QAWBDarknessWeight {
  int32_t bv_value;
  float darkness_weight_list[5];
};
#define QAWB_DARKNESS_WEIGHT_FIELDS(X) X(bv_value) X(darkness_weight_list)
QAWB_DESCRIBE_RECORD(QAWBDarknessWeight, QAWB_DARKNESS_WEIGHT_FIELDS);
static_assert(sizeof(QAWBDarknessWeight) == 24);
static_assert(offsetof(QAWBDarknessWeight, bv_value) == 0);
static_assert(offsetof(QAWBDarknessWeight, darkness_weight_list) == 4);

// A switch, the number of BV rows in use, the number of luma points in use, up
// to 5 luma (Y) values and up to 5 BV rows of weights.
struct QAWBStatsDarknessWeight {
  int32_t enable_flag;
  int32_t bv_number;
  int32_t darkness_weight_number;
  float y_value_list[5];
  QAWBDarknessWeight darkness_weight[5];
};
#define QAWB_STATS_DARKNESS_WEIGHT_FIELDS(X) \
  X(enable_flag)                             \
  X(bv_number)                               \
  X(darkness_weight_number)                  \
  X(y_value_list)                            \
  X(darkness_weight)
QAWB_DESCRIBE_RECORD(QAWBStatsDarknessWeight,
                     QAWB_STATS_DARKNESS_WEIGHT_FIELDS);
static_assert(sizeof(QAWBStatsDarknessWeight) == 152);
static_assert(offsetof(QAWBStatsDarknessWeight, enable_flag) == 0);
static_assert(offsetof(QAWBStatsDarknessWeight, bv_number) == 4);
static_assert(offsetof(QAWBStatsDarknessWeight, darkness_weight_number) == 8);
static_assert(offsetof(QAWBStatsDarknessWeight, y_value_list) == 12);
static_assert(offsetof(QAWBStatsDarknessWeight, darkness_weight) == 32);

// The four low-light statistics tunings.
struct QAWBLowLightTuningTable {
  QAWBStatsNoiseWeight stats_noise_weight_tuning;
  QAWBStatsROIWeight stats_roi_weight_tuning;
  QAWBStatsMedianFilter stats_median_filter_tuning;
  QAWBStatsDarknessWeight stats_darkness_weight_tuning;
};
#define QAWB_LOW_LIGHT_TUNING_TABLE_FIELDS(X) \
  X(stats_noise_weight_tuning)                \
  X(stats_roi_weight_tuning)                  \
  X(stats_median_filter_tuning)               \
  X(stats_darkness_weight_tuning)
QAWB_DESCRIBE_RECORD(QAWBLowLightTuningTable,
                     QAWB_LOW_LIGHT_TUNING_TABLE_FIELDS);
static_assert(sizeof(QAWBLowLightTuningTable) == 2804);
static_assert(offsetof(QAWBLowLightTuningTable, stats_noise_weight_tuning) ==
              0);
static_assert(offsetof(QAWBLowLightTuningTable, stats_roi_weight_tuning) ==
              2452);
static_assert(offsetof(QAWBLowLightTuningTable, stats_median_filter_tuning) ==
              2644);
static_assert(offsetof(QAWBLowLightTuningTable, stats_darkness_weight_tuning) ==
              2652);

// One BV row: its BV, the number of points in use and up to 20 points (CCT,
// R/G, B/G).
struct QAWBMappingPointBV {
  int32_t bv_value;
  int32_t mapping_point_number;
  QAWBCCTReferencePointData mapping_point_list[20];
};
#define QAWB_MAPPING_POINT_BV_FIELDS(X) \
  X(bv_value)                           \
  X(mapping_point_number)               \
  X(mapping_point_list)
QAWB_DESCRIBE_RECORD(QAWBMappingPointBV, QAWB_MAPPING_POINT_BV_FIELDS);
static_assert(sizeof(QAWBMappingPointBV) == 248);
static_assert(offsetof(QAWBMappingPointBV, bv_value) == 0);
static_assert(offsetof(QAWBMappingPointBV, mapping_point_number) == 4);
static_assert(offsetof(QAWBMappingPointBV, mapping_point_list) == 8);

// The number of BV rows in use and up to 3 BV rows.
struct QAWBMappingPoint {
  int32_t bv_number;
  QAWBMappingPointBV mapping_point_bv_list[3];
};
#define QAWB_MAPPING_POINT_FIELDS(X) X(bv_number) X(mapping_point_bv_list)
QAWB_DESCRIBE_RECORD(QAWBMappingPoint, QAWB_MAPPING_POINT_FIELDS);
static_assert(sizeof(QAWBMappingPoint) == 748);
static_assert(offsetof(QAWBMappingPoint, bv_number) == 0);
static_assert(offsetof(QAWBMappingPoint, mapping_point_bv_list) == 4);

// The two switches and the mapping line.
struct QAWBDualSynchronize {
  int32_t overwrite_enable_flag;
  int32_t sync_from_peer_enable_flag;
  QAWBMappingPoint mapping_line;
};
#define QAWB_DUAL_SYNCHRONIZE_FIELDS(X) \
  X(overwrite_enable_flag)              \
  X(sync_from_peer_enable_flag)         \
  X(mapping_line)
QAWB_DESCRIBE_RECORD(QAWBDualSynchronize, QAWB_DUAL_SYNCHRONIZE_FIELDS);
static_assert(sizeof(QAWBDualSynchronize) == 756);
static_assert(offsetof(QAWBDualSynchronize, overwrite_enable_flag) == 0);
static_assert(offsetof(QAWBDualSynchronize, sync_from_peer_enable_flag) == 4);
static_assert(offsetof(QAWBDualSynchronize, mapping_line) == 8);

// The feature table: version and nine feature sub-tables, back to back in
// schema order.
struct QAWBFeatureTuningTable {
  QAWBParameterVersion version;
  QAWBFaceTuningTable face_tuning_table;
  QAWBSpectralTuningTable spectral_tuning_table;
  QAWBMachineLearningTuningTable machine_learning_tuning_table;
  QAWBAsdAggregatorTuningTable asd_aggregator_tuning_table;
  QAWBToneTypeTuningTable tone_type_tuning_table;
  QAWBFacePreference face_preference;
  QAWBLowCCTPreference low_cct_preference;
  QAWBLowLightTuningTable low_light_tuning_table;
  QAWBDualSynchronize dual_synchronize;
};
#define QAWB_FEATURE_TUNING_TABLE_FIELDS(X) \
  X(version)                                \
  X(face_tuning_table)                      \
  X(spectral_tuning_table)                  \
  X(machine_learning_tuning_table)          \
  X(asd_aggregator_tuning_table)            \
  X(tone_type_tuning_table)                 \
  X(face_preference)                        \
  X(low_cct_preference)                     \
  X(low_light_tuning_table)                 \
  X(dual_synchronize)
QAWB_DESCRIBE_RECORD(QAWBFeatureTuningTable, QAWB_FEATURE_TUNING_TABLE_FIELDS);
static_assert(sizeof(QAWBFeatureTuningTable) == 33184);
static_assert(offsetof(QAWBFeatureTuningTable, version) == 0);
static_assert(offsetof(QAWBFeatureTuningTable, face_tuning_table) == 4);
static_assert(offsetof(QAWBFeatureTuningTable, spectral_tuning_table) == 20832);
static_assert(offsetof(QAWBFeatureTuningTable, machine_learning_tuning_table) ==
              24196);
static_assert(offsetof(QAWBFeatureTuningTable, asd_aggregator_tuning_table) ==
              24260);
static_assert(offsetof(QAWBFeatureTuningTable, tone_type_tuning_table) ==
              24384);
static_assert(offsetof(QAWBFeatureTuningTable, face_preference) == 24500);
static_assert(offsetof(QAWBFeatureTuningTable, low_cct_preference) == 29296);
static_assert(offsetof(QAWBFeatureTuningTable, low_light_tuning_table) ==
              29624);
static_assert(offsetof(QAWBFeatureTuningTable, dual_synchronize) == 32428);

// Every record of this header with its message and field list, for code that
// is generated per record (the conversions, the tests).
#define QAWB_FEATURE_TABLE_RECORDS(X)                                         \
  X(QAWBFaceEnterLeaveFrameInfo, QAWBFaceEnterLeaveFrameInfo,                 \
    QAWB_FACE_ENTER_LEAVE_FRAME_INFO_FIELDS)                                  \
  X(QAWBTruetoneRegionBV, QAWBTruetoneRegionBV,                               \
    QAWB_TRUETONE_REGION_BV_FIELDS)                                           \
  X(QAWBTruetoneRegionToneType, QAWBTruetoneRegionToneType,                   \
    QAWB_TRUETONE_REGION_TONE_TYPE_FIELDS)                                    \
  X(QAWBTruetoneRegion, QAWBTruetoneRegion, QAWB_TRUETONE_REGION_FIELDS)      \
  X(QAWBTrustLevelFaceRatio, QAWBTrustLevelFaceRatio,                         \
    QAWB_TRUST_LEVEL_FACE_RATIO_FIELDS)                                       \
  X(QAWBWeightedAverageFaceCCT, QAWBWeightedAverageFaceCCT,                   \
    QAWB_WEIGHTED_AVERAGE_FACE_CCT_FIELDS)                                    \
  X(QAWBFaceToIdealCCTMappingToneType, QAWBFaceToIdealCCTMappingToneType,     \
    QAWB_FACE_TO_IDEAL_CCT_MAPPING_TONE_TYPE_FIELDS)                          \
  X(QAWBFaceToIdealCCTMappingBV, QAWBFaceToIdealCCTMappingBV,                 \
    QAWB_FACE_TO_IDEAL_CCT_MAPPING_BV_FIELDS)                                 \
  X(QAWBFaceToIdealCCTMapping, QAWBFaceToIdealCCTMapping,                     \
    QAWB_FACE_TO_IDEAL_CCT_MAPPING_FIELDS)                                    \
  X(QAWBFaceIlluminantWeightDataToneType,                                     \
    QAWBFaceIlluminantWeightDataToneType,                                     \
    QAWB_FACE_ILLUMINANT_WEIGHT_DATA_TONE_TYPE_FIELDS)                        \
  X(QAWBFaceIlluminantWeightData, QAWBFaceIlluminantWeightData,               \
    QAWB_FACE_ILLUMINANT_WEIGHT_DATA_FIELDS)                                  \
  X(QAWBFaceIlluminantWeight, QAWBFaceIlluminantWeight,                       \
    QAWB_FACE_ILLUMINANT_WEIGHT_FIELDS)                                       \
  X(QAWBFaceIlluminantData, QAWBFaceIlluminantData,                           \
    QAWB_FACE_ILLUMINANT_DATA_FIELDS)                                         \
  X(QAWBFaceIlluminantTable, QAWBFaceIlluminantTable,                         \
    QAWB_FACE_ILLUMINANT_TABLE_FIELDS)                                        \
  X(QAWBTrustLevelDisplayBrightness, QAWBTrustLevelDisplayBrightness,         \
    QAWB_TRUST_LEVEL_DISPLAY_BRIGHTNESS_FIELDS)                               \
  X(QAWBTrustLevelFaceRatioDisplayBrightness,                                 \
    QAWBTrustLevelFaceRatioDisplayBrightness,                                 \
    QAWB_TRUST_LEVEL_FACE_RATIO_DISPLAY_BRIGHTNESS_FIELDS)                    \
  X(QAWBTrustLevelFaceRatioInfo, QAWBTrustLevelFaceRatioInfo,                 \
    QAWB_TRUST_LEVEL_FACE_RATIO_INFO_FIELDS)                                  \
  X(QAWBFaceTrustLevel, QAWBFaceTrustLevel, QAWB_FACE_TRUST_LEVEL_FIELDS)     \
  X(QAWBFaceTuningTable, QAWBFaceTuningTable, QAWB_FACE_TUNING_TABLE_FIELDS)  \
  X(QAWBFeatureIlluminantWeight, QAWBFeatureIlluminantWeight,                 \
    QAWB_FEATURE_ILLUMINANT_WEIGHT_FIELDS)                                    \
  X(QAWBSpectralIlluminantData, QAWBSpectralIlluminantData,                   \
    QAWB_SPECTRAL_ILLUMINANT_DATA_FIELDS)                                     \
  X(QAWBSpectralIlluminantTable, QAWBSpectralIlluminantTable,                 \
    QAWB_SPECTRAL_ILLUMINANT_TABLE_FIELDS)                                    \
  X(QAWBSpectralSignalTypeValue, QAWBSpectralSignalTypeValue,                 \
    QAWB_SPECTRAL_SIGNAL_TYPE_VALUE_FIELDS)                                   \
  X(QAWBSpectralCCMSelectionSetting, QAWBSpectralCCMSelectionSetting,         \
    QAWB_SPECTRAL_CCM_SELECTION_SETTING_FIELDS)                               \
  X(QAWBSpectralBVSignalValue, QAWBSpectralBVSignalValue,                     \
    QAWB_SPECTRAL_BV_SIGNAL_VALUE_FIELDS)                                     \
  X(QAWBSpectralBVSignalValueSet, QAWBSpectralBVSignalValueSet,               \
    QAWB_SPECTRAL_BV_SIGNAL_VALUE_SET_FIELDS)                                 \
  X(QAWBSpectralTuningTable, QAWBSpectralTuningTable,                         \
    QAWB_SPECTRAL_TUNING_TABLE_FIELDS)                                        \
  X(QAWBMachineLearningTuningTable, QAWBMachineLearningTuningTable,           \
    QAWB_MACHINE_LEARNING_TUNING_TABLE_FIELDS)                                \
  X(QAWBAsdModelConvergenceThreshold, QAWBAsdModelConvergenceThreshold,       \
    QAWB_ASD_MODEL_CONVERGENCE_THRESHOLD_FIELDS)                              \
  X(QAWBAsdModelTuning, QAWBAsdModelTuning, QAWB_ASD_MODEL_TUNING_FIELDS)     \
  X(QAWBAsdAggregatorTuningTable, QAWBAsdAggregatorTuningTable,               \
    QAWB_ASD_AGGREGATOR_TUNING_TABLE_FIELDS)                                  \
  X(QAWBToneTypeBVConvergenceThresholdMapping,                                \
    QAWBToneTypeBVConvergenceThresholdMapping,                                \
    QAWB_TONE_TYPE_BV_CONVERGENCE_THRESHOLD_MAPPING_FIELDS)                   \
  X(QAWBToneTypeBVConvergenceThresholdMappingSet,                             \
    QAWBToneTypeBVConvergenceThresholdMappingSet,                             \
    QAWB_TONE_TYPE_BV_CONVERGENCE_THRESHOLD_MAPPING_SET_FIELDS)               \
  X(QAWBToneTypeBVTrustLevelMapping, QAWBToneTypeBVTrustLevelMapping,         \
    QAWB_TONE_TYPE_BV_TRUST_LEVEL_MAPPING_FIELDS)                             \
  X(QAWBToneTypeBVTrustLevelMappingSet, QAWBToneTypeBVTrustLevelMappingSet,   \
    QAWB_TONE_TYPE_BV_TRUST_LEVEL_MAPPING_SET_FIELDS)                         \
  X(QAWBMLToneTypePreprocessingInfo, QAWBMLToneTypePreprocessingInfo,         \
    QAWB_ML_TONE_TYPE_PREPROCESSING_INFO_FIELDS)                              \
  X(QAWBToneTypeTuningTable, QAWBToneTypeTuningTable,                         \
    QAWB_TONE_TYPE_TUNING_TABLE_FIELDS)                                       \
  X(QAWBFacePreferenceAdjustData, QAWBFacePreferenceAdjustData,               \
    QAWB_FACE_PREFERENCE_ADJUST_DATA_FIELDS)                                  \
  X(QAWBFacePreferenceAdjustBV, QAWBFacePreferenceAdjustBV,                   \
    QAWB_FACE_PREFERENCE_ADJUST_BV_FIELDS)                                    \
  X(QAWBFacePreference, QAWBFacePreference, QAWB_FACE_PREFERENCE_FIELDS)      \
  X(QAWBLowCCTMappingBV, QAWBLowCCTMappingBV, QAWB_LOW_CCT_MAPPING_BV_FIELDS) \
  X(QAWBLowCCTPreference, QAWBLowCCTPreference,                               \
    QAWB_LOW_CCT_PREFERENCE_FIELDS)                                           \
  X(QAWBNoiseWeightTable, QAWBNoiseWeightTable,                               \
    QAWB_NOISE_WEIGHT_TABLE_FIELDS)                                           \
  X(QAWBStatsNoiseWeight, QAWBStatsNoiseWeight,                               \
    QAWB_STATS_NOISE_WEIGHT_FIELDS)                                           \
  X(QAWBROIWeight, QAWBROIWeight, QAWB_ROI_WEIGHT_FIELDS)                     \
  X(QAWBStatsROIWeightTable, QAWBStatsROIWeightTable,                         \
    QAWB_STATS_ROI_WEIGHT_TABLE_FIELDS)                                       \
  X(QAWBStatsROIWeight, QAWBStatsROIWeight, QAWB_STATS_ROI_WEIGHT_FIELDS)     \
  X(QAWBStatsMedianFilter, QAWBStatsMedianFilter,                             \
    QAWB_STATS_MEDIAN_FILTER_FIELDS)                                          \
  X(QAWBDarknessWeight, QAWBDarknessWeight, QAWB_DARKNESS_WEIGHT_FIELDS)      \
  X(QAWBStatsDarknessWeight, QAWBStatsDarknessWeight,                         \
    QAWB_STATS_DARKNESS_WEIGHT_FIELDS)                                        \
  X(QAWBLowLightTuningTable, QAWBLowLightTuningTable,                         \
    QAWB_LOW_LIGHT_TUNING_TABLE_FIELDS)                                       \
  X(QAWBMappingPointBV, QAWBMappingPointBV, QAWB_MAPPING_POINT_BV_FIELDS)     \
  X(QAWBMappingPoint, QAWBMappingPoint, QAWB_MAPPING_POINT_FIELDS)            \
  X(QAWBDualSynchronize, QAWBDualSynchronize, QAWB_DUAL_SYNCHRONIZE_FIELDS)   \
  X(QAWBFeatureTuningTable, QAWBFeatureTuningTable,                           \
    QAWB_FEATURE_TUNING_TABLE_FIELDS)

}  // namespace qawb

#endif  // AWB_RECORDS_QAWB_FEATURE_TUNING_TABLE_H_
