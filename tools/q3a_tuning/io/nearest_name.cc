#include "tools/q3a_tuning/io/nearest_name.h"

#include <algorithm>
#include <cctype>
#include <vector>

namespace q3a_tool {
namespace {

// Edit distance ignoring letter case, so a case slip costs nothing extra.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t above = row[j];
      const bool same = std::tolower(static_cast<unsigned char>(a[i - 1])) ==
                        std::tolower(static_cast<unsigned char>(b[j - 1]));
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (same ? 0 : 1)});
      diagonal = above;
    }
  }
  return row[b.size()];
}

template <typename NameAt>
std::string Suggest(std::string_view name, int count, NameAt name_at) {
  std::string best;
  std::size_t best_distance = std::max<std::size_t>(2, name.size() / 3) + 1;
  for (int i = 0; i < count; ++i) {
    const std::string& candidate = name_at(i);
    const std::size_t distance = Distance(name, candidate);
    if (distance < best_distance) {
      best_distance = distance;
      best = candidate;
    }
  }
  return best.empty() ? "" : "; did you mean " + best + "?";
}

}  // namespace

std::string SuggestField(std::string_view name,
                         const google::protobuf::Descriptor& descriptor) {
  return Suggest(name, descriptor.field_count(), [&](int i) -> const std::string& {
    return descriptor.field(i)->name();
  });
}

std::string SuggestEnumValue(
    std::string_view name, const google::protobuf::EnumDescriptor& enum_type) {
  return Suggest(name, enum_type.value_count(), [&](int i) -> const std::string& {
    return enum_type.value(i)->name();
  });
}

}  // namespace q3a_tool
