// Which table a tuning file holds, when the user does not say: the one
// whose message the file parses as, or for a file no reader accepts, the
// one whose fields it names most.
#ifndef TOOLS_Q3A_TUNING_TABLE_GUESS_H_
#define TOOLS_Q3A_TUNING_TABLE_GUESS_H_

#include <optional>
#include <string>
#include <string_view>

#include "tools/q3a_tuning/table_file.h"

namespace q3a_tool {

struct TableGuess {
  std::optional<TableKind> kind;  // unset when no single table fits
  bool parses = false;            // the file parses as `kind`'s message
  std::string note;               // why there is no single answer
};

TableGuess GuessTable(std::string_view content, FileFormat format);

// The file's format from --from/--to text if given, else from the path.
// Throws CLI::ValidationError when neither decides.
FileFormat ResolveFormat(const std::string& path,
                         const std::string& format_option);

// The table kind from --table text if given, else guessed from the file.
// Throws CLI::ValidationError for an unknown table name; on a file that
// fits no single table returns nullopt with `error` set naming the file.
std::optional<TableKind> ResolveTable(const std::string& path,
                                      FileFormat format,
                                      const std::string& table_option,
                                      std::string& error);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_TABLE_GUESS_H_
