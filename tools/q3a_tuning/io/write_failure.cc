#include "tools/q3a_tuning/io/write_failure.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>

namespace q3a_tool {
namespace {

// The file attributes chattr sets, or nullopt where the file system has none.
std::optional<int> AttributesOf(const std::string& path) {
  const int fd = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) return std::nullopt;
  int flags = 0;
  const bool known = ioctl(fd, FS_IOC_GETFLAGS, &flags) == 0;
  close(fd);
  return known ? std::optional<int>(flags) : std::nullopt;
}

bool Writable(const std::string& path, int mode) {
  return faccessat(AT_FDCWD, path.c_str(), mode, AT_EACCESS) == 0;
}

std::string PermissionCause(int error, const std::string& target) {
  std::string directory = std::filesystem::path(target).parent_path().string();
  if (directory.empty()) directory = ".";
  const bool exists = access(target.c_str(), F_OK) == 0;
  for (const auto& [path, noun] :
       {std::pair{target, std::string("the file")},
        std::pair{directory, "the directory " + directory}}) {
    if (path == target && !exists) continue;
    if (const auto flags = AttributesOf(path)) {
      if (*flags & FS_IMMUTABLE_FL) return noun + " is immutable (chattr +i)";
      if (*flags & FS_APPEND_FL) return noun + " is append-only (chattr +a)";
    }
  }
  if (exists && !Writable(target, W_OK)) return "the file is read-only";
  if (!Writable(directory, W_OK | X_OK)) {
    return fmt::format("the directory {} is not writable", directory);
  }
  return std::strerror(error);
}

}  // namespace

std::string WriteFailureCause(int error, const std::string& target) {
  switch (error) {
    case EROFS:
      return "the file system is read-only";
    case EACCES:
    case EPERM:
      return PermissionCause(error, target);
    case ENOSPC:
      return "the disk is full";
    case EDQUOT:
      return "the disk quota is used up";
    case EFBIG: {
      rlimit limit;
      if (getrlimit(RLIMIT_FSIZE, &limit) == 0 &&
          limit.rlim_cur != RLIM_INFINITY) {
        return fmt::format("the file-size limit (ulimit -f) of {} bytes is "
                           "reached",
                           limit.rlim_cur);
      }
      return "the file is larger than the file system allows";
    }
    default:
      return std::strerror(error);
  }
}

std::string_view FateOf(bool existed) {
  return existed ? "the file is left as it was" : "no file was created";
}

ToolError WriteFailure(const std::string& path, std::string_view cause,
                       bool existed) {
  return {fmt::format("{}: not written: {}; {}", path, cause, FateOf(existed)),
          kExitFailure};
}

}  // namespace q3a_tool
