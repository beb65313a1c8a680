// Writing exact bytes to a test file, for inputs that no writer produces.
#ifndef TESTS_HARDENING_FILE_BYTES_H_
#define TESTS_HARDENING_FILE_BYTES_H_

#include <fstream>
#include <string>

namespace q3a_test {

inline void WriteFileBytes(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace q3a_test

#endif  // TESTS_HARDENING_FILE_BYTES_H_
