// Records shared by several AWB tuning tables: the version head, gains,
// ranges, reference points, illuminant weights and the trust-level family.
//
// Every record is a plain, trivially copyable struct whose bytes are part of
// the tuning binary file format: sizes and offsets are checked below. The
// field list beside each struct names its fields in layout order; the
// conversions to and from the interchange messages are derived from it.
#ifndef AWB_RECORDS_QAWB_SHARED_RECORDS_H_
#define AWB_RECORDS_QAWB_SHARED_RECORDS_H_

#include <cstddef>
#include <cstdint>

#include "awb_records/record_description.h"

namespace qawb {

// Kind of frame statistics a trust level refers to. The interchange enum has
// an extra "invalid" value at 0, so record values are message values less one;
// -1 marks an invalid or unknown kind.
enum QAWBFrameSummaryType : int32_t {
  kQAWBFrameSummaryTypeInvalid = -1,
  kQAWBFrameSummaryTypeTotalStats = 0,
  kQAWBFrameSummaryTypeValidStats = 1,
  kQAWBFrameSummaryTypeGrey = 2,
  kQAWBFrameSummaryTypeFace = 3,
  kQAWBFrameSummaryTypeSpectralSensor = 4,
  kQAWBFrameSummaryTypeBlue = 5,
  kQAWBFrameSummaryTypeGreen = 6,
  kQAWBFrameSummaryTypeOutdoor = 7,
  kQAWBFrameSummaryTypeGreyWeightedAll = 8,
  kQAWBFrameSummaryTypeMax = 9,
};

// The major and minor version of a top-level table, stored at the head of each
// of the four tables.
struct QAWBParameterVersion {
  uint16_t major;
  uint16_t minor;
};
#define QAWB_PARAMETER_VERSION_FIELDS(X) X(major) X(minor)
QAWB_DESCRIBE_RECORD(QAWBParameterVersion, QAWB_PARAMETER_VERSION_FIELDS);
static_assert(sizeof(QAWBParameterVersion) == 4);
static_assert(offsetof(QAWBParameterVersion, major) == 0);
static_assert(offsetof(QAWBParameterVersion, minor) == 2);

// White-balance channel gains.
struct QAWBGains {
  float r_gain;
  float g_gain;
  float b_gain;
};
#define QAWB_GAINS_FIELDS(X) X(r_gain) X(g_gain) X(b_gain)
QAWB_DESCRIBE_RECORD(QAWBGains, QAWB_GAINS_FIELDS);
static_assert(sizeof(QAWBGains) == 12);
static_assert(offsetof(QAWBGains, r_gain) == 0);
static_assert(offsetof(QAWBGains, g_gain) == 4);
static_assert(offsetof(QAWBGains, b_gain) == 8);

// A brightness-value (BV) interval, upper bound first.
struct QAWBBVRange {
  int32_t bv_up;
  int32_t bv_down;
};
#define QAWB_BV_RANGE_FIELDS(X) X(bv_up) X(bv_down)
QAWB_DESCRIBE_RECORD(QAWBBVRange, QAWB_BV_RANGE_FIELDS);
static_assert(sizeof(QAWBBVRange) == 8);
static_assert(offsetof(QAWBBVRange, bv_up) == 0);
static_assert(offsetof(QAWBBVRange, bv_down) == 4);

// A correlated-colour-temperature (CCT) interval, upper bound first.
struct QAWBCCTRange {
  int32_t cct_up;
  int32_t cct_down;
};
#define QAWB_CCT_RANGE_FIELDS(X) X(cct_up) X(cct_down)
QAWB_DESCRIBE_RECORD(QAWBCCTRange, QAWB_CCT_RANGE_FIELDS);
static_assert(sizeof(QAWBCCTRange) == 8);
static_assert(offsetof(QAWBCCTRange, cct_up) == 0);
static_assert(offsetof(QAWBCCTRange, cct_down) == 4);

// An up/down pair, used for the CCT ranges of manual white balance.
template <typename T>
struct RangeUpDown {
  T up;
  T down;
};
#define QAWB_RANGE_UP_DOWN_FIELDS(X) X(up) X(down)
QAWB_DESCRIBE_RECORD(RangeUpDown<int>, QAWB_RANGE_UP_DOWN_FIELDS);
static_assert(sizeof(RangeUpDown<int>) == 8);
static_assert(offsetof(RangeUpDown<int>, up) == 0);
static_assert(offsetof(RangeUpDown<int>, down) == 4);

// One reference white point: its CCT and its R/G and B/G chromaticity ratios.
struct QAWBCCTReferencePointData {
  int32_t cct;
  float rg;
  float bg;
};
#define QAWB_CCT_REFERENCE_POINT_DATA_FIELDS(X) X(cct) X(rg) X(bg)
QAWB_DESCRIBE_RECORD(QAWBCCTReferencePointData,
                     QAWB_CCT_REFERENCE_POINT_DATA_FIELDS);
static_assert(sizeof(QAWBCCTReferencePointData) == 12);
static_assert(offsetof(QAWBCCTReferencePointData, cct) == 0);
static_assert(offsetof(QAWBCCTReferencePointData, rg) == 4);
static_assert(offsetof(QAWBCCTReferencePointData, bg) == 8);

// One region of the chromaticity plane bounded by a CCT interval and a
// left/right radius interval.
struct QAWBCCTRegionData {
  int32_t cct_up;
  int32_t cct_down;
  int32_t radius_left;
  int32_t radius_right;
};
#define QAWB_CCT_REGION_DATA_FIELDS(X) \
  X(cct_up)                            \
  X(cct_down)                          \
  X(radius_left)                       \
  X(radius_right)
QAWB_DESCRIBE_RECORD(QAWBCCTRegionData, QAWB_CCT_REGION_DATA_FIELDS);
static_assert(sizeof(QAWBCCTRegionData) == 16);
static_assert(offsetof(QAWBCCTRegionData, cct_up) == 0);
static_assert(offsetof(QAWBCCTRegionData, cct_down) == 4);
static_assert(offsetof(QAWBCCTRegionData, radius_left) == 8);
static_assert(offsetof(QAWBCCTRegionData, radius_right) == 12);

// The illuminant weights for one BV: one weight per CCT list entry.
struct QAWBIlluminantWeightData {
  int32_t bv_value;
  int32_t weight_list[36];
};
#define QAWB_ILLUMINANT_WEIGHT_DATA_FIELDS(X) X(bv_value) X(weight_list)
QAWB_DESCRIBE_RECORD(QAWBIlluminantWeightData,
                     QAWB_ILLUMINANT_WEIGHT_DATA_FIELDS);
static_assert(sizeof(QAWBIlluminantWeightData) == 148);
static_assert(offsetof(QAWBIlluminantWeightData, bv_value) == 0);
static_assert(offsetof(QAWBIlluminantWeightData, weight_list) == 4);

// A preference adjustment of the red and blue channels.
struct QAWBPreferenceColorAdjust {
  float r_color_adjust;
  float b_color_adjust;
};
#define QAWB_PREFERENCE_COLOR_ADJUST_FIELDS(X) \
  X(r_color_adjust)                            \
  X(b_color_adjust)
QAWB_DESCRIBE_RECORD(QAWBPreferenceColorAdjust,
                     QAWB_PREFERENCE_COLOR_ADJUST_FIELDS);
static_assert(sizeof(QAWBPreferenceColorAdjust) == 8);
static_assert(offsetof(QAWBPreferenceColorAdjust, r_color_adjust) == 0);
static_assert(offsetof(QAWBPreferenceColorAdjust, b_color_adjust) == 4);

// One point: a BV and its trust level.
struct QAWBTrustLevelBV {
  int32_t bv_value;
  float trust_level;
};
#define QAWB_TRUST_LEVEL_BV_FIELDS(X) X(bv_value) X(trust_level)
QAWB_DESCRIBE_RECORD(QAWBTrustLevelBV, QAWB_TRUST_LEVEL_BV_FIELDS);
static_assert(sizeof(QAWBTrustLevelBV) == 8);
static_assert(offsetof(QAWBTrustLevelBV, bv_value) == 0);
static_assert(offsetof(QAWBTrustLevelBV, trust_level) == 4);

// Trust level by BV: the number of points in use and up to 6 (BV, trust)
// points.
struct QAWBTrustLevelBVSet {
  int32_t bv_number;
  QAWBTrustLevelBV bv_trust_list[6];
};
#define QAWB_TRUST_LEVEL_BV_SET_FIELDS(X) X(bv_number) X(bv_trust_list)
QAWB_DESCRIBE_RECORD(QAWBTrustLevelBVSet, QAWB_TRUST_LEVEL_BV_SET_FIELDS);
static_assert(sizeof(QAWBTrustLevelBVSet) == 52);
static_assert(offsetof(QAWBTrustLevelBVSet, bv_number) == 0);
static_assert(offsetof(QAWBTrustLevelBVSet, bv_trust_list) == 4);

// A wrapper around one BV trust table.
struct QAWBTrustLevelBVInfo {
  QAWBTrustLevelBVSet bv_set;
};
#define QAWB_TRUST_LEVEL_BV_INFO_FIELDS(X) X(bv_set)
QAWB_DESCRIBE_RECORD(QAWBTrustLevelBVInfo, QAWB_TRUST_LEVEL_BV_INFO_FIELDS);
static_assert(sizeof(QAWBTrustLevelBVInfo) == 52);
static_assert(offsetof(QAWBTrustLevelBVInfo, bv_set) == 0);

// The frame-summary kind whose statistics are measured (target) and up to 2
// frame-summary kinds it is measured against (base).
struct QAWBTrustLevelStatsRegionType {
  QAWBFrameSummaryType target_region;
  int32_t base_region_number;
  QAWBFrameSummaryType base_region[2];
};
#define QAWB_TRUST_LEVEL_STATS_REGION_TYPE_FIELDS(X) \
  X(target_region)                                   \
  X(base_region_number)                              \
  X(base_region)
QAWB_DESCRIBE_RECORD(QAWBTrustLevelStatsRegionType,
                     QAWB_TRUST_LEVEL_STATS_REGION_TYPE_FIELDS);
static_assert(sizeof(QAWBTrustLevelStatsRegionType) == 16);
static_assert(offsetof(QAWBTrustLevelStatsRegionType, target_region) == 0);
static_assert(offsetof(QAWBTrustLevelStatsRegionType, base_region_number) == 4);
static_assert(offsetof(QAWBTrustLevelStatsRegionType, base_region) == 8);

// One point: a statistics threshold and its trust level.
struct QAWBTrustLevelStats {
  float stats_threshold;
  float trust_level;
};
#define QAWB_TRUST_LEVEL_STATS_FIELDS(X) X(stats_threshold) X(trust_level)
QAWB_DESCRIBE_RECORD(QAWBTrustLevelStats, QAWB_TRUST_LEVEL_STATS_FIELDS);
static_assert(sizeof(QAWBTrustLevelStats) == 8);
static_assert(offsetof(QAWBTrustLevelStats, stats_threshold) == 0);
static_assert(offsetof(QAWBTrustLevelStats, trust_level) == 4);

// One BV row: its BV, the number of statistics points in use and up to 5
// (threshold, trust) points.
struct QAWBTrustLevelBVStats {
  int32_t bv_value;
  int32_t stats_number;
  QAWBTrustLevelStats stats_trust_list[5];
};
#define QAWB_TRUST_LEVEL_BV_STATS_FIELDS(X) \
  X(bv_value)                               \
  X(stats_number)                           \
  X(stats_trust_list)
QAWB_DESCRIBE_RECORD(QAWBTrustLevelBVStats, QAWB_TRUST_LEVEL_BV_STATS_FIELDS);
static_assert(sizeof(QAWBTrustLevelBVStats) == 48);
static_assert(offsetof(QAWBTrustLevelBVStats, bv_value) == 0);
static_assert(offsetof(QAWBTrustLevelBVStats, stats_number) == 4);
static_assert(offsetof(QAWBTrustLevelBVStats, stats_trust_list) == 8);

// The number of BV rows in use and up to 6 BV rows.
struct QAWBTrustLevelBVStatsSet {
  int32_t bv_number;
  QAWBTrustLevelBVStats bv_stats_trust_list[6];
};
#define QAWB_TRUST_LEVEL_BV_STATS_SET_FIELDS(X) \
  X(bv_number)                                  \
  X(bv_stats_trust_list)
QAWB_DESCRIBE_RECORD(QAWBTrustLevelBVStatsSet,
                     QAWB_TRUST_LEVEL_BV_STATS_SET_FIELDS);
static_assert(sizeof(QAWBTrustLevelBVStatsSet) == 292);
static_assert(offsetof(QAWBTrustLevelBVStatsSet, bv_number) == 0);
static_assert(offsetof(QAWBTrustLevelBVStatsSet, bv_stats_trust_list) == 4);

// Trust level by BV and by a statistics measure, together with which statistics
// the measure compares.
struct QAWBTrustLevelBVStatsInfo {
  QAWBTrustLevelStatsRegionType stats_type;
  QAWBTrustLevelBVStatsSet bv_stats_set;
};
#define QAWB_TRUST_LEVEL_BV_STATS_INFO_FIELDS(X) X(stats_type) X(bv_stats_set)
QAWB_DESCRIBE_RECORD(QAWBTrustLevelBVStatsInfo,
                     QAWB_TRUST_LEVEL_BV_STATS_INFO_FIELDS);
static_assert(sizeof(QAWBTrustLevelBVStatsInfo) == 308);
static_assert(offsetof(QAWBTrustLevelBVStatsInfo, stats_type) == 0);
static_assert(offsetof(QAWBTrustLevelBVStatsInfo, bv_stats_set) == 16);

// One point: a spectral-sensor value and its trust level.
struct QAWBTrustLevelSpectral {
  float spectral_value;
  float trust_level;
};
#define QAWB_TRUST_LEVEL_SPECTRAL_FIELDS(X) X(spectral_value) X(trust_level)
QAWB_DESCRIBE_RECORD(QAWBTrustLevelSpectral, QAWB_TRUST_LEVEL_SPECTRAL_FIELDS);
static_assert(sizeof(QAWBTrustLevelSpectral) == 8);
static_assert(offsetof(QAWBTrustLevelSpectral, spectral_value) == 0);
static_assert(offsetof(QAWBTrustLevelSpectral, trust_level) == 4);

// One BV row: its BV, the number of spectral points in use and up to 6
// (spectral value, trust) points.
struct QAWBTrustLevelBVSpectral {
  int32_t bv_value;
  int32_t spectral_number;
  QAWBTrustLevelSpectral spectral_trust_list[6];
};
#define QAWB_TRUST_LEVEL_BV_SPECTRAL_FIELDS(X) \
  X(bv_value)                                  \
  X(spectral_number)                           \
  X(spectral_trust_list)
QAWB_DESCRIBE_RECORD(QAWBTrustLevelBVSpectral,
                     QAWB_TRUST_LEVEL_BV_SPECTRAL_FIELDS);
static_assert(sizeof(QAWBTrustLevelBVSpectral) == 56);
static_assert(offsetof(QAWBTrustLevelBVSpectral, bv_value) == 0);
static_assert(offsetof(QAWBTrustLevelBVSpectral, spectral_number) == 4);
static_assert(offsetof(QAWBTrustLevelBVSpectral, spectral_trust_list) == 8);

// Trust level by BV and spectral value: the number of BV rows in use and up to
// 5 BV rows.
struct QAWBTrustLevelBVSpectralInfo {
  int32_t bv_number;
  QAWBTrustLevelBVSpectral bv_spectral_trust_list[5];
};
#define QAWB_TRUST_LEVEL_BV_SPECTRAL_INFO_FIELDS(X) \
  X(bv_number)                                      \
  X(bv_spectral_trust_list)
QAWB_DESCRIBE_RECORD(QAWBTrustLevelBVSpectralInfo,
                     QAWB_TRUST_LEVEL_BV_SPECTRAL_INFO_FIELDS);
static_assert(sizeof(QAWBTrustLevelBVSpectralInfo) == 284);
static_assert(offsetof(QAWBTrustLevelBVSpectralInfo, bv_number) == 0);
static_assert(offsetof(QAWBTrustLevelBVSpectralInfo, bv_spectral_trust_list) ==
              4);

// The three trust-level tables that together give the final trust of one
// estimate: by BV, by BV and statistics, by BV and spectral value.
struct QAWBFinalTrustLevel {
  QAWBTrustLevelBVInfo bv_trust_info;
  QAWBTrustLevelBVStatsInfo bv_stats_trust_info;
  QAWBTrustLevelBVSpectralInfo bv_spectral_trust_info;
};
#define QAWB_FINAL_TRUST_LEVEL_FIELDS(X) \
  X(bv_trust_info)                       \
  X(bv_stats_trust_info)                 \
  X(bv_spectral_trust_info)
QAWB_DESCRIBE_RECORD(QAWBFinalTrustLevel, QAWB_FINAL_TRUST_LEVEL_FIELDS);
static_assert(sizeof(QAWBFinalTrustLevel) == 644);
static_assert(offsetof(QAWBFinalTrustLevel, bv_trust_info) == 0);
static_assert(offsetof(QAWBFinalTrustLevel, bv_stats_trust_info) == 52);
static_assert(offsetof(QAWBFinalTrustLevel, bv_spectral_trust_info) == 360);

// Every record of this header with its message and field list, for code that
// is generated per record (the conversions, the tests).
#define QAWB_SHARED_RECORDS(X)                                                 \
  X(QAWBParameterVersion, QAWBParameterVersion, QAWB_PARAMETER_VERSION_FIELDS) \
  X(QAWBGains, QAWBGains, QAWB_GAINS_FIELDS)                                   \
  X(QAWBBVRange, QAWBBVRange, QAWB_BV_RANGE_FIELDS)                            \
  X(QAWBCCTRange, QAWBCCTRange, QAWB_CCT_RANGE_FIELDS)                         \
  X(RangeUpDown<int>, ManualAwbCctRange, QAWB_RANGE_UP_DOWN_FIELDS)            \
  X(QAWBCCTReferencePointData, QAWBCCTReferencePointData,                      \
    QAWB_CCT_REFERENCE_POINT_DATA_FIELDS)                                      \
  X(QAWBCCTRegionData, QAWBCCTRegionData, QAWB_CCT_REGION_DATA_FIELDS)         \
  X(QAWBIlluminantWeightData, QAWBIlluminantWeightData,                        \
    QAWB_ILLUMINANT_WEIGHT_DATA_FIELDS)                                        \
  X(QAWBPreferenceColorAdjust, QAWBPreferenceColorAdjust,                      \
    QAWB_PREFERENCE_COLOR_ADJUST_FIELDS)                                       \
  X(QAWBTrustLevelBV, QAWBTrustLevelBV, QAWB_TRUST_LEVEL_BV_FIELDS)            \
  X(QAWBTrustLevelBVSet, QAWBTrustLevelBVSet, QAWB_TRUST_LEVEL_BV_SET_FIELDS)  \
  X(QAWBTrustLevelBVInfo, QAWBTrustLevelBVInfo,                                \
    QAWB_TRUST_LEVEL_BV_INFO_FIELDS)                                           \
  X(QAWBTrustLevelStatsRegionType, QAWBTrustLevelStatsRegionType,              \
    QAWB_TRUST_LEVEL_STATS_REGION_TYPE_FIELDS)                                 \
  X(QAWBTrustLevelStats, QAWBTrustLevelStats, QAWB_TRUST_LEVEL_STATS_FIELDS)   \
  X(QAWBTrustLevelBVStats, QAWBTrustLevelBVStats,                              \
    QAWB_TRUST_LEVEL_BV_STATS_FIELDS)                                          \
  X(QAWBTrustLevelBVStatsSet, QAWBTrustLevelBVStatsSet,                        \
    QAWB_TRUST_LEVEL_BV_STATS_SET_FIELDS)                                      \
  X(QAWBTrustLevelBVStatsInfo, QAWBTrustLevelBVStatsInfo,                      \
    QAWB_TRUST_LEVEL_BV_STATS_INFO_FIELDS)                                     \
  X(QAWBTrustLevelSpectral, QAWBTrustLevelSpectral,                            \
    QAWB_TRUST_LEVEL_SPECTRAL_FIELDS)                                          \
  X(QAWBTrustLevelBVSpectral, QAWBTrustLevelBVSpectral,                        \
    QAWB_TRUST_LEVEL_BV_SPECTRAL_FIELDS)                                       \
  X(QAWBTrustLevelBVSpectralInfo, QAWBTrustLevelBVSpectralInfo,                \
    QAWB_TRUST_LEVEL_BV_SPECTRAL_INFO_FIELDS)                                  \
  X(QAWBFinalTrustLevel, QAWBFinalTrustLevel, QAWB_FINAL_TRUST_LEVEL_FIELDS)

}  // namespace qawb

#endif  // AWB_RECORDS_QAWB_SHARED_RECORDS_H_
