// `convert`: a table between JSON and binary protobuf tuning files, through
// the record the phone would hold, so the output is what the library reads.
#include <fmt/format.h>

#include <memory>
#include <string>

#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/io/input_file.h"
#include "tools/q3a_tuning/io/output_file.h"
#include "tools/q3a_tuning/lint/table_diagnostics.h"
#include "tools/q3a_tuning/io/table_guess.h"
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
  if (auto refused = CheckInputFile(options.input)) {
    return ReportError(*refused);
  }
  const std::string inputs[] = {options.input};
  if (auto refused = CheckOutputPath(options.output, inputs)) {
    return ReportError(*refused);
  }
  const Result<FileFormat> from = ResolveFormat(options.input, options.from);
  if (!from.ok()) return ReportError(from.error());
  const Result<FileFormat> to = ResolveFormat(options.output, options.to);
  if (!to.ok()) return ReportError(to.error());
  const Result<TableKind> kind =
      ResolveTable(options.input, *from, options.table);
  if (!kind.ok()) return ReportError(kind.error());
  // The record keeps only what fits; say so before it is lost.
  const ValidationReport report =
      ValidateTableFile(options.input, *from, *kind);
  if (report.unreadable) return ReportError(*report.unreadable);
  if (!report.accepted) {
    for (const Problem& problem : report.problems) {
      fmt::print(stderr, "{}\n", ProblemText(problem));
    }
    return kExitFailure;
  }
  for (const Problem& problem : report.problems) {
    fmt::print(stderr, "warning: {}\n", ProblemText(problem));
  }
  return VisitTableKind(*kind, [&](auto type) {
    using Record = typename decltype(type)::type;
    auto table = MakeZeroedTable<Record>();
    if (auto error = LoadTableFile(options.input, *from, *table)) {
      return ReportError(*error);
    }
    if (auto error = WriteTableFile(options.output, *to, *table, inputs,
                                    options.compact)) {
      return ReportError(*error);
    }
    fmt::print("{}\n", options.output);
    return kExitOk;
  });
}

}  // namespace

void AddConvertCommand(CLI::App& app, int& exit_code) {
  auto options = std::make_shared<ConvertOptions>();
  auto* command = app.add_subcommand(
      "convert",
      "Convert a tuning file between JSON and binary protobuf. The table "
      "passes through its record: entries beyond capacity are dropped "
      "(with a warning) and every list comes out at full capacity unless "
      "--compact. The output must not be the input.");
  command->add_option("input", options->input, "Tuning file to read")
      ->required();
  command->add_option("output", options->output, "Tuning file to write")
      ->required();
  command->add_option("--table", options->table,
                      TableNames() + " (guessed if omitted)");
  command->add_option("--from", options->from,
                      "json or binary (from the extension if omitted)");
  command->add_option("--to", options->to,
                      "json or binary (from the extension if omitted)");
  command->add_flag("--compact", options->compact,
                    "Write only what carries meaning: lists up to their "
                    "counts, no zero tails, no default scalars");
  command->footer("Example:\n  q3a-tuning convert feature.json feature.pb");
  command->callback(
      [&exit_code, options] { exit_code = RunConvert(*options); });
}

}  // namespace q3a_tool
