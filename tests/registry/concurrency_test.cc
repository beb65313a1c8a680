// Many threads using the library at once the ways its thread-safety allows:
// reading the registry and its objects, copying the registry into maps of
// their own, converting tables, and writing and reading files of their own.
// Each thread must get what one thread alone gets; under ThreadSanitizer the
// run must also be free of data races.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <latch>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "coordinator/tuning_map.h"
#include "libs_v4/qAWB/proto/qawb_tuning.pb.h"
#include "libs_v4/qAWB/src/base/fixed_qawb_tuning.h"
#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "libs_v4/qAWB/src/base/table_access.h"
#include "protomsg/record_conversions.h"
#include "protomsg/tuning_files.h"
#include "protomsg/tuning_table_traits.h"
#include "tests/support/record_values.h"
#include "tests/support/scoped_temp_dir.h"

namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 3;

// FNV-1a over the bytes of `value`.
template <typename T>
uint64_t Fingerprint(const T& value, uint64_t hash = 14695981039346656037u) {
  const auto* bytes = reinterpret_cast<const unsigned char*>(&value);
  for (std::size_t i = 0; i < sizeof(T); ++i) {
    hash = (hash ^ bytes[i]) * 1099511628211u;
  }
  return hash;
}

// Everything reachable from the registry: keys, and the bytes of every AWB
// table. Node tables are unordered, so entries are combined by sum.
uint64_t RegistryFingerprint(const TuningMap& registry) {
  uint64_t sum = registry.size();
  for (const auto& [node, table] : registry) {
    for (const auto& [key, object] : *table) {
      uint64_t entry = Fingerprint(key, Fingerprint(node));
      if (node == q3a_api::NodeType::kAwb) {
        const auto* awb = static_cast<const qawb::FixedQAWBTuning*>(object);
        qawb::ForEachTable([&]<typename Table>() {
          entry = Fingerprint(*qawb::GetTable<Table>(*awb), entry);
        });
      }
      sum += entry;
    }
  }
  return sum;
}

// The AWB tuning every thread converts and writes: the first one found.
const qawb::QAWBTuning& SharedAwbTuning() {
  const NodeTuningMap& awb =
      *q3a_coordinator::GetTuningMap().at(q3a_api::NodeType::kAwb);
  return *static_cast<const qawb::FixedQAWBTuning*>(awb.begin()->second);
}

// What one thread reports; all threads must agree with a lone run.
struct Outcome {
  uint64_t registry = 0;
  std::size_t copied_nodes = 0;
  bool tables_round_trip = false;
  bool tuning_binary_file_round_trips = false;
};

// A table through its message and back, and through both file formats,
// into records that start as copies of the source.
template <typename Table>
bool ConvertsAndReadsBack(const Table& source, const std::string& dir) {
  using Traits = protomsg::TuningTableTraits<Table>;
  typename Traits::Message message;
  protomsg::ConvertToMessage(source, message);
  auto converted = std::make_unique<Table>(source);
  protomsg::ConvertToStruct(message, *converted);
  if (!q3a_test::SameBytes(*converted, source)) return false;

  const std::string json = dir + "/table.json";
  const std::string binary = dir + "/table.pb";
  protomsg::SaveTuningTableWithJson(json, source);
  protomsg::SaveTuningTableWithProtobuf(binary, source);
  auto from_json = std::make_unique<Table>(source);
  auto from_binary = std::make_unique<Table>(source);
  return Traits::kReadJson(json, *from_json) &&
         Traits::kReadProtobuf(binary, *from_binary) &&
         q3a_test::SameBytes(*from_json, source) &&
         q3a_test::SameBytes(*from_binary, source);
}

Outcome UseTheLibrary(const std::string& dir) {
  Outcome outcome;
  outcome.registry = RegistryFingerprint(q3a_coordinator::GetTuningMap());

  TuningMap copy;
  GetTuningMap(&copy);
  outcome.copied_nodes = copy.size();

  const qawb::QAWBTuning& awb = SharedAwbTuning();
  // A container of the thread's own, dumped and restored.
  auto tuning = std::make_unique<qawb::MutableQAWBTuning>();
  tuning->ReadFromTable(awb.GetBasicTuningTable(), awb.GetAdvanceTuningTable(),
                        awb.GetColorControlTuningTable(),
                        awb.GetFeatureTuningTable());
  tuning->WriteToFile(dir + "/tables.bin");
  auto restored = std::make_unique<qawb::MutableQAWBTuning>();
  outcome.tables_round_trip = true;
  outcome.tuning_binary_file_round_trips =
      restored->ReadFromFile(dir + "/tables.bin");
  qawb::ForEachTable([&]<typename Table>() {
    const Table& table = *qawb::GetTable<Table>(awb);
    outcome.tables_round_trip =
        outcome.tables_round_trip && ConvertsAndReadsBack(table, dir);
    outcome.tuning_binary_file_round_trips =
        outcome.tuning_binary_file_round_trips &&
        q3a_test::SameBytes(*qawb::GetTable<Table>(*restored), table);
  });
  return outcome;
}

void ExpectSame(const Outcome& actual, const Outcome& expected) {
  EXPECT_EQ(actual.registry, expected.registry);
  EXPECT_EQ(actual.copied_nodes, expected.copied_nodes);
  EXPECT_TRUE(actual.tables_round_trip);
  EXPECT_TRUE(actual.tuning_binary_file_round_trips);
}

TEST(Concurrency, ThreadsUsingTheLibraryAtOnceAgreeWithALoneThread) {
  q3a_test::ScopedTempDir root;
  std::filesystem::create_directory(root.File("alone"));
  const Outcome alone = UseTheLibrary(root.File("alone"));
  EXPECT_EQ(alone.copied_nodes, 7u);

  std::vector<Outcome> outcomes(kThreads * kRounds);
  std::latch start(kThreads);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    const std::string dir = root.File("thread" + std::to_string(t));
    std::filesystem::create_directory(dir);
    threads.emplace_back([&, t, dir] {
      start.arrive_and_wait();
      for (int round = 0; round < kRounds; ++round) {
        outcomes[t * kRounds + round] = UseTheLibrary(dir);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();

  for (const Outcome& outcome : outcomes) ExpectSame(outcome, alone);
}

}  // namespace
