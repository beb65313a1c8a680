// What the wire encoder and decoder of the AWB records agree on: how each
// kind of record field appears in the protobuf wire format of its message.
//
// A record's field list is in field-number order, so field k of the list
// (from 0) has number k + 1. Scalars map by record type: float is a proto
// float (fixed32), the frame-summary kind an enum (varint of the converted
// value), bool a bool (varint 0/1), every other integer an sint32 (zigzag
// varint after widening to 32 bits). A nested record is a length-delimited
// sub-message; an array of scalars one packed field; an array of records one
// length-delimited element each.
#ifndef PROTOMSG_INTERNAL_WIRE_FORMAT_H_
#define PROTOMSG_INTERNAL_WIRE_FORMAT_H_

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "awb_records/record_description.h"
#include "protomsg/internal/field_codec.h"

namespace protomsg::internal {

enum WireType : std::uint32_t {
  kVarint = 0,
  kFixed64 = 1,
  kLengthDelimited = 2,
  kStartGroup = 3,
  kEndGroup = 4,
  kFixed32 = 5,
};

// The longest varint protobuf reads: 64 bits in 7-bit groups.
inline constexpr int kMaxVarintBytes = 10;

// Wire type of one scalar element (a singular field or an unpacked element).
template <typename Scalar>
inline constexpr WireType kScalarWireType =
    std::is_same_v<Scalar, float> ? kFixed32 : kVarint;

template <typename Field>
inline constexpr WireType kFieldWireType =
    std::is_arithmetic_v<Field> || kIsFrameSummary<Field>
        ? kScalarWireType<Field>
        : kLengthDelimited;

inline constexpr std::uint32_t MakeTag(std::uint32_t number, WireType type) {
  return number << 3 | type;
}

inline constexpr std::uint32_t ZigZagEncode(std::int32_t value) {
  return (static_cast<std::uint32_t>(value) << 1) ^
         static_cast<std::uint32_t>(value >> 31);
}

inline constexpr std::int32_t ZigZagDecode(std::uint32_t value) {
  return static_cast<std::int32_t>((value >> 1) ^ (0u - (value & 1)));
}

inline constexpr std::size_t VarintSize(std::uint64_t value) {
  std::size_t size = 1;
  while (value >= 0x80) {
    value >>= 7;
    ++size;
  }
  return size;
}

// Element `index` of a possibly multi-dimensional array, counted row after
// row as the conversions flatten it.
template <typename Array>
auto& FlatAt(Array& array, std::size_t index) {
  using Row = std::remove_extent_t<Array>;
  if constexpr (std::is_array_v<Row>) {
    constexpr std::size_t kRowSize = kFlatCapacity<Row>;
    return FlatAt(array[index / kRowSize], index % kRowSize);
  } else {
    return array[index];
  }
}

}  // namespace protomsg::internal

#endif  // PROTOMSG_INTERNAL_WIRE_FORMAT_H_
