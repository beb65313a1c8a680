// Tuning binary files of the wrong size: each is rejected whole, however much
// of it holds valid tables, and the container keeps every byte it had.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "tests/hardening/file_bytes.h"
#include "tests/support/record_values.h"
#include "tests/support/scoped_temp_dir.h"
#include "tests/support/tuning_bytes.h"

namespace {

constexpr std::size_t kFileSize =
    qawb::MutableQAWBTuning::kTuningBinaryFileSize;

using q3a_test::TableBytes;

struct WrongSize {
  const char* name;
  std::size_t size;
};

class WrongSizeTuningBinaryFileTest : public testing::TestWithParam<WrongSize> {
};

TEST_P(WrongSizeTuningBinaryFileTest, IsRejectedWhole) {
  q3a_test::ScopedTempDir dir;
  // The file's bytes are a valid dump of other tables, cut or extended, so a
  // reader that took any of it would show.
  qawb::MutableQAWBTuning other;
  other.ReadFromTable(
      q3a_test::MakeRecord<qawb::QAWBBasicTuningTable>(11).get(),
      q3a_test::MakeRecord<qawb::QAWBAdvanceTuningTable>(12).get(),
      q3a_test::MakeRecord<qawb::QAWBColorControlTuningTable>(13).get(),
      q3a_test::MakeRecord<qawb::QAWBFeatureTuningTable>(14).get());
  std::string bytes = TableBytes(other);
  ASSERT_EQ(bytes.size(), kFileSize);
  const std::size_t size = GetParam().size;
  bytes += bytes;
  bytes.resize(std::min(size, bytes.size()));
  q3a_test::WriteFileBytes(dir.File("tables.bin"), bytes);
  // Larger sizes are left sparse: zeros after two dumps.
  std::filesystem::resize_file(dir.File("tables.bin"), size);

  qawb::MutableQAWBTuning tuning;
  const std::string before = TableBytes(tuning);
  EXPECT_FALSE(tuning.ReadFromFile(dir.File("tables.bin")));
  EXPECT_TRUE(TableBytes(tuning) == before);
}

INSTANTIATE_TEST_SUITE_P(
    MutableQAWBTuning, WrongSizeTuningBinaryFileTest,
    testing::Values(WrongSize{"Empty", 0}, WrongSize{"OneByte", 1},
                    WrongSize{"BasicTableOnly", 24208},
                    WrongSize{"FirstThreeTables", 69760},
                    WrongSize{"OneByteShort", kFileSize - 1},
                    WrongSize{"OneByteLong", kFileSize + 1},
                    WrongSize{"TwoDumps", 2 * kFileSize},
                    // Its low 32 bits alone would pass the size check.
                    WrongSize{"SizePlus4GiB",
                              kFileSize + (std::size_t{1} << 32)}),
    [](const testing::TestParamInfo<WrongSize>& info) {
      return std::string(info.param.name);
    });

}  // namespace
