#include <benchmark/benchmark.h>

#include <utility>

#include "bench/registration.h"

namespace q3a_bench {

void Register(const std::string& name,
              std::function<void(benchmark::State&)> run) {
  benchmark::RegisterBenchmark(name.c_str(), [run = std::move(run)](
                                                 benchmark::State& state) {
    run(state);
  })->Unit(benchmark::kMicrosecond);
}

}  // namespace q3a_bench

int main(int argc, char** argv) {
  q3a_bench::RegisterConversionBenchmarks();
  q3a_bench::RegisterTuningFileBenchmarks();
  q3a_bench::RegisterBinaryDumpBenchmarks();
  q3a_bench::RegisterLoaderBenchmarks();
  q3a_bench::RegisterRegistryBenchmarks();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
