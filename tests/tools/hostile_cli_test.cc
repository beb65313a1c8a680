// The tool against hostile operands, every subcommand: devices, directories,
// FIFOs, missing, empty, garbage and oversized files, the wrong table, an
// output that is an input, writes cut short by a file-size limit, edits an
// export would replace, values JSON cannot hold, operands a command does not
// take. Each case checks the exit code, what stdout and stderr carry, and
// that no file changed, appeared or was touched that should not have been.
// Runs interrupted by SIGINT or SIGKILL at moments drawn from fixed seeds,
// and parallel edits of one file, are tables of their own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "tests/support/device_node.h"
#include "tests/support/table_versions.h"
#include "tests/tools/tool_runner.h"
#include "tests/tools/wire_fields.h"

namespace q3a_test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr char kKey[] = "0,-1,1,0,-1";
constexpr q3a_api::TuningKey kTuningKey = {0, -1, 1, 0, -1};
constexpr std::size_t kFileSize =
    qawb::MutableQAWBTuning::kTuningBinaryFileSize;

struct HostileCase {
  const char* name;
  // "{d}" stands for the scratch directory.
  std::vector<std::string> args;
  int exit_code;
  std::string err;          // stderr holds this ("" : stderr is empty)
  std::string out = "";     // stdout holds this ("" : stdout is empty)
  std::vector<std::string> may_change = {};  // files the case may write
  int file_size_limit = 0;  // ulimit -f for the run
};

void PrintTo(const HostileCase& c, std::ostream* os) { *os << c.name; }

// What a file is: its type, and for a regular file its bytes and identity,
// so that a file rewritten with the same bytes counts as touched.
struct FileState {
  std::string kind;
  std::string content;
  std::string identity;

  bool operator==(const FileState&) const = default;
};

void PrintTo(const FileState& state, std::ostream* os) {
  *os << state.kind << " " << state.identity << " (" << state.content.size()
      << " bytes)";
}

using Snapshot = std::map<std::string, FileState>;

Snapshot Take(const std::string& dir) {
  Snapshot snapshot;
  for (const auto& entry : fs::recursive_directory_iterator(dir)) {
    const std::string name = fs::relative(entry.path(), dir).string();
    if (name.starts_with(".std")) continue;  // the runner's captures
    struct stat status;
    lstat(entry.path().c_str(), &status);
    FileState& state = snapshot[name];
    state.kind = std::to_string(status.st_mode & S_IFMT);
    if (!S_ISREG(status.st_mode)) continue;
    state.identity = std::to_string(status.st_ino) + "@" +
                     std::to_string(status.st_mtim.tv_sec) + "." +
                     std::to_string(status.st_mtim.tv_nsec);
    if (status.st_size <= (1 << 20)) {  // not the sparse file
      state.content = ReadFile(entry.path().string());
    }
  }
  return snapshot;
}

// A UNIX socket bound at `path`: the socket file stays after the close.
bool MakeSocketFile(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof(address.sun_path)) return false;
  std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
  const int fd = socket(AF_UNIX, SOCK_STREAM, 0);
  if (fd < 0) return false;
  const bool bound = bind(fd, reinterpret_cast<const sockaddr*>(&address),
                          sizeof(address)) == 0;
  close(fd);
  return bound;
}

// The scratch files the cases work on.
class HostileFiles : public ToolTest {
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
    // A binary table holding -0, which JSON cannot, alone and in a dump.
    ASSERT_EQ(Run({"set", Path("p/basic.pb"), "initial_gain.r_gain=-0", "-o",
                   Path("negzero.pb")})
                  .exit_code,
              0);
    ASSERT_EQ(Run({"restore", "--basic", Path("negzero.pb"), "-o",
                   Path("negzero.bin")})
                  .exit_code,
              0);
    Write("edited.json",
          "{\"version\": {\"major\": 3, \"minor\": 1},\n"
          " \"initial_cct\": 1, \"initial_cct\": 2}");
    Write("e2.json",
          "{\"version\": {\"major\": 3, \"minor\": 2},\n"
          " \"initial_cct\": 2}");
    Write("basic.pb", std::string("\x0a\x02\x08\x03", 4));
    Write("no_gain.json",
          "{\"version\": {\"major\": 3, \"minor\": 1},\n"
          " \"initial_gain\": {}}");
    ASSERT_EQ(mkfifo(Path("fifo.json").c_str(), 0644), 0);
    ASSERT_TRUE(MakeSocketFile(Path("socket.json")));
    no_device_ = MakeNullDevice(Path("null"));
    fs::create_directory(Path("dir.json"));
    fs::create_directory(Path("adir"));
    fs::create_directories(Path("full.json/inside"));
    Write("empty.json", "");
    Write("garbage.pb", std::string("\xff\xfe\x01garbage\x00\x07", 12));
    Write("old.json", "old");
    fs::create_directory(Path("edited"));
    Write("edited/feature.json", "an edit");
    // Names that do not tell the format.
    fs::copy_file(Path("t/feature.json"), Path("feature.json~"));
    fs::copy_file(Path("p/basic.pb"), Path("basic.bak"));
    fs::copy_file(Path("t/basic.json"), Path("basic.svg"));
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

