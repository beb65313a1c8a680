#include "libs_v4/qAWB/src/base/fixed_qawb_tuning.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

namespace {

TEST(FixedQAWBTuning, HandsBackItsPointersUnchanged) {
  static const qawb::QAWBAdvanceTuningTable advance{};
  static const qawb::QAWBFeatureTuningTable feature{};
  const qawb::FixedQAWBTuning tuning(nullptr, &advance, nullptr, &feature);
  EXPECT_EQ(tuning.GetBasicTuningTable(), nullptr);
  EXPECT_EQ(tuning.GetAdvanceTuningTable(), &advance);
  EXPECT_EQ(tuning.GetColorControlTuningTable(), nullptr);
  EXPECT_EQ(tuning.GetFeatureTuningTable(), &feature);
}

TEST(FixedQAWBTuning, ContainersShareTablesAndNeverFreeThem) {
  auto advance = std::make_unique<qawb::QAWBAdvanceTuningTable>();
  advance->version = {3, 1};
  const qawb::QAWBAdvanceTuningTable before = *advance;

  std::unique_ptr<qawb::QAWBTuning> first =
      std::make_unique<qawb::FixedQAWBTuning>(nullptr, advance.get(), nullptr,
                                              nullptr);
  const qawb::FixedQAWBTuning second(nullptr, advance.get(), nullptr, nullptr);
  EXPECT_EQ(first->GetAdvanceTuningTable(), second.GetAdvanceTuningTable());

  first.reset();  // through the interface's virtual destructor
  EXPECT_EQ(std::memcmp(advance.get(), &before, sizeof(before)), 0);
  EXPECT_EQ(second.GetAdvanceTuningTable()->version.minor, 1);
}

}  // namespace
