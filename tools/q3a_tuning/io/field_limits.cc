#include "tools/q3a_tuning/io/field_limits.h"

#include <limits>
#include <map>
#include <string>
#include <type_traits>

#include "protomsg/internal/message_for.h"

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
void AddRecord(LimitMap& limits) {
  const std::string& message =
      protomsg::internal::MessageFor<Record>::type::descriptor()->name();
  Record record{};
  ForEachField(record, [&](const char* name, const auto& field) {
    limits[message + "." + name] =
        LimitOf<std::remove_cvref_t<decltype(field)>>();
  });
}

const LimitMap& Limits() {
  static const LimitMap* const limits = [] {
    auto* map = new LimitMap;
    qawb::ForEachType<qawb::AllRecords>(
        [&]<typename Record>() { AddRecord<Record>(*map); });
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
