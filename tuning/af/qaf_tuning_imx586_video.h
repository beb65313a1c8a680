// Autofocus tuning of the imx586 sensor, video: the preview tuning made a
// video one, over the same search levels.
#ifndef TUNING_AF_QAF_TUNING_IMX586_VIDEO_H_
#define TUNING_AF_QAF_TUNING_IMX586_VIDEO_H_

#include "coordinator/qaf_tuning.h"
#include "tuning/af/qaf_tuning_common.h"
#include "tuning/af/qaf_tuning_imx586_preview.h"
#include "tuning/tuning_source_dir.h"

namespace q3a_tuning::af_imx586_video {

inline constexpr char kName[] =
    Q3A_TUNING_SOURCE_DIR "tuning/af/qaf_tuning_imx586_video.h";

inline constexpr qaf::QafParamsHead kParamsHead =
    af::VideoHead(af_imx586_preview::kParamsHead);

inline constexpr const qaf::QafLevelTable& kLevelTable =
    af_imx586_preview::kLevelTable;

inline constexpr qaf::QafParamsTail kParamsTail =
    af::VideoTail(af_imx586_preview::kParamsTail);

}  // namespace q3a_tuning::af_imx586_video

#endif  // TUNING_AF_QAF_TUNING_IMX586_VIDEO_H_
