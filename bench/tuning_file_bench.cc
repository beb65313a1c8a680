#include <google/protobuf/arena.h>
#include <google/protobuf/util/json_util.h>

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "bench/bench_tables.h"
#include "bench/registration.h"
#include "protomsg/internal/json_options.h"
#include "protomsg/internal/json_writer.h"
#include "protomsg/record_conversions.h"
#include "protomsg/tuning_files.h"

namespace q3a_bench {
namespace {

using google::protobuf::Arena;
namespace util = google::protobuf::util;
using protomsg::internal::TuningFileParseOptions;
using protomsg::internal::TuningFilePrintOptions;

template <typename Table>
std::string FilePath(const char* kind, Content content) {
  return ScratchDir() + "/" + std::string(TableTraits<Table>::kName) + "_" +
         ContentName(content) + "." + kind;
}

template <typename Table>
std::unique_ptr<typename TableTraits<Table>::Message> MessageOf(
    Content content) {
  auto message = std::make_unique<typename TableTraits<Table>::Message>();
  protomsg::ConvertToMessage(TableContent<Table>(content), *message);
  return message;
}

// Plain file I/O of given bytes, the part of the writers and readers that
// protobuf's own calls leave out.
void PlainWrite(const std::string& path, const std::string& bytes) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  std::fclose(file);
}

// Reports the rate of a benchmark that reads or writes the file at `path`
// once an iteration.
void SetFileBytes(benchmark::State& state, const std::string& path) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(ReadFile(path).size()));
}

void RegisterPlainFileIo(const std::string& write_name,
                         const std::string& read_name, std::string path,
                         std::string bytes) {
  Register(write_name, [path, bytes](benchmark::State& state) {
    for (auto _ : state) PlainWrite(path, bytes);
  });
  Register(read_name, [path, bytes](benchmark::State& state) {
    PlainWrite(path, bytes);
    std::string buffer(bytes.size(), '\0');
    for (auto _ : state) {
      std::FILE* file = std::fopen(path.c_str(), "rb");
      benchmark::DoNotOptimize(
          std::fread(buffer.data(), 1, buffer.size(), file));
      std::fclose(file);
    }
  });
}

// `text` with 20 zeros after every decimal fraction, as a spreadsheet that
// writes 20 decimals prints the same values.
std::string LongDecimals(std::string_view text) {
  std::string out;
  bool in_string = false;
  bool fraction = false;
  for (const char c : text) {
    const bool digit = c >= '0' && c <= '9';
    if (fraction && !digit) {
      out += "00000000000000000000";
      fraction = false;
    }
    if (c == '"') in_string = !in_string;
    if (!in_string && c == '.') fraction = true;
    if (c == 'e' || c == 'E') fraction = false;
    out += c;
  }
  return out;
}

// The table's JSON text as the library writes it; with `long_decimals`,
// as LongDecimals spells it.
template <typename Table>
std::string JsonText(Content content, bool long_decimals = false) {
  std::string text;
  protomsg::internal::PrintJson(TableContent<Table>(content), text);
  return long_decimals ? LongDecimals(text) : text;
}

// Protobuf's JSON parser on `text`, into a message on the heap.
template <typename Message>
void ProtobufParseLoop(benchmark::State& state, const std::string& text) {
  for (auto _ : state) {
    Message message;
    benchmark::DoNotOptimize(
        util::JsonStringToMessage(text, &message, TuningFileParseOptions()));
  }
}

