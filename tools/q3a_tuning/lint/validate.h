// Validation of one tuning file: the library's reader decides whether the
// file is accepted; the lint then reports what it accepts silently, from the
// file's text (json_lint.h), its message (lint.h) and the table it reads as.
#ifndef TOOLS_Q3A_TUNING_LINT_VALIDATE_H_
#define TOOLS_Q3A_TUNING_LINT_VALIDATE_H_

#include <optional>
#include <string>
#include <vector>

#include "libs_v4/qAWB/src/base/qawb_tuning.h"
#include "tools/q3a_tuning/io/diagnostic.h"
#include "tools/q3a_tuning/io/table_file.h"

namespace q3a_tool {

struct ValidationReport {
  // The file cannot be read at all (exit code 2); nothing else is set.
  std::optional<ToolError> unreadable;
  bool accepted = false;  // the library's reader accepted the file
  // The reader's refusal, or the lint's findings (one per rule and path
  // pattern).
  std::vector<Diagnostic> problems;
  std::string version;  // the table's version as read, when accepted
  // Fields are missing, and the file is in the compact form export
  // --compact writes: it was probably meant to be read with --compact.
  bool reads_like_compact = false;
};

// `built_in`, when given, is the container the file is meant for: a version
// other than its table's is a finding.
// With `compact`, fields the file leaves out are meant (the compact form)
// and not reported.
ValidationReport ValidateTableFile(const std::string& path, FileFormat format,
                                   qawb::TableId kind,
                                   const qawb::QAWBTuning* built_in = nullptr,
                                   bool compact = false);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_LINT_VALIDATE_H_
