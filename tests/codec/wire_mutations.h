// Rewrites a message's canonical wire bytes into equivalent or nearly
// equivalent forms that protobuf also parses: fields in reverse order,
// packed arrays unpacked, unknown fields of every wire type inserted. The
// rewrite recurses into sub-messages through the message's descriptor.
#ifndef TESTS_CODEC_WIRE_MUTATIONS_H_
#define TESTS_CODEC_WIRE_MUTATIONS_H_

#include <google/protobuf/descriptor.h>
#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <google/protobuf/wire_format_lite.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace q3a_test {

struct WireMutation {
  bool reverse_fields = false;
  bool unpack_arrays = false;
  bool add_unknown_fields = false;
};

namespace wire_mutation_internal {

using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::internal::WireFormatLite;
namespace io = google::protobuf::io;

inline std::string Chunk(auto write) {
  std::string out;
  {
    io::StringOutputStream stream(&out);
    io::CodedOutputStream coded(&stream);
    write(coded);
  }
  return out;
}

// Reads a varint or fixed32 value from `in` and writes it again after `tag`,
// whose wire type says which.
inline std::string ScalarChunk(io::CodedInputStream& in, std::uint32_t tag) {
  const bool fixed =
      WireFormatLite::GetTagWireType(tag) == WireFormatLite::WIRETYPE_FIXED32;
  std::uint64_t varint = 0;
  std::uint32_t fixed32 = 0;
  if (fixed) {
    in.ReadLittleEndian32(&fixed32);
  } else {
    in.ReadVarint64(&varint);
  }
  return Chunk([&](io::CodedOutputStream& out) {
    out.WriteTag(tag);
    if (fixed) {
      out.WriteLittleEndian32(fixed32);
    } else {
      out.WriteVarint64(varint);
    }
  });
}

// One unknown field of each wire type, a group holding a varint among them.
inline std::string UnknownFields() {
  return Chunk([](io::CodedOutputStream& out) {
    constexpr std::uint32_t kNumber = 536870911;  // the largest field number
    out.WriteTag(
        WireFormatLite::MakeTag(kNumber, WireFormatLite::WIRETYPE_VARINT));
    out.WriteVarint64(~0ull);
    out.WriteTag(
        WireFormatLite::MakeTag(kNumber - 1, WireFormatLite::WIRETYPE_FIXED64));
    out.WriteLittleEndian64(0x0123456789ABCDEFull);
    out.WriteTag(WireFormatLite::MakeTag(
        kNumber - 2, WireFormatLite::WIRETYPE_LENGTH_DELIMITED));
    out.WriteVarint32(3);
    out.WriteString("abc");
    out.WriteTag(
        WireFormatLite::MakeTag(kNumber - 3, WireFormatLite::WIRETYPE_FIXED32));
    out.WriteLittleEndian32(7);
    out.WriteTag(WireFormatLite::MakeTag(kNumber - 4,
                                         WireFormatLite::WIRETYPE_START_GROUP));
    out.WriteTag(WireFormatLite::MakeTag(1, WireFormatLite::WIRETYPE_VARINT));
    out.WriteVarint32(5);
    out.WriteTag(WireFormatLite::MakeTag(kNumber - 4,
                                         WireFormatLite::WIRETYPE_END_GROUP));
  });
}

}  // namespace wire_mutation_internal

// `bytes` must be the canonical encoding of a message of type `type`.
inline std::string MutateWire(std::string_view bytes,
                              const google::protobuf::Descriptor& type,
                              const WireMutation& mutation) {
  using namespace wire_mutation_internal;
  io::CodedInputStream in(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                          static_cast<int>(bytes.size()));
  std::vector<std::string> chunks;
  while (const std::uint32_t tag = in.ReadTag()) {
    const FieldDescriptor& field =
        *type.FindFieldByNumber(WireFormatLite::GetTagFieldNumber(tag));
    std::string value;
    switch (WireFormatLite::GetTagWireType(tag)) {
      case WireFormatLite::WIRETYPE_VARINT:
      case WireFormatLite::WIRETYPE_FIXED32:
        chunks.push_back(ScalarChunk(in, tag));
        break;
      default: {  // length-delimited: a sub-message or a packed array
        std::uint32_t length = 0;
        in.ReadVarint32(&length);
        in.ReadString(&value, static_cast<int>(length));
        if (field.type() == FieldDescriptor::TYPE_MESSAGE) {
          value = MutateWire(value, *field.message_type(), mutation);
        } else if (mutation.unpack_arrays) {
          const std::uint32_t element_tag = WireFormatLite::MakeTag(
              field.number(), field.type() == FieldDescriptor::TYPE_FLOAT
                                  ? WireFormatLite::WIRETYPE_FIXED32
                                  : WireFormatLite::WIRETYPE_VARINT);
          io::CodedInputStream packed(
              reinterpret_cast<const std::uint8_t*>(value.data()),
              static_cast<int>(value.size()));
          std::string unpacked;
          while (packed.BytesUntilLimit() > 0 && !packed.ExpectAtEnd()) {
            unpacked += ScalarChunk(packed, element_tag);
          }
          chunks.push_back(unpacked);
          break;
        }
        chunks.push_back(Chunk([&](io::CodedOutputStream& out) {
          out.WriteTag(tag);
          out.WriteVarint32(static_cast<std::uint32_t>(value.size()));
          out.WriteString(value);
        }));
      }
    }
  }
  if (mutation.reverse_fields) std::reverse(chunks.begin(), chunks.end());
  std::string out = mutation.add_unknown_fields ? UnknownFields() : "";
  for (const std::string& chunk : chunks) {
    out += chunk;
    if (mutation.add_unknown_fields) out += UnknownFields();
  }
  return out;
}

}  // namespace q3a_test

#endif  // TESTS_CODEC_WIRE_MUTATIONS_H_
