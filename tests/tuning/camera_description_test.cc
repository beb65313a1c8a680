#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "coordinator/camera_characteristics.h"
#include "coordinator/tuning_map.h"
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

using Lens = std::pair<int, int>;  // description position, lens type

// The lenses that have a registration of `node`: key camera position 1 is
// description position 0, 2 is 1.
std::set<Lens> RegisteredLenses(q3a_api::NodeType node) {
  std::set<Lens> lenses;
  for (const auto& [key, object] : *q3a_coordinator::GetTuningMap().at(node)) {
    lenses.insert({key.camera_position - 1, key.lens_type});
  }
  return lenses;
}

template <typename T>
std::set<Lens> DescribedLenses(const q3a_coordinator::PerLensMap<T>& map) {
  std::set<Lens> lenses;
  EXPECT_EQ(map.max_load_factor(), 1.0f);
  for (const auto& [position, per_lens] : map) {
    EXPECT_EQ(per_lens.max_load_factor(), 1.0f) << position;
    for (const auto& [lens, value] : per_lens) lenses.insert({position, lens});
  }
  return lenses;
}

bool StrictlyIncreasing(const std::vector<std::uint8_t>& modes) {
  return std::adjacent_find(modes.begin(), modes.end(),
                            std::greater_equal<>()) == modes.end();
}

// The description covers exactly the lenses the AWB and AE tunings are
// registered for; autofocus (and its actuator) is registered exactly for the
// lenses the description says support it; session parameters exist only for
// described lenses.
TEST(CameraDescription, MatchesTheRegisteredTunings) {
  const std::set<Lens> described =
      DescribedLenses(Characteristics().characteristics);
  EXPECT_EQ(RegisteredLenses(q3a_api::kAwb), described);
  EXPECT_EQ(RegisteredLenses(q3a_api::kAe), described);

  std::set<Lens> with_autofocus;
  for (const auto& [position, per_lens] : Characteristics().characteristics) {
    for (const auto& [lens, c] : per_lens) {
      if (c.af_supported != 0) with_autofocus.insert({position, lens});
    }
  }
  EXPECT_EQ(RegisteredLenses(q3a_api::kAf), with_autofocus);
  EXPECT_EQ(RegisteredLenses(q3a_api::kActuator), with_autofocus);

  const std::set<Lens> with_session =
      DescribedLenses(SessionParameters().session_parameters);
  EXPECT_TRUE(std::includes(described.begin(), described.end(),
                            with_session.begin(), with_session.end()));
}

TEST(StaticCameraCharacteristics, EveryLensIsConsistent) {
  for (const auto& [position, per_lens] : Characteristics().characteristics) {
    for (const auto& [lens, c] : per_lens) {
      SCOPED_TRACE(testing::Message() << position << "/" << lens);
      EXPECT_GT(c.lens_scalar, 0.0f);
      for (const auto* modes :
           {&c.ae_available_antibanding_modes, &c.ae_available_modes,
            &c.af_available_modes, &c.awb_available_modes}) {
        EXPECT_FALSE(modes->empty());
        EXPECT_TRUE(StrictlyIncreasing(*modes));
      }
      EXPECT_EQ(c.af_supported, c.af_available_modes.size() > 1 ? 1 : 0);
      ASSERT_EQ(c.ae_compensation_range.size(), 2u);
      EXPECT_LT(c.ae_compensation_range[0], c.ae_compensation_range[1]);
      EXPECT_GT(c.ae_compensation_step[1], 0);
      for (const q3a_coordinator::FpsRange& fps :
           c.ae_available_target_fps_ranges) {
        EXPECT_GT(fps.min_fps, 0);
        EXPECT_LE(fps.min_fps, fps.max_fps);
      }
    }
  }
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

}  // namespace
