#include "tools/q3a_tuning/lint/lint.h"

#include <google/protobuf/util/json_util.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "libs_v4/qAWB/proto/qawb_tuning.pb.h"
#include "tools/q3a_tuning/io/count_rules.h"
#include "tools/q3a_tuning/io/field_limits.h"

namespace q3a_tool {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;

template <typename Message>
std::vector<std::string> Lint(const std::string& json) {
  Message message;
  EXPECT_TRUE(google::protobuf::util::JsonStringToMessage(json, &message).ok())
      << json;
  std::vector<std::string> lines;
  for (const Diagnostic& finding : LintTableMessage(message)) {
    lines.push_back(finding.path + ": " + finding.message);
  }
  return lines;
}

std::string Repeat(const std::string& element, int times) {
  std::string list = "[";
  for (int i = 0; i < times; ++i) list += (i > 0 ? "," : "") + element;
  return list + "]";
}

struct LintCase {
  const char* name;
  std::string json;  // a basic table
  std::vector<std::string> findings;
};

class BasicTableLintTest : public testing::TestWithParam<LintCase> {};

TEST_P(BasicTableLintTest, ReportsExactlyTheExpectedFindings) {
  EXPECT_EQ(Lint<qawb::tuning::QAWBBasicTuningTable>(GetParam().json),
            GetParam().findings);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, BasicTableLintTest,
    testing::Values(
        LintCase{"Empty", "{}", {}},
        LintCase{"CountMatchesList",
                 R"({"reference_point_list": {"reference_point_number": 2,
                     "reference_point_list": [{"cct": 1}, {"cct": 2}]}})",
                 {}},
        LintCase{
            "CountAboveList",
            R"({"reference_point_list": {"reference_point_number": 3,
                "reference_point_list": [{"cct": 1}]}})",
            {"reference_point_list.reference_point_list: "
             "reference_point_number is 3 but the list gives 1 of 3 values: "
             "values 1..2 are kept as the table held it before (zero when "
             "loaded as an override)"}},
        LintCase{"CountBelowList",
                 R"({"reference_point_list": {"reference_point_number": 1,
                     "reference_point_list": [{"cct": 1}, {"cct": 2}]}})",
                 {"reference_point_list.reference_point_list: the list gives "
                  "2 values but reference_point_number is 1: the last 1 are "
                  "not used"}},
        LintCase{"CountAboveCapacity",
                 R"({"golden_module_table": {"golden_module_number": 10}})",
                 {"golden_module_table.golden_module_number: "
                  "golden_module_number is 10 but "
                  "golden_module_table.golden_module_data holds at most 9 "
                  "entries"}},
        LintCase{"NegativeCount",
                 R"({"golden_module_table": {"golden_module_number": -1}})",
                 {"golden_module_table.golden_module_number: "
                  "golden_module_number is -1: a count cannot be negative"}},
        // The writers' form: every list at capacity whatever the count.
        LintCase{"FullCapacityIsNotAMismatch",
                 R"({"reference_point_list": {"reference_point_number": 2,
                     "reference_point_list": )" +
                     Repeat(R"({"cct": 1})", 9) + "}}",
                 {}},
        LintCase{"ListAboveCapacity",
                 R"({"illuminant_weight_table": {"cct_list": )" +
                     Repeat("1", 38) + "}}",
                 {"illuminant_weight_table.cct_list[36]: 38 entries given but "
                  "the "
                  "table holds 36: entries 36..37 are dropped"}},
        // One count governs a list in every row of another list.
        LintCase{"CountAppliesToEveryRow",
                 R"({"illuminant_weight_table": {"cct_number": 2,
                     "bv_number": 2, "cct_list": [1, 2],
                     "illuminant_cct_list": [{"weight_list": [1, 2]},
                                             {"weight_list": [1]}]}})",
                 {"illuminant_weight_table.illuminant_cct_list[1]"
                  ".weight_list: cct_number is 2 but the list gives 1 of 2 "
                  "values: value 1 is kept as the table held it before (zero "
                  "when loaded as an override)"}},
        // Rows of the flag matrix are 9 flags each.
        LintCase{"MatrixRowsAreCounted",
                 R"({"luminance_weight_table": {"bv_number": 2,
                     "bv_value_list": [1, 2], "threshold_list": [1, 2],
                     "mask_list": )" +
                     Repeat("true", 9) + "}}",
                 {"luminance_weight_table.mask_list: bv_number is 2 but the "
                  "list gives 9 of 18 values: values 9..17 are kept as the "
                  "table held it before (zero when loaded as an override)"}},
        LintCase{"NarrowFieldsKeepTheLowBits",
                 R"({"version": {"major": 70000, "minor": -1},
                     "luminance_weight_table": {"scalar_factor": 65536}})",
                 {"version.major: 70000 does not fit the record's uint16 "
                  "field; it is stored as 4464",
                  "version.minor: -1 does not fit the record's uint16 field; "
                  "it is stored as 65535",
                  "luminance_weight_table.scalar_factor: 65536 does not fit "
                  "the record's uint16 field; it is stored as 0"}},
        // Only the entries in use are checked: the rest are never read.
        LintCase{"NarrowListEntriesInUse",
                 R"({"luminance_weight_table": {"bv_number": 1,
                     "bv_value_list": [1], "threshold_list": [40000, 40000],
                     "mask_list": )" +
                     Repeat("true", 9) + "}}",
                 {"luminance_weight_table.threshold_list[0]: 40000 does not "
                  "fit the record's int16 field; it is stored as -25536",
                  "luminance_weight_table.threshold_list: the list gives 2 "
                  "values but bv_number is 1: the last 1 are not used"}},
        LintCase{"UnusableFrameSummaryKinds",
                 R"({"grey_final_trust_level_list": {"bv_stats_trust_info":
                     {"stats_type": {"target_region": "kQAWBFrameSummaryTypeMax",
                      "base_region_number": 2,
                      "base_region": ["kQAWBFrameSummaryTypeGrey", 42]}}}})",
                 {"grey_final_trust_level_list.bv_stats_trust_info.stats_type"
                  ".target_region: kQAWBFrameSummaryTypeMax is not a kind of "
                  "frame statistics; the record stores the count of kinds",
                  "grey_final_trust_level_list.bv_stats_trust_info.stats_type"
                  ".base_region[1]: 42 is not a kind of frame statistics; the "
                  "record stores -1 (invalid)"}},
        // Unused base regions may hold anything.
        LintCase{"FrameSummaryKindsPastTheCountAreUnused",
                 R"({"grey_final_trust_level_list": {"bv_stats_trust_info":
                     {"stats_type": {"target_region": "kQAWBFrameSummaryTypeGrey",
                      "base_region_number": 1,
                      "base_region": ["kQAWBFrameSummaryTypeFace",
                                      "kQAWBFrameSummaryTypeInvalid"]}}}})",
                 {}}),
    [](const testing::TestParamInfo<LintCase>& info) {
      return info.param.name;
    });

