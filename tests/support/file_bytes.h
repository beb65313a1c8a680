// Whole files and raw bytes, for tests, benchmarks and fuzz targets: what a
// writer produced, inputs no writer produces, and records compared byte for
// byte.
#ifndef TESTS_SUPPORT_FILE_BYTES_H_
#define TESTS_SUPPORT_FILE_BYTES_H_

#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "tests/support/scoped_temp_dir.h"

namespace q3a_test {

// The whole content of `path`; empty if it cannot be read.
inline std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

// Creates or truncates `path` with exactly `bytes`; false if that failed.
inline bool WriteFile(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  return static_cast<bool>(file);
}

// The object representation of `value`.
template <typename T>
std::string BytesOf(const T& value) {
  return std::string(reinterpret_cast<const char*>(&value), sizeof(T));
}

template <typename T>
bool SameBytes(const T& a, const T& b) {
  return std::memcmp(&a, &b, sizeof(T)) == 0;
}

}  // namespace q3a_test

#endif  // TESTS_SUPPORT_FILE_BYTES_H_
