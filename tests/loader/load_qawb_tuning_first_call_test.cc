// The loader's container is built on the first call of the process, so
// these cases run in a binary of their own and in one test, in order.
#include <gtest/gtest.h>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "tests/loader/loader_test_fixture.h"
#include "tuning/qawb/load_qawb_tuning_from_file.h"

namespace q3a_test {
namespace {

using q3a_coordinator::LoadQawbTuningFromFile;

TEST_F(LoaderTest, FirstCallsStartFromTheDefaultTables) {
  const qawb::MutableQAWBTuning defaults;

  EXPECT_EQ(LoadQawbTuningFromFile(AllFiles(), nullptr), nullptr);

  const FileMap keep_all = {
      {"advance", ""}, {"basic", ""}, {"color", ""}, {"feature", ""}};
  const qawb::QAWBTuning* tuning = LoadQawbTuningFromFile(keep_all, &fixed_);
  ASSERT_NE(tuning, nullptr);
  ExpectTables(*tuning, *defaults.GetBasicTuningTable(),
               *defaults.GetAdvanceTuningTable(),
               *defaults.GetColorControlTuningTable(),
               *defaults.GetFeatureTuningTable());
  EXPECT_EQ(tuning->GetBasicTuningTable()->initial_cct, 4100);
  EXPECT_EQ(tuning->GetFeatureTuningTable()->version.minor, 2);

  EXPECT_EQ(LoadQawbTuningFromFile({{"basic", ""}}, &fixed_), tuning);
  ExpectTables(*tuning, *defaults.GetBasicTuningTable(), *fixed_tables_.advance,
               *fixed_tables_.color_control, *fixed_tables_.feature);
  EXPECT_TRUE(lines_.empty());
}

}  // namespace
}  // namespace q3a_test
