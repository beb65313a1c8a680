// What a record can hold of each message field: the capacity of arrays and
// the range of integers narrower than the message's 32 bits. Derived from the
// records' field lists, so it cannot drift from the layouts.
#ifndef TOOLS_Q3A_TUNING_IO_FIELD_LIMITS_H_
#define TOOLS_Q3A_TUNING_IO_FIELD_LIMITS_H_

#include <cstdint>
#include <string_view>

namespace q3a_tool {

struct FieldLimit {
  // Elements of the record's array (rows times columns for the flag
  // matrix); 0 for a field that is not an array.
  int capacity = 0;
  // Set for integers narrower than 32 bits: the record keeps the low bits.
  bool narrow = false;
  std::int64_t min = 0;
  std::int64_t max = 0;
  const char* type_name = "";
  // The value a narrow field stores for a message value.
  std::int64_t (*stored)(std::int64_t) = nullptr;
};

// The limit of field `field` of message `message` (the schema's names), or
// null if no record carries such a field.
const FieldLimit* FindFieldLimit(std::string_view message,
                                 std::string_view field);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_FIELD_LIMITS_H_
