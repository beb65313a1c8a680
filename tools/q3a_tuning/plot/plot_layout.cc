#include "tools/q3a_tuning/plot/plot_layout.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

namespace q3a_tool {
namespace {

constexpr double kLegendRow = 16;
constexpr double kLegendSize = 11;
constexpr double kLabelSize = 10;

bool Finite(double x, double y) { return std::isfinite(x) && std::isfinite(y); }

struct Range {
  double low = std::numeric_limits<double>::infinity();
  double high = -std::numeric_limits<double>::infinity();
  void Add(double v) {
    low = std::min(low, v);
    high = std::max(high, v);
  }
  bool empty() const { return low > high; }
};

// Legend items in rows from `left`, wrapping at `width`; returns the rows.
int FlowLegend(std::vector<LegendItem>& items, double left, double top,
               double width) {
  double x = left;
  int rows = items.empty() ? 0 : 1;
  for (LegendItem& item : items) {
    const double w = 18 + TextWidth(item.text, kLegendSize) + 14;
    if (x > left && x + w > left + width) {
      x = left;
      ++rows;
    }
    item.box = {x, top + (rows - 1) * kLegendRow, w - 14, kLegendRow - 2};
    x += w;
  }
  return rows;
}

std::vector<LegendItem> ChartLegend(const Chart& chart) {
  std::vector<LegendItem> items;
  std::set<std::string> seen;
  for (const Area& area : chart.areas) {
    if (area.name.empty() || !seen.insert(area.name).second) continue;
    items.push_back({area.name, area.colour, Marker::kNone, false, true,
                     area.before, {}});
  }
  for (const Series& s : chart.series) {
    if (s.name.empty() || !seen.insert(s.name).second) continue;
    items.push_back({s.name, s.colour, s.marker, s.line, false, s.before, {}});
  }
  return items;
}

}  // namespace

bool PanelWide(const Panel& panel) {
  return std::visit([](const auto& p) { return p.wide; }, panel);
}

double PanelHeight(const Panel& panel) {
  return PanelWide(panel) ? 470 : 440;
}

ChartLayout LayoutChart(const Chart& chart, const Box& cell) {
  ChartLayout layout;
  layout.cell = cell;
  layout.legend = ChartLegend(chart);
  const double legend_top_guess = 0;
  const int legend_rows =
      FlowLegend(layout.legend, cell.left + 62, legend_top_guess,
                 cell.width - 76);
  const double below = 42 + legend_rows * kLegendRow +
                       (chart.note.empty() ? 0 : kLegendRow) + 4;
  layout.frame = {cell.left + 62, cell.top + 28, cell.width - 76,
                  cell.height - 28 - below};
  const double legend_top = layout.frame.bottom() + 40;
  for (LegendItem& item : layout.legend) item.box.top += legend_top;
  layout.note_y = legend_top + legend_rows * kLegendRow + 11;

  Range xs, ys;
  for (const Series& s : chart.series) {
    for (const PlotPoint& p : s.points) {
      if (!Finite(p.x, p.y)) continue;
      xs.Add(p.x);
      ys.Add(p.y);
    }
  }
  for (const Area& a : chart.areas) {
    for (XY p : a.outline) {
      if (!Finite(p.x, p.y)) continue;
      xs.Add(p.x);
      ys.Add(p.y);
    }
  }
  if (xs.empty()) return layout;
  layout.empty = false;
  const Box& f = layout.frame;
  layout.x_ticks = NiceTicks(xs.low, xs.high, chart.wide ? 10 : 6);
  layout.y_ticks = NiceTicks(ys.low, ys.high, 6);
  layout.x = {layout.x_ticks.values.front(), layout.x_ticks.values.back(),
              f.left, f.right()};
  layout.y = {layout.y_ticks.values.front(), layout.y_ticks.values.back(),
              f.bottom(), f.top};

  std::vector<XY> anchors;
  std::vector<std::string> texts;
  std::vector<int> colours;
  for (const Series& s : chart.series) {
    auto& mapped = layout.series.emplace_back();
    for (const PlotPoint& p : s.points) {
      if (!Finite(p.x, p.y)) continue;
      mapped.push_back({layout.x(p.x), layout.y(p.y)});
      if (!p.label.empty() && !s.before) {
        anchors.push_back(mapped.back());
        texts.push_back(p.label);
        colours.push_back(s.colour);
      }
    }
  }
  for (const Area& a : chart.areas) {
    auto& mapped = layout.areas.emplace_back();
    for (XY p : a.outline) {
      if (Finite(p.x, p.y)) mapped.push_back({layout.x(p.x), layout.y(p.y)});
    }
  }
  // Every marker is an obstacle, labelled or not.
  std::vector<Box> markers;
  for (const auto& points : layout.series) {
    for (XY p : points) markers.push_back({p.x - 5, p.y - 5, 10, 10});
  }
  const auto boxes = PlaceLabels(anchors, texts, kLabelSize, f, markers);
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    if (boxes[i]) layout.labels.push_back({*boxes[i], texts[i], colours[i]});
  }
  return layout;
}

