// The pictures of the four AWB tables, as figures ready to draw: for the
// basic table the white points, golden modules and white-point regions in
// the R/G-B/G plane and the illuminant weights over BV and CCT; for the
// colour-control table the colour-correction matrices over CCT and BV; for
// the advance table the outdoor, blue, green and special-colour regions and
// the preference points; for the feature table the face-size weights and
// the low-light statistics weights. Only entries the count fields put in use
// are drawn (counts are clamped to the capacities). Given an older table
// too, each picture overlays both and heat maps outline the changed cells.
#ifndef TOOLS_Q3A_TUNING_PLOT_TABLE_PLOTS_H_
#define TOOLS_Q3A_TUNING_PLOT_TABLE_PLOTS_H_

#include <string>
#include <vector>

#include "awb_records/tuning_tables.h"
#include "tools/q3a_tuning/io/diagnostic.h"
#include "tools/q3a_tuning/plot/plot_model.h"

namespace q3a_tool {

// How the pictures name what they show.
struct PlotNames {
  std::string table;   // "basic table 3.1 of container 0,-1,1,0,-1"
  std::string before;  // "built-in basic table 3.1"; used with `before`
};

struct TablePlots {
  std::vector<Figure> figures;
  // A warning about the table (named as in PlotNames) at PATH, "value nan is
  // not finite; left out of the plots", one per non-finite float anywhere
  // in either table.
  std::vector<Diagnostic> findings;
};

// One overload per table of the table list; `before` is null for a single
// table.
#define Q3A_INTERNAL_DECLARE_PLOT_TABLE(Id, Stem, name, load_position) \
  TablePlots PlotTable(const qawb::QAWB##Stem& table,                  \
                       const qawb::QAWB##Stem* before,                 \
                       const PlotNames& names);
QAWB_TUNING_TABLES(Q3A_INTERNAL_DECLARE_PLOT_TABLE)
#undef Q3A_INTERNAL_DECLARE_PLOT_TABLE

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_PLOT_TABLE_PLOTS_H_
