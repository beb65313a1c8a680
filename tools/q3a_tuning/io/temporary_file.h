// The file an output is written to before it takes the target's place. It
// lives in the target's directory, so that the final rename is atomic, and
// has no name there while it is written (O_TMPFILE) where the file system
// allows: then no interruption, SIGKILL included, can leave it behind.
// Elsewhere it is a named ".TARGET.XXXXXX" that a handler for SIGINT,
// SIGTERM, SIGHUP and SIGQUIT removes before the signal takes its course.
#ifndef TOOLS_Q3A_TUNING_IO_TEMPORARY_FILE_H_
#define TOOLS_Q3A_TUNING_IO_TEMPORARY_FILE_H_

#include <optional>
#include <string>

namespace q3a_tool {

class TemporaryFile {
 public:
  // A new, empty temporary for `target` (a path with links resolved), or
  // nullopt with the errno in `error`.
  static std::optional<TemporaryFile> Create(const std::string& target,
                                             int& error);

  TemporaryFile(TemporaryFile&& other) noexcept;
  TemporaryFile& operator=(TemporaryFile&&) = delete;
  // Removes the file unless it was moved into place.
  ~TemporaryFile();

  int fd() const { return fd_; }
  // A path that opens the file: /proc/self/fd/N while it has no name.
  const std::string& path() const { return path_; }

  // Gives the file the name `target`, atomically: when `replace` is false
  // only if no file of that name exists (else EEXIST). Returns 0 or the
  // errno; on failure nothing new is left in the directory. The cleanup
  // signals wait until the rename is done.
  int MoveTo(const std::string& target, bool replace);

 private:
  TemporaryFile(int fd, std::string path, bool named)
      : fd_(fd), path_(std::move(path)), named_(named) {}

  int fd_;
  std::string path_;
  bool named_;
  bool moved_ = false;
};

namespace internal {

// Makes Create skip unnamed files, so that tests reach the named ones.
void ForceNamedTemporaries();

}  // namespace internal
}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_TEMPORARY_FILE_H_
