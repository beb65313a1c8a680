// Differential fuzzing of the AWB records' wire codec against protobuf. The
// first input byte picks the record (0 to 3: the four tables, as in the
// binary tuning file seeds; then every record type), the rest is wire
// bytes. The decoder must accept exactly what protobuf's parser accepts and
// leave the record exactly as ConvertToStruct of the parsed message does;
// the encoder must write what SerializeToString writes for the decoded
// record's converted message, in the form the decoder takes directly.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "fuzz/fuzz_support.h"
#include "fuzz/record_type_dispatch.h"
#include "protomsg/internal/wire_decoder.h"
#include "protomsg/internal/wire_encoder.h"
#include "protomsg/record_conversions.h"
#include "tests/support/file_bytes.h"

namespace {

using q3a_fuzz::Check;
using q3a_test::SameBytes;

// What every decode starts from: no zero anywhere, so that a field the
// decoder forgets to reset or an array element it should keep shows.
template <typename Record>
const Record& Start() {
  static const Record* const start = [] {
    auto* record = new Record;
    std::memset(static_cast<void*>(record), 0x01, sizeof(Record));
    return record;
  }();
  return *start;
}

template <typename Record>
struct RecordCheck {
  static void Run(std::string_view bytes) {
    using Message = typename protomsg::internal::MessageFor<Record>::type;
    auto decoded = std::make_unique<Record>(Start<Record>());
    auto expected = std::make_unique<Record>(Start<Record>());
    const bool ok = protomsg::internal::DecodeRecord(bytes, *decoded);
    Message parsed;
    const bool parsed_ok =
        parsed.ParseFromArray(bytes.data(), static_cast<int>(bytes.size()));
    if (parsed_ok) protomsg::ConvertToStruct(parsed, *expected);
    Check(ok == parsed_ok, "decoder and protobuf disagree on acceptance");
    Check(SameBytes(*decoded, *expected), "decoded record differs");
    if (!ok) return;

    const std::string encoded = protomsg::internal::EncodeRecord(*decoded);
    Message converted;
    protomsg::ConvertToMessage(*decoded, converted);
    Check(encoded == converted.SerializeAsString(),
          "encoder differs from SerializeToString");

    auto again = std::make_unique<Record>(Start<Record>());
    Check(protomsg::internal::DecodeCanonicalRecord(encoded, *again),
          "encoder output is not canonical");
    auto reference = std::make_unique<Record>(Start<Record>());
    protomsg::ConvertToStruct(converted, *reference);
    Check(SameBytes(*again, *reference), "encoded record decodes differently");
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  q3a_fuzz::RunSelectedRecordCheck<RecordCheck>(data, size);
  return 0;
}
