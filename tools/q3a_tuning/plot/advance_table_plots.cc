// The advance table's pictures: every region of the outdoor table and the
// special colours as CCT x radius boxes per BV row, and the preference
// points in the R/G-B/G plane. Regions and points are found by walking the
// outdoor table's field list: any member with BV rows of CCT/radius
// regions is a region, any member with BV rows of points a point list.
#include <fmt/format.h>

#include <type_traits>

#include "tools/q3a_tuning/plot/table_plots.h"
#include "tools/q3a_tuning/plot/table_plots_internal.h"

namespace q3a_tool {
namespace {

using internal::InUse;

template <typename T>
concept RegionSet = requires(const T& t) {
  t.enable_flag;
  t.cct_number;
  t.bv_number;
  t.region_bv_list[0].bv_value;
};

template <typename T>
concept PointSet = requires(const T& t) {
  t.bv_number;
  t.point_bv_list[0].point_list.cct;
};

// A BV row's regions: directly, or inside the green rows' `region`.
template <typename Row>
const auto& RowRegions(const Row& row) {
  if constexpr (requires { row.region_list; }) {
    return row.region_list;
  } else {
    return row.region.region_list;
  }
}

std::vector<XY> RegionBox(const qawb::QAWBCCTRegionData& r) {
  const double x0 = r.cct_down, x1 = r.cct_up;
  const double y0 = r.radius_left, y1 = r.radius_right;
  return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
}

Chart RegionChart(std::string title) {
  return internal::TitledChart(std::move(title), "CCT (K)",
                               "radius (table units)");
}

template <typename Set>
void AddRegions(const Set& set, bool before, const std::string& suffix,
                Chart& chart) {
  for (int r = 0; r < InUse(set.bv_number, set.region_bv_list); ++r) {
    const auto& row = set.region_bv_list[r];
    const auto& regions = RowRegions(row);
    for (int c = 0; c < InUse(set.cct_number, regions); ++c) {
      chart.areas.push_back({fmt::format("BV {}{}", row.bv_value, suffix),
                             RegionBox(regions[c]), r, before});
    }
  }
}

template <typename Set>
void AddPoints(const Set& set, const std::string& name, int colour,
               bool before, const std::string& suffix, Chart& chart) {
  Series series{internal::Words(name) + suffix, {}, colour, Marker::kCircle,
                false, before};
  for (int r = 0; r < InUse(set.bv_number, set.point_bv_list); ++r) {
    const auto& row = set.point_bv_list[r];
    series.points.push_back(
        {row.point_list.rg, row.point_list.bg,
         fmt::format("BV {}: {} K", row.bv_value, row.point_list.cct)});
  }
  chart.series.push_back(std::move(series));
}

void AddSpecialColours(const qawb::QAWBSpecialColorTuningTable& special,
                       bool before, const std::string& suffix, Chart& chart) {
  for (int g = 0; g < InUse(special.special_color_group_number,
                            special.special_color_group_list);
       ++g) {
    const auto& group = special.special_color_group_list[g];
    for (int k = 0; k < InUse(group.special_color_region_number,
                              group.special_color_region_list);
         ++k) {
      const auto& region = group.special_color_region_list[k];
      for (int r = 0; r < InUse(region.bv_number,
                                region.special_color_region_bv_list);
           ++r) {
        const auto& row = region.special_color_region_bv_list[r];
        chart.areas.push_back(
            {fmt::format("group {} (weight {:g}){}", g + 1, group.weight,
                         suffix),
             RegionBox(row.special_color_region_data), g, before});
      }
    }
  }
}

}  // namespace

TablePlots PlotTable(const qawb::QAWBAdvanceTuningTable& table,
                     const qawb::QAWBAdvanceTuningTable* before,
                     const PlotNames& names) {
  Chart points = internal::TitledChart("Preference points", "R/G", "B/G");
  std::vector<Chart> regions;
  const auto sides = internal::Sides(table, before);
  for (const auto& side : sides) {
    int point_colour = 0;
    std::size_t region_index = 0;
    ForEachField(side.table->outdoor_tuning_table,
                 [&](const char* name, const auto& field) {
      using Field = std::remove_cvref_t<decltype(field)>;
      if constexpr (RegionSet<Field>) {
        if (region_index == regions.size()) regions.push_back(RegionChart(""));
        // The newer side comes last and names the switch's state.
        regions[region_index].title = fmt::format(
            "{} ({}, outdoor_tuning_table.{})", internal::Words(name),
            internal::OnOff(field.enable_flag), name);
        AddRegions(field, side.before, side.suffix, regions[region_index++]);
      } else if constexpr (PointSet<Field>) {
        AddPoints(field, name, point_colour++, side.before, side.suffix,
                  points);
      }
    });
  }
  const auto& special = table.special_color_tuning_table;
  Chart special_chart = RegionChart(fmt::format(
      "Special colours ({}, special_color_tuning_table)",
      internal::OnOff(special.enable_flag)));
  for (const auto& side : sides) {
    AddSpecialColours(side.table->special_color_tuning_table, side.before,
                      side.suffix, special_chart);
  }
  internal::FigurePanels figure{"Outdoor and special-colour regions",
                                {regions.begin(), regions.end()}};
  figure.panels.push_back(std::move(special_chart));
  figure.panels.push_back(std::move(points));
  return internal::MakePlots(table, before, names, {std::move(figure)});
}

}  // namespace q3a_tool