TEST(AdvanceTableLint, FollowsCountsThroughSingularSubMessages) {
  const std::vector<std::string> findings =
      Lint<qawb::tuning::QAWBAdvanceTuningTable>(
          R"({"outdoor_tuning_table": {"green_region_list": {"cct_number": 3,
              "bv_number": 1, "region_bv_list": [{"region": {"region_list":
              [{"cct_up": 1}]}}]}}})");
  EXPECT_EQ(findings,
            std::vector<std::string>{
                "outdoor_tuning_table.green_region_list.region_bv_list[0]"
                ".region.region_list: cct_number is 3 but the list gives 1 "
                "of 3 values: values 1..2 are kept as the table held it "
                "before (zero when loaded as an override)"});
}

// A typo in the rules table would silently switch a check off.
TEST(CountRules, NameFieldsAndListsThatExist) {
  const auto* pool = google::protobuf::DescriptorPool::generated_pool();
  for (const CountRule& rule : AllCountRules()) {
    SCOPED_TRACE(std::string(rule.message) + "." +
                 std::string(rule.count_field) + " -> " +
                 std::string(rule.array_path));
    const Descriptor* message =
        pool->FindMessageTypeByName("qawb.tuning." + std::string(rule.message));
    ASSERT_NE(message, nullptr);
    const FieldDescriptor* count =
        message->FindFieldByName(std::string(rule.count_field));
    ASSERT_NE(count, nullptr);
    EXPECT_EQ(count->cpp_type(), FieldDescriptor::CPPTYPE_INT32);

    std::string_view path = rule.array_path;
    const Descriptor* at = message;
    const FieldDescriptor* field = nullptr;
    while (!path.empty()) {
      const std::size_t dot = path.find('.');
      std::string segment(path.substr(0, dot));
      path = dot == std::string_view::npos ? "" : path.substr(dot + 1);
      const bool each = segment.ends_with("[]");
      if (each) segment.resize(segment.size() - 2);
      field = at->FindFieldByName(segment);
      ASSERT_NE(field, nullptr) << segment;
      EXPECT_EQ(field->is_repeated(), each || path.empty()) << segment;
      if (!path.empty()) {
        at = field->message_type();
        ASSERT_NE(at, nullptr) << segment;
      }
    }
    const FieldLimit* limit = FindFieldLimit(at->name(), field->name());
    ASSERT_NE(limit, nullptr);
    EXPECT_GT(limit->capacity, 0);
    EXPECT_EQ(limit->capacity % rule.per_entry, 0);
  }
}

}  // namespace
}  // namespace q3a_tool
