// For fuzz targets that check every record type: the input's first byte picks
// the type (the four tables first, then every record), the rest goes to that
// type's check.
#ifndef FUZZ_RECORD_TYPE_DISPATCH_H_
#define FUZZ_RECORD_TYPE_DISPATCH_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "awb_records/all_records.h"
#include "awb_records/tuning_tables.h"

namespace q3a_fuzz {

using RecordCheck = void (*)(std::string_view);

// `Check<Record>::Run` for every record type, tables first.
template <template <typename> class Check, typename... Tables,
          typename... Records>
constexpr auto ChecksOf(qawb::TypeList<Tables...>, qawb::TypeList<Records...>) {
  return std::array<RecordCheck, sizeof...(Tables) + sizeof...(Records)>{
      &Check<Tables>::Run..., &Check<Records>::Run...};
}

// Runs the check that the first byte of `data` picks on the rest of it.
template <template <typename> class Check>
void RunSelectedRecordCheck(const uint8_t* data, std::size_t size) {
  static constexpr auto kChecks =
      ChecksOf<Check>(qawb::TuningTables{}, qawb::AllRecords{});
  if (size == 0) return;
  kChecks[data[0] % kChecks.size()](
      std::string_view(reinterpret_cast<const char*>(data) + 1, size - 1));
}

}  // namespace q3a_fuzz

#endif  // FUZZ_RECORD_TYPE_DISPATCH_H_
