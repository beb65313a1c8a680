#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"

#include <android/log.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

#include "libs_v4/qAWB/src/base/table_access.h"
#include "tests/support/file_bytes.h"
#include "tests/support/record_pairs.h"
#include "tests/support/scoped_temp_dir.h"
#include "tests/support/tuning_bytes.h"

namespace qawb {
namespace {

using q3a_test::SameBytes;
using q3a_test::TableBytes;

constexpr std::size_t kFileSize = MutableQAWBTuning::kTuningBinaryFileSize;
template <typename Record>
constexpr std::size_t kOffset = TuningTable<Record>::kFileOffset;

struct LogLine {
  int priority;
  std::string tag;
  std::string message;
};

std::vector<LogLine>* captured_lines = nullptr;

void CaptureLine(const __android_logger_data* data, const char* message) {
  captured_lines->push_back(
      {data->priority, data->tag == nullptr ? "" : data->tag, message});
}

// The source line in a log head changes with every edit of the container's
// source, so it is checked to be a number and then blanked out.
std::string WithoutLineNumber(const std::string& message) {
  static const std::regex kHead("^(Tuning: [^:]*:)[0-9]+\\] ");
  return std::regex_replace(message, kHead, "$1N] ",
                            std::regex_constants::format_first_only);
}

// Every byte distinct from its neighbours and from the other tables', so any
// misplaced or missed byte shows; the version head is set readably on top.
template <typename Table>
void FillWithPattern(Table& table, unsigned seed, uint16_t minor) {
  auto* bytes = reinterpret_cast<unsigned char*>(&table);
  for (std::size_t i = 0; i < sizeof(Table); ++i) {
    bytes[i] = static_cast<unsigned char>(seed + i * 7 + i / 251);
  }
  table.version = {9, minor};
}

class MutableQAWBTuningTest : public testing::Test {
 protected:
  void SetUp() override {
    captured_lines = &lines_;
    __android_log_set_logger(CaptureLine);

    FillWithPattern(basic_, 11, 1);
    FillWithPattern(advance_, 53, 2);
    FillWithPattern(color_control_, 97, 3);
    FillWithPattern(feature_, 151, 4);
  }

  void TearDown() override {
    __android_log_set_logger(__android_log_stderr_logger);
    captured_lines = nullptr;
  }

  std::string PathOf(const std::string& name) const { return dir_.File(name); }

  // A container whose four tables all differ from the defaults.
  void LoadPatternedTables(MutableQAWBTuning& tuning) const {
    ASSERT_TRUE(
        tuning.ReadFromTable(&basic_, &advance_, &color_control_, &feature_));
  }

  // Reads `path` into a container of the patterned tables, expecting a
  // refusal that changes no table and logs one error line; returns that
  // line without its line number.
  std::string RefusedReadLine(const std::string& path) {
    MutableQAWBTuning tuning;
    LoadPatternedTables(tuning);
    const std::string before = TableBytes(tuning);
    EXPECT_FALSE(tuning.ReadFromFile(path));
    EXPECT_EQ(TableBytes(tuning), before);
    if (lines_.size() != 1u) {
      ADD_FAILURE() << lines_.size() << " lines logged";
      return "";
    }
    EXPECT_EQ(lines_[0].priority, ANDROID_LOG_ERROR);
    EXPECT_EQ(lines_[0].tag, program_invocation_short_name);
    return WithoutLineNumber(lines_[0].message);
  }

