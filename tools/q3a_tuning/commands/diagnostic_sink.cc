#include "tools/q3a_tuning/commands/diagnostic_sink.h"

#include <fmt/format.h>

#include <utility>

namespace q3a_tool {

void DiagnosticSink::Report(const Diagnostic& diagnostic) {
  ++count_;
  if (json_) {
    kept_.push_back(diagnostic);
  } else {
    fmt::print(stream_, "{}\n", DiagnosticText(diagnostic));
  }
}

void DiagnosticSink::Report(const std::vector<Diagnostic>& diagnostics) {
  for (const Diagnostic& diagnostic : diagnostics) Report(diagnostic);
}

void DiagnosticSink::Warn(Diagnostic diagnostic) {
  diagnostic.severity = Severity::kWarning;
  Report(diagnostic);
}

void DiagnosticSink::Finish() const {
  if (json_) fmt::print("{}", DiagnosticsJson(kept_));
}

int ReportError(const ToolError& error) {
  DiagnosticSink().Report(Diagnostic{.message = error.message});
  return error.exit_code;
}

void ReportWritten(const std::string& path) {
  if (path != kStdoutPath) fmt::print("{}\n", path);
}

int WriteAndReport(const std::string& path, std::string_view bytes,
                   const OutputOptions& options, int exit_code) {
  if (auto error = WriteOutputFile(path, bytes, options); !error.ok()) {
    return ReportError(error.error());
  }
  ReportWritten(path);
  return exit_code;
}

}  // namespace q3a_tool