  // Skips a case aimed at the test's own device node where none could be
  // made: never at the machine's /dev/null.
  bool NeedsMissingDevice(const std::vector<std::string>& args) const {
    if (no_device_.empty()) return false;
    for (const std::string& arg : args) {
      if (arg == "{d}/null") return true;
    }
    return false;
  }

  std::string no_device_;
};

class HostileTest : public HostileFiles,
                    public testing::WithParamInterface<HostileCase> {
 protected:
  void Check(const HostileCase& c);
};

TEST_P(HostileTest, FailsCleanlyAndTouchesNothing) {
  if (NeedsMissingDevice(GetParam().args)) GTEST_SKIP() << no_device_;
  Check(GetParam());
}

void HostileTest::Check(const HostileCase& c) {
  const Snapshot before = Take(dir_);
  const ToolResult result =
      RunTool(Expand(c.args), dir_, c.file_size_limit);
  EXPECT_EQ(result.exit_code, c.exit_code) << result.out << result.err;
  if (c.err.empty()) {
    EXPECT_EQ(result.err, "");
  } else {
    EXPECT_THAT(result.err, HasSubstr(Expand({c.err})[0]));
  }
  if (c.out.empty()) {
    EXPECT_EQ(result.out, "");
  } else {
    EXPECT_THAT(result.out, HasSubstr(Expand({c.out})[0]));
  }
  Snapshot after = Take(dir_);
  Snapshot expected = before;
  for (const std::string& name : c.may_change) {
    after.erase(name);
    expected.erase(name);
  }
  EXPECT_EQ(after, expected)
      << "a file changed, appeared, was touched or was left behind";
}

