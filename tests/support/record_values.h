// Record contents generated from the field lists: every scalar gets a
// distinct value valid for its type (bools alternate, frame-summary kinds stay
// in -1..9), so a field converted to the wrong place or not at all shows up.
// Padding is left zero.
#ifndef TESTS_SUPPORT_RECORD_VALUES_H_
#define TESTS_SUPPORT_RECORD_VALUES_H_

#include <cstdint>
#include <cstring>
#include <memory>
#include <type_traits>

#include "awb_records/qawb_shared_records.h"
#include "awb_records/record_description.h"
#include "tests/support/file_bytes.h"

namespace q3a_test {

class RecordValues {
 public:
  // Different seeds give different values in every scalar.
  explicit RecordValues(int seed) : next_(seed * 100003 + 1) {}

  template <typename T>
  void Fill(T& field) {
    if constexpr (std::is_array_v<T>) {
      for (auto& element : field) Fill(element);
    } else if constexpr (qawb::DescribedRecord<T>) {
      ForEachField(field, [&](const char*, auto& member) { Fill(member); });
    } else if constexpr (std::is_same_v<T, qawb::QAWBFrameSummaryType>) {
      field = static_cast<T>(Next() % 11 - 1);
    } else if constexpr (std::is_same_v<T, bool>) {
      field = Next() % 2 == 1;
    } else if constexpr (std::is_floating_point_v<T>) {
      field = static_cast<T>(Next()) * 0.25f;
    } else {
      // Wraps in narrow types; any bit pattern is a valid integer.
      field = static_cast<T>(Next() * 7);
    }
  }

 private:
  int Next() { return next_++; }

  int next_;
};

// A zeroed record on the heap (tables are tens of kilobytes) filled with the
// values of `seed`.
template <typename Record>
std::unique_ptr<Record> MakeRecord(int seed) {
  auto record = std::make_unique<Record>();
  std::memset(static_cast<void*>(record.get()), 0, sizeof(Record));
  RecordValues(seed).Fill(*record);
  return record;
}

}  // namespace q3a_test

#endif  // TESTS_SUPPORT_RECORD_VALUES_H_