HeatMapLayout LayoutHeatMap(const HeatMap& map, const Box& cell) {
  HeatMapLayout layout;
  layout.cell = cell;
  layout.rows = static_cast<int>(map.values.size());
  for (const auto& row : map.values) {
    layout.columns = std::max(layout.columns, static_cast<int>(row.size()));
  }
  layout.scale = MakeColourScale(map.values, map.diverging);
  bool any = false, integral = true;
  double widest_value = 0;
  for (const auto& row : map.values) {
    for (double v : row) {
      if (!std::isfinite(v)) continue;
      any = true;
      integral = integral && v == std::floor(v) && std::fabs(v) < 1e9;
    }
  }
  layout.value_decimals = integral ? 0 : 2;
  for (const auto& row : map.values) {
    for (double v : row) {
      if (std::isfinite(v)) {
        widest_value = std::max(
            widest_value,
            TextWidth(FormatTick(v, layout.value_decimals), 9));
      }
    }
  }
  double row_label_width = 0, column_label_width = 0;
  for (const auto& l : map.row_labels) {
    row_label_width = std::max(row_label_width, TextWidth(l, kLabelSize));
  }
  for (const auto& l : map.column_labels) {
    column_label_width =
        std::max(column_label_width, TextWidth(l, kLabelSize));
  }
  const int block = std::max(map.block, 1);
  const double note = (map.note.empty() && map.changed.empty()) ? 0 : 16;
  const double left = cell.left + 22 + row_label_width + 6;
  const double right = cell.right() - 90;
  const double top = cell.top + 42;  // below the title and the bar's name
  // Column labels horizontal if they fit their block, else turned.
  const double grid_width = right - left;
  // Cells no larger than a short number needs: a single matrix or a 2 x 4
  // grid stays compact.
  const double cell_width =
      layout.columns > 0 ? std::min(grid_width / layout.columns, 64.0) : 0;
  const double block_width =
      layout.columns > 0 ? cell_width * block : grid_width;
  layout.rotate_columns = column_label_width + 6 > block_width;
  const double label_height =
      layout.rotate_columns ? column_label_width * 0.87 + 10 : 16;
  const double bottom = cell.bottom() - 30 - label_height - note;
  layout.grid = {left, top, grid_width, std::max(bottom - top, 20.0)};
  layout.note_y = cell.bottom() - 6;
  if (!any || layout.rows == 0 || layout.columns == 0) return layout;
  layout.empty = false;
  layout.cell_width = cell_width;
  // Tall enough for the turned row title.
  const double min_height = TextWidth(map.row_title, 12) + 16;
  layout.cell_height =
      std::min(layout.grid.height / layout.rows,
               std::max(30.0, min_height / layout.rows));
  layout.grid.width = layout.cell_width * layout.columns;
  layout.grid.height = layout.cell_height * layout.rows;
  layout.column_title_y = layout.grid.bottom() + label_height + 14;
  layout.note_y = layout.column_title_y + 15;
  layout.column_stride =
      layout.rotate_columns
          ? std::max(1, static_cast<int>(std::ceil(14 / block_width)))
          : 1;
  layout.row_stride = std::max(
      1, static_cast<int>(std::ceil(13 / (layout.cell_height * block))));
  layout.show_values =
      layout.cell_width >= widest_value + 4 && layout.cell_height >= 12;

  layout.bar = {layout.grid.right() + 14, layout.grid.top, 14,
                layout.grid.height};
  const Ticks ticks = NiceTicks(layout.scale.low, layout.scale.high, 5);
  layout.bar_decimals = std::max(ticks.decimals, layout.value_decimals);
  // The ends, and round values between them that keep a line apart.
  const double span = layout.scale.high - layout.scale.low;
  const double per_unit = span > 0 ? layout.bar.height / span : 0;
  constexpr double kLine = 12;
  layout.bar_values.push_back(layout.scale.low);
  for (double v : ticks.values) {
    if (span > 0 && (v - layout.bar_values.back()) * per_unit >= kLine &&
        (layout.scale.high - v) * per_unit >= kLine) {
      layout.bar_values.push_back(v);
    }
  }
  if (span > 0) layout.bar_values.push_back(layout.scale.high);
  return layout;
}

}  // namespace q3a_tool
