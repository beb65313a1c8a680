// What `plot` and `report` share: a table operand loaded into its record,
// a plain-language name for it, and a table's figures drawn as one SVG.
#ifndef TOOLS_Q3A_TUNING_COMMANDS_PLOT_INPUTS_H_
#define TOOLS_Q3A_TUNING_COMMANDS_PLOT_INPUTS_H_

#include <fmt/format.h>

#include <optional>
#include <string>
#include <vector>

#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/io/tool_error.h"
#include "tools/q3a_tuning/lint/table_diagnostics.h"
#include "tools/q3a_tuning/lint/table_guess.h"
#include "tools/q3a_tuning/plot/plot_model.h"

namespace q3a_tool {

// "basic table 3.1 from edited.json", "basic table 3.1 of container
// 0,-1,1,0,-1", "default basic table 3.0".
std::string DescribeTable(const TableOperand& operand, qawb::TableId kind,
                          const qawb::QAWBParameterVersion& version);

// Figures one under another in a single <svg>.
std::string StackFiguresSvg(const std::vector<Figure>& figures);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_COMMANDS_PLOT_INPUTS_H_
