#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <memory>
#include <vector>

#include "coordinator/camera_characteristics.h"
#include "tests/tuning/registry_lookup.h"

namespace {

using lumen_api::CameraPosition;
using lumen_api::LensType;
using q3a_coordinator::CameraCharacteristics;
using q3a_coordinator::CameraSessionParameters;
using q3a_coordinator::StaticCameraCharacteristics;

const StaticCameraCharacteristics& Characteristics() {
  const auto* object = q3a_test::FindAs<StaticCameraCharacteristics>(
      q3a_api::kStaticCameraCharacteristics, {0, -1, -1, -1, -1});
  EXPECT_NE(object, nullptr);
  return *object;
}

const CameraSessionParameters& SessionParameters() {
  const auto* object = q3a_test::FindAs<CameraSessionParameters>(
      q3a_api::kCameraSessionParameters, {0, -1, -1, -1, -1});
  EXPECT_NE(object, nullptr);
  return *object;
}

struct Expected {
  int position;
  int lens;
  std::uint32_t lens_scalar_bits;
  std::vector<std::uint8_t> ae_modes;
  std::size_t fps_ranges;
  std::vector<std::uint8_t> af_modes;
  int af_supported;
};

TEST(StaticCameraCharacteristics, HoldsEachLensWithItsValues) {
  const std::vector<Expected> lenses = {
      {0, 0, 0x4231C71C, {0, 1, 2, 3}, 5, {0, 1, 2, 3, 4, 5}, 1},
      {0, 1, 0x424B0BB2, {0, 1, 2, 3}, 5, {0}, 0},
      {0, 2, 0x41ED6384, {0, 1, 2, 3}, 5, {0, 1, 2, 3, 4, 5}, 1},
      {1, 0, 0x426345D2, {0, 1}, 5, {0}, 0},
      {1, 5, 0x426345D2, {0, 1}, 3, {0}, 0},
  };
  const auto& map = Characteristics().characteristics;
  EXPECT_EQ(map.size(), 2u);
  EXPECT_EQ(map.at(static_cast<CameraPosition>(0)).size(), 3u);
  EXPECT_EQ(map.at(static_cast<CameraPosition>(1)).size(), 2u);
  EXPECT_EQ(map.max_load_factor(), 1.0f);
  const std::vector<std::uint8_t> all_awb = {0, 1, 2, 3, 4, 5, 6, 7, 8};
  const q3a_coordinator::FpsRange fps[] = {
      {15, 15}, {15, 30}, {30, 30}, {15, 60}, {60, 60}};
  for (const Expected& e : lenses) {
    SCOPED_TRACE(testing::Message() << e.position << "/" << e.lens);
    const auto& per_lens = map.at(static_cast<CameraPosition>(e.position));
    EXPECT_EQ(per_lens.max_load_factor(), 1.0f);
    const CameraCharacteristics& c = per_lens.at(static_cast<LensType>(e.lens));
    EXPECT_EQ(std::bit_cast<std::uint32_t>(c.lens_scalar), e.lens_scalar_bits);
    EXPECT_EQ(c.ae_available_antibanding_modes, std::vector<std::uint8_t>{3});
    EXPECT_EQ(c.ae_available_modes, e.ae_modes);
    ASSERT_EQ(c.ae_available_target_fps_ranges.size(), e.fps_ranges);
    for (std::size_t i = 0; i < e.fps_ranges; ++i) {
      EXPECT_EQ(c.ae_available_target_fps_ranges[i].min_fps, fps[i].min_fps);
      EXPECT_EQ(c.ae_available_target_fps_ranges[i].max_fps, fps[i].max_fps);
    }
    EXPECT_EQ(c.ae_compensation_range, (std::vector<std::int32_t>{-24, 24}));
    EXPECT_EQ(c.ae_compensation_step,
              (std::array<std::int32_t, 4>{1, 6, 1, 1}));
    EXPECT_EQ(c.af_available_modes, e.af_modes);
    EXPECT_EQ(c.af_supported, e.af_supported);
    EXPECT_EQ(c.awb_available_modes, all_awb);
    EXPECT_EQ(c.trailing_flags,
              (std::array<std::uint8_t, 8>{1, 0, 0, 0, 0, 0, 0, 0}));
  }
}

TEST(StaticCameraCharacteristics, AbsentPositionsAndLensesFindNothing) {
  const auto& map = Characteristics().characteristics;
  const auto& front = map.at(static_cast<CameraPosition>(1));
  EXPECT_EQ(front.count(static_cast<LensType>(1)), 0u);
  EXPECT_EQ(front.count(static_cast<LensType>(2)), 0u);
  EXPECT_EQ(map.count(static_cast<CameraPosition>(2)), 0u);
  EXPECT_EQ(map.count(static_cast<CameraPosition>(-1)), 0u);
}

TEST(CameraCharacteristics, CopyOwnsItsStorage) {
  const CameraCharacteristics& source =
      Characteristics()
          .characteristics.at(static_cast<CameraPosition>(0))
          .at(static_cast<LensType>(0));
  auto copy = std::make_unique<CameraCharacteristics>(source);
  auto second = std::make_unique<CameraCharacteristics>(*copy);
  copy.reset();
  EXPECT_EQ(second->af_available_modes, source.af_available_modes);
  EXPECT_EQ(second->ae_available_target_fps_ranges.capacity(), 5u);
  EXPECT_NE(second->awb_available_modes.data(),
            source.awb_available_modes.data());
}

TEST(CameraSessionParameters, HoldsTheFourLenses) {
  const auto& map = SessionParameters().session_parameters;
  ASSERT_EQ(map.size(), 2u);
  const auto& back = map.at(static_cast<CameraPosition>(0));
  ASSERT_EQ(back.size(), 3u);
  for (int lens : {0, 1, 2}) {
    const auto& p = back.at(static_cast<LensType>(lens));
    EXPECT_EQ(p.first, 1) << lens;
    EXPECT_EQ(p.second, 5) << lens;
  }
  const auto& front = map.at(static_cast<CameraPosition>(1));
  ASSERT_EQ(front.size(), 1u);
  EXPECT_EQ(front.at(static_cast<LensType>(0)).first, 0);
  EXPECT_EQ(front.at(static_cast<LensType>(0)).second, 1);
  EXPECT_EQ(front.count(static_cast<LensType>(5)), 0u);
  EXPECT_EQ(map.count(static_cast<CameraPosition>(2)), 0u);
}

}  // namespace
