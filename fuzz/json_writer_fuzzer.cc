// Differential fuzzing of the JSON printer against protobuf's. The first
// input byte picks the record type; the rest, repeated to the record's size,
// are its bytes, so floats take any bit pattern (NaNs, infinities, subnormals,
// -0) and bools and frame-summary kinds any byte. The printed text must be byte
// for byte what MessageToJsonString gives for the record's converted message,
// and the direct reader must take it back (unless it holds a non-finite float,
// which it leaves to protobuf) exactly as protobuf reads it.
#include <google/protobuf/util/json_util.h>
#include <simdjson.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "fuzz/fuzz_support.h"
#include "fuzz/record_type_dispatch.h"
#include "protomsg/internal/json_options.h"
#include "protomsg/internal/json_reader.h"
#include "protomsg/internal/json_writer.h"
#include "protomsg/internal/message_for.h"
#include "protomsg/record_conversions.h"
#include "tests/support/file_bytes.h"

namespace {

using q3a_fuzz::Check;

template <typename Record>
struct RecordCheck {
  static void Run(std::string_view bytes) {
    using Message = typename protomsg::internal::MessageFor<Record>::type;
    auto record = std::make_unique<Record>();
    auto* raw = reinterpret_cast<unsigned char*>(record.get());
    for (std::size_t i = 0; i < sizeof(Record); ++i) {
      raw[i] = bytes.empty()
                   ? 0
                   : static_cast<unsigned char>(bytes[i % bytes.size()]);
    }

    std::string text;
    protomsg::internal::PrintJson(*record, text);
    Message message;
    protomsg::ConvertToMessage(*record, message);
    std::string expected;
    (void)google::protobuf::util::MessageToJsonString(
        message, &expected, protomsg::internal::TuningFilePrintOptions());
    Check(text == expected, "printed text differs from MessageToJsonString");

    const bool finite = text.find("NaN") == std::string::npos &&
                        text.find("Infinity") == std::string::npos;
    static simdjson::ondemand::parser parser;
    const simdjson::padded_string padded(text);
    auto direct = std::make_unique<Record>(*record);
    const bool fast =
        protomsg::internal::ReadCanonicalJson(parser, padded, *direct);
    Check(fast || !finite, "the direct reader leaves the printer's text");
    if (!fast) return;
    Message parsed;
    Check(google::protobuf::util::JsonStringToMessage(
              text, &parsed, protomsg::internal::TuningFileParseOptions())
              .ok(),
          "protobuf refuses the printed text");
    auto reference = std::make_unique<Record>(*record);
    protomsg::ConvertToStruct(parsed, *reference);
    Check(q3a_test::SameBytes(*direct, *reference),
          "direct read of the printed text differs from protobuf's");
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  q3a_fuzz::RunSelectedRecordCheck<RecordCheck>(data, size);
  return 0;
}
