// `plot` and `report` run as a user runs them: exit codes, what they print,
// what they write and what they refuse.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <regex>

#include "tests/tools/tool_runner.h"

namespace q3a_test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr char kKey[] = "0,-1,1,0,-1";

std::string Awb(const std::string& table) {
  return std::string("awb:") + kKey + ":" + table;
}

struct PlotCase {
  std::string table;
  std::vector<std::string> titles;  // each must appear in the picture
};
void PrintTo(const PlotCase& c, std::ostream* os) { *os << c.table; }


class PlotTableTest : public ToolTest,
                      public testing::WithParamInterface<PlotCase> {};

TEST_P(PlotTableTest, DrawsEveryTableAndOverlaysAnother) {
  const std::string svg_path = Path(GetParam().table + ".svg");
  ToolResult result = Run({"plot", Awb(GetParam().table), "-o", svg_path});
  ASSERT_EQ(result.exit_code, 0) << result.err;
  EXPECT_EQ(result.out, svg_path + "\n");
  EXPECT_EQ(result.err, "");
  const std::string svg = ReadFile(svg_path);
  EXPECT_TRUE(svg.starts_with("<svg ")) << svg.substr(0, 80);
  EXPECT_THAT(svg, HasSubstr(GetParam().table + " table "));
  EXPECT_THAT(svg, HasSubstr("of container " + std::string(kKey)));
  for (const std::string& title : GetParam().titles) {
    EXPECT_THAT(svg, HasSubstr(title));
  }
  EXPECT_THAT(svg, Not(HasSubstr("(before)")));

  const std::string overlay = Path("overlay.svg");
  result = Run({"plot", Awb(GetParam().table), "--against",
                "defaults:" + GetParam().table, "-o", overlay});
  ASSERT_EQ(result.exit_code, 0) << result.err;
  const std::string both = ReadFile(overlay);
  EXPECT_THAT(both, HasSubstr("against default " + GetParam().table));
}

INSTANTIATE_TEST_SUITE_P(
    Tables, PlotTableTest,
    testing::Values(PlotCase{"basic",
                             {">R/G<", ">B/G<", ">CCT (K)<",
                              ">BV (table value)<", ">weight<", "region at BV",
                              ">reference white points<", ">golden modules<"}},
                    PlotCase{"color",
                             {"CCMs for natural light", ">coefficient<"}},
                    PlotCase{"advance",
                             {"outdoor region", "Special colours",
                              "Preference points", ">radius (table units)<"}},
                    PlotCase{"feature",
                             {"weight by face size", "noise weights, red",
                              "darkness weights"}}),
    [](const auto& info) { return info.param.table; });

class PlotCliTest : public ToolTest {
 protected:
  // The container's `table` exported, with the first match of `pattern`
  // replaced.
  std::string Edited(const std::string& table, const std::string& pattern,
                     const std::string& replacement) {
    if (!std::filesystem::exists(Path("tables"))) {
      EXPECT_EQ(Run({"export", "--key", kKey, "-o", Path("tables")}).exit_code,
                0);
    }
    const std::string text = ReadFile(Path("tables/" + table + ".json"));
    const std::string edited =
        std::regex_replace(text, std::regex(pattern), replacement,
                           std::regex_constants::format_first_only);
    EXPECT_NE(edited, text) << pattern;
    return Write("edited_" + table + ".json", edited);
  }
};

TEST_F(PlotCliTest, NonFiniteValuesAreFindingsAndTheRestIsDrawn) {
  const std::string file =
      Edited("basic", "\"rg\": [0-9.]+", "\"rg\": \"NaN\"");
  const ToolResult result = Run({"plot", file, "-o", Path("nan.svg")});
  EXPECT_EQ(result.exit_code, 1);
  // The first "rg" of the file is the first golden module's.
  EXPECT_THAT(result.err,
              HasSubstr("golden_module_table.golden_module_data[0]."
                        "golden_reference_point.rg: value nan is not finite; "
                        "left out of the plots"));
  const std::string svg = ReadFile(Path("nan.svg"));
  EXPECT_THAT(svg, HasSubstr(">2850 K<"));
  EXPECT_THAT(svg, HasSubstr(">Left out: 1 value that is not finite: "
                             "golden_module_table.golden_module_data[0]."
                             "golden_reference_point.rg (nan)<"));
  EXPECT_FALSE(testing::Value(svg, testing::ContainsRegex("[=', L]-?nan")))
      << "a NaN coordinate was written";
}

TEST_F(PlotCliTest, ReportListsFindingsDifferencesAndRegistration) {
  const std::string feature =
      Edited("feature", "\"max_face_count\": 5", "\"max_face_count\": 6");
  const std::string basic = Edited("basic", "\"initial_cct\": [0-9]+",
                                   "\"initial_cct\": 5123");
  const std::string report = Path("report.html");
  const ToolResult result = Run({"report", "--key", kKey, "--against",
                                 feature, basic, "-o", report});
  ASSERT_EQ(result.exit_code, 0) << result.err;
  const std::string html = ReadFile(report);
  EXPECT_THAT(html, HasSubstr("face_tuning_table.max_face_count"));
  EXPECT_THAT(html, HasSubstr("initial_cct"));
  EXPECT_THAT(html, HasSubstr("5123"));
  EXPECT_THAT(html, HasSubstr("awb " + std::string(kKey)));
  EXPECT_THAT(html, HasSubstr("id=\"diff-basic\""));
  EXPECT_THAT(html, HasSubstr("id=\"diff-feature\""));
  EXPECT_THAT(html, Not(HasSubstr("id=\"diff-color\"")));
  EXPECT_THAT(html, HasSubstr("No findings"));
}

