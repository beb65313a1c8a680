#include "fuzz/fuzz_support.h"

#include <android-base/logging.h>
#include <android/log.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace q3a_fuzz {
namespace {

void DropLine(const __android_logger_data*, const char*) {}

std::string MakeScratchDir() {
  // tmpfs keeps the many small writes per second off the disk.
  std::error_code error;
  const std::string base =
      std::filesystem::is_directory("/dev/shm", error) ? "/dev/shm" : "/tmp";
  std::string pattern = base + "/q3a_fuzz_XXXXXX";
  if (mkdtemp(pattern.data()) == nullptr) Fail("cannot create scratch dir");
  return pattern;
}

const std::string& ScratchDir() {
  static const std::string* dir = [] {
    auto* made = new std::string(MakeScratchDir());
    std::atexit([] {
      std::error_code error;
      std::filesystem::remove_all(*dir, error);
    });
    return made;
  }();
  return *dir;
}

}  // namespace

std::string ScratchPath(const std::string& name) {
  return ScratchDir() + "/" + name;
}

void WriteBytes(const std::string& path, const uint8_t* data,
                std::size_t size) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) Fail("cannot open scratch file");
  const bool written = size == 0 || std::fwrite(data, size, 1, file) == 1;
  if (std::fclose(file) != 0 || !written) Fail("cannot write scratch file");
}

std::string ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file),
                     std::istreambuf_iterator<char>());
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
