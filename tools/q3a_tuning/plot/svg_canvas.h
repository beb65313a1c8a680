// A small SVG writer for the tool's plots. Every piece of text and every
// attribute value goes through one escaping routine, so table names, file
// names and field paths can hold any characters. Shapes take plain numbers
// and styles; the caller does the layout.
//
// Written here rather than taken from Debian: PLplot and gnuplot (through
// gnuplot-iostream, a separate process) lay pages out themselves, so the
// tests could not check where points and labels went; cairo's SVG surface
// writes text as glyph outlines, which the report could not search or
// select; Qt SVG and libxml2 would bring a large dependency for the few
// elements the plots need.
#ifndef TOOLS_Q3A_TUNING_PLOT_SVG_CANVAS_H_
#define TOOLS_Q3A_TUNING_PLOT_SVG_CANVAS_H_

#include <string>
#include <string_view>
#include <vector>

namespace q3a_tool {

// Text for XML and HTML content and attribute values: & < > " ' escaped,
// control characters other than tab and newline and malformed UTF-8 bytes
// replaced by U+FFFD, so the result is always well-formed.
std::string XmlEscape(std::string_view text);

struct XY {
  double x = 0;
  double y = 0;
};

// An axis-aligned rectangle in SVG units.
struct Box {
  double left = 0, top = 0, width = 0, height = 0;
  double right() const { return left + width; }
  double bottom() const { return top + height; }
  bool Contains(XY p) const {
    return p.x >= left && p.x <= right() && p.y >= top && p.y <= bottom();
  }
  bool Overlaps(const Box& o) const {
    return left < o.right() && o.left < right() && top < o.bottom() &&
           o.top < bottom();
  }
};

struct Style {
  std::string fill = "none";
  std::string stroke = "none";
  double stroke_width = 1;
  bool dashed = false;
  double opacity = 1;
};

enum class Anchor { kStart, kMiddle, kEnd };

struct TextStyle {
  double size = 11;
  Anchor anchor = Anchor::kStart;
  std::string colour = "#222";
  bool bold = false;
  double rotate = 0;  // degrees, about the anchor point
};

// Width of `text` at `size` as the plots estimate it (sans-serif, average
// glyph), for layout and collision checks.
double TextWidth(std::string_view text, double size);

class SvgCanvas {
 public:
  SvgCanvas(double width, double height);

  void Rect(const Box& box, const Style& style);
  void Line(XY from, XY to, const Style& style);
  void Circle(XY centre, double radius, const Style& style);
  void Path(const std::vector<XY>& points, bool closed, const Style& style);
  // `text` is escaped here; the baseline sits at `at.y`.
  void Text(XY at, std::string_view text, const TextStyle& style);
  // An accessible title for the whole picture (escaped).
  void Title(std::string_view text);

  // The complete <svg> element; `css_class` is set on it when not empty.
  std::string Finish(std::string_view css_class = "") const;

 private:
  double width_, height_;
  std::string title_;
  std::string body_;
};

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_PLOT_SVG_CANVAS_H_