INSTANTIATE_TEST_SUITE_P(
    Inputs, HostileTest,
    testing::Values(
        HostileCase{"ValidateFifo",
                    {"validate", "{d}/fifo.json"},
                    2,
                    "fifo.json: cannot read the file: it is a FIFO"},
        HostileCase{"ValidateSocket",
                    {"validate", "{d}/socket.json"},
                    2,
                    "socket.json: cannot read the file: it is a socket"},
        HostileCase{"ValidateDirectory",
                    {"validate", "{d}/dir.json"},
                    2,
                    "it is a directory"},
        HostileCase{"ValidateDevice",
                    {"validate", "{d}/null"},
                    2,
                    "{d}/null: cannot read the file: it is a device"},
        HostileCase{"ValidateMissing",
                    {"validate", "{d}/none.json"},
                    2,
                    "none.json: cannot read the file: No such file"},
        HostileCase{"ValidateHuge",
                    {"validate", "{d}/huge.json"},
                    2,
                    "more than any tuning file holds"},
        HostileCase{"ValidateEmpty",
                    {"validate", "{d}/empty.json"},
                    1,
                    "empty.json: the file is empty"},
        HostileCase{"ValidateGarbage",
                    {"validate", "{d}/garbage.pb"},
                    1,
                    "garbage.pb: the file is not a tuning file of any table"},
        // With --table, the reader's refusal itself.
        HostileCase{"ValidateEmptyAsBasic",
                    {"validate", "{d}/empty.json", "--table", "basic"},
                    1,
                    "empty.json: the file is empty\n{d}/empty.json: rejected "
                    "as a basic table"},
        HostileCase{"ValidateGarbageAsBasic",
                    {"validate", "{d}/garbage.pb", "--table", "basic"},
                    1,
                    "garbage.pb: not a valid binary QAWBBasicTuningTable "
                    "message"},
        HostileCase{"ValidateWrongBinaryTable",
                    {"validate", "{d}/p/basic.pb", "--table", "color"},
                    1,
                    "this is a basic table, not a color table"},
        HostileCase{"ValidateContainerDump",
                    {"validate", "{d}/dump.bin", "--from", "binary", "--table",
                     "basic"},
                    1,
                    "this is a tuning binary file"},
        HostileCase{"ValidateBinNamesTheTuningBinaryFile",
                    {"validate", "{d}/dump.bin"},
                    2,
                    "dump.bin: cannot tell the format from the name (.json or "
                    ".pb; a .bin is a tuning binary file, for inspect, dump "
                    "and restore --base); give --from/--to json|binary"},
        HostileCase{"ConvertFifo",
                    {"convert", "{d}/fifo.json", "{d}/x.pb"},
                    2,
                    "it is a FIFO"},
        HostileCase{"ConvertRefusedFile",
                    {"convert", "{d}/edited/feature.json", "{d}/x.pb",
                     "--table", "feature"},
                    1,
                    "edited/feature.json:1:1: Unexpected token"},
        HostileCase{
            "ConvertWrongTable",
            {"convert", "{d}/p/advance.pb", "{d}/x.json", "--table", "feature"},
            1,
            "this is an advance table, not a feature table"},
        HostileCase{"DiffMissing",
                    {"diff", "{d}/none.json", "defaults:basic"},
                    2,
                    "No such file"},
        HostileCase{"DiffDifferentTables",
                    {"diff", "{d}/p/basic.pb", "defaults:color"},
                    2,
                    "basic.pb: this is a basic table, not a color table"},
        HostileCase{"DiffGarbage",
                    {"diff", "{d}/garbage.pb", "{d}/p/basic.pb"},
                    2,
                    "not a tuning file of any table"},
        HostileCase{"RestoreWrongTable",
                    {"restore", "--color", "{d}/p/basic.pb", "-o", "{d}/x.bin"},
                    1,
                    "this is a basic table, not a color table"},
        HostileCase{"RestoreDirectoryInput",
                    {"restore", "--basic", "{d}/dir.json", "-o", "{d}/x.bin"},
                    2,
                    "it is a directory"},
        HostileCase{
            "InspectFifo", {"inspect", "{d}/fifo.json"}, 2, "it is a FIFO"},
        HostileCase{"DumpGarbage",
                    {"dump", "{d}/garbage.pb", "-o", "{d}/d"},
                    1,
                    "12 bytes, but a tuning binary file has exactly " +
                        std::to_string(kFileSize)},
        HostileCase{"GetHuge",
                    {"get", "{d}/huge.json", "version"},
                    2,
                    "more than any tuning file holds"},
        HostileCase{"SetDevice",
                    {"set", "{d}/null", "version.major=3"},
                    2,
                    "it is a device"},
        HostileCase{"SetOutOfRange",
                    {"set", "{d}/t/feature.json", "version.major=70000"},
                    2,
                    "70000 does not fit the record's field (0..65535)"},
        HostileCase{"SetPastCapacity",
                    {"set", "{d}/t/basic.json",
                     "illuminant_weight_table.cct_list[36]=1"},
                    2,
                    "cct_list holds 36 entries; index 36 is past"},
        HostileCase{"LoadFifo",
                    {"load", "basic={d}/fifo.json", "--key", kKey},
                    1,
                    "warning: {d}/fifo.json: the basic table was not loaded: "
                    "cannot read the file: it is a FIFO",
                    "basic    " + DefaultVersion<qawb::QAWBBasicTuningTable>() +
                        "    unchanged"},
        HostileCase{"LoadWrongTable",
                    {"load", "color={d}/t/basic.json", "--key", kKey},
                    1,
                    "warning: {d}/t/basic.json: the color table was not "
                    "loaded: this is a basic table, not a color table; the "
                    "container keeps the table it held, here a fresh "
                    "container's default color table",
                    "color    " +
                        DefaultVersion<qawb::QAWBColorControlTuningTable>() +
                        "    unchanged"},
        HostileCase{"PlotFifo",
                    {"plot", "{d}/fifo.json", "-o", "{d}/x.svg"},
                    2,
                    "it is a FIFO"}),
    [](const auto& info) { return info.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Outputs, HostileTest,
    testing::Values(
        HostileCase{"ConvertOverFullDirectory",
                    {"convert", "{d}/t/basic.json", "{d}/full.json"}, 1,
                    "is a directory; refusing"},
        HostileCase{"ConvertOverItsInput",
                    {"convert", "{d}/t/basic.json", "{d}/t/basic.json"}, 1,
                    "is the input"},
        HostileCase{"PlotOverItsInput",
                    {"plot", "{d}/basic.svg", "--from", "json", "-o",
                     "{d}/basic.svg"},
                    1, "is the input"},
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
                    "{d}/old.json: not written: the file-size limit (ulimit "
                    "-f) of 10240 bytes is reached; the file is left as it "
                    "was",
                    "", {}, 20},
        HostileCase{"RestoreCutShort",
                    {"restore", "-o", "{d}/old.json"}, 1,
                    "the file-size limit", "", {}, 100},
        HostileCase{"SetCutShort",
                    {"set", "{d}/t/feature.json", "version.minor=9"}, 1,
                    "the file-size limit", "", {}, 20},
        HostileCase{"RestoreToStdout", {"restore", "--key", kKey, "-o", "-"},
                    2, "-: this output is binary and is not written to "
                       "stdout"},
        HostileCase{"ExportToStdout", {"export", "--key", kKey, "-o", "-"}, 2,
                    "four files cannot go to stdout"},
        HostileCase{"PlotIntoPng",
                    {"plot", "{d}/t/basic.json", "-o", "{d}/x.png"}, 2,
                    "x.png: plot writes SVG, not png"}),
    [](const auto& info) { return info.param.name; });

