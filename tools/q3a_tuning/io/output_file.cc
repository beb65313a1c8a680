#include "tools/q3a_tuning/io/output_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <mutex>

namespace q3a_tool {
namespace {

ToolError Failure(const std::string& path, std::string_view what) {
  return {fmt::format("{}: {}", path, what), kExitFailure};
}

ToolError SystemFailure(const std::string& path, std::string_view what,
                        int error) {
  return Failure(path, fmt::format("{}: {}", what, std::strerror(error)));
}

std::string_view KindOfSpecialFile(mode_t mode) {
  if (S_ISDIR(mode)) return "a directory";
  if (S_ISCHR(mode) || S_ISBLK(mode)) return "a device";
  if (S_ISFIFO(mode)) return "a FIFO";
  if (S_ISSOCK(mode)) return "a socket";
  return "not a regular file";
}

// A write past the file-size limit would otherwise kill the process with
// SIGXFSZ before the temporary could be removed; ignored, it fails with
// EFBIG like any other write error.
void IgnoreFileSizeSignal() {
  static std::once_flag once;
  std::call_once(once, [] { std::signal(SIGXFSZ, SIG_IGN); });
}

// The file a target path writes: a link is followed to what it names, so the
// link stays a link and its target gets the new content.
std::string ResolvedTarget(const std::string& path) {
  std::error_code error;
  const auto resolved = std::filesystem::weakly_canonical(path, error);
  return error ? path : resolved.string();
}

// A temporary file beside `target`, so that the rename is atomic; its
// descriptor in `fd`.
std::optional<std::string> MakeTemporary(const std::string& target, int& fd) {
  const std::filesystem::path path(target);
  std::string pattern =
      (path.parent_path() / ("." + path.filename().string() + ".XXXXXX"))
          .string();
  fd = mkstemp(pattern.data());
  if (fd < 0) return std::nullopt;
  return pattern;
}

// New files get the usual 0666 less the umask; a replaced file keeps its mode.
void SetFinalMode(int fd, const std::string& target) {
  struct stat status;
  mode_t mode;
  if (stat(target.c_str(), &status) == 0) {
    mode = status.st_mode & 07777;
  } else {
    const mode_t mask = umask(0);
    umask(mask);
    mode = 0666 & ~mask;
  }
  fchmod(fd, mode);
}

// The errno of the first failed write, or 0.
int WriteAll(const std::string& path, std::string_view bytes) {
  const int fd = open(path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
  if (fd < 0) return errno;
  while (!bytes.empty()) {
    const ssize_t written = write(fd, bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      const int error = errno;
      close(fd);
      return error;
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return close(fd) == 0 ? 0 : errno;
}

// Flushes and closes `fd`, then renames `temporary` over `target`. Messages
// name `path`, the target as the user wrote it.
std::optional<ToolError> Commit(int fd, const std::string& temporary,
                                const std::string& target,
                                const std::string& path) {
  std::optional<ToolError> error;
  if (fsync(fd) != 0) error = SystemFailure(path, "flush failed", errno);
  if (close(fd) != 0 && !error) {
    error = SystemFailure(path, "close failed", errno);
  }
  if (!error && rename(temporary.c_str(), target.c_str()) != 0) {
    error = SystemFailure(path, "cannot replace the file", errno);
  }
  return error;
}

}  // namespace

std::optional<ToolError> CheckOutputPath(const std::string& path,
                                         std::span<const std::string> inputs) {
  if (path.empty()) return Failure("(output)", "no file name given");
  struct stat target;
  if (stat(path.c_str(), &target) != 0) {
    if (errno != ENOENT) return SystemFailure(path, "cannot write", errno);
    const std::filesystem::path parent =
        std::filesystem::path(path).parent_path();
    std::error_code error;
    if (!parent.empty() && !std::filesystem::is_directory(parent, error)) {
      return Failure(path, fmt::format("the directory {} does not exist",
                                       parent.string()));
    }
    return std::nullopt;
  }
  if (!S_ISREG(target.st_mode)) {
    return Failure(path, fmt::format("is {}; refusing to write over it",
                                     KindOfSpecialFile(target.st_mode)));
  }
  for (const std::string& input : inputs) {
    struct stat status;
    if (stat(input.c_str(), &status) == 0 && status.st_dev == target.st_dev &&
        status.st_ino == target.st_ino) {
      return Failure(path, fmt::format("is the input {}; write the result to "
                                       "another file",
                                       input));
    }
  }
  return std::nullopt;
}

std::optional<ToolError> WriteOutputFile(const std::string& path,
                                         std::string_view bytes,
                                         std::span<const std::string> inputs) {
  int write_error = 0;
  return WriteOutputFileWith(
      path, inputs,
      [&](const std::string& temporary) {
        write_error = WriteAll(temporary, bytes);
      },
      [&](const std::string&) -> std::optional<ToolError> {
        if (write_error == 0) return std::nullopt;
        return SystemFailure(path, "write failed", write_error);
      });
}

std::optional<ToolError> WriteOutputFileWith(
    const std::string& path, std::span<const std::string> inputs,
    const ProduceFile& produce, const VerifyFile& verify) {
  if (auto refused = CheckOutputPath(path, inputs)) return refused;
  IgnoreFileSizeSignal();
  const std::string target = ResolvedTarget(path);
  int fd = -1;
  const std::optional<std::string> temporary = MakeTemporary(target, fd);
  if (!temporary) {
    return SystemFailure(path, "cannot create a file beside it", errno);
  }
  SetFinalMode(fd, target);
  produce(*temporary);
  std::optional<ToolError> error = verify(*temporary);
  if (error) {
    close(fd);
  } else {
    error = Commit(fd, *temporary, target, path);
  }
  if (error) unlink(temporary->c_str());
  return error;
}

}  // namespace q3a_tool
