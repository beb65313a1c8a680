// The phone's built-in tuning registry, built by this file's static
// initialiser when the library loads. Objects and tables are defined in build
// order, so they are constructed in that order and destroyed in reverse. The
// tuning data itself is constant: the auto-exposure records and AWB tables
// are registered or referenced in place, and the other records copy theirs
// from the tuning headers.
#include <android-base/no_destructor.h>

#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <span>
#include <vector>

#include "coordinator/actuator_tuning.h"
#include "coordinator/built_in_registry.h"
#include "coordinator/camera_characteristics.h"
#include "coordinator/qaf_tuning.h"
#include "coordinator/tuning_map.h"
#include "libs_v4/qAWB/src/base/fixed_qawb_tuning.h"
#include "tuning/actuator/actuator_tuning_ak7377.h"
#include "tuning/actuator/actuator_tuning_sem1215sa.h"
#include "tuning/ae/ae_tuning_records.h"
#include "tuning/af/qaf_tuning_gn1_preview.h"
#include "tuning/af/qaf_tuning_gn1_video.h"
#include "tuning/af/qaf_tuning_imx586_preview.h"
#include "tuning/af/qaf_tuning_imx586_video.h"
#include "tuning/cdaf/cdaf_tuning_gn1_binning_preview.h"
#include "tuning/cdaf/cdaf_tuning_gn1_preview.h"
#include "tuning/cdaf/cdaf_tuning_imx586_preview.h"
#include "tuning/qawb/built_in_qawb_tables.h"

