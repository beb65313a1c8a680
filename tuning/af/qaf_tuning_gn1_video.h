// Autofocus tuning of the gn1 sensor, video.
#ifndef TUNING_AF_QAF_TUNING_GN1_VIDEO_H_
#define TUNING_AF_QAF_TUNING_GN1_VIDEO_H_

#include "coordinator/qaf_tuning.h"
#include "tuning/tuning_source_dir.h"

namespace q3a_tuning::af_gn1_video {

inline constexpr char kName[] =
    Q3A_TUNING_SOURCE_DIR "tuning/af/qaf_tuning_gn1_video.h";

inline constexpr qaf::QafParamsHead kParamsHead = {
    .af_enable = 1,
    .pdaf_enable = 1,
    .cdaf_enable = 1,
    .continuous_enable = 1,
    .lens_position_minimum = 0,
    .lens_position_maximum = 4095,
    .lens_position_infinity = 220,
    .lens_position_macro = 3600,
    .lens_position_hyperfocal = 389,
    .coarse_search_step = 40,
    .fine_search_step = 10,
    .pd_confidence_threshold = 0.35f,
    .pd_defocus_gain = 1.0f,
    .roi_width_percent = 20,
    .roi_height_percent = 20,
    .scene_change_luma_threshold = 12,
    .scene_change_sad_threshold = 0.15f,
    .scene_change_frames = 6,
    .focus_distance_cm = {10.0f,  12.0f,  15.0f,  20.0f,  25.0f,
                          30.0f,  40.0f,  50.0f,  60.0f,  80.0f,
                          100.0f, 120.0f, 150.0f, 200.0f, 250.0f,
                          300.0f, 400.0f, 500.0f, 700.0f, 1000.0f},
    .lens_position_by_distance = {3600, 2926, 2343, 1789, 1466, 1253, 991,
                                  835,  732,  603,  526,  475,  423,  372,
                                  342,  322,  296,  281,  263,  250},
    .pd_conversion_coefficients = {1000, 1037, 1068, 1093, 1112, 1125,
                                   1132, 1133, 1128, 1117, 1100, 1077,
                                   1048, 1013, 972,  925,  872,  813,
                                   748,  677,  600,  517,  428,  333,
                                   232,  125,  12,   -107, -232, -363},
    .pd_confidence_curve = {0.1f,  0.135f, 0.17f, 0.205f, 0.24f, 0.275f,
                            0.31f, 0.345f, 0.38f, 0.415f, 0.45f, 0.485f,
                            0.52f, 0.555f, 0.59f, 0.625f, 0.66f, 0.695f,
                            0.73f, 0.765f, 0.8f,  0.835f, 0.87f, 0.905f,
                            0.94f, 0.975f, 1.0f,  1.0f,   1.0f,  1.0f},
    .search_range_by_gain = {400, 388, 376, 364, 352, 340, 328, 316, 304, 292,
                             280, 268, 256, 244, 232, 220, 208, 196, 184, 172,
                             160, 148, 136, 124, 112, 100, 88,  76,  64,  52},
};

// Rows in ascending level order; unused rows are zero.
inline constexpr qaf::QafLevelTable kLevelTable = {{
    {1, 400, 600, 1.0f, {400, 600, 400, 600, 600, 750, 400, 600}},
    {2, 450, 660, 1.12f, {450, 660, 450, 660, 660, 820, 450, 660}},
    {4, 500, 720, 1.24f, {500, 720, 500, 720, 720, 890, 500, 720}},
    {8, 550, 780, 1.36f, {550, 780, 550, 780, 780, 960, 550, 780}},
    {16, 600, 840, 1.48f, {600, 840, 600, 840, 840, 1030, 600, 840}},
    {32, 650, 900, 1.6f, {650, 900, 650, 900, 900, 1100, 650, 900}},
    {70, 700, 960, 1.72f, {700, 960, 700, 960, 960, 1170, 700, 960}},
}};

inline constexpr qaf::QafParamsTail kParamsTail = {
    .face_priority_enable = 1,
    .tracking_enable = 1,
    .touch_enable = 1,
    .hybrid_mode = 2,
    .stable_frames = 4,
    .lost_frames = 10,
    .convergence_frames = 8,
    .haf_pd_weight = 0.7f,
    .haf_cd_weight = 0.3f,
    .tracking_window_percent = 15,
    .motion_thresholds = {0.03f, 0.07f, 0.14f, 0.25f},
    .retrigger_params = {5, 10, 20, 60, 4},
    .fine_search_table = {11, 15, 19, 23, 27, 31, 35, 39, 43, 47, 51, 55, 59,
                          63, 67, 13, 17, 21, 25, 29, 33, 37, 41, 45, 49, 53,
                          57, 61, 65, 69, 15, 19, 23, 27, 31, 35, 39, 43, 47,
                          51, 55, 59, 63, 67, 71, 17, 21, 25, 29, 33, 37, 41,
                          45, 49, 53, 57, 61, 65, 69, 73, 19, 23, 27, 31, 35,
                          39, 43, 47, 51, 55, 59, 63, 67, 71, 75, 21, 25, 29,
                          33, 37, 41, 45, 49, 53, 57, 61, 65, 69, 73, 77, 23,
                          27, 31, 35, 39, 43, 47, 51, 55, 59, 63, 67, 71, 75,
                          79, 25, 29, 33, 37, 41, 45, 49, 53, 57, 61, 65, 69,
                          73, 77, 81, 27, 31, 35, 39, 43, 47, 51, 55, 59, 63,
                          67, 71, 75, 79, 83, 29, 33, 37, 41, 45, 49, 53, 57,
                          61, 65, 69, 73, 77, 81, 85},
    .confidence_table =
        {0.05f,  0.0565f, 0.063f, 0.0695f, 0.076f, 0.0825f, 0.089f, 0.0955f,
         0.102f, 0.1085f, 0.115f, 0.1215f, 0.128f, 0.1345f, 0.141f, 0.1475f,
         0.154f, 0.1605f, 0.167f, 0.1735f, 0.18f,  0.1865f, 0.193f, 0.1995f,
         0.206f, 0.2125f, 0.219f, 0.2255f, 0.232f, 0.2385f, 0.245f, 0.2515f,
         0.258f, 0.2645f, 0.271f, 0.2775f, 0.284f, 0.2905f, 0.297f, 0.3035f,
         0.31f,  0.3165f, 0.323f, 0.3295f, 0.336f, 0.3425f, 0.349f, 0.3555f,
         0.362f, 0.3685f, 0.375f, 0.3815f, 0.388f, 0.3945f, 0.401f, 0.4075f,
         0.414f, 0.4205f, 0.427f, 0.4335f, 0.44f,  0.4465f, 0.453f, 0.4595f,
         0.466f, 0.4725f, 0.479f, 0.4855f, 0.492f, 0.4985f, 0.505f, 0.5115f,
         0.518f, 0.5245f, 0.531f, 0.5375f, 0.544f, 0.5505f, 0.557f, 0.5635f,
         0.57f,  0.5765f, 0.583f, 0.5895f, 0.596f, 0.6025f, 0.609f, 0.6155f,
         0.622f, 0.6285f, 0.635f, 0.6415f, 0.648f, 0.6545f, 0.661f, 0.6675f,
         0.674f, 0.6805f, 0.687f, 0.6935f, 0.7f,   0.7065f, 0.713f, 0.7195f,
         0.726f, 0.7325f, 0.739f, 0.7455f, 0.752f, 0.7585f, 0.765f, 0.7715f,
         0.778f, 0.7845f, 0.791f, 0.7975f, 0.804f, 0.8105f, 0.817f, 0.8235f,
         0.83f,  0.8365f, 0.843f, 0.8495f, 0.856f, 0.8625f, 0.869f, 0.8755f,
         0.882f, 0.8885f, 0.895f, 0.9015f, 0.908f, 0.9145f, 0.921f, 0.9275f,
         0.934f, 0.9405f, 0.947f, 0.9535f, 0.96f,  0.9665f, 0.973f, 0.9795f,
         0.986f, 0.9925f, 0.999f, 1.0f,    1.0f,   1.0f},
    .reserved = {},
};

}  // namespace q3a_tuning::af_gn1_video

#endif  // TUNING_AF_QAF_TUNING_GN1_VIDEO_H_
