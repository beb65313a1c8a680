// The bytes a container's tuning binary file holds, read from its four
// tables in memory, for comparing containers with files byte for byte.
#ifndef TESTS_SUPPORT_TUNING_BYTES_H_
#define TESTS_SUPPORT_TUNING_BYTES_H_

#include <string>

#include "libs_v4/qAWB/src/base/table_access.h"

namespace q3a_test {

inline std::string TableBytes(const qawb::QAWBTuning& tuning) {
  std::string bytes;
  qawb::ForEachTable([&]<typename Record>() {
    bytes.append(reinterpret_cast<const char*>(qawb::GetTable<Record>(tuning)),
                 sizeof(Record));
  });
  return bytes;
}

}  // namespace q3a_test

#endif  // TESTS_SUPPORT_TUNING_BYTES_H_
