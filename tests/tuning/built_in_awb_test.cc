#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "libs_v4/qAWB/src/base/fixed_qawb_tuning.h"
#include "protomsg/tuning_files.h"
#include "tests/support/scoped_temp_dir.h"
#include "tests/tuning/registry_lookup.h"

namespace {

using q3a_test::FindAs;

// A built-in table: its label in the tuning plan and its version.
struct Table {
  int number;
  int major;
  int minor;
};

struct Container {
  const char* name;
  int camera_position;
  std::vector<int> lens_types;
  std::vector<int> use_cases;
  Table basic, advance, color_control, feature;
};

const std::vector<Container>& Containers() {
  static const auto* containers = new std::vector<Container>{
      {"W1", 1, {0}, {8, 9}, {1, 3, 5}, {1, 3, 1}, {1, 3, 4}, {1, 3, 5}},
      {"W2", 1, {0}, {7, 10}, {2, 3, 1}, {1, 3, 1}, {2, 3, 1}, {2, 3, 3}},
      {"W3", 1, {0}, {0, 1}, {2, 3, 1}, {1, 3, 1}, {2, 3, 1}, {3, 3, 3}},
      {"W4", 1, {0}, {4}, {3, 3, 1}, {2, 3, 1}, {3, 3, 1}, {4, 3, 3}},
      {"W5", 1, {1}, {8, 9}, {4, 3, 5}, {3, 3, 1}, {4, 3, 3}, {5, 3, 5}},
      {"W6", 1, {1}, {7, 10}, {5, 3, 1}, {3, 3, 1}, {5, 3, 1}, {6, 3, 3}},
      {"W7", 1, {1}, {0, 1}, {5, 3, 1}, {3, 3, 1}, {5, 3, 1}, {7, 3, 3}},
      {"W8", 1, {1}, {4}, {6, 3, 1}, {4, 3, 1}, {6, 3, 1}, {8, 3, 3}},
      {"W9", 1, {2}, {8, 9}, {7, 3, 5}, {5, 3, 1}, {7, 3, 2}, {9, 3, 5}},
      {"W10", 1, {2}, {7, 10}, {8, 3, 1}, {5, 3, 1}, {8, 3, 1}, {10, 3, 3}},
      {"W11", 1, {2}, {0, 1}, {8, 3, 1}, {5, 3, 1}, {8, 3, 1}, {11, 3, 3}},
      {"W12", 1, {2}, {4}, {9, 3, 1}, {6, 3, 1}, {9, 3, 1}, {12, 3, 3}},
      {"W13", 2, {0}, {8, 9}, {10, 3, 12}, {7, 3, 2}, {10, 3, 9}, {13, 3, 10}},
      {"W14", 2, {0}, {7, 10}, {11, 3, 12}, {7, 3, 2}, {11, 3, 9}, {14, 3, 10}},
      {"W15",
       2,
       {0, 5},
       {0, 1},
       {11, 3, 12},
       {7, 3, 2},
       {11, 3, 9},
       {15, 3, 10}},
      {"W16", 2, {0, 5}, {4}, {12, 3, 12}, {8, 3, 2}, {12, 3, 9}, {16, 3, 10}},
  };
  return *containers;
}

const qawb::QAWBTuning* ContainerAt(int camera_position, int lens_type,
                                    int use_case) {
  return FindAs<qawb::QAWBTuning>(
      q3a_api::kAwb, {use_case, -1, camera_position, lens_type, -1});
}

// Table number -> address, for one kind, gathered through the containers.
template <typename Record>
using TablesByNumber = std::map<int, const Record*>;

struct BuiltInTables {
  TablesByNumber<qawb::QAWBBasicTuningTable> basic;
  TablesByNumber<qawb::QAWBAdvanceTuningTable> advance;
  TablesByNumber<qawb::QAWBColorControlTuningTable> color_control;
  TablesByNumber<qawb::QAWBFeatureTuningTable> feature;
};

BuiltInTables Gather() {
  BuiltInTables tables;
  for (const Container& c : Containers()) {
    const qawb::QAWBTuning* awb =
        ContainerAt(c.camera_position, c.lens_types[0], c.use_cases[0]);
    tables.basic[c.basic.number] = awb->GetBasicTuningTable();
    tables.advance[c.advance.number] = awb->GetAdvanceTuningTable();
    tables.color_control[c.color_control.number] =
        awb->GetColorControlTuningTable();
    tables.feature[c.feature.number] = awb->GetFeatureTuningTable();
  }
  return tables;
}

void ExpectVersion(const qawb::QAWBParameterVersion& version, const Table& t,
                   const char* kind) {
  EXPECT_EQ(version.major, t.major) << kind << t.number;
  EXPECT_EQ(version.minor, t.minor) << kind << t.number;
}

TEST(BuiltInAwb, EveryKeyOfAContainerFindsItAndNoOther) {
  std::set<const qawb::QAWBTuning*> seen;
  int registrations = 0;
  for (const Container& c : Containers()) {
    const qawb::QAWBTuning* first =
        ContainerAt(c.camera_position, c.lens_types[0], c.use_cases[0]);
    ASSERT_NE(first, nullptr) << c.name;
    EXPECT_TRUE(seen.insert(first).second) << c.name << " shares a container";
    for (int lens_type : c.lens_types) {
      for (int use_case : c.use_cases) {
        EXPECT_EQ(ContainerAt(c.camera_position, lens_type, use_case), first)
            << c.name << " lens " << lens_type << " use case " << use_case;
        ++registrations;
      }
    }
  }
  EXPECT_EQ(registrations, 31);
  EXPECT_EQ(q3a_coordinator::GetTuningMap().at(q3a_api::kAwb)->size(), 31u);
}

TEST(BuiltInAwb, ContainersHoldTablesOfTheListedVersions) {
  for (const Container& c : Containers()) {
    SCOPED_TRACE(c.name);
    const qawb::QAWBTuning* awb =
        ContainerAt(c.camera_position, c.lens_types[0], c.use_cases[0]);
    ExpectVersion(awb->GetBasicTuningTable()->version, c.basic, "B");
    ExpectVersion(awb->GetAdvanceTuningTable()->version, c.advance, "A");
    ExpectVersion(awb->GetColorControlTuningTable()->version, c.color_control,
                  "C");
    ExpectVersion(awb->GetFeatureTuningTable()->version, c.feature, "F");
  }
}

// A table number names one object: containers that list the same number
// return the same address, and different numbers are different objects.
TEST(BuiltInAwb, SharedTablesAreOneObject) {
  std::map<std::string, const void*> by_label;
  std::set<const void*> addresses;
  for (const Container& c : Containers()) {
    const qawb::QAWBTuning* awb =
        ContainerAt(c.camera_position, c.lens_types[0], c.use_cases[0]);
    const std::pair<std::string, const void*> tables[] = {
        {"B" + std::to_string(c.basic.number), awb->GetBasicTuningTable()},
        {"A" + std::to_string(c.advance.number), awb->GetAdvanceTuningTable()},
        {"C" + std::to_string(c.color_control.number),
         awb->GetColorControlTuningTable()},
        {"F" + std::to_string(c.feature.number), awb->GetFeatureTuningTable()},
    };
    for (const auto& [label, address] : tables) {
      const auto [it, inserted] = by_label.emplace(label, address);
      EXPECT_EQ(it->second, address) << c.name << " " << label;
      if (inserted) addresses.insert(address);
    }
  }
  EXPECT_EQ(by_label.size(), 48u);
  EXPECT_EQ(addresses.size(), 48u);
}

// Tables with equal bytes must be exactly the listed groups.
template <typename Record>
void ExpectIdenticalGroups(const TablesByNumber<Record>& tables,
                           const std::vector<std::set<int>>& groups,
                           const char* kind) {
  auto group_of = [&](int number) -> const std::set<int>* {
    for (const auto& group : groups) {
      if (group.count(number)) return &group;
    }
    return nullptr;
  };
  for (const auto& [a, table_a] : tables) {
    for (const auto& [b, table_b] : tables) {
      if (a >= b) continue;
      const bool same_group =
          group_of(a) != nullptr && group_of(a) == group_of(b);
      const bool same_bytes =
          std::memcmp(table_a, table_b, sizeof(Record)) == 0;
      EXPECT_EQ(same_bytes, same_group) << kind << a << " and " << kind << b;
    }
  }
}

TEST(BuiltInAwb, IdenticalBytesOnlyInTheListedGroups) {
  const BuiltInTables tables = Gather();
  ASSERT_EQ(tables.basic.size(), 12u);
  ASSERT_EQ(tables.advance.size(), 8u);
  ASSERT_EQ(tables.color_control.size(), 12u);
  ASSERT_EQ(tables.feature.size(), 16u);
  ExpectIdenticalGroups(tables.basic, {}, "B");
  ExpectIdenticalGroups(tables.advance, {{3, 4}, {5, 6}, {7, 8}}, "A");
  ExpectIdenticalGroups(tables.color_control,
                        {{2, 3}, {5, 6}, {8, 9}, {10, 11, 12}}, "C");
  ExpectIdenticalGroups(tables.feature, {{2, 3, 4}, {6, 7, 8}, {10, 11, 12}},
                        "F");
}

TEST(BuiltInAwb, BasicTablesCarryTheirCameraValues) {
  struct Camera {
    int first, last;
    float r_gain, b_gain;
    int light_panel_compensation;
  };
  const Camera cameras[] = {{1, 3, 1.91968f, 1.80403f, 0},
                            {4, 6, 1.89058f, 2.34811f, 0},
                            {7, 9, 2.2222f, 2.096f, 0},
                            {10, 12, 2.0772f, 2.321f, 1}};
  const BuiltInTables tables = Gather();
  for (const Camera& camera : cameras) {
    for (int b = camera.first; b <= camera.last; ++b) {
      SCOPED_TRACE("B" + std::to_string(b));
      const qawb::QAWBBasicTuningTable& t = *tables.basic.at(b);
      EXPECT_EQ(t.initial_cct, 4100);
      EXPECT_EQ(t.initial_gain.r_gain, camera.r_gain);
      EXPECT_EQ(t.initial_gain.g_gain, 1.0f);
      EXPECT_EQ(t.initial_gain.b_gain, camera.b_gain);
      EXPECT_EQ(t.golden_module_table.enable_flag, 1);
      EXPECT_EQ(t.golden_module_table.golden_module_number, 6);
      EXPECT_EQ(t.golden_module_table.light_panel_compensation_enable_flag,
                camera.light_panel_compensation);
      EXPECT_EQ(t.reference_point_list.reference_point_number, 9);
    }
  }
}

// Exporting a built-in table and reading the file back gives its bytes, so a
// tuning engineer's round trip through the tool loses nothing.
class BuiltInAwbJsonRoundTrip : public testing::Test {
 protected:
  template <typename Record>
  void ExpectRoundTrip(const TablesByNumber<Record>& tables,
                       bool (*read)(const std::string&, Record&),
                       const char* kind) {
    for (const auto& [number, table] : tables) {
      const std::string path =
          dir_.File(kind + std::to_string(number) + ".json");
      protomsg::SaveTuningTableWithJson(path, *table);
      auto back = std::make_unique<Record>();
      ASSERT_TRUE(read(path, *back)) << kind << number;
      EXPECT_EQ(std::memcmp(back.get(), table, sizeof(Record)), 0)
          << kind << number;
    }
  }

  q3a_test::ScopedTempDir dir_;
};

TEST_F(BuiltInAwbJsonRoundTrip, EveryTableReadsBackToTheSameBytes) {
  const BuiltInTables tables = Gather();
  ExpectRoundTrip(tables.basic, &protomsg::ReadQAWBBasicTuningTableWithJson,
                  "B");
  ExpectRoundTrip(tables.advance, &protomsg::ReadQAWBAdvanceTuningTableWithJson,
                  "A");
  ExpectRoundTrip(tables.color_control,
                  &protomsg::ReadQAWBColorControlTuningTableWithJson, "C");
  ExpectRoundTrip(tables.feature, &protomsg::ReadQAWBFeatureTuningTableWithJson,
                  "F");
}

}  // namespace
