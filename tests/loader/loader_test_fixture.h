// A fixture for the override loader's tests: a fixed container and four
// JSON tuning files with distinct contents, in a temporary directory, and the
// libbase log lines each test produces.
#ifndef TESTS_LOADER_LOADER_TEST_FIXTURE_H_
#define TESTS_LOADER_LOADER_TEST_FIXTURE_H_

#include <android-base/logging.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "libs_v4/qAWB/src/base/fixed_qawb_tuning.h"
#include "protomsg/tuning_files.h"
#include "tests/support/record_values.h"
#include "tests/support/scoped_temp_dir.h"
#include "tuning/qawb/load_qawb_tuning_from_file.h"

namespace q3a_test {

using FileMap = std::unordered_map<std::string_view, std::string>;

struct LoggedLine {
  android::base::LogSeverity severity;
  std::string tag;
  std::string file;
  std::string message;
};

// One table of each type.
struct TableSet {
  std::unique_ptr<qawb::QAWBBasicTuningTable> basic;
  std::unique_ptr<qawb::QAWBAdvanceTuningTable> advance;
  std::unique_ptr<qawb::QAWBColorControlTuningTable> color_control;
  std::unique_ptr<qawb::QAWBFeatureTuningTable> feature;
};

// Generated contents, different for every `first_seed`, with version heads
// major.1 to major.4 in the order basic, advance, colour-control, feature.
inline TableSet MakeTableSet(int first_seed, uint16_t major) {
  TableSet set{MakeRecord<qawb::QAWBBasicTuningTable>(first_seed),
               MakeRecord<qawb::QAWBAdvanceTuningTable>(first_seed + 1),
               MakeRecord<qawb::QAWBColorControlTuningTable>(first_seed + 2),
               MakeRecord<qawb::QAWBFeatureTuningTable>(first_seed + 3)};
  set.basic->version = {major, 1};
  set.advance->version = {major, 2};
  set.color_control->version = {major, 3};
  set.feature->version = {major, 4};
  return set;
}

class LoaderTest : public testing::Test {
 protected:
  void SetUp() override {
    basic_path_ = PathOf("basic.json");
    advance_path_ = PathOf("advance.json");
    color_path_ = PathOf("color.json");
    feature_path_ = PathOf("feature.json");

    protomsg::SaveTuningTableWithJson(basic_path_, *from_file_.basic);
    protomsg::SaveTuningTableWithJson(advance_path_, *from_file_.advance);
    protomsg::SaveTuningTableWithJson(color_path_, *from_file_.color_control);
    protomsg::SaveTuningTableWithJson(feature_path_, *from_file_.feature);

    old_severity_ = android::base::SetMinimumLogSeverity(android::base::DEBUG);
    android::base::SetLogger([this](android::base::LogId,
                                    android::base::LogSeverity severity,
                                    const char* tag, const char* file,
                                    unsigned int, const char* message) {
      lines_.push_back({severity, tag == nullptr ? "" : tag,
                        file == nullptr ? "" : file, message});
    });
  }

  void TearDown() override {
    android::base::SetLogger(android::base::StderrLogger);
    android::base::SetMinimumLogSeverity(old_severity_);
  }

  std::string PathOf(std::string_view name) const {
    return dir_.File(std::string(name));
  }

  FileMap AllFiles() const {
    return {{"advance", advance_path_},
            {"basic", basic_path_},
            {"color", color_path_},
            {"feature", feature_path_}};
  }

  // Loads all four files, so that every table differs from `fixed_`, and
  // forgets the log lines that produced.
  const qawb::QAWBTuning* LoadAllFiles() {
    const qawb::QAWBTuning* tuning =
        q3a_coordinator::LoadQawbTuningFromFile(AllFiles(), &fixed_);
    lines_.clear();
    return tuning;
  }

  static void ExpectTables(const qawb::QAWBTuning& tuning,
                           const qawb::QAWBBasicTuningTable& basic,
                           const qawb::QAWBAdvanceTuningTable& advance,
                           const qawb::QAWBColorControlTuningTable& color,
                           const qawb::QAWBFeatureTuningTable& feature) {
    EXPECT_TRUE(SameBytes(*tuning.GetBasicTuningTable(), basic)) << "basic";
    EXPECT_TRUE(SameBytes(*tuning.GetAdvanceTuningTable(), advance))
        << "advance";
    EXPECT_TRUE(SameBytes(*tuning.GetColorControlTuningTable(), color))
        << "color";
    EXPECT_TRUE(SameBytes(*tuning.GetFeatureTuningTable(), feature))
        << "feature";
  }

  q3a_test::ScopedTempDir dir_;
  const TableSet fixed_tables_ = MakeTableSet(1, 5);
  const TableSet from_file_ = MakeTableSet(11, 7);
  const qawb::FixedQAWBTuning fixed_{
      fixed_tables_.basic.get(), fixed_tables_.advance.get(),
      fixed_tables_.color_control.get(), fixed_tables_.feature.get()};
  std::string basic_path_;
  std::string advance_path_;
  std::string color_path_;
  std::string feature_path_;
  std::vector<LoggedLine> lines_;

 private:
  android::base::LogSeverity old_severity_ = android::base::INFO;
};

}  // namespace q3a_test

#endif  // TESTS_LOADER_LOADER_TEST_FIXTURE_H_
