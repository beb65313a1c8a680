// Expectations over whole records, walked through their field lists.
#ifndef TESTS_SUPPORT_RECORD_CHECKS_H_
#define TESTS_SUPPORT_RECORD_CHECKS_H_

#include <gtest/gtest.h>

#include <type_traits>

#include "awb_records/qawb_shared_records.h"
#include "awb_records/record_description.h"
#include "tests/support/record_values.h"

namespace q3a_test {

// Expects the sub-record `after` to be what an absent sub-message leaves:
// scalars 0 (frame-summary kinds -1) at every depth, arrays as `before`.
template <typename Record>
void ExpectDefaultScalarsAndKeptArrays(const Record& after,
                                       const Record& before) {
  qawb::ForEachFieldPair(
      after, before, [&](const char* name, const auto& field, const auto& old) {
        using Field = std::remove_cvref_t<decltype(field)>;
        if constexpr (std::is_array_v<Field>) {
          EXPECT_TRUE(SameBytes(field, old)) << name << " changed";
        } else if constexpr (qawb::DescribedRecord<Field>) {
          ExpectDefaultScalarsAndKeptArrays(field, old);
        } else if constexpr (std::is_same_v<Field,
                                            qawb::QAWBFrameSummaryType>) {
          EXPECT_EQ(field, qawb::kQAWBFrameSummaryTypeInvalid) << name;
        } else {
          EXPECT_EQ(field, Field{}) << name;
        }
      });
}
}  // namespace q3a_test

#endif  // TESTS_SUPPORT_RECORD_CHECKS_H_
