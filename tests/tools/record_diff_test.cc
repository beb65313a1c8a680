#include "tools/q3a_tuning/io/record_diff.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "awb_records/qawb_basic_tuning_table.h"
#include "tests/support/record_values.h"

namespace q3a_tool {
namespace {

std::vector<std::string> Lines(const std::vector<Difference>& differences) {
  std::vector<std::string> lines;
  for (const Difference& d : differences) {
    lines.push_back(d.path + ": " + d.old_value + " -> " + d.new_value);
  }
  return lines;
}

TEST(DiffRecords, IdenticalTablesHaveNoDifference) {
  const auto table = q3a_test::MakeRecord<qawb::QAWBBasicTuningTable>(3);
  const auto copy = std::make_unique<qawb::QAWBBasicTuningTable>(*table);
  EXPECT_TRUE(DiffRecords(*table, *copy).empty());
}

TEST(DiffRecords, NamesEachChangedFieldByItsJsonPathInLayoutOrder) {
  const auto old_table = q3a_test::MakeRecord<qawb::QAWBBasicTuningTable>(3);
  auto new_table = std::make_unique<qawb::QAWBBasicTuningTable>(*old_table);
  auto& weight =
      new_table->region_list.region_bv_list[3].region_list[2].weight_list[5];
  weight = 0.5f;
  old_table->region_list.region_bv_list[3].region_list[2].weight_list[5] =
      0.25f;
  new_table->version.minor = 9;
  new_table->luminance_weight_table.mask_list[2][4] =
      !old_table->luminance_weight_table.mask_list[2][4];
  new_table->grey_final_trust_level_list.bv_stats_trust_info.stats_type
      .base_region[1] = qawb::kQAWBFrameSummaryTypeInvalid;
  old_table->grey_final_trust_level_list.bv_stats_trust_info.stats_type
      .base_region[1] = qawb::kQAWBFrameSummaryTypeFace;
  // A kind no message carries, as a tuning binary file may hold.
  old_table->grey_final_trust_level_list.bv_stats_trust_info.stats_type
      .target_region = qawb::kQAWBFrameSummaryTypeInvalid;
  new_table->grey_final_trust_level_list.bv_stats_trust_info.stats_type
      .target_region = static_cast<qawb::QAWBFrameSummaryType>(12);

  const std::string mask =
      old_table->luminance_weight_table.mask_list[2][4] ? "true" : "false";
  const std::string new_mask = mask == "true" ? "false" : "true";
  EXPECT_EQ(
      Lines(DiffRecords(*old_table, *new_table)),
      (std::vector<std::string>{
          "version.minor: " + std::to_string(old_table->version.minor) +
              " -> 9",
          "region_list.region_bv_list[3].region_list[2].weight_list[5]: "
          "0.25 -> 0.5",
          // The matrix is one flat list, as in the tuning file: row 2,
          // column 4 of 9 columns.
          "luminance_weight_table.mask_list[22]: " + mask + " -> " + new_mask,
          "grey_final_trust_level_list.bv_stats_trust_info.stats_type"
          ".target_region: kQAWBFrameSummaryTypeInvalid -> "
          "kQAWBFrameSummaryTypeInvalid (stored 12)",
          "grey_final_trust_level_list.bv_stats_trust_info.stats_type"
          ".base_region[1]: kQAWBFrameSummaryTypeFace -> "
          "kQAWBFrameSummaryTypeInvalid"}));
}

struct ToleranceCase {
  float old_value;
  float new_value;
  double tolerance;
  bool differs;
};

class DiffToleranceTest : public testing::TestWithParam<ToleranceCase> {};

TEST_P(DiffToleranceTest, AppliesToFloatsOnly) {
  qawb::QAWBCCTReferencePointData a{4100, GetParam().old_value, 0.5f};
  qawb::QAWBCCTReferencePointData b{4100, GetParam().new_value, 0.5f};
  EXPECT_EQ(DiffRecords(a, b, GetParam().tolerance).size(),
            GetParam().differs ? 1u : 0u);
}

INSTANTIATE_TEST_SUITE_P(Cases, DiffToleranceTest,
                         testing::Values(ToleranceCase{0.5f, 0.6f, 0.0, true},
                                         ToleranceCase{0.5f, 0.6f, 0.2, false},
                                         ToleranceCase{0.5f, 0.6f, 0.05, true},
                                         ToleranceCase{NAN, NAN, 0.0, false},
                                         ToleranceCase{NAN, 0.5f, 1.0, true},
                                         ToleranceCase{INFINITY, INFINITY, 0.0,
                                                       false}));

TEST(DiffRecords, ToleranceDoesNotHideIntegerChanges) {
  qawb::QAWBCCTReferencePointData a{4100, 0.5f, 0.5f};
  qawb::QAWBCCTReferencePointData b{4101, 0.5f, 0.5f};
  EXPECT_EQ(Lines(DiffRecords(a, b, 10.0)),
            std::vector<std::string>{"cct: 4100 -> 4101"});
}

}  // namespace
}  // namespace q3a_tool
