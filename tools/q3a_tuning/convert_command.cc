// `convert`: a table between JSON and binary protobuf tuning files, through
// the record the phone would hold, so the output is what the library reads.
#include <fmt/format.h>

#include <memory>
#include <string>

#include "tools/q3a_tuning/commands.h"
#include "tools/q3a_tuning/table_diagnostics.h"
#include "tools/q3a_tuning/table_guess.h"
#include "tools/q3a_tuning/validate.h"

namespace q3a_tool {
namespace {

struct ConvertOptions {
  std::string input;
  std::string output;
  std::string table;
  std::string from;
  std::string to;
};

int RunConvert(const ConvertOptions& options) {
  const FileFormat from = ResolveFormat(options.input, options.from);
  const FileFormat to = ResolveFormat(options.output, options.to);
  std::string error;
  const std::optional<TableKind> kind =
      ResolveTable(options.input, from, options.table, error);
  if (!kind) {
    fmt::print(stderr, "{}\n", error);
    return kExitFailure;
  }
  // The record keeps only what fits; say so before it is lost.
  const ValidationReport report = ValidateTableFile(options.input, from, *kind);
  if (!report.accepted) {
    for (const std::string& problem : report.problems) {
      fmt::print(stderr, "{}\n", problem);
    }
    return kExitFailure;
  }
  for (const std::string& problem : report.problems) {
    fmt::print(stderr, "warning: {}\n", problem);
  }
  return VisitTableKind(*kind, [&](auto type) {
    using Record = typename decltype(type)::type;
    auto table = MakeZeroedTable<Record>();
    if (!LoadTableFile(options.input, from, *table, error)) {
      fmt::print(stderr, "{}\n", error);
      return kExitFailure;
    }
    if (!WriteTableFile(options.output, to, *table)) {
      fmt::print(stderr, "{}: could not write the file\n", options.output);
      return kExitFailure;
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
      "(with a warning) and every list comes out at full capacity.");
  command->add_option("input", options->input, "Tuning file to read")
      ->required();
  command->add_option("output", options->output, "Tuning file to write")
      ->required();
  command->add_option("--table", options->table,
                      "basic, advance, color or feature (guessed if omitted)");
  command->add_option("--from", options->from,
                      "json or binary (from the extension if omitted)");
  command->add_option("--to", options->to,
                      "json or binary (from the extension if omitted)");
  command->callback(
      [&exit_code, options] { exit_code = RunConvert(*options); });
}

}  // namespace q3a_tool
