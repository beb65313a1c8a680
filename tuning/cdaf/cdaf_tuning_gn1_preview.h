// Contrast-detect configuration of the gn1 sensor (main camera), preview.
#ifndef TUNING_CDAF_CDAF_TUNING_GN1_PREVIEW_H_
#define TUNING_CDAF_CDAF_TUNING_GN1_PREVIEW_H_

#include "coordinator/qaf_tuning.h"
#include "tuning/cdaf/cdaf_tuning_common.h"
#include "tuning/tuning_source_dir.h"

namespace q3a_tuning::cdaf_gn1_preview {

inline constexpr char kName[] =
    Q3A_TUNING_SOURCE_DIR "tuning/cdaf/cdaf_tuning_gn1_preview.h";

inline constexpr qaf::CdafConfigBlock kFirstConfig = cdaf::MakeBlock({
    .coring_thresholds = {8, 10, 12, 14, 16, 18, 20, 22},
    .output_shifts = {2, 3, 3, 4},
    .windows =
        {{2, 2}, {10, 8}, {4, 4}, {8, 6}, {6, 4}, {12, 9}, {3, 3}, {16, 12}},
    .filters =
        {
            {0.092286f, -1.7881f, 0.81537f},
            {1.4199f, -0.70685f, 0.33386f},
            {0.34875f, -1.0658f, 0.3025f},
            {0.32889f, -1.04313f, 0.34223f},
            {0.3078f, -0.95635f, 0.3844f},
            {0.28549f, -0.80401f, 0.42903f},
            {0.26195f, -0.58879f, 0.4761f},
            {0.23719f, -0.31756f, 0.52563f},
            {0.2112f, -0.00121f, 0.5776f},
            {0.18399f, 0.34575f, 0.63203f},
            {0.15555f, 0.70586f, 0.6889f},
            {0.12589f, 1.0596f, 0.74823f},
        },
});

inline constexpr qaf::CdafConfigBlock kSecondConfig = cdaf::MakeBlock({
    .coring_thresholds = {9, 11, 13, 15, 17, 19, 21, 23},
    .output_shifts = {2, 3, 4, 4},
    .windows =
        {{4, 3}, {12, 9}, {6, 4}, {10, 7}, {8, 6}, {14, 10}, {5, 4}, {16, 12}},
    .filters =
        {
            {0.092286f, -1.7881f, 0.81537f},
            {1.4199f, -0.70685f, 0.33386f},
            {0.3432f, -1.07638f, 0.3136f},
            {0.32299f, -1.04432f, 0.35403f},
            {0.30155f, -0.94728f, 0.3969f},
            {0.27889f, -0.78442f, 0.44223f},
            {0.255f, -0.55908f, 0.49f},
            {0.22989f, -0.27877f, 0.54023f},
            {0.20355f, 0.04497f, 0.5929f},
            {0.17599f, 0.39708f, 0.64803f},
            {0.1472f, 0.75966f, 0.7056f},
            {0.11719f, 1.11286f, 0.76563f},
        },
});

}  // namespace q3a_tuning::cdaf_gn1_preview

#endif  // TUNING_CDAF_CDAF_TUNING_GN1_PREVIEW_H_
