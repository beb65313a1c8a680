// Contrast-detect configuration of the gn1 sensor (main camera), binning
// preview: the statistics are taken the same way as in full-resolution
// preview, so it carries the same two blocks.
#ifndef TUNING_CDAF_CDAF_TUNING_GN1_BINNING_PREVIEW_H_
#define TUNING_CDAF_CDAF_TUNING_GN1_BINNING_PREVIEW_H_

#include "coordinator/qaf_tuning.h"
#include "tuning/cdaf/cdaf_tuning_gn1_preview.h"
#include "tuning/tuning_source_dir.h"

namespace q3a_tuning::cdaf_gn1_binning_preview {

inline constexpr char kName[] =
    Q3A_TUNING_SOURCE_DIR "tuning/cdaf/cdaf_tuning_gn1_binning_preview.h";

inline constexpr const qaf::CdafConfigBlock& kFirstConfig =
    cdaf_gn1_preview::kFirstConfig;
inline constexpr const qaf::CdafConfigBlock& kSecondConfig =
    cdaf_gn1_preview::kSecondConfig;

}  // namespace q3a_tuning::cdaf_gn1_binning_preview

#endif  // TUNING_CDAF_CDAF_TUNING_GN1_BINNING_PREVIEW_H_
