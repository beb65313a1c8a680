// Every reader of the library against paths that name no readable file: each
// returns false and leaves the caller's data byte for byte as it was.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "protomsg/tuning_table_traits.h"
#include "tests/support/file_bytes.h"
#include "tests/support/record_values.h"
#include "tests/support/scoped_temp_dir.h"
#include "tests/support/tuning_bytes.h"

namespace {

using q3a_test::MakeRecord;

// One reader over data of its own; `read` returns the reader's result and
// `bytes` the data it reads into.
struct Reader {
  std::string name;
  std::function<bool(const std::string&)> read;
  std::function<std::string()> bytes;
};

// Both readers of every table, then the container's tuning binary file.
std::vector<Reader> AllReaders() {
  std::vector<Reader> readers;
  qawb::ForEachTable([&]<typename Table>() {
    using Traits = protomsg::TuningTableTraits<Table>;
    std::shared_ptr<Table> table =
        MakeRecord<Table>(1 + static_cast<int>(Traits::kId));
    auto bytes = [table] { return q3a_test::BytesOf(*table); };
    const std::string name(Traits::kName);
    readers.push_back({name + "_json",
                       [table](const std::string& path) {
                         return Traits::kReadJson(path, *table);
                       },
                       bytes});
    readers.push_back({name + "_protobuf",
                       [table](const std::string& path) {
                         return Traits::kReadProtobuf(path, *table);
                       },
                       bytes});
  });
  auto tuning = std::make_shared<qawb::MutableQAWBTuning>();
  readers.push_back(
      {"tuning_binary_file",
       [tuning](const std::string& path) { return tuning->ReadFromFile(path); },
       [tuning] { return q3a_test::TableBytes(*tuning); }});
  return readers;
}

constexpr int kReaderCount =
    2 * static_cast<int>(qawb::TuningTables::kSize) + 1;

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
       q3a_test::WriteFile(dir.File("plain"), "{}");
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
