// The check that `get` prints a value as the tool's own reader of table
// messages gives it, shared by the tests that run `get` on files they made.
#ifndef TESTS_TOOLS_GET_CHECK_H_
#define TESTS_TOOLS_GET_CHECK_H_

#include <google/protobuf/message.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/tools/tool_runner.h"
#include "tools/q3a_tuning/io/table_edit.h"

namespace q3a_test {

// Runs `get FILE PATH` in `scratch` and expects it to succeed and print the
// value at `path` in `table` (the file's table as a message), ended by one
// newline.
inline void ExpectGetPrints(const std::string& file,
                            const google::protobuf::Message& table,
                            const std::string& path,
                            const std::string& scratch) {
  const ToolResult got = RunTool({"get", file, path}, scratch);
  ASSERT_EQ(got.exit_code, 0) << path << ": " << got.err;
  const auto expected = q3a_tool::GetValueJson(table, path);
  ASSERT_TRUE(expected.ok()) << path;
  std::string want = *expected;
  while (want.ends_with('\n')) want.pop_back();
  EXPECT_EQ(got.out, want + "\n") << path;
}

}  // namespace q3a_test

#endif  // TESTS_TOOLS_GET_CHECK_H_
