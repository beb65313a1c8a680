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

using q3a_api::NodeType;
using q3a_api::TuningKey;
using q3a_test::Find;
using q3a_test::FindAs;

// One registration: node, key and the label of the object it points at.
struct Registration {
  NodeType node;
  TuningKey key;
  std::string object;
};

// Every registration except the AWB ones, which built_in_awb_test checks
// container by container.
std::vector<Registration> NonAwbRegistrations() {
  std::vector<Registration> r = {
      {q3a_api::kActuator, {0, -1, 1, 0, -1}, "actuator_tuning_ak7377"},
      {q3a_api::kActuator, {0, -1, 1, 2, -1}, "actuator_tuning_sem1215sa"},
      {q3a_api::kCdaf, {0, 1, 1, 0, -1}, "cdaf_tuning_gn1_preview"},
      {q3a_api::kCdaf, {0, 2, 1, 0, -1}, "cdaf_tuning_gn1_binning_preview"},
      {q3a_api::kCdaf, {0, 1, 1, 2, -1}, "cdaf_tuning_imx586_preview"},
      {q3a_api::kCdaf, {0, 2, 1, 2, -1}, "cdaf_tuning_imx586_preview"},
      {q3a_api::kAf, {1, -1, 1, 0, -1}, "qaf_tuning_gn1_preview"},
      {q3a_api::kAf, {4, -1, 1, 0, -1}, "qaf_tuning_gn1_preview"},
      {q3a_api::kAf, {3, -1, 1, 0, -1}, "qaf_tuning_gn1_video"},
      {q3a_api::kAf, {1, -1, 1, 2, -1}, "qaf_tuning_imx586_preview"},
      {q3a_api::kAf, {4, -1, 1, 2, -1}, "qaf_tuning_imx586_preview"},
      {q3a_api::kAf, {3, -1, 1, 2, -1}, "qaf_tuning_imx586_video"},
      {q3a_api::kStaticCameraCharacteristics, {0, -1, -1, -1, -1}, "static"},
      {q3a_api::kCameraSessionParameters, {0, -1, -1, -1, -1}, "session"},
  };
  // Auto exposure: (position, lens) -> use case -> record label.
  struct AeRow {
    int position;
    std::vector<int> lenses;
    std::vector<std::pair<int, int>> use_case_record;
  };
  const AeRow ae_rows[] = {
      {1, {0}, {{0, 1}, {1, 1}, {13, 2}, {3, 3}, {16, 4}, {14, 5}, {15, 6}}},
      {1, {1}, {{0, 7}, {1, 7}, {13, 8}, {3, 9}, {16, 10}, {14, 11}}},
      {2,
       {0, 5},
       {{0, 12}, {1, 12}, {13, 13}, {3, 14}, {14, 15}, {11, 16}, {12, 17}}},
      {1, {2}, {{0, 18}, {1, 18}, {13, 19}, {3, 20}}},
  };
  for (const AeRow& row : ae_rows) {
    for (int lens : row.lenses) {
      for (const auto& [use_case, record] : row.use_case_record) {
        r.push_back({q3a_api::kAe,
                     {use_case, -1, row.position, lens, -1},
                     "E" + std::to_string(record)});
      }
    }
  }
  r.push_back({q3a_api::kAe, {3, 3, 1, 0, -1}, "E21"});
  return r;
}

TEST(BuiltInRegistry, HoldsSevenNodeTypesWithTheirCounts) {
  const std::map<NodeType, std::size_t> expected = {
      {q3a_api::kAe, 32},
      {q3a_api::kAf, 6},
      {q3a_api::kAwb, 31},
      {q3a_api::kCdaf, 4},
      {q3a_api::kActuator, 2},
      {q3a_api::kStaticCameraCharacteristics, 1},
      {q3a_api::kCameraSessionParameters, 1}};
  const TuningMap& registry = q3a_coordinator::GetTuningMap();
  ASSERT_EQ(registry.size(), expected.size());
  std::size_t total = 0;
  for (const auto& [node, count] : expected) {
    ASSERT_EQ(registry.count(node), 1u) << node;
    EXPECT_EQ(registry.at(node)->size(), count) << node;
    EXPECT_EQ(registry.at(node)->max_load_factor(), 1.0f) << node;
    total += count;
  }
  EXPECT_EQ(total, 77u);
}

// Equal labels are one object, different labels different objects, and the
// named records carry the tuning header of their label.
TEST(BuiltInRegistry, EveryRegistrationFindsItsObject) {
  std::map<std::string, const q3abase::TuningCommon*> by_label;
  std::set<const q3abase::TuningCommon*> objects;
  for (const Registration& r : NonAwbRegistrations()) {
    const q3abase::TuningCommon* object = Find(r.node, r.key);
    ASSERT_NE(object, nullptr) << r.object;
    const auto [it, inserted] = by_label.emplace(r.object, object);
    EXPECT_EQ(it->second, object) << r.object;
    if (inserted) objects.insert(object);

    std::string name;
    if (r.node == q3a_api::kActuator) {
      name = static_cast<const actuator::ActuatorTuning*>(object)->name;
    } else if (r.node == q3a_api::kCdaf) {
      name = static_cast<const qaf::CDAFTuningStructure*>(object)->name;
    } else if (r.node == q3a_api::kAf) {
      name = static_cast<const qaf::QAFTuningStructure*>(object)->name;
    }
    if (!name.empty()) {
      const std::string folder = r.node == q3a_api::kActuator ? "actuator"
                                 : r.node == q3a_api::kCdaf   ? "cdaf"
                                                              : "af";
      const std::string suffix = "tuning/" + folder + "/" + r.object + ".h";
      ASSERT_GT(name.size(), suffix.size());
      EXPECT_EQ(name.substr(name.size() - suffix.size()), suffix);
      EXPECT_EQ(name.substr(0, name.size() - suffix.size()).back(), '/');
    }
  }
  // 2 actuators, 3 CDAF, 4 AF, 21 AE, 2 camera descriptions.
  EXPECT_EQ(objects.size(), 32u);
  EXPECT_EQ(NonAwbRegistrations().size(), 77u - 31u);
}

