#include "tools/q3a_tuning/io/count_rules.h"

namespace q3a_tool {
namespace {

// message, count field, counted array (relative to the message), elements
// per counted entry.
constexpr CountRule kCountRules[] = {
    // Trust levels, shared by three tables.
    {"QAWBTrustLevelBVSet", "bv_number", "bv_trust_list"},
    {"QAWBTrustLevelStatsRegionType", "base_region_number", "base_region"},
    {"QAWBTrustLevelBVStats", "stats_number", "stats_trust_list"},
    {"QAWBTrustLevelBVStatsSet", "bv_number", "bv_stats_trust_list"},
    {"QAWBTrustLevelBVSpectral", "spectral_number", "spectral_trust_list"},
    {"QAWBTrustLevelBVSpectralInfo", "bv_number", "bv_spectral_trust_list"},

    // Basic table.
    {"QAWBGoldenReferenceTable", "golden_module_number", "golden_module_data"},
    {"QAWBCCTReferencePoint", "reference_point_number", "reference_point_list"},
    {"QAWBCCTRegion", "bv_number", "region_bv_list"},
    {"QAWBCCTRegion", "radius_numbers",
     "region_bv_list[].region_list[].radius_list"},
    {"QAWBCCTRegion", "radius_numbers",
     "region_bv_list[].region_list[].weight_list"},
    {"QAWBIlluminantWeight", "cct_number", "cct_list"},
    {"QAWBIlluminantWeight", "cct_number", "illuminant_cct_list[].weight_list"},
    {"QAWBIlluminantWeight", "bv_number", "illuminant_cct_list"},
    {"QAWBLuminanceWeight", "bv_number", "bv_value_list"},
    {"QAWBLuminanceWeight", "bv_number", "threshold_list"},
    {"QAWBLuminanceWeight", "bv_number", "mask_list", 9},
    {"QAWBConvergenceStableThresholdSet", "bv_number", "bv_value_list"},
    {"QAWBPreferenceAdjustCCT", "radius_number", "adjust_data_list"},
    {"QAWBPreferenceAdjustBV", "cct_number", "adjust_cct_list"},
    {"QAWBPreferenceAdjust", "bv_number", "adjust_bv_list"},

    // Advance table.
    {"QAWBOutdoorRegion", "bv_number", "region_bv_list"},
    {"QAWBOutdoorRegion", "cct_number", "region_bv_list[].region_list"},
    {"QAWBBlueRegion", "bv_number", "region_bv_list"},
    {"QAWBBlueRegion", "cct_number", "region_bv_list[].region_list"},
    {"QAWBGreenRegion", "bv_number", "region_bv_list"},
    {"QAWBGreenRegion", "cct_number", "region_bv_list[].region.region_list"},
    {"QAWBBluePreferencePoint", "bv_number", "point_bv_list"},
    {"QAWBOutdoorPreferencePoint", "bv_number", "point_bv_list"},
    {"QAWBSpecialColorTuningTable", "special_color_group_number",
     "special_color_group_list"},
    {"QAWBSpecialColorGroup", "special_color_region_number",
     "special_color_region_list"},
    {"QAWBSpecialColorRegion", "bv_number", "special_color_region_bv_list"},

    // Colour-control table.
    {"QAWBCCMSelection", "bv_number", "ccm_selection_bv_list"},
    {"QAWBCCMSelectionBV", "cct_number", "region_list"},

    // Feature table.
    {"QAWBTruetoneRegion", "bv_number", "region_bv_list"},
    {"QAWBTruetoneRegion", "bv_number",
     "per_tonetype_region_list[].region_bv_list"},
    {"QAWBTruetoneRegion", "cct_number", "region_bv_list[].region_list"},
    {"QAWBTruetoneRegion", "cct_number",
     "per_tonetype_region_list[].region_bv_list[].region_list"},
    {"QAWBWeightedAverageFaceCCT", "face_size_number", "face_size_weight_list"},
    {"QAWBFaceToIdealCCTMapping", "face_cct_number", "face_cct_list"},
    {"QAWBFaceToIdealCCTMapping", "face_cct_number",
     "bv_face_ideal_cct_list[].tone_type_face_ideal_cct_list[]"
     ".face_ideal_cct_list"},
    {"QAWBFaceToIdealCCTMapping", "bv_number", "bv_face_ideal_cct_list"},
    {"QAWBFaceIlluminantTable", "face_cct_number", "face_illuminant_list"},
    {"QAWBFaceIlluminantTable", "cct_number", "cct_list"},
    {"QAWBFaceIlluminantTable", "cct_number",
     "face_illuminant_list[].face_illuminant_weight.illuminant_cct_list[]"
     ".tone_type_weight_list[].weight_list"},
    {"QAWBFaceIlluminantWeight", "bv_number", "illuminant_cct_list"},
    {"QAWBTrustLevelFaceRatioInfo", "face_ratio_number",
     "face_ratio_trust_list"},
    {"QAWBTrustLevelFaceRatioInfo", "face_ratio_number",
     "face_ratio_display_brightness_trust_list"},
    {"QAWBTrustLevelFaceRatioDisplayBrightness", "display_brightness_number",
     "display_brightness_trust_list"},
    {"QAWBSpectralIlluminantTable", "spectral_signal_number",
     "spectral_illuminant_list"},
    {"QAWBSpectralIlluminantTable", "cct_number", "cct_list"},
    {"QAWBSpectralIlluminantTable", "cct_number",
     "spectral_illuminant_list[].spectral_illuminant_weight"
     ".illuminant_cct_list[].weight_list"},
    {"QAWBFeatureIlluminantWeight", "bv_number", "illuminant_cct_list"},
    {"QAWBSpectralBVSignalValueSet", "bv_number", "bv_spectral_signal_list"},
    {"QAWBToneTypeBVConvergenceThresholdMappingSet", "bv_number",
     "bv_convergence_threshold_list"},
    {"QAWBToneTypeBVTrustLevelMappingSet", "bv_number", "bv_trust_level_list"},
    {"QAWBFacePreference", "bv_number", "adjust_bv_list"},
    {"QAWBFacePreferenceAdjustBV", "cct_number", "adjust_cct_list"},
    {"QAWBLowCCTPreference", "low_cct_number", "current_low_cct_list"},
    {"QAWBLowCCTPreference", "low_cct_number",
     "preference_low_cct_list[].preference_cct_list"},
    {"QAWBLowCCTPreference", "bv_number", "preference_low_cct_list"},
    {"QAWBStatsNoiseWeight", "bv_number", "noise_weight_table"},
    {"QAWBStatsNoiseWeight", "weight_point_number",
     "noise_weight_table[].red_pixel_value_list"},
    {"QAWBStatsNoiseWeight", "weight_point_number",
     "noise_weight_table[].red_noise_weight_list"},
    {"QAWBStatsNoiseWeight", "weight_point_number",
     "noise_weight_table[].green_pixel_value_list"},
    {"QAWBStatsNoiseWeight", "weight_point_number",
     "noise_weight_table[].green_noise_weight_list"},
    {"QAWBStatsNoiseWeight", "weight_point_number",
     "noise_weight_table[].blue_pixel_value_list"},
    {"QAWBStatsNoiseWeight", "weight_point_number",
     "noise_weight_table[].blue_noise_weight_list"},
    {"QAWBStatsROIWeight", "bv_number", "roi_weight_table"},
    {"QAWBStatsROIWeight", "roi_weight_number",
     "roi_weight_table[].roi_weight_list"},
    {"QAWBStatsDarknessWeight", "bv_number", "darkness_weight"},
    {"QAWBStatsDarknessWeight", "darkness_weight_number", "y_value_list"},
    {"QAWBStatsDarknessWeight", "darkness_weight_number",
     "darkness_weight[].darkness_weight_list"},
    {"QAWBMappingPoint", "bv_number", "mapping_point_bv_list"},
    {"QAWBMappingPointBV", "mapping_point_number", "mapping_point_list"},
};

}  // namespace

std::span<const CountRule> AllCountRules() { return kCountRules; }

ArrayPathStep FirstArrayPathStep(std::string_view array_path) {
  const std::size_t dot = array_path.find('.');
  ArrayPathStep step;
  step.field = array_path.substr(0, dot);
  step.rest = dot == std::string_view::npos ? "" : array_path.substr(dot + 1);
  step.each = step.field.ends_with("[]");
  if (step.each) step.field.remove_suffix(2);
  return step;
}

}  // namespace q3a_tool
