// The wire decoder against protobuf: for every record and for canonical and
// non-canonical input alike, decoding gives the result and the record bytes
// of parsing into a fresh message and converting it with ConvertToStruct,
// and a failed decode leaves the record as it was.
#include "protomsg/internal/wire_decoder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "protomsg/internal/wire_encoder.h"
#include "tests/codec/codec_reference.h"
#include "tests/codec/wire_mutations.h"
#include "tests/support/record_pairs.h"
#include "tests/support/record_values.h"

namespace {

using protomsg::internal::DecodeCanonicalRecord;
using protomsg::internal::DecodeRecord;
using protomsg::internal::EncodeRecord;
using q3a_test::SameBytes;

// Decodes `bytes` with both the decoder and the reference, each into its own
// copy of a record that already holds other values (so that kept array
// elements show), and expects the same result and the same bytes.
template <typename Record>
void ExpectDecodesLikeProtobuf(const std::string& bytes) {
  const auto start = q3a_test::MakeRecord<Record>(5);
  auto decoded = std::make_unique<Record>(*start);
  auto expected = std::make_unique<Record>(*start);
  const bool ok = DecodeRecord(bytes, *decoded);
  ASSERT_EQ(ok, q3a_test::ReferenceDecode(bytes, *expected));
  EXPECT_TRUE(SameBytes(*decoded, *expected));
}

Q3A_RECORD_PAIR_TEST_SUITE(WireDecoder);

TYPED_TEST(WireDecoder, DecodesEncodedRecordsOnTheCanonicalPath) {
  using Record = typename TypeParam::Record;
  std::vector<std::unique_ptr<Record>> sources;
  sources.push_back(q3a_test::MakeRecord<Record>(1));
  sources.push_back(q3a_test::MakeRecord<Record>(0));
  for (int phase = 0; phase < 3; ++phase) {
    sources.push_back(q3a_test::MakeEdgeRecord<Record>(phase));
  }
  for (const auto& source : sources) {
    const std::string bytes = EncodeRecord(*source);
    ExpectDecodesLikeProtobuf<Record>(bytes);
    auto canonical = q3a_test::MakeRecord<Record>(9);
    EXPECT_TRUE(DecodeCanonicalRecord(bytes, *canonical));
  }
  // Empty input is the empty message.
  ExpectDecodesLikeProtobuf<Record>("");
}

TYPED_TEST(WireDecoder, MatchesProtobufOnRewrittenInput) {
  using Record = typename TypeParam::Record;
  const std::string bytes = EncodeRecord(*q3a_test::MakeRecord<Record>(2));
  const auto& type = *TypeParam::Message::descriptor();
  const q3a_test::WireMutation kMutations[] = {
      {.reverse_fields = true},
      {.unpack_arrays = true},
      {.add_unknown_fields = true},
      {.reverse_fields = true,
       .unpack_arrays = true,
       .add_unknown_fields = true},
  };
  for (const auto& mutation : kMutations) {
    const std::string mutated = q3a_test::MutateWire(bytes, type, mutation);
    SCOPED_TRACE(testing::Message()
                 << mutation.reverse_fields << mutation.unpack_arrays
                 << mutation.add_unknown_fields);
    auto record = q3a_test::MakeRecord<Record>(3);
    ASSERT_TRUE(DecodeRecord(mutated, *record));
    ExpectDecodesLikeProtobuf<Record>(mutated);
  }
  // Twice over: singular fields repeat, sub-messages merge and every array
  // holds more elements than the record.
  ExpectDecodesLikeProtobuf<Record>(bytes + bytes);
  ExpectDecodesLikeProtobuf<Record>(
      bytes + EncodeRecord(*q3a_test::MakeEdgeRecord<Record>(1)));
}

// No field of the schema is a fixed64, so each field number given that wire
// type is, for protobuf, an unknown field it keeps apart; the fields that
// follow still count.
TYPED_TEST(WireDecoder, MatchesProtobufOnAFieldOfTheWrongWireType) {
  using Record = typename TypeParam::Record;
  const std::string bytes = EncodeRecord(*q3a_test::MakeRecord<Record>(6));
  const auto& type = *TypeParam::Message::descriptor();
  for (int i = 0; i < type.field_count(); ++i) {
    SCOPED_TRACE(type.field(i)->name());
    const auto tag = static_cast<std::uint32_t>(type.field(i)->number()) << 3 |
                     1;  // fixed64
    std::string wrong;
    for (std::uint32_t rest = tag; rest != 0; rest >>= 7) {
      wrong += static_cast<char>((rest & 0x7F) | (rest > 0x7F ? 0x80 : 0));
    }
    wrong.append(8, '\x5A');
    ExpectDecodesLikeProtobuf<Record>(wrong + bytes);
  }
}

TYPED_TEST(WireDecoder, RejectsTruncatedInputAndKeepsTheRecord) {
  using Record = typename TypeParam::Record;
  const std::string bytes = EncodeRecord(*q3a_test::MakeRecord<Record>(4));
  // Every cut of a small record; a spread of cuts through a large one.
  const std::size_t step = bytes.size() <= 256 ? 1 : bytes.size() / 97;
  for (std::size_t size = 0; size < bytes.size(); size += step) {
    SCOPED_TRACE(size);
    ExpectDecodesLikeProtobuf<Record>(bytes.substr(0, size));
  }
  ExpectDecodesLikeProtobuf<Record>(bytes.substr(0, bytes.size() - 1));
}

// Hand-made inputs on small records, for the wire-level cases a rewrite of
// valid bytes does not reach.
struct RawCase {
  const char* name;
  std::string bytes;
};

template <typename Record>
class RawInput : public ::testing::TestWithParam<RawCase> {};

std::string CaseName(const ::testing::TestParamInfo<RawCase>& info) {
  return info.param.name;
}

// A suite of hand-made inputs for `Record`, each decoded as protobuf does.
#define Q3A_RAW_INPUT_SUITE(Suite, Record)               \
  using Suite = RawInput<Record>;                        \
  TEST_P(Suite, DecodesLikeProtobuf) {                   \
    ExpectDecodesLikeProtobuf<Record>(GetParam().bytes); \
  }

std::string Bytes(std::initializer_list<unsigned char> bytes) {
  return std::string(bytes.begin(), bytes.end());
}

const RawCase kVarintCases[] = {
    {"overlong_value", Bytes({0x08, 0x82, 0x80, 0x00})},
    {"overlong_tag", Bytes({0x88, 0x00, 0x02})},
    {"ten_byte_value",
     Bytes({0x08, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x01})},
    {"ten_byte_value_high_last_byte",
     Bytes({0x08, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F})},
    {"eleven_byte_value", Bytes({0x08, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                                 0xFF, 0xFF, 0xFF, 0x01})},
    {"value_above_32_bits", Bytes({0x08, 0xFE, 0xFF, 0xFF, 0xFF, 0x7F})},
    {"unterminated_value", Bytes({0x08, 0x80})},
    {"field_number_zero", Bytes({0x00, 0x01})},
    {"six_byte_tag", Bytes({0x88, 0x80, 0x80, 0x80, 0x80, 0x00, 0x01})},
    {"tag_above_32_bits", Bytes({0x80, 0x80, 0x80, 0x80, 0x10, 0x01})},
    {"wrong_wire_type_fixed32", Bytes({0x0D, 0x01, 0x02, 0x03, 0x04})},
    {"wrong_wire_type_length", Bytes({0x0A, 0x01, 0x05})},
    {"wrong_wire_type_fixed64", Bytes({0x09, 1, 2, 3, 4, 5, 6, 7, 8})},
    {"end_group_alone", Bytes({0x0C})},
    {"unknown_then_known", Bytes({0xF8, 0x01, 0x05, 0x08, 0x04})},
    {"same_field_twice", Bytes({0x08, 0x04, 0x08, 0x06})},
    {"later_field_first", Bytes({0x10, 0x04, 0x08, 0x06})},
};

// bv_value (sint32) and weight_list (36 packed sint32).
Q3A_RAW_INPUT_SUITE(IlluminantWeight, qawb::QAWBIlluminantWeightData)
INSTANTIATE_TEST_SUITE_P(Varints, IlluminantWeight,
                         ::testing::ValuesIn(kVarintCases), CaseName);
INSTANTIATE_TEST_SUITE_P(
    Arrays, IlluminantWeight,
    ::testing::Values(
        RawCase{"packed_short", Bytes({0x12, 0x02, 0x03, 0x04})},
        RawCase{"packed_twice", Bytes({0x12, 0x01, 0x03, 0x12, 0x01, 0x05})},
        RawCase{"packed_empty", Bytes({0x12, 0x00})},
        RawCase{"packed_then_unpacked", Bytes({0x12, 0x01, 0x03, 0x10, 0x05})},
        RawCase{"packed_length_past_end", Bytes({0x12, 0x05, 0x03})},
        RawCase{"packed_cut_varint", Bytes({0x12, 0x01, 0x83, 0x01})},
        RawCase{"length_five_bytes",
                Bytes({0x12, 0x81, 0x80, 0x80, 0x80, 0x00, 0x03})},
        RawCase{"length_above_2g",
                Bytes({0x12, 0xFF, 0xFF, 0xFF, 0xFF, 0x0F, 0x03})}),
    CaseName);

// target_region (enum), base_region_number, base_region (2 packed enums).
Q3A_RAW_INPUT_SUITE(RegionType, qawb::QAWBTrustLevelStatsRegionType)
INSTANTIATE_TEST_SUITE_P(
    Enums, RegionType,
    ::testing::Values(
        RawCase{"negative_enum", Bytes({0x08, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                                        0xFF, 0xFF, 0xFF, 0xFF, 0x01})},
        RawCase{"enum_above_max", Bytes({0x08, 0x0B})},
        RawCase{"packed_three_of_two", Bytes({0x1A, 0x03, 0x01, 0x0A, 0x02})},
        RawCase{"packed_one_of_two", Bytes({0x1A, 0x01, 0x0A})}),
    CaseName);

// bv_number and bv_trust_list (6 sub-messages {sint32, float}).
Q3A_RAW_INPUT_SUITE(TrustLevelSet, qawb::QAWBTrustLevelBVSet)
INSTANTIATE_TEST_SUITE_P(
    SubMessages, TrustLevelSet,
    ::testing::Values(
        RawCase{"element_length_past_end", Bytes({0x12, 0x07, 0x08, 0x02})},
        RawCase{"element_cut_float", Bytes({0x12, 0x03, 0x15, 0x00, 0x00})},
        RawCase{"elements_split_by_other_field",
                Bytes({0x12, 0x02, 0x08, 0x02, 0x08, 0x04, 0x12, 0x00})},
        RawCase{"seven_elements",
                Bytes({0x12, 0x00, 0x12, 0x00, 0x12, 0x00, 0x12, 0x00, 0x12,
                       0x00, 0x12, 0x00, 0x12, 0x02, 0x08, 0x01})},
        RawCase{"seventh_element_broken",
                Bytes({0x12, 0x00, 0x12, 0x00, 0x12, 0x00, 0x12, 0x00, 0x12,
                       0x00, 0x12, 0x00, 0x12, 0x02, 0x08, 0x80})},
        RawCase{"element_with_unknown_field",
                Bytes({0x12, 0x03, 0x18, 0x01, 0x08, 0x08, 0x02})},
        RawCase{"element_fields_reversed",
                Bytes({0x12, 0x07, 0x15, 0x00, 0x00, 0x80, 0x3F, 0x08, 0x02})},
        RawCase{"nested_end_group", Bytes({0x12, 0x01, 0x0C})}),
    CaseName);

// ccm (9 packed floats) and offset (3 packed floats).
Q3A_RAW_INPUT_SUITE(ColorMatrix, qawb::QAWBColorCorrectMatrix)
INSTANTIATE_TEST_SUITE_P(
    Floats, ColorMatrix,
    ::testing::Values(
        RawCase{"packed_length_not_whole_floats",
                Bytes({0x0A, 0x05, 0x00, 0x00, 0x80, 0x3F, 0x00})},
        RawCase{"packed_three_bytes", Bytes({0x0A, 0x03, 0x00, 0x00, 0x80})},
        RawCase{"packed_four_of_three",
                Bytes({0x12, 0x10, 0, 0, 0x80, 0x3F, 0, 0, 0, 0x40, 0, 0, 0x40,
                       0x40, 0, 0, 0x80, 0x40})},
        RawCase{"unpacked_float", Bytes({0x15, 0x00, 0x00, 0x80, 0x3F})},
        RawCase{"unpacked_cut_float", Bytes({0x15, 0x00, 0x00})}),
    CaseName);

}  // namespace
