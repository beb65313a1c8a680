#include "tools/q3a_tuning/plot/plot_axes.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace q3a_tool {
namespace {

// The smallest of 1, 2, 5, 10 times 10^k that is at least `span`.
double NiceStep(double span) {
  const double power = std::pow(10.0, std::floor(std::log10(span)));
  for (double factor : {1.0, 2.0, 5.0}) {
    if (factor * power >= span * (1 - 1e-9)) return factor * power;
  }
  return 10 * power;
}

struct Rgb {
  double r, g, b;
};

Rgb Mix(Rgb a, Rgb b, double t) {
  return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t};
}

std::string Hex(Rgb c) {
  auto channel = [](double v) {
    return static_cast<int>(std::lround(std::clamp(v, 0.0, 255.0)));
  };
  return fmt::format("#{:02x}{:02x}{:02x}", channel(c.r), channel(c.g),
                     channel(c.b));
}

// Pale yellow through green to dark blue: light for small values, and
// readable printed in grey.
constexpr std::array<Rgb, 5> kSequential = {{{255, 255, 204},
                                             {161, 218, 180},
                                             {65, 182, 196},
                                             {44, 127, 184},
                                             {37, 52, 148}}};
constexpr Rgb kWhite = {255, 255, 255};
constexpr Rgb kBlue = {33, 102, 172};
constexpr Rgb kRed = {178, 24, 43};

Rgb Sequential(double t) {
  t = std::clamp(t, 0.0, 1.0) * (kSequential.size() - 1);
  const auto i = std::min<std::size_t>(static_cast<std::size_t>(t),
                                       kSequential.size() - 2);
  return Mix(kSequential[i], kSequential[i + 1], t - i);
}

}  // namespace

Ticks NiceTicks(double low, double high, int target) {
  Ticks ticks;
  if (!std::isfinite(low) || !std::isfinite(high)) return ticks;
  if (low > high) std::swap(low, high);
  if (high - low <= std::max(std::fabs(high), 1.0) * 1e-12) {
    const double pad = low == 0 ? 1 : std::fabs(low) * 0.1;
    low -= pad;
    high += pad;
  }
  target = std::max(target, 2);
  ticks.step = NiceStep((high - low) / (target - 1));
  ticks.decimals =
      std::max(0, static_cast<int>(-std::floor(std::log10(ticks.step) + 1e-9)));
  const double scale = std::pow(10.0, ticks.decimals);
  // Multiplying the index keeps values multiples of the step; rounding to
  // the printed digits makes them the doubles nearest those decimals.
  const auto tick = [&](double i) {
    return std::round(i * ticks.step * scale) / scale;
  };
  double first = std::floor(low / ticks.step + 1e-9);
  double last = std::ceil(high / ticks.step - 1e-9);
  // Rounding must not leave a bound outside.
  while (tick(first) > low) --first;
  while (tick(last) < high) ++last;
  for (double i = first; i <= last; ++i) ticks.values.push_back(tick(i));
  return ticks;
}

std::string FormatTick(double value, int decimals) {
  std::string text = fmt::format("{:.{}f}", value, decimals);
  if (text.find_first_not_of("-0.") == std::string::npos && text[0] == '-') {
    text.erase(0, 1);
  }
  return text;
}

double LinearScale::operator()(double value) const {
  if (domain_high == domain_low) return (range_from + range_to) / 2;
  return range_from + (value - domain_low) / (domain_high - domain_low) *
                          (range_to - range_from);
}

std::string ColourScale::Colour(double value) const {
  if (diverging) {
    const double extent = std::max(std::fabs(low), std::fabs(high));
    if (extent == 0) return Hex(kWhite);
    const double t = std::clamp(value / extent, -1.0, 1.0);
    return Hex(t < 0 ? Mix(kWhite, kBlue, -t) : Mix(kWhite, kRed, t));
  }
  if (high == low) return Hex(Sequential(0.5));
  return Hex(Sequential((value - low) / (high - low)));
}

ColourScale MakeColourScale(const std::vector<std::vector<double>>& values,
                            bool diverging) {
  ColourScale scale;
  scale.diverging = diverging;
  bool any = false;
  for (const auto& row : values) {
    for (double v : row) {
      if (!std::isfinite(v)) continue;
      scale.low = any ? std::min(scale.low, v) : v;
      scale.high = any ? std::max(scale.high, v) : v;
      any = true;
    }
  }
  return scale;
}

std::string PaletteColour(int index) {
  static constexpr std::array<const char*, 10> kPalette = {
      "#1f77b4", "#d62728", "#2ca02c", "#ff7f0e", "#9467bd",
      "#8c564b", "#e377c2", "#17becf", "#7f7f7f", "#bcbd22"};
  const auto size = static_cast<int>(kPalette.size());
  return kPalette[((index % size) + size) % size];
}

std::vector<std::optional<Box>> PlaceLabels(
    const std::vector<XY>& anchors, const std::vector<std::string>& texts,
    double size, const Box& frame, const std::vector<Box>& obstacles) {
  std::vector<Box> taken = obstacles;
  constexpr double kMarker = 5;
  for (XY a : anchors) {
    taken.push_back({a.x - kMarker, a.y - kMarker, 2 * kMarker, 2 * kMarker});
  }
  std::vector<std::optional<Box>> placed(anchors.size());
  const double height = size + 2;
  for (std::size_t i = 0; i < anchors.size() && i < texts.size(); ++i) {
    if (texts[i].empty()) continue;
    const double width = TextWidth(texts[i], size);
    const XY a = anchors[i];
    const double gap = kMarker + 2;
    // Right, left, above, below, then the four diagonals.
    const std::array<XY, 8> corners = {{
        {a.x + gap, a.y - height / 2},
        {a.x - gap - width, a.y - height / 2},
        {a.x - width / 2, a.y - gap - height},
        {a.x - width / 2, a.y + gap},
        {a.x + gap, a.y - gap - height},
        {a.x - gap - width, a.y + gap},
        {a.x - gap - width, a.y - gap - height},
        {a.x + gap, a.y + gap},
    }};
    for (XY corner : corners) {
      const Box box = {corner.x, corner.y, width, height};
      if (box.left < frame.left || box.right() > frame.right() ||
          box.top < frame.top || box.bottom() > frame.bottom()) {
        continue;
      }
      if (std::any_of(taken.begin(), taken.end(),
                      [&](const Box& t) { return t.Overlaps(box); })) {
        continue;
      }
      placed[i] = box;
      taken.push_back(box);
      break;
    }
  }
  return placed;
}

}  // namespace q3a_tool
