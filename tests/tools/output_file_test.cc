#include "tools/q3a_tuning/io/output_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <linux/fs.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdarg>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/child_exit.h"
#include "tests/support/device_node.h"
#include "tests/support/file_bytes.h"
#include "tools/q3a_tuning/io/edit_lock.h"
#include "tools/q3a_tuning/io/input_file.h"
#include "tools/q3a_tuning/io/temporary_file.h"

// The system calls the file code makes, failed on demand: this test links
// with --wrap for each of them (CMakeLists.txt), and a forked child arms one
// before it writes.
namespace {
const char* failing_call = "";
int failing_error = 0;

bool Fails(const char* call) {
  if (std::strcmp(failing_call, call) != 0) return false;
  errno = failing_error;
  return true;
}
}  // namespace

extern "C" {
ssize_t __real_read(int fd, void* buffer, size_t size);
ssize_t __wrap_read(int fd, void* buffer, size_t size) {
  return Fails("read") ? -1 : __real_read(fd, buffer, size);
}
ssize_t __real_write(int fd, const void* bytes, size_t size);
ssize_t __wrap_write(int fd, const void* bytes, size_t size) {
  return Fails("write") ? -1 : __real_write(fd, bytes, size);
}
int __real_fstat(int fd, struct stat* status);
int __wrap_fstat(int fd, struct stat* status) {
  return Fails("fstat") ? -1 : __real_fstat(fd, status);
}
int __real_stat(const char* path, struct stat* status);
int __wrap_stat(const char* path, struct stat* status) {
  return Fails("stat") ? -1 : __real_stat(path, status);
}
int __real_open(const char* path, int flags, ...);
int __wrap_open(const char* path, int flags, ...) {
  if (Fails("open")) return -1;
  va_list rest;
  va_start(rest, flags);
  // Only these opens pass a mode (O_TMPFILE holds O_DIRECTORY's bit).
  const bool has_mode =
      (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
  const mode_t mode = has_mode ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  return __real_open(path, flags, mode);
}
int __real_fsync(int fd);
int __wrap_fsync(int fd) { return Fails("fsync") ? -1 : __real_fsync(fd); }
int __real_linkat(int from_dir, const char* from, int to_dir, const char* to,
                  int flags);
int __wrap_linkat(int from_dir, const char* from, int to_dir, const char* to,
                  int flags) {
  return Fails("linkat") ? -1
                         : __real_linkat(from_dir, from, to_dir, to, flags);
}
int __real_renameat2(int from_dir, const char* from, int to_dir, const char* to,
                     unsigned flags);
int __wrap_renameat2(int from_dir, const char* from, int to_dir, const char* to,
                     unsigned flags) {
  return Fails("renameat2")
             ? -1
             : __real_renameat2(from_dir, from, to_dir, to, flags);
}
int __real_rename(const char* from, const char* to);
int __wrap_rename(const char* from, const char* to) {
  return Fails("rename") ? -1 : __real_rename(from, to);
}
}

namespace q3a_tool {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

// Names of the files in `dir`, so a test sees a temporary left behind.
std::vector<std::string> Listing(const fs::path& dir) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(dir)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

// Runs `body` in a child process, so that what it changes of the process
// (limits, user, mount namespace) ends with it; returns what body returned.
std::string InChild(const std::function<std::string()>& body) {
  int pipe_fds[2];
  if (pipe(pipe_fds) != 0) return "pipe failed";
  const pid_t pid = fork();
  if (pid == 0) {
    close(pipe_fds[0]);
    const std::string out = body();
    failing_call = "";  // the report itself must get through
    (void)!write(pipe_fds[1], out.data(), out.size());
    q3a_test::ExitChild(0);
  }
  close(pipe_fds[1]);
  std::string out;
  char buffer[512];
  for (ssize_t n; (n = read(pipe_fds[0], buffer, sizeof(buffer))) > 0;) {
    out.append(buffer, static_cast<std::size_t>(n));
  }
  close(pipe_fds[0]);
  waitpid(pid, nullptr, 0);
  return out;
}

// A full device behind stdout: the write fails with the cause, whether the
// text is checked before it goes out or not.
TEST(WriteOutputFile, StdoutOnAFullDeviceIsAFailure) {
  if (access("/dev/full", W_OK) != 0) GTEST_SKIP() << "no /dev/full";
  for (const bool verify : {false, true}) {
    const std::string report = InChild([&] {
      const int full = open("/dev/full", O_WRONLY);
      if (full < 0 || dup2(full, STDOUT_FILENO) < 0) return std::string("dup");
      OutputOptions options;
      options.text = true;
      if (verify) {
        options.verify = [](const std::string&) -> std::optional<std::string> {
          return std::nullopt;
        };
      }
      const auto error =
          WriteOutputFile(std::string(kStdoutPath), "{}\n", options);
      return error.ok() ? std::string("written") : error.error().message;
    });
    EXPECT_THAT(report, HasSubstr("(stdout)")) << verify;
    EXPECT_THAT(report, HasSubstr(std::strerror(ENOSPC))) << verify;
  }
}

// The reader and the edit lock, each call they make failing in turn: the
// error names the file and the cause.
TEST(InputFailures, NameTheFileAndTheCause) {
  q3a_test::ScopedTempDir dir;
  const std::string path = dir.File("in.json");
  ASSERT_TRUE(q3a_test::WriteFile(path, "{}"));
  const auto read = [&] {
    const Result<std::string> content = ReadInputFile(path);
    return content.ok() ? std::string("read") : content.error().message;
  };
  const auto lock = [&] {
    const Result<EditLock> held = EditLock::Acquire(path);
    return held.ok() ? std::string("locked") : held.error().message;
  };
  const struct {
    const char* call;
    std::function<std::string()> run;
  } cases[] = {{"read", read},
               {"fstat", read},
               {"fstat", lock},
               {"stat", lock},
               {"open", lock}};
  for (const auto& c : cases) {
    const std::string report = InChild([&] {
      failing_call = c.call;
      failing_error = EIO;
      return c.run();
    });
    EXPECT_EQ(report, path + ": cannot read the file: " + std::strerror(EIO))
        << c.call;
  }
}

TEST(WriteOutputFile, WritesThroughALinkAndKeepsTheLink) {
  q3a_test::ScopedTempDir dir;
  q3a_test::WriteFile(dir.File("real.json"), "old");
  fs::create_symlink(dir.File("real.json"), dir.File("link.json"));
  ASSERT_TRUE(WriteOutputFile(dir.File("link.json"), "new").ok());
  EXPECT_TRUE(fs::is_symlink(dir.File("link.json")));
  EXPECT_EQ(q3a_test::ReadFile(dir.File("real.json")), "new");
}

// A scratch directory holding one file, out.json, whose text is "old".
class WriteOutputFileOverAFile : public ::testing::Test {
 protected:
  void SetUp() override { q3a_test::WriteFile(target_, "old"); }

  // out.json holds `content`, and nothing else is in the directory.
  void ExpectTargetAlone(const std::string& content) const {
    EXPECT_EQ(q3a_test::ReadFile(target_), content);
    EXPECT_EQ(Listing(dir_.path()), std::vector<std::string>{"out.json"});
  }

  q3a_test::ScopedTempDir dir_;
  const std::string target_ = dir_.File("out.json");
};

TEST_F(WriteOutputFileOverAFile, ReplacesItAndKeepsItsMode) {
  chmod(target_.c_str(), 0640);
  ASSERT_TRUE(WriteOutputFile(target_, "new content").ok());
  struct stat status;
  ASSERT_EQ(stat(target_.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0640u);
  ExpectTargetAlone("new content");
}

TEST_F(WriteOutputFileOverAFile, RefusesItChangedSinceItWasRead) {
  const std::optional<FileStamp> read = StampOf(target_);
  q3a_test::WriteFile(target_, "an editor's save");
  const auto error =
      WriteOutputFile(target_, "edited", {.unchanged_since = read});
  ASSERT_FALSE(error.ok());
  EXPECT_THAT(error.error().message, HasSubstr("changed by another program"));
  ExpectTargetAlone("an editor's save");
}

TEST_F(WriteOutputFileOverAFile, AFailedVerificationKeepsIt) {
  std::string seen;
  const auto error = WriteOutputFile(
      target_, "half",
      {.verify = [&](const std::string& written) -> std::optional<std::string> {
        seen = q3a_test::ReadFile(written);
        return "came out short";
      }});
  ASSERT_FALSE(error.ok());
  EXPECT_EQ(seen, "half");
  EXPECT_EQ(error.error().message,
            target_ + ": came out short; the file is left as it was");
  ExpectTargetAlone("old");
}

// Where the file system has no unnamed files, a named temporary beside the
// target carries the write: replacing, creating and a failed verification
// leave nothing else behind.
TEST(WriteOutputFile, NamedTemporariesReplaceCreateAndClearUp) {
  q3a_test::ScopedTempDir dir;
  const std::string old_file = dir.File("old.json");
  q3a_test::WriteFile(old_file, "old");
  const std::string report = InChild([&] {
    internal::ForceNamedTemporaries();
    const bool refused =
        !WriteOutputFile(old_file, "unverified",
                         {.verify =
                              [](const std::string&) {
                                return std::optional<std::string>("short");
                              }})
             .ok();
    const bool replaced = WriteOutputFile(old_file, "replaced").ok();
    const bool created = WriteOutputFile(dir.File("new.json"), "created").ok();
    return fmt::format("{} {} {}", refused, replaced, created);
  });
  EXPECT_EQ(report, "true true true");
  EXPECT_EQ(q3a_test::ReadFile(old_file), "replaced");
  EXPECT_EQ(q3a_test::ReadFile(dir.File("new.json")), "created");
  EXPECT_EQ(Listing(dir.path()),
            (std::vector<std::string>{"new.json", "old.json"}));
}

// Each case makes a target that must be refused, with the words the message
// must hold; the target must be untouched afterwards.
struct RefusedTarget {
  const char* name;
  std::function<std::string(const q3a_test::ScopedTempDir&)> make;
  const char* says;
  int exit_code = kExitFailure;
};

class RefusedOutput : public ::testing::TestWithParam<RefusedTarget> {};

// A second name for the input, made by `kLink`: a hard or a symbolic link.
template <void (*kLink)(const fs::path&, const fs::path&)>
std::string LinkToInput(const q3a_test::ScopedTempDir& dir) {
  kLink(dir.File("input.json"), dir.File("alias.json"));
  return dir.File("alias.json");
}

TEST_P(RefusedOutput, LeavesEverythingAsItWas) {
  q3a_test::ScopedTempDir dir;
  q3a_test::WriteFile(dir.File("input.json"), "input");
  const std::string target = GetParam().make(dir);
  if (target.starts_with("SKIP")) GTEST_SKIP() << target;
  const std::vector<std::string> before = Listing(dir.path());
  struct stat status_before;
  const bool existed = lstat(target.c_str(), &status_before) == 0;
  const std::string inputs[] = {dir.File("input.json")};

  const auto error = WriteOutputFile(target, "replacement", {.inputs = inputs});
  ASSERT_FALSE(error.ok());
  EXPECT_EQ(error.error().exit_code, GetParam().exit_code);
  EXPECT_THAT(error.error().message, HasSubstr(target));
  EXPECT_THAT(error.error().message, HasSubstr(GetParam().says));
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
        RefusedTarget{"Device",
                      [](const auto& dir) {
                        const std::string why =
                            q3a_test::MakeNullDevice(dir.File("null"));
                        return why.empty() ? dir.File("null") : "SKIP " + why;
                      },
                      "a device"},
        RefusedTarget{"SameFileAsInput",
                      [](const auto& dir) { return dir.File("input.json"); },
                      "is the input"},
        RefusedTarget{"HardLinkToInput", LinkToInput<fs::create_hard_link>,
                      "is the input"},
        RefusedTarget{"SymlinkToInput", LinkToInput<fs::create_symlink>,
                      "is the input"},
        RefusedTarget{"MissingDirectory",
                      [](const auto& dir) { return dir.File("none/out.json"); },
                      "the directory"},
        RefusedTarget{"BinaryToStdout",
                      [](const auto&) { return std::string(kStdoutPath); },
                      "is not written to stdout", kExitUsage}),
    [](const auto& info) { return std::string(info.param.name); });

// Makes a write into `dir` fail: returns why that cannot be done here, or "".
using Arrange = std::string (*)(const std::string& dir);

std::string AsNobody(const std::string& dir) {
  if (geteuid() != 0) return "";
  // The scratch directory is the test user's own.
  chmod(fs::path(dir).parent_path().c_str(), 0711);
  if (setgroups(0, nullptr) != 0 || setresgid(65534, 65534, 65534) != 0 ||
      setresuid(65534, 65534, 65534) != 0) {
    return "cannot run as an unprivileged user";
  }
  return "";
}

std::string InSmallFileSystem(const std::string& dir) {
  if (unshare(CLONE_NEWNS) != 0 ||
      mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
      mount("tmpfs", dir.c_str(), "tmpfs", 0, "size=64k") != 0) {
    return "mounting a file system of the test's own needs CAP_SYS_ADMIN";
  }
  return "";
}

struct FailedWrite {
  const char* name;
  bool existed;  // a file "old" is there before the write
  Arrange arrange;
  const char* cause;
};

class FailedWriteTest : public ::testing::TestWithParam<FailedWrite> {};

// The write runs in a child that arranges the failure; it reports the
// message and whether the directory is as it was.
TEST_P(FailedWriteTest, NamesTheCauseAndKeepsWhatWasThere) {
  const FailedWrite& c = GetParam();
  q3a_test::ScopedTempDir scratch;
  const std::string dir = scratch.File("w");
  fs::create_directory(dir);
  const std::string target = dir + "/out.json";
  const std::string report = InChild([&]() -> std::string {
    std::string why = c.arrange(dir);
    if (!why.empty()) return "SKIP " + why;
    const auto error = WriteOutputFile(target, std::string(256 << 10, 'x'));
    const std::vector<std::string> expected =
        c.existed ? std::vector<std::string>{"out.json"}
                  : std::vector<std::string>{};
    const bool clean = Listing(dir) == expected &&
                       (!c.existed || q3a_test::ReadFile(target) == "old");
    return (clean ? "clean|" : "changed|") +
           (error.ok() ? std::string("written") : error.error().message);
  });
  // The immutable case leaves the flag set; the scratch must go.
  if (const int fd = open(target.c_str(), O_RDONLY); fd >= 0) {
    int flags = 0;
    ioctl(fd, FS_IOC_SETFLAGS, &flags);
    close(fd);
  }
  if (report.starts_with("SKIP")) GTEST_SKIP() << report;
  EXPECT_THAT(report, HasSubstr(std::string("not written: ") + c.cause));
  EXPECT_THAT(report, HasSubstr(c.existed ? "the file is left as it was"
                                          : "no file was created"));
  EXPECT_THAT(report, testing::StartsWith("clean|"));
}

std::string OldFile(const std::string& dir) {
  return q3a_test::WriteFile(dir + "/out.json", "old") ? "" : "cannot write";
}

template <std::size_t N>
struct CallName {
  constexpr CallName(const char (&name)[N]) { std::copy_n(name, N, text); }
  char text[N];
};

// Arms `call` to fail with `error`, after writing the old file if `old`;
// `named`: as on a file system without unnamed files.
template <CallName call, int error, bool old = false, bool named = false>
std::string Failing(const std::string& dir) {
  if (old) {
    if (std::string why = OldFile(dir); !why.empty()) return why;
  }
  if (named) internal::ForceNamedTemporaries();
  failing_call = call.text;
  failing_error = error;
  return "";
}

INSTANTIATE_TEST_SUITE_P(
    Causes, FailedWriteTest,
    ::testing::Values(
        FailedWrite{"FileSizeLimit", true,
                    [](const std::string& dir) {
                      OldFile(dir);
                      const rlimit limit{64 << 10, RLIM_INFINITY};
                      setrlimit(RLIMIT_FSIZE, &limit);
                      return std::string();
                    },
                    "the file-size limit (ulimit -f) of 65536 bytes"},
        FailedWrite{"DiskFull", true,
                    [](const std::string& dir) {
                      const std::string why = InSmallFileSystem(dir);
                      return why.empty() ? OldFile(dir) : why;
                    },
                    "the disk is full"},
        FailedWrite{"ReadOnlyFileSystem", true,
                    [](const std::string& dir) {
                      std::string why = InSmallFileSystem(dir);
                      if (why.empty()) why = OldFile(dir);
                      if (why.empty() &&
                          mount(nullptr, dir.c_str(), nullptr,
                                MS_REMOUNT | MS_RDONLY, nullptr) != 0) {
                        why = "cannot remount read-only";
                      }
                      return why;
                    },
                    "the file system is read-only"},
        FailedWrite{"ReadOnlyFile", true,
                    [](const std::string& dir) {
                      OldFile(dir);
                      chmod((dir + "/out.json").c_str(), 0444);
                      chmod(dir.c_str(), 0777);
                      return AsNobody(dir);
                    },
                    "the file is read-only"},
        FailedWrite{"DirectoryNotWritable", false,
                    [](const std::string& dir) {
                      chmod(dir.c_str(), 0555);
                      return AsNobody(dir);
                    },
                    "the directory"},
        FailedWrite{"ImmutableFile", true,
                    [](const std::string& dir) -> std::string {
                      OldFile(dir);
                      const int fd =
                          open((dir + "/out.json").c_str(), O_RDONLY);
                      int flags = FS_IMMUTABLE_FL;
                      const bool set = ioctl(fd, FS_IOC_SETFLAGS, &flags) == 0;
                      close(fd);
                      if (!set) {
                        return "chattr +i needs root and a file system that "
                               "has the flag";
                      }
                      return "";
                    },
                    "the file is immutable (chattr +i)"},
        // Failures no file system here gives on demand.
        FailedWrite{"QuotaUsedUp", false, Failing<"write", EDQUOT>,
                    "the disk quota is used up"},
        FailedWrite{"LargerThanTheFileSystemAllows", false,
                    Failing<"write", EFBIG>,
                    "the file is larger than the file system allows"},
        FailedWrite{"DeviceError", true, Failing<"write", EIO, true>,
                    "Input/output error"},
        FailedWrite{"SyncFails", true, Failing<"fsync", EIO, true>,
                    "Input/output error"},
        FailedWrite{"LinkRefused", false, Failing<"linkat", EPERM>,
                    "Operation not permitted"},
        FailedWrite{"RenameFails", true, Failing<"rename", EIO, true>,
                    "Input/output error"},
        FailedWrite{"NamedRenameFails", true,
                    Failing<"rename", EIO, true, true>, "Input/output error"},
        FailedWrite{"NamedCreateFails", false,
                    Failing<"renameat2", EIO, false, true>,
                    "Input/output error"}),
    [](const auto& info) { return std::string(info.param.name); });

bool HasUnnamedFiles(const std::string& dir) {
  const int fd = open(dir.c_str(), O_TMPFILE | O_RDWR, 0600);
  if (fd < 0) return false;
  close(fd);
  return true;
}

struct Interruption {
  const char* name;
  bool named;  // as on a file system without unnamed files
  int signal;
};

class InterruptedWrite : public ::testing::TestWithParam<Interruption> {};

// The child stops while its output is written; the test looks at the
// directory, then sends the signal.
TEST_P(InterruptedWrite, LeavesOnlyTheOldFile) {
  const Interruption& c = GetParam();
  q3a_test::ScopedTempDir dir;
  if (!c.named && !HasUnnamedFiles(dir.path().string())) {
    GTEST_SKIP() << "the file system of " << dir.path() << " has no O_TMPFILE";
  }
  const std::string target = dir.File("out.json");
  q3a_test::WriteFile(target, "old");
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t pid = fork();
  if (pid == 0) {
    if (c.named) internal::ForceNamedTemporaries();
    (void)WriteOutputFile(
        target, "new", {.verify = [&](const std::string&) {
          (void)!write(ready[1], "r", 1);
          pause();
          return std::optional<std::string>();
        }});
    q3a_test::ExitChild(0);
  }
  char byte;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  const std::vector<std::string> during = Listing(dir.path());
  kill(pid, c.signal);
  int status = 0;
  waitpid(pid, &status, 0);
  close(ready[0]);
  close(ready[1]);
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(WTERMSIG(status), c.signal);
  EXPECT_EQ(during.size(), c.named ? 2u : 1u)
      << "a named temporary is the fallback only";
  EXPECT_EQ(Listing(dir.path()), std::vector<std::string>{"out.json"});
  EXPECT_EQ(q3a_test::ReadFile(target), "old");
}

INSTANTIATE_TEST_SUITE_P(
    Signals, InterruptedWrite,
    ::testing::Values(Interruption{"UnnamedKill", false, SIGKILL},
                      Interruption{"UnnamedInterrupt", false, SIGINT},
                      Interruption{"NamedInterrupt", true, SIGINT},
                      Interruption{"NamedTerminate", true, SIGTERM},
                      Interruption{"NamedHangUp", true, SIGHUP}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace q3a_tool
