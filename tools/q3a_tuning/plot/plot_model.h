// What a plot shows, before any layout: figures made of panels, each panel
// either a chart (points, lines and outlined areas over two numeric axes) or
// a heat map (a grid of values with row and column labels). The table plots
// fill these from records; the layout and the SVG writer read them.
#ifndef TOOLS_Q3A_TUNING_PLOT_PLOT_MODEL_H_
#define TOOLS_Q3A_TUNING_PLOT_PLOT_MODEL_H_

#include <string>
#include <variant>
#include <vector>

#include "tools/q3a_tuning/plot/svg_canvas.h"

namespace q3a_tool {

enum class Marker { kNone, kCircle, kSquare };

struct PlotPoint {
  double x = 0;
  double y = 0;
  std::string label;  // drawn beside the point when there is room
};

// Points of one kind; `before` marks the older side of a comparison (drawn
// hollow and dashed). `colour` indexes the plots' palette.
struct Series {
  std::string name;
  std::vector<PlotPoint> points;
  int colour = 0;
  Marker marker = Marker::kCircle;
  bool line = false;
  bool before = false;
};

// A closed outline in data coordinates, drawn under the series.
struct Area {
  std::string name;
  std::vector<XY> outline;
  int colour = 0;
  bool before = false;
};

struct Chart {
  std::string title;
  std::string x_title;
  std::string y_title;
  std::vector<Area> areas;
  std::vector<Series> series;
  std::string note;  // one line under the legend
  bool wide = false;
};

// values[row][column]; a non-finite value is an empty cell. Labels name
// blocks of `block` rows or columns (a 3 x 3 matrix per cell of a grid).
struct HeatMap {
  std::string title;
  std::string row_title;
  std::string column_title;
  std::string value_title;
  std::vector<std::string> row_labels;
  std::vector<std::string> column_labels;
  int block = 1;
  std::vector<std::vector<double>> values;
  // Same shape as values when a comparison marks changed cells.
  std::vector<std::vector<bool>> changed;
  bool diverging = false;  // white at zero, blue below, red above
  std::string note;
  bool wide = false;
};

using Panel = std::variant<Chart, HeatMap>;

struct Figure {
  std::string title;
  std::vector<Panel> panels;
  std::string note;  // under the title: what the picture leaves out
};

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_PLOT_PLOT_MODEL_H_