// A new version is what an edited file is meant to carry; the container's
// own label is no sharer of its tables.
TEST_F(PlotCliTest, ReportShowsANewVersionAsAChangeAndOnlyOtherSharers) {
  const std::string feature =
      Edited("feature", "\"minor\": [0-9]+", "\"minor\": 7");
  const ToolResult result = Run({"report", "--key", kKey, "--against",
                                 feature, "-o", Path("report.html")});
  ASSERT_EQ(result.exit_code, 0) << result.err;
  const std::string html = ReadFile(Path("report.html"));
  EXPECT_THAT(html, HasSubstr("(the version changes from 3.3 to 3.7)"));
  EXPECT_THAT(html, HasSubstr("No findings"));
  std::smatch label;
  ASSERT_TRUE(std::regex_search(
      html, label, std::regex("awb " + std::string(kKey) + " \\((awb#[0-9]+)")));
  std::smatch row;
  ASSERT_TRUE(std::regex_search(
      html, row, std::regex("<tr><td>color</td><td>(C[0-9]+)</td><td>[^<]*"
                            "</td><td>([^<]*)</td><td>([^<]*)</td>")));
  const std::string sharers = ", " + row[2].str() + ",";
  EXPECT_THAT(sharers, Not(HasSubstr(" " + label[1].str() + ",")));
  EXPECT_NE(row[3].str(), "") << "the color table has a twin of its bytes";
}

TEST_F(PlotCliTest, ReportCarriesTheFindingsOfValidate) {
  // One golden module more than the table holds: the reader drops it, the
  // lint says so.
  const std::string basic = Edited("basic", "\"golden_module_number\": [0-9]+",
                                   "\"golden_module_number\": 12");
  const ToolResult result = Run({"report", "--key", kKey, "--against", basic,
                                 "-o", Path("report.html")});
  ASSERT_EQ(result.exit_code, 0) << result.err;
  const std::string html = ReadFile(Path("report.html"));
  EXPECT_THAT(html, HasSubstr("golden_module_number"));
  EXPECT_THAT(html, Not(HasSubstr("No findings")));
}

struct RefusalCase {
  std::string name;
  // FILE is the edited feature table, REFUSED one the library refuses
  std::vector<std::string> args;
  int exit_code;
  std::string message;
};
void PrintTo(const RefusalCase& c, std::ostream* os) { *os << c.name; }


class ReportRefusalTest : public PlotCliTest,
                          public testing::WithParamInterface<RefusalCase> {};

TEST_P(ReportRefusalTest, WritesNothing) {
  const std::string feature =
      Edited("feature", "\"max_face_count\": 5", "\"max_face_count\": 6");
  const std::string before = ReadFile(feature);
  const std::string refused =
      WriteEdited("refused_feature.json", Path("tables/feature.json"),
                  {{"\"max_face_count\": 5", "\"max_face_count\": \"abc\""}});
  std::vector<std::string> args;
  for (const std::string& arg : GetParam().args) {
    args.push_back(arg == "FILE"      ? feature
                   : arg == "OUT"     ? Path("out.html")
                   : arg == "MISSING" ? Path("missing.json")
                   : arg == "REFUSED" ? refused
                                      : arg);
  }
  const ToolResult result = Run(args);
  EXPECT_EQ(result.exit_code, GetParam().exit_code) << result.err;
  EXPECT_THAT(result.err, HasSubstr(GetParam().message));
  EXPECT_FALSE(std::filesystem::exists(Path("out.html")));
  EXPECT_EQ(ReadFile(feature), before);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ReportRefusalTest,
    testing::Values(
        RefusalCase{
            "TwoFilesOfOneTable",
            {"report", "--key", kKey, "--against", "FILE", "FILE", "-o", "OUT"},
            2,
            "are both feature tables"},
        RefusalCase{
            "MissingFile",
            {"report", "--key", kKey, "--against", "MISSING", "-o", "OUT"},
            2,
            "missing.json"},
        RefusalCase{"UnknownKey",
                    {"report", "--key", "9,9,9,9,9", "-o", "OUT"},
                    2,
                    "no AWB container"},
        RefusalCase{
            "OutputIsTheInput",
            {"report", "--key", kKey, "--against", "FILE", "-o", "FILE"},
            1,
            "edited_feature.json"},
        RefusalCase{
            "RefusedTable",
            {"report", "--key", kKey, "--against", "REFUSED", "-o", "OUT"},
            1,
            "face_tuning_table.max_face_count: invalid value \"abc\""},
        RefusalCase{"PlotAgainstAnotherKind",
                    {"plot", "FILE", "--against",
                     std::string("awb:") + kKey + ":basic", "-o", "OUT"},
                    1,
                    "not a feature table"}),
    [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace q3a_test
