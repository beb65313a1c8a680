// Random edits through `set` (and key spellings written by hand) on the
// exported tables of several containers, from fixed seeds: `get` prints
// what the library loads, as protobuf's parser and ConvertToStruct read
// the file, and `validate` is clean exactly when no edit put in something
// the library swallows.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <google/protobuf/util/json_util.h>
#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <vector>

#include "coordinator/tuning_map.h"
#include "protomsg/record_conversions.h"
#include "tests/tools/get_check.h"
#include "tests/tools/tool_runner.h"
#include "tools/q3a_tuning/io/count_rules.h"
#include "tools/q3a_tuning/io/field_limits.h"
#include "tools/q3a_tuning/io/registry_view.h"
#include "tools/q3a_tuning/io/table_file.h"

namespace q3a_test {
namespace {

using google::protobuf::FieldDescriptor;
using google::protobuf::Message;
using q3a_tool::FileFormat;
using qawb::TableId;

// A scalar of a table message, as set and get name it.
struct Leaf {
  std::string path;
  const FieldDescriptor* field;
  std::string message;  // the holding message's type name
};

void CollectLeaves(const Message& message, const std::string& path,
                   std::vector<Leaf>& leaves) {
  const auto& descriptor = *message.GetDescriptor();
  const auto& reflection = *message.GetReflection();
  for (int i = 0; i < descriptor.field_count(); ++i) {
    const FieldDescriptor* field = descriptor.field(i);
    const std::string field_path =
        path.empty() ? field->name() : path + "." + field->name();
    const bool is_message =
        field->cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE;
    if (!field->is_repeated()) {
      if (!is_message) {
        leaves.push_back({field_path, field, descriptor.name()});
      } else if (reflection.HasField(message, field)) {
        CollectLeaves(reflection.GetMessage(message, field), field_path,
                      leaves);
      }
      continue;
    }
    for (int e = 0; e < reflection.FieldSize(message, field); ++e) {
      const std::string element = fmt::format("{}[{}]", field_path, e);
      if (is_message) {
        CollectLeaves(reflection.GetRepeatedMessage(message, field, e),
                      element, leaves);
      } else {
        leaves.push_back({element, field, descriptor.name()});
      }
    }
  }
}

bool IsCount(const Leaf& leaf) {
  for (const q3a_tool::CountRule& rule : q3a_tool::AllCountRules()) {
    if (rule.message == leaf.message && rule.count_field == leaf.field->name()) {
      return true;
    }
  }
  return false;
}

// A value the library reads as written and the lint has nothing to say of.
std::string HarmlessValue(const Leaf& leaf, std::mt19937& random) {
  switch (leaf.field->cpp_type()) {
    case FieldDescriptor::CPPTYPE_FLOAT:
      return fmt::format(
          "{:.3f}", std::uniform_real_distribution<>(-100, 100)(random));
    case FieldDescriptor::CPPTYPE_BOOL:
      return random() % 2 ? "true" : "false";
    case FieldDescriptor::CPPTYPE_ENUM:  // a real kind of statistics
      return leaf.field->enum_type()->value(1 + random() % 9)->name();
    default: {
      const q3a_tool::FieldLimit* limit =
          q3a_tool::FindFieldLimit(leaf.message, leaf.field->name());
      long low = -5000, high = 5000;
      if (limit != nullptr && limit->narrow) {
        low = std::max<long>(low, limit->min);
        high = std::min<long>(high, limit->max);
      }
      return std::to_string(
          std::uniform_int_distribution<long>(low, high)(random));
    }
  }
}

// The exported tables of one container, in both formats.
std::vector<std::string> ContainerKeys() {
  std::vector<std::string> keys;
  std::set<const void*> seen;
  for (const auto& r :
       q3a_tool::ListRegistrations(q3a_coordinator::GetTuningMap())) {
    if (r.node == q3a_api::kAwb && seen.insert(r.object).second &&
        keys.size() < 3) {
      keys.push_back(q3a_tool::FormatTuningKey(r.key));
    }
  }
  return keys;
}

struct EditCase {
  std::string key;
  int seed;
};

void PrintTo(const EditCase& c, std::ostream* os) {
  *os << c.key << " seed " << c.seed;
}

class EditPropertyTest : public ToolTest,
                         public testing::WithParamInterface<EditCase> {
 protected:
  // The table message of `file` as protobuf's parser reads it.
  template <typename Record>
  bool ParseReference(
      const std::string& file, FileFormat format,
      typename protomsg::TuningTableTraits<Record>::Message& loaded) {
    const std::string text = ReadFile(file);
    typename protomsg::TuningTableTraits<Record>::Message parsed;
    const bool ok =
        format == FileFormat::kJson
            ? google::protobuf::util::JsonStringToMessage(text, &parsed).ok()
            : parsed.ParseFromString(text);
    if (!ok) return false;
    auto record = q3a_tool::MakeZeroedTable<Record>();
    protomsg::ConvertToStruct(parsed, *record);
    protomsg::ConvertToMessage(*record, loaded);
    return true;
  }
};

// One table of the container, edited at random: harmless values, key
// spellings protobuf reads as the field's, and at most one thing the
// library swallows, whose rule validate must name, and no other.
TEST_P(EditPropertyTest, GetShowsWhatTheLibraryLoadsAndValidateSeesWhatItSwallows) {
  std::mt19937 random(GetParam().seed);
  const FileFormat format =
      GetParam().seed % 2 == 0 ? FileFormat::kJson : FileFormat::kBinary;
  const std::string ext(q3a_tool::FileExtension(format));
  ASSERT_EQ(Run({"export", "--key", GetParam().key, "-o", Path("t"),
                 "--format", format == FileFormat::kJson ? "json" : "binary"})
                .exit_code,
            0);
  const TableId kind = q3a_tool::kAllTableIds[random() % 4];
  const std::string input =
      Path("t/" + std::string(q3a_tool::TableName(kind)) + ext);
  const std::string output = Path("edited" + ext);

  qawb::VisitTable(kind, [&]<typename Record>() {
    typename protomsg::TuningTableTraits<Record>::Message exported;
    ASSERT_TRUE(ParseReference<Record>(input, format, exported));
    std::vector<Leaf> leaves;
    CollectLeaves(exported, "", leaves);

    std::vector<std::string> args = {"set", input};
    std::vector<std::string> paths = {"version"};
    std::string swallowed;  // the rule validate must name
    switch (random() % 4) {
      case 0: {
        const Leaf* count = nullptr;
        while (count == nullptr || !IsCount(*count)) {
          count = &leaves[random() % leaves.size()];
        }
        args.push_back(count->path + "=1000");
        args.push_back("--force");
        paths.push_back(count->path);
        swallowed = "count";
        break;
      }
      case 1: {
        const Leaf* kind_field = nullptr;
        for (const Leaf& leaf : leaves) {
          if (leaf.field->cpp_type() == FieldDescriptor::CPPTYPE_ENUM &&
              !leaf.field->is_repeated() && random() % 4 == 0) {
            kind_field = &leaf;
          }
        }
        if (kind_field == nullptr) break;
        args.push_back(kind_field->path + "=kQAWBFrameSummaryTypeInvalid");
        paths.push_back(kind_field->path);
        swallowed = "frame-summary";
        break;
      }
      case 2:
        args.push_back("version.major=0");
        args.push_back("version.minor=0");
        swallowed = "zero-version";
        break;
      default:
        break;
    }
    for (int edits = 1 + random() % 3; edits > 0;) {
      const Leaf& leaf = leaves[random() % leaves.size()];
      if (IsCount(leaf) || leaf.path.starts_with("version") ||
          std::find(paths.begin(), paths.end(), leaf.path) != paths.end()) {
        continue;
      }
      args.push_back(leaf.path + "=" + HarmlessValue(leaf, random));
      paths.push_back(leaf.path);
      --edits;
    }
    args.push_back("-o");
    args.push_back(output);
    const ToolResult set = Run(args);
    ASSERT_EQ(set.exit_code, 0) << set.err;

    if (format == FileFormat::kJson) {
      std::string text = ReadFile(output);
      // A key with an escape, and one by its JSON name: read as the field.
      const Leaf& leaf = leaves[random() % leaves.size()];
      const std::string name = leaf.field->name();
      const std::size_t at = text.find("\"" + name + "\":");
      ASSERT_NE(at, std::string::npos);
      const std::size_t letter = random() % name.size();
      text.replace(at + 1 + letter, 1,
                   fmt::format("\\u{:04x}", static_cast<int>(name[letter])));
      const std::string& json_name = leaf.field->json_name();
      const std::size_t other = text.rfind("\"" + name + "\":");
      if (other != std::string::npos && other != at) {
        text.replace(other + 1, name.size(), json_name);
      }
      if (swallowed.empty() && random() % 2 == 0) {
        // The version given again through an escape: the objects merge.
        text.insert(text.rfind('}'), ", \"vers\\u0069on\": {\"minor\": 7}");
        swallowed = "duplicate-key";
      }
      WriteFile(output, text);
    }

    typename protomsg::TuningTableTraits<Record>::Message loaded;
    ASSERT_TRUE(ParseReference<Record>(output, format, loaded));
    for (const std::string& path : paths) {
      ExpectGetPrints(output, loaded, path, dir_);
    }

    const ToolResult validated = Run({"validate", "--json", output});
    std::set<std::string> rules;
    for (std::size_t at = validated.out.find("\"rule\": \"");
         at != std::string::npos;
         at = validated.out.find("\"rule\": \"", at + 1)) {
      const std::size_t start = at + 9;
      rules.insert(validated.out.substr(
          start, validated.out.find('"', start) - start));
    }
    EXPECT_EQ(validated.exit_code, swallowed.empty() ? 0 : 1)
        << validated.out << validated.err;
    EXPECT_EQ(rules, swallowed.empty() ? std::set<std::string>{}
                                       : std::set<std::string>{swallowed})
        << validated.out;
  });
}

std::vector<EditCase> EditCases() {
  std::vector<EditCase> cases;
  for (const std::string& key : ContainerKeys()) {
    for (int seed = 1; seed <= 6; ++seed) cases.push_back({key, seed});
  }
  return cases;
}

INSTANTIATE_TEST_SUITE_P(Containers, EditPropertyTest,
                         testing::ValuesIn(EditCases()),
                         [](const testing::TestParamInfo<EditCase>& info) {
                           std::string name;
                           for (char c : info.param.key) {
                             name += c == ',' ? '_' : c == '-' ? 'm' : c;
                           }
                           return name + "_seed" +
                                  std::to_string(info.param.seed);
                         });

}  // namespace
}  // namespace q3a_test
