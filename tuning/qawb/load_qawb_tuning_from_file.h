// Builds the AWB tuning that the 3A coordinator runs with when tuning
// engineers override some of the four tables with JSON tuning files.
#ifndef TUNING_QAWB_LOAD_QAWB_TUNING_FROM_FILE_H_
#define TUNING_QAWB_LOAD_QAWB_TUNING_FROM_FILE_H_

#include <string>
#include <string_view>
#include <unordered_map>

#include "base/q3a_export.h"
#include "libs_v4/qAWB/src/base/qawb_tuning.h"

namespace q3a_coordinator {

// Fills one process-wide AWB tuning and returns it; every call returns the
// same address, and a later call changes what earlier results see.
//
// `files` maps "advance", "basic", "color" and "feature" (exact, case-
// sensitive; other keys are ignored) to JSON tuning file paths. Per table:
// no key copies `fixed`'s table (a null table there keeps the current one);
// an empty path, or a file that cannot be read or parsed, keeps the current
// table (the default table on the first call); a readable file replaces it,
// with fields the file leaves out read as zero, and logs the path and the
// table's version at DEBUG under "Q3ACoordinator".
//
// Returns null, touching nothing, if `fixed` is null. Not thread-safe:
// callers serialise calls against each other and against readers of the
// returned tuning.
Q3A_EXPORT const qawb::QAWBTuning* LoadQawbTuningFromFile(
    const std::unordered_map<std::string_view, std::string>& files,
    const qawb::QAWBTuning* fixed);

}  // namespace q3a_coordinator

#endif  // TUNING_QAWB_LOAD_QAWB_TUNING_FROM_FILE_H_
