// The JSON readers (the direct reader, protobuf's path where it is not
// certain) must agree with protobuf's JsonStringToMessage followed by
// ConvertToStruct on whatever the text holds, in whatever order, and the
// forms people commonly write must not need protobuf's path.
#include "protomsg/internal/json_reader.h"

#include <google/protobuf/util/json_util.h>
#include <gtest/gtest.h>
#include <simdjson.h>

#include <fstream>
#include <memory>
#include <string>

#include "protomsg/internal/json_options.h"
#include "protomsg/record_conversions.h"
#include "protomsg/tuning_files.h"
#include "protomsg/tuning_table_traits.h"
#include "tests/support/record_values.h"
#include "tests/support/scoped_temp_dir.h"

namespace {

namespace util = google::protobuf::util;

struct JsonCase {
  const char* name;
  const char* text;
};

// Reads `text` as a file into a table of `Table` with the library's reader
// and with protobuf: the same verdict and the same bytes (on failure, the
// start values) in both.
template <typename Table>
void ExpectReadAsProtobuf(const std::string& text) {
  q3a_test::ScopedTempDir dir;
  const std::string path = dir.File("table.json");
  std::ofstream(path) << text;

  const auto start = q3a_test::MakeRecord<Table>(6);
  auto read = std::make_unique<Table>(*start);
  auto expected = std::make_unique<Table>(*start);
  const bool ok = protomsg::TuningTableTraits<Table>::kReadJson(path, *read);

  typename protomsg::TuningTableTraits<Table>::Message message;
  const bool parsed =
      util::JsonStringToMessage(text, &message,
                                protomsg::internal::TuningFileParseOptions())
          .ok();
  if (parsed) protomsg::ConvertToStruct(message, *expected);

  EXPECT_EQ(ok, parsed);
  EXPECT_TRUE(q3a_test::SameBytes(*read, *expected));
}

class AdvanceJsonReader : public ::testing::TestWithParam<JsonCase> {};

TEST_P(AdvanceJsonReader, MatchesJsonStringToMessage) {
  ExpectReadAsProtobuf<qawb::QAWBAdvanceTuningTable>(GetParam().text);
}

// The special colour group list holds 4 groups in the record.
INSTANTIATE_TEST_SUITE_P(
    Texts, AdvanceJsonReader,
    ::testing::Values(
        JsonCase{"empty_object", "{}"},
        JsonCase{"fields_out_of_order",
                 R"({"special_color_tuning_table": {"enable_flag": 1},
                     "version": {"minor": 2, "major": 3}})"},
        JsonCase{"explicit_zero_and_null",
                 R"({"version": {"major": 0, "minor": null}})"},
        JsonCase{"camel_case_names",
                 R"({"specialColorTuningTable": {"enableFlag": 5}})"},
        JsonCase{"more_groups_than_capacity",
                 R"({"special_color_tuning_table": {"special_color_group_list":
                     [{}, {}, {}, {}, {}, {}, {}, {}, {}]}})"},
        JsonCase{"two_groups",
                 R"({"special_color_tuning_table": {"special_color_group_list":
                     [{}, {"enable_flag": -7}]}})"},
        JsonCase{"unknown_field", R"({"version": {"patch": 1}})"},
        JsonCase{"value_out_of_range", R"({"version": {"major": 4294967296}})"},
        JsonCase{"string_number", R"({"version": {"major": "70000"}})"},
        JsonCase{"same_key_twice",
                 R"({"version": {"major": 1}, "version": {"minor": 2}})"},
        JsonCase{"not_json", "version: 1"},
        // Numbers protobuf reads through its integer path or refuses.
        JsonCase{"minus_zero_integer_float",
                 R"({"special_color_tuning_table": {"special_color_group_list":
                     [{"weight": -0}]}})"},
        JsonCase{"minus_zero_float", R"({"special_color_tuning_table":
                     {"special_color_group_list": [{"weight": -0.0}]}})"},
        JsonCase{"float_just_below_overflow", R"({"special_color_tuning_table":
                     {"special_color_group_list": [{"weight": 3.4028235e38}]}})"},
        JsonCase{"float_overflow", R"({"special_color_tuning_table":
                     {"special_color_group_list": [{"weight": 3.4028236e38}]}})"},
        JsonCase{"float_underflow", R"({"special_color_tuning_table":
                     {"special_color_group_list": [{"weight": -1e-50}]}})"},
        JsonCase{"huge_integer_float", R"({"special_color_tuning_table":
                     {"special_color_group_list": [{"weight": 9007199254740993}]}})"},
        JsonCase{"float_as_string", R"({"special_color_tuning_table":
                     {"special_color_group_list": [{"weight": "NaN"}]}})"},
        JsonCase{"integer_with_fraction", R"({"version": {"major": 1.0}})"},
        JsonCase{"integer_with_exponent", R"({"version": {"major": 1e2}})"},
        JsonCase{"integer_fraction_not_whole",
                 R"({"version": {"major": 1.5}})"},
        JsonCase{"integer_at_limits",
                 R"({"version": {"major": -2147483648, "minor": 2147483647}})"},
        JsonCase{"integer_past_limit", R"({"version": {"minor": 2147483648}})"},
        // Keys and values protobuf maps in ways of its own.
        JsonCase{"escaped_key", R"({"vers\u0069on": {"major": 2}})"},
        JsonCase{"scalar_for_record", R"({"version": 1})"},
        JsonCase{"integer_with_capital_exponent",
                 R"({"version": {"major": 1E2}})"},
        JsonCase{"enum_as_number",
                 R"({"outdoor_tuning_table": {"outdoor_final_trust_level_list":
                     {"bv_stats_trust_info": {"stats_type":
                     {"target_region": 3}}}}})"},
        JsonCase{"escaped_enum_name",
                 R"({"outdoor_tuning_table": {"outdoor_final_trust_level_list":
                     {"bv_stats_trust_info": {"stats_type":
                     {"target_region": "kQAWBFrameSummaryType\u0042lue"}}}}})"},
        JsonCase{"missing_colon", R"({"version": {"major": 2}, "x" 1})"},
        JsonCase{"missing_comma_in_list",
                 R"({"special_color_tuning_table": {"special_color_group_list":
                     [{} {}]}})"},
        JsonCase{"camel_and_snake_same_field",
                 R"({"specialColorTuningTable": {"enable_flag": 1},
                     "special_color_tuning_table": {"enableFlag": 2}})"},
        JsonCase{"wrong_case_key", R"({"Version": {"major": 2}})"},
        JsonCase{"null_list_element", R"({"special_color_tuning_table":
                     {"special_color_group_list": [null, {}]}})"},
        JsonCase{"scalar_for_list", R"({"special_color_tuning_table":
                     {"special_color_group_list": {}}})"},
        JsonCase{"invalid_element_past_capacity",
                 R"({"special_color_tuning_table": {"special_color_group_list":
                     [{}, {}, {}, {}, {}, {}, {}, {}, {"weight": true}]}})"},
        // Text around the object.
        JsonCase{"trailing_object", R"({"version": {"major": 2}} {})"},
        JsonCase{"trailing_comma", R"({"version": {"major": 2},})"},
        JsonCase{"byte_order_mark", "\xEF\xBB\xBF{}"},
        JsonCase{"vertical_tab", "{\v}"},
        JsonCase{"invalid_utf8_in_key", "{\"\xFF\": 1}"},
        JsonCase{"array_root", "[]"}),
    [](const auto& info) { return std::string(info.param.name); });

