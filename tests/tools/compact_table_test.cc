// The compact form and the checked table writer: entries past a list's count
// are dropped and read back as zero, zero tails go, the feature table's
// model entries stay whole, and what is written reads back as meant.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <string>

#include "tests/support/record_pairs.h"
#include "tests/support/record_values.h"
#include "tests/support/scoped_temp_dir.h"
#include "tools/q3a_tuning/io/table_file.h"

namespace q3a_tool {
namespace {

TEST(CompactTable, DropsEntriesPastTheCountAndZeroTails) {
  q3a_test::ScopedTempDir dir;
  auto table = MakeZeroedTable<qawb::QAWBBasicTuningTable>();
  table->version = {3, 1};
  auto& weights = table->illuminant_weight_table;
  weights.cct_number = 2;
  weights.cct_list[0] = 2300;
  weights.cct_list[1] = 5000;
  weights.cct_list[5] = 7777;  // past the count: carries no meaning
  for (FileFormat format : {FileFormat::kJson, FileFormat::kBinary}) {
    const std::string full = dir.File("full" + std::string(FileExtension(format)));
    const std::string compact =
        dir.File("compact" + std::string(FileExtension(format)));
    ASSERT_TRUE(WriteTableFile(full, *table, {format}).ok());
    ASSERT_TRUE(WriteTableFile(compact, *table, {format, /*compact=*/true}).ok());
    auto read = MakeZeroedTable<qawb::QAWBBasicTuningTable>();
    ASSERT_TRUE(ReadTableFile(compact, format, *read));
    EXPECT_EQ(read->illuminant_weight_table.cct_list[1], 5000);
    EXPECT_EQ(read->illuminant_weight_table.cct_list[5], 0);
    // Everything else is as the full file reads.
    auto expected = MakeZeroedTable<qawb::QAWBBasicTuningTable>();
    ASSERT_TRUE(ReadTableFile(full, format, *expected));
    expected->illuminant_weight_table.cct_list[5] = 0;
    EXPECT_EQ(std::memcmp(read.get(), expected.get(), sizeof(*read)), 0);
    EXPECT_LT(std::filesystem::file_size(compact) * 10,
              std::filesystem::file_size(full));
  }
}

// A trailing -0 is not a zero tail: a binary file keeps its sign.
TEST(CompactTable, KeepsATrailingNegativeZero) {
  q3a_test::ScopedTempDir dir;
  auto table = MakeZeroedTable<qawb::QAWBColorControlTuningTable>();
  auto& natural = table->ccm_tuning_table.ccm_set.ccm_selection_set_natural;
  natural.bv_number = 1;
  natural.ccm_selection_bv_list[0].cct_number = 1;
  natural.ccm_selection_bv_list[0].region_list[0].ccm_value.offset[2] = -0.0f;
  const std::string path = dir.File("color.pb");
  ASSERT_TRUE(
      WriteTableFile(path, *table, {FileFormat::kBinary, /*compact=*/true})
          .ok());
  auto read = MakeZeroedTable<qawb::QAWBColorControlTuningTable>();
  ASSERT_TRUE(ReadTableFile(path, FileFormat::kBinary, *read));
  EXPECT_EQ(std::memcmp(read.get(), table.get(), sizeof(*read)), 0);
}

TEST(CompactTable, KeepsEveryModelEntryOfTheFeatureTable) {
  // The override loader fills bipolar_factor of the model entries a file
  // lacks with -1; a zero entry left out would not load as zero.
  q3a_test::ScopedTempDir dir;
  auto table = MakeZeroedTable<qawb::QAWBFeatureTuningTable>();
  ASSERT_TRUE(WriteTableFile(dir.File("f.json"), *table,
                             {FileFormat::kJson, /*compact=*/true})
                  .ok());
  auto loaded = MakeZeroedTable<qawb::QAWBFeatureTuningTable>();
  for (auto& model : loaded->asd_aggregator_tuning_table.model_tuning) {
    model.bipolar_factor = -1.0f;
  }
  ASSERT_TRUE(ReadTableFile(dir.File("f.json"), FileFormat::kJson, *loaded));
  for (const auto& model : loaded->asd_aggregator_tuning_table.model_tuning) {
    EXPECT_EQ(model.bipolar_factor, 0.0f);
  }
}

// Every field set: each kind of list entry (integer, float, bool, enum,
// record) ends some uncounted list, and the compact form must keep every
// entry that is not zero. The writer reads the file back and refuses a
// difference.
template <typename Table>
class CompactPatterned : public ::testing::Test {};
TYPED_TEST_SUITE(CompactPatterned, q3a_test::AllTables);

TYPED_TEST(CompactPatterned, ReadsBackAsMeantInBothFormats) {
  q3a_test::ScopedTempDir dir;
  const auto table = q3a_test::MakeRecord<TypeParam>(5);
  for (FileFormat format : {FileFormat::kJson, FileFormat::kBinary}) {
    const auto written =
        WriteTableFile(dir.File("t" + std::string(FileExtension(format))),
                       *table, {format, /*compact=*/true});
    EXPECT_TRUE(written.ok()) << written.error().message;
  }
}

}  // namespace
}  // namespace q3a_tool
