// The advance tuning table (5584 bytes) and its records: the outdoor, blue and
// green regions, preference points, outdoor trust levels and special colours.
//
// Every record is a plain, trivially copyable struct whose bytes are part of
// the tuning binary file format: sizes and offsets are checked below. The
// field list beside each struct names its fields in layout order; the
// conversions to and from the interchange messages are derived from it.
#ifndef AWB_RECORDS_QAWB_ADVANCE_TUNING_TABLE_H_
#define AWB_RECORDS_QAWB_ADVANCE_TUNING_TABLE_H_

#include <cstddef>
#include <cstdint>

#include "awb_records/qawb_shared_records.h"
#include "awb_records/record_description.h"

namespace qawb {

// One BV row of the outdoor region: the BV and up to 10 CCT/radius regions.
struct QAWBOutdoorRegionBV {
  int32_t bv_value;
  QAWBCCTRegionData region_list[10];
};
#define QAWB_OUTDOOR_REGION_BV_FIELDS(X) X(bv_value) X(region_list)
QAWB_DESCRIBE_RECORD(QAWBOutdoorRegionBV, QAWB_OUTDOOR_REGION_BV_FIELDS);
static_assert(sizeof(QAWBOutdoorRegionBV) == 164);
static_assert(offsetof(QAWBOutdoorRegionBV, bv_value) == 0);
static_assert(offsetof(QAWBOutdoorRegionBV, region_list) == 4);

// The outdoor region: an enable flag, the number of CCT regions per BV row and
// of BV rows in use, and up to 7 BV rows.
struct QAWBOutdoorRegion {
  int32_t enable_flag;
  int32_t cct_number;
  int32_t bv_number;
  QAWBOutdoorRegionBV region_bv_list[7];
};
#define QAWB_OUTDOOR_REGION_FIELDS(X) \
  X(enable_flag)                      \
  X(cct_number)                       \
  X(bv_number)                        \
  X(region_bv_list)
QAWB_DESCRIBE_RECORD(QAWBOutdoorRegion, QAWB_OUTDOOR_REGION_FIELDS);
static_assert(sizeof(QAWBOutdoorRegion) == 1160);
static_assert(offsetof(QAWBOutdoorRegion, enable_flag) == 0);
static_assert(offsetof(QAWBOutdoorRegion, cct_number) == 4);
static_assert(offsetof(QAWBOutdoorRegion, bv_number) == 8);
static_assert(offsetof(QAWBOutdoorRegion, region_bv_list) == 12);

// One BV row of the blue region: the BV and up to 4 CCT/radius regions.
struct QAWBOutdoorBlueRegionBV {
  int32_t bv_value;
  QAWBCCTRegionData region_list[4];
};
#define QAWB_OUTDOOR_BLUE_REGION_BV_FIELDS(X) X(bv_value) X(region_list)
QAWB_DESCRIBE_RECORD(QAWBOutdoorBlueRegionBV,
                     QAWB_OUTDOOR_BLUE_REGION_BV_FIELDS);
static_assert(sizeof(QAWBOutdoorBlueRegionBV) == 68);
static_assert(offsetof(QAWBOutdoorBlueRegionBV, bv_value) == 0);
static_assert(offsetof(QAWBOutdoorBlueRegionBV, region_list) == 4);

// The blue region: an enable flag, the counts in use and up to 4 BV rows.
struct QAWBBlueRegion {
  int32_t enable_flag;
  int32_t cct_number;
  int32_t bv_number;
  QAWBOutdoorBlueRegionBV region_bv_list[4];
};
#define QAWB_BLUE_REGION_FIELDS(X) \
  X(enable_flag)                   \
  X(cct_number)                    \
  X(bv_number)                     \
  X(region_bv_list)
QAWB_DESCRIBE_RECORD(QAWBBlueRegion, QAWB_BLUE_REGION_FIELDS);
static_assert(sizeof(QAWBBlueRegion) == 284);
static_assert(offsetof(QAWBBlueRegion, enable_flag) == 0);
static_assert(offsetof(QAWBBlueRegion, cct_number) == 4);
static_assert(offsetof(QAWBBlueRegion, bv_number) == 8);
static_assert(offsetof(QAWBBlueRegion, region_bv_list) == 12);

// One BV row of a preference point: the BV and one reference white point (CCT,
// R/G, B/G). Shared by `QAWBBluePreferencePoint` and
// `QAWBOutdoorPreferencePoint`.
struct QAWBPreferencePointBV {
  int32_t bv_value;
  QAWBCCTReferencePointData point_list;
};
#define QAWB_PREFERENCE_POINT_BV_FIELDS(X) X(bv_value) X(point_list)
QAWB_DESCRIBE_RECORD(QAWBPreferencePointBV, QAWB_PREFERENCE_POINT_BV_FIELDS);
static_assert(sizeof(QAWBPreferencePointBV) == 16);
static_assert(offsetof(QAWBPreferencePointBV, bv_value) == 0);
static_assert(offsetof(QAWBPreferencePointBV, point_list) == 4);

// The blue preference point: the number of BV rows in use and up to 2 rows.
struct QAWBBluePreferencePoint {
  int32_t bv_number;
  QAWBPreferencePointBV point_bv_list[2];
};
#define QAWB_BLUE_PREFERENCE_POINT_FIELDS(X) X(bv_number) X(point_bv_list)
QAWB_DESCRIBE_RECORD(QAWBBluePreferencePoint,
                     QAWB_BLUE_PREFERENCE_POINT_FIELDS);
static_assert(sizeof(QAWBBluePreferencePoint) == 36);
static_assert(offsetof(QAWBBluePreferencePoint, bv_number) == 0);
static_assert(offsetof(QAWBBluePreferencePoint, point_bv_list) == 4);

// Up to 7 CCT/radius regions of one green BV row.
struct QAWBGreenRegionData {
  QAWBCCTRegionData region_list[7];
};
#define QAWB_GREEN_REGION_DATA_FIELDS(X) X(region_list)
QAWB_DESCRIBE_RECORD(QAWBGreenRegionData, QAWB_GREEN_REGION_DATA_FIELDS);
static_assert(sizeof(QAWBGreenRegionData) == 112);
static_assert(offsetof(QAWBGreenRegionData, region_list) == 0);

// A weight adjustment and R/G and B/G adjustments for one green BV row.
struct QAWBOutdoorGreenRegionColorAdjust {
  float weight_adjust;
  float rg_adjust;
  float bg_adjust;
};
#define QAWB_OUTDOOR_GREEN_REGION_COLOR_ADJUST_FIELDS(X) \
  X(weight_adjust)                                       \
  X(rg_adjust)                                           \
  X(bg_adjust)
QAWB_DESCRIBE_RECORD(QAWBOutdoorGreenRegionColorAdjust,
                     QAWB_OUTDOOR_GREEN_REGION_COLOR_ADJUST_FIELDS);
static_assert(sizeof(QAWBOutdoorGreenRegionColorAdjust) == 12);
static_assert(offsetof(QAWBOutdoorGreenRegionColorAdjust, weight_adjust) == 0);
static_assert(offsetof(QAWBOutdoorGreenRegionColorAdjust, rg_adjust) == 4);
static_assert(offsetof(QAWBOutdoorGreenRegionColorAdjust, bg_adjust) == 8);

// One BV row of the green region: the BV, its regions and its colour
// adjustment.
struct QAWBOutdoorGreenRegionBV {
  int32_t bv_value;
  QAWBGreenRegionData region;
  QAWBOutdoorGreenRegionColorAdjust color_adjust;
};
#define QAWB_OUTDOOR_GREEN_REGION_BV_FIELDS(X) \
  X(bv_value)                                  \
  X(region)                                    \
  X(color_adjust)
QAWB_DESCRIBE_RECORD(QAWBOutdoorGreenRegionBV,
                     QAWB_OUTDOOR_GREEN_REGION_BV_FIELDS);
static_assert(sizeof(QAWBOutdoorGreenRegionBV) == 128);
static_assert(offsetof(QAWBOutdoorGreenRegionBV, bv_value) == 0);
static_assert(offsetof(QAWBOutdoorGreenRegionBV, region) == 4);
static_assert(offsetof(QAWBOutdoorGreenRegionBV, color_adjust) == 116);

// The green region: an enable flag, the counts in use and up to 5 BV rows.
struct QAWBGreenRegion {
  int32_t enable_flag;
  int32_t cct_number;
  int32_t bv_number;
  QAWBOutdoorGreenRegionBV region_bv_list[5];
};
#define QAWB_GREEN_REGION_FIELDS(X) \
  X(enable_flag)                    \
  X(cct_number)                     \
  X(bv_number)                      \
  X(region_bv_list)
QAWB_DESCRIBE_RECORD(QAWBGreenRegion, QAWB_GREEN_REGION_FIELDS);
static_assert(sizeof(QAWBGreenRegion) == 652);
static_assert(offsetof(QAWBGreenRegion, enable_flag) == 0);
static_assert(offsetof(QAWBGreenRegion, cct_number) == 4);
static_assert(offsetof(QAWBGreenRegion, bv_number) == 8);
static_assert(offsetof(QAWBGreenRegion, region_bv_list) == 12);

// The outdoor preference point, laid out exactly as `QAWBBluePreferencePoint`.
struct QAWBOutdoorPreferencePoint {
  int32_t bv_number;
  QAWBPreferencePointBV point_bv_list[2];
};
#define QAWB_OUTDOOR_PREFERENCE_POINT_FIELDS(X) X(bv_number) X(point_bv_list)
QAWB_DESCRIBE_RECORD(QAWBOutdoorPreferencePoint,
                     QAWB_OUTDOOR_PREFERENCE_POINT_FIELDS);
static_assert(sizeof(QAWBOutdoorPreferencePoint) == 36);
static_assert(offsetof(QAWBOutdoorPreferencePoint, bv_number) == 0);
static_assert(offsetof(QAWBOutdoorPreferencePoint, point_bv_list) == 4);

// The trust levels of the four outdoor estimates, each a `QAWBFinalTrustLevel`.
struct QAWBOutdoorTrustLevel {
  QAWBFinalTrustLevel blue_trust_level;
  QAWBFinalTrustLevel green_trust_level;
  QAWBFinalTrustLevel outdoor_preference_trust_level;
  QAWBFinalTrustLevel outdoor_region_trust_level;
};
#define QAWB_OUTDOOR_TRUST_LEVEL_FIELDS(X) \
  X(blue_trust_level)                      \
  X(green_trust_level)                     \
  X(outdoor_preference_trust_level)        \
  X(outdoor_region_trust_level)
QAWB_DESCRIBE_RECORD(QAWBOutdoorTrustLevel, QAWB_OUTDOOR_TRUST_LEVEL_FIELDS);
static_assert(sizeof(QAWBOutdoorTrustLevel) == 2576);
static_assert(offsetof(QAWBOutdoorTrustLevel, blue_trust_level) == 0);
static_assert(offsetof(QAWBOutdoorTrustLevel, green_trust_level) == 644);
static_assert(offsetof(QAWBOutdoorTrustLevel, outdoor_preference_trust_level) ==
              1288);
static_assert(offsetof(QAWBOutdoorTrustLevel, outdoor_region_trust_level) ==
              1932);

// The outdoor, blue and green regions, the blue and outdoor preference points,
// the four per-estimate trust levels and the final outdoor trust level. Within
// `QAWBAdvanceTuningTable` it lies at offset 4.
struct QAWBOutdoorTuningTable {
  QAWBOutdoorRegion outdoor_region_list;
  QAWBBlueRegion blue_region_list;
  QAWBBluePreferencePoint blue_preference_point_list;
  QAWBGreenRegion green_region_list;
  QAWBOutdoorPreferencePoint outdoor_preference_point_list;
  QAWBOutdoorTrustLevel trust_level_list;
  QAWBFinalTrustLevel outdoor_final_trust_level_list;
};
#define QAWB_OUTDOOR_TUNING_TABLE_FIELDS(X) \
  X(outdoor_region_list)                    \
  X(blue_region_list)                       \
  X(blue_preference_point_list)             \
  X(green_region_list)                      \
  X(outdoor_preference_point_list)          \
  X(trust_level_list)                       \
  X(outdoor_final_trust_level_list)
QAWB_DESCRIBE_RECORD(QAWBOutdoorTuningTable, QAWB_OUTDOOR_TUNING_TABLE_FIELDS);
static_assert(sizeof(QAWBOutdoorTuningTable) == 5388);
static_assert(offsetof(QAWBOutdoorTuningTable, outdoor_region_list) == 0);
static_assert(offsetof(QAWBOutdoorTuningTable, blue_region_list) == 1160);
static_assert(offsetof(QAWBOutdoorTuningTable, blue_preference_point_list) ==
              1444);
static_assert(offsetof(QAWBOutdoorTuningTable, green_region_list) == 1480);
static_assert(offsetof(QAWBOutdoorTuningTable, outdoor_preference_point_list) ==
              2132);
static_assert(offsetof(QAWBOutdoorTuningTable, trust_level_list) == 2168);
static_assert(offsetof(QAWBOutdoorTuningTable,
                       outdoor_final_trust_level_list) == 4744);

// One BV row: the BV and one CCT/radius region.
struct QAWBSpecialColorRegionBV {
  int32_t bv_value;
  QAWBCCTRegionData special_color_region_data;
};
#define QAWB_SPECIAL_COLOR_REGION_BV_FIELDS(X) \
  X(bv_value)                                  \
  X(special_color_region_data)
QAWB_DESCRIBE_RECORD(QAWBSpecialColorRegionBV,
                     QAWB_SPECIAL_COLOR_REGION_BV_FIELDS);
static_assert(sizeof(QAWBSpecialColorRegionBV) == 20);
static_assert(offsetof(QAWBSpecialColorRegionBV, bv_value) == 0);
static_assert(offsetof(QAWBSpecialColorRegionBV, special_color_region_data) ==
              4);

// One special-colour region: the number of BV rows in use and up to 4 BV rows.
struct QAWBSpecialColorRegion {
  int32_t bv_number;
  QAWBSpecialColorRegionBV special_color_region_bv_list[4];
};
#define QAWB_SPECIAL_COLOR_REGION_FIELDS(X) \
  X(bv_number)                              \
  X(special_color_region_bv_list)
QAWB_DESCRIBE_RECORD(QAWBSpecialColorRegion, QAWB_SPECIAL_COLOR_REGION_FIELDS);
static_assert(sizeof(QAWBSpecialColorRegion) == 84);
static_assert(offsetof(QAWBSpecialColorRegion, bv_number) == 0);
static_assert(offsetof(QAWBSpecialColorRegion, special_color_region_bv_list) ==
              4);

// One special-colour group: the number of regions in use, the group's weight
// and its region.
struct QAWBSpecialColorGroup {
  int32_t special_color_region_number;
  float weight;
  QAWBSpecialColorRegion special_color_region_list[1];
};
#define QAWB_SPECIAL_COLOR_GROUP_FIELDS(X) \
  X(special_color_region_number)           \
  X(weight)                                \
  X(special_color_region_list)
QAWB_DESCRIBE_RECORD(QAWBSpecialColorGroup, QAWB_SPECIAL_COLOR_GROUP_FIELDS);
static_assert(sizeof(QAWBSpecialColorGroup) == 92);
static_assert(offsetof(QAWBSpecialColorGroup, special_color_region_number) ==
              0);
static_assert(offsetof(QAWBSpecialColorGroup, weight) == 4);
static_assert(offsetof(QAWBSpecialColorGroup, special_color_region_list) == 8);

// An enable flag, the number of groups in use and up to 2 special-colour
// groups.
struct QAWBSpecialColorTuningTable {
  int32_t enable_flag;
  int32_t special_color_group_number;
  QAWBSpecialColorGroup special_color_group_list[2];
};
#define QAWB_SPECIAL_COLOR_TUNING_TABLE_FIELDS(X) \
  X(enable_flag)                                  \
  X(special_color_group_number)                   \
  X(special_color_group_list)
QAWB_DESCRIBE_RECORD(QAWBSpecialColorTuningTable,
                     QAWB_SPECIAL_COLOR_TUNING_TABLE_FIELDS);
static_assert(sizeof(QAWBSpecialColorTuningTable) == 192);
static_assert(offsetof(QAWBSpecialColorTuningTable, enable_flag) == 0);
static_assert(offsetof(QAWBSpecialColorTuningTable,
                       special_color_group_number) == 4);
static_assert(offsetof(QAWBSpecialColorTuningTable, special_color_group_list) ==
              8);

// The advance table: version, outdoor tuning, special-colour tuning.
struct QAWBAdvanceTuningTable {
  QAWBParameterVersion version;
  QAWBOutdoorTuningTable outdoor_tuning_table;
  QAWBSpecialColorTuningTable special_color_tuning_table;
};
#define QAWB_ADVANCE_TUNING_TABLE_FIELDS(X) \
  X(version)                                \
  X(outdoor_tuning_table)                   \
  X(special_color_tuning_table)
QAWB_DESCRIBE_RECORD(QAWBAdvanceTuningTable, QAWB_ADVANCE_TUNING_TABLE_FIELDS);
static_assert(sizeof(QAWBAdvanceTuningTable) == 5584);
static_assert(offsetof(QAWBAdvanceTuningTable, version) == 0);
static_assert(offsetof(QAWBAdvanceTuningTable, outdoor_tuning_table) == 4);
static_assert(offsetof(QAWBAdvanceTuningTable, special_color_tuning_table) ==
              5392);

// Every record of this header with its message and field list, for code that
// is generated per record (the conversions, the tests).
#define QAWB_ADVANCE_TABLE_RECORDS(X)                                        \
  X(QAWBOutdoorRegionBV, QAWBOutdoorRegionBV, QAWB_OUTDOOR_REGION_BV_FIELDS) \
  X(QAWBOutdoorRegion, QAWBOutdoorRegion, QAWB_OUTDOOR_REGION_FIELDS)        \
  X(QAWBOutdoorBlueRegionBV, QAWBOutdoorBlueRegionBV,                        \
    QAWB_OUTDOOR_BLUE_REGION_BV_FIELDS)                                      \
  X(QAWBBlueRegion, QAWBBlueRegion, QAWB_BLUE_REGION_FIELDS)                 \
  X(QAWBPreferencePointBV, QAWBPreferencePointBV,                            \
    QAWB_PREFERENCE_POINT_BV_FIELDS)                                         \
  X(QAWBBluePreferencePoint, QAWBBluePreferencePoint,                        \
    QAWB_BLUE_PREFERENCE_POINT_FIELDS)                                       \
  X(QAWBGreenRegionData, QAWBGreenRegionData, QAWB_GREEN_REGION_DATA_FIELDS) \
  X(QAWBOutdoorGreenRegionColorAdjust, QAWBOutdoorGreenRegionColorAdjust,    \
    QAWB_OUTDOOR_GREEN_REGION_COLOR_ADJUST_FIELDS)                           \
  X(QAWBOutdoorGreenRegionBV, QAWBOutdoorGreenRegionBV,                      \
    QAWB_OUTDOOR_GREEN_REGION_BV_FIELDS)                                     \
  X(QAWBGreenRegion, QAWBGreenRegion, QAWB_GREEN_REGION_FIELDS)              \
  X(QAWBOutdoorPreferencePoint, QAWBOutdoorPreferencePoint,                  \
    QAWB_OUTDOOR_PREFERENCE_POINT_FIELDS)                                    \
  X(QAWBOutdoorTrustLevel, QAWBOutdoorTrustLevel,                            \
    QAWB_OUTDOOR_TRUST_LEVEL_FIELDS)                                         \
  X(QAWBOutdoorTuningTable, QAWBOutdoorTuningTable,                          \
    QAWB_OUTDOOR_TUNING_TABLE_FIELDS)                                        \
  X(QAWBSpecialColorRegionBV, QAWBSpecialColorRegionBV,                      \
    QAWB_SPECIAL_COLOR_REGION_BV_FIELDS)                                     \
  X(QAWBSpecialColorRegion, QAWBSpecialColorRegion,                          \
    QAWB_SPECIAL_COLOR_REGION_FIELDS)                                        \
  X(QAWBSpecialColorGroup, QAWBSpecialColorGroup,                            \
    QAWB_SPECIAL_COLOR_GROUP_FIELDS)                                         \
  X(QAWBSpecialColorTuningTable, QAWBSpecialColorTuningTable,                \
    QAWB_SPECIAL_COLOR_TUNING_TABLE_FIELDS)                                  \
  X(QAWBAdvanceTuningTable, QAWBAdvanceTuningTable,                          \
    QAWB_ADVANCE_TUNING_TABLE_FIELDS)

}  // namespace qawb

#endif  // AWB_RECORDS_QAWB_ADVANCE_TUNING_TABLE_H_
