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

// A value set in a message field that the record holds narrower, and what
// the record then holds, widened back, which converting back also gives.
struct Narrowed {
  std::int32_t given;
  std::int32_t kept;
};

// Converts `message` into `record` and back.
template <typename Message, typename Record>
Message ThroughRecord(const Message& message, Record& record) {
  protomsg::ConvertToStruct(message, record);
  Message back;
  protomsg::ConvertToMessage(record, back);
  return back;
}

TEST(NarrowFields, VersionKeepsLowSixteenBitsUnsigned) {
  for (const auto [given, kept] :
       {Narrowed{70000, 4464}, {-1, 65535}, {65536, 0}, {3, 3}}) {
    qawb::tuning::QAWBParameterVersion message;
    message.set_major(given);
    message.set_minor(given);
    qawb::QAWBParameterVersion record{};
    EXPECT_EQ(ThroughRecord(message, record).major(), kept) << given;
    EXPECT_EQ(record.major, kept) << given;
    EXPECT_EQ(record.minor, kept) << given;
  }
}

TEST(NarrowFields, LuminanceScalarFactorUnsignedThresholdsSigned) {
  for (const auto [given, kept] :
       {Narrowed{40000, -25536}, {65537, 1}, {-2, -2}}) {
    qawb::tuning::QAWBLuminanceWeight message;
    message.set_scalar_factor(given);
    message.add_threshold_list(given);
    qawb::QAWBLuminanceWeight record{};
    const auto back = ThroughRecord(message, record);
    EXPECT_EQ(record.scalar_factor, static_cast<std::uint16_t>(given));
    EXPECT_GE(back.scalar_factor(), 0) << given;
    EXPECT_EQ(record.threshold_list[0], kept) << given;
    EXPECT_EQ(back.threshold_list(0), kept) << given;
  }
}

TEST(NarrowFields, AsdStrategyKeepsLowByteAndLeavesPaddingAlone) {
  for (const auto [given, kept] :
       {Narrowed{300, 44}, {200, -56}, {-1, -1}, {-3, -3}}) {
    qawb::tuning::QAWBAsdAggregatorTuningTable message;
    message.set_strategy(given);
    qawb::QAWBAsdAggregatorTuningTable record;
    std::memset(&record, 0xAB, sizeof(record));
    EXPECT_EQ(ThroughRecord(message, record).strategy(), kept) << given;
    EXPECT_EQ(record.strategy, kept) << given;
    for (std::uint8_t byte : record.padding) EXPECT_EQ(byte, 0xAB);
  }
}

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
