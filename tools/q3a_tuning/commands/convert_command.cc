// `convert`: a table between JSON and binary protobuf tuning files, through
// the record the phone would hold, so the output is what the library reads.
#include <fmt/format.h>

#include <memory>
#include <string>

#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/diagnostic_sink.h"
#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/io/input_file.h"
#include "tools/q3a_tuning/io/output_file.h"
#include "tools/q3a_tuning/lint/table_diagnostics.h"
#include "tools/q3a_tuning/lint/table_guess.h"
#include "tools/q3a_tuning/lint/validate.h"

namespace q3a_tool {
namespace {

struct ConvertOptions {
  std::string input;
  std::string output;
  std::string table;
  std::string from;
  std::string to;
  bool compact = false;
};

int RunConvert(const ConvertOptions& options) {
  if (auto refused = RequireFileOperand(options.input, "convert");
      !refused.ok()) {
    return ReportError(refused.error());
  }
  const Result<FileFormat> from = InputFormat(options.input, options.from);
  if (!from.ok()) return ReportError(from.error());
  // stdout takes text only, so "-" means JSON unless --to says otherwise.
  const Result<FileFormat> to =
      options.output == kStdoutPath && options.to.empty()
          ? FileFormat::kJson
          : ResolveFormat(options.output, options.to);
  if (!to.ok()) return ReportError(to.error());
  const std::string inputs[] = {options.input};
  TableFileOptions write{*to, options.compact, {.inputs = inputs}};
  write.output.text = *to == FileFormat::kJson;
  if (auto refused = CheckOutputPath(options.output, write.output);
      !refused.ok()) {
    return ReportError(refused.error());
  }
  const Result<qawb::TableId> kind =
      ResolveTable(options.input, *from, options.table);
  if (!kind.ok()) return ReportError(kind.error());
  // The record keeps only what fits; say so before it is lost.
  const ValidationReport report =
      ValidateTableFile(options.input, *from, *kind);
  if (report.unreadable) return ReportError(*report.unreadable);
  DiagnosticSink diagnostics;
  if (!report.accepted) {
    diagnostics.Report(report.problems);
    return kExitFailure;
  }
  for (const Diagnostic& problem : report.problems) diagnostics.Warn(problem);
  return qawb::VisitTable(*kind, [&]<typename Record>() {
    auto table = MakeZeroedTable<Record>();
    if (auto error = LoadTableFile(options.input, *from, *table); !error.ok()) {
      return ReportError(error.error());
    }
    const Result<std::vector<Diagnostic>> warnings =
        WriteTableFile(options.output, *table, write);
    if (!warnings.ok()) return ReportError(warnings.error());
    diagnostics.Report(*warnings);
    ReportWritten(options.output);
    return kExitOk;
  });
}

}  // namespace

void AddConvertCommand(CLI::App& app, int& exit_code) {
  auto [command, options] =
      AddSubcommand(app, exit_code, "convert", RunConvert);
  AddOperand(*command, "input", options->input, "Tuning file to read");
  AddOperand(*command, "output", options->output,
             "Tuning file to write; - for stdout (JSON only)");
  AddTableOption(*command, options->table);
  AddFromOption(*command, options->from);
  command->add_option("--to", options->to,
                      "json or binary (from the extension if omitted)");
  AddCompactFlag(*command, options->compact);
}

}  // namespace q3a_tool
