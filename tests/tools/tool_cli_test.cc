// The q3a-tuning binary end to end: every subcommand's success path on the
// built-in data, validate's findings and refusals with file, place and
// field, diff, load, and usage errors.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "awb_records/tuning_tables.h"
#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "tests/support/table_versions.h"
#include "tests/tools/tool_runner.h"

namespace q3a_test {
namespace {

using testing::HasSubstr;

constexpr char kKey[] = "0,-1,1,0,-1";
constexpr q3a_api::TuningKey kTuningKey = {0, -1, 1, 0, -1};
constexpr std::size_t kFileSize =
    qawb::MutableQAWBTuning::kTuningBinaryFileSize;

// The line `inspect` prints for the table Record, as far as its version.
template <typename Record>
std::string InspectLine(const std::string& version) {
  using Table = qawb::TuningTable<Record>;
  char line[128];
  std::snprintf(line, sizeof(line), "%-8s offset %6zu size %6zu version %s",
                std::string(Table::kName).c_str(), Table::kFileOffset,
                sizeof(Record), version.c_str());
  return line;
}

class ToolCliTest : public ToolTest {
 protected:
  // The four JSON tables of the container under kKey, in `dir`.
  void Export(const std::string& dir) {
    const ToolResult result = Run({"export", "--key", kKey, "-o", Path(dir)});
    ASSERT_EQ(result.exit_code, 0) << result.err;
  }
};

// The registry as `list --json` shows it, against a reviewed snapshot: a
// change to the registrations or the built-in tables shows here. After
// reviewing the difference, update it with
// `q3a-tuning list --json > tests/tools/testdata/list.json`.
TEST_F(ToolCliTest, ListJsonMatchesTheReviewedSnapshot) {
  const ToolResult json = Run({"list", "--json"});
  ASSERT_EQ(json.exit_code, 0) << json.err;
  EXPECT_EQ(json.err, "");
  EXPECT_EQ(json.out,
            ReadFile(Q3A_SOURCE_ROOT "/tests/tools/testdata/list.json"));
}

TEST_F(ToolCliTest, ListShowsTheSameRegistrationsAsText) {
  const ToolResult text = Run({"list"});
  ASSERT_EQ(text.exit_code, 0) << text.err;
  EXPECT_EQ(text.err, "");
  const ToolResult json = Run({"list", "--json"});
  int awb_lines = 0;
  std::istringstream lines(text.out);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("awb ")) ++awb_lines;
  }
  int awb_entries = 0;
  for (std::size_t at = json.out.find("\"node\": \"awb\"");
       at != std::string::npos;
       at = json.out.find("\"node\": \"awb\"", at + 1)) {
    ++awb_entries;
  }
  EXPECT_GT(awb_entries, 0);
  EXPECT_EQ(awb_lines, awb_entries);
  EXPECT_THAT(text.out, HasSubstr("used by"));
}

TEST_F(ToolCliTest, ExportWritesTheFourTablesInEitherFormat) {
  const ToolResult json = Run({"export", "--key", kKey, "-o", Path("json")});
  ASSERT_EQ(json.exit_code, 0) << json.err;
  EXPECT_EQ(json.out, Path("json") + "/basic.json\n" + Path("json") +
                          "/advance.json\n" + Path("json") + "/color.json\n" +
                          Path("json") + "/feature.json\n");
  const ToolResult binary =
      Run({"export", "--defaults", "-o", Path("pb"), "--format", "binary"});
  ASSERT_EQ(binary.exit_code, 0) << binary.err;
  EXPECT_TRUE(std::filesystem::exists(Path("pb") + "/feature.pb"));
}

TEST_F(ToolCliTest, ConvertRoundTripsJsonThroughBinary) {
  Export("t");
  const std::string json = Path("t") + "/color.json";
  ASSERT_EQ(Run({"convert", json, Path("color.pb")}).exit_code, 0);
  const ToolResult back =
      Run({"convert", Path("color.pb"), Path("back.json"), "--table", "color"});
  ASSERT_EQ(back.exit_code, 0) << back.err;
  EXPECT_EQ(ReadFile(Path("back.json")), ReadFile(json));
}

TEST_F(ToolCliTest, DiffOfIdenticalTablesIsEmpty) {
  Export("t");
  const ToolResult result = Run({"diff", Path("t") + "/feature.json",
                                 std::string("awb:") + kKey + ":feature"});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  EXPECT_EQ(result.out, "feature table: 0 field(s) differ\n");
}

