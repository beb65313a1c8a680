// The lint of a JSON tuning file's text: what protobuf's JSON parser accepts
// without a word although the engineer rarely means it. Duplicated keys,
// forms beyond JSON that other tools refuse, "NaN" and "Infinity", null,
// fields the file leaves out (they load as 0), and a file that is just {}.
// Checks of the values themselves are lint.h's.
#ifndef TOOLS_Q3A_TUNING_LINT_JSON_LINT_H_
#define TOOLS_Q3A_TUNING_LINT_JSON_LINT_H_

#include <google/protobuf/descriptor.h>

#include <vector>

#include "tools/q3a_tuning/lint/json_document.h"
#include "tools/q3a_tuning/lint/lint.h"

namespace q3a_tool {

// Findings for `root`, a document the library's reader accepted as a
// `table` message, read in tolerant mode with `leniencies`. Every finding
// has a position.
std::vector<Diagnostic> LintJsonDocument(
    const JsonValue& root, const std::vector<Diagnostic>& leniencies,
    const google::protobuf::Descriptor& table);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_LINT_JSON_LINT_H_
