// Every spelling of a number loads as protobuf's JSON parser reads it: the
// same value to the bit (sign of zero included) and the same acceptance,
// for float, integer, bool and enum fields, and in whole files of all four
// tables. Spellings come family by family from fixed seeds.
#include "protomsg/internal/json_number.h"

#include <google/protobuf/util/json_util.h>
#include <gtest/gtest.h>
#include <simdjson.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "protomsg/internal/json_options.h"
#include "protomsg/internal/json_reader.h"
#include "protomsg/internal/message_for.h"
#include "protomsg/record_conversions.h"
#include "protomsg/tuning_table_traits.h"
#include "tests/support/number_spellings.h"
#include "tests/support/record_pairs.h"
#include "tests/support/record_values.h"
#include "tests/support/scoped_temp_dir.h"
#include "tests/support/spelled_tables.h"

namespace {

using q3a_test::NumberFamily;

constexpr int kSeeds = 5;
constexpr int kSpellingsPerSeed = 200;

std::vector<std::string> Spellings(NumberFamily family) {
  return q3a_test::FamilySpellings(family, kSeeds, kSpellingsPerSeed);
}

// Protobuf's answer for `text`: parse, then ConvertToStruct over `start`.
template <typename Record>
bool ProtobufRead(const std::string& text, Record& record) {
  typename protomsg::internal::MessageFor<Record>::type message;
  if (!google::protobuf::util::JsonStringToMessage(
           text, &message, protomsg::internal::TuningFileParseOptions())
           .ok()) {
    return false;
  }
  protomsg::ConvertToStruct(message, record);
  return true;
}

// One field of a small record, read directly and by protobuf. The direct
// reader may leave a text to protobuf, but what it takes it must take as
// protobuf does; `decides` says it must also decide every unquoted spelling
// itself, so that the exact path is not bought with a slow one.
template <typename Record>
struct FieldProbe {
  const char* key;
  bool decides;
  // Whether protobuf took the spelling.
  bool Check(simdjson::ondemand::parser& parser, const std::string& value) {
    const std::string text = std::string("{\"") + key + "\": " + value + "}";
    const auto start = q3a_test::MakeRecord<Record>(3);
    auto direct = std::make_unique<Record>(*start);
    auto expected = std::make_unique<Record>(*start);
    const simdjson::padded_string padded(text);
    const bool direct_ok =
        protomsg::internal::ReadCanonicalJson(parser, padded, *direct);
    const bool protobuf_ok = ProtobufRead(text, *expected);
    if (direct_ok) {
      EXPECT_TRUE(protobuf_ok) << "taken, protobuf refuses: " << text;
      EXPECT_TRUE(q3a_test::SameBytes(*direct, *expected)) << text;
    } else if (decides && value[value.find_first_not_of('[')] != '"') {
      EXPECT_FALSE(protobuf_ok) << "left to protobuf: " << text;
    }
    return protobuf_ok;
  }
};

class NumberSpellings : public ::testing::TestWithParam<int> {};

// Floats, sint32 (full and 16-bit records), bools and enums, one spelling
// at a time.
TEST_P(NumberSpellings, LoadAsProtobufReadsThem) {
  simdjson::ondemand::parser parser;
  FieldProbe<qawb::QAWBStatsResize> floats{"crop_maximum_ratio", true};
  FieldProbe<qawb::QAWBStatsResize> integers{"zoom_crop_enable_flag", true};
  FieldProbe<qawb::QAWBParameterVersion> narrow{"minor", true};
  FieldProbe<qawb::QAWBLuminanceWeight> bools{"mask_list", true};
  // Protobuf also takes enum values as numbers, which the reader leaves to it.
  FieldProbe<qawb::QAWBTrustLevelStatsRegionType> enums{"target_region", false};
  int taken = 0;
  const std::vector<std::string> spellings =
      Spellings(static_cast<NumberFamily>(GetParam()));
  for (const std::string& spelling : spellings) {
    taken += floats.Check(parser, spelling);
    integers.Check(parser, spelling);
    narrow.Check(parser, spelling);
    bools.Check(parser, "[" + spelling + "]");
    enums.Check(parser, spelling);
  }
  // Each family holds spellings protobuf takes for a float.
  EXPECT_GT(taken, 0);
}

// The families' spellings in every float and integer of a whole table,
// through the library's file reader: the text protobuf takes, and the same
// text with one spelling it refuses at the end, which must leave the
// table as it was.
template <typename Table>
class SpelledTable : public ::testing::Test {};
TYPED_TEST_SUITE(SpelledTable, q3a_test::AllTables);

TYPED_TEST(SpelledTable, LoadsAsProtobufReadsIt) {
  using Table = TypeParam;
  q3a_test::ScopedTempDir dir;
  const std::string path = dir.File("table.json");
  for (int f = 0; f < static_cast<int>(NumberFamily::kCount); ++f) {
    const auto family = static_cast<NumberFamily>(f);
    SCOPED_TRACE(q3a_test::kNumberFamilyNames[static_cast<std::size_t>(f)]);
    const q3a_test::SortedSpellings sorted =
        q3a_test::SortByProtobuf(Spellings(family));
    const std::vector<std::string>& float_spellings = sorted.floats;
    const std::vector<std::string>& integer_spellings = sorted.integers;
    const std::string& refused = sorted.refused_float;
    // The same floats again with a refused one in the last float.
    const std::string marked = q3a_test::SpelledTableText<Table>({"\x01"}, {});
    std::vector<std::string> refusing;
    for (const char c : marked) {
      if (c == '\x01' && !float_spellings.empty()) {
        refusing.push_back(
            float_spellings[refusing.size() % float_spellings.size()]);
      }
    }
    if (!refusing.empty() && !refused.empty()) refusing.back() = refused;
    const std::vector<std::string> none;
    const struct {
      const std::vector<std::string>* floats;
      const std::vector<std::string>* integers;
    } texts[] = {{&float_spellings, &none},
                 {&float_spellings, &integer_spellings},
                 {&refusing, &none}};
    for (const auto& [spelled, integers] : texts) {
      const bool with_refused = spelled == &refusing;
      if (with_refused && (refused.empty() || refusing.empty())) continue;
      const std::string text =
          q3a_test::SpelledTableText<Table>(*spelled, *integers);
      std::ofstream(path, std::ios::trunc) << text;
      const auto start = q3a_test::MakeRecord<Table>(4);
      auto read = std::make_unique<Table>(*start);
      auto expected = std::make_unique<Table>(*start);
      const bool ok =
          protomsg::TuningTableTraits<Table>::kReadJson(path, *read);
      EXPECT_EQ(ok, ProtobufRead(text, *expected)) << with_refused;
      EXPECT_EQ(ok, !with_refused);
      EXPECT_TRUE(q3a_test::SameBytes(*read, *expected)) << with_refused;
      // Unquoted numbers alone never need protobuf's parser.
      const auto quoted = [](const std::vector<std::string>& list) {
        return std::any_of(list.begin(), list.end(),
                           [](const std::string& s) { return s[0] == '"'; });
      };
      if (!with_refused && !quoted(*spelled) && !quoted(*integers)) {
        simdjson::ondemand::parser parser;
        const simdjson::padded_string padded(text);
        auto direct = std::make_unique<Table>(*start);
        EXPECT_TRUE(
            protomsg::internal::ReadCanonicalJson(parser, padded, *direct));
        EXPECT_TRUE(q3a_test::SameBytes(*direct, *expected));
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Families, NumberSpellings,
    ::testing::Range(0, static_cast<int>(NumberFamily::kCount)),
    [](const auto& info) {
      return std::string(
          q3a_test::kNumberFamilyNames[static_cast<std::size_t>(info.param)]);
    });

}  // namespace
