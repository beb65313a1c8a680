// Behaviour every record conversion shares, checked over every record
// with contents generated from their field lists.
#include <google/protobuf/descriptor.h>
#include <google/protobuf/message.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>

#include "protomsg/internal/field_codec.h"
#include "protomsg/record_conversions.h"
#include "tests/support/record_checks.h"
#include "tests/support/record_pairs.h"
#include "tests/support/record_values.h"

namespace {

using google::protobuf::FieldDescriptor;
using google::protobuf::Message;
using protomsg::internal::kFlatCapacity;
using q3a_test::MakeRecord;
using q3a_test::SameBytes;

const FieldDescriptor& FieldNamed(const Message& message, const char* name) {
  const FieldDescriptor* field = message.GetDescriptor()->FindFieldByName(name);
  EXPECT_NE(field, nullptr) << message.GetTypeName() << "." << name;
  return *field;
}

// Walks a record and its message side by side and expects every repeated
// field, at every depth, to hold exactly the record array's capacity.
template <typename Record>
void ExpectFullCapacity(const Record& record, const Message& message) {
  const auto* reflection = message.GetReflection();
  ForEachField(record, [&](const char* name, const auto& field) {
    using Field = std::remove_cvref_t<decltype(field)>;
    const FieldDescriptor& descriptor = FieldNamed(message, name);
    if constexpr (std::is_array_v<Field>) {
      ASSERT_EQ(reflection->FieldSize(message, &descriptor),
                static_cast<int>(kFlatCapacity<Field>))
          << message.GetTypeName() << "." << name;
      using Element = std::remove_all_extents_t<Field>;
      if constexpr (qawb::DescribedRecord<Element>) {
        for (std::size_t i = 0; i < kFlatCapacity<Field>; ++i) {
          ExpectFullCapacity(
              field[i], reflection->GetRepeatedMessage(message, &descriptor,
                                                       static_cast<int>(i)));
        }
      }
    } else if constexpr (qawb::DescribedRecord<Field>) {
      ASSERT_TRUE(reflection->HasField(message, &descriptor)) << name;
      ExpectFullCapacity(field, reflection->GetMessage(message, &descriptor));
    }
  });
}

// Resizes a non-empty repeated field to `size` elements: drops them from
// the end, or appends the field's elements again.
void ResizeRepeated(Message& message, const FieldDescriptor& field, int size) {
  const auto* reflection = message.GetReflection();
  // `again` holds the field alone; merging it appends its elements.
  std::unique_ptr<Message> copy(message.New());
  std::unique_ptr<Message> again(message.New());
  copy->CopyFrom(message);
  reflection->SwapFields(copy.get(), again.get(), {&field});
  ASSERT_GT(reflection->FieldSize(*again, &field), 0) << field.full_name();
  while (reflection->FieldSize(message, &field) < size) {
    message.MergeFrom(*again);
  }
  while (reflection->FieldSize(message, &field) > size) {
    reflection->RemoveLast(&message, &field);
  }
}

template <typename Pair>
class RecordConversion : public ::testing::Test {
 protected:
  using Record = typename Pair::Record;
  using Message = typename Pair::Message;

  static Message ToMessage(const Record& record) {
    Message message;
    protomsg::ConvertToMessage(record, message);
    return message;
  }

  // Every field of `a` but the one named `except` has the bytes of the same
  // field of `b`.
  static bool SameFieldsBut(const Record& a, const Record& b,
                            const char* except) {
    bool same = true;
    qawb::ForEachFieldPair(a, b,
                           [&](const char* name, const auto& x, const auto& y) {
                             if (std::strcmp(name, except) != 0)
                               same = same && SameBytes(x, y);
                           });
    return same;
  }

  // The field of `record` named `name`, of the type `like` has.
  template <typename Field>
  static const Field& FieldOf(const Record& record, const char* name,
                              const Field& like) {
    const Field* found = &like;
    ForEachField(record, [&](const char* field_name, const auto& field) {
      if constexpr (std::is_same_v<std::remove_cvref_t<decltype(field)>,
                                   Field>) {
        if (std::strcmp(field_name, name) == 0) found = &field;
      }
    });
    return *found;
  }
};
TYPED_TEST_SUITE(RecordConversion, q3a_test::AllRecordPairs,
                 q3a_test::RecordPairName);

TYPED_TEST(RecordConversion, RoundTripKeepsEveryField) {
  using Record = typename TypeParam::Record;
  const auto original = MakeRecord<Record>(1);
  const auto message = this->ToMessage(*original);
  auto back = MakeRecord<Record>(2);
  protomsg::ConvertToStruct(message, *back);
  EXPECT_TRUE(SameBytes(*original, *back));
}

TYPED_TEST(RecordConversion, FreshMessageCarriesFullCapacity) {
  using Record = typename TypeParam::Record;
  auto zeroed = std::make_unique<Record>();
  std::memset(static_cast<void*>(zeroed.get()), 0, sizeof(Record));
  ExpectFullCapacity(*zeroed, this->ToMessage(*zeroed));
}

TYPED_TEST(RecordConversion, RepeatedFieldFillsPrefixAndKeepsTheRest) {
  using Record = typename TypeParam::Record;
  const auto source = MakeRecord<Record>(1);
  ForEachField(*source, [&](const char* name, const auto& field) {
    using Field = std::remove_cvref_t<decltype(field)>;
    if constexpr (std::is_array_v<Field>) {
      constexpr int kCapacity = static_cast<int>(kFlatCapacity<Field>);
      constexpr std::size_t kElementSize =
          sizeof(std::remove_all_extents_t<Field>);
      for (int size : {0, 1, kCapacity - 1, kCapacity + 3}) {
        SCOPED_TRACE(testing::Message() << name << " with " << size);
        auto message = this->ToMessage(*source);
        ResizeRepeated(message, FieldNamed(message, name), size);
        auto target = MakeRecord<Record>(2);
        const auto before = *target;
        protomsg::ConvertToStruct(message, *target);

        EXPECT_TRUE(this->SameFieldsBut(*source, *target, name));
        const auto* got =
            reinterpret_cast<const char*>(&this->FieldOf(*target, name, field));
        const auto* from_message = reinterpret_cast<const char*>(&field);
        const auto* kept =
            reinterpret_cast<const char*>(&this->FieldOf(before, name, field));
        for (int i = 0; i < kCapacity; ++i) {
          const char* want = i < size ? from_message : kept;
          EXPECT_EQ(std::memcmp(got + i * kElementSize, want + i * kElementSize,
                                kElementSize),
                    0)
              << "element " << i;
        }
      }
    }
  });
}

TYPED_TEST(RecordConversion, AbsentSubMessageZeroesScalarsAndKeepsArrays) {
  using Record = typename TypeParam::Record;
  const auto source = MakeRecord<Record>(1);
  ForEachField(*source, [&](const char* name, const auto& field) {
    using Field = std::remove_cvref_t<decltype(field)>;
    if constexpr (!std::is_array_v<Field> && qawb::DescribedRecord<Field>) {
      SCOPED_TRACE(name);
      auto message = this->ToMessage(*source);
      message.GetReflection()->ClearField(&message, &FieldNamed(message, name));
      auto target = MakeRecord<Record>(2);
      const auto before = *target;
      protomsg::ConvertToStruct(message, *target);

      EXPECT_TRUE(this->SameFieldsBut(*source, *target, name));
      q3a_test::ExpectDefaultScalarsAndKeptArrays(
          this->FieldOf(*target, name, field),
          this->FieldOf(before, name, field));
    }
  });
}

}  // namespace
