// Validation of one tuning file: the library's reader decides whether the
// file is accepted; the lint then reports what it accepts silently.
#ifndef TOOLS_Q3A_TUNING_VALIDATE_H_
#define TOOLS_Q3A_TUNING_VALIDATE_H_

#include <string>
#include <vector>

#include "tools/q3a_tuning/table_file.h"

namespace q3a_tool {

struct ValidationReport {
  bool accepted = false;  // the library's reader accepted the file
  // One line per problem: the reader's refusal, or the lint's findings,
  // each "FILE[:LINE:COL]: PATH: message".
  std::vector<std::string> problems;
  // The table's version as read, when accepted.
  std::string version;
};

ValidationReport ValidateTableFile(const std::string& path, FileFormat format,
                                   TableKind kind);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_VALIDATE_H_
