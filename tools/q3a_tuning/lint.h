// Checks of a parsed table message for what the library's readers accept
// silently but a tuning engineer rarely means: lists longer than the record
// holds, count fields that disagree with their lists or exceed capacity,
// frame-summary kinds the algorithm cannot use, integers cut to a narrow
// field.
#ifndef TOOLS_Q3A_TUNING_LINT_H_
#define TOOLS_Q3A_TUNING_LINT_H_

#include <google/protobuf/message.h>

#include <string>
#include <vector>

namespace q3a_tool {

struct Finding {
  // JSON path of the value concerned, as the tool prints paths.
  std::string path;
  std::string message;
};

// Every finding in `table` (any message of the schema), in field order. A
// list that carries exactly its capacity is the writers' full form: entries
// past the count are unused, not a mistake.
std::vector<Finding> LintTableMessage(const google::protobuf::Message& table);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_LINT_H_
