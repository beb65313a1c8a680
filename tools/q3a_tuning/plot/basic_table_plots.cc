// The basic table's pictures: the R/G-B/G plane and the illuminant weights.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "tools/q3a_tuning/plot/table_plots.h"
#include "tools/q3a_tuning/plot/table_plots_internal.h"
#include "tools/q3a_tuning/plot/weight_grid.h"

namespace q3a_tool {
namespace {

using internal::InUse;

// Region radii are drawn at this many R/G-B/G units per table unit.
constexpr double kRadiusUnit = 0.001;

struct LocusPoint {
  double cct, rg, bg;
};

// The reference white points in use with finite coordinates, by CCT.
std::vector<LocusPoint> Locus(const qawb::QAWBCCTReferencePoint& points) {
  std::vector<LocusPoint> locus;
  for (int i = 0; i < InUse(points.reference_point_number,
                            points.reference_point_list);
       ++i) {
    const auto& p = points.reference_point_list[i];
    if (std::isfinite(p.rg) && std::isfinite(p.bg)) {
      locus.push_back({static_cast<double>(p.cct), p.rg, p.bg});
    }
  }
  std::sort(locus.begin(), locus.end(),
            [](const LocusPoint& a, const LocusPoint& b) { return a.cct < b.cct; });
  return locus;
}

// The locus at `cct`, linear between reference points and held at the ends.
XY LocusAt(const std::vector<LocusPoint>& locus, double cct) {
  if (cct <= locus.front().cct) return {locus.front().rg, locus.front().bg};
  for (std::size_t i = 1; i < locus.size(); ++i) {
    if (cct <= locus[i].cct) {
      const LocusPoint& a = locus[i - 1];
      const LocusPoint& b = locus[i];
      const double t = b.cct == a.cct ? 0 : (cct - a.cct) / (b.cct - a.cct);
      return {a.rg + (b.rg - a.rg) * t, a.bg + (b.bg - a.bg) * t};
    }
  }
  return {locus.back().rg, locus.back().bg};
}

// The band around the locus that one BV row's CCT segments cover, each
// segment as wide as its outermost radius in use on both sides.
std::vector<XY> RegionOutline(const std::vector<LocusPoint>& locus,
                              const qawb::QAWBCCTRegionBV& row,
                              int radius_index) {
  std::vector<XY> upper, lower;
  std::vector<const qawb::QAWBRadiusWeightData*> segments;
  for (const auto& segment : row.region_list) {
    if (segment.cct_up > segment.cct_down) segments.push_back(&segment);
  }
  std::sort(segments.begin(), segments.end(),
            [](auto* a, auto* b) { return a->cct_down < b->cct_down; });
  const double span = locus.back().cct - locus.front().cct;
  for (const auto* segment : segments) {
    const double radius = segment->radius_list[radius_index] * kRadiusUnit;
    constexpr int kSteps = 6;
    for (int k = 0; k <= kSteps; ++k) {
      const double cct = segment->cct_down +
                         (segment->cct_up - segment->cct_down) * k / kSteps;
      const double delta = std::max(span * 0.01, 1.0);
      const XY a = LocusAt(locus, cct - delta);
      const XY b = LocusAt(locus, cct + delta);
      const double length = std::hypot(b.x - a.x, b.y - a.y);
      if (length == 0) continue;
      const XY normal = {-(b.y - a.y) / length, (b.x - a.x) / length};
      const XY p = LocusAt(locus, cct);
      upper.push_back({p.x + normal.x * radius, p.y + normal.y * radius});
      lower.push_back({p.x - normal.x * radius, p.y - normal.y * radius});
    }
  }
  upper.insert(upper.end(), lower.rbegin(), lower.rend());
  return upper;
}

std::string Kelvin(int cct) { return fmt::format("{} K", cct); }

void AddPlane(const internal::Side<qawb::QAWBBasicTuningTable>& side,
              Chart& chart) {
  const auto& table = *side.table;
  const std::vector<LocusPoint> locus = Locus(table.reference_point_list);
  const auto& regions = table.region_list;
  const int radii = InUse(regions.radius_numbers, 8);
  if (locus.size() >= 2 && radii > 0) {
    for (int r = 0; r < InUse(regions.bv_number, regions.region_bv_list);
         ++r) {
      const auto& row = regions.region_bv_list[r];
      chart.areas.push_back({fmt::format("region at BV {}{}", row.bv_value,
                                         side.suffix),
                             RegionOutline(locus, row, radii - 1), 2 + r,
                             side.before});
    }
  }
  Series reference{"reference white points" + side.suffix, {}, 0,
                   Marker::kCircle, true, side.before};
  for (const LocusPoint& p : locus) {
    reference.points.push_back(
        {p.rg, p.bg, Kelvin(static_cast<int>(p.cct))});
  }
  Series golden{"golden modules" + side.suffix, {}, 1, Marker::kSquare, false,
                side.before};
  const auto& modules = table.golden_module_table;
  for (int i = 0; i < InUse(modules.golden_module_number,
                            modules.golden_module_data);
       ++i) {
    const auto& p = modules.golden_module_data[i].golden_reference_point;
    golden.points.push_back({p.rg, p.bg, Kelvin(p.cct)});
  }
  chart.series.push_back(std::move(reference));
  chart.series.push_back(std::move(golden));
}

GridSource IlluminantGrid(const qawb::QAWBIlluminantWeight& w) {
  return {InUse(w.bv_number, w.illuminant_cct_list),
          InUse(w.cct_number, w.cct_list),
          [&w](int r, int c) {
            return static_cast<double>(w.illuminant_cct_list[r].weight_list[c]);
          },
          [&w](int r) {
            return fmt::format("{}", w.illuminant_cct_list[r].bv_value);
          },
          [&w](int c) { return fmt::format("{}", w.cct_list[c]); }};
}

HeatMap IlluminantWeights(const qawb::QAWBBasicTuningTable& table,
                          const qawb::QAWBBasicTuningTable* before) {
  const auto& w = table.illuminant_weight_table;
  HeatMap map = WeightGrid(
      fmt::format("Illuminant weights by BV and CCT ({})",
                  internal::OnOff(w.enable_flag)),
      "CCT (K)", IlluminantGrid(w),
      before != nullptr
          ? std::optional(IlluminantGrid(before->illuminant_weight_table))
          : std::nullopt);
  map.wide = InUse(w.cct_number, w.cct_list) > 16;
  return map;
}

}  // namespace

TablePlots PlotTable(const qawb::QAWBBasicTuningTable& table,
                     const qawb::QAWBBasicTuningTable* before,
                     const PlotNames& names) {
  Chart plane = internal::TitledChart(
      "White points, golden modules and white-point regions", "R/G", "B/G");
  for (const auto& side : internal::Sides(table, before)) AddPlane(side, plane);
  plane.note = fmt::format(
      "Regions: outermost radius in use, 1 table unit drawn as {} R/G-B/G "
      "across the locus",
      kRadiusUnit);
  return internal::MakePlots(
      table, before, names,
      {{"White balance",
        {std::move(plane), IlluminantWeights(table, before)}}});
}

}  // namespace q3a_tool
