#include "coordinator/tuning_key.h"

#include <gtest/gtest.h>

namespace {
TEST(TuningKeyHash, MatchesReferenceValues) {
  q3a_api::TuningKeyHash hash;
  EXPECT_EQ(hash({0, 0, 0, 0, 0}), 0x00A3B7D46BDE6AA5u);
  EXPECT_EQ(hash({0, -1, -1, -1, -1}), 0x01B78AC1C1CB89A6u);
  EXPECT_EQ(hash({1, -1, 1, 0, -1}), 0x00A3C7968E8D6918u);
}
}  // namespace