  q3a_test::ScopedTempDir dir_;
  std::vector<LogLine> lines_;
  QAWBBasicTuningTable basic_;
  QAWBAdvanceTuningTable advance_;
  QAWBColorControlTuningTable color_control_;
  QAWBFeatureTuningTable feature_;
};

TEST_F(MutableQAWBTuningTest, StartsWithTheDefaultTables) {
  MutableQAWBTuning tuning;
  const QAWBBasicTuningTable& basic = *tuning.GetBasicTuningTable();
  EXPECT_EQ(basic.version.major, 3);
  EXPECT_EQ(basic.version.minor, 0);
  EXPECT_EQ(basic.initial_cct, 4100);
  EXPECT_FLOAT_EQ(basic.initial_gain.r_gain, 1.93594f);
  EXPECT_FLOAT_EQ(basic.initial_gain.g_gain, 1.0f);
  EXPECT_FLOAT_EQ(basic.initial_gain.b_gain, 2.0033f);
  EXPECT_EQ(tuning.GetAdvanceTuningTable()->version.major, 3);
  EXPECT_EQ(tuning.GetAdvanceTuningTable()->version.minor, 0);
  EXPECT_EQ(tuning.GetColorControlTuningTable()->version.major, 3);
  EXPECT_EQ(tuning.GetColorControlTuningTable()->version.minor, 0);
  EXPECT_EQ(tuning.GetFeatureTuningTable()->version.major, 3);
  EXPECT_EQ(tuning.GetFeatureTuningTable()->version.minor, 2);

  MutableQAWBTuning other;
  EXPECT_EQ(TableBytes(tuning), TableBytes(other));
  EXPECT_NE(tuning.GetBasicTuningTable(), other.GetBasicTuningTable());
}

TEST_F(MutableQAWBTuningTest, ReadFromTableCopiesAllFourTables) {
  MutableQAWBTuning tuning;
  const void* basic_address = tuning.GetBasicTuningTable();
  LoadPatternedTables(tuning);
  EXPECT_EQ(tuning.GetBasicTuningTable(), basic_address);
  EXPECT_TRUE(SameBytes(*tuning.GetBasicTuningTable(), basic_));
  EXPECT_TRUE(SameBytes(*tuning.GetAdvanceTuningTable(), advance_));
  EXPECT_TRUE(SameBytes(*tuning.GetColorControlTuningTable(), color_control_));
  EXPECT_TRUE(SameBytes(*tuning.GetFeatureTuningTable(), feature_));
}

TEST_F(MutableQAWBTuningTest, FileRoundTripRestoresEveryByte) {
  MutableQAWBTuning written;
  LoadPatternedTables(written);
  const std::string path = PathOf("round_trip.bin");
  written.WriteToFile(path);

  MutableQAWBTuning read;
  ASSERT_TRUE(read.ReadFromFile(path));
  EXPECT_EQ(TableBytes(read), TableBytes(written));
  EXPECT_TRUE(lines_.empty());
}

TEST_F(MutableQAWBTuningTest, FileHoldsTheTablesBackToBack) {
  MutableQAWBTuning tuning;
  LoadPatternedTables(tuning);
  const std::string path = PathOf("layout.bin");
  tuning.WriteToFile(path);
  const std::string file = q3a_test::ReadFile(path);
  ASSERT_EQ(file.size(), kFileSize);

  struct Expected {
    std::size_t offset;
    const void* table;
    std::size_t size;
    uint16_t minor;
  };
  const Expected expected[] = {
      {kOffset<QAWBBasicTuningTable>, &basic_, sizeof(basic_), 1},
      {kOffset<QAWBAdvanceTuningTable>, &advance_, sizeof(advance_), 2},
      {kOffset<QAWBColorControlTuningTable>, &color_control_,
       sizeof(color_control_), 3},
      {kOffset<QAWBFeatureTuningTable>, &feature_, sizeof(feature_), 4},
  };
  for (const Expected& e : expected) {
    SCOPED_TRACE(e.offset);
    QAWBParameterVersion head;
    std::memcpy(&head, file.data() + e.offset, sizeof(head));
    EXPECT_EQ(head.major, 9);
    EXPECT_EQ(head.minor, e.minor);
    EXPECT_EQ(std::memcmp(file.data() + e.offset, e.table, e.size), 0);
  }
}

struct WrongSize {
  const char* name;
  std::size_t size;
};

class WrongSizeTest : public MutableQAWBTuningTest,
                      public testing::WithParamInterface<WrongSize> {};

// The file holds a valid dump of other tables (the defaults), cut short or
// repeated, so a reader that took any of it would show.
TEST_P(WrongSizeTest, IsRejectedWholeAndLogged) {
  const std::size_t size = GetParam().size;
  std::string bytes = TableBytes(MutableQAWBTuning());
  bytes += bytes;
  bytes.resize(std::min(size, bytes.size()));
  const std::string path = PathOf("wrong_size.bin");
  ASSERT_TRUE(q3a_test::WriteFile(path, bytes));
  std::filesystem::resize_file(path, size);  // larger sizes stay sparse
  // The log prints the size as a 32-bit int.
  EXPECT_EQ(RefusedReadLine(path),
            "Tuning: mutable_qawb_tuning.cc:N] ReadFromFile: The size of "
            "tuning binary file does not match ideal file "
            "size.ideal_file_size=" +
                std::to_string(kFileSize) + " file_size=" +
                std::to_string(static_cast<std::int32_t>(size)));
}

INSTANTIATE_TEST_SUITE_P(
    MutableQAWBTuning, WrongSizeTest,
    testing::Values(WrongSize{"Empty", 0}, WrongSize{"OneByte", 1},
                    WrongSize{"BasicTableOnly",
                              kOffset<QAWBAdvanceTuningTable>},
                    WrongSize{"FirstThreeTables",
                              kOffset<QAWBFeatureTuningTable>},
                    WrongSize{"OneByteShort", kFileSize - 1},
                    WrongSize{"OneByteLong", kFileSize + 1},
                    WrongSize{"TwoDumps", 2 * kFileSize},
                    // Its low 32 bits alone would pass the size check.
                    WrongSize{"SizePlus4GiB",
                              kFileSize + (std::size_t{1} << 32)}),
    [](const testing::TestParamInfo<WrongSize>& info) {
      return std::string(info.param.name);
    });

// Paths that name no tuning binary file are refused and logged once; the
// tables stay as they were. A directory opens on Linux but has no usable
// size, so the size check is what refuses it.
struct UnreadablePath {
  const char* name;
  const char* file;    // in the scratch directory ("" itself); null: ""
  const char* logged;  // the error line after "ReadFromFile: "
  bool names_path;     // the line ends with the path
};

class UnreadablePathTest : public MutableQAWBTuningTest,
                           public testing::WithParamInterface<UnreadablePath> {
};

TEST_P(UnreadablePathTest, IsRefusedAndLoggedOnce) {
  const UnreadablePath& c = GetParam();
  const std::string path = c.file != nullptr ? PathOf(c.file) : "";
  const std::string line = RefusedReadLine(path);
  EXPECT_THAT(line, testing::StartsWith(
                        "Tuning: mutable_qawb_tuning.cc:N] ReadFromFile: " +
                        std::string(c.logged)));
  if (c.names_path) {
    EXPECT_THAT(line, testing::EndsWith(": " + path));
  }
}

INSTANTIATE_TEST_SUITE_P(
    MutableQAWBTuning, UnreadablePathTest,
    testing::Values(
        UnreadablePath{"Missing", "missing.bin",
                       "Could not open the tuning binary file", true},
        UnreadablePath{"Directory", "",
                       "The size of tuning binary file does not match", false},
        UnreadablePath{"EmptyPath", nullptr,
                       "Could not open the tuning binary file", true}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(MutableQAWBTuningTest, UnwritablePathIsLogged) {
  MutableQAWBTuning tuning;
  const std::string path = PathOf("no_such_dir/dump.bin");
  tuning.WriteToFile(path);

  EXPECT_FALSE(std::filesystem::exists(path));
  ASSERT_EQ(lines_.size(), 1u);
  EXPECT_EQ(lines_[0].priority, ANDROID_LOG_ERROR);
  EXPECT_EQ(lines_[0].tag, program_invocation_short_name);
  EXPECT_EQ(WithoutLineNumber(lines_[0].message),
            "Tuning: mutable_qawb_tuning.cc:N] WriteToFile: Could not open "
            "debug dump file: " +
                path);
}

// The log's minimum priority above ERROR silences the container; its
// results stay the same.
TEST_F(MutableQAWBTuningTest, LogsNothingWhenErrorIsNotLoggable) {
  const int before_priority =
      __android_log_set_minimum_priority(ANDROID_LOG_FATAL);
  MutableQAWBTuning tuning;
  LoadPatternedTables(tuning);
  const std::string before = TableBytes(tuning);
  const std::string wrong_size = PathOf("wrong_size.bin");
  ASSERT_TRUE(q3a_test::WriteFile(wrong_size, "short"));

  tuning.WriteToFile(PathOf("no_such_dir/dump.bin"));
  EXPECT_FALSE(tuning.ReadFromFile(PathOf("missing.bin")));
  EXPECT_FALSE(tuning.ReadFromFile(wrong_size));
  __android_log_set_minimum_priority(before_priority);

  EXPECT_EQ(TableBytes(tuning), before);
  EXPECT_TRUE(lines_.empty());
}

template <typename Table>
class MutableQAWBTuningSetterTest : public testing::Test {};

TYPED_TEST_SUITE(MutableQAWBTuningSetterTest, q3a_test::AllTables);

TYPED_TEST(MutableQAWBTuningSetterTest, NullIsRefusedAndChangesNothing) {
  MutableQAWBTuning tuning;
  const std::string before = TableBytes(tuning);
  EXPECT_FALSE(SetTable<TypeParam>(tuning, nullptr));
  EXPECT_EQ(TableBytes(tuning), before);
}

TYPED_TEST(MutableQAWBTuningSetterTest, SetTableIsSeenAtTheSameAddress) {
  MutableQAWBTuning tuning;
  const MutableQAWBTuning defaults;
  const TypeParam* address = GetTable<TypeParam>(tuning);
  TypeParam table;
  FillWithPattern(table, 29, 2);
  table.version = {3, 2};

  ASSERT_TRUE(SetTable(tuning, &table));
  EXPECT_EQ(GetTable<TypeParam>(tuning), address);
  EXPECT_EQ(address->version.major, 3);
  EXPECT_EQ(address->version.minor, 2);
  EXPECT_TRUE(SameBytes(*address, table));

  // The other three tables are left alone.
  table = *GetTable<TypeParam>(defaults);
  ASSERT_TRUE(SetTable(tuning, &table));
  EXPECT_EQ(TableBytes(tuning), TableBytes(defaults));
}

}  // namespace
}  // namespace qawb
