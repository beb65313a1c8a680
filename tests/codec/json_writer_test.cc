// The JSON printer against protobuf: for every record, printing it directly
// gives exactly the text MessageToJsonString gives for the message
// ConvertToMessage fills, and the direct reader takes that text back.
#include "protomsg/internal/json_writer.h"

#include <google/protobuf/util/json_util.h>
#include <gtest/gtest.h>
#include <simdjson.h>

#include <bit>
#include <cstdint>
#include <memory>
#include <string>

#include "protomsg/internal/json_options.h"
#include "protomsg/internal/json_reader.h"
#include "tests/codec/codec_reference.h"
#include "tests/support/record_pairs.h"
#include "tests/support/record_values.h"

namespace {

using protomsg::internal::PrintJson;

template <typename Record>
std::string ReferencePrint(const Record& record) {
  typename q3a_test::MessageOf<Record>::type message;
  protomsg::ConvertToMessage(record, message);
  std::string text;
  EXPECT_TRUE(google::protobuf::util::MessageToJsonString(
                  message, &text, protomsg::internal::TuningFilePrintOptions())
                  .ok());
  return text;
}

template <typename Record>
std::string Print(const Record& record) {
  std::string text;
  PrintJson(record, text);
  return text;
}

Q3A_RECORD_PAIR_TEST_SUITE(JsonPrinter);

TYPED_TEST(JsonPrinter, MatchesMessageToJsonString) {
  using Record = typename TypeParam::Record;
  for (int seed : {0, 3}) {
    SCOPED_TRACE(seed);
    const auto record = q3a_test::MakeRecord<Record>(seed);
    EXPECT_EQ(Print(*record), ReferencePrint(*record));
  }
  for (int phase = 0; phase < 7; ++phase) {
    SCOPED_TRACE(phase);
    const auto record = q3a_test::MakeEdgeRecord<Record>(phase);
    EXPECT_EQ(Print(*record), ReferencePrint(*record));
  }
}

// What the printer writes, the direct reader takes whole: the files the
// library writes never need protobuf's parser.
TYPED_TEST(JsonPrinter, DirectReaderTakesPrintedText) {
  using Record = typename TypeParam::Record;
  const auto record = q3a_test::MakeRecord<Record>(5);
  const std::string text = Print(*record);
  simdjson::ondemand::parser parser;
  const simdjson::padded_string padded(text);
  auto read = q3a_test::MakeRecord<Record>(9);
  ASSERT_TRUE(protomsg::internal::ReadCanonicalJson(parser, padded, *read));
  EXPECT_TRUE(q3a_test::SameBytes(*read, *record));
}

// Floats whose shortest round-tripping form needs 6 or 9 digits, either
// notation, and the limits of the type.
TEST(JsonPrinter, FloatsMatchProtobuf) {
  constexpr std::uint32_t kBits[] = {
      0x3DCCCCCDu,  // 0.1
      0x3727C5ACu,  // 1e-05
      0x47F12000u,  // 123456
      0x4996B438u,  // 1234567
      0x4B800001u,  // 16777218
      0x7F7FFFFFu,  // largest finite
      0x00800000u,  // smallest normal
      0x00000001u,  // smallest denormal
      0x3EAAAAABu,  // 1/3
      0x501502F9u,  // 1e10
      0x38D1B717u,  // 1e-4
      0xC2F6E979u,  // -123.456
      0x80000000u,  // -0
      0xFF800000u,  // -infinity
      0x7FC00000u,  // NaN
  };
  for (std::uint32_t bits : kBits) {
    SCOPED_TRACE(bits);
    const qawb::QAWBGains gains{std::bit_cast<float>(bits), 1.0f,
                                -std::bit_cast<float>(bits)};
    EXPECT_EQ(Print(gains), ReferencePrint(gains));
  }
}

}  // namespace
