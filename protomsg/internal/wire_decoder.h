// Decodes the protobuf wire format of an AWB record's message straight into
// the record: DecodeRecord(bytes, record) has exactly the result and effect
// of parsing `bytes` into a fresh message and, if that succeeds, calling
// ConvertToStruct(message, record).
//
// The bytes our writers and protobuf's JSON transcoder produce are in one
// canonical form: fields in increasing number order, each singular field and
// each packed array at most once, the elements of a repeated sub-message
// consecutive, no unknown fields, minimal varints and lengths within bounds.
// That form is decoded directly; anything else (merged duplicates, unpacked
// arrays, unknown fields, malformed input, more elements than the record
// holds) falls back to protobuf's parser, the only authority on what it
// accepts. Either way `record` changes only when the result is true.
#ifndef PROTOMSG_INTERNAL_WIRE_DECODER_H_
#define PROTOMSG_INTERNAL_WIRE_DECODER_H_

#include <algorithm>
#include <bit>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <type_traits>

#include "awb_records/record_description.h"
#include "protomsg/internal/field_codec.h"
#include "protomsg/internal/message_for.h"
#include "protomsg/internal/wire_format.h"
#include "protomsg/record_conversions.h"

namespace protomsg::internal {

static_assert(std::endian::native == std::endian::little,
              "fixed32 fields are copied as host bytes");

// The canonical-form decoder. Every function returns false as soon as the
// input leaves the canonical form; the record is then partly written and
// must be discarded.
class CanonicalReader {
 public:
  // Decodes the fields of `record` from [p, end) and requires them to use
  // the range up exactly.
  template <typename Record>
  static bool ReadRecord(const std::uint8_t* p, const std::uint8_t* end,
                         Record& record) {
    bool ok = true;
    std::uint32_t number = 0;
    ForEachField(record, [&](const char*, auto& field) {
      // After a failure the rest of the input is dropped, so the fields
      // that follow read as absent.
      if (!ReadField(p, end, ++number, field)) {
        ok = false;
        p = end;
      }
    });
    return ok && p == end;
  }

 private:
  // Reads a minimal varint of at most `max_bytes` bytes; null if there is
  // none. Overlong forms and a tenth byte above 1 count as malformed here,
  // whatever protobuf would make of them.
  static const std::uint8_t* ReadVarint(const std::uint8_t* p,
                                        const std::uint8_t* end,
                                        std::uint64_t& value, int max_bytes) {
    if (p != end && *p < 0x80) {
      value = *p;
      return p + 1;
    }
    std::uint64_t result = 0;
    for (int i = 0; i < max_bytes && p != end; ++i) {
      const std::uint8_t byte = *p++;
      result |= static_cast<std::uint64_t>(byte & 0x7F) << (7 * i);
      if (byte < 0x80) {
        if (byte == 0 || (i == kMaxVarintBytes - 1 && byte > 1)) return nullptr;
        value = result;
        return p;
      }
    }
    return nullptr;
  }

  enum class Next { kThisField, kLaterField, kNonCanonical };

  // Whether field `number` of wire type `type` starts at `p` (then `p`
  // moves past its tag), or the next field present is a later one.
  static Next PeekField(const std::uint8_t*& p, const std::uint8_t* end,
                        std::uint32_t number, WireType type) {
    if (p == end) return Next::kLaterField;
    std::uint64_t tag;
    const std::uint8_t* value = ReadVarint(p, end, tag, 5);
    if (value == nullptr || tag > UINT32_MAX) return Next::kNonCanonical;
    const std::uint64_t found = tag >> 3;
    if (found > number) return Next::kLaterField;
    if (found < number || (tag & 7) != type) return Next::kNonCanonical;
    p = value;
    return Next::kThisField;
  }

  // Reads a length prefix and sets `limit` to the end of what it covers.
  static bool ReadLength(const std::uint8_t*& p, const std::uint8_t* end,
                         const std::uint8_t*& limit) {
    std::uint64_t length;
    const std::uint8_t* start = ReadVarint(p, end, length, 5);
    if (start == nullptr || length > static_cast<std::uint64_t>(end - start)) {
      return false;
    }
    p = start;
    limit = start + length;
    return true;
  }

  // Stores a varint as ConvertToStruct stores the message value protobuf
  // parses from it.
  template <typename Scalar>
  static void StoreVarint(std::uint64_t value, Scalar& scalar) {
    if constexpr (kIsFrameSummary<Scalar>) {
      scalar = ConvertToStruct(static_cast<qawb::tuning::QAWBFrameSummaryType>(
          static_cast<std::int32_t>(value)));
    } else if constexpr (std::is_same_v<Scalar, bool>) {
      scalar = value != 0;
    } else {
      scalar =
          NarrowScalar<Scalar>(ZigZagDecode(static_cast<std::uint32_t>(value)));
    }
  }

  template <typename Record>
  static bool ReadNested(const std::uint8_t*& p, const std::uint8_t* end,
                         Record& record) {
    const std::uint8_t* limit;
    if (!ReadLength(p, end, limit) || !ReadRecord(p, limit, record)) {
      return false;
    }
    p = limit;
    return true;
  }

