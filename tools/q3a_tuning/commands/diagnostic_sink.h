// Where a command's diagnostics go: one text line each on a stream as they
// come (stderr for warnings and refusals, stdout where they are the
// command's result), or, for --json, one array on stdout at the end.
#ifndef TOOLS_Q3A_TUNING_COMMANDS_DIAGNOSTIC_SINK_H_
#define TOOLS_Q3A_TUNING_COMMANDS_DIAGNOSTIC_SINK_H_

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "tools/q3a_tuning/io/diagnostic.h"
#include "tools/q3a_tuning/io/output_file.h"

namespace q3a_tool {

class DiagnosticSink {
 public:
  // Text lines on `stream`; with `json`, kept for Finish.
  explicit DiagnosticSink(std::FILE* stream = stderr, bool json = false)
      : stream_(stream), json_(json) {}

  void Report(const Diagnostic& diagnostic);
  void Report(const std::vector<Diagnostic>& diagnostics);

  // Reports `diagnostic` as a warning.
  void Warn(Diagnostic diagnostic);

  // With json, prints the array of every diagnostic reported (an empty one
  // if none was); without, nothing.
  void Finish() const;

  bool empty() const { return count_ == 0; }

 private:
  std::FILE* stream_;
  bool json_;
  std::size_t count_ = 0;
  std::vector<Diagnostic> kept_;
};

// Reports `error` on stderr through the sink; returns its exit code.
int ReportError(const ToolError& error);

// Names a command's output file on stdout, where scripts read it; nothing
// for stdout itself.
void ReportWritten(const std::string& path);

// Writes a command's one output file (WriteOutputFile) and names it; returns
// `exit_code`, or the error's once reported.
int WriteAndReport(const std::string& path, std::string_view bytes,
                   const OutputOptions& options, int exit_code = kExitOk);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_COMMANDS_DIAGNOSTIC_SINK_H_
