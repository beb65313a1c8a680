// The tool against hostile operands, every subcommand: devices, directories,
// FIFOs, missing, empty, garbage and oversized files, the wrong table, an
// output that is an input, and writes cut short by a file-size limit. Each
// case checks the exit code, what stdout and stderr carry, and that no file
// changed that should not have.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/tools/tool_runner.h"

namespace q3a_test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr char kKey[] = "0,-1,1,0,-1";

struct HostileCase {
  const char* name;
  // "{d}" stands for the scratch directory.
  std::vector<std::string> args;
  int exit_code;
  std::string err;          // stderr holds this
  std::string out = "";     // stdout holds this ("" : stdout is empty)
  std::vector<std::string> may_change = {};  // files the case may write
  int file_size_limit = 0;  // ulimit -f for the run
};

// What a file was: its type and, for regular files, its bytes.
using Snapshot = std::map<std::string, std::string>;

Snapshot Take(const std::string& dir) {
  Snapshot snapshot;
  for (const auto& entry : fs::recursive_directory_iterator(dir)) {
    const std::string name = fs::relative(entry.path(), dir).string();
    if (name.starts_with(".std")) continue;  // the runner's captures
    struct stat status;
    lstat(entry.path().c_str(), &status);
    if (!S_ISREG(status.st_mode)) {
      snapshot[name] = "mode:" + std::to_string(status.st_mode & S_IFMT);
    } else if (status.st_size > (1 << 20)) {  // the sparse file
      snapshot[name] = "size:" + std::to_string(status.st_size) + " mtime:" +
                       std::to_string(status.st_mtim.tv_nsec);
    } else {
      snapshot[name] = "file:" + ReadFile(entry.path().string());
    }
  }
  return snapshot;
}

class HostileTest : public ToolTest,
                    public testing::WithParamInterface<HostileCase> {
 protected:
  void SetUp() override {
    ToolTest::SetUp();
    ASSERT_EQ(Run({"export", "--key", kKey, "-o", Path("t")}).exit_code, 0);
    ASSERT_EQ(Run({"export", "--key", kKey, "-o", Path("p"), "--format",
                   "binary"})
                  .exit_code,
              0);
    ASSERT_EQ(Run({"restore", "--key", kKey, "-o", Path("dump.bin")}).exit_code,
              0);
    ASSERT_EQ(mkfifo(Path("fifo.json").c_str(), 0644), 0);
    fs::create_directory(Path("dir.json"));
    fs::create_directories(Path("full.json/inside"));
    Write("empty.json", "");
    Write("garbage.pb", std::string("\xff\xfe\x01garbage\x00\x07", 12));
    Write("old.json", "old");
    fs::resize_file(Write("huge.json", ""), 65 << 20);  // sparse
  }

  std::vector<std::string> Expand(std::vector<std::string> args) const {
    for (std::string& arg : args) {
      for (std::size_t at; (at = arg.find("{d}")) != std::string::npos;) {
        arg.replace(at, 3, dir_);
      }
    }
    return args;
  }
};

TEST_P(HostileTest, FailsCleanlyAndTouchesNothing) {
  const HostileCase& c = GetParam();
  const Snapshot before = Take(dir_);
  const ToolResult result =
      RunTool(Expand(c.args), dir_, c.file_size_limit);
  EXPECT_EQ(result.exit_code, c.exit_code) << result.out << result.err;
  EXPECT_THAT(result.err, HasSubstr(Expand({c.err})[0]));
  if (c.out.empty()) {
    EXPECT_EQ(result.out, "");
  } else {
    EXPECT_THAT(result.out, HasSubstr(c.out));
  }
  Snapshot after = Take(dir_);
  for (const std::string& name : c.may_change) {
    after.erase(name);
  }
  Snapshot expected = before;
  for (const std::string& name : c.may_change) expected.erase(name);
  EXPECT_EQ(after, expected) << "a file changed, appeared or was left behind";
}

