// Fuzzes the four binary protobuf tuning file readers; the first input byte
// picks the table.
#include <cstddef>
#include <cstdint>

#include "fuzz/fuzz_support.h"
#include "fuzz/table_file_check.h"
#include "protomsg/tuning_files.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  q3a_fuzz::CheckSelectedTableFile(data, size,
                                   q3a_fuzz::TableFileFormat::kProtobuf);
  return 0;
}
