#include "tools/q3a_tuning/lint/table_diagnostics.h"

#include <fmt/format.h>

#include "tools/q3a_tuning/lint/json_diagnosis.h"
#include "tools/q3a_tuning/lint/lint_rules.h"

namespace q3a_tool {
namespace {

// protobuf's JSON errors can run over several lines with a copy of the
// input; the first line is the reason.
std::string FirstLine(std::string_view text) {
  return std::string(text.substr(0, text.find('\n')));
}

// protobuf's reason for a value it refused, without the path it sometimes
// repeats, and with what the tool found there.
std::string SchemaReason(const std::string& protobuf_reason,
                         const JsonLocation& where) {
  std::string reason = FirstLine(protobuf_reason);
  for (const std::string& prefix :
       {"(" + where.path + "): ", where.path + ": "}) {
    if (reason.starts_with(prefix)) reason.erase(0, prefix.size());
  }
  // ... or with the enclosing message's path in brackets.
  if (reason.starts_with("(") && reason.find(") ") != std::string::npos) {
    reason.erase(0, reason.find(") ") + 2);
  }
  const std::string last = where.path.substr(where.path.find_last_of(".]") + 1);
  if (reason.starts_with(last + ": ")) reason.erase(0, last.size() + 2);
  // protobuf does not always name the value it stopped at; when its reason
  // does not mention the located field, lead with what the tool found.
  if (protobuf_reason.find(last) != std::string::npos) {
    return where.detail.empty() ? reason : reason + " (" + where.detail + ")";
  }
  return where.detail + " (protobuf: " + reason + ")";
}

}  // namespace

Diagnostic DiagnoseReadFailure(const std::string& path, FileFormat format,
                               qawb::TableId kind) {
  Diagnostic problem{path, 0, 0, "", lint_rule::kRejected, ""};
  const Result<std::string> content = ReadInputFile(path);
  if (!content.ok()) {
    problem.rule = lint_rule::kUnreadable;
    problem.message = content.error().message.substr(path.size() + 2);
    return problem;
  }
  if (content->empty()) {
    problem.message = "the file is empty";
    return problem;
  }
  qawb::VisitTable(kind, [&]<typename Record>() {
    typename protomsg::TuningTableTraits<Record>::Message message;
    const std::optional<ParseFailure> failure =
        ParseTableMessage(*content, format, message);
    if (!failure) {
      problem.message = "the library's reader refused the file";
      return;
    }
    if (format == FileFormat::kBinary) {
      problem.message = failure->reason;
      return;
    }
    const JsonLocation where =
        LocateJsonFailure(*content, *message.GetDescriptor());
    problem.line = where.position.line;
    problem.column = where.position.column;
    problem.path = where.path;
    if (!where.rule.empty()) problem.rule = where.rule;
    if (where.path.empty()) {
      // A syntax error: protobuf's words, with the tool's in brackets.
      problem.message = FirstLine(failure->reason);
      if (!where.detail.empty()) problem.message += " (" + where.detail + ")";
    } else {
      problem.message = SchemaReason(failure->reason, where);
    }
  });
  return problem;
}

std::string DescribeReadFailure(const std::string& path, FileFormat format,
                                qawb::TableId kind) {
  return DiagnosticText(DiagnoseReadFailure(path, format, kind));
}

TextPosition PositionOfPath(const JsonValue& document,
                            std::string_view json_path) {
  std::string_view path = json_path;
  while (!path.empty()) {
    if (const JsonValue* value = FindJsonPath(document, path)) {
      return value->position();
    }
    const std::size_t cut = path.find_last_of(".[");
    if (cut == std::string_view::npos || cut == 0) break;
    path = path.substr(0, cut);
  }
  return document.position();
}

}  // namespace q3a_tool
