#include "tools/q3a_tuning/plot/plot_render.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "tools/q3a_tuning/plot/plot_layout.h"

namespace q3a_tool {
namespace {

constexpr double kMargin = 5;
constexpr double kTitleHeight = 34;
const std::string kAxisColour = "#444";
const std::string kGridColour = "#e4e4e4";

Style Stroke(const std::string& colour, double width = 1, bool dashed = false) {
  Style s;
  s.stroke = colour;
  s.stroke_width = width;
  s.dashed = dashed;
  return s;
}

Style Fill(const std::string& colour) {
  Style s;
  s.fill = colour;
  return s;
}

void DrawMarker(SvgCanvas& svg, XY p, Marker marker, const std::string& colour,
                bool before) {
  Style style = before ? Stroke(colour, 1.5) : Fill(colour);
  if (!before) {
    style.stroke = "white";
    style.stroke_width = 1;
  }
  if (marker == Marker::kCircle) {
    svg.Circle(p, 4, style);
  } else if (marker == Marker::kSquare) {
    Style square = Stroke(colour, 2, before);
    svg.Rect({p.x - 4.5, p.y - 4.5, 9, 9}, square);
  }
}

void DrawPanelTitle(SvgCanvas& svg, const Box& cell, const std::string& title) {
  svg.Text({cell.left + 8, cell.top + 16}, title,
           {.size = 13, .colour = "#111", .bold = true});
}

// Draws a panel's title and, if it has no data, says so in `area`; returns
// whether there is data to draw.
bool DrawPanelHead(SvgCanvas& svg, const Box& cell, const std::string& title,
                   bool empty, const Box& area) {
  DrawPanelTitle(svg, cell, title);
  if (!empty) return true;
  svg.Rect(area, Stroke("#bbb", 1, true));
  svg.Text({area.left + area.width / 2, area.top + area.height / 2}, "no data",
           {.size = 14, .anchor = Anchor::kMiddle, .colour = "#777"});
  return false;
}

void DrawLegend(SvgCanvas& svg, const std::vector<LegendItem>& legend) {
  for (const LegendItem& item : legend) {
    const std::string colour = PaletteColour(item.colour);
    const XY mid = {item.box.left + 7, item.box.top + item.box.height / 2};
    if (item.area) {
      Style s = Stroke(colour, 1.5, item.before);
      s.fill = colour;
      s.opacity = item.before ? 0.5 : 0.9;
      svg.Rect({item.box.left + 1, mid.y - 5, 12, 10}, s);
    } else {
      if (item.line) {
        svg.Line({item.box.left, mid.y}, {item.box.left + 14, mid.y},
                 Stroke(colour, 1.5, item.before));
      }
      DrawMarker(svg, mid, item.marker, colour, item.before);
    }
    svg.Text({item.box.left + 18, mid.y + 4}, item.text, {.size = 11});
  }
}

void DrawChart(SvgCanvas& svg, const Chart& chart, const Box& cell) {
  const ChartLayout layout = LayoutChart(chart, cell);
  if (!DrawPanelHead(svg, cell, chart.title, layout.empty, layout.frame)) {
    return;
  }
  const Box& f = layout.frame;
  svg.Rect(f, Fill("white"));
  for (double v : layout.x_ticks.values) {
    const double x = layout.x(v);
    svg.Line({x, f.top}, {x, f.bottom()}, Stroke(kGridColour));
    svg.Line({x, f.bottom()}, {x, f.bottom() + 4}, Stroke(kAxisColour));
    svg.Text({x, f.bottom() + 15}, FormatTick(v, layout.x_ticks.decimals),
             {.size = 10, .anchor = Anchor::kMiddle});
  }
  for (double v : layout.y_ticks.values) {
    const double y = layout.y(v);
    svg.Line({f.left, y}, {f.right(), y}, Stroke(kGridColour));
    svg.Line({f.left - 4, y}, {f.left, y}, Stroke(kAxisColour));
    svg.Text({f.left - 6, y + 3.5}, FormatTick(v, layout.y_ticks.decimals),
             {.size = 10, .anchor = Anchor::kEnd});
  }
  svg.Rect(f, Stroke(kAxisColour));
  svg.Text({f.left + f.width / 2, f.bottom() + 32}, chart.x_title,
           {.size = 12, .anchor = Anchor::kMiddle});
  svg.Text({cell.left + 14, f.top + f.height / 2}, chart.y_title,
           {.size = 12, .anchor = Anchor::kMiddle, .rotate = -90});

  for (std::size_t i = 0; i < chart.areas.size(); ++i) {
    const Area& area = chart.areas[i];
    const std::string colour = PaletteColour(area.colour);
    Style wash = Fill(colour);
    wash.opacity = 0.06;
    svg.Path(layout.areas[i], true, wash);
    svg.Path(layout.areas[i], true,
             Stroke(colour, area.before ? 1.2 : 1.6, area.before));
  }
  for (std::size_t i = 0; i < chart.series.size(); ++i) {
    const Series& s = chart.series[i];
    const std::string colour = PaletteColour(s.colour);
    if (s.line && layout.series[i].size() > 1) {
      svg.Path(layout.series[i], false, Stroke(colour, 1.5, s.before));
    }
    for (XY p : layout.series[i]) DrawMarker(svg, p, s.marker, colour, s.before);
  }
  for (const PlacedLabel& label : layout.labels) {
    svg.Text({label.box.left, label.box.bottom() - 2}, label.text,
             {.size = 10, .colour = PaletteColour(label.colour)});
  }
  DrawLegend(svg, layout.legend);
  if (!chart.note.empty()) {
    svg.Text({f.left, layout.note_y}, chart.note, {.size = 10, .colour = "#555"});
  }
}

std::string TextColourOn(const std::string& hex) {
  const int r = std::stoi(hex.substr(1, 2), nullptr, 16);
  const int g = std::stoi(hex.substr(3, 2), nullptr, 16);
  const int b = std::stoi(hex.substr(5, 2), nullptr, 16);
  return 0.299 * r + 0.587 * g + 0.114 * b < 140 ? "white" : "#111";
}

void DrawHeatMap(SvgCanvas& svg, const HeatMap& map, const Box& cell) {
  const HeatMapLayout layout = LayoutHeatMap(map, cell);
  if (!DrawPanelHead(svg, cell, map.title, layout.empty, layout.grid)) {
    return;
  }
  const Box& g = layout.grid;
  const int block = std::max(map.block, 1);
  for (int r = 0; r < layout.rows; ++r) {
    const auto& row = map.values[r];
    for (int c = 0; c < static_cast<int>(row.size()); ++c) {
      const Box box = {g.left + c * layout.cell_width,
                       g.top + r * layout.cell_height, layout.cell_width,
                       layout.cell_height};
      const double v = row[c];
      if (!std::isfinite(v)) {
        svg.Rect(box, Fill("#f0f0f0"));
        continue;
      }
      const std::string colour = layout.scale.Colour(v);
      svg.Rect(box, Fill(colour));
      if (layout.show_values) {
        svg.Text({box.left + box.width / 2, box.top + box.height / 2 + 3},
                 FormatTick(v, layout.value_decimals),
                 {.size = 9, .anchor = Anchor::kMiddle,
                  .colour = TextColourOn(colour)});
      }
    }
  }
  // Block borders, then changed cells on top.
  for (int c = block; c < layout.columns; c += block) {
    const double x = g.left + c * layout.cell_width;
    svg.Line({x, g.top}, {x, g.bottom()}, Stroke("white", 2.5));
  }
  for (int r = block; r < layout.rows; r += block) {
    const double y = g.top + r * layout.cell_height;
    svg.Line({g.left, y}, {g.right(), y}, Stroke("white", 2.5));
  }
  for (int r = 0; r < static_cast<int>(map.changed.size()); ++r) {
    for (int c = 0; c < static_cast<int>(map.changed[r].size()); ++c) {
      if (!map.changed[r][c]) continue;
      svg.Rect({g.left + c * layout.cell_width + 1.2,
                g.top + r * layout.cell_height + 1.2,
                layout.cell_width - 2.4, layout.cell_height - 2.4},
               Stroke("#e6007e", 2.4));
    }
  }
  svg.Rect(g, Stroke(kAxisColour));

  const double block_w = layout.cell_width * block;
  const double block_h = layout.cell_height * block;
  for (int i = 0; i < static_cast<int>(map.row_labels.size()); ++i) {
    if (i % layout.row_stride != 0) continue;
    svg.Text({g.left - 5, g.top + (i + 0.5) * block_h + 3.5}, map.row_labels[i],
             {.size = 10, .anchor = Anchor::kEnd});
  }
  for (int i = 0; i < static_cast<int>(map.column_labels.size()); ++i) {
    if (i % layout.column_stride != 0) continue;
    const double x = g.left + (i + 0.5) * block_w;
    if (layout.rotate_columns) {
      svg.Text({x + 3, g.bottom() + 8}, map.column_labels[i],
               {.size = 10, .anchor = Anchor::kEnd, .rotate = -60});
    } else {
      svg.Text({x, g.bottom() + 13}, map.column_labels[i],
               {.size = 10, .anchor = Anchor::kMiddle});
    }
  }
  svg.Text({g.left + g.width / 2, layout.column_title_y}, map.column_title,
           {.size = 12, .anchor = Anchor::kMiddle});
  svg.Text({cell.left + 14, g.top + g.height / 2}, map.row_title,
           {.size = 12, .anchor = Anchor::kMiddle, .rotate = -90});

  // The colour bar: a stack of thin bands from low (bottom) to high (top).
  const Box& bar = layout.bar;
  constexpr int kBands = 48;
  for (int i = 0; i < kBands; ++i) {
    const double t = (i + 0.5) / kBands;
    const double v = layout.scale.low + t * (layout.scale.high - layout.scale.low);
    svg.Rect({bar.left, bar.bottom() - (i + 1) * bar.height / kBands,
              bar.width, bar.height / kBands + 0.5},
             Fill(layout.scale.Colour(v)));
  }
  svg.Rect(bar, Stroke(kAxisColour));
  const LinearScale bar_y = {layout.scale.low, layout.scale.high, bar.bottom(),
                             bar.top};
  for (double v : layout.bar_values) {
    const double y = bar_y(v);
    svg.Line({bar.right(), y}, {bar.right() + 4, y}, Stroke(kAxisColour));
    svg.Text({bar.right() + 6, y + 3.5}, FormatTick(v, layout.bar_decimals),
             {.size = 10});
  }
  svg.Text({bar.left + 7, bar.top - 9}, map.value_title,
           {.size = 11, .anchor = Anchor::kMiddle});

  std::string note = map.note;
  if (!map.changed.empty()) {
    note = "outlined in magenta: changed cells" +
           (note.empty() ? std::string() : "; " + note);
  }
  if (!note.empty()) {
    svg.Text({g.left, layout.note_y}, note, {.size = 10, .colour = "#555"});
  }
}

}  // namespace

std::string RenderFigureSvg(const Figure& figure) {
  // First place the cells, to know the height.
  struct Placed {
    const Panel* panel;
    Box cell;
  };
  std::vector<Placed> placed;
  const double half = (kFigureWidth - 2 * kMargin) / 2;
  constexpr double kNoteHeight = 18;
  double x = kMargin, row_height = 0;
  double y = kTitleHeight + (figure.note.empty() ? 0 : kNoteHeight);
  for (const Panel& panel : figure.panels) {
    const bool wide = PanelWide(panel);
    if ((wide && x > kMargin) || x + half > kFigureWidth) {
      x = kMargin;
      y += row_height;
      row_height = 0;
    }
    const double width = wide ? 2 * half : half;
    placed.push_back({&panel, {x, y, width, PanelHeight(panel)}});
    row_height = std::max(row_height, PanelHeight(panel));
    x += width;
  }
  const double height = y + row_height + kMargin;
  SvgCanvas svg(kFigureWidth, height);
  svg.Title(figure.title);
  svg.Rect({0, 0, kFigureWidth, height}, Fill("#fcfcfc"));
  svg.Text({12, 23}, figure.title, {.size = 15, .colour = "#111", .bold = true});
  if (!figure.note.empty()) {
    svg.Text({12, 23 + kNoteHeight}, figure.note,
             {.size = 12, .colour = "#9b1c1c"});
  }
  for (const Placed& p : placed) {
    std::visit(
        [&](const auto& panel) {
          if constexpr (std::is_same_v<std::decay_t<decltype(panel)>, Chart>) {
            DrawChart(svg, panel, p.cell);
          } else {
            DrawHeatMap(svg, panel, p.cell);
          }
        },
        *p.panel);
  }
  return svg.Finish("figure");
}

}  // namespace q3a_tool
