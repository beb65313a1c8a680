// `inspect`: a tuning binary file's size, offsets and version heads, and
// whether its tables hold real tuning.
#include <fmt/format.h>

#include <memory>
#include <string>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/lint/plausibility.h"

namespace q3a_tool {
namespace {

using qawb::MutableQAWBTuning;

struct InspectOptions {
  std::string input;
};

int RunInspect(const InspectOptions& options) {
  const std::string& path = options.input;
  const Result<TuningBinaryFileInfo> info = InspectTuningBinaryFile(path);
  if (!info.ok()) return ReportError(info.error());
  fmt::print("{}: {} bytes, {}\n", path, info->size,
             info->size_ok
                 ? "the size of a tuning binary file"
                 : fmt::format("but a tuning binary file has exactly {}; the "
                               "container will refuse it",
                               MutableQAWBTuning::kTuningBinaryFileSize));
  for (const TableHead& head : info->tables) {
    fmt::print("  {:<8} offset {:>6} size {:>6} version {}\n",
               TableName(head.kind), head.offset, head.size,
               head.version ? VersionString(*head.version) : "(past the end)");
  }
  if (info->size_ok && !info->Plausible()) {
    DiagnosticSink().Report({.message = info->ImplausibleText(path)});
  }
  return info->size_ok && info->Plausible() ? kExitOk : kExitFailure;
}

}  // namespace

void AddInspectCommand(CLI::App& app, int& exit_code) {
  auto [command, options] =
      AddSubcommand(app, exit_code, "inspect", RunInspect);
  AddOperand(*command, "input", options->input, "Tuning binary file");
}

}  // namespace q3a_tool
