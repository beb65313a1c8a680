// Every file the tool writes goes through here. The content goes to a
// temporary file beside the target, every write, the flush to disk and the
// close are checked, and only then is the temporary renamed over the target.
// On any failure (disk full, file-size limit, permission) the target is
// exactly as it was and the temporary is removed. Nothing is ever deleted:
// targets that are directories, devices, FIFOs or sockets are refused, and so
// is a target that is the same file as one of the command's inputs (same
// device and inode, followed through links), before anything is written.
#ifndef TOOLS_Q3A_TUNING_IO_OUTPUT_FILE_H_
#define TOOLS_Q3A_TUNING_IO_OUTPUT_FILE_H_

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tools/q3a_tuning/io/tool_error.h"

namespace q3a_tool {

// Whether `path` may be written by a command that reads `inputs`; nothing is
// written. Lets a command refuse its output before doing any work.
std::optional<ToolError> CheckOutputPath(const std::string& path,
                                         std::span<const std::string> inputs);

// Writes `bytes` to `path` as described above.
std::optional<ToolError> WriteOutputFile(
    const std::string& path, std::string_view bytes,
    std::span<const std::string> inputs = {});

// Writes content that only a writer taking a path can produce (the library's
// file writers and the container's dump, which report no failure). `produce`
// writes the temporary file whose path it is given; `verify` then reads it
// back and returns an error when it is not what was meant (a write cut short).
// Only a verified temporary replaces the target.
using ProduceFile = std::function<void(const std::string& temporary)>;
using VerifyFile =
    std::function<std::optional<ToolError>(const std::string& temporary)>;
std::optional<ToolError> WriteOutputFileWith(
    const std::string& path, std::span<const std::string> inputs,
    const ProduceFile& produce, const VerifyFile& verify);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_OUTPUT_FILE_H_
