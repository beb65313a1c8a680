#include "tools/q3a_tuning/io/diagnostic.h"

#include <fmt/format.h>

#include "tools/q3a_tuning/io/json_text.h"

namespace q3a_tool {

Diagnostic DiagnosticOf(const ToolError& error, const std::string& file,
                        std::string_view rule) {
  Diagnostic diagnostic;
  diagnostic.file = file;
  diagnostic.rule = std::string(rule);
  const std::string prefix = file + ": ";
  diagnostic.message = error.message.starts_with(prefix)
                           ? error.message.substr(prefix.size())
                           : error.message;
  return diagnostic;
}

std::string_view SeverityName(Severity severity) {
  switch (severity) {
    case Severity::kWarning:
      return "warning";
    case Severity::kHint:
      return "hint";
    case Severity::kNote:
      return "note";
    case Severity::kError:
      break;
  }
  return "error";
}

std::string DiagnosticText(const Diagnostic& diagnostic) {
  std::string text;
  if (diagnostic.severity != Severity::kError) {
    text = fmt::format("{}: ", SeverityName(diagnostic.severity));
  }
  if (!diagnostic.file.empty()) {
    text += diagnostic.file;
    if (diagnostic.line > 0) {
      text += fmt::format(":{}:{}", diagnostic.line, diagnostic.column);
    }
    text += ": ";
  }
  if (!diagnostic.path.empty()) text += diagnostic.path + ": ";
  return text + diagnostic.message;
}

std::string DiagnosticsJson(const std::vector<Diagnostic>& diagnostics) {
  JsonText json;
  json.BeginArray();
  for (const Diagnostic& diagnostic : diagnostics) {
    json.BeginObject();
    json.Key("severity").String(SeverityName(diagnostic.severity));
    json.Key("file").String(diagnostic.file);
    json.Key("line").Number(diagnostic.line);
    json.Key("column").Number(diagnostic.column);
    json.Key("path").String(diagnostic.path);
    json.Key("rule").String(diagnostic.rule);
    json.Key("message").String(diagnostic.message);
    json.EndObject();
  }
  json.EndArray();
  return json.Text() + "\n";
}

}  // namespace q3a_tool
