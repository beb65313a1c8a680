// `schema`: the JSON Schema of one table's tuning files, for editors.
#include <fmt/format.h>

#include <memory>
#include <string>

#include "tools/q3a_tuning/commands/command_options.h"
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
  return WriteAndReport(options.output, TableJsonSchema(*id), {.text = true});
}

}  // namespace

void AddSchemaCommand(CLI::App& app, int& exit_code) {
  auto [command, options] = AddSubcommand(app, exit_code, "schema", RunSchema);
  AddOperand(*command, "table", options->table, TableNames());
  command->add_option("-o,--output", options->output,
                      "File to write; - for stdout")
      ->capture_default_str();
}

}  // namespace q3a_tool