template <typename Table>
void RegisterJson(Content content) {
  {
    const std::string path = FilePath<Table>("plain.json", content);
    protomsg::SaveTuningTableWithJson(path, TableContent<Table>(content));
    RegisterPlainFileIo(BenchmarkName<Table>("file_write_json", content),
                        BenchmarkName<Table>("file_read_json", content), path,
                        ReadFile(path));
  }
  using Message = typename TableTraits<Table>::Message;

  Register(BenchmarkName<Table>("json_write", content),
           [content](benchmark::State& state) {
             const Table& table = TableContent<Table>(content);
             const std::string path = FilePath<Table>("out.json", content);
             for (auto _ : state)
               protomsg::SaveTuningTableWithJson(path, table);
             SetFileBytes(state, path);
           });
  Register(BenchmarkName<Table>("json_print", content),
           [content](benchmark::State& state) {
             const auto message = MessageOf<Table>(content);
             for (auto _ : state) {
               std::string text;
               benchmark::DoNotOptimize(util::MessageToJsonString(
                   *message, &text, TuningFilePrintOptions()));
             }
           });

  // The direct reader on the text as the writer prints it, and with long
  // decimals.
  for (const bool long_decimals : {false, true}) {
    Register(BenchmarkName<Table>(
                 long_decimals ? "json_read_long" : "json_read", content),
             [content, long_decimals](benchmark::State& state) {
               const std::string path = FilePath<Table>(
                   long_decimals ? "long.json" : "json", content);
               PlainWrite(path, JsonText<Table>(content, long_decimals));
               auto record = std::make_unique<Table>();
               for (auto _ : state) {
                 if (!TableTraits<Table>::kReadJson(path, *record)) {
                   state.SkipWithError("JSON reader failed");
                 }
               }
               SetFileBytes(state, path);
             });
  }
  Register(BenchmarkName<Table>("json_parse_long_heap", content),
           [content](benchmark::State& state) {
             ProtobufParseLoop<Message>(state, JsonText<Table>(content, true));
           });
  Register(BenchmarkName<Table>("json_parse_heap", content),
           [content](benchmark::State& state) {
             ProtobufParseLoop<Message>(state, JsonText<Table>(content));
           });
  Register(BenchmarkName<Table>("json_parse_arena", content),
           [content](benchmark::State& state) {
             const std::string text = JsonText<Table>(content);
             for (auto _ : state) {
               Arena arena;
               auto* message = Arena::CreateMessage<Message>(&arena);
               benchmark::DoNotOptimize(util::JsonStringToMessage(
                   text, message, TuningFileParseOptions()));
             }
           });
}

template <typename Table>
void RegisterBinary(Content content) {
  Register(BenchmarkName<Table>("binary_write", content),
           [content](benchmark::State& state) {
             const Table& table = TableContent<Table>(content);
             const std::string path = FilePath<Table>("out.pb", content);
             for (auto _ : state) {
               protomsg::SaveTuningTableWithProtobuf(path, table);
             }
           });
  Register(BenchmarkName<Table>("serialize", content),
           [content](benchmark::State& state) {
             const auto message = MessageOf<Table>(content);
             for (auto _ : state) {
               std::string bytes;
               benchmark::DoNotOptimize(message->SerializeToString(&bytes));
             }
           });

  RegisterPlainFileIo(BenchmarkName<Table>("file_write", content),
                      BenchmarkName<Table>("file_read", content),
                      FilePath<Table>("plain.pb", content),
                      MessageOf<Table>(content)->SerializeAsString());

  // The binary reader's lower bound is the parse benchmark of the
  // conversion group, on the same bytes.
  Register(BenchmarkName<Table>("binary_read", content),
           [content](benchmark::State& state) {
             const std::string path = FilePath<Table>("pb", content);
             protomsg::SaveTuningTableWithProtobuf(
                 path, TableContent<Table>(content));
             auto record = std::make_unique<Table>();
             for (auto _ : state) {
               if (!TableTraits<Table>::kReadProtobuf(path, *record)) {
                 state.SkipWithError("binary reader failed");
               }
             }
           });
}

}  // namespace

void RegisterTuningFileBenchmarks() {
  ForEachTableAndContent([]<typename Table>(Content content) {
    RegisterJson<Table>(content);
    RegisterBinary<Table>(content);
  });
}

}  // namespace q3a_bench
