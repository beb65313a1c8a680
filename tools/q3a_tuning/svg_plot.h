// An SVG picture of a basic table for tuning engineers: the reference white
// points and the golden-module points in the R/G-B/G plane with their CCTs,
// and the illuminant weights as a BV x CCT heat map. Only the entries the
// count fields put in use are drawn.
#ifndef TOOLS_Q3A_TUNING_SVG_PLOT_H_
#define TOOLS_Q3A_TUNING_SVG_PLOT_H_

#include <string>
#include <string_view>

#include "awb_records/qawb_basic_tuning_table.h"

namespace q3a_tool {

// A complete SVG document. Counts outside 0..capacity are clamped.
std::string RenderBasicTableSvg(const qawb::QAWBBasicTuningTable& table,
                                std::string_view title);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_SVG_PLOT_H_
