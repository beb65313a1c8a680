#include "tools/q3a_tuning/commands/plot_inputs.h"

#include "tools/q3a_tuning/plot/plot_layout.h"
#include "tools/q3a_tuning/plot/plot_render.h"

namespace q3a_tool {

std::string DescribeTable(const TableOperand& operand, qawb::TableId kind,
                          const qawb::QAWBParameterVersion& version) {
  const std::string table =
      fmt::format("{} table {}", TableName(kind), VersionString(version));
  if (!operand.file.empty()) return fmt::format("{} from {}", table, operand.file);
  if (operand.name.starts_with("defaults:")) return "default " + table;
  const std::string_view key =
      std::string_view(operand.name).substr(4, operand.name.rfind(':') - 4);
  return fmt::format("{} of container {}", table, key);
}

std::string StackFiguresSvg(const std::vector<Figure>& figures) {
  std::string body;
  double height = 0;
  for (const Figure& figure : figures) {
    const std::string svg = RenderFigureSvg(figure);
    // The nested picture's own height, from its opening tag.
    const std::size_t at = svg.find("height='") + 8;
    const double own = std::stod(svg.substr(at, svg.find('\'', at) - at));
    body += fmt::format("<g transform='translate(0 {:g})'>\n{}</g>\n", height,
                        svg);
    height += own;
  }
  return fmt::format(
      "<svg xmlns='http://www.w3.org/2000/svg' width='{0:g}' height='{1:g}' "
      "viewBox='0 0 {0:g} {1:g}'>\n{2}</svg>\n",
      kFigureWidth, height, body);
}

}  // namespace q3a_tool
