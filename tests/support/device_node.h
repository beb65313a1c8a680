// A device node of the test's own, made with mknod among its scratch files.
// Tests of how the tool treats devices use it and never the machine's
// /dev/null: should the refusal regress, the tool would replace the node it
// was aimed at, and a replaced /dev/null breaks every later step of a build.
#ifndef TESTS_SUPPORT_DEVICE_NODE_H_
#define TESTS_SUPPORT_DEVICE_NODE_H_

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <cerrno>
#include <cstring>
#include <string>

namespace q3a_test {

// Makes a null device (character 1,3) at `path`. Returns "" on success, else
// why not, for GTEST_SKIP: mknod needs CAP_MKNOD.
inline std::string MakeNullDevice(const std::string& path) {
  if (mknod(path.c_str(), S_IFCHR | 0666, makedev(1, 3)) == 0) return "";
  return std::string("mknod of a device node is not permitted here (") +
         std::strerror(errno) + ")";
}

}  // namespace q3a_test

#endif  // TESTS_SUPPORT_DEVICE_NODE_H_
