#include "protomsg/tuning_files.h"

#include <fcntl.h>
#include <google/protobuf/descriptor.h>
#include <google/protobuf/io/zero_copy_stream_impl.h>
#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <google/protobuf/util/json_util.h>
#include <google/protobuf/util/type_resolver.h>
#include <google/protobuf/util/type_resolver_util.h>
#include <sys/stat.h>

#include <cstdio>
#include <optional>
#include <string>

#include "protomsg/internal/wire_decoder.h"
#include "protomsg/internal/wire_encoder.h"

// The files go straight between the record and the wire format. Protobuf's
// JSON functions print from and parse to wire bytes themselves (its
// message-based JSON calls only serialise or parse a message around them),
// so a message tree is built only for a binary input the decoder leaves to
// protobuf's parser.
namespace protomsg {
namespace {

namespace io = google::protobuf::io;
namespace util = google::protobuf::util;

constexpr char kTypeUrlPrefix[] = "type.googleapis.com";

util::JsonPrintOptions TuningFilePrintOptions() {
  util::JsonPrintOptions options;
  options.add_whitespace = true;
  options.always_print_primitive_fields = true;
  options.always_print_enums_as_ints = false;
  options.preserve_proto_field_names = true;
  return options;
}

util::JsonParseOptions TuningFileParseOptions() {
  util::JsonParseOptions options;
  options.ignore_unknown_fields = false;
  options.case_insensitive_enum_parsing = false;
  return options;
}

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

// The whole content of `path`, or nothing if it cannot be opened or read
// (a directory, say). The size the file system reports only sizes the first
// read; reading goes on to the end of the stream, so files whose size is not
// known up front still read whole.
std::optional<std::string> ReadFile(const std::string& path, const char* mode) {
  std::FILE* file = std::fopen(path.c_str(), mode);
  if (file == nullptr) return std::nullopt;
  std::setvbuf(file, nullptr, _IONBF, 0);
  struct stat status;
  std::size_t expected = 0;
  if (fstat(fileno(file), &status) == 0 && status.st_size > 0) {
    expected = static_cast<std::size_t>(status.st_size);
  }
  std::string content;
  std::size_t size = 0;
  content.resize(expected + 1);
  while (true) {
    size += std::fread(content.data() + size, 1, content.size() - size, file);
    if (size < content.size()) break;
    content.resize(content.size() * 2);
  }
  const bool failed = std::ferror(file) != 0;
  std::fclose(file);
  if (failed) return std::nullopt;
  content.resize(size);
  return content;
}

template <typename Table>
void SaveJson(const std::string& path, const Table& table) {
  const std::string bytes = internal::EncodeRecord(table);
  const int fd =
      open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (fd < 0) return;
  // Large blocks keep the printed text to a few writes.
  io::FileOutputStream out(fd, 64 << 10);
  io::ArrayInputStream in(bytes.data(), static_cast<int>(bytes.size()));
  // A failed print still writes whatever text it produced.
  (void)util::BinaryToJsonStream(GeneratedTypeResolver(), TypeUrl<Table>(), &in,
                                 &out, TuningFilePrintOptions());
  out.Close();
}

template <typename Table>
void SaveProtobuf(const std::string& path, const Table& table) {
  WriteFile(path, "wb", internal::EncodeRecord(table));
}

template <typename Table>
bool ReadJson(const std::string& path, Table& table) {
  if (path.empty()) return false;
  const std::optional<std::string> text = ReadFile(path, "r");
  if (!text.has_value() || text->empty()) return false;
  std::string bytes;
  if (!util::JsonToBinaryString(GeneratedTypeResolver(), TypeUrl<Table>(),
                                *text, &bytes, TuningFileParseOptions())
           .ok()) {
    return false;
  }
  return internal::DecodeRecord(bytes, table);
}

template <typename Table>
bool ReadProtobuf(const std::string& path, Table& table) {
  if (path.empty()) return false;
  // A file that cannot be opened fails; a 0-byte file is an empty message.
  const std::optional<std::string> bytes = ReadFile(path, "rb");
  return bytes.has_value() && internal::DecodeRecord(*bytes, table);
}

}  // namespace

#define PROTOMSG_DEFINE_TUNING_FILES(Table)                                 \
  void SaveTuningTableWithJson(const std::string& path,                     \
                               const qawb::Table& table) {                  \
    SaveJson(path, table);                                                  \
  }                                                                         \
  void SaveTuningTableWithProtobuf(const std::string& path,                 \
                                   const qawb::Table& table) {              \
    SaveProtobuf(path, table);                                              \
  }                                                                         \
  bool Read##Table##WithJson(const std::string& path, qawb::Table& table) { \
    return ReadJson(path, table);                                           \
  }                                                                         \
  bool Read##Table##FromProtobuf(const std::string& path,                   \
                                 qawb::Table& table) {                      \
    return ReadProtobuf(path, table);                                       \
  }

PROTOMSG_DEFINE_TUNING_FILES(QAWBBasicTuningTable)
PROTOMSG_DEFINE_TUNING_FILES(QAWBAdvanceTuningTable)
PROTOMSG_DEFINE_TUNING_FILES(QAWBColorControlTuningTable)
PROTOMSG_DEFINE_TUNING_FILES(QAWBFeatureTuningTable)

}  // namespace protomsg
