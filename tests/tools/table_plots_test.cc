// The table pictures drawn from every registered container's tables: the
// layout properties hold on real data, empty tables say "no data", non-finite
// values become findings, and comparisons outline exactly the changed cells.
#include "tools/q3a_tuning/plot/table_plots.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <variant>

#include "coordinator/tuning_map.h"
#include "tests/support/record_pairs.h"
#include "tools/q3a_tuning/io/registry_view.h"
#include "tools/q3a_tuning/io/table_file.h"
#include "tools/q3a_tuning/plot/html_report.h"
#include "tools/q3a_tuning/plot/plot_layout.h"
#include "tools/q3a_tuning/plot/plot_render.h"

namespace q3a_tool {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

Box CellOf(const Panel& panel) {
  return {0, 0, PanelWide(panel) ? 1090.0 : 545.0, PanelHeight(panel)};
}

void ExpectSoundLayout(const Panel& panel, const std::string& where) {
  if (const auto* chart = std::get_if<Chart>(&panel)) {
    const ChartLayout layout = LayoutChart(*chart, CellOf(panel));
    if (layout.empty) return;
    for (const auto& points : layout.series) {
      for (XY p : points) {
        EXPECT_TRUE(layout.frame.Contains(p)) << where << ": " << chart->title;
      }
    }
    for (const auto& outline : layout.areas) {
      for (XY p : outline) {
        EXPECT_TRUE(layout.frame.Contains(p)) << where << ": " << chart->title;
      }
    }
    for (std::size_t i = 0; i < layout.labels.size(); ++i) {
      for (std::size_t j = i + 1; j < layout.labels.size(); ++j) {
        EXPECT_FALSE(layout.labels[i].box.Overlaps(layout.labels[j].box))
            << where << ": " << chart->title;
      }
    }
    for (std::size_t i = 0; i < layout.legend.size(); ++i) {
      EXPECT_LE(layout.legend[i].box.bottom(), layout.cell.bottom())
          << where << ": " << chart->title;
      for (std::size_t j = i + 1; j < layout.legend.size(); ++j) {
        EXPECT_FALSE(layout.legend[i].box.Overlaps(layout.legend[j].box))
            << where << ": " << chart->title;
      }
    }
    // Tick labels along x stay apart.
    const auto& xs = layout.x_ticks.values;
    for (std::size_t i = 1; i < xs.size(); ++i) {
      const double gap = layout.x(xs[i]) - layout.x(xs[i - 1]);
      EXPECT_GT(gap, TextWidth(FormatTick(xs[i], layout.x_ticks.decimals), 10))
          << where << ": " << chart->title;
    }
  } else {
    const auto& map = std::get<HeatMap>(panel);
    const HeatMapLayout layout = LayoutHeatMap(map, CellOf(panel));
    if (layout.empty) return;
    EXPECT_LE(layout.scale.low, layout.scale.high);
    EXPECT_EQ(layout.bar_values.front(), layout.scale.low) << map.title;
    EXPECT_GE(layout.grid.height, 20) << where << ": " << map.title;
  }
}

template <typename Record>
void CheckTable(const Record& table, const std::string& where) {
  const TablePlots plots = PlotTable(table, nullptr, {where, ""});
  EXPECT_TRUE(plots.findings.empty())
      << where << ": " << DiagnosticText(plots.findings[0]);
  ASSERT_FALSE(plots.figures.empty()) << where;
  for (const Figure& figure : plots.figures) {
    EXPECT_THAT(figure.title, HasSubstr(where));
    for (const Panel& panel : figure.panels) ExpectSoundLayout(panel, where);
  }
  // Against itself nothing is outlined.
  const TablePlots same = PlotTable(table, &table, {where, "itself"});
  for (const Figure& figure : same.figures) {
    for (const Panel& panel : figure.panels) {
      if (const auto* map = std::get_if<HeatMap>(&panel)) {
        for (const auto& row : map->changed) {
          EXPECT_THAT(row, Not(Contains(true))) << where << ": " << map->title;
        }
      }
    }
  }
}

TEST(TablePlots, EveryRegisteredTableLaysOutSoundly) {
  int containers = 0;
  for (const Registration& r :
       ListRegistrations(q3a_coordinator::GetTuningMap())) {
    if (r.node != q3a_api::kAwb) continue;
    ++containers;
    const auto& tuning = *static_cast<const qawb::QAWBTuning*>(r.object);
    const std::string key = FormatTuningKey(r.key);
    qawb::ForEachTable([&]<typename Record>() {
      CheckTable(
          *qawb::GetTable<Record>(tuning),
          key + " " + std::string(protomsg::TuningTableTraits<Record>::kName));
    });
  }
  EXPECT_GT(containers, 0);
}

template <typename Record>
class EmptyTablePlots : public testing::Test {};
TYPED_TEST_SUITE(EmptyTablePlots, q3a_test::AllTables);

TYPED_TEST(EmptyTablePlots, SayNoDataInsteadOfDrawingAxes) {
  const auto table = MakeZeroedTable<TypeParam>();
  const TablePlots plots = PlotTable(*table, nullptr, {"empty", ""});
  ASSERT_FALSE(plots.figures.empty());
  for (const Figure& figure : plots.figures) {
    ASSERT_FALSE(figure.panels.empty());
    for (const Panel& panel : figure.panels) {
      if (const auto* chart = std::get_if<Chart>(&panel)) {
        EXPECT_TRUE(LayoutChart(*chart, CellOf(panel)).empty) << chart->title;
      } else {
        EXPECT_TRUE(LayoutHeatMap(std::get<HeatMap>(panel), CellOf(panel)).empty);
      }
    }
    EXPECT_THAT(RenderFigureSvg(figure), HasSubstr(">no data<"));
  }
}

const qawb::QAWBTuning& SomeContainer() {
  for (const Registration& r :
       ListRegistrations(q3a_coordinator::GetTuningMap())) {
    if (r.node == q3a_api::kAwb) {
      return *static_cast<const qawb::QAWBTuning*>(r.object);
    }
  }
  std::abort();
}

TEST(TablePlots, NonFiniteValuesAreFindingsAndLeftOut) {
  auto table = MakeZeroedTable<qawb::QAWBBasicTuningTable>();
  *table = *SomeContainer().GetBasicTuningTable();
  ASSERT_GE(table->reference_point_list.reference_point_number, 3);
  table->reference_point_list.reference_point_list[1].rg = NAN;
  table->golden_module_table.golden_module_data[0].golden_reference_point.bg =
      INFINITY;
  const TablePlots plots = PlotTable(*table, nullptr, {"edited", ""});
  std::vector<std::string> findings;
  for (const Diagnostic& finding : plots.findings) {
    findings.push_back(DiagnosticText(finding));
  }
  EXPECT_THAT(findings, Contains(HasSubstr(
                            "warning: edited: "
                            "reference_point_list.reference_point_list[1].rg: "
                            "value nan is not finite")));
  EXPECT_THAT(findings,
              Contains(HasSubstr("golden_module_table.golden_module_data[0]."
                                 "golden_reference_point.bg: value inf")));
  const Panel& plane = plots.figures[0].panels[0];
  const ChartLayout layout = LayoutChart(std::get<Chart>(plane), CellOf(plane));
  const std::size_t points = table->reference_point_list.reference_point_number;
  EXPECT_EQ(layout.series[0].size(), points - 1);
  for (const auto& series : layout.series) {
    for (XY p : series) EXPECT_TRUE(layout.frame.Contains(p));
  }
}

TEST(TablePlots, AgainstOutlinesExactlyTheChangedCells) {
  const auto& original = *SomeContainer().GetBasicTuningTable();
  auto edited = MakeZeroedTable<qawb::QAWBBasicTuningTable>();
  *edited = original;
  ASSERT_GE(edited->illuminant_weight_table.bv_number, 2);
  ASSERT_GE(edited->illuminant_weight_table.cct_number, 3);
  edited->illuminant_weight_table.illuminant_cct_list[1].weight_list[2] += 7;
  const TablePlots plots =
      PlotTable(*edited, &original, {"edited", "built-in"});
  EXPECT_THAT(plots.figures[0].title, HasSubstr("edited against built-in"));
  const auto& map = std::get<HeatMap>(plots.figures[0].panels[1]);
  int changed = 0;
  for (std::size_t r = 0; r < map.changed.size(); ++r) {
    for (std::size_t c = 0; c < map.changed[r].size(); ++c) {
      if (map.changed[r][c]) {
        ++changed;
        EXPECT_EQ(r, 1u);
        EXPECT_EQ(c, 2u);
      }
    }
  }
  EXPECT_EQ(changed, 1);
  // The plane carries both sides, the older one marked.
  const auto& plane = std::get<Chart>(plots.figures[0].panels[0]);
  int before = 0;
  for (const Series& s : plane.series) before += s.before ? 1 : 0;
  EXPECT_EQ(before, 2);
}

TEST(HtmlReport, EscapesEveryTextAndHasEverySection) {
  ReportData data;
  data.key = "<script>alert(1)</script>";
  data.registrations = {"awb <b>"};
  data.tables = {{"basic", "B1", "3.1", "awb#1 & awb#2", "B2", "x\"y.json"}};
  data.findings = {
      {"basic",
       {.file = "<file>", .path = "path", .message = "<bad> & 'worse'"}}};
  ReportSection section;
  section.id = "basic";
  section.heading = "basic <table>";
  section.compared = true;
  section.differences = {{"a.b[1]", "<1>", "2&"}};
  section.figures = {"<svg class='figure'></svg>"};
  data.sections.push_back(section);
  const std::string html = RenderHtmlReport(data);
  EXPECT_THAT(html, Not(HasSubstr("<script")));
  EXPECT_THAT(html, Not(HasSubstr("<b>")));
  EXPECT_THAT(html, HasSubstr("&lt;script&gt;alert(1)&lt;/script&gt;"));
  EXPECT_THAT(html, HasSubstr("x&quot;y.json"));
  EXPECT_THAT(html, HasSubstr("&lt;1&gt;"));
  for (const char* id : {"id=\"registration\"", "id=\"findings\"",
                         "id=\"table-basic\"", "id=\"diff-basic\"",
                         "@media print"}) {
    EXPECT_THAT(html, HasSubstr(id));
  }
  EXPECT_THAT(html, HasSubstr("<svg class='figure'></svg>"));
}

TEST(HtmlReport, ListsDifferencesUpToTheLimitAndCountsTheRest) {
  ReportData data;
  ReportSection section;
  section.id = "basic";
  section.compared = true;
  for (std::size_t i = 0; i < kReportDiffLimit + 3; ++i) {
    section.differences.push_back({fmt::format("cct_list[{}]", i), "0", "1"});
  }
  data.sections.push_back(section);
  const std::string html = RenderHtmlReport(data);
  EXPECT_THAT(html,
              HasSubstr(fmt::format("cct_list[{}]", kReportDiffLimit - 1)));
  EXPECT_THAT(html,
              Not(HasSubstr(fmt::format("cct_list[{}]", kReportDiffLimit))));
  EXPECT_THAT(html, HasSubstr("3 more not listed"));
}

}  // namespace
}  // namespace q3a_tool