TEST_F(ToolCliTest, DiffNamesEditedFieldsAndHonoursTolerance) {
  Export("t");
  const std::string edited =
      WriteEdited("edited.json", Path("t/basic.json"),
                  {{"\"initial_cct\": 4100", "\"initial_cct\": 4200"},
                   {"\"g_gain\": 1,", "\"g_gain\": 1.001,"}});

  const ToolResult strict =
      Run({"diff", std::string("awb:") + kKey + ":basic", edited});
  EXPECT_EQ(strict.exit_code, 1);
  EXPECT_EQ(strict.out,
            "initial_gain.g_gain: 1 -> 1.001\n"
            "initial_cct: 4100 -> 4200\n"
            "basic table: 2 field(s) differ\n");
  const ToolResult loose = Run({"diff", std::string("awb:") + kKey + ":basic",
                                edited, "--tolerance", "0.01"});
  EXPECT_EQ(loose.exit_code, 1);
  EXPECT_EQ(loose.out,
            "initial_cct: 4100 -> 4200\nbasic table: 1 field(s) differ\n");
}

// set warns of what its edit makes wrong, not again of what was wrong before.
TEST_F(ToolCliTest, SetWarnsOfTheFindingsItMakesOnly) {
  Export("t");
  const std::string stats =
      "outdoor_tuning_table.outdoor_final_trust_level_list."
      "bv_stats_trust_info.stats_type";
  const ToolResult first =
      Run({"set", Path("t/advance.json"),
           stats + ".target_region=kQAWBFrameSummaryTypeInvalid"});
  EXPECT_EQ(first.exit_code, 0);
  EXPECT_THAT(first.err, HasSubstr(stats + ".target_region: "
                                           "kQAWBFrameSummaryTypeInvalid is "
                                           "not a kind of frame statistics"));
  const ToolResult second =
      Run({"set", Path("t/advance.json"), stats + ".base_region_number=1"});
  EXPECT_EQ(second.exit_code, 0);
  EXPECT_EQ(second.err, "");
}

TEST_F(ToolCliTest, LoadShowsTheDebugLineAndWhereEachTableCameFrom) {
  Export("t");
  const std::string feature =
      WriteEdited("feature.json", Path("t/feature.json"),
                  {{"\"minor\": 3", "\"minor\": 7"}});

  const ToolResult result =
      Run({"load", "feature=" + feature, "basic=", "--key", kKey, "-o",
           Path("out.bin")});
  EXPECT_EQ(result.exit_code, 1) << "an empty path loads nothing";
  EXPECT_EQ(result.out,
            "D Q3ACoordinator: SetFeatureTuningTable with file \"" + feature +
                "\". (Version:3.7)\n"
                "basic    " +
                DefaultVersion<qawb::QAWBBasicTuningTable>() +
                "    unchanged (the default table): the path is empty\n"
                "advance  " +
                BuiltInVersion<qawb::QAWBAdvanceTuningTable>(kTuningKey) +
                "    from the fixed container awb:" + kKey +
                "\n"
                "color    " +
                BuiltInVersion<qawb::QAWBColorControlTuningTable>(kTuningKey) +
                "    from the fixed container awb:" + kKey +
                "\n"
                "feature  3.7    from " +
                feature + "\n" + Path("out.bin") + "\n");

  const ToolResult inspected = Run({"inspect", Path("out.bin")});
  EXPECT_EQ(inspected.exit_code, 0);
  EXPECT_THAT(inspected.out,
              HasSubstr(InspectLine<qawb::QAWBFeatureTuningTable>("3.7")));
}

TEST_F(ToolCliTest, LoadReportsAFileTheLoaderIgnored) {
  const std::string broken =
      Write("broken.json", "{\"version\": {\"majr\": 3}}");
  const ToolResult result = Run({"load", "advance=" + broken, "--key", kKey});
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_EQ(result.out.find("D Q3ACoordinator"), std::string::npos);
  EXPECT_THAT(result.out,
              HasSubstr("advance  " +
                        DefaultVersion<qawb::QAWBAdvanceTuningTable>() +
                        "    unchanged"));
  EXPECT_THAT(result.err, HasSubstr("warning: " + broken +
                                    ":1:14: the advance table was not loaded: "
                                    "version.majr: "));
}

