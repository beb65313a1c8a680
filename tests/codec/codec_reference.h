// What the wire codec is held to: protobuf's own serialisation of the
// converted message and protobuf's parse followed by ConvertToStruct. Also
// records with values at the edges of what the encoding distinguishes.
#ifndef TESTS_CODEC_CODEC_REFERENCE_H_
#define TESTS_CODEC_CODEC_REFERENCE_H_

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>

#include "protomsg/record_conversions.h"
#include "tests/support/record_pairs.h"
#include "tests/support/record_values.h"

namespace q3a_test {

template <typename Record>
std::string ReferenceEncode(const Record& record) {
  typename MessageOf<Record>::type message;
  protomsg::ConvertToMessage(record, message);
  std::string bytes;
  message.SerializeToString(&bytes);
  return bytes;
}

// Protobuf parse into a fresh message, then ConvertToStruct into `record`
// only if the parse succeeded.
template <typename Record>
bool ReferenceDecode(const std::string& bytes, Record& record) {
  typename MessageOf<Record>::type message;
  if (!message.ParseFromString(bytes)) return false;
  protomsg::ConvertToStruct(message, record);
  return true;
}

// Fills every scalar with values the encoding must tell apart from the
// ordinary ones: signed zero, NaNs with payloads, infinities, integer
// limits of the field's own width, frame-summary kinds outside 0..9 and
// bool bytes other than 0 and 1. `phase` rotates which value each field
// gets, so different phases put different values in the same field.
class EdgeValues {
 public:
  explicit EdgeValues(int phase) : next_(phase) {}

  template <typename T>
  void Fill(T& field) {
    const unsigned pick = next_++;
    if constexpr (std::is_array_v<T>) {
      for (auto& element : field) Fill(element);
    } else if constexpr (qawb::DescribedRecord<T>) {
      ForEachField(field, [&](const char*, auto& member) { Fill(member); });
    } else if constexpr (std::is_same_v<T, qawb::QAWBFrameSummaryType>) {
      constexpr std::int32_t kKinds[] = {-1,        10,        9, 0,
                                         INT32_MIN, INT32_MAX, -2};
      field = static_cast<T>(kKinds[pick % std::size(kKinds)]);
    } else if constexpr (std::is_same_v<T, bool>) {
      constexpr std::uint8_t kBytes[] = {0, 1, 2, 0xFF, 0x80};
      std::memcpy(&field, &kBytes[pick % std::size(kBytes)], 1);
    } else if constexpr (std::is_floating_point_v<T>) {
      constexpr std::uint32_t kBits[] = {
          0x80000000u,  // -0.0f
          0x7FC00001u,  // quiet NaN with payload
          0xFFA00005u,  // negative signalling NaN with payload
          0x7F800000u,  // infinity
          0x00000001u,  // smallest denormal
          0x00000000u,  // +0.0f, left out on the wire
      };
      std::memcpy(&field, &kBits[pick % std::size(kBits)], sizeof(T));
    } else {
      using Limits = std::numeric_limits<T>;
      const T kValues[] = {Limits::min(), Limits::max(), T(-1), T(0), T(1)};
      field = kValues[pick % std::size(kValues)];
    }
  }

 private:
  unsigned next_;
};

template <typename Record>
std::unique_ptr<Record> MakeEdgeRecord(int phase) {
  auto record = std::make_unique<Record>();
  std::memset(static_cast<void*>(record.get()), 0, sizeof(Record));
  EdgeValues(phase).Fill(*record);
  return record;
}

}  // namespace q3a_test

#endif  // TESTS_CODEC_CODEC_REFERENCE_H_
