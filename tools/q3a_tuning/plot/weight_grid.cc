#include "tools/q3a_tuning/plot/weight_grid.h"

#include <utility>

namespace q3a_tool {

HeatMap WeightGrid(std::string title, std::string column_title,
                   const GridSource& now,
                   const std::optional<GridSource>& before) {
  HeatMap map;
  map.title = std::move(title);
  map.row_title = "BV (table value)";
  map.column_title = std::move(column_title);
  map.value_title = "weight";
  for (int c = 0; c < now.columns; ++c) {
    map.column_labels.push_back(now.column_label(c));
  }
  for (int r = 0; r < now.rows; ++r) {
    map.row_labels.push_back(now.row_label(r));
    auto& values = map.values.emplace_back();
    for (int c = 0; c < now.columns; ++c) values.push_back(now.value(r, c));
  }
  if (!before) return map;
  for (int r = 0; r < now.rows; ++r) {
    auto& changed = map.changed.emplace_back();
    for (int c = 0; c < now.columns; ++c) {
      changed.push_back(r >= before->rows || c >= before->columns ||
                        before->row_label(r) != map.row_labels[r] ||
                        before->column_label(c) != map.column_labels[c] ||
                        !(before->value(r, c) == map.values[r][c]));
    }
  }
  return map;
}

}  // namespace q3a_tool
