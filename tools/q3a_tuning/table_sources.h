// Where a table can come from besides a file: an AWB container of the
// registry, or the mutable container's default tables. Parsed from the
// tool's operands and options.
#ifndef TOOLS_Q3A_TUNING_TABLE_SOURCES_H_
#define TOOLS_Q3A_TUNING_TABLE_SOURCES_H_

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "libs_v4/qAWB/src/base/qawb_tuning.h"
#include "tools/q3a_tuning/table_kind.h"

namespace q3a_tool {

// The AWB container registered under the key text ("0,-1,1,0,-1"). Throws
// CLI::ValidationError (a usage error) for a malformed key or one that
// names no AWB container.
const qawb::QAWBTuning& RegisteredContainer(std::string_view key_text);

// A fresh mutable container: it holds the library's default tables.
std::unique_ptr<qawb::MutableQAWBTuning> DefaultContainer();

// A table operand: "awb:KEY:TABLE" (a registered container's table),
// "defaults:TABLE", or a file path.
struct TableOperand {
  std::string file;  // empty for a container's table
  const qawb::QAWBTuning* container = nullptr;
  std::optional<TableKind> kind;  // named by the operand
  std::string name;               // as the operand was written
};

// Throws CLI::ValidationError for a malformed container operand.
TableOperand ParseTableOperand(std::string_view text,
                               const qawb::QAWBTuning& defaults);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_TABLE_SOURCES_H_
