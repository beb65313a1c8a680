#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstring>
#include <vector>

#include "coordinator/actuator_tuning.h"
#include "coordinator/qaf_tuning.h"
#include "tests/tuning/registry_lookup.h"

namespace {

using q3a_test::FindAs;

TEST(ActuatorTuning, BuiltInValues) {
  struct Expected {
    int lens;
    std::array<std::int32_t, 8> params;
    std::uint32_t ratio_bits;
    std::array<std::int32_t, 4> codes;
    std::vector<std::pair<std::int32_t, float>> points;
  };
  const Expected parts[] = {
      {0,
       {200, 14, 291, 290, 296, 105, 5222, 10000},
       0x3F0D844D,
       {4095, 0, 324, 0},
       {{17, 18.0f}, {28, 19.0f}, {57, 24.0f}, {144, 38.5f}, {324, 52.9f}}},
      {2,
       {200, 41, 291, 293, 297, 800, 32232, 37000},
       0x3F05E354,
       {1023, 0, 324, 0},
       {{14, 4.5f}, {26, 5.8f}, {53, 7.6f}, {136, 16.1f}, {324, 24.0f}}},
  };
  for (const Expected& e : parts) {
    SCOPED_TRACE(e.lens);
    const auto* t = FindAs<actuator::ActuatorTuning>(q3a_api::kActuator,
                                                     {0, -1, 1, e.lens, -1});
    ASSERT_NE(t, nullptr);
    EXPECT_EQ(t->params, e.params);
    EXPECT_EQ(t->limit, 2147483647);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(t->ratio), e.ratio_bits);
    EXPECT_EQ(t->codes, e.codes);
    ASSERT_EQ(t->point_table.size(), 5u);
    EXPECT_EQ(t->point_table.capacity(), 5u);
    for (std::size_t i = 0; i < 5; ++i) {
      EXPECT_EQ(t->point_table[i].code, e.points[i].first) << i;
      EXPECT_EQ(t->point_table[i].position, e.points[i].second) << i;
    }
    EXPECT_EQ(t->point_table.back().code, t->codes[2]);
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

TEST(AfTuning, LevelTables) {
  using Levels = std::vector<std::int32_t>;
  EXPECT_EQ(UsedLevels(*Af(1, 0)), (Levels{1, 2, 4, 8, 16}));
  EXPECT_EQ(UsedLevels(*Af(3, 0)), (Levels{1, 2, 4, 8, 16, 32, 70}));
  EXPECT_EQ(UsedLevels(*Af(1, 2)), (Levels{1, 2, 4, 8, 16, 64, 80, 100}));
  EXPECT_EQ(std::memcmp(&Af(1, 2)->level_table, &Af(3, 2)->level_table,
                        sizeof(qaf::QafLevelTable)),
            0);

  const qaf::QafLevelRow& row = Af(1, 0)->level_table[0];
  EXPECT_EQ(row.level, 1);
  EXPECT_EQ(row.step_minimum, 400);
  EXPECT_EQ(row.step_maximum, 600);
  EXPECT_EQ(row.step_gain, 1.0f);
  EXPECT_EQ(
      std::vector<std::int32_t>(std::begin(row.ranges), std::end(row.ranges)),
      (std::vector<std::int32_t>{400, 600, 400, 600, 600, 750, 400, 600}));
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
