// The wire encoder against protobuf: for every record, encoding it directly
// gives exactly the bytes of serialising the message ConvertToMessage fills.
#include "protomsg/internal/wire_encoder.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <memory>
#include <string>

#include "tests/codec/codec_reference.h"
#include "tests/support/record_pairs.h"
#include "tests/support/record_values.h"

namespace {

using protomsg::internal::EncodeRecord;
using q3a_test::ReferenceEncode;

Q3A_RECORD_PAIR_TEST_SUITE(WireEncoder);

TYPED_TEST(WireEncoder, MatchesSerializeOfConvertedMessage) {
  using Record = typename TypeParam::Record;
  for (int seed : {0, 1, 7}) {
    SCOPED_TRACE(seed);
    const auto record = q3a_test::MakeRecord<Record>(seed);
    EXPECT_EQ(EncodeRecord(*record), ReferenceEncode(*record));
  }
}

// All scalars zero leaves only sub-message headers and packed arrays.
TYPED_TEST(WireEncoder, MatchesSerializeOfZeroRecord) {
  using Record = typename TypeParam::Record;
  const auto record = std::make_unique<Record>();
  std::memset(static_cast<void*>(record.get()), 0, sizeof(Record));
  EXPECT_EQ(EncodeRecord(*record), ReferenceEncode(*record));
}

TYPED_TEST(WireEncoder, MatchesSerializeAtEdgeValues) {
  using Record = typename TypeParam::Record;
  for (int phase = 0; phase < 7; ++phase) {
    SCOPED_TRACE(phase);
    const auto record = q3a_test::MakeEdgeRecord<Record>(phase);
    EXPECT_EQ(EncodeRecord(*record), ReferenceEncode(*record));
  }
}

// A few encodings spelled out, so that a mistake shared with the
// reference's use (say, in the conversions) would still show.
TEST(WireEncoder, WritesKnownBytes) {
  qawb::QAWBParameterVersion version{3, 0};
  EXPECT_EQ(EncodeRecord(version), std::string("\x08\x06", 2));

  qawb::QAWBBVRange range{-1, INT32_MIN};
  EXPECT_EQ(EncodeRecord(range),
            std::string("\x08\x01\x10\xFF\xFF\xFF\xFF\x0F", 8));

  qawb::QAWBGains gains{-0.0f, 0.0f, 1.0f};
  EXPECT_EQ(EncodeRecord(gains),
            std::string("\x0D\x00\x00\x00\x80\x1D\x00\x00\x80\x3F", 10));

  qawb::QAWBTrustLevelStatsRegionType region{
      qawb::kQAWBFrameSummaryTypeGrey,
      2,
      {qawb::kQAWBFrameSummaryTypeMax,
       static_cast<qawb::QAWBFrameSummaryType>(10)}};
  EXPECT_EQ(EncodeRecord(region),
            std::string("\x08\x03\x10\x04\x1A\x02\x0A\x00", 8));
}

}  // namespace
