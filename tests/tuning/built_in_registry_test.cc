#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "coordinator/actuator_tuning.h"
#include "coordinator/ae_tuning_record.h"
#include "coordinator/camera_characteristics.h"
#include "coordinator/qaf_tuning.h"
#include "tests/tuning/registry_lookup.h"

namespace {

using q3a_test::Find;
using q3a_test::FindAs;

// Every registered object as the class its node type implies; the AWB
// containers are checked in built_in_awb_test, the registry's whole content
// by the snapshot of `q3a-tuning list --json` in tests/tools.
const TuningMap& Registry() { return q3a_coordinator::GetTuningMap(); }

// The tuning header a named record was generated from ends in
// "tuning/<folder>/<header>.h", and the folder is its node type's.
void ExpectNamedFrom(const std::string& name, const std::string& folder) {
  const std::string infix = "/tuning/" + folder + "/";
  const std::size_t at = name.rfind(infix);
  ASSERT_NE(at, std::string::npos) << name;
  EXPECT_TRUE(name.ends_with(".h")) << name;
  EXPECT_EQ(name.find('/', at + infix.size()), std::string::npos) << name;
}

TEST(BuiltInRegistry, EveryKeyResolvesToAnObjectOfItsNodesClass) {
  ASSERT_FALSE(Registry().empty());
  for (const auto& [node, table] : Registry()) {
    EXPECT_EQ(table->max_load_factor(), 1.0f) << node;
    EXPECT_FALSE(table->empty()) << node;
    for (const auto& [key, object] : *table) {
      ASSERT_NE(object, nullptr) << node;
      EXPECT_EQ(Find(node, key), object) << node;
      switch (node) {
        case q3a_api::kActuator:
          ExpectNamedFrom(
              static_cast<const actuator::ActuatorTuning*>(object)->name,
              "actuator");
          break;
        case q3a_api::kCdaf:
          ExpectNamedFrom(
              static_cast<const qaf::CDAFTuningStructure*>(object)->name,
              "cdaf");
          break;
        case q3a_api::kAf:
          ExpectNamedFrom(
              static_cast<const qaf::QAFTuningStructure*>(object)->name, "af");
          break;
        case q3a_api::kAe:
        case q3a_api::kAwb:
        case q3a_api::kStaticCameraCharacteristics:
        case q3a_api::kCameraSessionParameters:
          break;
        default:
          ADD_FAILURE() << "unexpected node type " << node;
      }
    }
  }
}

// Each auto-exposure record carries its camera's sensitivity, 100 over the
// lens scalar the camera description gives for the key's camera, and no two
// records are the same.
TEST(AeTuningRecords, CarryTheSensitivityOfTheirCamera) {
  const auto* characteristics =
      FindAs<q3a_coordinator::StaticCameraCharacteristics>(
          q3a_api::kStaticCameraCharacteristics, {0, -1, -1, -1, -1});
  ASSERT_NE(characteristics, nullptr);
  std::set<const AeTuningRecord*> records;
  for (const auto& [key, object] : *Registry().at(q3a_api::kAe)) {
    const auto* record = static_cast<const AeTuningRecord*>(object);
    records.insert(record);
    // Key position 1 is description position 0, key position 2 position 1.
    const auto position =
        static_cast<lumen_api::CameraPosition>(key.camera_position - 1);
    const auto lens = static_cast<lumen_api::LensType>(key.lens_type);
    EXPECT_FLOAT_EQ(
        record->lens_sensitivity,
        100.0f /
            characteristics->characteristics.at(position).at(lens).lens_scalar)
        << key.camera_position << "/" << key.lens_type;
  }
  for (const AeTuningRecord* a : records) {
    for (const AeTuningRecord* b : records) {
      if (a < b) {
        EXPECT_NE(std::memcmp(a, b, sizeof(AeTuningRecord)), 0);
      }
    }
  }
}

}  // namespace
