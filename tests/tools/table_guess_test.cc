// Which table a file holds: every table written by the library's writers is
// named as itself in both formats and refused as any other, a container
// dump is named as such, and what fits several tables is not guessed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/scoped_temp_dir.h"
#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/io/input_file.h"
#include "tools/q3a_tuning/io/tuning_binary_file.h"
#include "tools/q3a_tuning/lint/table_guess.h"

namespace q3a_tool {
namespace {

class TableGuessTest : public testing::TestWithParam<FileFormat> {};

TEST_P(TableGuessTest, NamesEveryDefaultTableAndRefusesTheOthers) {
  q3a_test::ScopedTempDir dir;
  const auto defaults = DefaultContainer();
  const TableFilesResult result =
      WriteTableFiles(*defaults, dir.path().string(), {GetParam()});
  ASSERT_TRUE(result.errors.empty());
  const std::vector<std::string>& written = result.written;
  for (std::size_t i = 0; i < written.size(); ++i) {
    const qawb::TableId kind = kAllTableIds[i];
    const Result<std::string> content = ReadInputFile(written[i]);
    ASSERT_TRUE(content.ok());
    const TableGuess guess = GuessTable(*content, GetParam());
    ASSERT_TRUE(guess.kind.has_value()) << written[i] << ": " << guess.note;
    EXPECT_EQ(*guess.kind, kind) << written[i];
    EXPECT_TRUE(guess.certain);
    for (qawb::TableId other : kAllTableIds) {
      const auto refused =
          CheckTableFits(written[i], *content, GetParam(), other);
      EXPECT_EQ(!refused.ok(), other != kind) << written[i];
      if (!refused.ok()) {
        EXPECT_THAT(refused.error().message,
                    testing::HasSubstr(
                        std::string("this is ") +
                        (kind == qawb::TableId::kAdvance ? "an " : "a ") +
                        std::string(TableName(kind))));
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, TableGuessTest,
                         testing::Values(FileFormat::kJson,
                                         FileFormat::kBinary));

TEST(TableGuess, NamesATuningBinaryFile) {
  q3a_test::ScopedTempDir dir;
  const auto defaults = DefaultContainer();
  ASSERT_TRUE(WriteTuningBinaryFile(dir.File("t.bin"), *defaults, {}).ok());
  const Result<std::string> content = ReadInputFile(dir.File("t.bin"));
  ASSERT_TRUE(content.ok());
  for (FileFormat format : {FileFormat::kJson, FileFormat::kBinary}) {
    const TableGuess guess = GuessTable(*content, format);
    EXPECT_TRUE(guess.container_dump);
    EXPECT_THAT(guess.note, testing::HasSubstr("q3a-tuning inspect"));
  }
  // One byte short, it is just bytes.
  EXPECT_FALSE(GuessTable(content->substr(1), FileFormat::kBinary)
                   .container_dump);
}

TEST(TableGuess, DoesNotGuessWhatFitsEveryTable) {
  for (const auto& [text, format] :
       {std::pair<std::string, FileFormat>{"{}", FileFormat::kJson},
        {"", FileFormat::kBinary},
        {R"({"version": {"major": 3}})", FileFormat::kJson}}) {
    const TableGuess guess = GuessTable(text, format);
    EXPECT_FALSE(guess.certain) << text;
    EXPECT_THAT(guess.note, testing::HasSubstr("fits several tables")) << text;
  }
}

}  // namespace
}  // namespace q3a_tool
