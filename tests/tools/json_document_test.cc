#include "tools/q3a_tuning/lint/json_document.h"

#include <gmock/gmock.h>
#include <google/protobuf/util/json_util.h>
#include <gtest/gtest.h>

#include <string>
#include <variant>

#include "libs_v4/qAWB/proto/qawb_tuning.pb.h"
#include "tests/support/number_spellings.h"
#include "tests/support/spelled_tables.h"
#include "tools/q3a_tuning/lint/json_diagnosis.h"

namespace q3a_tool {
namespace {

struct SyntaxCase {
  const char* text;
  int line;
  int column;
};

class JsonSyntaxErrorTest : public testing::TestWithParam<SyntaxCase> {};

TEST_P(JsonSyntaxErrorTest, PointsAtTheOffendingCharacter) {
  const auto parsed = ParseJsonDocument(GetParam().text);
  ASSERT_TRUE(std::holds_alternative<JsonSyntaxError>(parsed));
  const TextPosition at = std::get<JsonSyntaxError>(parsed).position;
  EXPECT_EQ(at.line, GetParam().line);
  EXPECT_EQ(at.column, GetParam().column);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, JsonSyntaxErrorTest,
    testing::Values(SyntaxCase{"{\n  \"a\": ,\n}", 2, 8},
                    SyntaxCase{"{\"a\": 1 \"b\": 2}", 1, 9},
                    SyntaxCase{"{\"a\": [1, 2}", 1, 12},
                    SyntaxCase{"{\n\n  1a: 1}", 3, 3},
                    SyntaxCase{"{\"a\": \"open", 1, 12},
                    SyntaxCase{"{} x", 1, 4}, SyntaxCase{"", 1, 1},
                    SyntaxCase{"{\"a\": tru}", 1, 7},
                    SyntaxCase{"{\"a\": 1.2.3}", 1, 7}));

TEST(JsonDocument, FindsValuesByPathWithEitherSpellingOfKeys) {
  const auto parsed = ParseJsonDocument(
      "{\n \"region_list\": {\n  \"regionBvList\": [\n   {\"bv_value\": 1},\n"
      "   {\"bv_value\": 2}\n  ]\n }\n}");
  ASSERT_TRUE(std::holds_alternative<JsonDocument>(parsed));
  const JsonValue& root = std::get<JsonDocument>(parsed).root();

  const JsonValue* second =
      FindJsonPath(root, "region_list.region_bv_list[1].bv_value");
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(second->text(), "2");
  EXPECT_EQ(second->position().line, 5);
  EXPECT_EQ(second->position().column, 17);

  EXPECT_EQ(FindJsonPath(root, "region_list.region_bv_list[2]"), nullptr);
  EXPECT_EQ(FindJsonPath(root, "region_list.missing"), nullptr);
  EXPECT_EQ(FindJsonPath(root, "region_list[0]"), nullptr);
}

// A key written in the feature table's face tuning object must be read as
// protobuf's parser reads it: the same field found or not, and a refusal of
// the same escapes.
class KeySpellingTest : public testing::TestWithParam<std::string> {};

TEST_P(KeySpellingTest, ReadsTheKeyAsProtobufDoes) {
  const std::string text =
      "{\"face_tuning_table\": {" + GetParam() + ": 6}}";
  qawb::tuning::QAWBFeatureTuningTable message;
  const auto status = google::protobuf::util::JsonStringToMessage(text, &message);
  const bool unknown_field =
      std::string(status.message()).find("Cannot find field") !=
      std::string::npos;
  const auto parsed = ParseJsonDocument(text);
  const auto* document = std::get_if<JsonDocument>(&parsed);
  ASSERT_EQ(document != nullptr, status.ok() || unknown_field)
      << status.message();
  if (document == nullptr) return;
  const JsonValue* value =
      FindJsonPath(document->root(), "face_tuning_table.max_face_count");
  EXPECT_EQ(value != nullptr, status.ok());
  EXPECT_EQ(message.face_tuning_table().max_face_count(), status.ok() ? 6 : 0);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, KeySpellingTest,
    testing::Values(
        R"("max_face\u005fcount")", R"("max_face\u005Fcount")",
        R"("\u006dax_face_count")", R"("maxFaceCount")", R"("MaxFaceCount")",
        R"("max_faceCount")", R"("maxfacecount")", R"("max\_face_count")",
        R"("\max_face_count")", R"("max\/face_count")", "'max_face_count'",
        "max_face_count", R"("max_face_count\ud83d\ude00")",
        R"("max_face_count\ud800")", R"("max_face_count\udc00")",
        R"("max_face_count\ud800\u0041")", R"("max_face_count\u00zz")",
        R"("max_face_count\ud800\u00zz")", R"("max_face_count\u00b5")",
        R"("max_face_count\u20ac")", "\"max_face_count\xc2\xb5\"",
        "\"max_face_count\xff\"", "\"max_face_count\x01\""));

struct SchemaCase {
  const char* text;
  const char* path;  // null: the document fits
  int line;
  int column;
  const char* detail = "";  // what the tool says is wrong there
};

class JsonSchemaProblemTest : public testing::TestWithParam<SchemaCase> {};

TEST_P(JsonSchemaProblemTest, FindsTheFirstValueTheBasicTableRejects) {
  const auto parsed = ParseJsonDocument(GetParam().text);
  ASSERT_TRUE(std::holds_alternative<JsonDocument>(parsed));
  const auto problem =
      FindSchemaProblem(std::get<JsonDocument>(parsed).root(),
                        *qawb::tuning::QAWBBasicTuningTable::descriptor());
  if (GetParam().path == nullptr) {
    EXPECT_FALSE(problem.has_value()) << problem->path;
    return;
  }
  ASSERT_TRUE(problem.has_value());
  EXPECT_EQ(problem->path, GetParam().path);
  EXPECT_EQ(problem->position.line, GetParam().line);
  EXPECT_EQ(problem->position.column, GetParam().column);
  EXPECT_THAT(problem->detail, testing::HasSubstr(GetParam().detail));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, JsonSchemaProblemTest,
    testing::Values(
        // Unknown keys, at top level and nested in a list element.
        SchemaCase{"{\"initial_cct\": 1,\n \"initial_cc\": 2}", "initial_cc", 2,
                   2},
        SchemaCase{"{\"reference_point_list\": {\"reference_point_list\": "
                   "[{\"cct\": 1}, {\"ccct\": 2}]}}",
                   "reference_point_list.reference_point_list[1].ccct", 1, 65},
        // Enum names are case-sensitive; numbers are accepted.
        SchemaCase{"{\"grey_final_trust_level_list\": {\"bv_stats_trust_info\""
                   ": {\"stats_type\": {\"target_region\": "
                   "\"kQAWBFrameSummaryTypegrey\"}}}}",
                   "grey_final_trust_level_list.bv_stats_trust_info."
                   "stats_type.target_region",
                   1, 90},
        SchemaCase{"{\"grey_final_trust_level_list\": {\"bv_stats_trust_info\""
                   ": {\"stats_type\": {\"target_region\": 3}}}}",
                   nullptr, 0, 0},
        // Wrong kinds of value.
        SchemaCase{"{\"initial_cct\": \"warm\"}", "initial_cct", 1, 17,
                   "expected an integer"},
        SchemaCase{"{\"initial_cct\": 1.5}", "initial_cct", 1, 17,
                   "not a fraction"},
        SchemaCase{"{\"initial_cct\": 3000000000}", "initial_cct", 1, 17,
                   "does not fit 32 bits"},
        // Quoted, as protobuf also takes integers.
        SchemaCase{"{\"initial_cct\": \"1.5\"}", "initial_cct", 1, 17,
                   "not a fraction"},
        SchemaCase{"{\"initial_cct\": \"-3000000000\"}", "initial_cct", 1, 17,
                   "does not fit 32 bits"},
        SchemaCase{"{\"initial_gain\": {\"r_gain\": \"high\"}}",
                   "initial_gain.r_gain", 1, 29, "expected a number"},
        SchemaCase{"{\"initial_gain\": [1]}", "initial_gain", 1, 18,
                   "expected an object"},
        SchemaCase{"{\"illuminant_weight_table\": {\"cct_list\": 5}}",
                   "illuminant_weight_table.cct_list", 1, 42},
        SchemaCase{"{\"luminance_weight_table\": {\"mask_list\": [true, 1]}}",
                   "luminance_weight_table.mask_list[1]", 1, 49,
                   "expected true or false"},
        // What protobuf accepts besides plain values.
        SchemaCase{"{\"initial_cct\": \"4100\", \"initial_gain\": {\"r_gain\": "
                   "\"NaN\"}, \"flash\": null}",
                   nullptr, 0, 0}));

TEST(LocateJsonFailure, PrefersTheSyntaxErrorAndFallsBackToTheStart) {
  const auto* descriptor = qawb::tuning::QAWBBasicTuningTable::descriptor();
  const JsonLocation syntax =
      LocateJsonFailure("{\"initial_cc\": 1 2}", *descriptor);
  EXPECT_TRUE(syntax.path.empty());
  EXPECT_EQ(syntax.position.column, 18);

  const JsonLocation fits = LocateJsonFailure("{}", *descriptor);
  EXPECT_TRUE(fits.path.empty());
  EXPECT_EQ(fits.position.line, 1);
  EXPECT_EQ(fits.position.column, 1);
}

// The document reader and the schema check take exactly the unquoted
// numbers protobuf takes, in a float and in a sint32 field: the tool then
// locates a refused number where the library refuses it.
class JsonNumberSpellings : public testing::TestWithParam<int> {};

TEST_P(JsonNumberSpellings, FitWhereProtobufTakesThem) {
  const auto* descriptor = qawb::tuning::QAWBBasicTuningTable::descriptor();
  for (const std::string& spelling : q3a_test::FamilySpellings(
           static_cast<q3a_test::NumberFamily>(GetParam()), 1, 200)) {
    if (spelling[0] == '"') continue;
    for (const std::string& text :
         {R"({"initial_gain": {"r_gain": )" + spelling + "}}",
          R"({"initial_cct": )" + spelling + "}"}) {
      qawb::tuning::QAWBBasicTuningTable message;
      const bool taken =
          google::protobuf::util::JsonStringToMessage(text, &message).ok();
      const auto parsed = ParseJsonDocument(text);
      const auto* document = std::get_if<JsonDocument>(&parsed);
      const bool fits =
          document != nullptr &&
          !FindSchemaProblem(document->root(), *descriptor).has_value();
      EXPECT_EQ(fits, taken) << text;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Families, JsonNumberSpellings,
    testing::Range(0, static_cast<int>(q3a_test::NumberFamily::kCount)),
    [](const auto& info) {
      return std::string(
          q3a_test::kNumberFamilyNames[static_cast<std::size_t>(info.param)]);
    });

}  // namespace
}  // namespace q3a_tool
