// The colour-control table's pictures: each CCM selection as a grid of 3 x 3
// matrices, BV rows down and CCT entries across. The selections are found
// by walking the sets' field lists, so each is named by its field.
#include <fmt/format.h>

#include <type_traits>

#include "tools/q3a_tuning/plot/table_plots.h"
#include "tools/q3a_tuning/plot/table_plots_internal.h"

namespace q3a_tool {
namespace {

using internal::InUse;
using Selection = qawb::QAWBCCMSelection;

int CctColumns(const Selection& s) {
  int columns = 0;
  for (int r = 0; r < InUse(s.bv_number, s.ccm_selection_bv_list); ++r) {
    const auto& row = s.ccm_selection_bv_list[r];
    columns = std::max(columns, InUse(row.cct_number, row.region_list));
  }
  return columns;
}

// "2000-4600 K" when every BV row gives column `c` the same CCT interval.
std::string ColumnLabel(const Selection& s, int c) {
  const int rows = InUse(s.bv_number, s.ccm_selection_bv_list);
  const qawb::QAWBCCTRange* common = nullptr;
  for (int r = 0; r < rows; ++r) {
    const auto& row = s.ccm_selection_bv_list[r];
    if (c >= InUse(row.cct_number, row.region_list)) continue;
    const auto& range = row.region_list[c].cct_value;
    if (common != nullptr && (common->cct_up != range.cct_up ||
                              common->cct_down != range.cct_down)) {
      return fmt::format("CCT entry {}", c + 1);
    }
    common = &range;
  }
  if (common == nullptr) return fmt::format("CCT entry {}", c + 1);
  return fmt::format("{}-{} K", common->cct_down, common->cct_up);
}

// One matrix coefficient, or NaN where the cell is not in use.
double Coefficient(const Selection& s, int row, int column) {
  const int bv = row / 3, cct = column / 3;
  if (bv >= InUse(s.bv_number, s.ccm_selection_bv_list)) return NAN;
  const auto& bv_row = s.ccm_selection_bv_list[bv];
  if (cct >= InUse(bv_row.cct_number, bv_row.region_list)) return NAN;
  return bv_row.region_list[cct].ccm_value.ccm[(row % 3) * 3 + column % 3];
}

HeatMap SelectionMap(const Selection& s, const Selection* before,
                     const std::string& title) {
  HeatMap map;
  map.title = title;
  map.row_title = "BV interval (table value)";
  map.column_title = "CCT interval";
  map.value_title = "coefficient";
  map.block = 3;
  map.diverging = true;
  map.note = "each block is one 3 x 3 matrix (rows R, G, B out)";
  const int bv_rows = InUse(s.bv_number, s.ccm_selection_bv_list);
  const int columns = CctColumns(s);
  map.wide = columns > 4;
  for (int r = 0; r < bv_rows; ++r) {
    const auto& range = s.ccm_selection_bv_list[r].bv_value;
    map.row_labels.push_back(fmt::format("BV {}..{}", range.bv_down, range.bv_up));
  }
  for (int c = 0; c < columns; ++c) map.column_labels.push_back(ColumnLabel(s, c));
  for (int r = 0; r < bv_rows * 3; ++r) {
    auto& values = map.values.emplace_back();
    for (int c = 0; c < columns * 3; ++c) values.push_back(Coefficient(s, r, c));
  }
  if (before != nullptr) {
    for (int r = 0; r < bv_rows * 3; ++r) {
      auto& changed = map.changed.emplace_back();
      for (int c = 0; c < columns * 3; ++c) {
        const double now = map.values[r][c];
        const double old = Coefficient(*before, r, c);
        changed.push_back(std::isfinite(now) &&
                          !(std::isfinite(old) && old == now));
      }
    }
  }
  return map;
}

bool InUseAnywhere(const Selection& s, const Selection* before) {
  return s.bv_number > 0 || (before != nullptr && before->bv_number > 0);
}

// Every selection of a set, singly or in arrays, named by its field.
template <typename Set>
std::vector<Panel> Selections(const Set& set, const Set* before,
                              const std::string& set_name, bool keep_unused) {
  std::vector<Panel> panels;
  qawb::ForEachFieldPair(set, before != nullptr ? *before : set,
                         [&](const char* name, const auto& field,
                             const auto& old_field) {
    using Field = std::remove_cvref_t<decltype(field)>;
    const auto add = [&](const Selection& s, const Selection& old,
                         const std::string& label) {
      const Selection* old_ptr = before != nullptr ? &old : nullptr;
      if (!keep_unused && !InUseAnywhere(s, old_ptr)) return;
      panels.push_back(SelectionMap(
          s, old_ptr,
          fmt::format("CCMs for {} light ({}.{})",
                      internal::Words(std::string_view(name).substr(
                          std::string_view(name).rfind('_') + 1)),
                      set_name, label)));
    };
    if constexpr (std::is_same_v<Field, Selection>) {
      add(field, old_field, name);
    } else if constexpr (std::is_same_v<Field, Selection[std::extent_v<Field>]>) {
      for (std::size_t i = 0; i < std::extent_v<Field>; ++i) {
        add(field[i], old_field[i], fmt::format("{}[{}]", name, i));
      }
    }
  });
  return panels;
}

}  // namespace

TablePlots PlotTable(const qawb::QAWBColorControlTuningTable& table,
                     const qawb::QAWBColorControlTuningTable* before,
                     const PlotNames& names) {
  const auto& ccm = table.ccm_tuning_table;
  const auto* old = before != nullptr ? &before->ccm_tuning_table : nullptr;
  // The general set shows every selection, the face set those in use.
  return internal::MakePlots(
      table, before, names,
      {{fmt::format("Colour-correction matrices (MCC {})",
                    internal::OnOff(ccm.ccm_set.mcc_enable_flag)),
        Selections(ccm.ccm_set, old ? &old->ccm_set : nullptr, "ccm_set",
                   true)},
       {"Face colour-correction matrices",
        Selections(ccm.ccm_set_face, old ? &old->ccm_set_face : nullptr,
                   "ccm_set_face", false)}});
}

}  // namespace q3a_tool
