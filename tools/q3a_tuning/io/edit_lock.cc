#include "tools/q3a_tuning/io/edit_lock.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace q3a_tool {
namespace {

FileStamp StampOfStatus(const struct stat& status) {
  return {status.st_dev, status.st_ino, status.st_size, status.st_mtim};
}

ToolError CannotLock(const std::string& path, int error) {
  return {fmt::format("{}: cannot read the file: {}", path,
                      std::strerror(error)),
          kExitUsage};
}

}  // namespace

bool FileStamp::operator==(const FileStamp& other) const {
  return device == other.device && inode == other.inode &&
         size == other.size && modified.tv_sec == other.modified.tv_sec &&
         modified.tv_nsec == other.modified.tv_nsec;
}

std::optional<FileStamp> StampOf(const std::string& path) {
  struct stat status;
  if (stat(path.c_str(), &status) != 0) return std::nullopt;
  return StampOfStatus(status);
}

Result<EditLock> EditLock::Acquire(const std::string& path) {
  while (true) {
    // O_NONBLOCK: a FIFO put in the file's place does not block the open.
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) return CannotLock(path, errno);
    int locked;
    do {
      locked = flock(fd, LOCK_EX);
    } while (locked != 0 && errno == EINTR);
    struct stat held;
    struct stat named;
    if (fstat(fd, &held) != 0) {
      const int error = errno;
      close(fd);
      return CannotLock(path, error);
    }
    if (stat(path.c_str(), &named) != 0) {
      const int error = errno;
      close(fd);
      return CannotLock(path, error);
    }
    if (held.st_dev == named.st_dev && held.st_ino == named.st_ino) {
      return EditLock(fd, StampOfStatus(held));
    }
    // Replaced while this run waited: lock the file that is there now.
    close(fd);
  }
}

EditLock::EditLock(EditLock&& other) noexcept
    : fd_(other.fd_), stamp_(other.stamp_) {
  other.fd_ = -1;
}

EditLock::~EditLock() {
  if (fd_ >= 0) close(fd_);
}

}  // namespace q3a_tool
