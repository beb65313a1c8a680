// Draws a figure as one SVG picture: its title, then its panels, two to a
// row (wide panels take a row of their own), each as its layout says.
#ifndef TOOLS_Q3A_TUNING_PLOT_PLOT_RENDER_H_
#define TOOLS_Q3A_TUNING_PLOT_PLOT_RENDER_H_

#include <string>

#include "tools/q3a_tuning/plot/plot_model.h"

namespace q3a_tool {

// A complete <svg> element.
std::string RenderFigureSvg(const Figure& figure);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_PLOT_PLOT_RENDER_H_