// Forms people write by hand that the direct reader takes without protobuf.
class DirectJsonReader : public ::testing::TestWithParam<JsonCase> {};

TEST_P(DirectJsonReader, TakesTheTextItself) {
  const std::string text = GetParam().text;
  auto read = q3a_test::MakeRecord<qawb::QAWBAdvanceTuningTable>(6);
  simdjson::ondemand::parser parser;
  const simdjson::padded_string padded(text);
  EXPECT_TRUE(protomsg::internal::ReadCanonicalJson(parser, padded, *read));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, DirectJsonReader,
    ::testing::Values(
        JsonCase{"empty_object", "{}"},
        JsonCase{
            "compact_reordered_camel_case",
            R"({"specialColorTuningTable":{"enableFlag":1},"version":{"minor":2,"major":3}})"},
        JsonCase{"floats_in_every_json_form",
                 "{\"special_color_tuning_table\":\r\n\t{\"special_color_group_"
                 "list\": "
                 R"([{"weight": 1}, {"weight": -2.5e-3}, {"weight": 0.1E+1},
                     {"weight": -0}, {"weight": 123456789}]}})"},
        JsonCase{"more_groups_than_capacity",
                 R"({"special_color_tuning_table": {"special_color_group_list":
                     [{}, {}, {}, {}, {}, {}, {}, {}, {"weight": 2}]}})"},
        JsonCase{"enum_name",
                 R"({"outdoor_tuning_table": {"outdoor_final_trust_level_list":
                     {"bv_stats_trust_info": {"stats_type":
                     {"target_region": "kQAWBFrameSummaryTypeBlue"}}}}})"}),
    [](const auto& info) { return std::string(info.param.name); });

// Texts that reach the simdjson defects fixed after Debian's 3.0.1, each
// through the basic table's file reader; the names give the upstream issue.
// Numbers never come from simdjson's number parsing, bools are compared as
// text, the padding is cleared, and the rest goes to protobuf.
class SimdjsonDefects : public ::testing::TestWithParam<JsonCase> {};

