// get and set by path: values come back as JSON, changes are checked
// against the schema and the record (type, narrow range, capacity), and a
// refused change says why and names the nearest field.
#include "tools/q3a_tuning/io/table_edit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "libs_v4/qAWB/proto/qawb_tuning.pb.h"

namespace q3a_tool {
namespace {

using testing::HasSubstr;

TEST(TableEdit, SetsAndGetsScalarsEnumsAndListEntries) {
  qawb::tuning::QAWBBasicTuningTable table;
  EXPECT_EQ(*SetValue(table, "initial_cct", "4200"), "0");
  EXPECT_EQ(*GetValueJson(table, "initial_cct"), "4200");
  EXPECT_EQ(*SetValue(table, "initial_gain.r_gain", "1.5"), "0");
  EXPECT_EQ(*GetValueJson(table, "initial_gain.r_gain"), "1.5");
  // A list grows with zero entries up to the index.
  ASSERT_TRUE(SetValue(table, "illuminant_weight_table.cct_list[2]", "7").ok());
  EXPECT_EQ(*GetValueJson(table, "illuminant_weight_table.cct_list"),
            "[0, 0, 7]");
  EXPECT_THAT(*GetValueJson(table, "initial_gain"), HasSubstr("\"r_gain\": 1.5"));
}

struct RefusedEdit {
  const char* name;
  const char* path;
  const char* value;
  const char* says;
};

class RefusedEditTest : public testing::TestWithParam<RefusedEdit> {};

TEST_P(RefusedEditTest, SaysWhyAndChangesNothingItReports) {
  qawb::tuning::QAWBBasicTuningTable table;
  const Result<std::string> result =
      SetValue(table, GetParam().path, GetParam().value);
  ASSERT_FALSE(result.ok());
  EXPECT_THAT(result.error().message, HasSubstr(GetParam().says));
  EXPECT_EQ(result.error().exit_code, kExitUsage);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RefusedEditTest,
    testing::Values(
        RefusedEdit{"Typo", "initial_ct", "1", "did you mean initial_cct?"},
        RefusedEdit{"NotAnInteger", "initial_cct", "warm",
                    "expected an integer"},
        RefusedEdit{"NarrowField", "version.major", "65536",
                    "does not fit the record's field (0..65535)"},
        RefusedEdit{"PastCapacity", "illuminant_weight_table.cct_list[36]",
                    "1", "holds 36 entries"},
        RefusedEdit{"NotFinite", "initial_gain.r_gain", "inf",
                    "expected a finite number"},
        RefusedEdit{"WholeList", "illuminant_weight_table.cct_list", "1",
                    "set one entry"},
        RefusedEdit{"SubTable", "initial_gain", "1", "set its fields"},
        RefusedEdit{"IndexOnAValue", "initial_cct[0]", "1", "not a list"}),
    [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace q3a_tool
