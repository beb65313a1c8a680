// The tuning tool on a large JSON tuning file: the document reader that
// locates every value, and `validate` and `get` as the commands run them,
// each next to its lower bound on the same text (simdjson's DOM parse for
// the reader, the library's own read of the file for the commands).
//
// The file is the colour-control table with every value set, its first list
// repeated until the text reaches 60 MiB: a table far over capacity, which
// the library reads, drops the excess of, and validate reports.
#include <benchmark/benchmark.h>
#include <google/protobuf/util/json_util.h>

#include <memory>
#include <simdjson.h>
#include <string>
#include <variant>
#include <vector>

#include "bench/bench_tables.h"
#include "protomsg/internal/json_options.h"
#include "protomsg/record_conversions.h"
#include "tests/support/file_bytes.h"
#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/io/table_edit.h"
#include "tools/q3a_tuning/lint/json_document.h"
#include "tools/q3a_tuning/lint/table_diagnostics.h"
#include "tools/q3a_tuning/lint/table_guess.h"
#include "tools/q3a_tuning/lint/validate.h"

namespace q3a_bench {
namespace {

using Table = qawb::QAWBColorControlTuningTable;
using Message = qawb::tuning::QAWBColorControlTuningTable;

// 60 MiB; the smoke test asks for less with --large_file_mib.
std::size_t large_file_bytes = std::size_t{60} << 20;

std::string Print(const Message& message) {
  std::string printed;
  (void)google::protobuf::util::MessageToJsonString(
      message, &printed, protomsg::internal::TuningFilePrintOptions());
  return printed;
}

// The large file's text, printed as the library's writer prints.
const std::string& LargeText() {
  static const std::string* const text = [] {
    Message message;
    protomsg::ConvertToMessage(TableContent<Table>(Content::kFull), message);
    auto* list = message.mutable_ccm_tuning_table()
                     ->mutable_ccm_set_face()
                     ->mutable_ccm_selection_set_natural();
    const qawb::tuning::QAWBCCMSelection entry = list->Get(0);
    const std::size_t bare = Print(message).size();
    *list->Add() = entry;
    const std::size_t per_entry = Print(message).size() - bare;
    while (bare + per_entry * (list->size() - 4) < large_file_bytes) {
      *list->Add() = entry;
    }
    return new std::string(Print(message));
  }();
  return *text;
}

// Two copies that differ in a trailing newline: the tool keeps what it
// learnt about the last file it read, and a command starts with nothing.
const std::string& LargeFile(int copy) {
  static const std::string* const paths = [] {
    auto* names = new std::string[2];
    for (int i = 0; i < 2; ++i) {
      names[i] = ScratchDir() + "/large_color_" + std::to_string(i) + ".json";
      q3a_test::WriteFile(names[i], LargeText() + std::string(i, '\n'));
    }
    return names;
  }();
  return paths[copy];
}

// The copy the last command did not read.
const std::string& FreshLargeFile() {
  static int last = 0;
  last ^= 1;
  return LargeFile(last);
}

void SetBytes(benchmark::State& state) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(LargeText().size()));
}

void DocumentReader(benchmark::State& state) {
  const std::string& text = LargeText();
  for (auto _ : state) {
    std::vector<q3a_tool::Diagnostic> leniencies;
    auto document = q3a_tool::ParseJsonDocument(text, &leniencies);
    if (!std::holds_alternative<q3a_tool::JsonDocument>(document)) {
      state.SkipWithError("the document reader refused the file");
    }
    benchmark::DoNotOptimize(document);
  }
  SetBytes(state);
}

void SimdjsonDom(benchmark::State& state) {
  const simdjson::padded_string text(LargeText());
  simdjson::dom::parser parser;
  for (auto _ : state) {
    simdjson::dom::element root;
    if (parser.parse(text).get(root) != simdjson::SUCCESS) {
      state.SkipWithError("simdjson refused the file");
    }
    benchmark::DoNotOptimize(root);
  }
  SetBytes(state);
}

void LibraryRead(benchmark::State& state) {
  const std::string& path = LargeFile(0);
  auto table = std::make_unique<Table>();
  for (auto _ : state) {
    if (!protomsg::ReadQAWBColorControlTuningTableWithJson(path, *table)) {
      state.SkipWithError("the library refused the file");
    }
  }
  SetBytes(state);
}

// Runs `command` on the copy of the large file the last run did not read,
// after guessing its table as the commands do.
template <typename Command>
void GuessTableThen(benchmark::State& state, Command command) {
  for (auto _ : state) {
    const std::string& path = FreshLargeFile();
    const auto kind = q3a_tool::ResolveTable(path, q3a_tool::FileFormat::kJson,
                                             "");
    if (!kind.ok()) {
      state.SkipWithError("the tool cannot tell the table");
      break;
    }
    command(path, *kind);
  }
  SetBytes(state);
}

// What `validate FILE` does.
void Validate(benchmark::State& state) {
  GuessTableThen(state, [&](const std::string& path, qawb::TableId kind) {
    const q3a_tool::ValidationReport report =
        q3a_tool::ValidateTableFile(path, q3a_tool::FileFormat::kJson, kind);
    if (!report.accepted) state.SkipWithError("validate refused the file");
  });
}

// What `get FILE version` does: load the table, print the value.
void Get(benchmark::State& state) {
  GuessTableThen(state, [&](const std::string& path, qawb::TableId) {
    auto table = q3a_tool::MakeZeroedTable<Table>();
    if (!q3a_tool::LoadTableFile(path, q3a_tool::FileFormat::kJson, *table)
             .ok()) {
      state.SkipWithError("get cannot load the file");
    }
    Message message;
    protomsg::ConvertToMessage(*table, message);
    benchmark::DoNotOptimize(q3a_tool::GetValueJson(message, "version"));
  });
}

}  // namespace
}  // namespace q3a_bench

int main(int argc, char** argv) {
  using namespace q3a_bench;  // NOLINT
  constexpr std::string_view kSizeFlag = "--large_file_mib=";
  if (argc > 1 && std::string_view(argv[argc - 1]).starts_with(kSizeFlag)) {
    large_file_bytes =
        std::stoul(std::string(argv[--argc] + kSizeFlag.size())) << 20;
  }
  for (auto [name, run] :
       {std::pair{"json_document/60MiB", &DocumentReader},
        {"simdjson_dom/60MiB", &SimdjsonDom},
        {"library_json_read/60MiB", &LibraryRead},
        {"validate/60MiB", &Validate},
        {"get/60MiB", &Get}}) {
    benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond);
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
