// get and set by path: values come back as JSON, changes are checked
// against the schema and the record (type, narrow range, capacity), and a
// refused change says why and names the nearest field.
#include "tools/q3a_tuning/io/table_edit.h"

#include <gmock/gmock.h>
#include <google/protobuf/util/json_util.h>
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "protomsg/internal/json_options.h"
#include "protomsg/tuning_table_traits.h"
#include "tests/support/spelled_tables.h"
#include "tools/q3a_tuning/io/edit_counts.h"

#include "libs_v4/qAWB/proto/qawb_tuning.pb.h"

namespace q3a_tool {
namespace {

using testing::HasSubstr;

// Every field reachable from the four tables is of a type get and set
// handle; a field of another type added to the schema fails here.
void ExpectEditable(const google::protobuf::Descriptor& message,
                    std::set<const google::protobuf::Descriptor*>& seen) {
  if (!seen.insert(&message).second) return;
  for (int i = 0; i < message.field_count(); ++i) {
    const google::protobuf::FieldDescriptor& field = *message.field(i);
    EXPECT_TRUE(IsEditableFieldType(field.cpp_type()))
        << field.full_name() << " is a " << field.cpp_type_name();
    if (field.message_type() != nullptr) {
      ExpectEditable(*field.message_type(), seen);
    }
  }
}

TEST(TableEdit, EveryFieldOfTheSchemaHasATypeSetHandles) {
  std::set<const google::protobuf::Descriptor*> seen;
  qawb::ForEachTable([&]<typename Record>() {
    ExpectEditable(
        *protomsg::TuningTableTraits<Record>::Message::descriptor(), seen);
  });
  EXPECT_GT(seen.size(), 4u);
  EXPECT_FALSE(IsEditableFieldType(
      google::protobuf::FieldDescriptor::CPPTYPE_STRING));
}

// Each kind of value, alone and in a list; a list grows with zero entries up
// to the index set.
TEST(TableEdit, SetsAndGetsEveryKindOfValue) {
  qawb::tuning::QAWBBasicTuningTable basic;
  qawb::tuning::QAWBAdvanceTuningTable advance;
  qawb::tuning::QAWBColorControlTuningTable color;
  const std::string offset =
      "ccm_tuning_table.ccm_set.ccm_selection_set_natural."
      "ccm_selection_bv_list[0].region_list[0].ccm_value.offset";
  const std::string stats =
      "outdoor_tuning_table.outdoor_final_trust_level_list."
      "bv_stats_trust_info.stats_type";
  const struct {
    google::protobuf::Message* table;
    std::string path, value, old, read_path, read;
  } cases[] = {
      {&basic, "initial_cct", "4200", "0", "initial_cct", "4200"},
      {&basic, "initial_gain.r_gain", "1.5", "0", "initial_gain.r_gain", "1.5"},
      {&basic, "illuminant_weight_table.cct_list[2]", "7", "0",
       "illuminant_weight_table.cct_list", "[0, 0, 7]"},
      {&basic, "luminance_weight_table.mask_list[1]", "true", "false",
       "luminance_weight_table.mask_list", "[false, true]"},
      {&color, offset + "[1]", "-0.5", "0", offset, "[0, -0.5]"},
      {&advance, stats + ".target_region", "kQAWBFrameSummaryTypeGrey",
       "\"kQAWBFrameSummaryTypeInvalid\"", stats + ".target_region",
       "\"kQAWBFrameSummaryTypeGrey\""},
      {&advance, stats + ".base_region[1]", "kQAWBFrameSummaryTypeGrey",
       "\"kQAWBFrameSummaryTypeInvalid\"", stats + ".base_region",
       "[\"kQAWBFrameSummaryTypeInvalid\", \"kQAWBFrameSummaryTypeGrey\"]"},
  };
  for (const auto& c : cases) {
    const Result<std::string> old = SetValue(*c.table, c.path, c.value);
    ASSERT_TRUE(old.ok()) << c.path << ": " << old.error().message;
    EXPECT_EQ(*old, c.old) << c.path;
    EXPECT_EQ(*GetValueJson(*c.table, c.read_path), c.read) << c.path;
  }
  EXPECT_THAT(*GetValueJson(basic, "initial_gain"),
              HasSubstr("\"r_gain\": 1.5"));
}

// A value given to set is read as the same text in a JSON tuning file is:
// taken or refused alike, and the same float or integer to the bit, over
// every family of hard number spellings.
TEST(TableEdit, ReadsEveryNumberSpellingAsATuningFileDoes) {
  struct Field {
    const char* path;
    const char* json_prefix;
    const char* json_suffix;
  };
  const Field fields[] = {{"initial_gain.r_gain", R"({"initial_gain":{"r_gain":)",
                           "}}"},
                          {"initial_cct", R"({"initial_cct":)", "}"}};
  for (int f = 0; f < static_cast<int>(q3a_test::NumberFamily::kCount); ++f) {
    const auto family = static_cast<q3a_test::NumberFamily>(f);
    for (const std::string& text : q3a_test::FamilySpellings(family, 2, 60)) {
      if (text.front() == '"') continue;  // a JSON string, not a typed value
      for (const Field& field : fields) {
        SCOPED_TRACE(std::string(field.path) + " = " + text);
        qawb::tuning::QAWBBasicTuningTable edited;
        qawb::tuning::QAWBBasicTuningTable loaded;
        const bool set = SetValue(edited, field.path, text).ok();
        const bool read =
            google::protobuf::util::JsonStringToMessage(
                field.json_prefix + text + field.json_suffix, &loaded,
                protomsg::internal::TuningFileParseOptions())
                .ok();
        EXPECT_EQ(set, read);
        if (!set || !read) continue;
        // A typed "-0" stays negative (a JSON file reads the integer 0).
        const bool typed_negative_zero =
            text == "-0" && field.path == fields[0].path;
        const float expected =
            typed_negative_zero ? -0.0f : loaded.initial_gain().r_gain();
        EXPECT_EQ(std::bit_cast<std::uint32_t>(edited.initial_gain().r_gain()),
                  std::bit_cast<std::uint32_t>(expected));
        EXPECT_EQ(edited.initial_cct(), loaded.initial_cct());
      }
    }
  }
}

struct RefusedEdit {
  const char* name;
  const char* path;
  const char* value;
  const char* says;
};

class RefusedEditTest : public testing::TestWithParam<RefusedEdit> {};

TEST_P(RefusedEditTest, SaysWhyAndChangesNothingItReports) {
  qawb::tuning::QAWBBasicTuningTable table;
  const Result<std::string> result =
      SetValue(table, GetParam().path, GetParam().value);
  ASSERT_FALSE(result.ok());
  EXPECT_THAT(result.error().message, HasSubstr(GetParam().says));
  EXPECT_EQ(result.error().exit_code, kExitUsage);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RefusedEditTest,
    testing::Values(
        RefusedEdit{"Typo", "initial_ct", "1", "did you mean initial_cct?"},
        RefusedEdit{"NotAnInteger", "initial_cct", "warm",
                    "expected an integer"},
        RefusedEdit{"NarrowField", "version.major", "65536",
                    "does not fit the record's field (0..65535)"},
        RefusedEdit{"PastCapacity", "illuminant_weight_table.cct_list[36]", "1",
                    "holds 36 entries"},
        RefusedEdit{"NotFinite", "initial_gain.r_gain", "inf",
                    "expected a finite number"},
        RefusedEdit{"WholeList", "illuminant_weight_table.cct_list", "1",
                    "set one entry"},
        RefusedEdit{"SubTable", "initial_gain", "1", "set its fields"},
        RefusedEdit{"IndexOnAValue", "initial_cct[0]", "1", "not a list"},
        RefusedEdit{"IndexNotANumber", "illuminant_weight_table.cct_list[x]",
                    "1", "'cct_list[x]' is not NAME or NAME[INDEX]"},
        RefusedEdit{"NegativeIndex", "illuminant_weight_table.cct_list[-1]",
                    "1", "is not NAME or NAME[INDEX]"},
        RefusedEdit{"ThroughAValue", "initial_cct.warm", "1",
                    "initial_cct is a value, not a table"},
        RefusedEdit{"ListWithoutIndex",
                    "reference_point_list.reference_point_list.cct", "1",
                    "is a list: give an index, reference_point_list[0]"},
        RefusedEdit{"NotAFlag", "luminance_weight_table.mask_list[0]", "yes",
                    "expected true or false"},
        RefusedEdit{"KindInOtherCase",
                    "grey_final_trust_level_list.bv_stats_trust_info."
                    "stats_type.target_region",
                    "kQAWBFrameSummaryTypegrey",
                    "is not a value of QAWBFrameSummaryType; did you mean "
                    "kQAWBFrameSummaryTypeGrey?"}),
    [](const auto& info) { return info.param.name; });

TEST(TableEdit, GetRefusesAnEntryPastTheList) {
  qawb::tuning::QAWBBasicTuningTable table;
  const Result<std::string> value =
      GetValueJson(table, "illuminant_weight_table.cct_list[3]");
  ASSERT_FALSE(value.ok());
  EXPECT_THAT(value.error().message, HasSubstr("cct_list has 0 entries"));
}

// Edits the library takes without a word: an entry no count reaches, a
// count past the capacity. Entries are counted through nested lists and
// rows of the flag matrix.
struct CountedEdit {
  const char* name;
  std::vector<std::string> assignments;
  const char* unused;         // the warning holds this ("" : no warning)
  const char* over_capacity;  // the refusal holds this ("" : none)
};

class CountedEditTest : public testing::TestWithParam<CountedEdit> {};

TEST_P(CountedEditTest, WarnsOfUnusedEntriesAndRefusesOverfullCounts) {
  qawb::tuning::QAWBBasicTuningTable table;
  std::vector<std::string> paths;
  for (const std::string& assignment : GetParam().assignments) {
    const std::size_t equals = assignment.find('=');
    paths.push_back(assignment.substr(0, equals));
    ASSERT_TRUE(
        SetValue(table, paths.back(), assignment.substr(equals + 1)).ok());
  }
  const EditCountCheck check = CheckEditedCounts(table, paths);
  std::vector<std::string> unused;
  for (const Diagnostic& entry : check.unused_entries) {
    unused.push_back(DiagnosticText(entry));
  }
  for (const auto& [found, expected] :
       {std::pair{unused, GetParam().unused},
        std::pair{check.over_capacity, GetParam().over_capacity}}) {
    if (*expected == '\0') {
      EXPECT_TRUE(found.empty()) << found[0];
    } else {
      ASSERT_EQ(found.size(), 1u);
      EXPECT_THAT(found[0], HasSubstr(expected));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CountedEditTest,
    testing::Values(
        CountedEdit{"WithinTheCount",
                    {"illuminant_weight_table.cct_number=3",
                     "illuminant_weight_table.cct_list[2]=7"},
                    "", ""},
        CountedEdit{"AtTheCount",
                    {"illuminant_weight_table.cct_number=2",
                     "illuminant_weight_table.cct_list[2]=7"},
                    "cct_list[2]: entry 2 is at or past "
                    "illuminant_weight_table.cct_number (2)",
                    ""},
        CountedEdit{"PastTheOuterCountOfANestedList",
                    {"region_list.bv_number=2", "region_list.radius_numbers=5",
                     "region_list.region_bv_list[4].region_list[0]"
                     ".radius_list[3]=9"},
                    "entry 4 is at or past region_list.bv_number (2)", ""},
        CountedEdit{"RowOfTheFlagMatrix",
                    {"luminance_weight_table.bv_number=1",
                     "luminance_weight_table.mask_list[9]=true"},
                    "entry 1 is at or past luminance_weight_table.bv_number",
                    ""},
        CountedEdit{"CountAtCapacity",
                    {"illuminant_weight_table.cct_number=36"}, "", ""},
        CountedEdit{"CountPastCapacity",
                    {"illuminant_weight_table.cct_number=37"}, "",
                    "illuminant_weight_table.cct_number is 37 but "
                    "illuminant_weight_table.cct_list holds at most 36"}),
    [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace q3a_tool
