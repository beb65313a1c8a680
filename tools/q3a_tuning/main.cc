// q3a-tuning: the command-line tool of tuning engineers. Exports the phone's
// built-in AWB tables, checks edited tuning files, converts, compares and
// plots them, and runs the override loader the way the camera service does.
#include <CLI/CLI.hpp>

#include "tools/q3a_tuning/commands.h"

int main(int argc, char** argv) {
  CLI::App app{"Inspect, check and edit the AWB tuning of libq3a_tuning.",
               "q3a-tuning"};
  app.require_subcommand(1);
  int exit_code = q3a_tool::kExitOk;
  q3a_tool::AddListCommand(app, exit_code);
  q3a_tool::AddExportCommand(app, exit_code);
  q3a_tool::AddValidateCommand(app, exit_code);
  q3a_tool::AddConvertCommand(app, exit_code);
  q3a_tool::AddDumpCommand(app, exit_code);
  q3a_tool::AddRestoreCommand(app, exit_code);
  q3a_tool::AddInspectCommand(app, exit_code);
  q3a_tool::AddDiffCommand(app, exit_code);
  q3a_tool::AddLoadCommand(app, exit_code);
  q3a_tool::AddPlotCommand(app, exit_code);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const int status = app.exit(error);
    return status == 0 ? q3a_tool::kExitOk : q3a_tool::kExitUsage;
  }
  return exit_code;
}
