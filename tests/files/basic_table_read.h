// One file read as a basic table over a table of known contents, for the
// suites of broken and odd tuning files.
#ifndef TESTS_FILES_BASIC_TABLE_READ_H_
#define TESTS_FILES_BASIC_TABLE_READ_H_

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "awb_records/qawb_basic_tuning_table.h"
#include "tests/support/file_bytes.h"
#include "tests/support/record_values.h"
#include "tests/support/scoped_temp_dir.h"

namespace q3a_test {

// What an accepted file must have left: `after` is the table read into,
// `before` a copy of it from before the read.
using BasicTableCheck =
    std::function<void(const qawb::QAWBBasicTuningTable& after,
                       const qawb::QAWBBasicTuningTable& before)>;

// Writes `content` to a file and reads it with `read` over a table made from
// `seed`. Expects the read to give `accepted`; then `check` on acceptance,
// and on refusal a table left byte for byte as it was.
inline void ExpectBasicTableRead(bool (*read)(const std::string&,
                                              qawb::QAWBBasicTuningTable&),
                                 const std::string& content, int seed,
                                 bool accepted, const BasicTableCheck& check) {
  ScopedTempDir dir;
  WriteFile(dir.File("basic"), content);
  auto table = MakeRecord<qawb::QAWBBasicTuningTable>(seed);
  const auto before = std::make_unique<qawb::QAWBBasicTuningTable>(*table);
  ASSERT_EQ(read(dir.File("basic"), *table), accepted);
  if (accepted) {
    check(*table, *before);
  } else {
    EXPECT_TRUE(SameBytes(*table, *before)) << "rejected file changed it";
  }
}

}  // namespace q3a_test

#endif  // TESTS_FILES_BASIC_TABLE_READ_H_
