// Conversions where a record field is narrower or shaped differently from its
// message field: narrowing keeps the low bits, widening follows the record
// type's signedness, the frame-summary kinds shift by one, the flag matrix
// flattens row after row.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstring>

#include "protomsg/record_conversions.h"

namespace {

using qawb::tuning::QAWBFrameSummaryType;

struct ScalarCase {
  std::int32_t message_value;
  std::int32_t stored;        // what the record holds, widened back
  std::int32_t message_back;  // what converting the record back gives
};

class VersionNarrowing : public ::testing::TestWithParam<ScalarCase> {};

TEST_P(VersionNarrowing, KeepsLowSixteenBitsUnsigned) {
  qawb::tuning::QAWBParameterVersion message;
  message.set_major(GetParam().message_value);
  message.set_minor(GetParam().message_value);
  qawb::QAWBParameterVersion record{};
  protomsg::ConvertToStruct(message, record);
  EXPECT_EQ(record.major, GetParam().stored);
  EXPECT_EQ(record.minor, GetParam().stored);

  qawb::tuning::QAWBParameterVersion back;
  protomsg::ConvertToMessage(record, back);
  EXPECT_EQ(back.major(), GetParam().message_back);
}

INSTANTIATE_TEST_SUITE_P(Cases, VersionNarrowing,
                         ::testing::Values(ScalarCase{70000, 4464, 4464},
                                           ScalarCase{-1, 65535, 65535},
                                           ScalarCase{65536, 0, 0},
                                           ScalarCase{3, 3, 3}));

class LuminanceNarrowing : public ::testing::TestWithParam<ScalarCase> {};

TEST_P(LuminanceNarrowing, ScalarFactorUnsignedThresholdsSigned) {
  qawb::tuning::QAWBLuminanceWeight message;
  message.set_scalar_factor(GetParam().message_value);
  message.add_threshold_list(GetParam().message_value);
  qawb::QAWBLuminanceWeight record{};
  protomsg::ConvertToStruct(message, record);
  EXPECT_EQ(record.scalar_factor,
            static_cast<std::uint16_t>(GetParam().message_value));
  EXPECT_EQ(record.threshold_list[0], GetParam().stored);

  qawb::tuning::QAWBLuminanceWeight back;
  protomsg::ConvertToMessage(record, back);
  EXPECT_EQ(back.threshold_list(0), GetParam().message_back);
  EXPECT_GE(back.scalar_factor(), 0);
}

INSTANTIATE_TEST_SUITE_P(Cases, LuminanceNarrowing,
                         ::testing::Values(ScalarCase{40000, -25536, -25536},
                                           ScalarCase{65537, 1, 1},
                                           ScalarCase{-2, -2, -2}));

class AsdStrategy : public ::testing::TestWithParam<ScalarCase> {};

TEST_P(AsdStrategy, KeepsLowByteAndLeavesPaddingAlone) {
  qawb::tuning::QAWBAsdAggregatorTuningTable message;
  message.set_strategy(GetParam().message_value);
  qawb::QAWBAsdAggregatorTuningTable record;
  std::memset(&record, 0xAB, sizeof(record));
  protomsg::ConvertToStruct(message, record);
  EXPECT_EQ(record.strategy, GetParam().stored);
  for (std::uint8_t byte : record.padding) EXPECT_EQ(byte, 0xAB);

  qawb::tuning::QAWBAsdAggregatorTuningTable back;
  protomsg::ConvertToMessage(record, back);
  EXPECT_EQ(back.strategy(), GetParam().message_back);
}

INSTANTIATE_TEST_SUITE_P(Cases, AsdStrategy,
                         ::testing::Values(ScalarCase{300, 44, 44},
                                           ScalarCase{200, -56, -56},
                                           ScalarCase{-1, -1, -1},
                                           ScalarCase{-3, -3, -3}));

TEST(FrameSummaryType, RecordValuesOutsideZeroToNineBecomeInvalid) {
  const struct {
    int record;
    QAWBFrameSummaryType message;
  } cases[] = {{-1, qawb::tuning::kQAWBFrameSummaryTypeInvalid},
               {10, qawb::tuning::kQAWBFrameSummaryTypeInvalid},
               {INT_MIN, qawb::tuning::kQAWBFrameSummaryTypeInvalid},
               {0, qawb::tuning::kQAWBFrameSummaryTypeTotalStats},
               {2, qawb::tuning::kQAWBFrameSummaryTypeGrey},
               {9, qawb::tuning::kQAWBFrameSummaryTypeMax}};
  for (const auto& c : cases) {
    EXPECT_EQ(protomsg::ConvertToMessage(
                  static_cast<qawb::QAWBFrameSummaryType>(c.record)),
              c.message)
        << c.record;
  }
}

TEST(FrameSummaryType, MessageValuesOutsideOneToTenBecomeMinusOne) {
  const struct {
    int message;
    int record;
  } cases[] = {{0, -1}, {11, -1}, {-5, -1}, {1, 0}, {10, 9}, {4, 3}};
  for (const auto& c : cases) {
    EXPECT_EQ(
        protomsg::ConvertToStruct(static_cast<QAWBFrameSummaryType>(c.message)),
        c.record)
        << c.message;
  }
}

TEST(FrameSummaryType, StatsRegionConvertsEachElement) {
  qawb::tuning::QAWBTrustLevelStatsRegionType message;
  message.set_target_region(qawb::tuning::kQAWBFrameSummaryTypeInvalid);
  message.set_base_region_number(3);
  for (int value : {10, 0, 5}) {
    message.add_base_region(static_cast<QAWBFrameSummaryType>(value));
  }
  qawb::QAWBTrustLevelStatsRegionType record{};
  protomsg::ConvertToStruct(message, record);
  EXPECT_EQ(record.target_region, qawb::kQAWBFrameSummaryTypeInvalid);
  EXPECT_EQ(record.base_region[0], qawb::kQAWBFrameSummaryTypeMax);
  EXPECT_EQ(record.base_region[1], qawb::kQAWBFrameSummaryTypeInvalid);

  record.target_region = static_cast<qawb::QAWBFrameSummaryType>(12);
  qawb::tuning::QAWBTrustLevelStatsRegionType back;
  protomsg::ConvertToMessage(record, back);
  EXPECT_EQ(back.target_region(), qawb::tuning::kQAWBFrameSummaryTypeInvalid);
  EXPECT_EQ(back.base_region(0), qawb::tuning::kQAWBFrameSummaryTypeMax);
}

TEST(MaskList, FlattensRowAfterRow) {
  for (int given : {20, 100}) {
    SCOPED_TRACE(given);
    qawb::tuning::QAWBLuminanceWeight message;
    for (int i = 0; i < given; ++i) message.add_mask_list(i % 3 == 0);
    qawb::QAWBLuminanceWeight record;
    std::memset(&record, 0, sizeof(record));
    for (auto& row : record.mask_list) {
      for (bool& flag : row) flag = true;
    }
    protomsg::ConvertToStruct(message, record);
    for (int i = 0; i < 90; ++i) {
      const bool expected = i < given ? i % 3 == 0 : true;
      EXPECT_EQ(record.mask_list[i / 9][i % 9], expected) << i;
    }

    qawb::tuning::QAWBLuminanceWeight back;
    protomsg::ConvertToMessage(record, back);
    ASSERT_EQ(back.mask_list_size(), 90);
    EXPECT_EQ(back.mask_list(10), record.mask_list[1][1]);
  }
}

TEST(MaskList, AnyNonZeroByteIsTrue) {
  qawb::QAWBLuminanceWeight record;
  std::memset(&record, 0, sizeof(record));
  std::memset(&record.mask_list[0][3], 0x02, 1);
  qawb::tuning::QAWBLuminanceWeight message;
  protomsg::ConvertToMessage(record, message);
  EXPECT_TRUE(message.mask_list(3));
  EXPECT_FALSE(message.mask_list(4));
}

TEST(ConvertToMessage, AppendsToWhatTheMessageHolds) {
  qawb::QAWBIlluminantWeightData record{};
  qawb::tuning::QAWBIlluminantWeightData message;
  protomsg::ConvertToMessage(record, message);
  protomsg::ConvertToMessage(record, message);
  EXPECT_EQ(message.weight_list_size(), 72);
}

}  // namespace