namespace {

using q3a_coordinator::CameraCharacteristics;
using q3a_coordinator::FpsRange;
using q3a_coordinator::SessionParameters;
namespace qt = q3a_tuning;
namespace tables = qawb::built_in;

// One AWB container registered for every combination of the listed lens
// types and use cases at one camera position.
struct AwbRegistration {
  std::int32_t camera_position;
  std::initializer_list<std::int32_t> lens_types;
  std::initializer_list<std::int32_t> use_cases;
  const qawb::FixedQAWBTuning* container;
};

NodeTuningMap ExpandAwbRegistrations(
    std::initializer_list<AwbRegistration> registrations) {
  NodeTuningMap table;
  for (const AwbRegistration& r : registrations) {
    for (std::int32_t lens_type : r.lens_types) {
      for (std::int32_t use_case : r.use_cases) {
        table.emplace(
            q3a_api::TuningKey{use_case, -1, r.camera_position, lens_type, -1},
            r.container);
      }
    }
  }
  return table;
}

// Keys are written (use_case, sensor_mode, camera_position, lens_type,
// reserved) throughout.

actuator::ActuatorTuning ak7377(qt::ak7377::kName, qt::ak7377::kConstants);
actuator::ActuatorTuning sem1215sa(qt::sem1215sa::kName,
                                   qt::sem1215sa::kConstants);

NodeTuningMap actuator_table = {
    {{0, -1, 1, 0, -1}, &ak7377},
    {{0, -1, 1, 2, -1}, &sem1215sa},
};

q3a_coordinator::CameraSessionParameters camera_session_parameters({
    {lumen_api::kCameraPositionBack,
     {
         {lumen_api::kLensTypeMain, SessionParameters{1, 5}},
         {lumen_api::kLensTypeUltraWide, SessionParameters{1, 5}},
         {lumen_api::kLensTypeTelephoto, SessionParameters{1, 5}},
     }},
    {lumen_api::kCameraPositionFront,
     {
         {lumen_api::kLensTypeMain, SessionParameters{0, 1}},
     }},
});

NodeTuningMap camera_session_parameters_table = {
    {{0, -1, -1, -1, -1}, &camera_session_parameters},
};

// Each contrast-detect and autofocus record is built from the namespace of
// the tuning header it is named after.
#define Q3A_CDAF_TUNING(header)                                                \
  qaf::CDAFTuningStructure header(qt::header::kName, qt::header::kFirstConfig, \
                                  qt::header::kSecondConfig)
Q3A_CDAF_TUNING(cdaf_gn1_binning_preview);
Q3A_CDAF_TUNING(cdaf_gn1_preview);
Q3A_CDAF_TUNING(cdaf_imx586_preview);
#undef Q3A_CDAF_TUNING

NodeTuningMap cdaf_table = {
    {{0, 1, 1, 0, -1}, &cdaf_gn1_preview},
    {{0, 2, 1, 0, -1}, &cdaf_gn1_binning_preview},
    {{0, 1, 1, 2, -1}, &cdaf_imx586_preview},
    {{0, 2, 1, 2, -1}, &cdaf_imx586_preview},
};

NodeTuningMap ae_table = {
    {{0, -1, 1, 0, -1}, &qt::ae::kMainPreview},
    {{1, -1, 1, 0, -1}, &qt::ae::kMainPreview},
    {{13, -1, 1, 0, -1}, &qt::ae::kMainUseCase13},
    {{3, -1, 1, 0, -1}, &qt::ae::kMainVideo},
    {{16, -1, 1, 0, -1}, &qt::ae::kMainUseCase16},
    {{14, -1, 1, 0, -1}, &qt::ae::kMainUseCase14},
    {{15, -1, 1, 0, -1}, &qt::ae::kMainUseCase15},
    {{3, 3, 1, 0, -1}, &qt::ae::kMainVideoSensorMode3},
    {{0, -1, 1, 1, -1}, &qt::ae::kWidePreview},
    {{1, -1, 1, 1, -1}, &qt::ae::kWidePreview},
    {{13, -1, 1, 1, -1}, &qt::ae::kWideUseCase13},
    {{3, -1, 1, 1, -1}, &qt::ae::kWideVideo},
    {{16, -1, 1, 1, -1}, &qt::ae::kWideUseCase16},
    {{14, -1, 1, 1, -1}, &qt::ae::kWideUseCase14},
    {{0, -1, 2, 0, -1}, &qt::ae::kFrontPreview},
    {{1, -1, 2, 0, -1}, &qt::ae::kFrontPreview},
    {{13, -1, 2, 0, -1}, &qt::ae::kFrontUseCase13},
    {{3, -1, 2, 0, -1}, &qt::ae::kFrontVideo},
    {{14, -1, 2, 0, -1}, &qt::ae::kFrontUseCase14},
    {{11, -1, 2, 0, -1}, &qt::ae::kFrontUseCase11},
    {{12, -1, 2, 0, -1}, &qt::ae::kFrontUseCase12},
    {{0, -1, 2, 5, -1}, &qt::ae::kFrontPreview},
    {{1, -1, 2, 5, -1}, &qt::ae::kFrontPreview},
    {{13, -1, 2, 5, -1}, &qt::ae::kFrontUseCase13},
    {{3, -1, 2, 5, -1}, &qt::ae::kFrontVideo},
    {{14, -1, 2, 5, -1}, &qt::ae::kFrontUseCase14},
    {{11, -1, 2, 5, -1}, &qt::ae::kFrontUseCase11},
    {{12, -1, 2, 5, -1}, &qt::ae::kFrontUseCase12},
    {{0, -1, 1, 2, -1}, &qt::ae::kTelePreview},
    {{1, -1, 1, 2, -1}, &qt::ae::kTelePreview},
    {{13, -1, 1, 2, -1}, &qt::ae::kTeleUseCase13},
    {{3, -1, 1, 2, -1}, &qt::ae::kTeleVideo},
};

#define Q3A_AF_TUNING(header)                                                \
  qaf::QAFTuningStructure header(qt::header::kName, qt::header::kParamsHead, \
                                 qt::header::kLevelTable,                    \
                                 qt::header::kParamsTail)
Q3A_AF_TUNING(af_gn1_preview);
Q3A_AF_TUNING(af_gn1_video);
Q3A_AF_TUNING(af_imx586_preview);
Q3A_AF_TUNING(af_imx586_video);
#undef Q3A_AF_TUNING

NodeTuningMap af_table = {
    {{1, -1, 1, 0, -1}, &af_gn1_preview},
    {{4, -1, 1, 0, -1}, &af_gn1_preview},
    {{3, -1, 1, 0, -1}, &af_gn1_video},
    {{1, -1, 1, 2, -1}, &af_imx586_preview},
    {{4, -1, 1, 2, -1}, &af_imx586_preview},
    {{3, -1, 1, 2, -1}, &af_imx586_video},
};

// The AWB containers only point at constant tables and have nothing to
// release, so they are never destroyed and no exit destructor is registered
// for them.
using AwbContainer = android::base::NoDestructor<const qawb::FixedQAWBTuning>;

const AwbContainer main_still_awb(&tables::kMainStillBasic,
                                  &tables::kMainAdvance,
                                  &tables::kMainStillColorControl,
                                  &tables::kMainStillFeature);
const AwbContainer main_video_awb(&tables::kMainPreviewBasic,
                                  &tables::kMainAdvance,
                                  &tables::kMainPreviewColorControl,
                                  &tables::kMainVideoFeature);
const AwbContainer main_preview_awb(&tables::kMainPreviewBasic,
                                    &tables::kMainAdvance,
                                    &tables::kMainPreviewColorControl,
                                    &tables::kMainPreviewFeature);
const AwbContainer main_use_case_4_awb(&tables::kMainUseCase4Basic,
                                       &tables::kMainUseCase4Advance,
                                       &tables::kMainUseCase4ColorControl,
                                       &tables::kMainUseCase4Feature);
const AwbContainer wide_still_awb(&tables::kWideStillBasic,
                                  &tables::kWideAdvance,
                                  &tables::kWideStillColorControl,
                                  &tables::kWideStillFeature);
const AwbContainer wide_video_awb(&tables::kWidePreviewBasic,
                                  &tables::kWideAdvance,
                                  &tables::kWidePreviewColorControl,
                                  &tables::kWideVideoFeature);
const AwbContainer wide_preview_awb(&tables::kWidePreviewBasic,
                                    &tables::kWideAdvance,
                                    &tables::kWidePreviewColorControl,
                                    &tables::kWidePreviewFeature);
const AwbContainer wide_use_case_4_awb(&tables::kWideUseCase4Basic,
                                       &tables::kWideUseCase4Advance,
                                       &tables::kWideUseCase4ColorControl,
                                       &tables::kWideUseCase4Feature);
const AwbContainer tele_still_awb(&tables::kTeleStillBasic,
                                  &tables::kTeleAdvance,
                                  &tables::kTeleStillColorControl,
                                  &tables::kTeleStillFeature);
const AwbContainer tele_video_awb(&tables::kTelePreviewBasic,
                                  &tables::kTeleAdvance,
                                  &tables::kTelePreviewColorControl,
                                  &tables::kTeleVideoFeature);
const AwbContainer tele_preview_awb(&tables::kTelePreviewBasic,
                                    &tables::kTeleAdvance,
                                    &tables::kTelePreviewColorControl,
                                    &tables::kTelePreviewFeature);
const AwbContainer tele_use_case_4_awb(&tables::kTeleUseCase4Basic,
                                       &tables::kTeleUseCase4Advance,
                                       &tables::kTeleUseCase4ColorControl,
                                       &tables::kTeleUseCase4Feature);
const AwbContainer front_still_awb(&tables::kFrontStillBasic,
                                   &tables::kFrontAdvance,
                                   &tables::kFrontStillColorControl,
                                   &tables::kFrontStillFeature);
const AwbContainer front_video_awb(&tables::kFrontPreviewBasic,
                                   &tables::kFrontAdvance,
                                   &tables::kFrontPreviewColorControl,
                                   &tables::kFrontVideoFeature);
const AwbContainer front_preview_awb(&tables::kFrontPreviewBasic,
                                     &tables::kFrontAdvance,
                                     &tables::kFrontPreviewColorControl,
                                     &tables::kFrontPreviewFeature);
const AwbContainer front_use_case_4_awb(&tables::kFrontUseCase4Basic,
                                        &tables::kFrontUseCase4Advance,
                                        &tables::kFrontUseCase4ColorControl,
                                        &tables::kFrontUseCase4Feature);

// clang-format off
NodeTuningMap awb_table = ExpandAwbRegistrations({
    // position, lens types, use cases, container
    {1, {0}, {8, 9}, main_still_awb.get()},
    {1, {0}, {7, 10}, main_video_awb.get()},
    {1, {0}, {0, 1}, main_preview_awb.get()},
    {1, {0}, {4}, main_use_case_4_awb.get()},
    {1, {1}, {8, 9}, wide_still_awb.get()},
    {1, {1}, {7, 10}, wide_video_awb.get()},
    {1, {1}, {0, 1}, wide_preview_awb.get()},
    {1, {1}, {4}, wide_use_case_4_awb.get()},
    {1, {2}, {8, 9}, tele_still_awb.get()},
    {1, {2}, {7, 10}, tele_video_awb.get()},
    {1, {2}, {0, 1}, tele_preview_awb.get()},
    {1, {2}, {4}, tele_use_case_4_awb.get()},
    {2, {0}, {8, 9}, front_still_awb.get()},
    {2, {0}, {7, 10}, front_video_awb.get()},
    {2, {0, 5}, {0, 1}, front_preview_awb.get()},
    {2, {0, 5}, {4}, front_use_case_4_awb.get()},
});
// clang-format on

// Lists hold Android camera control enumerator values.
const FpsRange kFpsWith60[] = {
    {15, 15}, {15, 30}, {30, 30}, {15, 60}, {60, 60}};
const FpsRange kFpsUpTo30[] = {{15, 15}, {15, 30}, {30, 30}};

enum class Focus { kAuto, kFixed };

// A lens's characteristics: what differs between the phone's five lenses is
// given, the rest they share.
CameraCharacteristics Lens(float lens_scalar,
                           std::initializer_list<std::uint8_t> ae_modes,
                           std::span<const FpsRange> fps_ranges, Focus focus) {
  const bool autofocus = focus == Focus::kAuto;
  return CameraCharacteristics{
      .lens_scalar = lens_scalar,
      .ae_available_antibanding_modes = {3},
      .ae_available_modes = ae_modes,
      .ae_available_target_fps_ranges = {fps_ranges.begin(), fps_ranges.end()},
      .ae_compensation_range = {-24, 24},
      .ae_compensation_step = {1, 6, 1, 1},
      .af_available_modes = autofocus
                                ? std::vector<std::uint8_t>{0, 1, 2, 3, 4, 5}
                                : std::vector<std::uint8_t>{0},
      .af_supported = autofocus ? 1 : 0,
      .awb_available_modes = {0, 1, 2, 3, 4, 5, 6, 7, 8},
      .trailing_flags = {1, 0, 0, 0, 0, 0, 0, 0},
  };
}

// clang-format off
q3a_coordinator::StaticCameraCharacteristics static_camera_characteristics({
    {lumen_api::kCameraPositionBack, {
        {lumen_api::kLensTypeMain,
         Lens(44.444443f, {0, 1, 2, 3}, kFpsWith60, Focus::kAuto)},
        {lumen_api::kLensTypeUltraWide,
         Lens(50.761421f, {0, 1, 2, 3}, kFpsWith60, Focus::kFixed)},
        {lumen_api::kLensTypeTelephoto,
         Lens(29.673592f, {0, 1, 2, 3}, kFpsWith60, Focus::kAuto)},
    }},
    {lumen_api::kCameraPositionFront, {
        {lumen_api::kLensTypeMain,
         Lens(56.818184f, {0, 1}, kFpsWith60, Focus::kFixed)},
        {lumen_api::kLensTypeFrontWide,
         Lens(56.818184f, {0, 1}, kFpsUpTo30, Focus::kFixed)},
    }},
});
// clang-format on

NodeTuningMap static_camera_characteristics_table = {
    {{0, -1, -1, -1, -1}, &static_camera_characteristics},
};

TuningMap registry = {
    {q3a_api::kActuator, &actuator_table},
    {q3a_api::kAe, &ae_table},
    {q3a_api::kAf, &af_table},
    {q3a_api::kCdaf, &cdaf_table},
    {q3a_api::kAwb, &awb_table},
    {q3a_api::kStaticCameraCharacteristics,
     &static_camera_characteristics_table},
    {q3a_api::kCameraSessionParameters, &camera_session_parameters_table},
};

}  // namespace

namespace q3a_coordinator::internal {

const TuningMap& BuiltInRegistry() { return registry; }

}  // namespace q3a_coordinator::internal
