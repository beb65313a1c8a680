// Which table a tuning file holds. The file does not say: a JSON file names
// its fields, so it parses as one table's message only; a binary message
// parses as several, so it is decoded with all four schemas and the one
// that fits is the one that leaves no unknown fields or wire-type
// mismatches, holds plausible values, and best of all re-encodes to the very
// bytes of the file, as every file the library's writer produced does. A
// tuning binary file (the container's dump) is recognised too.
#ifndef TOOLS_Q3A_TUNING_LINT_TABLE_GUESS_H_
#define TOOLS_Q3A_TUNING_LINT_TABLE_GUESS_H_

#include <optional>
#include <string>
#include <string_view>

#include "tools/q3a_tuning/io/table_file.h"
#include "tools/q3a_tuning/io/tool_error.h"

namespace q3a_tool {

struct TableGuess {
  std::optional<qawb::TableId> kind;  // the table that fits best, if one does
  // `kind` fits and no other table fits as well, or, for a JSON file no
  // table takes, only `kind` has fields its keys name.
  bool certain = false;
  bool container_dump = false;  // a tuning binary file, not a tuning file
  std::string note;             // why there is no answer
};

TableGuess GuessTable(std::string_view content, FileFormat format);

// "NAME: this is a basic table, not a color table".
std::string TableMismatch(std::string_view name, qawb::TableId is,
                          qawb::TableId expected);

// Refuses `content` of `path` as a `kind` table when it certainly holds
// another table ("this is a basic table, not a color table") or is a tuning
// binary file. Exit code 1.
Result<> CheckTableFits(const std::string& path, std::string_view content,
                        FileFormat format, qawb::TableId kind);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_LINT_TABLE_GUESS_H_
