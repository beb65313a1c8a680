// The interchange schema against the records: every message lists exactly
// its record's fields, in layout order, with matching kinds, so a field that
// is missing, misordered or of the wrong kind cannot pass.
#include <google/protobuf/descriptor.h>
#include <google/protobuf/descriptor.pb.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/support/record_pairs.h"

namespace {

using google::protobuf::FieldDescriptor;

Q3A_RECORD_PAIR_TEST_SUITE(RecordSchema);

template <typename Field>
void ExpectKindMatches(const FieldDescriptor& descriptor) {
  using Element = std::remove_all_extents_t<Field>;
  EXPECT_EQ(descriptor.is_repeated(), std::is_array_v<Field>);
  if constexpr (std::is_same_v<Element, qawb::QAWBFrameSummaryType>) {
    EXPECT_EQ(descriptor.type(), FieldDescriptor::TYPE_ENUM);
  } else if constexpr (std::is_same_v<Element, bool>) {
    EXPECT_EQ(descriptor.type(), FieldDescriptor::TYPE_BOOL);
  } else if constexpr (std::is_floating_point_v<Element>) {
    EXPECT_EQ(descriptor.type(), FieldDescriptor::TYPE_FLOAT);
  } else if constexpr (std::is_integral_v<Element>) {
    EXPECT_EQ(descriptor.type(), FieldDescriptor::TYPE_SINT32);
  } else {
    ASSERT_EQ(descriptor.type(), FieldDescriptor::TYPE_MESSAGE);
    EXPECT_EQ(descriptor.message_type(),
              q3a_test::MessageOf<Element>::type::descriptor());
  }
}

TYPED_TEST(RecordSchema, MessageFieldsMatchFieldListInOrder) {
  using Record = typename TypeParam::Record;
  const auto* message = TypeParam::Message::descriptor();
  Record record{};
  int index = 0;
  ForEachField(record, [&](const char* name, const auto& field) {
    SCOPED_TRACE(name);
    ASSERT_LT(index, message->field_count());
    const FieldDescriptor& descriptor = *message->field(index);
    EXPECT_EQ(descriptor.name(), name);
    EXPECT_EQ(descriptor.number(), index + 1);
    ExpectKindMatches<std::remove_cvref_t<decltype(field)>>(descriptor);
    ++index;
  });
  EXPECT_EQ(index, message->field_count());
}

TEST(InterchangeSchema, HasTheFileLevelShape) {
  const auto* file = qawb::tuning::QAWBBasicTuningTable::descriptor()->file();
  google::protobuf::FileDescriptorProto proto;
  file->CopyTo(&proto);
  EXPECT_EQ(proto.syntax(), "proto3");
  EXPECT_EQ(file->package(), "qawb.tuning");
  EXPECT_EQ(file->dependency_count(), 0);
  EXPECT_EQ(file->options().optimize_for(),
            google::protobuf::FileOptions::SPEED);
  ASSERT_EQ(file->enum_type_count(), 1);
  EXPECT_EQ(file->enum_type(0)->value_count(), 11);

  for (int m = 0; m < file->message_type_count(); ++m) {
    const auto* message = file->message_type(m);
    EXPECT_EQ(message->nested_type_count(), 0) << message->name();
    EXPECT_EQ(message->enum_type_count(), 0) << message->name();
    EXPECT_EQ(message->oneof_decl_count(), 0) << message->name();
    for (int f = 0; f < message->field_count(); ++f) {
      const auto* field = message->field(f);
      EXPECT_FALSE(field->is_map()) << field->full_name();
      EXPECT_FALSE(field->has_default_value()) << field->full_name();
    }
  }
}

// Each message of the schema carries exactly one record, so with the field
// checks above the schema and the records describe the same data.
TEST(InterchangeSchema, EveryMessageCarriesOneRecord) {
  std::set<const google::protobuf::Descriptor*> carried;
  qawb::ForEachType<qawb::AllRecords>([&]<typename Record>() {
    const auto* message = q3a_test::MessageOf<Record>::type::descriptor();
    EXPECT_TRUE(carried.insert(message).second) << message->name();
  });
  const auto* file = qawb::tuning::QAWBBasicTuningTable::descriptor()->file();
  std::set<const google::protobuf::Descriptor*> in_file;
  for (int m = 0; m < file->message_type_count(); ++m) {
    in_file.insert(file->message_type(m));
  }
  EXPECT_EQ(carried, in_file);
}

}  // namespace
