#include "tools/q3a_tuning/io/output_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/file_bytes.h"

namespace q3a_tool {
namespace {

namespace fs = std::filesystem;

// Names of the files in `dir`, so a test sees a temporary left behind.
std::vector<std::string> Listing(const fs::path& dir) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(dir)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

TEST(WriteOutputFile, ReplacesAFileAndKeepsItsMode) {
  q3a_test::ScopedTempDir dir;
  const std::string target = dir.File("out.json");
  q3a_test::WriteFile(target, "old");
  chmod(target.c_str(), 0640);
  ASSERT_EQ(WriteOutputFile(target, "new content"), std::nullopt);
  EXPECT_EQ(q3a_test::ReadFile(target), "new content");
  struct stat status;
  ASSERT_EQ(stat(target.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0640u);
  EXPECT_EQ(Listing(dir.path()), std::vector<std::string>{"out.json"});
}

TEST(WriteOutputFile, WritesThroughALinkAndKeepsTheLink) {
  q3a_test::ScopedTempDir dir;
  q3a_test::WriteFile(dir.File("real.json"), "old");
  fs::create_symlink(dir.File("real.json"), dir.File("link.json"));
  ASSERT_EQ(WriteOutputFile(dir.File("link.json"), "new"), std::nullopt);
  EXPECT_TRUE(fs::is_symlink(dir.File("link.json")));
  EXPECT_EQ(q3a_test::ReadFile(dir.File("real.json")), "new");
}

// Each case makes a target that must be refused, with the words the message
// must hold; the target must be untouched afterwards.
struct RefusedTarget {
  const char* name;
  std::function<std::string(const q3a_test::ScopedTempDir&)> make;
  const char* says;
};

class RefusedOutput : public ::testing::TestWithParam<RefusedTarget> {};

TEST_P(RefusedOutput, LeavesEverythingAsItWas) {
  q3a_test::ScopedTempDir dir;
  q3a_test::WriteFile(dir.File("input.json"), "input");
  const std::string target = GetParam().make(dir);
  const std::vector<std::string> before = Listing(dir.path());
  struct stat status_before;
  const bool existed = lstat(target.c_str(), &status_before) == 0;
  const std::string inputs[] = {dir.File("input.json")};

  const auto error = WriteOutputFile(target, "replacement", inputs);
  ASSERT_NE(error, std::nullopt);
  EXPECT_EQ(error->exit_code, kExitFailure);
  EXPECT_NE(error->message.find(target), std::string::npos) << error->message;
  EXPECT_NE(error->message.find(GetParam().says), std::string::npos)
      << error->message;
  EXPECT_EQ(Listing(dir.path()), before);
  EXPECT_EQ(q3a_test::ReadFile(dir.File("input.json")), "input");
  struct stat status_after;
  if (existed) {
    ASSERT_EQ(lstat(target.c_str(), &status_after), 0);
    EXPECT_EQ(status_after.st_ino, status_before.st_ino);
    EXPECT_EQ(status_after.st_mode, status_before.st_mode);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Targets, RefusedOutput,
    ::testing::Values(
        RefusedTarget{"EmptyDirectory",
                      [](const auto& dir) {
                        fs::create_directory(dir.File("out"));
                        return dir.File("out");
                      },
                      "a directory"},
        RefusedTarget{"Fifo",
                      [](const auto& dir) {
                        mkfifo(dir.File("fifo").c_str(), 0600);
                        return dir.File("fifo");
                      },
                      "a FIFO"},
        RefusedTarget{"Device", [](const auto&) { return std::string("/dev/null"); },
                      "a device"},
        RefusedTarget{"SameFileAsInput",
                      [](const auto& dir) { return dir.File("input.json"); },
                      "is the input"},
        RefusedTarget{"HardLinkToInput",
                      [](const auto& dir) {
                        fs::create_hard_link(dir.File("input.json"),
                                             dir.File("alias.json"));
                        return dir.File("alias.json");
                      },
                      "is the input"},
        RefusedTarget{"SymlinkToInput",
                      [](const auto& dir) {
                        fs::create_symlink(dir.File("input.json"),
                                           dir.File("alias.json"));
                        return dir.File("alias.json");
                      },
                      "is the input"},
        RefusedTarget{"MissingDirectory",
                      [](const auto& dir) { return dir.File("none/out.json"); },
                      "the directory"}),
    [](const auto& info) { return std::string(info.param.name); });

// RAII for the file-size limit, so a failing assertion cannot leave the rest
// of the suite limited.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &saved_);
    rlimit limit = saved_;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &saved_); }

 private:
  rlimit saved_;
};

TEST(WriteOutputFile, AWriteCutShortKeepsTheOldFile) {
  q3a_test::ScopedTempDir dir;
  const std::string target = dir.File("out.json");
  q3a_test::WriteFile(target, "old");
  std::optional<ToolError> error;
  {
    FileSizeLimit limit(1024);
    error = WriteOutputFile(target, std::string(4096, 'x'));
  }
  ASSERT_NE(error, std::nullopt);
  EXPECT_NE(error->message.find("write failed"), std::string::npos);
  EXPECT_EQ(q3a_test::ReadFile(target), "old");
  EXPECT_EQ(Listing(dir.path()), std::vector<std::string>{"out.json"});
}

TEST(WriteOutputFileWith, AFailedVerificationKeepsTheOldFile) {
  q3a_test::ScopedTempDir dir;
  const std::string target = dir.File("out.bin");
  q3a_test::WriteFile(target, "old");
  const auto error = WriteOutputFileWith(
      target, {},
      [](const std::string& temporary) {
        q3a_test::WriteFile(temporary, "half");
      },
      [&](const std::string& temporary) -> std::optional<ToolError> {
        EXPECT_EQ(q3a_test::ReadFile(temporary), "half");
        return ToolError{target + ": came out short", kExitFailure};
      });
  ASSERT_NE(error, std::nullopt);
  EXPECT_EQ(q3a_test::ReadFile(target), "old");
  EXPECT_EQ(Listing(dir.path()), std::vector<std::string>{"out.bin"});
}

}  // namespace
}  // namespace q3a_tool
