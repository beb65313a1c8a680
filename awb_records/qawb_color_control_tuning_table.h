// The colour-control tuning table (39968 bytes) and its records: the face and
// general CCM sets, selected by BV and CCT.
//
// Every record is a plain, trivially copyable struct whose bytes are part of
// the tuning binary file format: sizes and offsets are checked below. The
// field list beside each struct names its fields in layout order; the
// conversions to and from the interchange messages are derived from it.
#ifndef AWB_RECORDS_QAWB_COLOR_CONTROL_TUNING_TABLE_H_
#define AWB_RECORDS_QAWB_COLOR_CONTROL_TUNING_TABLE_H_

#include <cstddef>
#include <cstdint>

#include "awb_records/qawb_shared_records.h"
#include "awb_records/record_description.h"

namespace qawb {

// A 3×3 colour-correction matrix and a 3-element offset vector.
struct QAWBColorCorrectMatrix {
  float ccm[9];
  float offset[3];
};
#define QAWB_COLOR_CORRECT_MATRIX_FIELDS(X) X(ccm) X(offset)
QAWB_DESCRIBE_RECORD(QAWBColorCorrectMatrix, QAWB_COLOR_CORRECT_MATRIX_FIELDS);
static_assert(sizeof(QAWBColorCorrectMatrix) == 48);
static_assert(offsetof(QAWBColorCorrectMatrix, ccm) == 0);
static_assert(offsetof(QAWBColorCorrectMatrix, offset) == 36);

// One CCT entry: its CCT interval, its CCM and its second CCM
// (`mcc_ccm_value`).
struct QAWBCCMSelectionCCT {
  QAWBCCTRange cct_value;
  QAWBColorCorrectMatrix ccm_value;
  QAWBColorCorrectMatrix mcc_ccm_value;
};
#define QAWB_CCM_SELECTION_CCT_FIELDS(X) \
  X(cct_value)                           \
  X(ccm_value)                           \
  X(mcc_ccm_value)
QAWB_DESCRIBE_RECORD(QAWBCCMSelectionCCT, QAWB_CCM_SELECTION_CCT_FIELDS);
static_assert(sizeof(QAWBCCMSelectionCCT) == 104);
static_assert(offsetof(QAWBCCMSelectionCCT, cct_value) == 0);
static_assert(offsetof(QAWBCCMSelectionCCT, ccm_value) == 8);
static_assert(offsetof(QAWBCCMSelectionCCT, mcc_ccm_value) == 56);

// One BV row: its BV interval, the number of CCT entries in use and up to 5 CCT
// entries.
struct QAWBCCMSelectionBV {
  QAWBBVRange bv_value;
  int32_t cct_number;
  QAWBCCMSelectionCCT region_list[5];
};
#define QAWB_CCM_SELECTION_BV_FIELDS(X) X(bv_value) X(cct_number) X(region_list)
QAWB_DESCRIBE_RECORD(QAWBCCMSelectionBV, QAWB_CCM_SELECTION_BV_FIELDS);
static_assert(sizeof(QAWBCCMSelectionBV) == 532);
static_assert(offsetof(QAWBCCMSelectionBV, bv_value) == 0);
static_assert(offsetof(QAWBCCMSelectionBV, cct_number) == 8);
static_assert(offsetof(QAWBCCMSelectionBV, region_list) == 12);

// A CCM table by BV: the number of BV rows in use and up to 5 BV rows.
struct QAWBCCMSelection {
  int32_t bv_number;
  QAWBCCMSelectionBV ccm_selection_bv_list[5];
};
#define QAWB_CCM_SELECTION_FIELDS(X) X(bv_number) X(ccm_selection_bv_list)
QAWB_DESCRIBE_RECORD(QAWBCCMSelection, QAWB_CCM_SELECTION_FIELDS);
static_assert(sizeof(QAWBCCMSelection) == 2664);
static_assert(offsetof(QAWBCCMSelection, bv_number) == 0);
static_assert(offsetof(QAWBCCMSelection, ccm_selection_bv_list) == 4);

// Four CCM selections (index 0 to 3) for each of natural light, artificial
// light and flash.
struct QAWBCCMSetFace {
  QAWBCCMSelection ccm_selection_set_natural[4];
  QAWBCCMSelection ccm_selection_set_artificial[4];
  QAWBCCMSelection ccm_selection_set_flash[4];
};
#define QAWB_CCM_SET_FACE_FIELDS(X) \
  X(ccm_selection_set_natural)      \
  X(ccm_selection_set_artificial)   \
  X(ccm_selection_set_flash)
QAWB_DESCRIBE_RECORD(QAWBCCMSetFace, QAWB_CCM_SET_FACE_FIELDS);
static_assert(sizeof(QAWBCCMSetFace) == 31968);
static_assert(offsetof(QAWBCCMSetFace, ccm_selection_set_natural) == 0);
static_assert(offsetof(QAWBCCMSetFace, ccm_selection_set_artificial) == 10656);
static_assert(offsetof(QAWBCCMSetFace, ccm_selection_set_flash) == 21312);

// The CCM selections for natural light, artificial light and flash, and the
// switch `mcc_enable_flag`.
struct QAWBCCMSet {
  int32_t mcc_enable_flag;
  QAWBCCMSelection ccm_selection_set_natural;
  QAWBCCMSelection ccm_selection_set_artificial;
  QAWBCCMSelection ccm_selection_set_flash;
};
#define QAWB_CCM_SET_FIELDS(X)    \
  X(mcc_enable_flag)              \
  X(ccm_selection_set_natural)    \
  X(ccm_selection_set_artificial) \
  X(ccm_selection_set_flash)
QAWB_DESCRIBE_RECORD(QAWBCCMSet, QAWB_CCM_SET_FIELDS);
static_assert(sizeof(QAWBCCMSet) == 7996);
static_assert(offsetof(QAWBCCMSet, mcc_enable_flag) == 0);
static_assert(offsetof(QAWBCCMSet, ccm_selection_set_natural) == 4);
static_assert(offsetof(QAWBCCMSet, ccm_selection_set_artificial) == 2668);
static_assert(offsetof(QAWBCCMSet, ccm_selection_set_flash) == 5332);

// The face CCM set and the general CCM set.
struct QAWBCCMTuningTable {
  QAWBCCMSetFace ccm_set_face;
  QAWBCCMSet ccm_set;
};
#define QAWB_CCM_TUNING_TABLE_FIELDS(X) X(ccm_set_face) X(ccm_set)
QAWB_DESCRIBE_RECORD(QAWBCCMTuningTable, QAWB_CCM_TUNING_TABLE_FIELDS);
static_assert(sizeof(QAWBCCMTuningTable) == 39964);
static_assert(offsetof(QAWBCCMTuningTable, ccm_set_face) == 0);
static_assert(offsetof(QAWBCCMTuningTable, ccm_set) == 31968);

// The top-level colour-control table: its version and its CCM tuning.
struct QAWBColorControlTuningTable {
  QAWBParameterVersion version;
  QAWBCCMTuningTable ccm_tuning_table;
};
#define QAWB_COLOR_CONTROL_TUNING_TABLE_FIELDS(X) X(version) X(ccm_tuning_table)
QAWB_DESCRIBE_RECORD(QAWBColorControlTuningTable,
                     QAWB_COLOR_CONTROL_TUNING_TABLE_FIELDS);
static_assert(sizeof(QAWBColorControlTuningTable) == 39968);
static_assert(offsetof(QAWBColorControlTuningTable, version) == 0);
static_assert(offsetof(QAWBColorControlTuningTable, ccm_tuning_table) == 4);

// Every record of this header with its message and field list, for code that
// is generated per record (the conversions, the tests).
#define QAWB_COLOR_CONTROL_TABLE_RECORDS(X)                                  \
  X(QAWBColorCorrectMatrix, QAWBColorCorrectMatrix,                          \
    QAWB_COLOR_CORRECT_MATRIX_FIELDS)                                        \
  X(QAWBCCMSelectionCCT, QAWBCCMSelectionCCT, QAWB_CCM_SELECTION_CCT_FIELDS) \
  X(QAWBCCMSelectionBV, QAWBCCMSelectionBV, QAWB_CCM_SELECTION_BV_FIELDS)    \
  X(QAWBCCMSelection, QAWBCCMSelection, QAWB_CCM_SELECTION_FIELDS)           \
  X(QAWBCCMSetFace, QAWBCCMSetFace, QAWB_CCM_SET_FACE_FIELDS)                \
  X(QAWBCCMSet, QAWBCCMSet, QAWB_CCM_SET_FIELDS)                             \
  X(QAWBCCMTuningTable, QAWBCCMTuningTable, QAWB_CCM_TUNING_TABLE_FIELDS)    \
  X(QAWBColorControlTuningTable, QAWBColorControlTuningTable,                \
    QAWB_COLOR_CONTROL_TUNING_TABLE_FIELDS)

}  // namespace qawb

#endif  // AWB_RECORDS_QAWB_COLOR_CONTROL_TUNING_TABLE_H_