const std::vector<std::string> kExported = {"edited/basic.json",
                                            "edited/advance.json",
                                            "edited/color.json"};

INSTANTIATE_TEST_SUITE_P(
    Edits, HostileTest,
    testing::Values(
        HostileCase{"ExportKeepsAnEdit",
                    {"export", "--key", kKey, "-o", "{d}/edited"}, 1,
                    "{d}/edited/feature.json: holds other content than what "
                    "would be written (edited?); it is left as it was: give "
                    "--force",
                    "{d}/edited/color.json", kExported},
        HostileCase{"DumpKeepsAnEdit",
                    {"dump", "{d}/dump.bin", "-o", "{d}/edited"}, 1,
                    "edited/feature.json: holds other content", "color.json",
                    kExported},
        HostileCase{"ExportForced",
                    {"export", "--key", kKey, "-o", "{d}/edited", "--force"},
                    0, "", "feature.json",
                    {"edited/basic.json", "edited/advance.json",
                     "edited/color.json", "edited/feature.json"}},
        // The very content: not even rewritten.
        HostileCase{"ExportOverTheSameFiles",
                    {"export", "--key", kKey, "-o", "{d}/t"}, 0, "",
                    "t/feature.json"},
        HostileCase{"SetTheSameValue",
                    {"set", "{d}/t/feature.json", "version.major=3"}, 0, "",
                    "version.major: 3 -> 3"},
        HostileCase{"ConvertNegativeZero",
                    {"convert", "{d}/negzero.pb", "{d}/x.json"}, 0,
                    "warning: {d}/x.json: 1 value(s) of -0 written as 0 (the "
                    "first at initial_gain.r_gain)",
                    "x.json", {"x.json"}},
        HostileCase{"DumpNegativeZero",
                    {"dump", "{d}/negzero.bin", "-o", "{d}/nz"}, 0,
                    "warning: {d}/nz/basic.json: 1 value(s) of -0", "color",
                    {"nz", "nz/basic.json", "nz/advance.json", "nz/color.json",
                     "nz/feature.json"}},
        HostileCase{"SetNegativeZero",
                    {"set", "{d}/t/basic.json", "initial_gain.b_gain=-0"}, 0,
                    "1 value(s) of -0 written as 0", "b_gain: 1.80403 -> -0",
                    {"t/basic.json"}},
        HostileCase{"SetPastTheCount",
                    {"set", "{d}/t/basic.json",
                     "illuminant_weight_table.cct_list[30]=7000"},
                    0,
                    "warning: {d}/t/basic.json: "
                    "illuminant_weight_table.cct_list[30]: entry 30 is at or "
                    "past illuminant_weight_table.cct_number",
                    "t/basic.json", {"t/basic.json"}},
        HostileCase{"SetCountOverCapacity",
                    {"set", "{d}/t/basic.json",
                     "illuminant_weight_table.cct_number=37"},
                    1,
                    "illuminant_weight_table.cct_number is 37 but "
                    "illuminant_weight_table.cct_list holds at most 36 "
                    "entries"},
        HostileCase{"SetCountOverCapacityForced",
                    {"set", "{d}/t/basic.json",
                     "illuminant_weight_table.cct_number=37", "--force"},
                    0,
                    "warning: {d}/t/basic.json: "
                    "illuminant_weight_table.cct_number",
                    "cct_number: ", {"t/basic.json"}},
        HostileCase{"SetToStdout",
                    {"set", "{d}/t/basic.json", "initial_cct=4321", "-o", "-"},
                    0, "initial_cct: ", "\"initial_cct\": 4321"}),
    [](const auto& info) { return info.param.name; });

