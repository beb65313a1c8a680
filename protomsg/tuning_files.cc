#include "protomsg/tuning_files.h"

#include <google/protobuf/descriptor.h>
#include <google/protobuf/util/json_util.h>
#include <google/protobuf/util/type_resolver.h>
#include <google/protobuf/util/type_resolver_util.h>
#include <simdjson.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "protomsg/internal/json_options.h"
#include "protomsg/internal/json_reader.h"
#include "protomsg/internal/json_writer.h"
#include "protomsg/internal/wire_decoder.h"
#include "protomsg/internal/wire_encoder.h"

// The files go straight between the record and their text or wire bytes.
// JSON text the direct reader is not certain about goes to protobuf's JSON
// transcoder, which parses it to wire bytes (its message-based JSON calls
// only parse a message around those), and on to the wire decoder; a message
// tree is built only for wire bytes the decoder leaves to protobuf's parser.
namespace protomsg {
namespace {

namespace util = google::protobuf::util;
using internal::TuningFileParseOptions;

constexpr char kTypeUrlPrefix[] = "type.googleapis.com";

// The schema's types for the JSON functions, as protobuf resolves them for
// generated messages. Made once and kept for the life of the process.
util::TypeResolver* GeneratedTypeResolver() {
  static util::TypeResolver* const resolver =
      util::NewTypeResolverForDescriptorPool(
          kTypeUrlPrefix, google::protobuf::DescriptorPool::generated_pool());
  return resolver;
}

template <typename Table>
const std::string& TypeUrl() {
  static const std::string* const url = new std::string(
      std::string(kTypeUrlPrefix) + "/" +
      internal::MessageFor<Table>::type::descriptor()->full_name());
  return *url;
}

// Writes `bytes` to `path` with one write, creating or truncating the file.
// Failures are not reported.
void WriteFile(const std::string& path, const char* mode,
               const std::string& bytes) {
  std::FILE* file = std::fopen(path.c_str(), mode);
  if (file == nullptr) return;
  std::setvbuf(file, nullptr, _IONBF, 0);
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  std::fclose(file);
}

// Reads the whole content of `path` into `buffer`, followed by at least
// `padding` bytes of slack, and returns its size; nothing if it cannot be
// opened or read (a directory, say). The buffer's memory is reused. The size
// the file system reports only sizes the first read; reading goes on to the
// end of the stream, so files whose size is not known up front still read
// whole.
std::optional<std::size_t> ReadFile(const std::string& path, const char* mode,
                                    std::size_t padding, std::string& buffer) {
  std::FILE* file = std::fopen(path.c_str(), mode);
  if (file == nullptr) return std::nullopt;
  std::setvbuf(file, nullptr, _IONBF, 0);
  struct stat status;
  std::size_t expected = 0;
  if (fstat(fileno(file), &status) == 0 && status.st_size > 0) {
    expected = static_cast<std::size_t>(status.st_size);
  }
  std::size_t size = 0;
  buffer.resize(expected + 1 + padding);
  while (true) {
    const std::size_t room = buffer.size() - padding;
    size += std::fread(buffer.data() + size, 1, room - size, file);
    if (size < room) break;
    buffer.resize(2 * buffer.size());
  }
  const bool failed = std::ferror(file) != 0;
  std::fclose(file);
  if (failed) return std::nullopt;
  return size;
}

// What each thread's JSON reads reuse: simdjson's parser with its index
// buffers, and the text buffer with the padding simdjson reads past the end.
struct JsonReadBuffers {
  simdjson::ondemand::parser parser;
  std::string text;
};

JsonReadBuffers& ThreadJsonReadBuffers() {
  thread_local JsonReadBuffers buffers;
  return buffers;
}

// simdjson builds its implementation singletons on first use and registers
// their exit-time destructors then. One tiny parse while the library loads
// keeps that out of the first read, which may run on a camera thread.
[[maybe_unused]] const bool kSimdjsonReady = [] {
  simdjson::ondemand::parser parser;
  simdjson::padded_string text(std::string_view("{}"));
  auto document = parser.iterate(text);
  return document.error() == simdjson::SUCCESS;
}();

template <typename Table>
void SaveJson(const std::string& path, const Table& table) {
  std::string text;
  internal::PrintJson(table, text);
  WriteFile(path, "w", text);
}

// Protobuf's JSON parse of `text`, then the wire decoder; `table` changes
// only on success.
template <typename Table>
bool ReadJsonThroughProtobuf(std::string_view text, Table& table) {
  std::string bytes;
  if (!util::JsonToBinaryString(GeneratedTypeResolver(), TypeUrl<Table>(), text,
                                &bytes, TuningFileParseOptions())
           .ok()) {
    return false;
  }
  return internal::DecodeRecord(bytes, table);
}

template <typename Table>
void SaveProtobuf(const std::string& path, const Table& table) {
  WriteFile(path, "wb", internal::EncodeRecord(table));
}

// The direct reader decodes into a copy of `table`, which replaces `table`
// only if it succeeds; otherwise protobuf's path decides.
template <typename Table>
bool ReadJson(const std::string& path, Table& table) {
  if (path.empty()) return false;
  JsonReadBuffers& buffers = ThreadJsonReadBuffers();
  const std::optional<std::size_t> size =
      ReadFile(path, "r", simdjson::SIMDJSON_PADDING, buffers.text);
  if (!size.has_value() || *size == 0) return false;
  // The buffer still holds the end of a longer file read before; simdjson
  // may take a bracket there for the one a cut-off text lacks.
  std::memset(buffers.text.data() + *size, 0, simdjson::SIMDJSON_PADDING);
  auto scratch = std::make_unique<Table>(table);
  if (internal::ReadCanonicalJson(
          buffers.parser,
          simdjson::padded_string_view(buffers.text.data(), *size,
                                       buffers.text.size()),
          *scratch)) {
    table = *scratch;
    return true;
  }
  return ReadJsonThroughProtobuf(std::string_view(buffers.text.data(), *size),
                                 table);
}

template <typename Table>
bool ReadProtobuf(const std::string& path, Table& table) {
  if (path.empty()) return false;
  // A file that cannot be opened fails; a 0-byte file is an empty message.
  std::string bytes;
  const std::optional<std::size_t> size = ReadFile(path, "rb", 0, bytes);
  return size.has_value() &&
         internal::DecodeRecord(std::string_view(bytes.data(), *size), table);
}

}  // namespace

#define PROTOMSG_INTERNAL_DEFINE_TUNING_FILES(Id, Stem, name, load_position) \
  void SaveTuningTableWithJson(const std::string& path,                      \
                               const qawb::QAWB##Stem& table) {              \
    SaveJson(path, table);                                                   \
  }                                                                          \
  void SaveTuningTableWithProtobuf(const std::string& path,                  \
                                   const qawb::QAWB##Stem& table) {          \
    SaveProtobuf(path, table);                                               \
  }                                                                          \
  bool ReadQAWB##Stem##WithJson(const std::string& path,                     \
                                qawb::QAWB##Stem& table) {                   \
    return ReadJson(path, table);                                            \
  }                                                                          \
  bool ReadQAWB##Stem##FromProtobuf(const std::string& path,                 \
                                    qawb::QAWB##Stem& table) {               \
    return ReadProtobuf(path, table);                                        \
  }
QAWB_TUNING_TABLES(PROTOMSG_INTERNAL_DEFINE_TUNING_FILES)
#undef PROTOMSG_INTERNAL_DEFINE_TUNING_FILES

}  // namespace protomsg
