// Which count field says how many entries of which array are in use. The
// records carry arrays at full capacity and a separate count; the algorithm
// reads only the counted entries, and the readers never compare the two.
#ifndef TOOLS_Q3A_TUNING_IO_COUNT_RULES_H_
#define TOOLS_Q3A_TUNING_IO_COUNT_RULES_H_

#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

namespace q3a_tool {

struct CountRule {
  // The message holding the count field, and the count field itself.
  std::string_view message;
  std::string_view count_field;
  // The counted array, relative to that message. "[]" steps into every
  // element of a list: "region_bv_list[].region_list" is the region list of
  // each BV row.
  std::string_view array_path;
  // Array elements per counted entry (a row of the flag matrix is 9 flags).
  int per_entry = 1;
};

// The array entries `count` stands for, saturated to int: a count read from
// a damaged file may be any int32.
inline int EntriesFor(const CountRule& rule, int count) {
  const std::int64_t entries = std::int64_t{count} * rule.per_entry;
  return static_cast<int>(std::clamp<std::int64_t>(
      entries, std::numeric_limits<int>::min(),
      std::numeric_limits<int>::max()));
}

// Every rule of the four tables.
std::span<const CountRule> AllCountRules();

// The first step of an array path: "region_bv_list[].region_list" is the
// field "region_bv_list", taken in each entry, then "region_list".
struct ArrayPathStep {
  std::string_view field;
  bool each = false;
  std::string_view rest;  // empty at the last step
};
ArrayPathStep FirstArrayPathStep(std::string_view array_path);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_COUNT_RULES_H_
