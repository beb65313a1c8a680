// A walk over every scalar of an AWB record through the records' field
// lists, each named by its JSON path as the message carries it (the flag
// matrix as one flat list), for checks that must see every value of a table.
#ifndef TOOLS_Q3A_TUNING_IO_RECORD_WALK_H_
#define TOOLS_Q3A_TUNING_IO_RECORD_WALK_H_

#include <fmt/format.h>

#include <cstddef>
#include <string>
#include <type_traits>
#include <utility>

#include "awb_records/record_description.h"

namespace q3a_tool {

// Calls `visit(path, value)` for every scalar below `value`; `path` is the
// path of `value` itself and is restored on return.
template <typename T, typename Visit>
void ForEachScalar(const T& value, std::string& path, Visit&& visit) {
  const std::size_t size = path.size();
  if constexpr (std::is_array_v<T>) {
    using Element = std::remove_all_extents_t<T>;
    const auto* flat = reinterpret_cast<const Element*>(&value);
    for (std::size_t i = 0; i < sizeof(T) / sizeof(Element); ++i) {
      fmt::format_to(std::back_inserter(path), "[{}]", i);
      ForEachScalar(flat[i], path, visit);
      path.resize(size);
    }
  } else if constexpr (qawb::DescribedRecord<T>) {
    ForEachField(value, [&](const char* name, const auto& field) {
      if (!path.empty()) path += '.';
      path += name;
      ForEachScalar(field, path, visit);
      path.resize(size);
    });
  } else {
    visit(std::as_const(path), value);
  }
}

// The same walk from the top of a record.
template <typename Record, typename Visit>
void ForEachScalar(const Record& record, Visit&& visit) {
  std::string path;
  ForEachScalar(record, path, visit);
}

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_RECORD_WALK_H_
