// The tool shows what the library loads from files of all four tables whose
// numbers are spelled in hard ways (the number suite's families): `get`
// prints the loaded values, and `diff` against the loaded table written as
// a binary file finds nothing.
#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>

#include "protomsg/record_conversions.h"
#include "protomsg/tuning_files.h"
#include "protomsg/tuning_table_traits.h"
#include "tests/support/number_spellings.h"
#include "tests/support/record_pairs.h"
#include "tests/support/record_values.h"
#include "tests/support/scoped_temp_dir.h"
#include "tests/support/spelled_tables.h"
#include "tests/tools/get_check.h"
#include "tests/tools/tool_runner.h"

namespace q3a_test {
namespace {

template <typename Table>
class SpelledTableTool : public ::testing::Test {};
TYPED_TEST_SUITE(SpelledTableTool, AllTables);

TYPED_TEST(SpelledTableTool, ShowsWhatTheLibraryLoads) {
  using Table = TypeParam;
  using Traits = protomsg::TuningTableTraits<Table>;
  const auto* descriptor = Traits::Message::descriptor();
  const int fields = descriptor->field_count();
  ScopedTempDir dir;
  const std::string scratch = dir.path().string();
  const std::string spelled = dir.File("spelled.json");
  const std::string loaded_file = dir.File("loaded.pb");
  for (int f = 0; f < static_cast<int>(NumberFamily::kCount); ++f) {
    SCOPED_TRACE(kNumberFamilyNames[static_cast<std::size_t>(f)]);
    const SortedSpellings sorted = SortByProtobuf(
        FamilySpellings(static_cast<NumberFamily>(f), 1, 200));
    std::ofstream(spelled, std::ios::trunc)
        << SpelledTableText<Table>(sorted.floats, sorted.integers);
    auto loaded = MakeRecord<Table>(0);
    ASSERT_TRUE(Traits::kReadJson(spelled, *loaded));
    typename Traits::Message message;
    protomsg::ConvertToMessage(*loaded, message);

    // Two top-level fields a family, so the families cover them all.
    for (int k = 0; k < 2; ++k) {
      const std::string path = descriptor->field((2 * f + k) % fields)->name();
      ExpectGetPrints(spelled, message, path, scratch);
    }

    // Binary keeps every float bit (-0 included), so nothing may differ.
    protomsg::SaveTuningTableWithProtobuf(loaded_file, *loaded);
    const ToolResult diff = RunTool({"diff", loaded_file, spelled}, scratch);
    EXPECT_EQ(diff.exit_code, 0) << diff.out << diff.err;
  }
}

}  // namespace
}  // namespace q3a_test
