// Coverage builds only. gcov writes its counters as the process exits, and
// a file-size limit that a test sets (ulimit -S -f) to cut an output short
// would cut them short too; the soft limit goes back up to the hard one
// first. Exit handlers registered here run before gcov's.
#include <sys/resource.h>

#include <cstdlib>

namespace {

void RaiseFileSizeLimit() {
  rlimit limit;
  if (getrlimit(RLIMIT_FSIZE, &limit) == 0) {
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
}

[[maybe_unused]] const int registered = std::atexit(RaiseFileSizeLimit);

}  // namespace
