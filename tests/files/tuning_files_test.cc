// The tuning file readers and writers of all four tables, in both encodings:
// what round-trips, what a reader rejects, and that a rejected file leaves
// the caller's table exactly as it was.
#include "protomsg/tuning_files.h"

#include <google/protobuf/descriptor.h>
#include <google/protobuf/message.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <thread>

#include "protomsg/record_conversions.h"
#include "protomsg/tuning_table_traits.h"
#include "tests/support/file_bytes.h"
#include "tests/support/record_checks.h"
#include "tests/support/record_pairs.h"
#include "tests/support/record_values.h"
#include "tests/support/scoped_temp_dir.h"

namespace {

using q3a_test::MakeRecord;
using q3a_test::SameBytes;

enum class Encoding { kJson, kProtobuf };

// A JSON text per table that names a frame-summary kind in the wrong letter
// case (the colour-control table has none).
template <typename Table>
constexpr const char* kBadEnumCase = nullptr;
template <>
constexpr const char* kBadEnumCase<qawb::QAWBBasicTuningTable> =
    R"({"grey_final_trust_level_list": {"bv_stats_trust_info": {)"
    R"("stats_type": {"target_region": "kQAWBFrameSummaryTypegrey"}}}})";
template <>
constexpr const char* kBadEnumCase<qawb::QAWBAdvanceTuningTable> =
    R"({"outdoor_tuning_table": {"outdoor_final_trust_level_list": {)"
    R"("bv_stats_trust_info": {"stats_type": {"base_region": )"
    R"(["KQAWBFRAMESUMMARYTYPEGREY"]}}}}})";
template <>
constexpr const char* kBadEnumCase<qawb::QAWBFeatureTuningTable> =
    R"({"face_tuning_table": {"face_ideal_cct_trust_level_list": {)"
    R"("stats_type": {"target_region": "kqawbframesummarytypeface"}}}})";

// Another table than `Table`, whose files `Table`'s readers must reject: the
// next one in the tuning binary file, the last one's being the first.
template <typename Table>
using OtherTable =
    qawb::TypeAt<qawb::TuningTables,
                 (qawb::IndexOf<Table>(qawb::TuningTables{}) + 1) %
                     qawb::TuningTables::kSize>;

template <typename Table>
class TuningFiles : public testing::Test {
 protected:
  using Files = protomsg::TuningTableTraits<Table>;

  static void Save(Encoding encoding, const std::string& path,
                   const Table& table) {
    if (encoding == Encoding::kJson) {
      protomsg::SaveTuningTableWithJson(path, table);
    } else {
      protomsg::SaveTuningTableWithProtobuf(path, table);
    }
  }

  static bool Read(Encoding encoding, const std::string& path, Table& table) {
    return encoding == Encoding::kJson ? Files::kReadJson(path, table)
                                       : Files::kReadProtobuf(path, table);
  }

  // Expects the reader to reject `path` and leave the table untouched.
  void ExpectRejected(Encoding encoding, const std::string& path,
                      const std::string& what) {
    auto table = MakeRecord<Table>(5);
    const auto before = MakeRecord<Table>(5);
    EXPECT_FALSE(Read(encoding, path, *table)) << what;
    EXPECT_TRUE(SameBytes(*table, *before)) << what << " changed the table";
  }

