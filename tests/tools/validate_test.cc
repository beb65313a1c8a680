// Validation of what the library swallows beyond a JSON file's text: binary
// files cut short, tables of zeros, and tuning binary files of bytes that
// were never tables.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "coordinator/tuning_map.h"
#include "protomsg/record_conversions.h"
#include "tests/support/file_bytes.h"
#include "tests/tools/wire_fields.h"
#include "tools/q3a_tuning/commands/table_sources.h"
#include "tools/q3a_tuning/io/registry_view.h"
#include "tools/q3a_tuning/lint/plausibility.h"
#include "tools/q3a_tuning/lint/validate.h"

namespace q3a_tool {
namespace {

using google::protobuf::FieldDescriptor;
using google::protobuf::Message;

std::vector<std::string> Rules(const ValidationReport& report) {
  std::vector<std::string> rules;
  for (const Diagnostic& problem : report.problems) {
    rules.push_back(problem.rule);
  }
  return rules;
}

class TableTest : public testing::TestWithParam<qawb::TableId> {
 protected:
  q3a_test::ScopedTempDir dir_;
};

// The library's writer writes every sub-table, so a file cut at any field
// boundary lacks one that the rules see.
TEST_P(TableTest, BinaryFileCutAtAnyFieldIsAFinding) {
  const auto container = RegisteredContainer("0,-1,1,0,-1");
  ASSERT_TRUE(container.ok());
  const TableFilesResult exported = WriteTableFiles(
      **container, dir_.path().string(), {FileFormat::kBinary});
  ASSERT_TRUE(exported.errors.empty());
  const std::string whole = q3a_test::ReadFile(
      exported.written[static_cast<int>(GetParam())]);
  const std::vector<std::size_t> fields = q3a_test::TopLevelFieldStarts(whole);
  ASSERT_FALSE(fields.empty());
  for (const std::size_t cut : fields) {
    SCOPED_TRACE(cut);
    const std::string path = dir_.File("cut.pb");
    q3a_test::WriteFile(path, whole.substr(0, cut));
    const ValidationReport report =
        ValidateTableFile(path, FileFormat::kBinary, GetParam());
    ASSERT_TRUE(report.accepted);
    EXPECT_THAT(Rules(report),
                testing::Contains(cut == 0 ? "missing-version"
                                           : "missing-fields"));
  }
}

void ZeroEveryKind(Message& message) {
  const auto& descriptor = *message.GetDescriptor();
  const auto& reflection = *message.GetReflection();
  for (int i = 0; i < descriptor.field_count(); ++i) {
    const FieldDescriptor* field = descriptor.field(i);
    const int size =
        field->is_repeated() ? reflection.FieldSize(message, field) : 1;
    for (int e = 0; e < size; ++e) {
      if (field->cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
        ZeroEveryKind(field->is_repeated()
                          ? *reflection.MutableRepeatedMessage(&message,
                                                               field, e)
                          : *reflection.MutableMessage(&message, field));
      } else if (field->cpp_type() == FieldDescriptor::CPPTYPE_ENUM) {
        if (field->is_repeated()) {
          reflection.SetRepeatedEnumValue(&message, field, e, 0);
        } else {
          reflection.SetEnumValue(&message, field, 0);
        }
      }
    }
  }
}

// A file of zeros, kinds written as the message's zero, whatever the table.
TEST_P(TableTest, ZerosEverywhereAreAllZero) {
  qawb::VisitTable(GetParam(), [&]<typename Record>() {
    typename protomsg::TuningTableTraits<Record>::Message message;
    protomsg::ConvertToMessage(*MakeZeroedTable<Record>(), message);
    ZeroEveryKind(message);
    for (FileFormat format : {FileFormat::kJson, FileFormat::kBinary}) {
      const std::string path = dir_.File(
          "zero" + std::string(FileExtension(format)));
      q3a_test::WriteFile(path,
                          SerializeTableMessage(message, format, true));
      const ValidationReport report =
          ValidateTableFile(path, format, GetParam());
      ASSERT_TRUE(report.accepted);
      EXPECT_THAT(Rules(report), testing::Contains("all-zero"));
    }
  });
}

// The library's own tables are real tuning; the same number of random
// bytes is not, in any table.
TEST_P(TableTest, OnlyRealTablesArePlausible) {
  const auto defaults = DefaultContainer();
  std::vector<const qawb::QAWBTuning*> containers = {defaults.get()};
  for (const Registration& r :
       ListRegistrations(q3a_coordinator::GetTuningMap())) {
    if (r.node == q3a_api::kAwb) {
      containers.push_back(static_cast<const qawb::QAWBTuning*>(r.object));
    }
  }
  qawb::VisitTable(GetParam(), [&]<typename Record>() {
    for (const qawb::QAWBTuning* container : containers) {
      const Record* table = qawb::GetTable<Record>(*container);
      EXPECT_THAT(FindImplausibleValues(GetParam(), q3a_test::BytesOf(*table)),
                  testing::IsEmpty());
    }
    std::mt19937 random(sizeof(Record));
    std::string noise(sizeof(Record), '\0');
    for (char& byte : noise) byte = static_cast<char>(random());
    EXPECT_THAT(FindImplausibleValues(GetParam(), noise),
                testing::Not(testing::IsEmpty()));
  });
}

INSTANTIATE_TEST_SUITE_P(Tables, TableTest, testing::ValuesIn(kAllTableIds),
                         [](const auto& info) {
                           return std::string(TableName(info.param));
                         });

}  // namespace
}  // namespace q3a_tool
