// The tuning binary file of the mutable container, read without the
// container: its size and the four tables' version heads, so that a file of
// the wrong size can still be looked at.
#ifndef TOOLS_Q3A_TUNING_TUNING_BINARY_FILE_H_
#define TOOLS_Q3A_TUNING_TUNING_BINARY_FILE_H_

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "tools/q3a_tuning/table_kind.h"

namespace q3a_tool {

struct TableHead {
  TableKind kind;
  std::size_t offset;  // in the file
  std::size_t size;
  std::optional<qawb::QAWBParameterVersion> version;  // if the file reaches it
};

struct TuningBinaryFileInfo {
  std::size_t size = 0;
  bool size_ok = false;
  std::array<TableHead, 4> tables;
};

// Fails (nullopt, `error` set to the system's reason) only if the file cannot
// be read.
std::optional<TuningBinaryFileInfo> InspectTuningBinaryFile(
    const std::string& path, std::string& error);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_TUNING_BINARY_FILE_H_