TEST_F(ToolCliTest, DumpAndRestoreRoundTripTheTuningBinaryFile) {
  ASSERT_EQ(Run({"restore", "--key", kKey, "-o", Path("a.bin")}).exit_code, 0);
  const ToolResult dumped = Run({"dump", Path("a.bin"), "-o", Path("d")});
  ASSERT_EQ(dumped.exit_code, 0) << dumped.err;
  const ToolResult restored =
      Run({"restore", "--basic", Path("d") + "/basic.json", "--advance",
           Path("d") + "/advance.json", "--color", Path("d") + "/color.json",
           "--feature", Path("d") + "/feature.json", "-o", Path("b.bin")});
  ASSERT_EQ(restored.exit_code, 0) << restored.err;
  EXPECT_THAT(restored.out,
              HasSubstr("feature  " +
                        BuiltInVersion<qawb::QAWBFeatureTuningTable>(kTuningKey) +
                        "    from " + Path("d") + "/feature.json"));
  EXPECT_EQ(ReadFile(Path("a.bin")), ReadFile(Path("b.bin")));
}

TEST_F(ToolCliTest, InspectAndDumpRefuseATuningBinaryFileOfTheWrongSize) {
  ASSERT_EQ(Run({"restore", "-o", Path("a.bin")}).exit_code, 0);
  std::string bytes = ReadFile(Path("a.bin"));
  bytes.pop_back();
  const std::string short_file = Write("short.bin", bytes);
  const ToolResult inspected = Run({"inspect", short_file});
  EXPECT_EQ(inspected.exit_code, 1);
  EXPECT_THAT(inspected.out,
              HasSubstr(std::to_string(kFileSize - 1) +
                        " bytes, but a tuning binary file has exactly " +
                        std::to_string(kFileSize)));
  EXPECT_THAT(inspected.out,
              HasSubstr(InspectLine<qawb::QAWBBasicTuningTable>(
                  DefaultVersion<qawb::QAWBBasicTuningTable>())));
  const ToolResult dumped = Run({"dump", short_file, "-o", Path("d")});
  EXPECT_EQ(dumped.exit_code, 1);
  EXPECT_THAT(dumped.err, HasSubstr(short_file + ": " +
                                    std::to_string(kFileSize - 1) + " bytes"));
  EXPECT_FALSE(std::filesystem::exists(Path("d")));
}

struct ValidateCase {
  const char* name;
  const char* text;
  std::vector<std::string> args;  // after the file
  std::string expected;           // in stdout, after "FILE"
};

class ValidateTest : public ToolTest,
                     public testing::WithParamInterface<ValidateCase> {};

