// A fresh directory for a test's files, removed with everything in it when
// the object goes out of scope.
#ifndef TESTS_SUPPORT_SCOPED_TEMP_DIR_H_
#define TESTS_SUPPORT_SCOPED_TEMP_DIR_H_

#include <gtest/gtest.h>
#include <stdlib.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>

namespace q3a_test {

class ScopedTempDir {
 public:
  ScopedTempDir() {
    std::string pattern = ::testing::TempDir() + "q3a_test_XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) {
      ADD_FAILURE() << "mkdtemp: " << std::strerror(errno);
    }
    path_ = pattern;
  }
  ~ScopedTempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScopedTempDir(const ScopedTempDir&) = delete;
  ScopedTempDir& operator=(const ScopedTempDir&) = delete;

  const std::filesystem::path& path() const { return path_; }

  // Path of `name` inside the directory.
  std::string File(const std::string& name) const {
    return (path_ / name).string();
  }

 private:
  std::filesystem::path path_;
};

}  // namespace q3a_test

#endif  // TESTS_SUPPORT_SCOPED_TEMP_DIR_H_
