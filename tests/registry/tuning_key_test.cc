#include "coordinator/tuning_key.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

namespace {

using q3a_api::TuningKey;

TEST(TuningKeyHash, MatchesReferenceValues) {
  const q3a_api::TuningKeyHash hash;
  EXPECT_EQ(hash({0, 0, 0, 0, 0}), 0x00A3B7D46BDE6AA5u);
  EXPECT_EQ(hash({0, -1, -1, -1, -1}), 0x01B78AC1C1CB89A6u);
  EXPECT_EQ(hash({1, -1, 1, 0, -1}), 0x00A3C7968E8D6918u);
}

TEST(TuningKeyHash, DependsOnWhichFieldHoldsAValue) {
  const q3a_api::TuningKeyHash hash;
  EXPECT_NE(hash({0, 0, 1, 0, 0}), hash({0, 0, 0, 0, 0}));
  EXPECT_NE(hash({1, 2, 1, 0, -1}), hash({2, 1, 1, 0, -1}));
}

TEST(TuningKey, EqualityComparesAllFiveFields) {
  const TuningKey base = {1, 2, 3, 4, 5};
  EXPECT_EQ(base, (TuningKey{1, 2, 3, 4, 5}));
  // Swapping any two fields with different values gives a different key.
  for (int i = 0; i < 5; ++i) {
    for (int j = i + 1; j < 5; ++j) {
      std::array<int, 5> fields = {1, 2, 3, 4, 5};
      std::swap(fields[i], fields[j]);
      const TuningKey swapped = {fields[0], fields[1], fields[2], fields[3],
                                 fields[4]};
      EXPECT_NE(base, swapped) << i << "," << j;
    }
  }
  // -1 is a value like any other, not a wildcard.
  EXPECT_NE((TuningKey{0, -1, 1, 0, -1}), (TuningKey{0, 1, 1, 0, -1}));
}

}  // namespace
