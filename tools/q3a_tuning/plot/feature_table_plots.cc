// The feature table's pictures: the face-size weights of the face CCT
// average, and the low-light statistics weights (noise weights per colour
// channel, region-of-interest weights, darkness weights). The channels'
// curves are found by walking the noise table's field list, pairing each
// "<channel>_pixel_value_list" with its "<channel>_noise_weight_list".
#include <fmt/format.h>

#include <string_view>
#include <type_traits>

#include "tools/q3a_tuning/plot/table_plots.h"
#include "tools/q3a_tuning/plot/table_plots_internal.h"
#include "tools/q3a_tuning/plot/weight_grid.h"

namespace q3a_tool {
namespace {

using internal::InUse;
using Feature = qawb::QAWBFeatureTuningTable;

Chart FaceSizeWeights(const std::vector<internal::Side<Feature>>& sides) {
  Chart chart =
      internal::TitledChart("", "face size (ratio threshold)", "weight");
  for (const auto& side : sides) {
    const auto& w = side.table->face_tuning_table.weighted_average_facecct;
    chart.title = fmt::format(
        "Face CCT average: weight by face size ({})",
        internal::OnOff(w.enable_flag));
    Series series{"face-size weight" + side.suffix, {}, 0, Marker::kCircle,
                  true, side.before};
    for (int i = 0; i < InUse(w.face_size_number, w.face_size_weight_list);
         ++i) {
      const auto& p = w.face_size_weight_list[i];
      series.points.push_back({p.face_ratio_threshold, p.trust_level, ""});
    }
    chart.series.push_back(std::move(series));
  }
  return chart;
}

// One chart per colour channel of the noise weights, a curve per BV row.
std::vector<Chart> NoiseWeights(
    const std::vector<internal::Side<Feature>>& sides) {
  // A chart per channel even when no BV row is in use, to say "no data".
  std::vector<Chart> charts;
  constexpr qawb::QAWBNoiseWeightTable kShape{};
  ForEachField(kShape, [&](const char* name, const auto&) {
    const std::string_view n(name);
    if (!n.ends_with("_noise_weight_list")) return;
    charts.push_back(internal::TitledChart(
        fmt::format(
            "Low-light noise weights, {} ({})", n.substr(0, n.find('_')),
            internal::OnOff(sides.back()
                                .table->low_light_tuning_table
                                .stats_noise_weight_tuning.enable_flag)),
        "pixel value", "weight"));
  });
  for (const auto& side : sides) {
    const auto& noise =
        side.table->low_light_tuning_table.stats_noise_weight_tuning;
    const int rows = InUse(noise.bv_number, noise.noise_weight_table);
    const int points = InUse(noise.weight_point_number, 10);
    for (int r = 0; r < rows; ++r) {
      const auto& row = noise.noise_weight_table[r];
      const float* pixels = nullptr;
      std::size_t channel = 0;
      ForEachField(row, [&](const char* name, const auto& field) {
        using Field = std::remove_cvref_t<decltype(field)>;
        const std::string_view n(name);
        if constexpr (std::is_array_v<Field>) {
          if (n.ends_with("_pixel_value_list")) {
            pixels = field;
          } else if (n.ends_with("_noise_weight_list") && pixels != nullptr) {
            Series series{fmt::format("BV {}{}", row.bv_value, side.suffix),
                          {}, r, Marker::kCircle, true, side.before};
            for (int i = 0; i < points; ++i) {
              series.points.push_back({pixels[i], field[i], ""});
            }
            charts[channel++].series.push_back(std::move(series));
            pixels = nullptr;
          }
        }
      });
    }
  }
  return charts;
}

Chart RoiWeights(const std::vector<internal::Side<Feature>>& sides) {
  Chart chart =
      internal::TitledChart("", "radius (ratio of the frame)", "weight");
  for (const auto& side : sides) {
    const auto& roi = side.table->low_light_tuning_table.stats_roi_weight_tuning;
    chart.title = fmt::format("Low-light region-of-interest weights ({})",
                              internal::OnOff(roi.enable_flag));
    for (int r = 0; r < InUse(roi.bv_number, roi.roi_weight_table); ++r) {
      const auto& row = roi.roi_weight_table[r];
      Series series{fmt::format("BV {}{}", row.bv_value, side.suffix), {}, r,
                    Marker::kCircle, true, side.before};
      for (int i = 0; i < InUse(roi.roi_weight_number, row.roi_weight_list);
           ++i) {
        series.points.push_back({row.roi_weight_list[i].roi_radius_ratio,
                                 row.roi_weight_list[i].roi_weight, ""});
      }
      chart.series.push_back(std::move(series));
    }
  }
  return chart;
}

GridSource DarknessGrid(const qawb::QAWBStatsDarknessWeight& d) {
  return {InUse(d.bv_number, d.darkness_weight),
          InUse(d.darkness_weight_number, d.y_value_list),
          [&d](int r, int c) {
            return static_cast<double>(
                d.darkness_weight[r].darkness_weight_list[c]);
          },
          [&d](int r) {
            return fmt::format("{}", d.darkness_weight[r].bv_value);
          },
          [&d](int c) { return fmt::format("{:g}", d.y_value_list[c]); }};
}

HeatMap DarknessWeights(const Feature& table, const Feature* before) {
  const auto& d = table.low_light_tuning_table.stats_darkness_weight_tuning;
  return WeightGrid(
      fmt::format("Low-light darkness weights by BV and luma ({})",
                  internal::OnOff(d.enable_flag)),
      "luma Y", DarknessGrid(d),
      before != nullptr
          ? std::optional(DarknessGrid(
                before->low_light_tuning_table.stats_darkness_weight_tuning))
          : std::nullopt);
}

}  // namespace

TablePlots PlotTable(const Feature& table, const Feature* before,
                     const PlotNames& names) {
  const auto sides = internal::Sides(table, before);
  internal::FigurePanels figure{"Face and low-light weights",
                                {FaceSizeWeights(sides), RoiWeights(sides)}};
  for (Chart& chart : NoiseWeights(sides)) {
    figure.panels.push_back(std::move(chart));
  }
  figure.panels.push_back(DarknessWeights(table, before));
  return internal::MakePlots(table, before, names, {std::move(figure)});
}

}  // namespace q3a_tool
