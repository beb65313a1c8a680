// The generic halves of every record conversion: one encoder and one decoder
// that handle each kind of record field (scalar, frame-summary kind, nested
// record, fixed array of any of these, the 2-D flag matrix). The per-record
// conversions are these two applied to each entry of the record's field list.
#ifndef PROTOMSG_INTERNAL_FIELD_CODEC_H_
#define PROTOMSG_INTERNAL_FIELD_CODEC_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "protomsg/record_conversions.h"

namespace protomsg::internal {

template <typename T>
inline constexpr bool kIsFrameSummary =
    std::is_same_v<T, qawb::QAWBFrameSummaryType>;

// Number of scalar or record elements in a (possibly multi-dimensional) array.
template <typename Array>
inline constexpr std::size_t kFlatCapacity =
    sizeof(Array) / sizeof(std::remove_all_extents_t<Array>);

// Record scalar to message scalar: integers sign- or zero-extend to 32 bits
// according to their own type; a bool is read as its stored byte. Taken by
// reference so that such a bool is never copied as a bool.
template <typename T>
auto WidenScalar(const T& value) {
  if constexpr (std::is_same_v<T, float>) {
    return value;
  } else if constexpr (std::is_same_v<T, bool>) {
    return qawb::StoredByte(value) != 0;
  } else {
    return static_cast<std::int32_t>(value);
  }
}

// Message scalar to record scalar: keeps the low bits of narrower integers.
template <typename T, typename MessageValue>
T NarrowScalar(MessageValue value) {
  return static_cast<T>(value);
}

// Calls `fn` on every innermost element of `array`, row after row.
template <typename Array, typename Fn>
void ForEachFlat(Array& array, Fn&& fn) {
  for (auto& element : array) {
    if constexpr (std::is_array_v<std::remove_reference_t<decltype(element)>>) {
      ForEachFlat(element, fn);
    } else {
      fn(element);
    }
  }
}

// Record array element to message element.
template <typename Element>
auto ToMessageElement(const Element& element) {
  if constexpr (kIsFrameSummary<Element>) {
    return static_cast<int>(ConvertToMessage(element));
  } else {
    return WidenScalar(element);
  }
}

// Writes one record field into its message field. `set` and `mutable_field`
// are generic accessors of the like-named message field; only the one that
// fits the field's kind is ever instantiated.
template <typename Field, typename Message, typename Set, typename Mutable>
void EncodeField(const Field& field, Message& message, Set set,
                 Mutable mutable_field) {
  if constexpr (std::is_array_v<Field>) {
    using Element = std::remove_all_extents_t<Field>;
    constexpr int kCapacity = static_cast<int>(kFlatCapacity<Field>);
    auto& repeated = *mutable_field(message);
    repeated.Reserve(repeated.size() + kCapacity);
    if constexpr (std::is_class_v<Element>) {
      for (const Element& element : field) {
        ConvertToMessage(element, *repeated.Add());
      }
    } else {
      // One call for the whole array: the protobuf runtime's per-element
      // calls are not inlined and would dominate.
      auto* out = repeated.AddNAlreadyReserved(kCapacity);
      ForEachFlat(field, [&](const Element& element) {
        *out++ = ToMessageElement(element);
      });
    }
  } else if constexpr (kIsFrameSummary<Field>) {
    set(message, ConvertToMessage(field));
  } else if constexpr (std::is_arithmetic_v<Field>) {
    set(message, WidenScalar(field));
  } else {
    ConvertToMessage(field, *mutable_field(message));
  }
}

template <typename Element, typename MessageValue>
void DecodeElement(const MessageValue& value, Element& element) {
  if constexpr (kIsFrameSummary<Element>) {
    element =
        ConvertToStruct(static_cast<qawb::tuning::QAWBFrameSummaryType>(value));
  } else if constexpr (std::is_arithmetic_v<Element>) {
    element = NarrowScalar<Element>(value);
  } else {
    ConvertToStruct(value, element);
  }
}

// Stores one message field (as returned by its getter) into its record
// field. Arrays take min(message elements, capacity) elements, flattened row
// after row; the elements past that keep their contents.
template <typename MessageValue, typename Field>
void DecodeField(const MessageValue& value, Field& field) {
  if constexpr (std::is_array_v<Field>) {
    const int count =
        std::min(value.size(), static_cast<int>(kFlatCapacity<Field>));
    if constexpr (std::is_class_v<std::remove_all_extents_t<Field>>) {
      for (int i = 0; i < count; ++i) DecodeElement(value.Get(i), field[i]);
    } else {
      // Scalars are read from the field's storage, as EncodeField writes it.
      const auto* in = value.data();
      if constexpr (std::rank_v<Field> == 1) {
        for (int i = 0; i < count; ++i) DecodeElement(in[i], field[i]);
      } else {
        int i = 0;
        ForEachFlat(field, [&](auto& element) {
          if (i < count) DecodeElement(in[i], element);
          ++i;
        });
      }
    }
  } else {
    DecodeElement(value, field);
  }
}

}  // namespace protomsg::internal

// Field-list entries for the two directions. The accessors take the message
// as `auto&` so that a field's unused accessors are never instantiated.
#define PROTOMSG_INTERNAL_ENCODE_FIELD(f)                       \
  ::protomsg::internal::EncodeField(                            \
      record.f, message, [](auto& m, auto v) { m.set_##f(v); }, \
      [](auto& m) { return m.mutable_##f(); });
#define PROTOMSG_INTERNAL_DECODE_FIELD(f) \
  ::protomsg::internal::DecodeField(message.f(), record.f);

// Defines the conversion pair of one record from its field list.
#define PROTOMSG_DEFINE_CONVERSIONS(Record, Message, FIELDS)   \
  void ConvertToMessage(const ::qawb::Record& record,          \
                        ::qawb::tuning::Message& message) {    \
    FIELDS(PROTOMSG_INTERNAL_ENCODE_FIELD)                     \
  }                                                            \
  void ConvertToStruct(const ::qawb::tuning::Message& message, \
                       ::qawb::Record& record) {               \
    FIELDS(PROTOMSG_INTERNAL_DECODE_FIELD)                     \
  }

#endif  // PROTOMSG_INTERNAL_FIELD_CODEC_H_
