// Autofocus tuning of the gn1 sensor, video: the preview tuning made a
// video one (qaf_tuning_common.h), with two more search levels.
#ifndef TUNING_AF_QAF_TUNING_GN1_VIDEO_H_
#define TUNING_AF_QAF_TUNING_GN1_VIDEO_H_

#include "coordinator/qaf_tuning.h"
#include "tuning/af/qaf_tuning_common.h"
#include "tuning/af/qaf_tuning_gn1_preview.h"
#include "tuning/tuning_source_dir.h"

namespace q3a_tuning::af_gn1_video {

inline constexpr char kName[] =
    Q3A_TUNING_SOURCE_DIR "tuning/af/qaf_tuning_gn1_video.h";

inline constexpr qaf::QafParamsHead kParamsHead =
    af::VideoHead(af_gn1_preview::kParamsHead);

// The preview's levels with a flatter step gain, and two more.
inline constexpr qaf::QafLevelTable kLevelTable = [] {
  qaf::QafLevelTable levels = af_gn1_preview::kLevelTable;
  levels[1].step_gain = 1.12f;
  levels[2].step_gain = 1.24f;
  levels[3].step_gain = 1.36f;
  levels[4].step_gain = 1.48f;
  levels[5] = {32, 650, 900, 1.6f, {650, 900, 650, 900, 900, 1100, 650, 900}};
  levels[6] = {70, 700, 960, 1.72f, {700, 960, 700, 960, 960, 1170, 700, 960}};
  return levels;
}();

inline constexpr qaf::QafParamsTail kParamsTail =
    af::VideoTail(af_gn1_preview::kParamsTail);

}  // namespace q3a_tuning::af_gn1_video

#endif  // TUNING_AF_QAF_TUNING_GN1_VIDEO_H_
