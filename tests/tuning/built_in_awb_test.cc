// The built-in AWB containers against the data they are compiled from: the
// manifest (tuning/qawb/built_in_tables.txt, as the table generator lists it
// in its header) and its JSON tuning files.
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "coordinator/tuning_map.h"
#include "libs_v4/qAWB/src/base/table_access.h"
#include "protomsg/tuning_table_traits.h"
#include "tests/support/scoped_temp_dir.h"
#include "tuning/qawb/built_in_qawb_tables.h"

namespace {

using ManifestEntry = qawb::built_in_manifest::Entry;

// The registered tables' entries: the mutable container's defaults (in
// namespace qawb::internal) are not registered.
std::vector<ManifestEntry> RegisteredManifestEntries() {
  std::vector<ManifestEntry> entries;
  for (const ManifestEntry& entry : qawb::built_in_manifest::kEntries) {
    if (!entry.constant.starts_with("qawb::internal::")) {
      entries.push_back(entry);
    }
  }
  return entries;
}

// Every distinct AWB container in the registry.
std::set<const qawb::QAWBTuning*> AwbContainers() {
  std::set<const qawb::QAWBTuning*> containers;
  for (const auto& [key, object] :
       *q3a_coordinator::GetTuningMap().at(q3a_api::kAwb)) {
    containers.insert(static_cast<const qawb::QAWBTuning*>(object));
  }
  return containers;
}

template <typename Record>
std::string BytesOf(const Record& table) {
  return std::string(reinterpret_cast<const char*>(&table), sizeof(Record));
}

TEST(BuiltInAwb, EveryContainerHasFourTables) {
  ASSERT_FALSE(AwbContainers().empty());
  for (const qawb::QAWBTuning* awb : AwbContainers()) {
    qawb::ForEachTable([&]<typename Record>() {
      EXPECT_NE(qawb::GetTable<Record>(*awb), nullptr)
          << qawb::TuningTable<Record>::kName;
    });
  }
}

// Each manifest line is one constant table: the registry holds as many
// distinct tables of each kind as the manifest lists, and as many of them
// with a source's content as the manifest has lines naming that content.
TEST(BuiltInAwb, TableSharingMatchesTheManifest) {
  const std::vector<ManifestEntry> entries = RegisteredManifestEntries();
  ASSERT_FALSE(entries.empty());
  qawb::ForEachTable([&]<typename Record>() {
    const std::string_view name = qawb::TuningTable<Record>::kName;
    std::map<std::string, int> listed;  // content -> manifest lines
    for (const ManifestEntry& entry : entries) {
      if (entry.table != name) continue;
      auto table = std::make_unique<Record>();
      ASSERT_TRUE(protomsg::TuningTableTraits<Record>::kReadJson(
          Q3A_SOURCE_ROOT "/tuning/qawb/" + std::string(entry.source), *table))
          << entry.source;
      ++listed[BytesOf(*table)];
    }
    std::set<const Record*> tables;
    for (const qawb::QAWBTuning* awb : AwbContainers()) {
      tables.insert(qawb::GetTable<Record>(*awb));
    }
    std::map<std::string, int> registered;  // content -> distinct tables
    for (const Record* table : tables) ++registered[BytesOf(*table)];
    EXPECT_EQ(registered.size(), listed.size()) << name;
    EXPECT_TRUE(registered == listed)
        << name << ": " << tables.size() << " registered tables";
  });
}

// Exporting a built-in table and reading the file back gives its bytes, so a
// tuning engineer's round trip through the tool loses nothing.
TEST(BuiltInAwb, EveryTableReadsBackFromJsonToTheSameBytes) {
  q3a_test::ScopedTempDir dir;
  const std::string path = dir.File("table.json");
  for (const qawb::QAWBTuning* awb : AwbContainers()) {
    qawb::ForEachTable([&]<typename Record>() {
      const Record& table = *qawb::GetTable<Record>(*awb);
      protomsg::SaveTuningTableWithJson(path, table);
      auto back = std::make_unique<Record>();
      ASSERT_TRUE(protomsg::TuningTableTraits<Record>::kReadJson(path, *back));
      EXPECT_EQ(BytesOf(*back), BytesOf(table))
          << qawb::TuningTable<Record>::kName;
    });
  }
}

}  // namespace
