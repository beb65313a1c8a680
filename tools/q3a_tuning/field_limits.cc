#include "tools/q3a_tuning/field_limits.h"

#include <limits>
#include <map>
#include <string>
#include <type_traits>

#include "awb_records/qawb_advance_tuning_table.h"
#include "awb_records/qawb_basic_tuning_table.h"
#include "awb_records/qawb_color_control_tuning_table.h"
#include "awb_records/qawb_feature_tuning_table.h"
#include "awb_records/qawb_shared_records.h"

namespace q3a_tool {
namespace {

// Keyed by "Message.field".
using LimitMap = std::map<std::string, FieldLimit, std::less<>>;

template <typename T>
constexpr const char* NarrowTypeName() {
  if constexpr (std::is_same_v<T, std::int8_t>) return "int8";
  if constexpr (std::is_same_v<T, std::uint8_t>) return "uint8";
  if constexpr (std::is_same_v<T, std::int16_t>) return "int16";
  return "uint16";
}

template <typename Field>
FieldLimit LimitOf() {
  using Element = std::remove_all_extents_t<Field>;
  FieldLimit limit;
  if constexpr (std::is_array_v<Field>) {
    limit.capacity = static_cast<int>(sizeof(Field) / sizeof(Element));
  }
  if constexpr (std::is_integral_v<Element> && !std::is_same_v<Element, bool> &&
                sizeof(Element) < 4) {
    limit.narrow = true;
    limit.min = std::numeric_limits<Element>::min();
    limit.max = std::numeric_limits<Element>::max();
    limit.type_name = NarrowTypeName<Element>();
    limit.stored = [](std::int64_t value) -> std::int64_t {
      return static_cast<Element>(value);
    };
  }
  return limit;
}

template <typename Record>
void AddRecord(const char* message, LimitMap& limits) {
  Record record{};
  ForEachField(record, [&](const char* name, const auto& field) {
    limits[std::string(message) + "." + name] =
        LimitOf<std::remove_cvref_t<decltype(field)>>();
  });
}

const LimitMap& Limits() {
  static const LimitMap* const limits = [] {
    auto* map = new LimitMap;
#define Q3A_TOOL_ADD_RECORD(Record, Message, FIELDS) \
  AddRecord<::qawb::Record>(#Message, *map);
    QAWB_SHARED_RECORDS(Q3A_TOOL_ADD_RECORD)
    QAWB_BASIC_TABLE_RECORDS(Q3A_TOOL_ADD_RECORD)
    QAWB_ADVANCE_TABLE_RECORDS(Q3A_TOOL_ADD_RECORD)
    QAWB_COLOR_CONTROL_TABLE_RECORDS(Q3A_TOOL_ADD_RECORD)
    QAWB_FEATURE_TABLE_RECORDS(Q3A_TOOL_ADD_RECORD)
#undef Q3A_TOOL_ADD_RECORD
    return map;
  }();
  return *limits;
}

}  // namespace

const FieldLimit* FindFieldLimit(std::string_view message,
                                 std::string_view field) {
  const LimitMap& limits = Limits();
  std::string key(message);
  key += '.';
  key += field;
  const auto it = limits.find(key);
  return it == limits.end() ? nullptr : &it->second;
}

}  // namespace q3a_tool
