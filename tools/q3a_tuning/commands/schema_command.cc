// `schema`: the JSON Schema of one table's tuning files, for editors.
#include <fmt/format.h>

#include <memory>
#include <string>

#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/io/json_schema.h"
#include "tools/q3a_tuning/io/output_file.h"
#include "tools/q3a_tuning/io/table_id.h"

namespace q3a_tool {
namespace {

struct SchemaOptions {
  std::string table;
  std::string output{kStdoutPath};
};

int RunSchema(const SchemaOptions& options) {
  const std::optional<qawb::TableId> id = qawb::FindTable(options.table);
  if (!id) {
    return ReportError({fmt::format("schema: '{}' is not a table; use {}",
                                    options.table, TableNames()),
                        kExitUsage});
  }
  if (auto error = WriteOutputFile(options.output, TableJsonSchema(*id),
                                   {.text = true})) {
    return ReportError(*error);
  }
  if (options.output != kStdoutPath) fmt::print("{}\n", options.output);
  return kExitOk;
}

}  // namespace

void AddSchemaCommand(CLI::App& app, int& exit_code) {
  auto options = std::make_shared<SchemaOptions>();
  auto* command = app.add_subcommand(
      "schema",
      "Print the JSON Schema (draft 2020-12) of a table's JSON tuning "
      "files, for editors that check JSON as it is typed: field names in "
      "both spellings, types, integer ranges, list capacities, enum names. "
      "validate still decides: counts against their lists and duplicate "
      "keys are beyond a schema.");
  command->add_option("table", options->table, TableNames())->required();
  command->add_option("-o,--output", options->output,
                      "File to write; - for stdout")
      ->capture_default_str();
  command->footer(
      "Example:\n  q3a-tuning schema feature -o feature.schema.json");
  command->callback(
      [&exit_code, options] { exit_code = RunSchema(*options); });
}

}  // namespace q3a_tool
