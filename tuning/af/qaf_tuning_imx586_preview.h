// Autofocus tuning of the imx586 sensor, preview: the gn1 preview's, with
// the tele lens's 10-bit positions and phase-detect conversion, three more
// search levels, and more weight on contrast in hybrid search.
#ifndef TUNING_AF_QAF_TUNING_IMX586_PREVIEW_H_
#define TUNING_AF_QAF_TUNING_IMX586_PREVIEW_H_

#include "coordinator/qaf_tuning.h"
#include "tuning/af/qaf_tuning_common.h"
#include "tuning/af/qaf_tuning_gn1_preview.h"
#include "tuning/tuning_source_dir.h"

namespace q3a_tuning::af_imx586_preview {

inline constexpr char kName[] =
    Q3A_TUNING_SOURCE_DIR "tuning/af/qaf_tuning_imx586_preview.h";

inline constexpr qaf::QafParamsHead kParamsHead = [] {
  qaf::QafParamsHead head = af_gn1_preview::kParamsHead;
  head.lens_position_maximum = 1023;
  head.lens_position_infinity = 60;
  head.lens_position_macro = 900;
  head.lens_position_hyperfocal = 102;
  head.pd_confidence_threshold = 0.45f;
  af::Assign(head.lens_position_by_distance,
             {900, 733, 587, 450, 370, 317, 252, 213, 187, 155,
              136, 123, 111, 98,  90,  85,  79,  75,  71,  68});
  af::Assign(head.pd_conversion_coefficients,
             {1000, 1035, 1060, 1075, 1080, 1075,  1060,  1035,  1000,  955,
              900,  835,  760,  675,  580,  475,   360,   235,   100,   -45,
              -200, -365, -540, -725, -920, -1125, -1340, -1565, -1800, -2045});
  return head;
}();

inline constexpr qaf::QafLevelTable kLevelTable = [] {
  qaf::QafLevelTable levels = af_gn1_preview::kLevelTable;
  levels[5] = {64, 650, 900, 1.75f, {650, 900, 650, 900, 900, 1100, 650, 900}};
  levels[6] = {80, 700, 960, 1.9f, {700, 960, 700, 960, 960, 1170, 700, 960}};
  levels[7] = {
      100, 750, 1020, 2.05f, {750, 1020, 750, 1020, 1020, 1240, 750, 1020}};
  return levels;
}();

inline constexpr qaf::QafParamsTail kParamsTail = [] {
  qaf::QafParamsTail tail = af_gn1_preview::kParamsTail;
  tail.hybrid_mode = 1;
  tail.haf_pd_weight = 0.6f;
  tail.haf_cd_weight = 0.4f;
  return tail;
}();

}  // namespace q3a_tuning::af_imx586_preview

#endif  // TUNING_AF_QAF_TUNING_IMX586_PREVIEW_H_