TEST(BuiltInRegistry, AbsentKeysFindNothing) {
  const std::pair<NodeType, TuningKey> absent[] = {
      {q3a_api::kAwb, {7, -1, 2, 5, -1}},   // lens 5 only has 0, 1 and 4
      {q3a_api::kAf, {0, -1, 1, 0, -1}},    // AF has use cases 1, 3, 4
      {q3a_api::kAf, {1, -1, 1, 1, -1}},    // lens 1 has no autofocus
      {q3a_api::kCdaf, {0, -1, 1, 0, -1}},  // CDAF keys carry a sensor mode
      {q3a_api::kCdaf, {0, 1, 1, 1, -1}},
      {q3a_api::kActuator, {0, -1, 1, 1, -1}},
      {q3a_api::kAe, {3, 3, 1, 2, -1}},  // sensor mode 3 only on lens 0
      {q3a_api::kAe, {0, -1, 2, 1, -1}},
      {q3a_api::kStaticCameraCharacteristics, {0, -1, -1, -1, 0}},
      {q3a_api::kCameraSessionParameters, {1, -1, -1, -1, -1}},
      {static_cast<NodeType>(3), {0, -1, -1, -1, -1}},
  };
  for (const auto& [node, key] : absent) {
    EXPECT_EQ(Find(node, key), nullptr)
        << node << ": " << key.use_case << "," << key.sensor_mode << ","
        << key.camera_position << "," << key.lens_type << "," << key.reserved;
  }
}

TEST(BuiltInRegistry, SensorMode3SelectsItsOwnVideoRecord) {
  const auto* e21 = Find(q3a_api::kAe, {3, 3, 1, 0, -1});
  const auto* e3 = Find(q3a_api::kAe, {3, -1, 1, 0, -1});
  ASSERT_NE(e21, nullptr);
  ASSERT_NE(e3, nullptr);
  EXPECT_NE(e21, e3);
}

// The 21 records share the head, differ from each other, and carry the
// camera's float as the tenth word: 100 / lens_scalar of that camera.
TEST(AeTuningRecords, HeadsAndPerCameraFloats) {
  const auto* characteristics =
      FindAs<q3a_coordinator::StaticCameraCharacteristics>(
          q3a_api::kStaticCameraCharacteristics, {0, -1, -1, -1, -1});
  ASSERT_NE(characteristics, nullptr);
  const std::map<std::pair<int, int>, float> camera_float = {{{1, 0}, 2.25f},
                                                             {{1, 1}, 1.97f},
                                                             {{1, 2}, 3.37f},
                                                             {{2, 0}, 1.76f},
                                                             {{2, 5}, 1.76f}};
  std::set<const AeTuningRecord*> records;
  for (const Registration& r : NonAwbRegistrations()) {
    if (r.node != q3a_api::kAe) continue;
    const auto* record = FindAs<AeTuningRecord>(r.node, r.key);
    records.insert(record);
    SCOPED_TRACE(r.object);
    std::uint32_t words[10];
    std::memcpy(words, record, sizeof(words));
    EXPECT_TRUE(words[0] == 0 || words[0] == 1);
    EXPECT_EQ(words[1], 4u);
    const float head[] = {0.299f, 0.587f, 0.114f};
    EXPECT_EQ(std::memcmp(&words[2], head, sizeof(head)), 0);
    EXPECT_EQ(words[5], 10u);
    const float luma[] = {200.0f, 184.0f};
    EXPECT_EQ(std::memcmp(&words[6], luma, sizeof(luma)), 0);

    const float expected =
        camera_float.at({r.key.camera_position, r.key.lens_type});
    float tenth;
    std::memcpy(&tenth, &words[9], sizeof(tenth));
    EXPECT_EQ(tenth, expected);
    // Key position 1 is description position 0, key position 2 position 1.
    const auto position =
        static_cast<lumen_api::CameraPosition>(r.key.camera_position - 1);
    const auto lens = static_cast<lumen_api::LensType>(r.key.lens_type);
    EXPECT_FLOAT_EQ(
        tenth,
        100.0f /
            characteristics->characteristics.at(position).at(lens).lens_scalar);
  }
  ASSERT_EQ(records.size(), 21u);
  for (const AeTuningRecord* a : records) {
    for (const AeTuningRecord* b : records) {
      if (a < b) {
        EXPECT_NE(std::memcmp(a, b, sizeof(AeTuningRecord)), 0);
      }
    }
  }
}

}  // namespace
