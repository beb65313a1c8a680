// Exact bytes of a test file: inputs that no writer produces, and what a
// writer produced.
#ifndef TESTS_HARDENING_FILE_BYTES_H_
#define TESTS_HARDENING_FILE_BYTES_H_

#include <fstream>
#include <iterator>
#include <string>

namespace q3a_test {

inline void WriteFileBytes(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

inline std::string ReadFileBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

}  // namespace q3a_test

#endif  // TESTS_HARDENING_FILE_BYTES_H_
