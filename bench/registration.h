// Registration of the benchmark groups. Every benchmark is named
// "<operation>/<table>/<content>" (or just "<operation>" where neither
// applies), and each measured operation is registered next to its lower
// bound measured on the same data, so that the ratio script can set the two
// side by side.
#ifndef BENCH_REGISTRATION_H_
#define BENCH_REGISTRATION_H_

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

namespace q3a_bench {

// Registers `run` under `name`, timed in microseconds.
void Register(const std::string& name,
              std::function<void(benchmark::State&)> run);

// ConvertToMessage (heap and arena) and ConvertToStruct against protobuf's
// own binary parse of the same message.
void RegisterConversionBenchmarks();

// The JSON and binary tuning file writers and readers against protobuf's
// printer, parser and serialiser alone.
void RegisterTuningFileBenchmarks();

// The tuning binary file against one plain fwrite / fread of its size.
void RegisterBinaryDumpBenchmarks();

// The override loader against protobuf's JSON parse of its four files.
void RegisterLoaderBenchmarks();

// Registry lookups and the C-linkage copy.
void RegisterRegistryBenchmarks();

}  // namespace q3a_bench

#endif  // BENCH_REGISTRATION_H_
