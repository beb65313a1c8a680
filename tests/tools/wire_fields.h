// Where the top-level fields of a binary tuning file begin, read with
// protobuf's own wire reader, so tests can cut a file short exactly at a
// field boundary as a truncated copy or transfer would.
#ifndef TESTS_TOOLS_WIRE_FIELDS_H_
#define TESTS_TOOLS_WIRE_FIELDS_H_

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/wire_format_lite.h>

#include <cstddef>
#include <string_view>
#include <vector>

namespace q3a_test {

// The offset of every top-level field; empty if the bytes do not parse.
inline std::vector<std::size_t> TopLevelFieldStarts(std::string_view bytes) {
  google::protobuf::io::CodedInputStream input(
      reinterpret_cast<const std::uint8_t*>(bytes.data()),
      static_cast<int>(bytes.size()));
  std::vector<std::size_t> starts;
  while (true) {
    const std::size_t start = input.CurrentPosition();
    const std::uint32_t tag = input.ReadTag();
    if (tag == 0) break;
    starts.push_back(start);
    if (!google::protobuf::internal::WireFormatLite::SkipField(&input, tag)) {
      return {};
    }
  }
  return starts;
}

}  // namespace q3a_test

#endif  // TESTS_TOOLS_WIRE_FIELDS_H_
