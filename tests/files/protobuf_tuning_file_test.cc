// Binary tuning files with broken wire format, read as a basic table over a
// table of known contents. Rejected files leave every byte of the table as it
// was; where protobuf's parser accepts a file, the test fixes what the table
// ends up holding.
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

#include "protomsg/tuning_files.h"
#include "tests/files/basic_table_read.h"
#include "tests/support/file_bytes.h"
#include "tests/support/record_values.h"
#include "tests/support/scoped_temp_dir.h"

namespace {

using q3a_test::SameBytes;
using qawb::QAWBBasicTuningTable;

struct ProtobufCase {
  const char* name;
  std::string bytes;
  bool accepted;
  // The table's initial_cct after an accepted read.
  int32_t initial_cct = 0;
};

std::string Bytes(std::initializer_list<uint8_t> bytes) {
  return std::string(bytes.begin(), bytes.end());
}

// Tags of the basic table: version is field 1 (a message), initial_cct is
// field 3 (sint32, zigzag varint).
const ProtobufCase kProtobufCases[] = {
    {"FieldNumberZero", Bytes({0x00, 0x01}), false},
    {"WireType6", Bytes({0x1e, 0x01}), false},
    {"WireType7", Bytes({0x1f, 0x01}), false},
    {"EndGroupWithoutStart", Bytes({0x1c}), false},
    {"StartGroupNeverEnded", Bytes({0x1b, 0x18, 0x02}), false},
    {"TruncatedTag", Bytes({0x80}), false},
    {"TruncatedVarint", Bytes({0x18, 0x80}), false},
    {"VarintOfElevenBytes",
     Bytes({0x18, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff,
            0x01}),
     false},
    {"LengthPastTheEnd", Bytes({0x0a, 0x7f, 0x08, 0x02}), false},
    {"LengthOfTwoGiB", Bytes({0x0a, 0x80, 0x80, 0x80, 0x80, 0x08}), false},
    {"SubMessageCutInside", Bytes({0x0a, 0x02, 0x08, 0x80}), false},
    {"FixedValueCut", Bytes({0x1d, 0x01, 0x02}), false},
    {"ValidThenGarbage", Bytes({0x18, 0x06, 0xff}), false},
    {"Valid", Bytes({0x18, 0x06}), true, 3},
    // Proto3 keeps what it does not know as unknown fields instead of
    // failing: an unknown field number, and a known field sent with another
    // wire type, both parse and leave that field at its default.
    {"UnknownFieldNumber", Bytes({0xf8, 0x07, 0x06}), true, 0},
    {"KnownFieldWithOtherWireType", Bytes({0x1d, 0x01, 0x02, 0x03, 0x04}), true,
     0},
    // A varint longer than 32 bits for a sint32 keeps its low 32 bits, as
    // the wire format defines.
    {"SintVarintOfTenBytes",
     Bytes({0x18, 0xfe, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0x01}),
     true, 2147483647},
};

class ProtobufTuningFileTest : public testing::TestWithParam<ProtobufCase> {};

TEST_P(ProtobufTuningFileTest, GivesTheExpectedResult) {
  const ProtobufCase& protobuf_case = GetParam();
  q3a_test::ExpectBasicTableRead(
      protomsg::ReadQAWBBasicTuningTableFromProtobuf, protobuf_case.bytes, 6,
      protobuf_case.accepted,
      [&](const QAWBBasicTuningTable& after, const QAWBBasicTuningTable&) {
        EXPECT_EQ(after.initial_cct, protobuf_case.initial_cct);
      });
}

INSTANTIATE_TEST_SUITE_P(BasicTable, ProtobufTuningFileTest,
                         testing::ValuesIn(kProtobufCases),
                         [](const testing::TestParamInfo<ProtobufCase>& info) {
                           return std::string(info.param.name);
                         });

// A deeply nested group inside an unknown field hits the parser's recursion
// limit instead of the stack's.
TEST(ProtobufTuningFile, DeepUnknownGroupsAreRejected) {
  q3a_test::ScopedTempDir dir;
  const std::string open_group = Bytes({0xfb, 0x07});  // field 127, group
  const std::string close_group = Bytes({0xfc, 0x07});
  std::string bytes;
  for (int i = 0; i < 100000; ++i) bytes += open_group;
  for (int i = 0; i < 100000; ++i) bytes += close_group;
  q3a_test::WriteFile(dir.File("deep.pb"), bytes);
  auto table = q3a_test::MakeRecord<QAWBBasicTuningTable>(7);
  const auto before = std::make_unique<QAWBBasicTuningTable>(*table);

  EXPECT_FALSE(protomsg::ReadQAWBBasicTuningTableFromProtobuf(
      dir.File("deep.pb"), *table));
  EXPECT_TRUE(SameBytes(*table, *before));
}

}  // namespace