TEST_P(SimdjsonDefects, ReadAsProtobufReadsThem) {
  ExpectReadAsProtobuf<qawb::QAWBBasicTuningTable>(GetParam().text);
}

std::string Nested(int depth) {
  return R"({"stats_resize": {"crop_maximum_ratio": )" +
         std::string(depth, '[') + std::string(depth, ']') + "}}";
}

const std::string kDeep = Nested(5000);

INSTANTIATE_TEST_SUITE_P(
    Texts, SimdjsonDefects,
    ::testing::Values(
        // 2093: a decimal whose digits overflow 64 bits with integer part 0.
        JsonCase{
            "i2093_twenty_decimals",
            R"({"stats_resize": {"crop_maximum_ratio": 0.50000000000000000000}})"},
        JsonCase{
            "i2093_long_fraction",
            R"({"stats_resize": {"crop_maximum_ratio": 0.734375000000000000000000000005}})"},
        JsonCase{"i2093_with_exponent",
                 R"({"initial_gain": {"r_gain": -0.95000000000000000000e1}})"},
        // 2099: many digits through the number API.
        JsonCase{"i2099_float",
                 R"({"initial_gain": {"r_gain": 1000000000.000000001}})"},
        JsonCase{
            "i2099_integer",
            R"({"stats_resize": {"zoom_crop_enable_flag": 1000000000.000000001}})"},
        // 2045 and 1415: integers at the root and past 64 bits.
        JsonCase{"i2045_root_number", "123456789012345678901234567890"},
        JsonCase{"i2045_root_negative", "-1"},
        JsonCase{
            "i1415_int64_overflow",
            R"({"stats_resize": {"zoom_crop_enable_flag": 9223372036854775808}})"},
        JsonCase{"i2791_twenty_digits",
                 R"({"initial_gain": {"g_gain": 99999999999999999999}})"},
        // 1981 and 2354: literals with a byte more, and spaces after.
        JsonCase{"i1981_false_and_a_letter",
                 R"({"luminance_weight_table": {"mask_list": [falseA]}})"},
        JsonCase{
            "i1981_true_and_a_digit",
            R"({"luminance_weight_table": {"mask_list": [true1, false]}})"},
        JsonCase{"i2354_spaces_after_true",
                 "{\"luminance_weight_table\": {\"mask_list\": [true   \r\n\t, "
                 "false   ]}}"},
        // 1909 and 2258: null misspelt.
        JsonCase{"i2258_nul",
                 R"({"stats_resize": {"zoom_crop_enable_flag": nul}})"},
        JsonCase{"i2258_nullx", R"({"initial_gain": {"r_gain": nullx}})"},
        // 1977 and 1974: text after the object; the object cut short.
        JsonCase{"i1977_trailing_word", R"({"version": {"major": 1}} foo)"},
        JsonCase{"i1977_trailing_brace", R"({"version": {"major": 1}} foo })"},
        JsonCase{"i1977_trailing_bracket", R"({"version": {"major": 1}} ])"},
        JsonCase{"i1974_cut_short", R"({"version": {"major": 111)"},
        JsonCase{"i1974_cut_in_list",
                 R"({"luminance_weight_table": {"mask_list": [true, false)"},
        // 1870: escapes that decode to invalid UTF-8.
        JsonCase{"i1870_lone_surrogate_key", R"({"vers\ud800ion": {}})"},
        JsonCase{
            "i1870_lone_surrogate_value",
            R"({"grey_final_trust_level_list": {"bv_stats_trust_info": {"stats_type": {"target_region": "\udc00"}}}})"},
        // 1903: nesting past any depth limit.
        JsonCase{"i1903_deep_nesting", kDeep.c_str()}),
    [](const auto& info) { return std::string(info.param.name); });

// 1834: simdjson may take a bracket in the padding after the text for the
// one a cut-off text lacks. The reader's buffer is reused, so the bytes
// after a short file are the end of a longer one read before on the thread.
TEST(SimdjsonDefects, I1834LeftoverBracketAfterCutOffText) {
  const std::string whole =
      R"({"luminance_weight_table": {"mask_list": [true, false]}})";
  for (std::size_t cut = 1; cut <= 3; ++cut) {
    q3a_test::ScopedTempDir dir;
    std::ofstream(dir.File("whole.json")) << whole;
    auto table = q3a_test::MakeRecord<qawb::QAWBBasicTuningTable>(2);
    ASSERT_TRUE(protomsg::ReadQAWBBasicTuningTableWithJson(
        dir.File("whole.json"), *table));
    SCOPED_TRACE(cut);
    ExpectReadAsProtobuf<qawb::QAWBBasicTuningTable>(
        whole.substr(0, whole.size() - cut));
  }
}

}  // namespace