  template <typename Array>
  static bool ReadPacked(const std::uint8_t*& p, const std::uint8_t* end,
                         Array& array) {
    using Element = std::remove_all_extents_t<Array>;
    constexpr std::size_t kCapacity = kFlatCapacity<Array>;
    const std::uint8_t* limit;
    if (!ReadLength(p, end, limit)) return false;
    std::size_t count = 0;
    if constexpr (std::is_same_v<Element, float>) {
      const auto length = static_cast<std::size_t>(limit - p);
      if (length % sizeof(float) != 0) return false;
      count = std::min(length / sizeof(float), kCapacity);
      std::memcpy(&FlatAt(array, 0), p, count * sizeof(float));
    } else {
      for (const std::uint8_t* q = p; q != limit; ++count) {
        std::uint64_t value;
        q = ReadVarint(q, limit, value, kMaxVarintBytes);
        if (q == nullptr) return false;
        if (count < kCapacity) StoreVarint(value, FlatAt(array, count));
      }
    }
    p = limit;
    return true;
  }

  template <typename Field>
  static bool ReadField(const std::uint8_t*& p, const std::uint8_t* end,
                        std::uint32_t number, Field& field) {
    using Element = std::remove_all_extents_t<Field>;
    if constexpr (std::is_array_v<Field> && qawb::DescribedRecord<Element>) {
      return ReadRepeatedNested(p, end, number, field);
    } else {
      return ReadSingleOrPacked(p, end, number, field);
    }
  }

  // One length-delimited element each; any beyond the capacity go to
  // protobuf, which alone decides whether they are valid.
  template <typename Array>
  static bool ReadRepeatedNested(const std::uint8_t*& p,
                                 const std::uint8_t* end, std::uint32_t number,
                                 Array& array) {
    for (std::size_t i = 0;; ++i) {
      const Next next = PeekField(p, end, number, kLengthDelimited);
      if (next != Next::kThisField) return next == Next::kLaterField;
      if (i == kFlatCapacity<Array> || !ReadNested(p, end, FlatAt(array, i))) {
        return false;
      }
    }
  }

  template <typename Field>
  static bool ReadSingleOrPacked(const std::uint8_t*& p,
                                 const std::uint8_t* end, std::uint32_t number,
                                 Field& field) {
    const Next next = PeekField(p, end, number, kFieldWireType<Field>);
    if (next == Next::kNonCanonical) return false;
    const bool present = next == Next::kThisField;
    if constexpr (std::is_array_v<Field>) {
      return !present || ReadPacked(p, end, field);
    } else if constexpr (qawb::DescribedRecord<Field>) {
      // An absent sub-message reads as the empty one.
      return present ? ReadNested(p, end, field)
                     : ReadRecord(nullptr, nullptr, field);
    } else if constexpr (std::is_same_v<Field, float>) {
      if (!present) {
        field = 0.0f;
      } else {
        if (end - p < static_cast<std::ptrdiff_t>(sizeof(float))) return false;
        std::memcpy(&field, p, sizeof(float));
        p += sizeof(float);
      }
      return true;
    } else {
      std::uint64_t value = 0;
      if (present) {
        p = ReadVarint(p, end, value, kMaxVarintBytes);
        if (p == nullptr) return false;
      }
      StoreVarint(value, field);
      return true;
    }
  }
};

// The fast path alone: decodes `bytes` into `record` if they are in the
// canonical form, else returns false and leaves `record` as it was.
template <typename Record>
bool DecodeCanonicalRecord(std::string_view bytes, Record& record) {
  const auto* begin = reinterpret_cast<const std::uint8_t*>(bytes.data());
  // Whole tables are tens of kilobytes: too much for some threads' stacks.
  if constexpr (sizeof(Record) > 1024) {
    auto scratch = std::make_unique<Record>(record);
    if (!CanonicalReader::ReadRecord(begin, begin + bytes.size(), *scratch)) {
      return false;
    }
    record = *scratch;
  } else {
    Record scratch = record;
    if (!CanonicalReader::ReadRecord(begin, begin + bytes.size(), scratch)) {
      return false;
    }
    record = scratch;
  }
  return true;
}

// Protobuf parse of `bytes` into a fresh message, then ConvertToStruct into
// `record` if the parse succeeded. Input of 2 GiB or more is refused.
template <typename Record>
bool DecodeRecord(std::string_view bytes, Record& record) {
  if (bytes.size() > static_cast<std::size_t>(INT_MAX)) return false;
  if (DecodeCanonicalRecord(bytes, record)) return true;
  typename MessageFor<Record>::type message;
  if (!message.ParseFromArray(bytes.data(), static_cast<int>(bytes.size()))) {
    return false;
  }
  ConvertToStruct(message, record);
  return true;
}

}  // namespace protomsg::internal

#endif  // PROTOMSG_INTERNAL_WIRE_DECODER_H_
