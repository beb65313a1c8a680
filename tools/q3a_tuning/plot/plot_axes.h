// The measuring parts of a plot: round tick values, linear scales, colour
// scales for heat maps and the placing of point labels so that none
// overlap.
#ifndef TOOLS_Q3A_TUNING_PLOT_PLOT_AXES_H_
#define TOOLS_Q3A_TUNING_PLOT_PLOT_AXES_H_

#include <optional>
#include <string>
#include <vector>

#include "tools/q3a_tuning/plot/svg_canvas.h"

namespace q3a_tool {

// Tick values 1, 2 or 5 times a power of ten apart, increasing, whose first
// and last enclose [low, high]; about `target` of them. A single value
// (low == high) gets ticks around it. Non-finite bounds give no ticks.
struct Ticks {
  double step = 0;
  std::vector<double> values;
  int decimals = 0;  // enough to tell the values apart
};
Ticks NiceTicks(double low, double high, int target = 6);

// `value` with `decimals` digits after the point, "-0" printed as "0".
std::string FormatTick(double value, int decimals);

// Maps [domain_low, domain_high] onto [range_from, range_to].
struct LinearScale {
  double domain_low = 0, domain_high = 1, range_from = 0, range_to = 1;
  double operator()(double value) const;
};

// The colour of a heat-map value. The scale spans exactly the finite values
// given; a diverging scale is white at zero.
struct ColourScale {
  double low = 0;
  double high = 0;
  bool diverging = false;
  std::string Colour(double value) const;  // "#rrggbb"
};
ColourScale MakeColourScale(const std::vector<std::vector<double>>& values,
                            bool diverging);

// The plots' palette: distinct colours for series and areas.
std::string PaletteColour(int index);

// Places `texts[i]` next to `anchors[i]` inside `frame`, clear of the
// anchors' markers, of `obstacles` and of the labels already placed; a label
// that fits nowhere is nullopt. Boxes are the labels' extents; text is drawn
// at the box's left and bottom - 2.
std::vector<std::optional<Box>> PlaceLabels(
    const std::vector<XY>& anchors, const std::vector<std::string>& texts,
    double size, const Box& frame, const std::vector<Box>& obstacles = {});

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_PLOT_PLOT_AXES_H_
