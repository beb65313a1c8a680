// Plot geometry as properties: round, increasing ticks that enclose the
// data; points and labels inside their frames; labels clear of each other;
// colour bars spanning exactly the data; "no data" instead of axes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>

#include "tools/q3a_tuning/plot/plot_axes.h"
#include "tools/q3a_tuning/plot/plot_layout.h"
#include "tools/q3a_tuning/plot/plot_render.h"
#include "tools/q3a_tuning/plot/svg_canvas.h"

namespace q3a_tool {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

struct TickCase {
  double low, high;
  int target;
};
void PrintTo(const TickCase& c, std::ostream* os) {
  *os << "[" << c.low << ", " << c.high << "] about " << c.target;
}


class NiceTicksTest : public testing::TestWithParam<TickCase> {};

TEST_P(NiceTicksTest, RoundIncreasingAndEnclosing) {
  const TickCase c = GetParam();
  const Ticks ticks = NiceTicks(c.low, c.high, c.target);
  ASSERT_GE(ticks.values.size(), 2u);
  EXPECT_LE(ticks.values.size(), static_cast<std::size_t>(2 * c.target + 1));
  // The step is 1, 2 or 5 times a power of ten.
  const double mantissa =
      ticks.step / std::pow(10.0, std::floor(std::log10(ticks.step) + 1e-12));
  EXPECT_TRUE(std::fabs(mantissa - 1) < 1e-9 ||
              std::fabs(mantissa - 2) < 1e-9 || std::fabs(mantissa - 5) < 1e-9)
      << ticks.step;
  for (std::size_t i = 0; i < ticks.values.size(); ++i) {
    const double multiple = ticks.values[i] / ticks.step;
    EXPECT_NEAR(multiple, std::round(multiple), 1e-6) << ticks.values[i];
    if (i > 0) {
      EXPECT_GT(ticks.values[i], ticks.values[i - 1]);
      // Printed, neighbours stay apart.
      EXPECT_NE(FormatTick(ticks.values[i], ticks.decimals),
                FormatTick(ticks.values[i - 1], ticks.decimals));
    }
  }
  EXPECT_LE(ticks.values.front(), std::min(c.low, c.high));
  EXPECT_GE(ticks.values.back(), std::max(c.low, c.high));
}

INSTANTIATE_TEST_SUITE_P(
    Ranges, NiceTicksTest,
    testing::Values(TickCase{0.344, 0.866, 6}, TickCase{0.36139, 0.86665, 6},
                    TickCase{2000, 8000, 10}, TickCase{2300, 7500, 6},
                    TickCase{-500, 1000, 6}, TickCase{0, 0, 6},
                    TickCase{5, 5, 6}, TickCase{-0.001, 0.0012, 5},
                    TickCase{1e6, 1e6 + 1, 6}, TickCase{-3.5, -3.4, 4},
                    TickCase{1, 0, 6}, TickCase{0, 100, 2}));

TEST(NiceTicks, NonFiniteBoundsGiveNoTicks) {
  EXPECT_TRUE(NiceTicks(NAN, 1).values.empty());
  EXPECT_TRUE(
      NiceTicks(0, std::numeric_limits<double>::infinity()).values.empty());
}

TEST(FormatTick, NeverPrintsMinusZero) {
  EXPECT_EQ(FormatTick(-0.0, 0), "0");
  EXPECT_EQ(FormatTick(-1e-12, 2), "0.00");
  EXPECT_EQ(FormatTick(-0.5, 1), "-0.5");
}

bool Inside(const Box& outer, const Box& inner) {
  return inner.left >= outer.left - 1e-9 && inner.top >= outer.top - 1e-9 &&
         inner.right() <= outer.right() + 1e-9 &&
         inner.bottom() <= outer.bottom() + 1e-9;
}

TEST(LayoutChart, CrowdedLabelsNeverOverlapAndStayInTheFrame) {
  Chart chart;
  chart.title = "crowd";
  Series s{"points", {}, 0, Marker::kCircle, true, false};
  // Forty points on a tight curve, every one labelled.
  for (int i = 0; i < 40; ++i) {
    s.points.push_back({0.4 + 0.002 * i, 0.5 + 0.001 * i * i / 40,
                        std::to_string(2000 + 100 * i) + " K"});
  }
  chart.series.push_back(s);
  const ChartLayout layout = LayoutChart(chart, {0, 0, 545, 440});
  ASSERT_FALSE(layout.empty);
  ASSERT_FALSE(layout.labels.empty());
  EXPECT_LT(layout.labels.size(), 40u) << "some labels had to be left out";
  for (std::size_t i = 0; i < layout.labels.size(); ++i) {
    EXPECT_TRUE(Inside(layout.frame, layout.labels[i].box));
    for (std::size_t j = i + 1; j < layout.labels.size(); ++j) {
      EXPECT_FALSE(layout.labels[i].box.Overlaps(layout.labels[j].box))
          << layout.labels[i].text << " / " << layout.labels[j].text;
    }
    for (XY p : layout.series[0]) {
      EXPECT_FALSE(layout.labels[i].box.Overlaps({p.x - 4, p.y - 4, 8, 8}));
    }
  }
}

TEST(LayoutChart, NonFinitePointsAreLeftOutAndTheRestFitTheFrame) {
  Chart chart;
  chart.series.push_back({"s",
                          {{1, 2, ""},
                           {NAN, 3, ""},
                           {4, std::numeric_limits<double>::infinity(), ""},
                           {7, -5, ""}},
                          0,
                          Marker::kCircle,
                          false,
                          false});
  const ChartLayout layout = LayoutChart(chart, {0, 0, 545, 440});
  ASSERT_EQ(layout.series[0].size(), 2u);
  for (XY p : layout.series[0]) EXPECT_TRUE(layout.frame.Contains(p));
  const std::string svg = RenderFigureSvg({"t", {chart}, ""});
  EXPECT_THAT(svg, Not(HasSubstr("nan")));
  EXPECT_THAT(svg, Not(HasSubstr("inf")));
}

TEST(LayoutChart, NoFinitePointMeansNoData) {
  Chart chart;
  chart.title = "empty";
  chart.x_title = "R/G";
  chart.series.push_back({"s", {{NAN, 1, ""}}, 0, Marker::kCircle, false,
                          false});
  EXPECT_TRUE(LayoutChart(chart, {0, 0, 545, 440}).empty);
  HeatMap map;
  map.title = "empty map";
  EXPECT_TRUE(LayoutHeatMap(map, {0, 0, 545, 440}).empty);
  const std::string svg = RenderFigureSvg({"t", {chart, map}, ""});
  EXPECT_THAT(svg, HasSubstr(">no data<"));
  EXPECT_THAT(svg, Not(HasSubstr(">R/G<"))) << "no axes without data";
}

struct HeatCase {
  std::vector<std::vector<double>> values;
  bool diverging;
  std::size_t columns_with_labels;
};
void PrintTo(const HeatCase& c, std::ostream* os) {
  *os << c.values.size() << " rows, " << c.columns_with_labels << " labels";
}


class HeatMapLayoutTest : public testing::TestWithParam<HeatCase> {};

TEST_P(HeatMapLayoutTest, ColourBarSpansTheDataAndLabelsDoNotCollide) {
  HeatMap map;
  map.values = GetParam().values;
  map.diverging = GetParam().diverging;
  for (std::size_t c = 0; c < GetParam().columns_with_labels; ++c) {
    map.column_labels.push_back(std::to_string(2000 + 150 * c));
  }
  for (std::size_t r = 0; r < map.values.size(); ++r) {
    map.row_labels.push_back("BV " + std::to_string(r * 100));
  }
  double low = INFINITY, high = -INFINITY;
  for (const auto& row : map.values) {
    for (double v : row) {
      if (std::isfinite(v)) low = std::min(low, v), high = std::max(high, v);
    }
  }
  const HeatMapLayout layout = LayoutHeatMap(map, {0, 0, 545, 440});
  ASSERT_FALSE(layout.empty);
  EXPECT_EQ(layout.scale.low, low);
  EXPECT_EQ(layout.scale.high, high);
  EXPECT_EQ(layout.bar_values.front(), low);
  EXPECT_EQ(layout.bar_values.back(), high);
  const LinearScale bar_y = {low, high, layout.bar.bottom(), layout.bar.top};
  for (std::size_t i = 1; i < layout.bar_values.size(); ++i) {
    EXPECT_GT(layout.bar_values[i], layout.bar_values[i - 1]);
    // Labels a line apart, except that a short bar keeps both ends.
    if (i + 1 < layout.bar_values.size()) {
      EXPECT_GE(bar_y(layout.bar_values[i - 1]) - bar_y(layout.bar_values[i]),
                12 - 1e-9);
    }
  }
  EXPECT_TRUE(Inside(layout.cell, layout.grid));
  EXPECT_TRUE(Inside(layout.cell, layout.bar));
  EXPECT_GT(layout.column_title_y, layout.grid.bottom());
  EXPECT_LE(layout.note_y, layout.cell.bottom());
  // Shown column labels are at least a label's width (or, turned, a line's
  // height) apart.
  double widest = 0;
  for (const auto& l : map.column_labels) widest = std::max(widest, TextWidth(l, 10));
  const double spacing = layout.cell_width * layout.column_stride;
  EXPECT_GE(spacing, layout.rotate_columns ? 14.0 - 1e-9 : widest + 6);
  EXPECT_GE(layout.cell_height * layout.row_stride, 13.0 - 1e-9);
  // Values are printed only where they fit.
  if (layout.show_values) {
    EXPECT_GE(layout.cell_width, TextWidth(FormatTick(high, layout.value_decimals), 9));
  }
  // A cell without a value is drawn grey, and nothing drawn is NaN.
  std::size_t missing = 0;
  for (const auto& row : map.values) {
    for (double v : row) missing += std::isfinite(v) ? 0 : 1;
  }
  const std::string svg = RenderFigureSvg({"t", {map}, ""});
  std::size_t grey = 0;
  for (std::size_t at = 0; (at = svg.find("#f0f0f0", at)) != std::string::npos;
       ++at) {
    ++grey;
  }
  EXPECT_EQ(grey, missing);
  EXPECT_THAT(svg, Not(HasSubstr("nan")));
}

std::vector<std::vector<double>> Grid(int rows, int columns, double scale) {
  std::vector<std::vector<double>> g(rows, std::vector<double>(columns));
  for (int r = 0; r < rows; ++r) {
    for (int c = 0; c < columns; ++c) g[r][c] = scale * (r * columns + c) - 3;
  }
  return g;
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, HeatMapLayoutTest,
    testing::Values(HeatCase{Grid(6, 12, 1), false, 12},
                    HeatCase{Grid(14, 36, 1), false, 36},
                    HeatCase{Grid(9, 15, 0.01), true, 15},
                    HeatCase{{{1, NAN}, {NAN, 2}}, false, 2},
                    HeatCase{{{5}}, false, 1}));

TEST(ColourScale, DivergingIsWhiteAtZeroAndSequentialRunsLowToHigh) {
  const ColourScale diverging = MakeColourScale({{-1, 0, 2}}, true);
  EXPECT_EQ(diverging.Colour(0), "#ffffff");
  EXPECT_NE(diverging.Colour(-1), diverging.Colour(2));
  const ColourScale sequential = MakeColourScale({{0, 10}}, false);
  EXPECT_EQ(sequential.Colour(0), "#ffffcc");
  EXPECT_EQ(sequential.Colour(10), "#253494");
}

struct EscapeCase {
  std::string in;
  std::string out;
};
void PrintTo(const EscapeCase& c, std::ostream* os) {
  *os << testing::PrintToString(c.in);
}


class XmlEscapeTest : public testing::TestWithParam<EscapeCase> {};

TEST_P(XmlEscapeTest, Escapes) {
  EXPECT_EQ(XmlEscape(GetParam().in), GetParam().out);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, XmlEscapeTest,
    testing::Values(
        EscapeCase{"plain 0,-1,1,0,-1", "plain 0,-1,1,0,-1"},
        EscapeCase{"<script>&'\"", "&lt;script&gt;&amp;&#39;&quot;"},
        EscapeCase{"tab\tline\n", "tab\tline\n"},
        EscapeCase{std::string("nul\0bell\a", 9),
                   "nul\xEF\xBF\xBD"
                   "bell\xEF\xBF\xBD"},
        EscapeCase{"\xC2\xB5m 5000\xE2\x80\xAF"
                   "K",
                   "\xC2\xB5m 5000\xE2\x80\xAF"
                   "K"},
        EscapeCase{"bad \xC3 tail \xED\xA0\x80 \xF8",
                   "bad \xEF\xBF\xBD tail "
                   "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD \xEF\xBF\xBD"},
        // U+1F321 stays; an overlong form and one past U+10FFFF do not.
        EscapeCase{"\xF0\x9F\x8C\xA1 \xF0\x8F\xBF\xBF \xF4\x90\x80\x80",
                   "\xF0\x9F\x8C\xA1 \xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"
                   "\xEF\xBF\xBD \xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"
                   "\xEF\xBF\xBD"}));

TEST(SvgCanvas, EveryTextAndTitleIsEscaped) {
  SvgCanvas svg(100, 100);
  svg.Title("a<b");
  svg.Text({1, 1}, "</text><script>x</script>", {});
  const std::string out = svg.Finish("c'lass");
  EXPECT_THAT(out, Not(HasSubstr("<script")));
  EXPECT_THAT(out, HasSubstr("<title>a&lt;b</title>"));
  EXPECT_THAT(out, HasSubstr("class='c&#39;lass'"));
}

}  // namespace
}  // namespace q3a_tool
