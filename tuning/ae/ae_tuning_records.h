// The 21 built-in auto-exposure records, constant data registered in place.
#ifndef TUNING_AE_AE_TUNING_RECORDS_H_
#define TUNING_AE_AE_TUNING_RECORDS_H_

#include "coordinator/ae_tuning_record.h"

namespace q3a_tuning::ae {

// Main camera (gn1).
extern const AeTuningRecord kMainPreview;
extern const AeTuningRecord kMainUseCase13;
extern const AeTuningRecord kMainVideo;
extern const AeTuningRecord kMainUseCase16;
extern const AeTuningRecord kMainUseCase14;
extern const AeTuningRecord kMainUseCase15;
extern const AeTuningRecord kMainVideoSensorMode3;
// Ultra-wide camera.
extern const AeTuningRecord kWidePreview;
extern const AeTuningRecord kWideUseCase13;
extern const AeTuningRecord kWideVideo;
extern const AeTuningRecord kWideUseCase16;
extern const AeTuningRecord kWideUseCase14;
// Front camera, both lens types.
extern const AeTuningRecord kFrontPreview;
extern const AeTuningRecord kFrontUseCase13;
extern const AeTuningRecord kFrontVideo;
extern const AeTuningRecord kFrontUseCase14;
extern const AeTuningRecord kFrontUseCase11;
extern const AeTuningRecord kFrontUseCase12;
// Tele camera (imx586).
extern const AeTuningRecord kTelePreview;
extern const AeTuningRecord kTeleUseCase13;
extern const AeTuningRecord kTeleVideo;

}  // namespace q3a_tuning::ae

#endif  // TUNING_AE_AE_TUNING_RECORDS_H_
