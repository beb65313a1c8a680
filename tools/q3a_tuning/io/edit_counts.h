// What an edit through `set` does to counted lists (count_rules.h) that the
// library would take without a word: an entry set at or past its count is
// never read by the algorithm, and a count above the list's capacity makes
// it read past the list.
#ifndef TOOLS_Q3A_TUNING_IO_EDIT_COUNTS_H_
#define TOOLS_Q3A_TUNING_IO_EDIT_COUNTS_H_

#include <google/protobuf/message.h>

#include <span>
#include <string>
#include <vector>

#include "tools/q3a_tuning/io/diagnostic.h"

namespace q3a_tool {

struct EditCountCheck {
  // At PATH, "entry 5 is past ...count_path (4): ..." for entries set
  // unused; the caller adds the file.
  std::vector<Diagnostic> unused_entries;
  // "PATH is 40 but LIST holds at most 36 entries ..." for counts set above
  // capacity.
  std::vector<std::string> over_capacity;
};

// Checks the values at `paths`, as set in `table` (a top-level table
// message, after the edit), against the count rules.
EditCountCheck CheckEditedCounts(const google::protobuf::Message& table,
                                 std::span<const std::string> paths);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_EDIT_COUNTS_H_
