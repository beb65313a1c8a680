// A walk over every scalar of a record through its field lists and arrays,
// for tests and fuzz targets that set each value by its type.
#ifndef TESTS_SUPPORT_RECORD_LEAVES_H_
#define TESTS_SUPPORT_RECORD_LEAVES_H_

#include <type_traits>

#include "awb_records/record_description.h"

namespace q3a_test {

// Calls `leaf(scalar)` for every scalar below `field`, in layout order.
template <typename T, typename Leaf>
void ForEachLeaf(T& field, Leaf&& leaf) {
  if constexpr (std::is_array_v<T>) {
    for (auto& element : field) ForEachLeaf(element, leaf);
  } else if constexpr (qawb::DescribedRecord<T>) {
    ForEachField(field,
                 [&](const char*, auto& member) { ForEachLeaf(member, leaf); });
  } else {
    leaf(field);
  }
}

}  // namespace q3a_test

#endif  // TESTS_SUPPORT_RECORD_LEAVES_H_
