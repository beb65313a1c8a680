// Why a write failed, in a user's words: the errno of creating, writing or
// renaming a file, made precise by a look at the file and its directory (a
// permission error may be a read-only file, a directory the user cannot
// write, or an immutable file). Never a guess between causes.
#ifndef TOOLS_Q3A_TUNING_IO_WRITE_FAILURE_H_
#define TOOLS_Q3A_TUNING_IO_WRITE_FAILURE_H_

#include <string>

#include "tools/q3a_tuning/io/tool_error.h"

namespace q3a_tool {

// "the disk is full", "the directory out is not writable", ... for `error`
// met while writing `target` (links already followed).
std::string WriteFailureCause(int error, const std::string& target);

// What a failed write left: "the file is left as it was" when there was a
// file, else "no file was created".
std::string_view FateOf(bool existed);

// "PATH: not written: CAUSE; " and FateOf(existed). Exit 1.
ToolError WriteFailure(const std::string& path, std::string_view cause,
                       bool existed);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_WRITE_FAILURE_H_