// What scripts rely on: which stream carries what, and the exit code.
INSTANTIATE_TEST_SUITE_P(
    Contract, HostileTest,
    testing::Values(
        HostileCase{"Version", {"--version"}, 0, "", "1.0.0"},
        HostileCase{"UnknownSubcommand",
                    {"frobnicate"},
                    2,
                    "'frobnicate' is not a subcommand; the subcommands "
                    "are: list, export, validate, get, set",
                    ""},
        HostileCase{"HelpEndsWithAnExample",
                    {"set", "--help"},
                    0,
                    "",
                    "Example:\n  q3a-tuning set feature.json"},
        HostileCase{
            "ValidateJson",
            {"validate", "--json", "{d}/edited.json", "--table", "basic"},
            1,
            "",
            "\"line\": 2,\n    \"column\": 20,\n    \"path\": "
            "\"initial_cct\",\n    \"rule\": \"duplicate-key\""},
        HostileCase{
            "ValidateCleanIsQuiet",
            {"validate", "{d}/t/color.json"},
            0,
            "",
            "color table version " +
                BuiltInVersion<qawb::QAWBColorControlTuningTable>(kTuningKey) +
                ": ok"},
        HostileCase{"DiffSameIsZero",
                    {"diff", "{d}/t/basic.json", "awb:0,-1,1,0,-1:basic"},
                    0,
                    "",
                    "basic table: 0 field(s) differ"},
        HostileCase{"DiffJsonPlacesTheValue",
                    {"diff", "{d}/edited.json", "{d}/e2.json", "--json"},
                    1,
                    "",
                    "\"file\": \"{d}/e2.json\",\n    \"line\": 1,\n"
                    "    \"column\": 35,\n    \"path\": \"version.minor\""},
        // A field the file leaves out is placed at what holds it.
        HostileCase{"DiffJsonPlacesAMissingValue",
                    {"diff", "{d}/t/basic.json", "{d}/no_gain.json", "--json"},
                    1,
                    "",
                    "\"line\": 2,\n    \"column\": 18,\n    \"path\": "
                    "\"initial_gain.r_gain\""},
        HostileCase{
            "GetAValue",
            {"get", "{d}/t/feature.json", "face_tuning_table.max_face_count"},
            0,
            "",
            "5\n"},
        HostileCase{"GetFromAContainer",
                    {"get", "awb:0,-1,1,0,-1:basic", "version"},
                    0,
                    "",
                    "\"minor\": 1"},
        HostileCase{
            "GetSuggestsTheNearestName",
            {"get", "{d}/t/feature.json", "face_tuning_table.max_faces_count"},
            2,
            "did you mean max_face_count?",
            ""},
        HostileCase{
            "SetInPlace",
            {"set", "{d}/t/feature.json", "face_tuning_table.max_face_count=6"},
            0,
            "",
            "face_tuning_table.max_face_count: 5 -> 6\n",
            {"t/feature.json"}},
        HostileCase{"SetEnumByName",
                    {"set", "{d}/t/advance.json",
                     "outdoor_tuning_table.outdoor_final_trust_level_list."
                     "bv_stats_trust_info.stats_type.base_region[0]="
                     "kQAWBFrameSummaryTypeGreen",
                     "-o", "{d}/a.json"},
                    0,
                    "",
                    "{d}/a.json",
                    {"a.json"}},
        HostileCase{
            "SetNeedsAnAssignment",
            {"set", "{d}/t/feature.json", "face_tuning_table.max_face_count"},
            2,
            "'face_tuning_table.max_face_count': expected "
            "PATH=VALUE",
            ""},
        HostileCase{"DiffTableOptionChecksTheFiles",
                    {"diff", "{d}/t/basic.json", "{d}/t/basic.json", "--table",
                     "color"},
                    2,
                    "{d}/t/basic.json: this is a basic table, not a "
                    "color table",
                    ""},
        HostileCase{"DiffTableOptionNamesTheTable",
                    {"diff", "{d}/t/basic.json", "{d}/t/basic.json", "--table",
                     "basic"},
                    0,
                    "",
                    "basic table: 0 field(s) differ"},
        HostileCase{"LoadNamesABinaryFile",
                    {"load", "basic={d}/basic.pb", "--key", "0,-1,1,0,-1"},
                    1,
                    "warning: {d}/basic.pb: the basic table was not loaded: "
                    "the loader reads JSON tuning files only; this one is "
                    "binary",
                    "basic    " + DefaultVersion<qawb::QAWBBasicTuningTable>() +
                        "    unchanged"},
        HostileCase{"SchemaOfAnUnknownTable",
                    {"schema", "colour"},
                    2,
                    "schema: 'colour' is not a table; use basic, advance, "
                    "color or feature",
                    ""},
        HostileCase{"SchemasAreJsonOnly",
                    {"export", "--key", "0,-1,1,0,-1", "--schemas", "--format",
                     "binary", "-o", "{d}/s"},
                    2,
                    "--schemas: schemas describe JSON files; drop --format "
                    "binary",
                    ""}),
    [](const auto& info) { return info.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Operands, HostileTest,
    testing::Values(
        HostileCase{"LoadOneTableTwice",
                    {"load", "feature={d}/t/feature.json",
                     "feature={d}/old.json", "--key", kKey},
                    2,
                    "the feature table is already given"},
        HostileCase{"DiffToleranceNan",
                    {"diff", "{d}/t/basic.json", "defaults:basic",
                     "--tolerance", "nan"},
                    2,
                    "--tolerance"},
        HostileCase{"DiffDirectory",
                    {"diff", "{d}/adir", "{d}/t/basic.json"},
                    2,
                    "adir: cannot read the file: it is a directory"},
        HostileCase{"GetBackupWithoutFrom",
                    {"get", "{d}/feature.json~", "version"},
                    2,
                    "feature.json~: cannot tell the format from the name "
                    "(.json or .pb); give --from json"},
        HostileCase{"GetBackupFrom",
                    {"get", "{d}/feature.json~", "version", "--from", "json"},
                    0,
                    "",
                    "\"major\": 3"},
        HostileCase{
            "DiffFrom",
            {"diff", "{d}/basic.bak", "{d}/p/basic.pb", "--from", "binary"},
            0,
            "",
            "0 field(s) differ"},
        HostileCase{"RestoreFrom",
                    {"restore", "--basic", "{d}/basic.bak", "--from", "binary",
                     "-o", "{d}/x.bin"},
                    0,
                    "",
                    "from {d}/basic.bak",
                    {"x.bin"}},
        HostileCase{"RestoreOverABase",
                    {"restore", "--base", "{d}/negzero.bin", "--color",
                     "{d}/t/color.json", "-o", "{d}/x.bin"},
                    0,
                    "",
                    "basic    3.1    from {d}/negzero.bin",
                    {"x.bin"}},
        HostileCase{
            "SetFrom",
            {"set", "{d}/feature.json~", "version.minor=8", "--from", "json"},
            0,
            "",
            "version.minor: 3 -> 8",
            {"feature.json~"}},
        HostileCase{"ReportFrom",
                    {"report", "--key", kKey, "--against", "{d}/basic.bak",
                     "--from", "binary", "-o", "{d}/r.html"},
                    0,
                    "",
                    "r.html",
                    {"r.html"}},
        HostileCase{"SetContainerTable",
                    {"set", "awb:0,-1,1,0,-1:feature", "version.minor=1"},
                    2,
                    "awb:0,-1,1,0,-1:feature: set takes a tuning file (.json, "
                    ".pb, or another name with --from), not a "
                    "container's table; `q3a-tuning export --key 0,-1,1,0,-1 "
                    "-o DIR` writes"},
        HostileCase{"ConvertDefaultsTable",
                    {"convert", "defaults:color", "{d}/x.json"},
                    2,
                    "convert takes a tuning file"},
        HostileCase{"PlotToStdout",
                    {"plot", "{d}/t/basic.json", "-o", "-"},
                    0,
                    "",
                    "<svg"},
        HostileCase{"ConvertToStdout",
                    {"convert", "{d}/p/color.pb", "-"},
                    0,
                    "",
                    "\"ccm_tuning_table\""},
        HostileCase{"ValidateUnknownTable",
                    {"validate", "{d}/t/basic.json", "--table", "colour"},
                    2,
                    "--table: 'colour' is not a table: use basic, advance, "
                    "color or feature"},
        HostileCase{"PlotUnknownTable",
                    {"plot", "{d}/t/basic.json", "--table", "colour", "-o",
                     "{d}/x.svg"},
                    2,
                    "--table: 'colour' is not a table"},
        HostileCase{"ConvertUnknownFormat",
                    {"convert", "{d}/t/basic.json", "{d}/x.xml", "--to", "xml"},
                    2,
                    "'xml' is not a format: use json or binary"},
        HostileCase{"GetBadKeyInOperand",
                    {"get", "awb:0,-1:feature", "version"},
                    2,
                    "awb:0,-1:feature: '0,-1' is not a key"}),
    [](const auto& info) { return info.param.name; });

// Files whose validation the library would not explain: cut short, keys
// written with escapes, random bytes, forms beyond JSON, the compact form.
class ValidationHostileTest : public HostileTest {
 protected:
  void SetUp() override {
    HostileTest::SetUp();
    const std::string basic = ReadFile(Path("p/basic.pb"));
    const std::vector<std::size_t> fields = TopLevelFieldStarts(basic);
    ASSERT_GT(fields.size(), 8u);
    Write("cut.pb", basic.substr(0, fields[8]));
    WriteEdited("escaped.json", Path("t/feature.json"),
                {{"\"max_face_count\": 5", "\"max_face\\u005fcount\": 5"}});
    WriteEdited(
        "escaped_dup.json", Path("escaped.json"),
        {{"\"max_face", "\"max\\u005Ffac\\u0065_count\": 4, \"max_face"}});
    std::mt19937 random(kFileSize);
    std::string noise(kFileSize, '\0');
    for (char& byte : noise) byte = static_cast<char>(random());
    Write("random.bin", noise);
    Write("comma.json",
          "{\"version\": {\"major\": 3, \"minor\": 1},\n"
          " \"initial_cct\": 4100,\n}");
    Write("typo.json", "{\"initial_cct\": 1,\n \"initial_ct\": 2}");
    ASSERT_EQ(Run({"export", "--key", kKey, "-o", Path("c"), "--compact"})
                  .exit_code,
              0);
    ASSERT_EQ(Run({"set", Path("t/advance.json"), std::string(kKindPath) +
                                                      "=kQAWBFrameSummaryTypeGreen",
                   "-o", Path("kind.json")})
                  .exit_code,
              0);
  }

  static constexpr char kKindPath[] =
      "outdoor_tuning_table.outdoor_final_trust_level_list."
      "bv_stats_trust_info.stats_type.base_region[0]";
};

TEST_P(ValidationHostileTest, FailsCleanlyAndTouchesNothing) {
  Check(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Validation, ValidationHostileTest,
    testing::Values(
        HostileCase{"BinaryCutShortAtAField", {"validate", "{d}/cut.pb"}, 1,
                    "", "cut.pb: 9 fields missing from the table"},
        HostileCase{"EscapedKey", {"validate", "{d}/escaped.json"}, 0, "",
                    "escaped.json: feature table version " +
                        BuiltInVersion<qawb::QAWBFeatureTuningTable>(
                            {0, -1, 1, 0, -1}) +
                        ": ok"},
        HostileCase{"GetEscapedKey",
                    {"get", "{d}/escaped.json",
                     "face_tuning_table.max_face_count"},
                    0, "", "5\n"},
        HostileCase{"DuplicateThroughEscapes",
                    {"validate", "{d}/escaped_dup.json"}, 1, "",
                    "face_tuning_table.max_face_count: \"max_face_count\" is "
                    "given 2 times: the last value that is not null"},
        HostileCase{"OtherTablesFileIsWrongTable",
                    {"validate", "--json", "{d}/p/color.pb", "--table",
                     "basic"},
                    1, "color.pb: this is a color table, not a basic table",
                    "\"rule\": \"wrong-table\""},
        HostileCase{"InspectRandomBytes", {"inspect", "{d}/random.bin"}, 1,
                    "random.bin: not a tuning binary file: its tables hold "
                    "what no table holds\n  basic: version: ",
                    "random.bin: " + std::to_string(kFileSize) + " bytes"},
        HostileCase{"RestoreOverRandomBytes",
                    {"restore", "--base", "{d}/random.bin", "-o", "{d}/x.bin"},
                    1, "random.bin: not a tuning binary file"},
        HostileCase{"DumpRandomBytes",
                    {"dump", "{d}/random.bin", "-o", "{d}/r"}, 1,
                    "random.bin: not a tuning binary file"},
        HostileCase{"TrailingCommaHasItsPath",
                    {"validate", "{d}/comma.json"}, 1, "",
                    "comma.json:2:21: initial_cct: a comma before the closing "
                    "bracket"},
        HostileCase{"RejectedFileOfOneTableIsNotGuessed",
                    {"validate", "{d}/typo.json"}, 1,
                    "typo.json: rejected as a basic table\n"},
        HostileCase{"CompactFileWithoutCompact",
                    {"validate", "{d}/c/feature.json"}, 1,
                    "hint: {d}/c/feature.json: reads like a compact file",
                    "fields missing"},
        HostileCase{"DiffNamesKinds",
                    {"diff", "{d}/t/advance.json", "{d}/kind.json"}, 1, "",
                    "base_region[0]: kQAWBFrameSummaryTypeTotalStats -> "
                    "kQAWBFrameSummaryTypeGreen"}),
    [](const auto& info) { return info.param.name; });

// A run stopped at a random moment: every file it may write is either as it
// was or as a whole run writes it, and nothing else is there.
struct InterruptedCase {
  const char* name;
  std::vector<std::string> args;
  std::vector<std::string> may_change;
};

void PrintTo(const InterruptedCase& c, std::ostream* os) { *os << c.name; }

class InterruptedRunTest
    : public HostileFiles,
      public testing::WithParamInterface<InterruptedCase> {
 protected:
  // Puts the files a run may change back as they were in `snapshot`.
  void PutBack(const Snapshot& snapshot) {
    for (const std::string& name : GetParam().may_change) {
      const auto was = snapshot.find(name);
      if (was == snapshot.end()) {
        fs::remove_all(Path(name));
      } else if (!was->second.identity.empty()) {
        WriteFile(Path(name), was->second.content);
      }
    }
  }
};

TEST_P(InterruptedRunTest, LeavesTheOldFilesOrTheNewOnes) {
  const InterruptedCase& c = GetParam();
  const std::vector<std::string> args = Expand(c.args);
  const Snapshot before = Take(dir_);
  const auto start = std::chrono::steady_clock::now();
  ASSERT_EQ(RunTool(args, dir_).exit_code, 0);
  const auto whole_run = std::chrono::steady_clock::now() - start;
  const Snapshot done = Take(dir_);
  // The kind and the content only: an interrupted run writes anew.
  const auto as_content = [&](Snapshot snapshot) {
    for (auto& [name, state] : snapshot) state.identity.clear();
    return snapshot;
  };
  std::mt19937 random(20240611);
  const auto micros =
      std::chrono::duration_cast<std::chrono::microseconds>(whole_run).count();
  for (const int signal : {SIGINT, SIGKILL}) {
    for (int run = 0; run < 12; ++run) {
      PutBack(before);
      const Snapshot start_state = Take(dir_);
      const pid_t pid = SpawnTool(args, dir_, ".std.run");
      ASSERT_GT(pid, 0);
      std::this_thread::sleep_for(std::chrono::microseconds(
          std::uniform_int_distribution<long>(0, micros * 6 / 5)(random)));
      kill(pid, signal);
      WaitTool(pid);
      const Snapshot after = as_content(Take(dir_));
      for (const auto& [name, state] : after) {
        const auto was = start_state.find(name);
        const auto whole = done.find(name);
        const bool as_before = was != start_state.end() &&
                               as_content({*was}).begin()->second == state;
        const bool as_done = whole != done.end() &&
                             as_content({*whole}).begin()->second == state;
        EXPECT_TRUE(as_before || as_done)
            << name << " after signal " << signal << ", run " << run;
      }
      for (const auto& [name, state] : start_state) {
        EXPECT_TRUE(after.contains(name) || !done.contains(name))
            << name << " went missing after signal " << signal;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Signals, InterruptedRunTest,
    testing::Values(
        InterruptedCase{"Export",
                        {"export", "--key", kKey, "-o", "{d}/x"},
                        {"x"}},
        InterruptedCase{"Report",
                        {"report", "--key", kKey, "--against",
                         "{d}/t/color.json", "-o", "{d}/r.html"},
                        {"r.html"}},
        InterruptedCase{"Restore",
                        {"restore", "--key", kKey, "--feature",
                         "{d}/t/feature.json", "-o", "{d}/dump.bin"},
                        {"dump.bin"}},
        InterruptedCase{"Set",
                        {"set", "{d}/t/feature.json", "version.minor=9",
                         "face_tuning_table.max_face_count=4"},
                        {"t/feature.json"}}),
    [](const auto& info) { return info.param.name; });

// Parallel edits of one file: each that reports success is in the file.
TEST_F(ToolTest, ParallelSetsLoseNoEdit) {
  ASSERT_EQ(Run({"export", "--key", kKey, "-o", Path("t")}).exit_code, 0);
  const std::string file = Path("t/feature.json");
  const std::vector<std::string> fields = {
      "version.major",
      "version.minor",
      "face_tuning_table.max_face_count",
      "face_tuning_table.enable_flag",
      "face_tuning_table.face_temporal_frame_number",
      "face_tuning_table.face_temporal_frame_number_torch"};
  for (int round = 1; round <= 2; ++round) {
    std::vector<pid_t> runs;
    for (std::size_t i = 0; i < fields.size(); ++i) {
      runs.push_back(SpawnTool(
          {"set", file, fields[i] + "=" + std::to_string(round * 10 + i)},
          dir_, ".std.set" + std::to_string(i)));
    }
    std::vector<bool> succeeded;
    for (const pid_t pid : runs) {
      const int status = WaitTool(pid);
      succeeded.push_back(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    for (std::size_t i = 0; i < fields.size(); ++i) {
      EXPECT_TRUE(succeeded[i]) << fields[i] << ", round " << round;
      if (!succeeded[i]) continue;
      const ToolResult value = Run({"get", file, fields[i]});
      EXPECT_EQ(value.out, std::to_string(round * 10 + i) + "\n")
          << fields[i] << " lost in round " << round;
    }
  }
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(Path("t"))) {
    names.push_back(entry.path().filename().string());
  }
  EXPECT_EQ(names.size(), 4u) << "a temporary was left behind";
}

}  // namespace
}  // namespace q3a_test
