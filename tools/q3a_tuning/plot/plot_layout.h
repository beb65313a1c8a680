// Where everything of a panel goes: the frame, the ticks, every point and
// outline in SVG units, the labels placed so that none overlap, the legend,
// and for heat maps the cells, the colour bar and which labels fit. The SVG
// writer only draws what the layout says; the tests check the layout.
#ifndef TOOLS_Q3A_TUNING_PLOT_PLOT_LAYOUT_H_
#define TOOLS_Q3A_TUNING_PLOT_PLOT_LAYOUT_H_

#include <string>
#include <vector>

#include "tools/q3a_tuning/plot/plot_axes.h"
#include "tools/q3a_tuning/plot/plot_model.h"

namespace q3a_tool {

struct LegendItem {
  std::string text;
  int colour = 0;
  Marker marker = Marker::kNone;
  bool line = false;
  bool area = false;
  bool before = false;
  Box box;  // swatch and text
};

struct PlacedLabel {
  Box box;
  std::string text;
  int colour = 0;
};

struct ChartLayout {
  Box cell;
  Box frame;
  bool empty = true;  // no finite point: "no data", no axes
  Ticks x_ticks, y_ticks;
  LinearScale x, y;
  // Per series and per area of the chart, its finite points mapped.
  std::vector<std::vector<XY>> series;
  std::vector<std::vector<XY>> areas;
  std::vector<PlacedLabel> labels;
  std::vector<LegendItem> legend;
  double note_y = 0;
};

// Lays `chart` out in `cell`. Axes span round tick values enclosing every
// finite value; non-finite coordinates are left out.
ChartLayout LayoutChart(const Chart& chart, const Box& cell);

struct HeatMapLayout {
  Box cell;
  Box grid;
  bool empty = true;
  int rows = 0, columns = 0;
  double cell_width = 0, cell_height = 0;
  ColourScale scale;
  Box bar;
  // Labels of the colour bar: its ends and round values between them.
  std::vector<double> bar_values;
  int bar_decimals = 0;
  bool rotate_columns = false;
  int column_stride = 1;  // every n-th block label, so none collide
  int row_stride = 1;
  bool show_values = false;
  int value_decimals = 0;
  double column_title_y = 0;  // baselines
  double note_y = 0;
};

HeatMapLayout LayoutHeatMap(const HeatMap& map, const Box& cell);

// Height of a panel's cell in a figure.
double PanelHeight(const Panel& panel);
bool PanelWide(const Panel& panel);

inline constexpr double kFigureWidth = 1100;

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_PLOT_PLOT_LAYOUT_H_
