// Contrast-detect configuration of the imx586 sensor (tele camera), preview.
#ifndef TUNING_CDAF_CDAF_TUNING_IMX586_PREVIEW_H_
#define TUNING_CDAF_CDAF_TUNING_IMX586_PREVIEW_H_

#include "coordinator/qaf_tuning.h"
#include "tuning/cdaf/cdaf_tuning_common.h"
#include "tuning/tuning_source_dir.h"

namespace q3a_tuning::cdaf_imx586_preview {

inline constexpr char kName[] =
    Q3A_TUNING_SOURCE_DIR "tuning/cdaf/cdaf_tuning_imx586_preview.h";

inline constexpr qaf::CdafConfigBlock kFirstConfig = cdaf::MakeBlock({
    .coring_thresholds = {10, 12, 14, 16, 18, 20, 22, 24},
    .output_shifts = {2, 3, 3, 4},
    .windows =
        {{2, 2}, {10, 6}, {4, 3}, {8, 6}, {4, 3}, {10, 8}, {2, 2}, {12, 9}},
    .filters =
        {
            {0.10473f, -1.7412f, 0.77861f},
            {1.2817f, -0.62954f, 0.30117f},
            {0.33755f, -1.08566f, 0.3249f},
            {0.31699f, -1.044f, 0.36603f},
            {0.2952f, -0.93656f, 0.4096f},
            {0.27219f, -0.76315f, 0.45563f},
            {0.24795f, -0.52776f, 0.5041f},
            {0.22249f, -0.23856f, 0.55503f},
            {0.1958f, 0.0923f, 0.6084f},
            {0.16789f, 0.44921f, 0.66423f},
            {0.13875f, 0.81384f, 0.7225f},
            {0.10839f, 1.16605f, 0.78323f},
        },
});

inline constexpr qaf::CdafConfigBlock kSecondConfig = cdaf::MakeBlock({
    .coring_thresholds = {11, 13, 15, 17, 19, 21, 23, 25},
    .output_shifts = {2, 3, 4, 4},
    .windows =
        {{3, 2}, {12, 8}, {5, 4}, {9, 6}, {6, 5}, {12, 9}, {4, 3}, {14, 10}},
    .filters =
        {
            {0.10473f, -1.7412f, 0.77861f},
            {1.2817f, -0.62954f, 0.30117f},
            {0.3318f, -1.0936f, 0.3364f},
            {0.31089f, -1.04212f, 0.37823f},
            {0.28875f, -0.92419f, 0.4225f},
            {0.26539f, -0.74021f, 0.46923f},
            {0.2408f, -0.49485f, 0.5184f},
            {0.21499f, -0.19694f, 0.57003f},
            {0.18795f, 0.14075f, 0.6241f},
            {0.15969f, 0.5021f, 0.68063f},
            {0.1302f, 0.86834f, 0.7396f},
            {0.09949f, 1.21909f, 0.80103f},
        },
});

}  // namespace q3a_tuning::cdaf_imx586_preview

#endif  // TUNING_CDAF_CDAF_TUNING_IMX586_PREVIEW_H_
