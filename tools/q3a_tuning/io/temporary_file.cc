#include "tools/q3a_tuning/io/temporary_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <limits.h>
#include <pthread.h>
#include <sys/random.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <mutex>

namespace q3a_tool {
namespace {

constexpr int kCleanupSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

bool force_named = false;

// The named temporary a cleanup signal removes; the tool writes one output
// at a time. Read by the handler, so a plain buffer and a flag.
char armed_path[PATH_MAX];
volatile sig_atomic_t armed = 0;

extern "C" void RemoveTemporaryThenDie(int signal_number) {
  if (armed) unlink(armed_path);
  // SA_RESETHAND restored the default action, which ends the process once
  // the handler returns.
  raise(signal_number);
}

void InstallCleanupHandlers() {
  static std::once_flag once;
  std::call_once(once, [] {
    for (const int signal_number : kCleanupSignals) {
      struct sigaction current;
      // A signal the caller ignores (nohup) stays ignored.
      if (sigaction(signal_number, nullptr, &current) != 0 ||
          current.sa_handler == SIG_IGN) {
        continue;
      }
      struct sigaction action = {};
      action.sa_handler = RemoveTemporaryThenDie;
      sigemptyset(&action.sa_mask);
      action.sa_flags = SA_RESETHAND;
      sigaction(signal_number, &action, nullptr);
    }
  });
}

// While a name in the directory is in flux (created, linked, renamed), the
// cleanup signals wait, so that a name is never left behind by them.
class CleanupSignalsBlocked {
 public:
  CleanupSignalsBlocked() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal_number : kCleanupSignals) {
      sigaddset(&set, signal_number);
    }
    pthread_sigmask(SIG_BLOCK, &set, &saved_);
  }
  ~CleanupSignalsBlocked() { pthread_sigmask(SIG_SETMASK, &saved_, nullptr); }

 private:
  sigset_t saved_;
};

std::string DirectoryOf(const std::string& target) {
  const std::string directory =
      std::filesystem::path(target).parent_path().string();
  return directory.empty() ? "." : directory;
}

// ".TARGET.SUFFIX" beside the target.
std::string HiddenName(const std::string& target, std::string_view suffix) {
  const std::filesystem::path path(target);
  return (path.parent_path() /
          fmt::format(".{}.{}", path.filename().string(), suffix))
      .string();
}

std::string RandomSuffix() {
  std::uint64_t value = 0;
  if (getrandom(&value, sizeof(value), GRND_NONBLOCK) != sizeof(value)) {
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    value = static_cast<std::uint64_t>(now.tv_nsec) ^
            (static_cast<std::uint64_t>(getpid()) << 32);
  }
  return fmt::format("{:012x}", value & 0xffffffffffff);
}

}  // namespace

std::optional<TemporaryFile> TemporaryFile::Create(const std::string& target,
                                                   int& error) {
  if (!force_named) {
    const int fd = open(DirectoryOf(target).c_str(),
                        O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
    if (fd >= 0) {
      std::string path = fmt::format("/proc/self/fd/{}", fd);
      // Readers reach the file through /proc only.
      if (access(path.c_str(), F_OK) == 0) {
        return TemporaryFile(fd, std::move(path), /*named=*/false);
      }
      close(fd);
    } else if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL) {
      // The directory refuses any new file; a named one would fail as well.
      error = errno;
      return std::nullopt;
    }
  }
  InstallCleanupHandlers();
  std::string pattern = HiddenName(target, "XXXXXX");
  const CleanupSignalsBlocked blocked;
  const int fd = mkostemp(pattern.data(), O_CLOEXEC);
  if (fd < 0) {
    error = errno;
    return std::nullopt;
  }
  if (pattern.size() < sizeof(armed_path)) {
    std::memcpy(armed_path, pattern.c_str(), pattern.size() + 1);
    armed = 1;
  }
  return TemporaryFile(fd, std::move(pattern), /*named=*/true);
}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept
    : fd_(other.fd_),
      path_(std::move(other.path_)),
      named_(other.named_),
      moved_(other.moved_) {
  other.fd_ = -1;
  other.moved_ = true;
}

TemporaryFile::~TemporaryFile() {
  if (fd_ >= 0) close(fd_);
  if (named_ && !moved_) {
    const CleanupSignalsBlocked blocked;
    unlink(path_.c_str());
    armed = 0;
  }
}

int TemporaryFile::MoveTo(const std::string& target, bool replace) {
  const CleanupSignalsBlocked blocked;
  if (named_) {
    if (!replace) {
      if (renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target.c_str(),
                    RENAME_NOREPLACE) == 0) {
        moved_ = true;
        armed = 0;
        return 0;
      }
      // EINVAL: the file system cannot refuse to replace; ask first.
      if (errno != EINVAL) return errno;
      if (access(target.c_str(), F_OK) == 0) return EEXIST;
    }
    if (rename(path_.c_str(), target.c_str()) != 0) return errno;
    moved_ = true;
    armed = 0;
    return 0;
  }
  if (!replace) {
    if (linkat(AT_FDCWD, path_.c_str(), AT_FDCWD, target.c_str(),
               AT_SYMLINK_FOLLOW) != 0) {
      return errno;
    }
    moved_ = true;
    return 0;
  }
  // rename cannot take an unnamed file: it gets a fresh name first, for the
  // two calls that a SIGKILL alone could come between.
  std::string fresh;
  for (int attempt = 0;; ++attempt) {
    fresh = HiddenName(target, RandomSuffix());
    if (linkat(AT_FDCWD, path_.c_str(), AT_FDCWD, fresh.c_str(),
               AT_SYMLINK_FOLLOW) == 0) {
      break;
    }
    if (errno != EEXIST || attempt == 100) return errno;
  }
  if (rename(fresh.c_str(), target.c_str()) != 0) {
    const int error = errno;
    unlink(fresh.c_str());
    return error;
  }
  moved_ = true;
  return 0;
}

namespace internal {

void ForceNamedTemporaries() { force_named = true; }

}  // namespace internal
}  // namespace q3a_tool
