// Runs the q3a-tuning binary from the tests and captures what it prints,
// and a scratch directory for the files it reads and writes.
#ifndef TESTS_TOOLS_TOOL_RUNNER_H_
#define TESTS_TOOLS_TOOL_RUNNER_H_

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/file_bytes.h"

namespace q3a_test {

struct ToolResult {
  int exit_code = -1;
  std::string out;
  std::string err;
};

// Single quotes around every argument; the tests never pass a quote.
// `file_size_limit` > 0 runs the tool under `ulimit -f` (in the shell's
// blocks) to cut its writes short.
inline ToolResult RunTool(const std::vector<std::string>& args,
                          const std::string& scratch,
                          int file_size_limit = 0) {
  std::string command = Q3A_TUNING_TOOL;
  if (file_size_limit > 0) {
    command = "ulimit -f " + std::to_string(file_size_limit) + "; exec " +
              command;
  }
  for (const std::string& arg : args) command += " '" + arg + "'";
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

class ToolTest : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return dir_ + "/" + name; }

  std::string Write(const std::string& name, const std::string& text) const {
    WriteFile(Path(name), text);
    return Path(name);
  }

  ToolResult Run(const std::vector<std::string>& args) const {
    return RunTool(args, dir_);
  }

  ScopedTempDir scratch_;
  const std::string dir_ = scratch_.path().string();
};

}  // namespace q3a_test

#endif  // TESTS_TOOLS_TOOL_RUNNER_H_
