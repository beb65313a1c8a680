// A fresh directory for the files of a test, benchmark or fuzz target,
// removed with everything in it when the object goes out of scope.
#ifndef TESTS_SUPPORT_SCOPED_TEMP_DIR_H_
#define TESTS_SUPPORT_SCOPED_TEMP_DIR_H_

#include <stdlib.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>

namespace q3a_test {
namespace internal {

inline std::string DefaultTempParent() {
  const char* tmpdir = std::getenv("TMPDIR");
  return tmpdir != nullptr && *tmpdir != '\0' ? tmpdir : "/tmp";
}

}  // namespace internal

class ScopedTempDir {
 public:
  // Creates the directory in `parent`, by default $TMPDIR or /tmp. A
  // directory that cannot be created ends the process: nothing that needs
  // one can run without it.
  explicit ScopedTempDir(std::string parent = internal::DefaultTempParent()) {
    std::string pattern = parent + "/q3a_test_XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) {
      std::fprintf(stderr, "mkdtemp in %s: %s\n", parent.c_str(),
                   std::strerror(errno));
      std::abort();
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

// One directory for the process's many small files (benchmarks, fuzz
// targets), in memory under /dev/shm where the machine has it; removed at
// exit.
inline const ScopedTempDir& ProcessTempDir() {
  static const ScopedTempDir dir([] {
    std::error_code error;
    return std::filesystem::is_directory("/dev/shm", error)
               ? std::string("/dev/shm")
               : internal::DefaultTempParent();
  }());
  return dir;
}

}  // namespace q3a_test

#endif  // TESTS_SUPPORT_SCOPED_TEMP_DIR_H_
