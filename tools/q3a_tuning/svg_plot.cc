#include "tools/q3a_tuning/svg_plot.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <vector>

namespace q3a_tool {
namespace {

constexpr double kWidth = 1100;
constexpr double kHeight = 560;

// The chromaticity panel and the heat-map panel, in SVG units.
struct Box {
  double left, top, width, height;
};
constexpr Box kPlane = {70, 70, 420, 400};
constexpr Box kHeatMap = {640, 70, 420, 400};

struct Point {
  double rg, bg;
  int cct;
};

int Clamp(int count, int capacity) { return std::clamp(count, 0, capacity); }

std::string Escape(std::string_view text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '&':
        out += "&amp;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

// A linear map from data to panel coordinates with a margin around the
// data, so points never sit on the frame.
struct Scale {
  double low, high, from, to;
  double operator()(double v) const {
    return from + (v - low) / (high - low) * (to - from);
  }
};

Scale MakeScale(double low, double high, double from, double to) {
  if (!(high > low)) {
    low -= 0.05;
    high += 0.05;
  }
  const double margin = (high - low) * 0.08;
  return {low - margin, high + margin, from, to};
}

void DrawPlane(const std::vector<Point>& reference,
               const std::vector<Point>& golden, std::string& svg) {
  double min_rg = std::numeric_limits<double>::max(), max_rg = -min_rg;
  double min_bg = min_rg, max_bg = -min_rg;
  for (const auto* points : {&reference, &golden}) {
    for (const Point& p : *points) {
      min_rg = std::min(min_rg, p.rg);
      max_rg = std::max(max_rg, p.rg);
      min_bg = std::min(min_bg, p.bg);
      max_bg = std::max(max_bg, p.bg);
    }
  }
  if (reference.empty() && golden.empty())
    min_rg = max_rg = min_bg = max_bg = 0;
  const Scale x =
      MakeScale(min_rg, max_rg, kPlane.left, kPlane.left + kPlane.width);
  const Scale y =
      MakeScale(min_bg, max_bg, kPlane.top + kPlane.height, kPlane.top);

  svg += fmt::format(
      "<rect x='{}' y='{}' width='{}' height='{}' fill='white' "
      "stroke='#444'/>\n",
      kPlane.left, kPlane.top, kPlane.width, kPlane.height);
  for (int i = 0; i <= 4; ++i) {
    const double rg = x.low + (x.high - x.low) * i / 4;
    const double bg = y.low + (y.high - y.low) * i / 4;
    svg += fmt::format(
        "<line x1='{0:.1f}' y1='{1}' x2='{0:.1f}' y2='{2}' stroke='#ddd'/>"
        "<text x='{0:.1f}' y='{3}' font-size='11' text-anchor='middle'>"
        "{4:.3f}</text>\n",
        x(rg), kPlane.top, kPlane.top + kPlane.height,
        kPlane.top + kPlane.height + 16, rg);
    svg += fmt::format(
        "<line x1='{1}' y1='{0:.1f}' x2='{2}' y2='{0:.1f}' stroke='#ddd'/>"
        "<text x='{3}' y='{0:.1f}' font-size='11' text-anchor='end' "
        "dominant-baseline='middle'>{4:.3f}</text>\n",
        y(bg), kPlane.left, kPlane.left + kPlane.width, kPlane.left - 6, bg);
  }
  svg += fmt::format(
      "<text x='{}' y='{}' font-size='13' text-anchor='middle'>R/G</text>\n"
      "<text x='{}' y='{}' font-size='13' text-anchor='middle' "
      "transform='rotate(-90 {} {})'>B/G</text>\n",
      kPlane.left + kPlane.width / 2, kPlane.top + kPlane.height + 36,
      kPlane.left - 52, kPlane.top + kPlane.height / 2, kPlane.left - 52,
      kPlane.top + kPlane.height / 2);

  std::vector<Point> locus = reference;
  std::sort(locus.begin(), locus.end(),
            [](const Point& a, const Point& b) { return a.cct < b.cct; });
  if (locus.size() > 1) {
    svg +=
        "<polyline fill='none' stroke='#7aa6d8' stroke-width='1.5' "
        "points='";
    for (const Point& p : locus) {
      svg += fmt::format("{:.1f},{:.1f} ", x(p.rg), y(p.bg));
    }
    svg += "'/>\n";
  }
  for (const Point& p : reference) {
    svg += fmt::format(
        "<circle cx='{0:.1f}' cy='{1:.1f}' r='5' fill='#1f5fa8'/>"
        "<text x='{2:.1f}' y='{3:.1f}' font-size='10' fill='#1f5fa8'>{4}K"
        "</text>\n",
        x(p.rg), y(p.bg), x(p.rg) + 7, y(p.bg) - 6, p.cct);
  }
  // Golden-module labels go left of their points, reference labels right,
  // so the two sets stay readable where the points nearly coincide.
  for (const Point& p : golden) {
    svg += fmt::format(
        "<rect x='{0:.1f}' y='{1:.1f}' width='9' height='9' fill='none' "
        "stroke='#d2691e' stroke-width='2'/>"
        "<text x='{2:.1f}' y='{3:.1f}' font-size='10' fill='#d2691e' "
        "text-anchor='end'>{4}K</text>\n",
        x(p.rg) - 4.5, y(p.bg) - 4.5, x(p.rg) - 8, y(p.bg) + 12, p.cct);
  }
  const double legend_y = kPlane.top - 14;
  svg += fmt::format(
      "<circle cx='{0}' cy='{1}' r='5' fill='#1f5fa8'/><text x='{2}' y='{3}' "
      "font-size='12'>reference white points ({4})</text>"
      "<rect x='{5}' y='{6}' width='9' height='9' fill='none' "
      "stroke='#d2691e' stroke-width='2'/><text x='{7}' y='{3}' "
      "font-size='12'>golden modules ({8})</text>\n",
      kPlane.left + 6, legend_y, kPlane.left + 16, legend_y + 4,
      reference.size(), kPlane.left + 220, legend_y - 4.5, kPlane.left + 234,
      golden.size());
}

void DrawHeatMap(const qawb::QAWBIlluminantWeight& weights, std::string& svg) {
  const int columns =
      Clamp(weights.cct_number, static_cast<int>(std::size(weights.cct_list)));
  const int rows =
      Clamp(weights.bv_number,
            static_cast<int>(std::size(weights.illuminant_cct_list)));
  svg += fmt::format(
      "<text x='{}' y='{}' font-size='12'>illuminant weights (enable_flag "
      "{}, {} BV x {} CCT)</text>\n",
      kHeatMap.left, kHeatMap.top - 14, weights.enable_flag, rows, columns);
  if (rows == 0 || columns == 0) return;
  int max_weight = 1;
  for (int r = 0; r < rows; ++r) {
    for (int c = 0; c < columns; ++c) {
      max_weight =
          std::max(max_weight, weights.illuminant_cct_list[r].weight_list[c]);
    }
  }
  const double cell_w = kHeatMap.width / columns;
  const double cell_h = kHeatMap.height / rows;
  const bool label_cells = cell_w >= 22 && cell_h >= 14;
  for (int r = 0; r < rows; ++r) {
    const auto& row = weights.illuminant_cct_list[r];
    const double y = kHeatMap.top + r * cell_h;
    for (int c = 0; c < columns; ++c) {
      const double level = std::clamp(
          static_cast<double>(row.weight_list[c]) / max_weight, 0.0, 1.0);
      // White for 0 to dark red for the largest weight.
      const int green_blue = static_cast<int>(std::lround(255 * (1 - level)));
      const int red = static_cast<int>(std::lround(255 - 90 * level));
      const double x = kHeatMap.left + c * cell_w;
      svg += fmt::format(
          "<rect x='{:.1f}' y='{:.1f}' width='{:.1f}' height='{:.1f}' "
          "fill='rgb({},{},{})' stroke='#fff' stroke-width='0.5'/>",
          x, y, cell_w, cell_h, red, green_blue, green_blue);
      if (label_cells) {
        svg += fmt::format(
            "<text x='{:.1f}' y='{:.1f}' font-size='9' text-anchor='middle' "
            "dominant-baseline='middle' fill='{}'>{}</text>",
            x + cell_w / 2, y + cell_h / 2, level > 0.6 ? "white" : "black",
            row.weight_list[c]);
      }
    }
    svg += fmt::format(
        "<text x='{:.1f}' y='{:.1f}' font-size='10' text-anchor='end' "
        "dominant-baseline='middle'>{}</text>\n",
        kHeatMap.left - 5, y + cell_h / 2, row.bv_value);
  }
  for (int c = 0; c < columns; ++c) {
    const double x = kHeatMap.left + (c + 0.5) * cell_w;
    const double y = kHeatMap.top + kHeatMap.height + 8;
    svg += fmt::format(
        "<text x='{0:.1f}' y='{1:.1f}' font-size='10' text-anchor='end' "
        "transform='rotate(-60 {0:.1f} {1:.1f})'>{2}</text>\n",
        x, y, weights.cct_list[c]);
  }
  svg += fmt::format(
      "<text x='{}' y='{}' font-size='13' text-anchor='middle'>CCT (K)</text>"
      "<text x='{}' y='{}' font-size='13' text-anchor='middle' "
      "transform='rotate(-90 {} {})'>BV</text>\n",
      kHeatMap.left + kHeatMap.width / 2, kHeatMap.top + kHeatMap.height + 62,
      kHeatMap.left - 44, kHeatMap.top + kHeatMap.height / 2,
      kHeatMap.left - 44, kHeatMap.top + kHeatMap.height / 2);
}

}  // namespace

std::string RenderBasicTableSvg(const qawb::QAWBBasicTuningTable& table,
                                std::string_view title) {
  std::vector<Point> reference;
  const auto& points = table.reference_point_list;
  for (int i = 0;
       i < Clamp(points.reference_point_number,
                 static_cast<int>(std::size(points.reference_point_list)));
       ++i) {
    const auto& p = points.reference_point_list[i];
    reference.push_back({p.rg, p.bg, p.cct});
  }
  std::vector<Point> golden;
  const auto& modules = table.golden_module_table;
  for (int i = 0;
       i < Clamp(modules.golden_module_number,
                 static_cast<int>(std::size(modules.golden_module_data)));
       ++i) {
    const auto& p = modules.golden_module_data[i].golden_reference_point;
    golden.push_back({p.rg, p.bg, p.cct});
  }

  std::string svg = fmt::format(
      "<svg xmlns='http://www.w3.org/2000/svg' width='{0}' height='{1}' "
      "viewBox='0 0 {0} {1}' font-family='sans-serif'>\n"
      "<rect width='{0}' height='{1}' fill='#fafafa'/>\n"
      "<text x='20' y='28' font-size='16' font-weight='bold'>{2} (basic "
      "table {3}.{4})</text>\n",
      kWidth, kHeight, Escape(title), table.version.major, table.version.minor);
  DrawPlane(reference, golden, svg);
  DrawHeatMap(table.illuminant_weight_table, svg);
  svg += "</svg>\n";
  return svg;
}

}  // namespace q3a_tool
