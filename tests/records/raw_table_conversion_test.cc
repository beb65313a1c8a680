// Tables restored from a tuning binary file hold whatever bytes the file had,
// including bools that are neither 0 nor 1. Converting such a table must read
// those bytes as bytes: loading them as bool is undefined behaviour, which
// the sanitizer build turns into a failure.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "libs_v4/qAWB/proto/qawb_tuning.pb.h"
#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "protomsg/record_conversions.h"
#include "tests/support/file_bytes.h"
#include "tests/support/scoped_temp_dir.h"

namespace {

TEST(RawTableConversion, BoolBytesOtherThanZeroOrOneConvertToTrue) {
  q3a_test::ScopedTempDir dir;
  qawb::MutableQAWBTuning tuning;
  tuning.WriteToFile(dir.File("tables.bin"));
  std::string bytes = q3a_test::ReadFile(dir.File("tables.bin"));
  ASSERT_EQ(bytes.size(), qawb::MutableQAWBTuning::kTuningBinaryFileSize);
  // The basic table comes first in the file.
  constexpr std::size_t kMasks =
      offsetof(qawb::QAWBBasicTuningTable, luminance_weight_table) +
      offsetof(qawb::QAWBLuminanceWeight, mask_list);
  bytes[kMasks] = '\x02';
  bytes[kMasks + 1] = '\xff';
  bytes[kMasks + 2] = '\x00';
  q3a_test::WriteFile(dir.File("tables.bin"), bytes);
  ASSERT_TRUE(tuning.ReadFromFile(dir.File("tables.bin")));

  qawb::tuning::QAWBBasicTuningTable message;
  protomsg::ConvertToMessage(*tuning.GetBasicTuningTable(), message);

  const auto& masks = message.luminance_weight_table().mask_list();
  ASSERT_EQ(masks.size(), 90);
  EXPECT_TRUE(masks[0]);
  EXPECT_TRUE(masks[1]);
  EXPECT_FALSE(masks[2]);
}

}  // namespace