TEST_P(ValidateTest, NamesFilePlaceAndFieldAndFails) {
  const std::string file = Write("table.json", GetParam().text);
  std::vector<std::string> args = {"validate", file};
  args.insert(args.end(), GetParam().args.begin(), GetParam().args.end());
  const ToolResult result = Run(args);
  EXPECT_EQ(result.exit_code, 1);
  // Findings are results (stdout); a refusal is a diagnostic (stderr).
  EXPECT_THAT(result.out + result.err, HasSubstr(file + GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Findings, ValidateTest,
    testing::Values(ValidateCase{
        "CountAboveEntriesGiven",
        "{\"reference_point_list\": {\"reference_point_number\": "
        "2, \"reference_point_list\": [{\"cct\": 2300}]}}",
        {},
        ":1:80: reference_point_list.reference_point_list: "
        "reference_point_number is 2 but the list gives 1 of 2"}),
    [](const testing::TestParamInfo<ValidateCase>& info) {
      return info.param.name;
    });

INSTANTIATE_TEST_SUITE_P(
    Refusals, ValidateTest,
    testing::Values(
        ValidateCase{"UnknownField",
                     "{\n  \"initial_cct\": 4100,\n  \"initial_ct\": 1\n}",
                     {},
                     ":3:3: initial_ct: Cannot find field."},
        ValidateCase{"EnumNameInOtherCase",
                     "{\"special_color_tuning_table\": {}, "
                     "\"outdoor_tuning_table\": {\"outdoor_final_trust_level_"
                     "list\": {\"bv_stats_trust_info\": {\"stats_type\": "
                     "{\"base_region\": [\"kQAWBFrameSummaryTypegreen\"]}}}}}",
                     {},
                     ":1:151: outdoor_tuning_table.outdoor_final_trust_level_"
                     "list.bv_stats_trust_info.stats_type.base_region[0]: "
                     "invalid value \"kQAWBFrameSummaryTypegreen\""},
        // Forms the library refuses are located and named by their rule.
        ValidateCase{"Comment",
                     "{\n  // warm\n  \"initial_cct\": 4100\n}",
                     {"--table", "basic"},
                     ":2:3: Expected an object key or }. (a comment: JSON has "
                     "none, and the library's reader refuses it)"},
        ValidateCase{"ByteOrderMark",
                     "\xEF\xBB\xBF{\"initial_cct\": 4100}",
                     {"--table", "basic", "--json"},
                     "\",\n    \"line\": 1,\n    \"column\": 1,\n    "
                     "\"path\": \"\",\n    \"rule\": \"byte-order-mark\""},
        ValidateCase{"SyntaxError",
                     "{\n  \"initial_cct\": 4100\n  \"x\": 1\n}",
                     {},
                     ":3:3: Expected , or } after key:value pair."},
        ValidateCase{"WrongTypeOfValue",
                     "{\"initial_cct\": \"warm\"}",
                     {"--table", "basic"},
                     ":1:17: initial_cct: invalid value \"warm\" for type "
                     "TYPE_SINT32 (expected an integer)"},
        ValidateCase{"FitsEveryTable",
                     "{}",
                     {},
                     ": the file fits several tables (basic, advance, color, "
                     "feature); give --table"}),
    [](const testing::TestParamInfo<ValidateCase>& info) {
      return info.param.name;
    });

TEST_F(ToolCliTest, ValidateAcceptsAnEditedExportAndNamesItsTable) {
  Export("t");
  const ToolResult result = Run({"validate", Path("t") + "/advance.json"});
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.out,
            Path("t") + "/advance.json: advance table version " +
                BuiltInVersion<qawb::QAWBAdvanceTuningTable>(kTuningKey) +
                ": ok\n");
}

// The rule names in the README's table of lint rules (its first column).
std::set<std::string> ReadmeRuleNames() {
  std::istringstream readme(ReadFile(Q3A_SOURCE_ROOT "/README.md"));
  std::set<std::string> names;
  bool in_table = false;
  for (std::string line; std::getline(readme, line);) {
    if (line.starts_with("| rule |")) {
      in_table = true;
    } else if (in_table && !line.starts_with("|")) {
      break;
    } else if (in_table) {
      const std::string first = line.substr(0, line.find(" |", 1));
      const std::regex name("`([a-z-]+)`");
      for (std::sregex_iterator it(first.begin(), first.end(), name), end;
           it != end; ++it) {
        names.insert((*it)[1]);
      }
    }
  }
  return names;
}

// The values of `key` ("name", "rule") in validate's --json output.
std::multiset<std::string> JsonValuesOf(const std::string& key,
                                        const std::string& json) {
  std::multiset<std::string> values;
  const std::regex pattern("\"" + key + "\": \"([a-z-]+)\"");
  for (std::sregex_iterator it(json.begin(), json.end(), pattern), end;
       it != end; ++it) {
    values.insert((*it)[1]);
  }
  return values;
}

TEST_F(ToolCliTest, ListRulesMatchesTheReadmeTable) {
  const ToolResult json = Run({"validate", "--list-rules", "--json"});
  ASSERT_EQ(json.exit_code, 0) << json.err;
  const std::multiset<std::string> names = JsonValuesOf("name", json.out);
  const std::set<std::string> listed(names.begin(), names.end());
  EXPECT_EQ(listed.size(), names.size()) << "a rule is listed twice";
  EXPECT_THAT(listed, testing::Contains("unreadable"));
  EXPECT_EQ(ReadmeRuleNames(), listed);

  // The text form: one line per rule, led by its name.
  const ToolResult text = Run({"validate", "--list-rules"});
  ASSERT_EQ(text.exit_code, 0) << text.err;
  std::set<std::string> text_names;
  std::istringstream lines(text.out);
  for (std::string line; std::getline(lines, line);) {
    text_names.insert(line.substr(0, line.find(' ')));
  }
  EXPECT_EQ(text_names, listed);
}

// Every rule validate lists is reported for some file: a rule that no
// input reaches is a check that has quietly stopped working.
TEST_F(ToolCliTest, EveryListedRuleIsReportedForSomeFile) {
  struct RuleInput {
    const char* rule;
    const char* text;  // nullptr: the file does not exist
    std::vector<std::string> args;
  };
  const std::vector<RuleInput> inputs = {
      {"duplicate-key", R"({"initial_cct": 1, "initial_cct": 2})", {}},
      {"trailing-comma", R"({"initial_cct": 1,})", {}},
      {"single-quote", R"({'initial_cct': 1})", {}},
      {"unquoted-key", R"({initial_cct: 1})", {}},
      {"invalid-escape", R"({"initial\_cct": 1})", {}},
      {"whitespace", "{\"initial_cct\":\f1}", {}},
      {"comment", "{/* warm */ \"initial_cct\": 1}", {"--table", "basic"}},
      {"byte-order-mark",
       "\xEF\xBB\xBF{\"initial_cct\": 1}",
       {"--table", "basic"}},
      {"not-a-number", R"({"initial_gain": {"r_gain": "NaN"}})", {}},
      {"null", R"({"initial_cct": null})", {}},
      {"missing-fields", R"({"initial_cct": 1})", {}},
      {"missing-version", R"({"initial_cct": 1})", {}},
      {"zero-version", R"({"version": {"major": 0}, "initial_cct": 1})", {}},
      {"version-mismatch",
       R"({"version": {"major": 9}, "initial_cct": 1})",
       {"--key", kKey}},
      {"empty-object", "{}", {"--table", "color"}},
      {"all-zero", R"({"version": {"major": 0}})", {"--table", "color"}},
      {"over-capacity",
       R"({"golden_module_table": {"golden_module_data":
           [{}, {}, {}, {}, {}, {}, {}, {}, {}, {}]}})",
       {}},
      {"count", R"({"golden_module_table": {"golden_module_number": -1}})", {}},
      {"frame-summary",
       R"({"face_tuning_table": {"face_ideal_cct_trust_level_list":
           {"stats_type": {"target_region": "kQAWBFrameSummaryTypeMax"}}}})",
       {}},
      {"narrow-integer",
       R"({"version": {"major": 70000}})",
       {"--table", "basic"}},
      {"rejected", R"({"initial_cct": "warm"})", {"--table", "basic"}},
      {"wrong-table", R"({"initial_cct": 1})", {"--table", "color"}},
      {"unreadable", nullptr, {}},
  };
  std::set<std::string> reached;
  for (const RuleInput& input : inputs) {
    SCOPED_TRACE(input.rule);
    const std::string path = input.text != nullptr
                                 ? Write("file.json", input.text)
                                 : Path("none.json");
    std::vector<std::string> args = {"validate", path, "--json"};
    args.insert(args.end(), input.args.begin(), input.args.end());
    const ToolResult result = Run(args);
    EXPECT_NE(result.exit_code, 0);
    EXPECT_THAT(JsonValuesOf("rule", result.out), testing::Contains(input.rule))
        << result.out << result.err;
    reached.insert(input.rule);
  }
  const std::multiset<std::string> listed =
      JsonValuesOf("name", Run({"validate", "--list-rules", "--json"}).out);
  EXPECT_EQ(reached, std::set<std::string>(listed.begin(), listed.end()));
}

