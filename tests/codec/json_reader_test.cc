// The JSON readers decode the JSON transcoder's wire output with the wire
// decoder; they must agree with protobuf's JsonStringToMessage followed by
// ConvertToStruct on whatever the text holds, in whatever order.
#include <google/protobuf/util/json_util.h>
#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>

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
  util::JsonParseOptions options;
  options.ignore_unknown_fields = false;
  options.case_insensitive_enum_parsing = false;
  const bool parsed =
      util::JsonStringToMessage(GetParam().text, &message, options).ok();
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
        JsonCase{"not_json", "version: 1"}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
