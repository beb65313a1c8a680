// Runs the q3a-tuning binary from the tests and captures what it prints,
// and a scratch directory for the files it reads and writes.
#ifndef TESTS_TOOLS_TOOL_RUNNER_H_
#define TESTS_TOOLS_TOOL_RUNNER_H_

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <initializer_list>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/file_bytes.h"

namespace q3a_test {

struct ToolResult {
  int exit_code = -1;
  std::string out;
  std::string err;
};

// The shell command that runs the tool (through the target's run prefix
// when cross-built), single quotes around every argument; the tests never
// pass a quote.
inline std::string ToolCommand(const std::vector<std::string>& args) {
  std::string command = Q3A_TUNING_TOOL;
  for (const std::string& arg : args) command += " '" + arg + "'";
  return command;
}

// `file_size_limit` > 0 runs the tool under a soft `ulimit -f` (in the
// shell's blocks) to cut its writes short.
inline ToolResult RunTool(const std::vector<std::string>& args,
                          const std::string& scratch,
                          int file_size_limit = 0) {
  std::string command = ToolCommand(args);
  if (file_size_limit > 0) {
    command =
        "ulimit -S -f " + std::to_string(file_size_limit) + "; exec " + command;
  }
  const std::string out = scratch + "/.stdout";
  const std::string err = scratch + "/.stderr";
  command += " >" + out + " 2>" + err;
  const int status = std::system(command.c_str());
  ToolResult result;
  result.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  result.out = ReadFile(out);
  result.err = ReadFile(err);
  return result;
}

// Starts the tool without waiting, for runs in parallel or interrupted by a
// signal; its stdout and stderr go to `capture`.out and .err in `scratch`.
// The pid, or -1.
inline pid_t SpawnTool(const std::vector<std::string>& args,
                       const std::string& scratch,
                       const std::string& capture) {
  // exec: the pid is the tool's own, so a signal reaches the tool.
  std::string shell = "/bin/sh";
  std::string dash_c = "-c";
  std::string command = "exec " + ToolCommand(args);
  char* argv[] = {shell.data(), dash_c.data(), command.data(), nullptr};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1,
                                   (scratch + "/" + capture + ".out").c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0644);
  posix_spawn_file_actions_addopen(&actions, 2,
                                   (scratch + "/" + capture + ".err").c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0644);
  pid_t pid = -1;
  if (posix_spawn(&pid, argv[0], &actions, nullptr, argv, environ) != 0) {
    pid = -1;
  }
  posix_spawn_file_actions_destroy(&actions);
  return pid;
}

// The wait status of a spawned run.
inline int WaitTool(pid_t pid) {
  int status = 0;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

class ToolTest : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return dir_ + "/" + name; }

  std::string Write(const std::string& name, const std::string& text) const {
    WriteFile(Path(name), text);
    return Path(name);
  }

  // Writes `name`: the text of the file `source` with each `from` of `edits`
  // replaced once by its `to`. A failure where a `from` is not in the text.
  std::string WriteEdited(
      const std::string& name, const std::string& source,
      std::initializer_list<std::pair<std::string_view, std::string_view>>
          edits) const {
    std::string text = ReadFile(source);
    for (const auto& [from, to] : edits) {
      const std::size_t at = text.find(from);
      EXPECT_NE(at, std::string::npos) << from << " is not in " << source;
      if (at != std::string::npos) text.replace(at, from.size(), to);
    }
    return Write(name, text);
  }

  ToolResult Run(const std::vector<std::string>& args) const {
    return RunTool(args, dir_);
  }

  ScopedTempDir scratch_;
  const std::string dir_ = scratch_.path().string();
};

}  // namespace q3a_test

#endif  // TESTS_TOOLS_TOOL_RUNNER_H_