class UsageErrorTest
    : public ToolTest,
      public testing::WithParamInterface<std::vector<std::string>> {};

TEST_P(UsageErrorTest, ExitsWithTwo) {
  const ToolResult result = Run(GetParam());
  EXPECT_EQ(result.exit_code, 2) << result.out << result.err;
  EXPECT_EQ(result.out, "");
  EXPECT_NE(result.err, "");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, UsageErrorTest,
    testing::Values(
        std::vector<std::string>{}, std::vector<std::string>{"frobnicate"},
        std::vector<std::string>{"validate"},
        std::vector<std::string>{"validate", "x.json", "--table", "colour"},
        std::vector<std::string>{"validate", "x.txt"},
        std::vector<std::string>{"export", "-o", "x"},
        std::vector<std::string>{"export", "--key", "0,-1,1", "-o", "x"},
        std::vector<std::string>{"export", "--key", "5,-1,1,0,-1", "-o", "x"},
        std::vector<std::string>{"export", "--node", "af", "--key",
                                 "1,-1,1,0,-1", "-o", "x"},
        std::vector<std::string>{"diff", "awb:0,-1,1,0,-1", "defaults:basic"},
        std::vector<std::string>{"diff", "defaults:colour", "defaults:basic"},
        std::vector<std::string>{"diff", "defaults:basic", "defaults:basic",
                                 "--tolerance", "-1"},
        std::vector<std::string>{"load", "Feature=f.json", "--key",
                                 "0,-1,1,0,-1"},
        std::vector<std::string>{"load", "feature=f.json"},
        std::vector<std::string>{"plot", "defaults:colour", "-o", "x.svg"}));

}  // namespace
}  // namespace q3a_test
