// `validate`: whether the library accepts a tuning file, and what in it the
// library would take silently but the engineer probably did not mean.
// Findings go to stdout (one line each, or a JSON array with --json); a file
// the reader refuses is reported on stderr. Exit 0 clean, 1 findings or a
// refused file, 2 a usage error or a file that cannot be read.
#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/diagnostic_sink.h"
#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/io/input_file.h"
#include "tools/q3a_tuning/io/json_text.h"
#include "tools/q3a_tuning/lint/lint_rules.h"
#include "tools/q3a_tuning/lint/table_guess.h"
#include "tools/q3a_tuning/lint/validate.h"

namespace q3a_tool {
namespace {

struct ValidateOptions {
  std::vector<std::string> files;
  std::string table;
  std::string format;
  std::string key;
  bool json = false;
  bool compact = false;
};

// Findings go to `results` (stdout, or the --json array); refusals and
// hints to stderr, and refusals into the --json array too.
int ValidateOne(const std::string& path, const ValidateOptions& options,
                const qawb::QAWBTuning* built_in, DiagnosticSink& results) {
  DiagnosticSink errors;
  const auto refuse = [&](const ToolError& error, std::string_view rule) {
    if (options.json) results.Report(DiagnosticOf(error, path, rule));
    return ReportError(error);
  };
  if (auto refused = CheckInputFile(path); !refused.ok()) {
    return refuse(refused.error(), lint_rule::kUnreadable);
  }
  const Result<FileFormat> format = ResolveFormat(path, options.format);
  if (!format.ok()) return ReportError(format.error());
  // A --table that names another table than the file holds is a
  // "wrong-table" finding of ValidateTableFile.
  TableGuess guess;
  const Result<qawb::TableId> kind =
      options.table.empty() ? ResolveTable(path, *format, "", &guess)
                            : ParseTableOption(options.table);
  if (!kind.ok()) {
    if (kind.error().exit_code == kExitUsage) return ReportError(kind.error());
    return refuse(kind.error(), guess.container_dump ? lint_rule::kWrongTable
                                                     : lint_rule::kRejected);
  }
  const ValidationReport report =
      ValidateTableFile(path, *format, *kind, built_in, options.compact);
  if (report.unreadable) {
    return refuse(*report.unreadable, lint_rule::kUnreadable);
  }
  if (!report.accepted) {
    errors.Report(report.problems);
    if (options.json) results.Report(report.problems);
    const bool in_question = options.table.empty() && !guess.certain;
    errors.Report(
        {.file = path,
         .message = fmt::format(
             "rejected as a {} table{}", TableName(*kind),
             in_question ? " (guessed; give --table to choose)" : "")});
    return kExitFailure;
  }
  if (report.reads_like_compact) {
    errors.Report({.file = path,
                   .message = "reads like a compact file (export --compact); "
                              "give --compact if it is one, and the fields it "
                              "leaves out are not findings",
                   .severity = Severity::kHint});
  }
  results.Report(report.problems);
  if (!options.json) {
    fmt::print("{}: {} table version {}: {}\n", path, TableName(*kind),
               report.version,
               report.problems.empty()
                   ? "ok"
                   : fmt::format("{} finding(s)", report.problems.size()));
  }
  return report.problems.empty() ? kExitOk : kExitFailure;
}

// The lint's rules, one "name  summary" line each, or a JSON array of
// {name, summary}.
void PrintLintRules(bool json) {
  if (!json) {
    for (const LintRuleInfo& info : kLintRules) {
      fmt::print("{:<16} {}\n", info.name, info.summary);
    }
    return;
  }
  JsonText text;
  text.BeginArray();
  for (const LintRuleInfo& info : kLintRules) {
    text.BeginObject();
    text.Key("name").String(info.name);
    text.Key("summary").String(info.summary);
    text.EndObject();
  }
  text.EndArray();
  fmt::print("{}\n", text.Text());
}

int RunValidate(const ValidateOptions& options) {
  const qawb::QAWBTuning* built_in = nullptr;
  if (!options.key.empty()) {
    const Result<const qawb::QAWBTuning*> container =
        RegisteredContainer(options.key);
    if (!container.ok()) return ReportError(container.error());
    built_in = *container;
  }
  int status = kExitOk;
  DiagnosticSink results(stdout, options.json);
  for (const std::string& file : options.files) {
    status = std::max(status, ValidateOne(file, options, built_in, results));
  }
  results.Finish();
  return status;
}

}  // namespace

void AddValidateCommand(CLI::App& app, int& exit_code) {
  auto [command, options] =
      AddSubcommand(app, exit_code, "validate", RunValidate);
  AddOperand(*command, "files", options->files, "Tuning files (.json, .pb)");
  AddTableOption(*command, options->table);
  AddFromOption(*command, options->format);
  AddKeyOption(*command, options->key,
               "the file is meant for it, and its table's version is "
               "expected");
  command->add_flag("--compact", options->compact,
                    "The files are compact (export --compact): fields they "
                    "leave out are meant, not findings");
  command->add_flag("--json", options->json,
                    "Findings as a JSON array (severity, file, line, column, "
                    "path, rule, message)");
  // Runs before the files are required, as --version does.
  command->add_flag_callback(
      "--list-rules",
      [options] {
        PrintLintRules(options->json);
        throw CLI::Success();
      },
      "Print the lint's rules (name and summary; a JSON array with --json) "
      "and exit");
}

}  // namespace q3a_tool
