#include "tools/q3a_tuning/io/input_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace q3a_tool {
namespace {

ToolError Unreadable(const std::string& path, std::string_view why) {
  return {fmt::format("{}: cannot read the file: {}", path, why), kExitUsage};
}

Result<> CheckStatus(const std::string& path, const struct stat& status) {
  if (!S_ISREG(status.st_mode)) {
    return Unreadable(path, fmt::format("it is {}, not a tuning file",
                                        DescribeFileKind(status.st_mode)));
  }
  if (static_cast<std::uintmax_t>(status.st_size) > kMaxInputBytes) {
    return Unreadable(
        path, fmt::format("{} bytes is more than any tuning file holds (the "
                          "tool reads at most {} MiB)",
                          status.st_size, kMaxInputBytes >> 20));
  }
  return {};
}

}  // namespace

std::string_view DescribeFileKind(mode_t mode) {
  if (S_ISDIR(mode)) return "a directory";
  if (S_ISCHR(mode) || S_ISBLK(mode)) return "a device";
  if (S_ISFIFO(mode)) return "a FIFO";
  if (S_ISSOCK(mode)) return "a socket";
  return "not a regular file";
}

Result<> CheckInputFile(const std::string& path) {
  if (path.empty()) return ToolError{"(input): no file name given", kExitUsage};
  struct stat status;
  if (stat(path.c_str(), &status) != 0) {
    return Unreadable(path, std::strerror(errno));
  }
  return CheckStatus(path, status);
}

Result<std::string> ReadInputFile(const std::string& path) {
  if (auto refused = CheckInputFile(path); !refused.ok()) {
    return refused.error();
  }
  // O_NONBLOCK: should the path have become a FIFO since the check, the open
  // does not wait for a writer; fstat then refuses it.
  const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (fd < 0) return Unreadable(path, std::strerror(errno));
  struct stat status;
  if (fstat(fd, &status) != 0) {
    const int error = errno;
    close(fd);
    return Unreadable(path, std::strerror(error));
  }
  if (auto refused = CheckStatus(path, status); !refused.ok()) {
    close(fd);
    return refused.error();
  }
  std::string content;
  content.reserve(static_cast<std::size_t>(status.st_size));
  char buffer[65536];
  while (content.size() <= kMaxInputBytes) {
    const ssize_t n = read(fd, buffer, sizeof(buffer));
    if (n == 0) break;
    if (n < 0) {
      if (errno == EINTR) continue;
      const int error = errno;
      close(fd);
      return Unreadable(path, std::strerror(error));
    }
    content.append(buffer, static_cast<std::size_t>(n));
  }
  close(fd);
  if (content.size() > kMaxInputBytes) {
    return Unreadable(path, "it grew past the size limit while read");
  }
  return content;
}

}  // namespace q3a_tool
