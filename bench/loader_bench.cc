#include <google/protobuf/arena.h>
#include <google/protobuf/util/json_util.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "bench/bench_tables.h"
#include "bench/registration.h"
#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "protomsg/internal/json_options.h"
#include "protomsg/record_conversions.h"
#include "tuning/qawb/load_qawb_tuning_from_file.h"

namespace q3a_bench {
namespace {

using google::protobuf::Arena;
namespace util = google::protobuf::util;

// The four JSON tuning files of `content`, keyed as the loader expects.
std::unordered_map<std::string_view, std::string> WriteFiles(Content content) {
  std::unordered_map<std::string_view, std::string> files;
  ForEachTableAndContent([&]<typename Table>(Content each) {
    if (each != content) return;
    const std::string path = ScratchDir() + "/loader_" +
                             std::string(TableTraits<Table>::kName) + "_" +
                             ContentName(content) + ".json";
    protomsg::SaveTuningTableWithJson(path, TableContent<Table>(content));
    files[TableTraits<Table>::kName] = path;
  });
  return files;
}

using protomsg::internal::TuningFileParseOptions;

// What the loader does for one file on protobuf's path: a zeroed scratch
// record, the file's text, JsonStringToMessage, ConvertToStruct, and the
// copy into the container.
template <typename Table>
void LoadThroughProtobuf(const std::string& path, Table& scratch,
                         qawb::MutableQAWBTuning& tuning) {
  std::memset(static_cast<void*>(&scratch), 0, sizeof(Table));
  typename TableTraits<Table>::Message message;
  if (!util::JsonStringToMessage(ReadFile(path), &message,
                                 TuningFileParseOptions())
           .ok()) {
    return;
  }
  protomsg::ConvertToStruct(message, scratch);
  qawb::SetTable(tuning, &scratch);
}

template <typename Table>
bool ParseJson(const std::string& text, bool on_arena) {
  using Message = typename TableTraits<Table>::Message;
  if (on_arena) {
    Arena arena;
    return util::JsonStringToMessage(text,
                                     Arena::CreateMessage<Message>(&arena),
                                     TuningFileParseOptions())
        .ok();
  }
  Message message;
  return util::JsonStringToMessage(text, &message, TuningFileParseOptions())
      .ok();
}

void RegisterFor(Content content) {
  const std::string suffix = std::string("/") + ContentName(content);

  Register("loader" + suffix, [content](benchmark::State& state) {
    const auto files = WriteFiles(content);
    const qawb::QAWBTuning* fixed = &BuiltInAwbTuning();
    for (auto _ : state) {
      benchmark::DoNotOptimize(
          q3a_coordinator::LoadQawbTuningFromFile(files, fixed));
    }
    std::int64_t bytes = 0;
    for (const auto& [key, path] : files) {
      bytes += static_cast<std::int64_t>(ReadFile(path).size());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            bytes);
  });

  // The same loader with protobuf's JSON path in place of the direct one.
  Register("loader_protobuf_path" + suffix, [content](benchmark::State& state) {
    const auto files = WriteFiles(content);
    qawb::MutableQAWBTuning tuning;
    for (auto _ : state) {
      ForEachTableAndContent([&]<typename Table>(Content each) {
        if (each != content) return;
        auto scratch = std::make_unique<Table>();
        LoadThroughProtobuf(files.at(TableTraits<Table>::kName), *scratch,
                            tuning);
      });
      benchmark::DoNotOptimize(&tuning);
    }
  });

  // Protobuf's JSON parse of the same four files, one message each.
  for (const bool on_arena : {false, true}) {
    Register(
        std::string(on_arena ? "json_parse_4_arena" : "json_parse_4_heap") +
            suffix,
        [content, on_arena](benchmark::State& state) {
          std::unordered_map<std::string_view, std::string> texts;
          for (const auto& [key, path] : WriteFiles(content)) {
            texts[key] = ReadFile(path);
          }
          for (auto _ : state) {
            ForEachTableAndContent([&]<typename Table>(Content each) {
              if (each != content) return;
              benchmark::DoNotOptimize(ParseJson<Table>(
                  texts.at(TableTraits<Table>::kName), on_arena));
            });
          }
        });
  }
}

}  // namespace

void RegisterLoaderBenchmarks() {
  RegisterFor(Content::kBuiltIn);
  RegisterFor(Content::kFull);
}

}  // namespace q3a_bench
