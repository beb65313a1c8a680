// Checks of a parsed table message for what the library's readers accept
// silently but a tuning engineer rarely means: lists longer than the record
// holds, count fields that disagree with their lists or exceed capacity,
// frame-summary kinds the algorithm cannot use, integers cut to a narrow
// field.
#ifndef TOOLS_Q3A_TUNING_LINT_LINT_H_
#define TOOLS_Q3A_TUNING_LINT_LINT_H_

#include <google/protobuf/message.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/q3a_tuning/io/diagnostic.h"
#include "tools/q3a_tuning/lint/json_document.h"

namespace q3a_tool {

// A finding of the lint: a Diagnostic without its file, which the caller
// adds; at `at` in a JSON file, else only at its JSON path (line 0). `path`
// is as the tool prints paths; `rule` is one of lint_rules.def.
Diagnostic LintFinding(std::string path, std::string message,
                       std::string_view rule,
                       std::optional<TextPosition> at = std::nullopt);

// Every finding in `table` (any message of the schema), in field order. A
// list that carries exactly its capacity is the writers' full form: entries
// past the count are unused, not a mistake.
std::vector<Diagnostic> LintTableMessage(
    const google::protobuf::Message& table);

// The message of a "missing-fields" finding: how many of an object's fields
// are missing, the first few by name. `path` is the object's, empty for the
// table.
std::string MissingFieldsText(const std::vector<std::string_view>& missing,
                              std::string_view path);

// For a binary tuning file: the sub-tables and lists of `table` that are
// absent from the wire. The library's writer writes every sub-table and
// every list at its capacity, and leaves out only scalars at 0, so an
// absent sub-table or list means a file cut short or written by hand: its
// scalars load as 0. "missing-version" for the table's version, else
// "missing-fields" per object.
std::vector<Diagnostic> LintAbsentFields(
    const google::protobuf::Message& table);

// One finding per rule and path pattern (indices dropped: "a.b[].c"): the
// first, its message ending with how many more there are.
std::vector<Diagnostic> CollapseFindings(std::vector<Diagnostic> findings);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_LINT_LINT_H_
