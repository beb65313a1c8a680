// The one error type of the tool's helpers, and the exit codes it carries.
// Helpers return errors and never print or exit on their own; the command
// that called them reports the message on stderr and exits with its code.
#ifndef TOOLS_Q3A_TUNING_TOOL_ERROR_H_
#define TOOLS_Q3A_TUNING_TOOL_ERROR_H_

#include <string>

namespace q3a_tool {

inline constexpr int kExitOk = 0;
inline constexpr int kExitFailure = 1;
inline constexpr int kExitUsage = 2;

struct ToolError {
  // Ready for stderr: names the file and, where known, the field.
  std::string message;
  int exit_code = kExitFailure;
};

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_TOOL_ERROR_H_
