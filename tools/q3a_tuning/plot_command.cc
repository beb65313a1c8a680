// `plot`: an SVG picture of a basic table (see svg_plot.h).
#include <fmt/format.h>

#include <memory>
#include <string>

#include "tools/q3a_tuning/commands.h"
#include "tools/q3a_tuning/output_file.h"
#include "tools/q3a_tuning/svg_plot.h"
#include "tools/q3a_tuning/table_diagnostics.h"
#include "tools/q3a_tuning/table_guess.h"
#include "tools/q3a_tuning/table_sources.h"

namespace q3a_tool {
namespace {

struct PlotOptions {
  std::string input;
  std::string table = "basic";
  std::string output;
};

int RunPlot(const PlotOptions& options) {
  if (options.table != "basic") {
    return ReportError({"--table: only basic tables can be plotted",
                        kExitUsage});
  }
  const auto defaults = DefaultContainer();
  const Result<TableOperand> operand =
      ParseTableOperand(options.input, *defaults);
  if (!operand.ok()) return ReportError(operand.error());
  if (operand->kind && *operand->kind != TableKind::kBasic) {
    return ReportError({"input: only basic tables can be plotted",
                        kExitUsage});
  }
  const std::string inputs[] = {operand->file};
  if (auto refused = CheckOutputPath(options.output, inputs)) {
    return ReportError(*refused);
  }
  auto table = MakeZeroedTable<qawb::QAWBBasicTuningTable>();
  if (auto error = LoadOperand(*operand, *table)) return ReportError(*error);
  const std::string svg = RenderBasicTableSvg(*table, operand->name);
  if (auto error = WriteOutputFile(options.output, svg, inputs)) {
    return ReportError(*error);
  }
  fmt::print("{}\n", options.output);
  return kExitOk;
}

}  // namespace

void AddPlotCommand(CLI::App& app, int& exit_code) {
  auto options = std::make_shared<PlotOptions>();
  auto* command = app.add_subcommand(
      "plot",
      "Draw a basic table as SVG: reference white points and golden modules "
      "in the R/G-B/G plane, illuminant weights as a BV x CCT heat map. The "
      "input is a tuning file, awb:KEY:basic or defaults:basic.");
  command->add_option("input", options->input, "The basic table")->required();
  command->add_option("--table", options->table, "Only basic")
      ->capture_default_str();
  command->add_option("-o,--output", options->output, "SVG file to write")
      ->required();
  command->footer("Example:\n  q3a-tuning plot awb:0,-1,1,0,-1:basic -o basic.svg");
  command->callback([&exit_code, options] { exit_code = RunPlot(*options); });
}

}  // namespace q3a_tool
