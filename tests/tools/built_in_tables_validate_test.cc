// Every built-in AWB container and the default tables, exported by the tool,
// validate without a finding: the lint's rules agree with the phone's real
// tuning, and export writes what validate reads.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "coordinator/tuning_map.h"
#include "tests/tools/tool_runner.h"
#include "tools/q3a_tuning/io/registry_view.h"

namespace q3a_test {
namespace {

// One key per distinct container, "defaults" for the default tables.
std::vector<std::string> ContainerSources() {
  std::vector<std::string> sources;
  std::set<const void*> seen;
  for (const auto& r :
       q3a_tool::ListRegistrations(q3a_coordinator::GetTuningMap())) {
    if (r.node == q3a_api::kAwb && seen.insert(r.object).second) {
      sources.push_back(q3a_tool::FormatTuningKey(r.key));
    }
  }
  sources.push_back("defaults");
  return sources;
}

class BuiltInTablesValidate : public ToolTest,
                              public testing::WithParamInterface<std::string> {
};

TEST_P(BuiltInTablesValidate, ExportedTablesHaveNoFinding) {
  std::vector<std::string> source = {"--defaults"};
  if (GetParam() != "defaults") source = {"--key", GetParam()};
  for (const char* format : {"json", "binary"}) {
    SCOPED_TRACE(format);
    std::vector<std::string> args = {"export", "-o", Path(format), "--format",
                                     format};
    args.insert(args.end(), source.begin(), source.end());
    const ToolResult exported = Run(args);
    ASSERT_EQ(exported.exit_code, 0) << exported.err;
    const std::string ext = std::string(format) == "json" ? ".json" : ".pb";
    const ToolResult validated =
        Run({"validate", Path(format) + "/basic" + ext,
             Path(format) + "/advance" + ext, Path(format) + "/color" + ext,
             Path(format) + "/feature" + ext});
    EXPECT_EQ(validated.exit_code, 0) << validated.out << validated.err;
  }
}

// The compact form reads to the same table as the full one (over a zeroed
// table, as the loader reads), and validates clean as compact.
TEST_P(BuiltInTablesValidate, CompactExportReadsAsTheFullTable) {
  std::vector<std::string> source = {"--defaults"};
  if (GetParam() != "defaults") source = {"--key", GetParam()};
  for (const char* form : {"full", "compact"}) {
    std::vector<std::string> args = {"export", "-o", Path(form)};
    if (std::string(form) == "compact") args.push_back("--compact");
    args.insert(args.end(), source.begin(), source.end());
    ASSERT_EQ(Run(args).exit_code, 0);
  }
  for (const char* table : {"basic", "advance", "color", "feature"}) {
    SCOPED_TRACE(table);
    const std::string full = Path("full") + "/" + table + ".json";
    const std::string compact = Path("compact") + "/" + table + ".json";
    EXPECT_LT(ReadFile(compact).size(), ReadFile(full).size());
    const ToolResult diff = Run({"diff", full, compact});
    EXPECT_EQ(diff.exit_code, 0) << diff.out << diff.err;
    const ToolResult validated = Run({"validate", "--compact", compact});
    EXPECT_EQ(validated.exit_code, 0) << validated.out << validated.err;
  }
}

INSTANTIATE_TEST_SUITE_P(Containers, BuiltInTablesValidate,
                         testing::ValuesIn(ContainerSources()),
                         [](const testing::TestParamInfo<std::string>& info) {
                           std::string name;
                           for (char c : info.param)
                             name += c == ',' ? '_' : c == '-' ? 'm' : c;
                           return name;
                         });

}  // namespace
}  // namespace q3a_test
