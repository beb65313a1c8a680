#include "tools/q3a_tuning/plot/svg_canvas.h"

#include <fmt/format.h>

#include <cstdint>

#include "tools/q3a_tuning/io/utf8.h"

namespace q3a_tool {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

std::string StyleAttributes(const Style& style) {
  std::string out = fmt::format(" fill='{}' stroke='{}'", XmlEscape(style.fill),
                                XmlEscape(style.stroke));
  if (style.stroke != "none" && style.stroke_width != 1) {
    out += fmt::format(" stroke-width='{:g}'", style.stroke_width);
  }
  if (style.dashed) out += " stroke-dasharray='5 3'";
  if (style.opacity < 1) out += fmt::format(" opacity='{:g}'", style.opacity);
  return out;
}

}  // namespace

std::string XmlEscape(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const char c = text[i];
    const auto byte = static_cast<std::uint8_t>(c);
    if (byte >= 0x80) {
      const std::size_t length = Utf8SequenceLength(text.substr(i));
      if (length == 0) {
        out += kReplacement;
        ++i;
      } else {
        out.append(text.substr(i, length));
        i += length;
      }
      continue;
    }
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      case '\'':
        out += "&#39;";
        break;
      default:
        if ((byte < 0x20 && c != '\t' && c != '\n') || byte == 0x7F) {
          out += kReplacement;
        } else {
          out += c;
        }
    }
    ++i;
  }
  return out;
}

double TextWidth(std::string_view text, double size) {
  double units = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    // Count code points, not bytes.
    if ((static_cast<std::uint8_t>(text[i]) & 0xC0) != 0x80) units += 1;
  }
  return units * size * 0.6;
}

SvgCanvas::SvgCanvas(double width, double height)
    : width_(width), height_(height) {}

void SvgCanvas::Rect(const Box& box, const Style& style) {
  body_ += fmt::format("<rect x='{:.1f}' y='{:.1f}' width='{:.1f}' "
                       "height='{:.1f}'{}/>\n",
                       box.left, box.top, box.width, box.height,
                       StyleAttributes(style));
}

void SvgCanvas::Line(XY from, XY to, const Style& style) {
  body_ += fmt::format(
      "<line x1='{:.1f}' y1='{:.1f}' x2='{:.1f}' y2='{:.1f}'{}/>\n", from.x,
      from.y, to.x, to.y, StyleAttributes(style));
}

void SvgCanvas::Circle(XY centre, double radius, const Style& style) {
  body_ += fmt::format("<circle cx='{:.1f}' cy='{:.1f}' r='{:g}'{}/>\n",
                       centre.x, centre.y, radius, StyleAttributes(style));
}

void SvgCanvas::Path(const std::vector<XY>& points, bool closed,
                     const Style& style) {
  if (points.empty()) return;
  std::string d;
  for (std::size_t i = 0; i < points.size(); ++i) {
    d += fmt::format("{}{:.1f},{:.1f}", i == 0 ? "M" : " L", points[i].x,
                     points[i].y);
  }
  if (closed) d += " Z";
  body_ += fmt::format("<path d='{}'{}/>\n", d, StyleAttributes(style));
}

void SvgCanvas::Text(XY at, std::string_view text, const TextStyle& style) {
  std::string attributes = fmt::format(
      "x='{:.1f}' y='{:.1f}' font-size='{:g}' fill='{}'", at.x, at.y,
      style.size, XmlEscape(style.colour));
  // "start" is SVG's default and goes unwritten.
  if (style.anchor != Anchor::kStart) {
    attributes += fmt::format(" text-anchor='{}'",
                              style.anchor == Anchor::kMiddle ? "middle" : "end");
  }
  if (style.bold) attributes += " font-weight='bold'";
  if (style.rotate != 0) {
    attributes += fmt::format(" transform='rotate({:g} {:.1f} {:.1f})'",
                              style.rotate, at.x, at.y);
  }
  body_ += fmt::format("<text {}>{}</text>\n", attributes, XmlEscape(text));
}

void SvgCanvas::Title(std::string_view text) { title_ = XmlEscape(text); }

std::string SvgCanvas::Finish(std::string_view css_class) const {
  std::string head = fmt::format(
      "<svg xmlns='http://www.w3.org/2000/svg' width='{0:g}' height='{1:g}' "
      "viewBox='0 0 {0:g} {1:g}' font-family='sans-serif' role='img'",
      width_, height_);
  if (!css_class.empty()) {
    head += fmt::format(" class='{}'", XmlEscape(css_class));
  }
  head += ">\n";
  if (!title_.empty()) head += fmt::format("<title>{}</title>\n", title_);
  return head + body_ + "</svg>\n";
}

}  // namespace q3a_tool
