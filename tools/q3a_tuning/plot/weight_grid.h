// A heat map of values by BV row and by column (CCT, luma, ...), the shape
// several tables share, built from accessors so that each table only says
// where its numbers are. Compared with an older grid, a cell counts as
// changed when its value, its row's or its column's label differs, or the
// older grid has no such cell.
#ifndef TOOLS_Q3A_TUNING_PLOT_WEIGHT_GRID_H_
#define TOOLS_Q3A_TUNING_PLOT_WEIGHT_GRID_H_

#include <functional>
#include <optional>
#include <string>

#include "tools/q3a_tuning/plot/plot_model.h"

namespace q3a_tool {

struct GridSource {
  int rows = 0;
  int columns = 0;
  std::function<double(int row, int column)> value;
  std::function<std::string(int row)> row_label;
  std::function<std::string(int column)> column_label;
};

// The heat map `title` of weights by BV row (table value) and by column
// (`column_title`), with the cells that differ from `before`, when given.
HeatMap WeightGrid(std::string title, std::string column_title,
                   const GridSource& now,
                   const std::optional<GridSource>& before);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_PLOT_WEIGHT_GRID_H_