INSTANTIATE_TEST_SUITE_P(
    Inputs, HostileTest,
    testing::Values(
        HostileCase{"ValidateFifo", {"validate", "{d}/fifo.json"}, 2,
                    "fifo.json: cannot read the file: it is a FIFO"},
        HostileCase{"ValidateDirectory", {"validate", "{d}/dir.json"}, 2,
                    "it is a directory"},
        HostileCase{"ValidateDevice", {"validate", "/dev/null"}, 2,
                    "/dev/null: cannot read the file: it is a device"},
        HostileCase{"ValidateMissing", {"validate", "{d}/none.json"}, 2,
                    "none.json: cannot read the file: No such file"},
        HostileCase{"ValidateHuge", {"validate", "{d}/huge.json"}, 2,
                    "more than any tuning file holds"},
        HostileCase{"ValidateEmpty", {"validate", "{d}/empty.json"}, 1,
                    "empty.json: the file is empty"},
        HostileCase{"ValidateGarbage", {"validate", "{d}/garbage.pb"}, 1,
                    "garbage.pb: the file is not a tuning file of any table"},
        HostileCase{"ValidateWrongBinaryTable",
                    {"validate", "{d}/p/basic.pb", "--table", "color"}, 1,
                    "this is a basic table, not a color table"},
        HostileCase{"ValidateContainerDump",
                    {"validate", "{d}/dump.bin", "--table", "basic"}, 1,
                    "this is a tuning binary file"},
        HostileCase{"ConvertFifo", {"convert", "{d}/fifo.json", "{d}/x.pb"}, 2,
                    "it is a FIFO"},
        HostileCase{"ConvertWrongTable",
                    {"convert", "{d}/p/advance.pb", "{d}/x.json", "--table",
                     "feature"},
                    1, "this is an advance table, not a feature table"},
        HostileCase{"DiffMissing", {"diff", "{d}/none.json", "defaults:basic"},
                    2, "No such file"},
        HostileCase{"DiffDifferentTables",
                    {"diff", "{d}/p/basic.pb", "defaults:color"}, 2,
                    "basic.pb: this is a basic table, not a color table"},
        HostileCase{"DiffGarbage", {"diff", "{d}/garbage.pb", "{d}/p/basic.pb"},
                    2, "not a tuning file of any table"},
        HostileCase{"RestoreWrongTable",
                    {"restore", "--color", "{d}/p/basic.pb", "-o",
                     "{d}/x.bin"},
                    1, "this is a basic table, not a color table"},
        HostileCase{"RestoreDirectoryInput",
                    {"restore", "--basic", "{d}/dir.json", "-o", "{d}/x.bin"},
                    2, "it is a directory"},
        HostileCase{"InspectFifo", {"inspect", "{d}/fifo.json"}, 2,
                    "it is a FIFO"},
        HostileCase{"DumpGarbage", {"dump", "{d}/garbage.pb", "-o", "{d}/d"},
                    1, "12 bytes, but a tuning binary file has exactly 102944"},
        HostileCase{"GetHuge", {"get", "{d}/huge.json", "version"}, 2,
                    "more than any tuning file holds"},
        HostileCase{"SetDevice", {"set", "/dev/null", "version.major=3"}, 2,
                    "it is a device"},
        HostileCase{"SetOutOfRange",
                    {"set", "{d}/t/feature.json", "version.major=70000"}, 2,
                    "70000 does not fit the record's field (0..65535)"},
        HostileCase{"SetPastCapacity",
                    {"set", "{d}/t/basic.json",
                     "illuminant_weight_table.cct_list[36]=1"},
                    2, "cct_list holds 36 entries; index 36 is past"},
        HostileCase{"LoadFifo",
                    {"load", "basic={d}/fifo.json", "--key", kKey}, 1,
                    "warning: the basic table was not loaded: "
                    "{d}/fifo.json: cannot read the file: it is a FIFO",
                    "basic    3.0    unchanged"},
        HostileCase{"LoadWrongTable",
                    {"load", "color={d}/t/basic.json", "--key", kKey}, 1,
                    "warning: the color table was not loaded: "
                    "{d}/t/basic.json: this is a basic table, not a color "
                    "table; the container keeps the table it held, here a "
                    "fresh container's default color table",
                    "color    3.0    unchanged"},
        HostileCase{"PlotFifo", {"plot", "{d}/fifo.json", "-o", "{d}/x.svg"},
                    2, "it is a FIFO"}),
    [](const auto& info) { return info.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Outputs, HostileTest,
    testing::Values(
        HostileCase{"ConvertOverDevice",
                    {"convert", "{d}/t/basic.json", "/dev/null", "--to",
                     "json"},
                    1, "/dev/null: is a device; refusing to write over it"},
        HostileCase{"ConvertOverEmptyDirectory",
                    {"convert", "{d}/t/basic.json", "{d}/dir.json"}, 1,
                    "is a directory; refusing"},
        HostileCase{"ConvertOverFullDirectory",
                    {"convert", "{d}/t/basic.json", "{d}/full.json"}, 1,
                    "is a directory; refusing"},
        HostileCase{"ConvertOverFifo",
                    {"convert", "{d}/t/basic.json", "{d}/fifo.json"}, 1,
                    "is a FIFO; refusing"},
        HostileCase{"ConvertOverItsInput",
                    {"convert", "{d}/t/basic.json", "{d}/t/basic.json"}, 1,
                    "is the input"},
        HostileCase{"PlotOverItsInput",
                    {"plot", "{d}/t/basic.json", "-o", "{d}/t/basic.json"}, 1,
                    "is the input"},
        HostileCase{"SetOverAnotherInput",
                    {"set", "{d}/t/basic.json", "initial_cct=1", "-o",
                     "{d}/t/basic.json"},
                    1, "is the input"},
        HostileCase{"RestoreOverItsInput",
                    {"restore", "--base", "{d}/dump.bin", "-o",
                     "{d}/dump.bin"},
                    1, "is the input"},
        HostileCase{"LoadIntoMissingDirectory",
                    {"load", "feature={d}/t/feature.json", "--key", kKey, "-o",
                     "{d}/none/x.bin"},
                    1, "the directory", ""},
        HostileCase{"ExportOverAFile",
                    {"export", "--key", kKey, "-o", "{d}/old.json"}, 1,
                    "cannot create the directory"},
        HostileCase{"ConvertCutShort",
                    {"convert", "{d}/t/color.json", "{d}/old.json"}, 1,
                    "does not read back as written", "", {}, 20},
        HostileCase{"BinaryConvertCutShort",
                    {"convert", "{d}/t/color.json", "{d}/p/basic.pb"}, 1,
                    "does not read back as written", "", {}, 10},
        HostileCase{"RestoreCutShort",
                    {"restore", "-o", "{d}/old.json"}, 1,
                    "was not written whole", "", {}, 100},
        HostileCase{"SetCutShort",
                    {"set", "{d}/t/feature.json", "version.minor=9"}, 1,
                    "does not read back as written", "", {}, 20}),
    [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace q3a_test
