#include "fuzz/fuzz_support.h"

#include <android-base/logging.h>
#include <android/log.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "tests/support/file_bytes.h"

namespace q3a_fuzz {
namespace {

void DropLine(const __android_logger_data*, const char*) {}

}  // namespace

std::string ScratchPath(const std::string& name) {
  return q3a_test::ProcessTempDir().File(name);
}

void WriteBytes(const std::string& path, const uint8_t* data,
                std::size_t size) {
  Check(q3a_test::WriteFile(
            path, std::string_view(reinterpret_cast<const char*>(data), size)),
        "cannot write scratch file");
}

void SilenceLogs() {
  __android_log_set_logger(DropLine);
  __android_log_set_minimum_priority(ANDROID_LOG_VERBOSE);
  android::base::SetLogger([](android::base::LogId, android::base::LogSeverity,
                              const char*, const char*, unsigned int,
                              const char*) {});
  android::base::SetMinimumLogSeverity(android::base::VERBOSE);
}

void Fail(const char* what) {
  std::fprintf(stderr, "invariant broken: %s\n", what);
  std::abort();
}

}  // namespace q3a_fuzz

// libFuzzer calls this once before the first input, in every target.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  q3a_fuzz::SilenceLogs();
  return 0;
}
