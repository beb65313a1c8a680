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
#include "tests/support/record_values.h"
#include "tests/support/scoped_temp_dir.h"

namespace {

namespace util = google::protobuf::util;

struct JsonCase {
  const char* name;
  const char* text;
};

class AdvanceJsonReader : public ::testing::TestWithParam<JsonCase> {};

TEST_P(AdvanceJsonReader, MatchesJsonStringToMessage) {
  q3a_test::ScopedTempDir dir;
  const std::string path = dir.File("table.json");
  std::ofstream(path) << GetParam().text;

  const auto start = q3a_test::MakeRecord<qawb::QAWBAdvanceTuningTable>(6);
  auto read = std::make_unique<qawb::QAWBAdvanceTuningTable>(*start);
  auto expected = std::make_unique<qawb::QAWBAdvanceTuningTable>(*start);
  const bool ok = protomsg::ReadQAWBAdvanceTuningTableWithJson(path, *read);

  qawb::tuning::QAWBAdvanceTuningTable message;
  const bool parsed =
      util::JsonStringToMessage(GetParam().text, &message,
                                protomsg::internal::TuningFileParseOptions())
          .ok();
  if (parsed) protomsg::ConvertToStruct(message, *expected);

  EXPECT_EQ(ok, parsed);
  EXPECT_TRUE(q3a_test::SameBytes(*read, *expected));
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

}  // namespace
