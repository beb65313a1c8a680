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

#include "tools/q3a_tuning/lint/json_document.h"

namespace q3a_tool {

struct Finding {
  Finding(std::string path, std::string message, std::string rule,
          std::optional<TextPosition> position = std::nullopt)
      : path(std::move(path)),
        message(std::move(message)),
        rule(std::move(rule)),
        position(position) {}

  // JSON path of the value concerned, as the tool prints paths.
  std::string path;
  std::string message;
  // The rule's name, for scripts: "over-capacity", "duplicate-key", ...
  std::string rule;
  // Where in a JSON file; unset when only the path is known.
  std::optional<TextPosition> position;
};

// Every finding in `table` (any message of the schema), in field order. A
// list that carries exactly its capacity is the writers' full form: entries
// past the count are unused, not a mistake.
std::vector<Finding> LintTableMessage(const google::protobuf::Message& table);

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
std::vector<Finding> LintAbsentFields(const google::protobuf::Message& table);

// One finding per rule and path pattern (indices dropped: "a.b[].c"): the
// first, its message ending with how many more there are.
std::vector<Finding> CollapseFindings(std::vector<Finding> findings);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_LINT_LINT_H_
