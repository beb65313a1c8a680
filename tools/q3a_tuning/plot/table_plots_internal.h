// Helpers the four table plot files share: counts clamped to capacities,
// the walk for non-finite values, names for titles and legends.
#ifndef TOOLS_Q3A_TUNING_PLOT_TABLE_PLOTS_INTERNAL_H_
#define TOOLS_Q3A_TUNING_PLOT_TABLE_PLOTS_INTERNAL_H_

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "awb_records/record_description.h"
#include "tools/q3a_tuning/io/record_walk.h"
#include "tools/q3a_tuning/plot/plot_model.h"
#include "tools/q3a_tuning/plot/table_plots.h"

namespace q3a_tool::internal {

// How many entries of an array of `capacity` a count puts in use.
inline int InUse(int count, std::size_t capacity) {
  return std::clamp(count, 0, static_cast<int>(capacity));
}
template <typename T, std::size_t N>
int InUse(int count, const T (&)[N]) {
  return InUse(count, N);
}

// An empty chart with its titles.
inline Chart TitledChart(std::string title, std::string x_title,
                         std::string y_title) {
  Chart chart;
  chart.title = std::move(title);
  chart.x_title = std::move(x_title);
  chart.y_title = std::move(y_title);
  return chart;
}

inline std::string OnOff(int flag) { return flag != 0 ? "on" : "off"; }

// "outdoor_region_list" -> "outdoor region".
inline std::string Words(std::string_view name) {
  std::string out(name);
  if (out.ends_with("_list")) out.resize(out.size() - 5);
  std::replace(out.begin(), out.end(), '_', ' ');
  return out;
}

// One side of a comparison: the table, whether it is the older one, and
// the suffix its legend entries carry.
template <typename Record>
struct Side {
  const Record* table;
  bool before;
  std::string suffix;  // "" or " (before)"
};

template <typename Record>
std::vector<Side<Record>> Sides(const Record& table, const Record* before) {
  if (before == nullptr) return {{&table, false, ""}};
  return {{before, true, " (before)"}, {&table, false, ""}};
}

// Reports every non-finite float of either table as a finding and says in
// each picture what it left out.
template <typename Record>
void NoteNonFinite(const Record& table, const Record* before,
                   const PlotNames& names, TablePlots& plots) {
  std::vector<std::string> left_out;
  for (const Side<Record>& side : Sides(table, before)) {
    const std::string& name = side.before ? names.before : names.table;
    ForEachScalar(*side.table, [&](const std::string& path,
                                   const auto& value) {
      if constexpr (std::is_floating_point_v<
                        std::remove_cvref_t<decltype(value)>>) {
        if (std::isfinite(value)) return;
        plots.findings.push_back(
            {.file = name,
             .path = path,
             .message = fmt::format(
                 "value {} is not finite; left out of the plots", value),
             .severity = Severity::kWarning});
        left_out.push_back(fmt::format("{}{} ({})", path, side.suffix, value));
      }
    });
  }
  if (left_out.empty()) return;
  const std::string note = fmt::format(
      "Left out: {} value{} that {} not finite: {}{}", left_out.size(),
      left_out.size() == 1 ? "" : "s", left_out.size() == 1 ? "is" : "are",
      left_out.front(), left_out.size() > 1 ? ", ..." : "");
  for (Figure& figure : plots.figures) figure.note = note;
}

// A figure before its title names the tables: what it shows, its panels.
struct FigurePanels {
  std::string what;
  std::vector<Panel> panels;
};

// A table's plots: a figure for each entry with panels, titled "what: table"
// or "what: table against before", and its non-finite values noted.
template <typename Record>
TablePlots MakePlots(const Record& table, const Record* before,
                     const PlotNames& names,
                     std::vector<FigurePanels> figures) {
  TablePlots plots;
  for (FigurePanels& f : figures) {
    if (f.panels.empty()) continue;
    plots.figures.push_back(
        {.title = before != nullptr
                      ? fmt::format("{}: {} against {}", f.what, names.table,
                                    names.before)
                      : fmt::format("{}: {}", f.what, names.table),
         .panels = std::move(f.panels),
         .note = ""});
  }
  NoteNonFinite(table, before, names, plots);
  return plots;
}

}  // namespace q3a_tool::internal

#endif  // TOOLS_Q3A_TUNING_PLOT_TABLE_PLOTS_INTERNAL_H_
