// Encodes an AWB record straight into the protobuf wire format of its
// message, without building the message: EncodeRecord(record) is byte for
// byte what SerializeToString gives for the message that ConvertToMessage
// fills from `record`.
//
// Proto3 serialisation of such a message, field by field in number order:
// scalars are left out when zero (floats when their bits are zero, so -0.0f
// is written), every sub-message is present (ConvertToMessage creates them
// all) even when empty, and every array appears at full capacity, scalars
// packed. A sub-message's length precedes it, so encoding takes two passes:
// the first computes every sub-message's size (and every packed varint
// field's payload size) in pre-order, the second writes.
#ifndef PROTOMSG_INTERNAL_WIRE_ENCODER_H_
#define PROTOMSG_INTERNAL_WIRE_ENCODER_H_

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

#include "awb_records/record_description.h"
#include "protomsg/internal/field_codec.h"
#include "protomsg/internal/wire_format.h"
#include "protomsg/record_conversions.h"

namespace protomsg::internal {

static_assert(std::endian::native == std::endian::little,
              "fixed32 fields are copied as host bytes");

// The varint that scalar `value` takes on the wire (not for floats).
template <typename Scalar>
std::uint64_t VarintOf(const Scalar& value) {
  if constexpr (kIsFrameSummary<Scalar>) {
    // An enum is an int32: negative values would take ten bytes.
    return static_cast<std::uint64_t>(
        static_cast<std::int64_t>(ConvertToMessage(value)));
  } else if constexpr (std::is_same_v<Scalar, bool>) {
    // Read as a byte: a raw byte other than 0 or 1 is true, not UB.
    return qawb::StoredByte(value) != 0 ? 1 : 0;
  } else {
    return ZigZagEncode(WidenScalar(value));
  }
}

// Whether the packed payload of an array of `Scalar` needs computing: bools
// and frame-summary kinds are one byte each, floats four.
template <typename Scalar>
inline constexpr bool kHasVariablePayload =
    !std::is_same_v<Scalar, float> && !std::is_same_v<Scalar, bool> &&
    !kIsFrameSummary<Scalar>;

// Sizes the first pass records for `Record`: one per sub-message (at any
// depth) and one per packed varint array. Data-independent, since every
// array is written whole.
template <typename Record>
constexpr std::size_t SizeSlotCount() {
  std::size_t count = 0;
  Record record{};
  ForEachField(record, [&](const char*, const auto& field) {
    using Field = std::remove_cvref_t<decltype(field)>;
    using Element = std::remove_all_extents_t<Field>;
    if constexpr (qawb::DescribedRecord<Element>) {
      count += kFlatCapacity<Field> * (1 + SizeSlotCount<Element>());
    } else if constexpr (std::is_array_v<Field> &&
                         kHasVariablePayload<Element>) {
      ++count;
    }
  });
  return count;
}

// First pass: the encoded size of a record, storing the nested sizes in
// pre-order into `slots`.
class RecordSizer {
 public:
  explicit RecordSizer(std::uint32_t* slots) : slots_(slots) {}

  template <typename Record>
  std::size_t RecordSize(const Record& record) {
    std::size_t size = 0;
    std::uint32_t number = 0;
    ForEachField(record, [&](const char*, const auto& field) {
      size += FieldSize(++number, field);
    });
    return size;
  }

 private:
  template <typename Record>
  std::size_t NestedSize(std::uint32_t number, const Record& record) {
    std::uint32_t* slot = slots_++;
    const std::size_t size = RecordSize(record);
    *slot = static_cast<std::uint32_t>(size);
    return VarintSize(MakeTag(number, kLengthDelimited)) + VarintSize(size) +
           size;
  }

