// Every reader of the library against paths that name no readable file: each
// returns false and leaves the caller's data byte for byte as it was.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "protomsg/tuning_files.h"
#include "tests/hardening/file_bytes.h"
#include "tests/support/record_values.h"
#include "tests/support/scoped_temp_dir.h"

namespace {

using q3a_test::MakeRecord;

// One reader over data of its own; `read` returns the reader's result and
// `bytes` the data it reads into.
struct Reader {
  std::string name;
  std::function<bool(const std::string&)> read;
  std::function<std::string()> bytes;
};

template <typename Table>
std::string BytesOf(const Table& table) {
  return std::string(reinterpret_cast<const char*>(&table), sizeof(Table));
}

template <typename Table>
void AddTableReaders(const std::string& table_name,
                     bool (*read_json)(const std::string&, Table&),
                     bool (*read_protobuf)(const std::string&, Table&),
                     int seed, std::vector<Reader>& readers) {
  std::shared_ptr<Table> table = MakeRecord<Table>(seed);
  auto bytes = [table] { return BytesOf(*table); };
  readers.push_back({table_name + "Json",
                     [table, read_json](const std::string& path) {
                       return read_json(path, *table);
                     },
                     bytes});
  readers.push_back({table_name + "Protobuf",
                     [table, read_protobuf](const std::string& path) {
                       return read_protobuf(path, *table);
                     },
                     bytes});
}

std::vector<Reader> AllReaders() {
  std::vector<Reader> readers;
  AddTableReaders<qawb::QAWBBasicTuningTable>(
      "Basic", protomsg::ReadQAWBBasicTuningTableWithJson,
      protomsg::ReadQAWBBasicTuningTableFromProtobuf, 1, readers);
  AddTableReaders<qawb::QAWBAdvanceTuningTable>(
      "Advance", protomsg::ReadQAWBAdvanceTuningTableWithJson,
      protomsg::ReadQAWBAdvanceTuningTableFromProtobuf, 2, readers);
  AddTableReaders<qawb::QAWBColorControlTuningTable>(
      "ColorControl", protomsg::ReadQAWBColorControlTuningTableWithJson,
      protomsg::ReadQAWBColorControlTuningTableFromProtobuf, 3, readers);
  AddTableReaders<qawb::QAWBFeatureTuningTable>(
      "Feature", protomsg::ReadQAWBFeatureTuningTableWithJson,
      protomsg::ReadQAWBFeatureTuningTableFromProtobuf, 4, readers);

  auto tuning = std::make_shared<qawb::MutableQAWBTuning>();
  readers.push_back(
      {"TuningBinaryFile",
       [tuning](const std::string& path) { return tuning->ReadFromFile(path); },
       [tuning] {
         return BytesOf(*tuning->GetBasicTuningTable()) +
                BytesOf(*tuning->GetAdvanceTuningTable()) +
                BytesOf(*tuning->GetColorControlTuningTable()) +
                BytesOf(*tuning->GetFeatureTuningTable());
       }});
  return readers;
}

constexpr int kReaderCount = 9;

// A path that names no readable file, made inside `dir`.
struct BadPath {
  const char* name;
  std::function<std::string(const q3a_test::ScopedTempDir& dir)> make;
};

const BadPath kBadPaths[] = {
    {"Empty", [](const auto&) { return std::string(); }},
    {"MissingFile", [](const auto& dir) { return dir.File("missing"); }},
    {"UnderMissingDirectory",
     [](const auto& dir) { return dir.File("missing/table"); }},
    {"Directory", [](const auto& dir) { return dir.path().string(); }},
    {"DirectoryWithSlash",
     [](const auto& dir) { return dir.path().string() + "/"; }},
    // A regular file used as a directory: the open fails with ENOTDIR.
    {"UnderRegularFile",
     [](const auto& dir) {
       q3a_test::WriteFileBytes(dir.File("plain"), "{}");
       return dir.File("plain/table");
     }},
};

class BadPathTest : public testing::TestWithParam<std::tuple<int, int>> {};

TEST_P(BadPathTest, ReadFailsAndChangesNothing) {
  static const std::vector<Reader> readers = AllReaders();
  ASSERT_EQ(readers.size(), kReaderCount);
  const Reader& reader = readers[std::get<0>(GetParam())];
  const BadPath& bad_path = kBadPaths[std::get<1>(GetParam())];
  q3a_test::ScopedTempDir dir;
  const std::string path = bad_path.make(dir);

  const std::string before = reader.bytes();
  EXPECT_FALSE(reader.read(path));
  EXPECT_TRUE(reader.bytes() == before) << "data changed";
}

INSTANTIATE_TEST_SUITE_P(
    AllReaders, BadPathTest,
    testing::Combine(testing::Range(0, kReaderCount),
                     testing::Range(0, static_cast<int>(std::size(kBadPaths)))),
    [](const testing::TestParamInfo<BadPathTest::ParamType>& info) {
      static const std::vector<Reader> readers = AllReaders();
      return readers[std::get<0>(info.param)].name + "_" +
             kBadPaths[std::get<1>(info.param)].name;
    });

}  // namespace
