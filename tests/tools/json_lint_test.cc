// The lint of what the library's reader accepts without a word, one case per
// rule: a file's text, the rule that must fire, and where (line:column).
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "tests/support/scoped_temp_dir.h"
#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/lint/validate.h"

namespace q3a_tool {
namespace {

struct LintCase {
  const char* name;
  std::string text;
  qawb::TableId table;
  std::string rule;
  int line;
  int column;
  std::string says;  // the message holds this
  bool with_key = false;  // validated against container 0,-1,1,0,-1
  const char* path = nullptr;  // the finding's path, where checked
};

class DocumentLintTest : public testing::TestWithParam<LintCase> {};

TEST_P(DocumentLintTest, ReportsTheRuleAtItsPlace) {
  const LintCase& c = GetParam();
  q3a_test::ScopedTempDir dir;
  const std::string path = dir.File("table.json");
  std::ofstream(path, std::ios::binary) << c.text;
  const qawb::QAWBTuning* built_in = nullptr;
  if (c.with_key) built_in = *RegisteredContainer("0,-1,1,0,-1");
  const ValidationReport report =
      ValidateTableFile(path, FileFormat::kJson, c.table, built_in);
  ASSERT_TRUE(report.accepted) << "the library must accept the file";
  std::vector<std::string> seen;
  for (const Diagnostic& problem : report.problems) {
    seen.push_back(DiagnosticText(problem) + " [" + problem.rule + "]");
    if (problem.rule != c.rule) continue;
    EXPECT_EQ(problem.line, c.line) << seen.back();
    EXPECT_EQ(problem.column, c.column) << seen.back();
    EXPECT_THAT(problem.message, testing::HasSubstr(c.says));
    if (c.path != nullptr) {
      EXPECT_EQ(problem.path, c.path);
    }
    return;
  }
  ADD_FAILURE() << "no " << c.rule << " finding among:\n"
                << testing::PrintToString(seen);
}

constexpr char kVersion[] = R"("version": {"major": 3, "minor": 1})";

std::string Basic(const std::string& body) {
  return std::string("{") + kVersion + ",\n" + body + "\n}";
}

INSTANTIATE_TEST_SUITE_P(
    Rules, DocumentLintTest,
    testing::Values(
        LintCase{"DuplicateScalarLastWins",
                 Basic(R"("initial_cct": 4100, "initial_cct": 4200)"),
                 qawb::TableId::kBasic, "duplicate-key", 2, 22,
                 "the last value that is not null (line 2, column 37) wins"},
        LintCase{"DuplicateListsJoined",
                 Basic(R"("illuminant_weight_table": {"cct_list": [1],
  "cct_list": [2]})"),
                 qawb::TableId::kBasic, "duplicate-key", 3, 3,
                 "joins the lists"},
        LintCase{"TrailingComma", Basic(R"("initial_cct": 4100,)"),
                 qawb::TableId::kBasic, "trailing-comma", 2, 20,
                 "other JSON tools refuse", false, "initial_cct"},
        // Paths name the schema's fields whatever the keys' spelling.
        LintCase{"TrailingCommaAfterCamelCaseKeys",
                 Basic(R"("initialGain": {"rGain": 1,})"),
                 qawb::TableId::kBasic, "trailing-comma", 2, 27, "a comma",
                 false, "initial_gain.r_gain"},
        LintCase{"DuplicateThroughAnEscape",
                 Basic(R"("initial_cct": 4100, "initial\u005fcct": 4200)"),
                 qawb::TableId::kBasic, "duplicate-key", 2, 22,
                 "the last value that is not null (line 2, column 42) wins"},
        LintCase{"DuplicateWithNullLast",
                 Basic(R"("initial_cct": 4100, "initial_cct": null)"),
                 qawb::TableId::kBasic, "duplicate-key", 2, 22,
                 "(line 2, column 16) wins"},
        LintCase{"DuplicateAllNull",
                 Basic(R"("initial_cct": null, "initial_cct": null)"),
                 qawb::TableId::kBasic, "duplicate-key", 2, 22,
                 "every one is null: the field loads as 0"},
        LintCase{"EscapeJsonLacks", Basic(R"("initial\_cct": 4100)"),
                 qawb::TableId::kBasic, "invalid-escape", 2, 9, "backslash",
                 false, "initial_cct"},
        LintCase{"FormFeedAsSpace", Basic("\"initial_cct\":\f4100"),
                 qawb::TableId::kBasic, "whitespace", 2, 15, "form feed", false,
                 "initial_cct"},
        LintCase{"RepeatsCountedOnTheFirst",
                 Basic(R"("illuminant_weight_table": {"illuminant_cct_list":
  [{"weight_list": [2,]}, {"weight_list": [3,]}]})"),
                 qawb::TableId::kBasic, "trailing-comma", 3, 22,
                 "(and 1 more like it at illuminant_weight_table."
                 "illuminant_cct_list[].weight_list[])"},
        LintCase{"SingleQuotes", Basic(R"('initial_cct': 4100)"),
                 qawb::TableId::kBasic, "single-quote", 2, 1, "single quotes"},
        LintCase{"SingleQuotedValue",
                 Basic(R"("initial_gain": {"r_gain": 'NaN'})"),
                 qawb::TableId::kBasic, "single-quote", 2, 28, "single quotes",
                 false, "initial_gain.r_gain"},
        LintCase{"UnquotedKey", Basic(R"(initial_cct: 4100)"),
                 qawb::TableId::kBasic, "unquoted-key", 2, 1, "without quotes"},
        LintCase{"NotANumber",
                 Basic(R"("initial_gain": {"r_gain": "Infinity"})"),
                 qawb::TableId::kBasic, "not-a-number", 2, 28, "\"Infinity\""},
        LintCase{"Null", Basic(R"("initial_cct": null)"), qawb::TableId::kBasic,
                 "null", 2, 16, "loads as 0"},
        LintCase{"MissingFieldsSummarised",
                 Basic(R"("face_tuning_table": {"max_face_count": 5})"),
                 qawb::TableId::kFeature, "missing-fields", 2, 22,
                 "fields missing from face_tuning_table"},
        LintCase{"MissingVersion", R"({"initial_cct": 4100})",
                 qawb::TableId::kBasic, "missing-version", 1, 1,
                 "reads version 0.0"},
        LintCase{"ZeroVersion",
                 R"({"version": {"major": 0, "minor": 0}, "initial_cct": 1})",
                 qawb::TableId::kBasic, "zero-version", 1, 13, "0.0"},
        LintCase{"VersionOfAnotherTable",
                 Basic(R"("face_tuning_table": {"max_face_count": 5})"),
                 qawb::TableId::kFeature, "version-mismatch", 1, 13,
                 "built-in feature table is version 3.3", true},
        LintCase{"EmptyObject", "{}", qawb::TableId::kColor, "empty-object", 1,
                 1, "every field of the table loads as 0"},
        LintCase{"AllZero", R"({"version": {"major": 0}})",
                 qawb::TableId::kColor, "all-zero", 1, 1, "every value"},
        LintCase{"OverCapacityPointsAtTheFirstDropped",
                 Basic(R"("golden_module_table": {"golden_module_data":
  [{}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}]})"),
                 qawb::TableId::kBasic, "over-capacity", 3, 40,
                 "entries 9..10 are dropped"}),
    [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace q3a_tool
