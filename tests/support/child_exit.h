// The end of a forked test child: _exit, so that none of the parent's exit
// handlers run twice. In a coverage build the child's counters are written
// first, which _exit alone would lose, past any file-size limit the child
// set itself.
#ifndef TESTS_SUPPORT_CHILD_EXIT_H_
#define TESTS_SUPPORT_CHILD_EXIT_H_

#include <sys/resource.h>
#include <unistd.h>

#ifdef Q3A_COVERAGE
extern "C" void __gcov_dump(void);
#endif

namespace q3a_test {

[[noreturn]] inline void ExitChild(int code) {
#ifdef Q3A_COVERAGE
  rlimit limit;
  if (getrlimit(RLIMIT_FSIZE, &limit) == 0) {
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  __gcov_dump();
#endif
  _exit(code);
}

}  // namespace q3a_test

#endif  // TESTS_SUPPORT_CHILD_EXIT_H_