  q3a_test::ScopedTempDir dir_;
};

TYPED_TEST_SUITE(TuningFiles, q3a_test::AllTables);

TYPED_TEST(TuningFiles, WriteThenReadKeepsEveryField) {
  for (Encoding encoding : {Encoding::kJson, Encoding::kProtobuf}) {
    const std::string path = this->dir_.File("table");
    const auto written = MakeRecord<TypeParam>(1);
    this->Save(encoding, path, *written);
    auto read = MakeRecord<TypeParam>(2);
    ASSERT_TRUE(this->Read(encoding, path, *read));
    EXPECT_TRUE(SameBytes(*read, *written));
  }
}

// The writers report nothing; a path they cannot open gets no file.
TYPED_TEST(TuningFiles, WriterToAPathThatCannotBeOpenedWritesNothing) {
  const auto table = MakeRecord<TypeParam>(1);
  for (Encoding encoding : {Encoding::kJson, Encoding::kProtobuf}) {
    const std::string path = this->dir_.File("missing/table");
    this->Save(encoding, path, *table);
    EXPECT_FALSE(std::ifstream(path).is_open());
  }
}

// A FIFO reports no size, so the reader cannot size its buffer up front and
// must still read the file to its end.
TYPED_TEST(TuningFiles, ReadsAFileWhoseSizeIsNotKnownUpFront) {
  for (Encoding encoding : {Encoding::kJson, Encoding::kProtobuf}) {
    const auto written = MakeRecord<TypeParam>(3);
    const std::string file = this->dir_.File("table");
    this->Save(encoding, file, *written);
    const std::string bytes = q3a_test::ReadFile(file);
    const std::string fifo = this->dir_.File("fifo");
    std::filesystem::remove(fifo);
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    std::thread writer([&] { std::ofstream(fifo) << bytes; });
    auto read = MakeRecord<TypeParam>(4);
    const bool ok = this->Read(encoding, fifo, *read);
    writer.join();
    ASSERT_TRUE(ok);
    EXPECT_TRUE(SameBytes(*read, *written));
  }
}

TYPED_TEST(TuningFiles, RejectsWhatIsNotThisTablesFile) {
  const std::string other_json = this->dir_.File("other.json");
  const std::string other_binary = this->dir_.File("other.pb");
  const auto other = MakeRecord<OtherTable<TypeParam>>(3);
  protomsg::SaveTuningTableWithJson(other_json, *other);
  protomsg::SaveTuningTableWithProtobuf(other_binary, *other);
  // A binary file cut in the middle of its first field.
  const std::string own_binary = this->dir_.File("own.pb");
  this->Save(Encoding::kProtobuf, own_binary, *MakeRecord<TypeParam>(4));
  const std::string truncated = this->dir_.File("truncated.pb");
  q3a_test::WriteFile(truncated, q3a_test::ReadFile(own_binary).substr(0, 3));

  const struct {
    const char* what;
    std::string text;  // written to the file; ignored for the named paths
  } json_cases[] = {
      {"unknown field", R"({"no_such_field": 1})"},
      {"syntax error", R"({"version": {"major": 3,)"},
      {"empty file", ""},
      {"whitespace only", "  \n"},
      {"binary content", q3a_test::ReadFile(own_binary)},
  };
  for (const auto& c : json_cases) {
    const std::string path = this->dir_.File("case.json");
    q3a_test::WriteFile(path, c.text);
    this->ExpectRejected(Encoding::kJson, path, c.what);
  }
  if constexpr (kBadEnumCase<TypeParam> != nullptr) {
    const std::string path = this->dir_.File("enum.json");
    q3a_test::WriteFile(path, kBadEnumCase<TypeParam>);
    this->ExpectRejected(Encoding::kJson, path, "enum name in other case");
  }
  this->ExpectRejected(Encoding::kJson, other_json, "another table's file");

  this->ExpectRejected(Encoding::kProtobuf, truncated, "truncated message");
  this->ExpectRejected(Encoding::kProtobuf, other_json, "JSON text");
  for (Encoding encoding : {Encoding::kJson, Encoding::kProtobuf}) {
    this->ExpectRejected(encoding, "", "empty path");
    this->ExpectRejected(encoding, this->dir_.File("missing"), "missing file");
    this->ExpectRejected(encoding, this->dir_.path().string(), "directory");
  }
}

TYPED_TEST(TuningFiles, EmptyMessageZeroesScalarsAndKeepsArrays) {
  const std::string json = this->dir_.File("empty.json");
  const std::string binary = this->dir_.File("empty.pb");
  q3a_test::WriteFile(json, "{}");
  q3a_test::WriteFile(binary, "");
  for (Encoding encoding : {Encoding::kJson, Encoding::kProtobuf}) {
    auto table = MakeRecord<TypeParam>(6);
    const auto before = MakeRecord<TypeParam>(6);
    ASSERT_TRUE(this->Read(
        encoding, encoding == Encoding::kJson ? json : binary, *table));
    q3a_test::ExpectDefaultScalarsAndKeptArrays(*table, *before);
  }
}

// Counts the singular scalar fields of every message in the tree.
int CountSingularScalars(const google::protobuf::Message& message) {
  const auto* descriptor = message.GetDescriptor();
  const auto* reflection = message.GetReflection();
  int count = 0;
  for (int i = 0; i < descriptor->field_count(); ++i) {
    const auto* field = descriptor->field(i);
    const bool is_message =
        field->cpp_type() == google::protobuf::FieldDescriptor::CPPTYPE_MESSAGE;
    if (!is_message) {
      count += field->is_repeated() ? 0 : 1;
    } else if (field->is_repeated()) {
      for (int j = 0; j < reflection->FieldSize(message, field); ++j) {
        count += CountSingularScalars(
            reflection->GetRepeatedMessage(message, field, j));
      }
    } else {
      count += CountSingularScalars(reflection->GetMessage(message, field));
    }
  }
  return count;
}

TEST(JsonTuningFile, ZeroTableStillListsEveryScalar) {
  q3a_test::ScopedTempDir dir;
  const std::string path = dir.File("zero.json");
  const auto zero = std::make_unique<qawb::QAWBFeatureTuningTable>();
  protomsg::SaveTuningTableWithJson(path, *zero);

  qawb::tuning::QAWBFeatureTuningTable message;
  protomsg::ConvertToMessage(*zero, message);
  // The printer puts each scalar on a line of its own, as "name": value.
  std::istringstream text(q3a_test::ReadFile(path));
  int scalar_lines = 0;
  for (std::string line; std::getline(text, line);) {
    const auto colon = line.find("\": ");
    if (colon != std::string::npos && line.back() != '{' &&
        line.back() != '[') {
      ++scalar_lines;
    }
  }
  EXPECT_EQ(scalar_lines, CountSingularScalars(message));
}

TEST(JsonTuningFile, MatchesTheGoldenFileByteForByte) {
  auto table = std::make_unique<qawb::QAWBAdvanceTuningTable>();
  table->version = {3, 2};
  auto& special = table->special_color_tuning_table;
  special.enable_flag = 1;
  special.special_color_group_number = 1;
  special.special_color_group_list[0].weight = 0.75f;
  special.special_color_group_list[0].special_color_region_number = 1;
  auto& region =
      special.special_color_group_list[0].special_color_region_list[0];
  region.bv_number = 1;
  region.special_color_region_bv_list[0] = {-3, {6500, 4800, -12, 30}};
  auto& trust = table->outdoor_tuning_table.outdoor_final_trust_level_list;
  trust.bv_stats_trust_info.stats_type.target_region =
      qawb::kQAWBFrameSummaryTypeOutdoor;
  trust.bv_trust_info.bv_set.bv_trust_list[0] = {70, 0.125f};

  q3a_test::ScopedTempDir dir;
  const std::string path = dir.File("advance.json");
  protomsg::SaveTuningTableWithJson(path, *table);
  EXPECT_EQ(q3a_test::ReadFile(path),
            q3a_test::ReadFile(std::string(Q3A_TEST_DATA_DIR) +
                               "/advance_table.json"));
}

}  // namespace