  template <typename Field>
  std::size_t FieldSize(std::uint32_t number, const Field& field) {
    const std::size_t tag_size =
        VarintSize(MakeTag(number, kFieldWireType<Field>));
    if constexpr (std::is_array_v<Field>) {
      using Element = std::remove_all_extents_t<Field>;
      if constexpr (qawb::DescribedRecord<Element>) {
        std::size_t size = 0;
        ForEachFlat(field, [&](const Element& element) {
          size += NestedSize(number, element);
        });
        return size;
      } else {
        std::size_t payload = kFlatCapacity<Field>;
        if constexpr (std::is_same_v<Element, float>) {
          payload *= sizeof(float);
        } else if constexpr (kHasVariablePayload<Element>) {
          payload = 0;
          ForEachFlat(field, [&](const Element& element) {
            payload += VarintSize(VarintOf(element));
          });
          *slots_++ = static_cast<std::uint32_t>(payload);
        }
        return tag_size + VarintSize(payload) + payload;
      }
    } else if constexpr (qawb::DescribedRecord<Field>) {
      return NestedSize(number, field);
    } else if constexpr (std::is_same_v<Field, float>) {
      return std::bit_cast<std::uint32_t>(field) != 0 ? tag_size + 4 : 0;
    } else {
      const std::uint64_t value = VarintOf(field);
      return value != 0 ? tag_size + VarintSize(value) : 0;
    }
  }

  std::uint32_t* slots_;
};

// Second pass: writes a record whose sizes RecordSizer stored in `slots`.
class RecordWriter {
 public:
  RecordWriter(std::uint8_t* out, const std::uint32_t* slots)
      : out_(out), slots_(slots) {}

  template <typename Record>
  void WriteRecord(const Record& record) {
    std::uint32_t number = 0;
    ForEachField(record, [&](const char*, const auto& field) {
      WriteField(++number, field);
    });
  }

 private:
  void WriteVarint(std::uint64_t value) {
    while (value >= 0x80) {
      *out_++ = static_cast<std::uint8_t>(value | 0x80);
      value >>= 7;
    }
    *out_++ = static_cast<std::uint8_t>(value);
  }

  void WriteFloat(float value) {
    std::memcpy(out_, &value, sizeof(value));
    out_ += sizeof(value);
  }

  template <typename Record>
  void WriteNested(std::uint32_t number, const Record& record) {
    WriteVarint(MakeTag(number, kLengthDelimited));
    WriteVarint(*slots_++);
    WriteRecord(record);
  }

  template <typename Field>
  void WriteField(std::uint32_t number, const Field& field) {
    if constexpr (std::is_array_v<Field>) {
      using Element = std::remove_all_extents_t<Field>;
      if constexpr (qawb::DescribedRecord<Element>) {
        ForEachFlat(field, [&](const Element& element) {
          WriteNested(number, element);
        });
      } else {
        WriteVarint(MakeTag(number, kLengthDelimited));
        if constexpr (std::is_same_v<Element, float>) {
          WriteVarint(kFlatCapacity<Field> * sizeof(float));
          ForEachFlat(field, [&](float element) { WriteFloat(element); });
        } else {
          WriteVarint(kHasVariablePayload<Element> ? *slots_++
                                                   : kFlatCapacity<Field>);
          ForEachFlat(field, [&](const Element& element) {
            WriteVarint(VarintOf(element));
          });
        }
      }
    } else if constexpr (qawb::DescribedRecord<Field>) {
      WriteNested(number, field);
    } else if constexpr (std::is_same_v<Field, float>) {
      if (std::bit_cast<std::uint32_t>(field) == 0) return;
      WriteVarint(MakeTag(number, kFixed32));
      WriteFloat(field);
    } else {
      const std::uint64_t value = VarintOf(field);
      if (value == 0) return;
      WriteVarint(MakeTag(number, kVarint));
      WriteVarint(value);
    }
  }

  std::uint8_t* out_;
  const std::uint32_t* slots_;
};

// The wire format of the message ConvertToMessage(record, fresh message)
// would give, byte for byte as SerializeToString writes it. Never fails.
template <typename Record>
std::string EncodeRecord(const Record& record) {
  static constexpr std::size_t kSlots = SizeSlotCount<Record>();
  std::vector<std::uint32_t> slots(kSlots);
  const std::size_t size = RecordSizer(slots.data()).RecordSize(record);
  std::string bytes(size, '\0');
  RecordWriter(reinterpret_cast<std::uint8_t*>(bytes.data()), slots.data())
      .WriteRecord(record);
  return bytes;
}

}  // namespace protomsg::internal

#endif  // PROTOMSG_INTERNAL_WIRE_ENCODER_H_
