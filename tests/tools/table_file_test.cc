// Tuning files as the tool writes them: what JSON cannot hold is written as
// what a JSON file reads back as, and said; the wire format keeps every bit.
#include "tools/q3a_tuning/io/table_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

#include "tests/support/scoped_temp_dir.h"

namespace q3a_tool {
namespace {

using testing::HasSubstr;

TEST(WriteTableFile, JsonHoldsNoNegativeZeroNorNaNPayloadAndSaysSo) {
  q3a_test::ScopedTempDir dir;
  auto table = MakeZeroedTable<qawb::QAWBBasicTuningTable>();
  table->initial_gain.r_gain = -0.0f;
  table->initial_gain.b_gain = -std::numeric_limits<float>::quiet_NaN();
  const Result<std::vector<Diagnostic>> json =
      WriteTableFile(dir.File("t.json"), *table, {FileFormat::kJson});
  ASSERT_TRUE(json.ok()) << json.error().message;
  ASSERT_EQ(json->size(), 1u);
  const std::string warning = DiagnosticText((*json)[0]);
  EXPECT_THAT(warning, HasSubstr("warning: " + dir.File("t.json") +
                                 ": 1 value(s) of -0 written as 0 (the "
                                 "first at initial_gain.r_gain)"));
  EXPECT_THAT(warning, HasSubstr("1 NaN(s) with a sign or payload"));
  auto back = MakeZeroedTable<qawb::QAWBBasicTuningTable>();
  ASSERT_TRUE(ReadTableFile(dir.File("t.json"), FileFormat::kJson, *back));
  EXPECT_FALSE(std::signbit(back->initial_gain.r_gain));
  EXPECT_TRUE(std::isnan(back->initial_gain.b_gain));

  const Result<std::vector<Diagnostic>> binary =
      WriteTableFile(dir.File("t.pb"), *table, {FileFormat::kBinary});
  ASSERT_TRUE(binary.ok()) << binary.error().message;
  EXPECT_TRUE(binary->empty());
  ASSERT_TRUE(ReadTableFile(dir.File("t.pb"), FileFormat::kBinary, *back));
  EXPECT_EQ(std::memcmp(&back->initial_gain, &table->initial_gain,
                        sizeof(table->initial_gain)),
            0);
}

}  // namespace
}  // namespace q3a_tool
