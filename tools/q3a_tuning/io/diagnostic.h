// The tool's one report of something wrong or worth saying: an error, a
// warning or a hint, a finding of the lint, a value the plots leave out. It
// names the file and, where known, the place in it and the JSON path; the
// rule is the lint's name for it (lint/lint_rules.def). Commands print
// diagnostics through one sink (commands/diagnostic_sink.h), as text or as
// JSON; the helpers below only format them.
#ifndef TOOLS_Q3A_TUNING_IO_DIAGNOSTIC_H_
#define TOOLS_Q3A_TUNING_IO_DIAGNOSTIC_H_

#include <string>
#include <string_view>
#include <vector>

#include "tools/q3a_tuning/io/tool_error.h"

namespace q3a_tool {

// kNote is for what is neither wrong nor advice: a difference `diff` lists.
enum class Severity { kError, kWarning, kHint, kNote };

struct Diagnostic {
  std::string file{};  // empty where the caller adds it, or for none
  int line = 0;        // 0 when the place in the file is not known
  int column = 0;
  std::string path{};  // JSON path of the value, empty for the whole file
  std::string rule{};  // the lint rule, empty for other diagnostics
  std::string message{};
  Severity severity = Severity::kError;
};

// `error` as a diagnostic about `file`, its message without the leading
// "FILE: " the helpers put there.
Diagnostic DiagnosticOf(const ToolError& error, const std::string& file,
                        std::string_view rule = "");

// "error", "warning", "hint" or "note".
std::string_view SeverityName(Severity severity);

// "[warning: |hint: ]FILE:LINE:COL: PATH: message", leaving out what is
// unknown. Errors carry no prefix: they are the findings and refusals the
// tool has always printed so.
std::string DiagnosticText(const Diagnostic& diagnostic);

// A JSON array of objects with the fields above (severity by name).
std::string DiagnosticsJson(const std::vector<Diagnostic>& diagnostics);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_DIAGNOSTIC_H_
