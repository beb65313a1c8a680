// `validate`: whether the library accepts a tuning file, and what in it the
// library would take silently but the engineer probably did not mean.
#include <fmt/format.h>

#include <memory>
#include <string>
#include <vector>

#include "tools/q3a_tuning/commands.h"
#include "tools/q3a_tuning/table_guess.h"
#include "tools/q3a_tuning/validate.h"

namespace q3a_tool {
namespace {

struct ValidateOptions {
  std::vector<std::string> files;
  std::string table;
  std::string format;
};

int ValidateOne(const std::string& path, const ValidateOptions& options) {
  const FileFormat format = ResolveFormat(path, options.format);
  std::string error;
  const std::optional<TableKind> kind =
      ResolveTable(path, format, options.table, error);
  if (!kind) {
    fmt::print("{}\n", error);
    return kExitFailure;
  }
  const ValidationReport report = ValidateTableFile(path, format, *kind);
  for (const std::string& problem : report.problems) {
    fmt::print("{}\n", problem);
  }
  if (!report.accepted) {
    fmt::print(
        "{}: rejected as a {} table{}\n", path, TableName(*kind),
        options.table.empty() ? " (guessed; give --table to choose)" : "");
    return kExitFailure;
  }
  fmt::print("{}: {} table version {}: {}\n", path, TableName(*kind),
             report.version,
             report.problems.empty()
                 ? "ok"
                 : fmt::format("{} finding(s)", report.problems.size()));
  return report.problems.empty() ? kExitOk : kExitFailure;
}

}  // namespace

void AddValidateCommand(CLI::App& app, int& exit_code) {
  auto options = std::make_shared<ValidateOptions>();
  auto* command = app.add_subcommand(
      "validate",
      "Check tuning files with the library's reader, then report what it "
      "accepts silently: lists longer than the table holds, counts that "
      "disagree with their lists, unusable frame-summary kinds, integers too "
      "wide for their field. Exit 1 on any finding.");
  command->add_option("files", options->files, "Tuning files (.json, .pb)")
      ->required();
  command->add_option("--table", options->table,
                      "basic, advance, color or feature (guessed if omitted)");
  command->add_option("--from", options->format,
                      "json or binary (from the extension if omitted)");
  command->callback([&exit_code, options] {
    exit_code = kExitOk;
    for (const std::string& file : options->files) {
      if (ValidateOne(file, *options) != kExitOk) exit_code = kExitFailure;
    }
  });
}

}  // namespace q3a_tool
