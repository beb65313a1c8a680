// The tuning binary file of the mutable container, read without the
// container (its size and the four tables' version heads, so that a file of
// the wrong size can still be looked at), and written by the container
// through the tool's output routine.
#ifndef TOOLS_Q3A_TUNING_IO_TUNING_BINARY_FILE_H_
#define TOOLS_Q3A_TUNING_IO_TUNING_BINARY_FILE_H_

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "tools/q3a_tuning/io/output_file.h"
#include "tools/q3a_tuning/io/table_id.h"
#include "tools/q3a_tuning/io/tool_error.h"

namespace q3a_tool {

struct TableHead {
  qawb::TableId kind;
  std::size_t offset;  // in the file
  std::size_t size;
  std::optional<qawb::QAWBParameterVersion> version;  // if the file reaches it
  // What cannot be real tuning, when the file holds the whole table
  // (InspectTuningBinaryContent in lint/plausibility.h).
  std::vector<std::string> implausible;
};

struct TuningBinaryFileInfo {
  std::size_t size = 0;
  bool size_ok = false;
  std::array<TableHead, 4> tables;

  bool Plausible() const;
  // "FILE: not a tuning binary file: ...", then per implausible table its
  // first implausible value and how many more there are.
  std::string ImplausibleText(const std::string& path) const;
};

// The size of `content` and the four tables' offsets, sizes and version
// heads; `implausible` is left empty (lint/plausibility.h fills it).
TuningBinaryFileInfo ReadTuningBinaryHeads(std::string_view content);

// Writes the container's dump of `tuning` (the four tables' bytes, as the
// container writes them) to `path` through the output routine, which reads
// it back with the container's reader before it replaces anything.
Result<> WriteTuningBinaryFile(const std::string& path,
                               const qawb::MutableQAWBTuning& tuning,
                               const OutputOptions& options);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_TUNING_BINARY_FILE_H_
