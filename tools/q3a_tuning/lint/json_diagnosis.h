// Where in a JSON tuning file the protobuf parser gave up. protobuf's status
// says why but not where; this finds the first value that is not valid JSON
// or that the table's schema does not accept, and its JSON path.
#ifndef TOOLS_Q3A_TUNING_LINT_JSON_DIAGNOSIS_H_
#define TOOLS_Q3A_TUNING_LINT_JSON_DIAGNOSIS_H_

#include <google/protobuf/descriptor.h>

#include <optional>
#include <string>
#include <string_view>

#include "tools/q3a_tuning/lint/json_document.h"

namespace q3a_tool {

struct JsonLocation {
  TextPosition position;
  std::string path;    // empty for the whole document
  std::string detail;  // what is wrong there, in the tool's words
  std::string rule{};  // the lint rule the refused form breaks, if one does
};

// The first key the message does not have, value of the wrong kind (object,
// array, number, string, bool), enum name outside the enum, or integer that
// does not fit its field. nullopt if the document fits the schema.
std::optional<JsonLocation> FindSchemaProblem(
    const JsonValue& root, const google::protobuf::Descriptor& descriptor);

// The location of the syntax error, else of the first schema problem, else
// line 1 column 1 with no detail.
JsonLocation LocateJsonFailure(std::string_view text,
                               const google::protobuf::Descriptor& descriptor);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_LINT_JSON_DIAGNOSIS_H_
