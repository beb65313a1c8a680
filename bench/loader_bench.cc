#include <google/protobuf/arena.h>
#include <google/protobuf/util/json_util.h>

#include <string>
#include <string_view>
#include <unordered_map>

#include "bench/bench_tables.h"
#include "bench/protobuf_options.h"
#include "bench/registration.h"
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
