// JSON tuning files that are broken, extreme or merely odd, read as a basic
// table over a table of known contents. Rejected files leave every byte of
// the table as it was; for files protobuf's JSON parser accepts, the test
// fixes exactly what the table ends up holding.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "protomsg/tuning_files.h"
#include "tests/files/basic_table_read.h"
#include "tests/support/file_bytes.h"
#include "tests/support/record_values.h"
#include "tests/support/scoped_temp_dir.h"

namespace {

using q3a_test::SameBytes;
using qawb::QAWBBasicTuningTable;

using Check = q3a_test::BasicTableCheck;

struct JsonCase {
  const char* name;
  std::string text;
  bool accepted;
  Check check = nullptr;
};

std::string Nested(int depth, const std::string& open, const std::string& inner,
                   const std::string& close) {
  std::string text;
  for (int i = 0; i < depth; ++i) text += open;
  text += inner;
  for (int i = 0; i < depth; ++i) text += close;
  return text;
}

// The luminance weights' bv_value_list (capacity 10) with `count` elements
// 1, 2, 3, ...
std::string LongBvValueList(int count) {
  std::string text = R"({"luminance_weight_table": {"bv_value_list": [)";
  text.reserve(text.size() + 8 * static_cast<std::size_t>(count));
  for (int i = 1; i <= count; ++i) {
    if (i > 1) text += ',';
    text += std::to_string(i);
  }
  return text + "]}}";
}

std::string WithGain(const std::string& value) {
  return R"({"initial_gain": {"r_gain": )" + value + "}}";
}

std::string WithCct(const std::string& value) {
  return R"({"initial_cct": )" + value + "}";
}

Check CctIs(int32_t expected) {
  return [expected](const auto& after, const auto&) {
    EXPECT_EQ(after.initial_cct, expected);
  };
}

Check GainIs(float expected) {
  return [expected](const auto& after, const auto&) {
    EXPECT_EQ(after.initial_gain.r_gain, expected);
  };
}

// A zero gain with the given sign.
Check GainHasSign(bool negative) {
  return [negative](const auto& after, const auto&) {
    EXPECT_EQ(after.initial_gain.r_gain, 0.0f);
    EXPECT_EQ(std::signbit(after.initial_gain.r_gain), negative);
  };
}

std::vector<JsonCase> JsonCases() {
  constexpr float kFloatMax = std::numeric_limits<float>::max();
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  return {
      // Numbers a field's type cannot hold are errors, not clamped.
      {"SintAboveRange", WithCct("2147483648"), false},
      {"SintBelowRange", WithCct("-2147483649"), false},
      {"SintWithFraction", WithCct("1.5"), false},
      {"SintNaN", WithCct(R"("NaN")"), false},
      {"FloatAboveRange", WithGain("3.4028236e38"), false},
      {"FloatFarAboveRange", WithGain("1e39"), false},
      {"FloatFarBelowRange", WithGain("-1e39"), false},
      {"FloatNaNUnquoted", WithGain("NaN"), false},
      {"FloatNaNLowerCase", WithGain(R"("nan")"), false},
      {"BoolAsNumber", R"({"luminance_weight_table": {"mask_list": [1]}})",
       false},
      {"SintMax", WithCct("2147483647"), true, CctIs(2147483647)},
      {"SintMin", WithCct("-2147483648"), true, CctIs(-2147483647 - 1)},
      // Integral numbers in other spellings are accepted by the JSON
      // mapping: exponents and quoted numbers.
      {"SintAsExponent", WithCct("1e2"), true, CctIs(100)},
      {"SintAsString", WithCct(R"("42")"), true, CctIs(42)},
      {"FloatMax", WithGain("3.4028235e38"), true, GainIs(kFloatMax)},
      // protobuf reads the bare number -0 through its integer path, so the
      // sign is lost; -0.0 and the string "-0" keep it.
      {"MinusZeroLosesItsSign", WithGain("-0"), true, GainHasSign(false)},
      {"MinusZeroPointZeroKeepsItsSign", WithGain("-0.0"), true,
       GainHasSign(true)},
      {"MinusZeroStringKeepsItsSign", WithGain(R"("-0")"), true,
       GainHasSign(true)},
      {"FloatUnderflowsToZero", WithGain("1e-50"), true, GainIs(0.0f)},
      // The JSON mapping spells the special floats as these strings, so they
      // reach the table as they are; the AWB algorithm sees a NaN gain.
      {"FloatNaN", WithGain(R"("NaN")"), true,
       [](const auto& after, const auto&) {
         EXPECT_TRUE(std::isnan(after.initial_gain.r_gain));
       }},
      {"FloatInfinity", WithGain(R"("Infinity")"), true, GainIs(kInfinity)},
      {"FloatMinusInfinity", WithGain(R"("-Infinity")"), true,
       GainIs(-kInfinity)},
      {"NullIsTheDefault", R"({"initial_cct": null, "version": null})", true,
       [](const auto& after, const auto&) {
         EXPECT_EQ(after.initial_cct, 0);
         EXPECT_EQ(after.version.major, 0);
       }},
      // protobuf's parser merges a repeated key into what came before
      // instead of rejecting it: the last scalar wins, messages merge.
      {"DuplicatedScalarKeepsTheLast",
       R"({"initial_cct": 1, "initial_cct": 2})", true, CctIs(2)},
      {"DuplicatedMessageMerges",
       R"({"version": {"major": 1}, "version": {"minor": 2}})", true,
       [](const auto& after, const auto&) {
         EXPECT_EQ(after.version.major, 1);
         EXPECT_EQ(after.version.minor, 2);
       }},
      {"DuplicatedListAppends",
       R"({"luminance_weight_table": {"bv_value_list": [1, 2], )"
       R"("bv_value_list": [3]}})",
       true,
       [](const auto& after, const auto& before) {
         const auto& list = after.luminance_weight_table.bv_value_list;
         EXPECT_EQ(list[0], 1);
         EXPECT_EQ(list[1], 2);
         EXPECT_EQ(list[2], 3);
         EXPECT_EQ(list[3], before.luminance_weight_table.bv_value_list[3]);
       }},
      // A list far over capacity fills the capacity and the rest is dropped;
      // nothing past the array is touched.
      {"MillionElementList", LongBvValueList(1000000), true,
       [](const auto& after, const auto& before) {
         const auto& list = after.luminance_weight_table.bv_value_list;
         for (int i = 0; i < 10; ++i) EXPECT_EQ(list[i], i + 1);
         EXPECT_TRUE(SameBytes(after.luminance_weight_table.threshold_list,
                               before.luminance_weight_table.threshold_list));
       }},
      // Nesting deeper than the parser's limit fails without exhausting the
      // stack, balanced or not.
      {"DeepArrays", std::string(100000, '['), false},
      {"DeepObjectsUnclosed", Nested(50000, R"({"version": )", "", ""), false},
      {"DeepObjectsBalanced", Nested(5000, R"({"version": )", "1", "}"), false},
      {"InvalidUtf8InKey", "{\"initial_cct\xff\": 1}", false},
      {"InvalidUtf8OutsideStrings", "{\xc3\x28}", false},
      {"InvalidUtf8InEnumName",
       R"({"grey_final_trust_level_list": {"bv_stats_trust_info": {)"
       "\"stats_type\": {\"target_region\": \"kQAWB\xed\xa0\x80\"}}}}",
       false},
      // A byte order mark is not JSON whitespace to protobuf's parser.
      {"ByteOrderMark", "\xef\xbb\xbf{}", false},
      {"EmbeddedNul", std::string("{}\0", 3), false},
      {"TrailingGarbage", "{} x", false},
      {"TwoDocuments", "{}{}", false},
      {"TopLevelArray", "[]", false},
      {"TopLevelNumber", "1", false},
      {"AnotherTablesField", R"({"outdoor_tuning_table": {}})", false},
      {"NestedFieldAtTopLevel", R"({"major": 1})", false},
      {"CamelCaseFieldName", R"({"initialCct": 5})", true, CctIs(5)},
  };
}

class JsonTuningFileTest : public testing::TestWithParam<JsonCase> {};

TEST_P(JsonTuningFileTest, GivesTheExpectedResult) {
  const JsonCase& json_case = GetParam();
  q3a_test::ExpectBasicTableRead(protomsg::ReadQAWBBasicTuningTableWithJson,
                                 json_case.text, 5, json_case.accepted,
                                 json_case.check);
}

INSTANTIATE_TEST_SUITE_P(BasicTable, JsonTuningFileTest,
                         testing::ValuesIn(JsonCases()),
                         [](const testing::TestParamInfo<JsonCase>& info) {
                           return std::string(info.param.name);
                         });

// The writer prints -0.0f as protobuf does, `-0`, which reads back as +0.0f:
// a JSON round trip keeps every float's value but not a zero's sign.
TEST(JsonTuningFileRoundTrip, MinusZeroComesBackAsPlusZero) {
  q3a_test::ScopedTempDir dir;
  auto table = q3a_test::MakeRecord<QAWBBasicTuningTable>(5);
  table->initial_gain.r_gain = -0.0f;
  protomsg::SaveTuningTableWithJson(dir.File("basic.json"), *table);
  EXPECT_NE(q3a_test::ReadFile(dir.File("basic.json")).find(R"("r_gain": -0,)"),
            std::string::npos);

  ASSERT_TRUE(protomsg::ReadQAWBBasicTuningTableWithJson(dir.File("basic.json"),
                                                         *table));
  EXPECT_EQ(table->initial_gain.r_gain, 0.0f);
  EXPECT_FALSE(std::signbit(table->initial_gain.r_gain));
}

}  // namespace
