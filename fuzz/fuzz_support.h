// What every fuzz target needs around the library: a scratch directory in
// memory for the files the readers take by path, silenced log sinks (the log
// calls still run), and a check that stops the run on a broken invariant.
#ifndef FUZZ_FUZZ_SUPPORT_H_
#define FUZZ_FUZZ_SUPPORT_H_

#include <cstddef>
#include <cstdint>
#include <string>

namespace q3a_fuzz {

// A file path in the process's scratch directory (under /dev/shm when it
// exists), made once per process and removed at exit. `name` must be a plain
// file name.
std::string ScratchPath(const std::string& name);

// Creates or truncates `path` and writes `size` bytes to it; aborts if that
// fails, since the run would otherwise test nothing.
void WriteBytes(const std::string& path, const uint8_t* data, std::size_t size);

// Replaces the liblog and libbase log sinks with ones that drop every line,
// at the most verbose level, so the logging code runs without flooding the
// fuzzer's output. Every target's LLVMFuzzerInitialize (defined with it)
// calls it.
void SilenceLogs();

// Reports `what` and aborts, so libFuzzer keeps the input that broke it.
[[noreturn]] void Fail(const char* what);

inline void Check(bool condition, const char* what) {
  if (!condition) Fail(what);
}

}  // namespace q3a_fuzz

#endif  // FUZZ_FUZZ_SUPPORT_H_
