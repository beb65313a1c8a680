#include "tuning/qawb/load_qawb_tuning_from_file.h"

#include <android-base/logging.h>
#include <google/protobuf/util/json_util.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "libs_v4/qAWB/proto/qawb_tuning.pb.h"
#include "protomsg/record_conversions.h"
#include "tests/loader/loader_test_fixture.h"

namespace q3a_test {
namespace {

using q3a_coordinator::LoadQawbTuningFromFile;

bool EndsWith(const std::string& text, std::string_view suffix) {
  return text.size() >= suffix.size() &&
         text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

void ExpectLoadedLine(const LoggedLine& line, const std::string& message) {
  EXPECT_EQ(line.severity, android::base::DEBUG);
  EXPECT_EQ(line.tag, "Q3ACoordinator");
  EXPECT_TRUE(EndsWith(line.file, "load_qawb_tuning_from_file.cc"))
      << line.file;
  EXPECT_EQ(line.message, message);
}

TEST_F(LoaderTest, EmptyMapCopiesTheFixedTables) {
  LoadAllFiles();
  const qawb::QAWBTuning* tuning = LoadQawbTuningFromFile({}, &fixed_);
  ASSERT_NE(tuning, nullptr);
  ExpectTables(*tuning, *fixed_tables_.basic, *fixed_tables_.advance,
               *fixed_tables_.color_control, *fixed_tables_.feature);
  EXPECT_NE(tuning->GetBasicTuningTable(), fixed_.GetBasicTuningTable());
  EXPECT_TRUE(lines_.empty());
}

TEST_F(LoaderTest, AllFourFilesAreLoadedAndLoggedInTableOrder) {
  LoadQawbTuningFromFile({}, &fixed_);
  const qawb::QAWBTuning* tuning = LoadQawbTuningFromFile(AllFiles(), &fixed_);
  ASSERT_NE(tuning, nullptr);
  ExpectTables(*tuning, *from_file_.basic, *from_file_.advance,
               *from_file_.color_control, *from_file_.feature);
  ASSERT_EQ(lines_.size(), 4u);
  ExpectLoadedLine(lines_[0], "SetAdvanceTuningTable with file \"" +
                                  advance_path_ + "\". (Version:7.2)");
  ExpectLoadedLine(lines_[1], "SetBasicTuningTable with file \"" + basic_path_ +
                                  "\". (Version:7.1)");
  ExpectLoadedLine(lines_[2], "SetColorControlTuningTable with file \"" +
                                  color_path_ + "\". (Version:7.3)");
  ExpectLoadedLine(lines_[3], "SetFeatureTuningTable with file \"" +
                                  feature_path_ + "\". (Version:7.4)");
}

// The DEBUG line is written only when DEBUG is loggable; the tables load
// either way.
TEST_F(LoaderTest, LoadsWithoutALineWhenDebugIsNotLoggable) {
  android::base::SetMinimumLogSeverity(android::base::INFO);
  const qawb::QAWBTuning* tuning = LoadQawbTuningFromFile(AllFiles(), &fixed_);
  ASSERT_NE(tuning, nullptr);
  ExpectTables(*tuning, *from_file_.basic, *from_file_.advance,
               *from_file_.color_control, *from_file_.feature);
  EXPECT_TRUE(lines_.empty());
}

// One key at a time: that table comes from its file and the other three from
// the fixed container.
TEST_F(LoaderTest, OneFileReplacesOnlyItsTable) {
  struct Case {
    std::string_view key;
    const std::string* path;
    std::string_view setter;
    std::string_view version;
  };
  const Case cases[] = {
      {"advance", &advance_path_, "SetAdvanceTuningTable", "7.2"},
      {"basic", &basic_path_, "SetBasicTuningTable", "7.1"},
      {"color", &color_path_, "SetColorControlTuningTable", "7.3"},
      {"feature", &feature_path_, "SetFeatureTuningTable", "7.4"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.key);
    LoadQawbTuningFromFile({}, &fixed_);
    lines_.clear();
    const qawb::QAWBTuning* tuning =
        LoadQawbTuningFromFile({{c.key, *c.path}}, &fixed_);
    ASSERT_NE(tuning, nullptr);
    ExpectTables(
        *tuning, c.key == "basic" ? *from_file_.basic : *fixed_tables_.basic,
        c.key == "advance" ? *from_file_.advance : *fixed_tables_.advance,
        c.key == "color" ? *from_file_.color_control
                         : *fixed_tables_.color_control,
        c.key == "feature" ? *from_file_.feature : *fixed_tables_.feature);
    ASSERT_EQ(lines_.size(), 1u);
    ExpectLoadedLine(lines_[0],
                     std::string(c.setter) + " with file \"" + *c.path +
                         "\". (Version:" + std::string(c.version) + ")");
  }
}

// Each case names a basic table that cannot be had; the basic table then
// stays as the previous call left it, and nothing is logged.
TEST_F(LoaderTest, UnavailableBasicTableKeepsThePreviousOne) {
  const std::string malformed = PathOf("malformed.json");
  std::ofstream(malformed) << "{\"version\": ";
  const std::string unknown_field = PathOf("unknown_field.json");
  std::ofstream(unknown_field) << "{\"no_such_field\": 1}";
  const qawb::FixedQAWBTuning no_basic(nullptr, fixed_tables_.advance.get(),
                                       fixed_tables_.color_control.get(),
                                       fixed_tables_.feature.get());
  struct Case {
    const char* name;
    FileMap files;
    const qawb::QAWBTuning* fixed;
  };
  const Case cases[] = {
      {"empty path", {{"basic", ""}}, &fixed_},
      {"missing file", {{"basic", PathOf("missing.json")}}, &fixed_},
      {"malformed file", {{"basic", malformed}}, &fixed_},
      {"unknown field", {{"basic", unknown_field}}, &fixed_},
      {"another table's file", {{"basic", advance_path_}}, &fixed_},
      {"null fallback table", {}, &no_basic},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    LoadAllFiles();
    const qawb::QAWBTuning* tuning = LoadQawbTuningFromFile(c.files, c.fixed);
    ASSERT_NE(tuning, nullptr);
    ExpectTables(*tuning, *from_file_.basic, *fixed_tables_.advance,
                 *fixed_tables_.color_control, *fixed_tables_.feature);
    EXPECT_TRUE(lines_.empty());
  }
}

TEST_F(LoaderTest, KeysMustMatchExactly) {
  LoadAllFiles();
  const FileMap files = {
      {"Advance", advance_path_}, {"advanced", advance_path_},
      {"BASIC", basic_path_},     {"basi", basic_path_},
      {"colour", color_path_},    {"Color", color_path_},
      {"featur", feature_path_},  {"features", feature_path_},
  };
  const qawb::QAWBTuning* tuning = LoadQawbTuningFromFile(files, &fixed_);
  ASSERT_NE(tuning, nullptr);
  ExpectTables(*tuning, *fixed_tables_.basic, *fixed_tables_.advance,
               *fixed_tables_.color_control, *fixed_tables_.feature);
  EXPECT_TRUE(lines_.empty());
}

TEST_F(LoaderTest, ModelsMissingFromTheFileGetBipolarFactorMinusOne) {
  qawb::tuning::QAWBFeatureTuningTable message;
  protomsg::ConvertToMessage(*from_file_.feature, message);
  message.mutable_asd_aggregator_tuning_table()
      ->mutable_model_tuning()
      ->DeleteSubrange(2, 4);
  std::string json;
  ASSERT_TRUE(google::protobuf::util::MessageToJsonString(message, &json).ok());
  const std::string path = PathOf("two_models.json");
  std::ofstream(path) << json;

  const qawb::QAWBTuning* tuning =
      LoadQawbTuningFromFile({{"feature", path}}, &fixed_);
  ASSERT_NE(tuning, nullptr);
  qawb::QAWBFeatureTuningTable expected = *from_file_.feature;
  for (int i = 2; i < 6; ++i) {
    expected.asd_aggregator_tuning_table.model_tuning[i] = {};
    expected.asd_aggregator_tuning_table.model_tuning[i].bipolar_factor = -1.0f;
  }
  EXPECT_TRUE(SameBytes(*tuning->GetFeatureTuningTable(), expected));
  EXPECT_EQ(tuning->GetFeatureTuningTable()
                ->asd_aggregator_tuning_table.model_tuning[5]
                .bipolar_factor,
            -1.0f);
}

TEST_F(LoaderTest, NullFixedReturnsNullAndReadsNothing) {
  LoadQawbTuningFromFile({}, &fixed_);
  EXPECT_EQ(LoadQawbTuningFromFile(AllFiles(), nullptr), nullptr);
  EXPECT_TRUE(lines_.empty());

  const FileMap keep_all = {
      {"advance", ""}, {"basic", ""}, {"color", ""}, {"feature", ""}};
  const qawb::QAWBTuning* tuning = LoadQawbTuningFromFile(keep_all, &fixed_);
  ASSERT_NE(tuning, nullptr);
  ExpectTables(*tuning, *fixed_tables_.basic, *fixed_tables_.advance,
               *fixed_tables_.color_control, *fixed_tables_.feature);
}

TEST_F(LoaderTest, LaterCallsReturnTheSameContainer) {
  LoadQawbTuningFromFile({}, &fixed_);
  const qawb::QAWBTuning* first =
      LoadQawbTuningFromFile({{"advance", advance_path_}}, &fixed_);
  const qawb::QAWBTuning* second = LoadQawbTuningFromFile(
      {{"advance", ""}, {"color", color_path_}}, &fixed_);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first, second);
  ExpectTables(*first, *fixed_tables_.basic, *from_file_.advance,
               *from_file_.color_control, *fixed_tables_.feature);
}

}  // namespace
}  // namespace q3a_test
