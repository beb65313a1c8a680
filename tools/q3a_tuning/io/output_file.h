// Every file the tool writes goes through here. The content goes to an
// unnamed file in the target's directory (O_TMPFILE), every write and the
// flush to disk are checked, the file is read back where the caller asks,
// and only then is it given a name and renamed over the target. Until then
// the directory shows nothing, so an interrupted run, even by SIGKILL, leaves
// nothing behind. Where the file system has no unnamed files, a named
// temporary beside the target is removed on failure and on SIGINT, SIGTERM,
// SIGHUP and SIGQUIT.
//
// On any failure the target is exactly as it was, and the message names the
// cause from errno: a read-only file, directory or file system, an immutable
// file, a full disk, the file-size limit. Nothing is ever deleted: targets
// that are directories, devices, FIFOs or sockets are refused, and so is a
// target that is the same file as one of the command's inputs (same device
// and inode, followed through links), before anything is written. A target
// that already holds the very bytes is left untouched.
#ifndef TOOLS_Q3A_TUNING_IO_OUTPUT_FILE_H_
#define TOOLS_Q3A_TUNING_IO_OUTPUT_FILE_H_

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tools/q3a_tuning/io/edit_lock.h"
#include "tools/q3a_tuning/io/tool_error.h"

namespace q3a_tool {

// The path that means standard output.
inline constexpr std::string_view kStdoutPath = "-";

// Checks the written content before it replaces anything: `written` is a path
// the library's readers can open. Returns why the content is not what was
// meant.
using VerifyFile =
    std::function<std::optional<std::string>(const std::string& written)>;

struct OutputOptions {
  // The command's inputs; a target that is one of them is refused.
  std::span<const std::string> inputs = {};
  // Text content: "-" writes it to stdout. Other content is refused there.
  bool text = false;
  // A target holding other bytes is refused instead of replaced (an export
  // into a directory of edited files without --force).
  bool keep_differing = false;
  VerifyFile verify = nullptr;
  // The target must still be this file in this state (an in-place edit): it
  // is refused if another program replaced or changed it since.
  std::optional<FileStamp> unchanged_since = std::nullopt;
};

// Whether `path` may be written; nothing is written. Lets a command refuse
// its output before doing any work.
Result<> CheckOutputPath(const std::string& path,
                         const OutputOptions& options = {});

// Writes `bytes` to `path` as described above.
Result<> WriteOutputFile(const std::string& path, std::string_view bytes,
                         const OutputOptions& options = {});
}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_OUTPUT_FILE_H_
