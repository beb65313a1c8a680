// `plot`: a table's pictures as one SVG file, or two tables of the same kind
// overlaid with --against.
#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/diagnostic_sink.h"
#include "tools/q3a_tuning/commands/plot_inputs.h"
#include "tools/q3a_tuning/io/output_file.h"
#include "tools/q3a_tuning/plot/table_plots.h"

namespace q3a_tool {
namespace {

struct PlotOptions {
  std::string input;
  std::string against;
  std::string table;
  std::string output;
  std::string from;
};

// plot draws SVG only; a name that promises another picture format would
// hold SVG under a wrong name, which viewers refuse.
Result<> CheckPictureName(const std::string& output) {
  static constexpr std::string_view kOtherFormats[] = {
      ".png", ".jpg", ".jpeg", ".gif", ".webp", ".bmp",
      ".tif", ".tiff", ".pdf", ".eps", ".ps"};
  std::string extension = std::filesystem::path(output).extension().string();
  for (char& c : extension) {
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  if (std::find(std::begin(kOtherFormats), std::end(kOtherFormats),
                extension) == std::end(kOtherFormats)) {
    return {};
  }
  return ToolError{fmt::format("{}: plot writes SVG, not {}; name the file "
                               ".svg (rsvg-convert or a browser makes a {} "
                               "of it)",
                               output, extension.substr(1),
                               extension.substr(1)),
                   kExitUsage};
}

int RunPlot(const PlotOptions& options) {
  if (!options.table.empty()) {
    const Result<qawb::TableId> named = ParseTableOption(options.table);
    if (!named.ok()) return ReportError(named.error());
  }
  if (auto refused = CheckPictureName(options.output); !refused.ok()) {
    return ReportError(refused.error());
  }
  const auto defaults = DefaultContainer();
  const Result<TableOperand> operand =
      ParseTableOperand(options.input, *defaults, options.from);
  if (!operand.ok()) return ReportError(operand.error());
  std::optional<TableOperand> against;
  if (!options.against.empty()) {
    Result<TableOperand> parsed =
        ParseTableOperand(options.against, *defaults, options.from);
    if (!parsed.ok()) return ReportError(parsed.error());
    against = std::move(*parsed);
  }
  std::vector<std::string> inputs = {operand->file};
  if (against) inputs.push_back(against->file);
  const OutputOptions output{.inputs = inputs, .text = true};
  if (auto refused = CheckOutputPath(options.output, output); !refused.ok()) {
    return ReportError(refused.error());
  }
  const Result<qawb::TableId> kind = OperandKind(*operand, options.table);
  if (!kind.ok()) return ReportError(kind.error());
  if (against) {
    const Result<qawb::TableId> other =
        OperandKind(*against, std::string(TableName(*kind)));
    if (!other.ok()) return ReportError(other.error());
    if (*other != *kind) {
      return ReportError({fmt::format("{}: not a {} table", against->name,
                                      TableName(*kind))});
    }
  }
  return qawb::VisitTable(*kind, [&]<typename Record>() {
    auto table = MakeZeroedTable<Record>();
    auto before = MakeZeroedTable<Record>();
    Result<> failure = LoadOperand(*operand, *table);
    if (failure.ok() && against) failure = LoadOperand(*against, *before);
    if (!failure.ok()) return ReportError(failure.error());
    PlotNames names;
    names.table = DescribeTable(*operand, *kind, table->version);
    if (against) names.before = DescribeTable(*against, *kind, before->version);
    const TablePlots plots =
        PlotTable(*table, against ? before.get() : nullptr, names);
    DiagnosticSink().Report(plots.findings);
    return WriteAndReport(options.output, StackFiguresSvg(plots.figures),
                          output,
                          plots.findings.empty() ? kExitOk : kExitFailure);
  });
}

}  // namespace

void AddPlotCommand(CLI::App& app, int& exit_code) {
  auto [command, options] = AddSubcommand(app, exit_code, "plot", RunPlot);
  AddOperand(*command, "input", options->input, "The table to draw");
  command->add_option("--against", options->against,
                      "An older table of the same kind to overlay");
  AddTableOption(*command, options->table);
  AddFromOption(*command, options->from);
  AddOutputOption(*command, options->output,
                  "SVG file to write; - for stdout")
      ->required();
}

}  // namespace q3a_tool
