// Load cost of libq3a_tuning.so against a trivial shared library.
//
// A library loads once per process: dlclose of libq3a_tuning.so either keeps
// it mapped or, once unloaded, cannot be loaded again, because protobuf keeps
// the schema registered. So each iteration forks a child that has never
// loaded it, and the child times its own dlopen, first registry access and
// dlclose. The program links the libraries libq3a_tuning.so depends on, as
// the camera service has them loaded already; only the library's own load
// is measured.
#include <benchmark/benchmark.h>
#include <dlfcn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "coordinator/tuning_map.h"

namespace {

double ThreadCpuSeconds() {
  timespec now;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) +
         1e-9 * static_cast<double>(now.tv_nsec);
}

enum class FirstCall { kNone, kRegistry, kTrivial };

// Child side: the load, the first call and the unload. Returns the CPU time
// they took, or a negative value if the library or symbol is missing.
double LoadOnce(const char* path, FirstCall first_call) {
  const double start = ThreadCpuSeconds();
  void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) return -1;
  if (first_call == FirstCall::kRegistry) {
    void* entry = dlsym(library, "GetTuningMap");
    if (entry == nullptr) return -1;
    TuningMap map;
    reinterpret_cast<void (*)(TuningMap*)>(entry)(&map);
    benchmark::DoNotOptimize(map.size());
  } else if (first_call == FirstCall::kTrivial) {
    void* entry = dlsym(library, "Q3aBenchTrivial");
    if (entry == nullptr) return -1;
    benchmark::DoNotOptimize(reinterpret_cast<int (*)()>(entry)());
  }
  dlclose(library);
  return ThreadCpuSeconds() - start;
}

// Runs LoadOnce in a fresh child per iteration and reports the child's time.
void MeasureLoad(benchmark::State& state, const char* path,
                 FirstCall first_call) {
  for (auto _ : state) {
    int pipe_ends[2];
    if (pipe(pipe_ends) != 0) {
      state.SkipWithError("pipe failed");
      break;
    }
    const pid_t child = fork();
    if (child == 0) {
      close(pipe_ends[0]);
      const double seconds = LoadOnce(path, first_call);
      const bool sent =
          write(pipe_ends[1], &seconds, sizeof(seconds)) == sizeof(seconds);
      _exit(sent ? 0 : 1);
    }
    close(pipe_ends[1]);
    double seconds = -1;
    const bool received = child > 0 && read(pipe_ends[0], &seconds,
                                            sizeof(seconds)) == sizeof(seconds);
    close(pipe_ends[0]);
    if (child > 0) waitpid(child, nullptr, 0);
    if (!received || seconds < 0) {
      state.SkipWithError("the child could not load the library");
      break;
    }
    state.SetIterationTime(seconds);
  }
}

void LibraryLoad(benchmark::State& state) {
  MeasureLoad(state, Q3A_TUNING_LIBRARY, FirstCall::kRegistry);
}

// The generated message classes alone, linked as libq3a_tuning.so is: what
// any library carrying the schema pays (relocations against libprotobuf and
// the schema's registration with protobuf).
void SchemaOnlyLoad(benchmark::State& state) {
  MeasureLoad(state, Q3A_SCHEMA_ONLY_LIBRARY, FirstCall::kNone);
}

void TrivialLoad(benchmark::State& state) {
  MeasureLoad(state, Q3A_TRIVIAL_LIBRARY, FirstCall::kTrivial);
}

BENCHMARK(LibraryLoad)
    ->Name("library_load")
    ->UseManualTime()
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(SchemaOnlyLoad)
    ->Name("schema_only_load")
    ->UseManualTime()
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(TrivialLoad)
    ->Name("trivial_load")
    ->UseManualTime()
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
