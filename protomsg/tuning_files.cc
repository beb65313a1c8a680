#include "protomsg/tuning_files.h"

#include <google/protobuf/arena.h>
#include <google/protobuf/util/json_util.h>
#include <sys/stat.h>

#include <cstdio>
#include <optional>
#include <string>

#include "protomsg/record_conversions.h"

namespace protomsg {
namespace {

using google::protobuf::Arena;
namespace util = google::protobuf::util;

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

// The message tree of a whole table is thousands of sub-messages; building
// it on an arena replaces as many heap allocations with a few blocks, sized
// so that a full table takes a handful of them.
google::protobuf::ArenaOptions TreeArenaOptions() {
  google::protobuf::ArenaOptions options;
  options.start_block_size = 16 << 10;
  options.max_block_size = 256 << 10;
  return options;
}

template <typename Message, typename Table>
Message* NewMessage(Arena& arena, const Table& table) {
  Message* message = Arena::CreateMessage<Message>(&arena);
  ConvertToMessage(table, *message);
  return message;
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

template <typename Message, typename Table>
void SaveJson(const std::string& path, const Table& table) {
  Arena arena(TreeArenaOptions());
  const Message* message = NewMessage<Message>(arena, table);
  std::string text;
  // A failed print still writes whatever text it produced.
  (void)util::MessageToJsonString(*message, &text, TuningFilePrintOptions());
  WriteFile(path, "w", text);
}

template <typename Message, typename Table>
void SaveProtobuf(const std::string& path, const Table& table) {
  Arena arena(TreeArenaOptions());
  const Message* message = NewMessage<Message>(arena, table);
  std::string bytes;
  (void)message->SerializeToString(&bytes);
  WriteFile(path, "wb", bytes);
}

template <typename Message, typename Table>
bool ReadJson(const std::string& path, Table& table) {
  if (path.empty()) return false;
  const std::optional<std::string> text = ReadFile(path, "r");
  if (!text.has_value() || text->empty()) return false;
  Arena arena(TreeArenaOptions());
  Message* message = Arena::CreateMessage<Message>(&arena);
  if (!util::JsonStringToMessage(*text, message, TuningFileParseOptions())
           .ok()) {
    return false;
  }
  ConvertToStruct(*message, table);
  return true;
}

template <typename Message, typename Table>
bool ReadProtobuf(const std::string& path, Table& table) {
  if (path.empty()) return false;
  // A file that cannot be opened fails; a 0-byte file is an empty message.
  const std::optional<std::string> bytes = ReadFile(path, "rb");
  if (!bytes.has_value()) return false;
  Arena arena(TreeArenaOptions());
  Message* message = Arena::CreateMessage<Message>(&arena);
  if (!message->ParseFromString(*bytes)) return false;
  ConvertToStruct(*message, table);
  return true;
}

}  // namespace

#define PROTOMSG_DEFINE_TUNING_FILES(Table)                                 \
  void SaveTuningTableWithJson(const std::string& path,                     \
                               const qawb::Table& table) {                  \
    SaveJson<qawb::tuning::Table>(path, table);                             \
  }                                                                         \
  void SaveTuningTableWithProtobuf(const std::string& path,                 \
                                   const qawb::Table& table) {              \
    SaveProtobuf<qawb::tuning::Table>(path, table);                         \
  }                                                                         \
  bool Read##Table##WithJson(const std::string& path, qawb::Table& table) { \
    return ReadJson<qawb::tuning::Table>(path, table);                      \
  }                                                                         \
  bool Read##Table##FromProtobuf(const std::string& path,                   \
                                 qawb::Table& table) {                      \
    return ReadProtobuf<qawb::tuning::Table>(path, table);                  \
  }

PROTOMSG_DEFINE_TUNING_FILES(QAWBBasicTuningTable)
PROTOMSG_DEFINE_TUNING_FILES(QAWBAdvanceTuningTable)
PROTOMSG_DEFINE_TUNING_FILES(QAWBColorControlTuningTable)
PROTOMSG_DEFINE_TUNING_FILES(QAWBFeatureTuningTable)

}  // namespace protomsg
