#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <iterator>
#include <vector>

#include "coordinator/actuator_tuning.h"
#include "coordinator/qaf_tuning.h"
#include "coordinator/tuning_map.h"
#include "tests/tuning/registry_lookup.h"

namespace {

using q3a_test::FindAs;

// The calibration points rise in code and position up to the code that
// codes[2] names, within the driver's range (codes[0], a power of two less
// one), and the table holds them without spare capacity.
TEST(ActuatorTuning, CalibrationPointsAreOrderedWithinTheDriverRange) {
  for (const auto& [key, object] :
       *q3a_coordinator::GetTuningMap().at(q3a_api::kActuator)) {
    const auto* t = static_cast<const actuator::ActuatorTuning*>(object);
    SCOPED_TRACE(t->name);
    const std::int32_t largest = t->codes[0];
    EXPECT_GT(largest, 0);
    EXPECT_EQ(largest & (largest + 1), 0);
    ASSERT_FALSE(t->point_table.empty());
    EXPECT_EQ(t->point_table.capacity(), t->point_table.size());
    EXPECT_EQ(t->point_table.back().code, t->codes[2]);
    for (std::size_t i = 1; i < t->point_table.size(); ++i) {
      EXPECT_LT(t->point_table[i - 1].code, t->point_table[i].code) << i;
      EXPECT_LT(t->point_table[i - 1].position, t->point_table[i].position)
          << i;
    }
    EXPECT_LE(t->point_table.back().code, largest);
  }
}

const qaf::CDAFTuningStructure* Cdaf(int sensor_mode, int lens) {
  return FindAs<qaf::CDAFTuningStructure>(q3a_api::kCdaf,
                                          {0, sensor_mode, 1, lens, -1});
}

TEST(CdafTuning, EveryEntryOpensWithTheCommonHead) {
  const std::uint8_t flags[12] = {0, 0, 1, 1, 0, 0, 1, 1, 0, 0, 1, 0};
  const float weights[4] = {0.2126f, 0.3576f, 0.3576f, 0.0722f};
  for (const auto* cdaf : {Cdaf(1, 0), Cdaf(2, 0), Cdaf(1, 2)}) {
    ASSERT_NE(cdaf, nullptr);
    for (const auto* block : {&cdaf->first_config, &cdaf->second_config}) {
      for (const qaf::CdafConfigEntry& entry : *block) {
        EXPECT_EQ(entry.enable, 1);
        EXPECT_EQ(std::memcmp(entry.flags, flags, sizeof(flags)), 0);
        EXPECT_EQ(std::memcmp(entry.luma_weights, weights, sizeof(weights)), 0);
        EXPECT_EQ(entry.gamma_points[0], 0);
        EXPECT_EQ(entry.gamma_points[32], 512);
        EXPECT_EQ(entry.gamma_points[33], 544);
        EXPECT_EQ(entry.gamma_points[64], 2048);
        EXPECT_EQ(entry.gamma_points[65], 2175);
        EXPECT_EQ(entry.gamma_points[79], 3967);
        for (int i = 1; i < 80; ++i) {
          EXPECT_LT(entry.gamma_points[i - 1], entry.gamma_points[i]);
        }
        EXPECT_EQ(entry.gamma_maximum, 4095);
        for (const qaf::CdafFilter& f : entry.filters) {
          EXPECT_EQ(f.b1, 0.0f);
          EXPECT_EQ(f.b2, -f.b0);
        }
      }
      // Entries differ in their window counts.
      EXPECT_NE(
          std::memcmp(&(*block)[0], &(*block)[1], sizeof(qaf::CdafConfigEntry)),
          0);
    }
  }
  const qaf::CdafFilter& first = Cdaf(1, 0)->first_config[0].filters[0];
  EXPECT_EQ(first.b0, 0.092286f);
  EXPECT_EQ(first.a1, -1.7881f);
  EXPECT_EQ(first.a2, 0.81537f);
  const qaf::CdafFilter& second = Cdaf(1, 0)->first_config[0].filters[1];
  EXPECT_EQ(second.b0, 1.4199f);
  EXPECT_EQ(second.a1, -0.70685f);
  EXPECT_EQ(second.a2, 0.33386f);
}

TEST(CdafTuning, Gn1RecordsDifferOnlyInName) {
  const auto* preview = Cdaf(1, 0);
  const auto* binning = Cdaf(2, 0);
  const auto* imx586 = Cdaf(1, 2);
  ASSERT_NE(preview, binning);
  EXPECT_NE(preview->name, binning->name);
  EXPECT_EQ(std::memcmp(&preview->first_config, &binning->first_config,
                        sizeof(qaf::CdafConfigBlock)),
            0);
  EXPECT_EQ(std::memcmp(&preview->second_config, &binning->second_config,
                        sizeof(qaf::CdafConfigBlock)),
            0);
  const qaf::CdafConfigBlock* blocks[] = {
      &preview->first_config, &preview->second_config, &imx586->first_config,
      &imx586->second_config};
  for (int a = 0; a < 4; ++a) {
    for (int b = a + 1; b < 4; ++b) {
      EXPECT_NE(std::memcmp(blocks[a], blocks[b], sizeof(qaf::CdafConfigBlock)),
                0)
          << a << " " << b;
    }
  }
}

const qaf::QAFTuningStructure* Af(int use_case, int lens) {
  return FindAs<qaf::QAFTuningStructure>(q3a_api::kAf,
                                         {use_case, -1, 1, lens, -1});
}

std::vector<std::int32_t> UsedLevels(const qaf::QAFTuningStructure& af) {
  std::vector<std::int32_t> levels;
  bool past_end = false;
  for (const qaf::QafLevelRow& row : af.level_table) {
    const qaf::QafLevelRow zero{};
    if (std::memcmp(&row, &zero, sizeof(row)) == 0) {
      past_end = true;
      continue;
    }
    EXPECT_FALSE(past_end) << "a used row follows an unused one";
    levels.push_back(row.level);
  }
  return levels;
}

// Each table's used rows come first, with levels rising and every step
// range ordered.
TEST(AfTuning, LevelTablesRiseAndEndInUnusedRows) {
  for (const auto& [key, object] :
       *q3a_coordinator::GetTuningMap().at(q3a_api::kAf)) {
    const auto& af = *static_cast<const qaf::QAFTuningStructure*>(object);
    SCOPED_TRACE(af.name);
    const std::vector<std::int32_t> levels = UsedLevels(af);
    ASSERT_FALSE(levels.empty());
    EXPECT_EQ(std::adjacent_find(levels.begin(), levels.end(),
                                 std::greater_equal<>()),
              levels.end());
    for (std::size_t i = 0; i < levels.size(); ++i) {
      const qaf::QafLevelRow& row = af.level_table[i];
      EXPECT_LE(row.step_minimum, row.step_maximum) << i;
      for (std::size_t r = 0; r + 1 < std::size(row.ranges); r += 2) {
        EXPECT_LE(row.ranges[r], row.ranges[r + 1]) << i << " range " << r;
      }
    }
  }
}

TEST(AfTuning, ParameterTailEndsInFourHundredZeroBytes) {
  static_assert(sizeof(qaf::QafParamsTail) == 1660);
  for (const auto* af : {Af(1, 0), Af(3, 0), Af(1, 2), Af(3, 2)}) {
    ASSERT_NE(af, nullptr);
    const auto* bytes =
        reinterpret_cast<const unsigned char*>(&af->params_tail);
    for (std::size_t i = 1660 - 400; i < 1660; ++i) EXPECT_EQ(bytes[i], 0) << i;
    EXPECT_NE(bytes[0] | bytes[1] | bytes[2], 0);
  }
  // Preview and video of one sensor are different tunings.
  EXPECT_NE(std::memcmp(&Af(1, 0)->params_head, &Af(3, 0)->params_head,
                        sizeof(qaf::QafParamsHead)),
            0);
}

}  // namespace
