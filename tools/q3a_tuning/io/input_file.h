// Every file the tool reads is checked here first: only regular files of a
// sane size are opened, so that a directory, a device or a FIFO named by
// mistake is refused with a message instead of read, blocked on or parsed
// as garbage.
#ifndef TOOLS_Q3A_TUNING_IO_INPUT_FILE_H_
#define TOOLS_Q3A_TUNING_IO_INPUT_FILE_H_

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/q3a_tuning/io/tool_error.h"

namespace q3a_tool {

// Far above any real input: a full-capacity table is about 1 MB as JSON.
inline constexpr std::uintmax_t kMaxInputBytes = std::uintmax_t{64} << 20;

// Whether `path` may be read: it exists, is (or links to) a regular file and
// is at most kMaxInputBytes long. The error names the file and carries
// kExitUsage.
Result<> CheckInputFile(const std::string& path);

// "a directory", "a device", "a FIFO", "a socket": what a path that is not
// a regular file names, for messages.
std::string_view DescribeFileKind(mode_t mode);

// The whole content of `path` after CheckInputFile.
Result<std::string> ReadInputFile(const std::string& path);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_INPUT_FILE_H_
