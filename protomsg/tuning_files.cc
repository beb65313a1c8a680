#include "protomsg/tuning_files.h"

#include <google/protobuf/arena.h>
#include <google/protobuf/util/json_util.h>

#include <fstream>
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
// it on an arena replaces as many heap allocations with a few blocks.
template <typename Message, typename Table>
Message* NewMessage(Arena& arena, const Table& table) {
  Message* message = Arena::CreateMessage<Message>(&arena);
  ConvertToMessage(table, *message);
  return message;
}

template <typename Message, typename Table>
void SaveJson(const std::string& path, const Table& table) {
  Arena arena;
  const Message* message = NewMessage<Message>(arena, table);
  std::string text;
  // A failed print still writes whatever text it produced.
  (void)util::MessageToJsonString(*message, &text, TuningFilePrintOptions());
  std::ofstream file(path, std::ios::out | std::ios::trunc);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
}

template <typename Message, typename Table>
void SaveProtobuf(const std::string& path, const Table& table) {
  Arena arena;
  const Message* message = NewMessage<Message>(arena, table);
  std::ofstream file(path, std::ios::out | std::ios::trunc | std::ios::binary);
  (void)message->SerializeToOstream(&file);
}

// The whole file as text; empty if it cannot be opened or read.
std::string ReadWholeFile(const std::string& path) {
  std::ifstream file(path, std::ios::in);
  std::string content;
  char chunk[1 << 16];
  while (file.read(chunk, sizeof(chunk)) || file.gcount() > 0) {
    content.append(chunk, static_cast<std::size_t>(file.gcount()));
  }
  return content;
}

template <typename Message, typename Table>
bool ReadJson(const std::string& path, Table& table) {
  if (path.empty()) return false;
  const std::string text = ReadWholeFile(path);
  if (text.empty()) return false;
  Arena arena;
  Message* message = Arena::CreateMessage<Message>(&arena);
  if (!util::JsonStringToMessage(text, message, TuningFileParseOptions())
           .ok()) {
    return false;
  }
  ConvertToStruct(*message, table);
  return true;
}

template <typename Message, typename Table>
bool ReadProtobuf(const std::string& path, Table& table) {
  if (path.empty()) return false;
  Arena arena;
  Message* message = Arena::CreateMessage<Message>(&arena);
  std::ifstream file(path, std::ios::in | std::ios::binary);
  // A stream that failed to open fails to parse; a 0-byte file is an empty
  // message.
  if (!message->ParseFromIstream(&file)) return false;
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
