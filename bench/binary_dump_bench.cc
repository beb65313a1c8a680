#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "bench/bench_tables.h"
#include "bench/registration.h"
#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"

namespace q3a_bench {
namespace {

using qawb::MutableQAWBTuning;

constexpr std::size_t kFileSize = MutableQAWBTuning::kTuningBinaryFileSize;

std::unique_ptr<MutableQAWBTuning> FullTuning() {
  auto tuning = std::make_unique<MutableQAWBTuning>();
  qawb::ForEachTable([&]<typename Table>() {
    qawb::SetTable(*tuning, &TableContent<Table>(Content::kFull));
  });
  return tuning;
}

void DumpWrite(benchmark::State& state) {
  const auto tuning = FullTuning();
  const std::string path = ScratchDir() + "/dump_write.bin";
  for (auto _ : state) tuning->WriteToFile(path);
}

void PlainFwrite(benchmark::State& state) {
  const std::vector<char> bytes(kFileSize, 'x');
  const std::string path = ScratchDir() + "/fwrite.bin";
  for (auto _ : state) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    std::fwrite(bytes.data(), bytes.size(), 1, file);
    std::fclose(file);
  }
}

void DumpRead(benchmark::State& state) {
  const std::string path = ScratchDir() + "/dump_read.bin";
  FullTuning()->WriteToFile(path);
  auto tuning = std::make_unique<MutableQAWBTuning>();
  for (auto _ : state) {
    if (!tuning->ReadFromFile(path)) state.SkipWithError("ReadFromFile failed");
  }
}

void PlainFread(benchmark::State& state) {
  const std::string path = ScratchDir() + "/fread.bin";
  FullTuning()->WriteToFile(path);
  std::vector<char> bytes(kFileSize);
  for (auto _ : state) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    benchmark::DoNotOptimize(std::fread(bytes.data(), bytes.size(), 1, file));
    std::fclose(file);
  }
}

}  // namespace

void RegisterBinaryDumpBenchmarks() {
  Register("dump_write", DumpWrite);
  Register("fwrite", PlainFwrite);
  Register("dump_read", DumpRead);
  Register("fread", PlainFread);
}

}  // namespace q3a_bench
