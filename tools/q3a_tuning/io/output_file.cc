#include "tools/q3a_tuning/io/output_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <mutex>

#include "tools/q3a_tuning/io/input_file.h"
#include "tools/q3a_tuning/io/temporary_file.h"
#include "tools/q3a_tuning/io/write_failure.h"

namespace q3a_tool {
namespace {

ToolError Failure(const std::string& path, std::string_view what) {
  return {fmt::format("{}: {}", path, what), kExitFailure};
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

std::string DirectoryOf(const std::string& path) {
  const std::string directory =
      std::filesystem::path(path).parent_path().string();
  return directory.empty() ? "." : directory;
}

// A replaced file keeps its mode and, where allowed, its owner; new files
// get the usual 0666 less the umask.
void TakeOverAttributes(int fd, const std::string& target) {
  struct stat status;
  if (stat(target.c_str(), &status) == 0) {
    fchmod(fd, status.st_mode & 07777);
    (void)fchown(fd, status.st_uid, status.st_gid);
    return;
  }
  const mode_t mask = umask(0);
  umask(mask);
  fchmod(fd, 0666 & ~mask);
}

// The errno of the first failed write, or 0.
int WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(fd, bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return errno;
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

bool HoldsExactly(const std::string& target, std::string_view bytes) {
  const Result<std::string> current = ReadInputFile(target);
  return current.ok() && *current == bytes;
}

ToolError Differs(const std::string& path) {
  return Failure(path, "holds other content than what would be written "
                       "(edited?); it is left as it was: give --force to "
                       "replace it");
}

// Text for stdout is verified in memory first, as a file would be.
Result<> WriteToStdout(std::string_view bytes, const OutputOptions& options) {
  if (options.verify) {
    const int fd = memfd_create("q3a-tuning", MFD_CLOEXEC);
    if (fd < 0) return Failure("(stdout)", std::strerror(errno));
    std::optional<std::string> wrong;
    if (const int error = WriteAll(fd, bytes)) {
      wrong = std::strerror(error);
    } else {
      wrong = options.verify(fmt::format("/proc/self/fd/{}", fd));
    }
    close(fd);
    if (wrong) return Failure("(stdout)", *wrong + "; nothing was written");
  }
  if (const int error = WriteAll(STDOUT_FILENO, bytes)) {
    return Failure("(stdout)", std::strerror(error));
  }
  return {};
}

// Puts the written, verified temporary in the target's place. A target that
// was not there is only created, never replaced, unless replacing is what
// the caller wants anyway.
Result<> Commit(TemporaryFile& temporary, const std::string& target,
                const std::string& path, bool existed,
                const OutputOptions& options) {
  if (options.unchanged_since && StampOf(target) != options.unchanged_since) {
    return Failure(path, "was changed by another program while this one "
                         "edited it; it is left as it was: run the command "
                         "again");
  }
  int error = temporary.MoveTo(target, /*replace=*/existed);
  if (error == EEXIST && !existed) {
    if (options.keep_differing) return Differs(path);
    error = temporary.MoveTo(target, /*replace=*/true);
  }
  if (error != 0) {
    return WriteFailure(path, WriteFailureCause(error, target), existed);
  }
  return {};
}

}  // namespace

Result<> CheckOutputPath(const std::string& path,
                         const OutputOptions& options) {
  if (path.empty()) return Failure("(output)", "no file name given");
  if (path == kStdoutPath) {
    if (options.text) return {};
    return ToolError{fmt::format("{}: this output is binary and is not "
                                 "written to stdout: name a file",
                                 path),
                     kExitUsage};
  }
  struct stat target;
  const bool existed = stat(path.c_str(), &target) == 0;
  if (!existed) {
    if (errno != ENOENT) {
      return WriteFailure(path, WriteFailureCause(errno, path), false);
    }
    const std::filesystem::path parent =
        std::filesystem::path(path).parent_path();
    std::error_code error;
    if (!parent.empty() && !std::filesystem::is_directory(parent, error)) {
      return Failure(path, fmt::format("the directory {} does not exist",
                                       parent.string()));
    }
  } else if (!S_ISREG(target.st_mode)) {
    return Failure(path, fmt::format("is {}; refusing to write over it",
                                     DescribeFileKind(target.st_mode)));
  }
  for (const std::string& input : options.inputs) {
    struct stat status;
    if (existed && stat(input.c_str(), &status) == 0 &&
        status.st_dev == target.st_dev && status.st_ino == target.st_ino) {
      return Failure(path, fmt::format("is the input {}; write the result to "
                                       "another file",
                                       input));
    }
  }
  // Refused early, before any work, where the cause is already plain.
  const std::string resolved = ResolvedTarget(path);
  for (const auto& [file, mode] :
       {std::pair{DirectoryOf(resolved), W_OK | X_OK},
        std::pair{resolved, W_OK}}) {
    if (file == resolved && !existed) continue;
    if (faccessat(AT_FDCWD, file.c_str(), mode, AT_EACCESS) != 0) {
      return WriteFailure(path, WriteFailureCause(errno, resolved), existed);
    }
  }
  return {};
}

Result<> WriteOutputFile(const std::string& path, std::string_view bytes,
                         const OutputOptions& options) {
  if (auto refused = CheckOutputPath(path, options); !refused.ok()) {
    return refused;
  }
  if (path == kStdoutPath) return WriteToStdout(bytes, options);
  IgnoreFileSizeSignal();
  const std::string target = ResolvedTarget(path);
  const bool existed = access(target.c_str(), F_OK) == 0;
  if (existed && HoldsExactly(target, bytes)) return {};
  if (existed && options.keep_differing) return Differs(path);

  int error = 0;
  std::optional<TemporaryFile> temporary =
      TemporaryFile::Create(target, error);
  if (!temporary) {
    return WriteFailure(path, WriteFailureCause(error, target), existed);
  }
  TakeOverAttributes(temporary->fd(), target);
  error = WriteAll(temporary->fd(), bytes);
  if (error == 0 && fsync(temporary->fd()) != 0) error = errno;
  if (error != 0) {
    return WriteFailure(path, WriteFailureCause(error, target), existed);
  }
  if (options.verify) {
    if (auto wrong = options.verify(temporary->path())) {
      return Failure(path, fmt::format("{}; {}", *wrong, FateOf(existed)));
    }
  }
  return Commit(*temporary, target, path, existed, options);
}

}  // namespace q3a_tool
