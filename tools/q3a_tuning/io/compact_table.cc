#include "tools/q3a_tuning/io/compact_table.h"

#include <google/protobuf/text_format.h>
#include <google/protobuf/util/message_differencer.h>

#include <bit>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "tools/q3a_tuning/io/count_rules.h"

namespace q3a_tool {
namespace {

using google::protobuf::FieldDescriptor;
using google::protobuf::Message;
using google::protobuf::Reflection;

// The override loader fills bipolar_factor of the model entries a feature
// file lacks with -1, not 0: these entries are always written out.
constexpr std::string_view kKeptWhole = "model_tuning";

// Drops the entries of the list at `path` (count_rules.h syntax) below
// `message` past the first `keep`.
void TruncatePath(Message& message, std::string_view path, int keep) {
  const auto [segment, each, rest] = FirstArrayPathStep(path);
  const FieldDescriptor* field =
      message.GetDescriptor()->FindFieldByName(std::string(segment));
  if (field == nullptr) return;
  const Reflection& reflection = *message.GetReflection();
  if (rest.empty()) {
    if (!field->is_repeated()) return;
    while (reflection.FieldSize(message, field) > keep) {
      reflection.RemoveLast(&message, field);
    }
    return;
  }
  if (field->cpp_type() != FieldDescriptor::CPPTYPE_MESSAGE) return;
  if (each) {
    for (int i = 0; i < reflection.FieldSize(message, field); ++i) {
      TruncatePath(*reflection.MutableRepeatedMessage(&message, field, i),
                   rest, keep);
    }
  } else if (reflection.HasField(message, field)) {
    TruncatePath(*reflection.MutableMessage(&message, field), rest, keep);
  }
}

void TrimToCounts(Message& message) {
  const auto& descriptor = *message.GetDescriptor();
  const Reflection& reflection = *message.GetReflection();
  for (const CountRule& rule : AllCountRules()) {
    if (rule.message != descriptor.name()) continue;
    const FieldDescriptor* count =
        descriptor.FindFieldByName(std::string(rule.count_field));
    if (count == nullptr) continue;
    const int value = reflection.GetInt32(message, count);
    // A negative count is a mistake the lint reports; nothing is dropped.
    if (value >= 0) {
      TruncatePath(message, rule.array_path, EntriesFor(rule, value));
    }
  }
  for (int i = 0; i < descriptor.field_count(); ++i) {
    const FieldDescriptor* field = descriptor.field(i);
    if (field->cpp_type() != FieldDescriptor::CPPTYPE_MESSAGE) continue;
    if (field->is_repeated()) {
      for (int j = 0; j < reflection.FieldSize(message, field); ++j) {
        TrimToCounts(*reflection.MutableRepeatedMessage(&message, field, j));
      }
    } else if (reflection.HasField(message, field)) {
      TrimToCounts(*reflection.MutableMessage(&message, field));
    }
  }
}

// Whether entry `index` of a repeated scalar is the same in both: floats by
// their bits (-0 is not 0), other kinds by their value.
bool SameScalar(const Message& a, const Message& b,
                const FieldDescriptor& field, int index) {
  if (field.cpp_type() == FieldDescriptor::CPPTYPE_FLOAT) {
    return std::bit_cast<std::uint32_t>(
               a.GetReflection()->GetRepeatedFloat(a, &field, index)) ==
           std::bit_cast<std::uint32_t>(
               b.GetReflection()->GetRepeatedFloat(b, &field, index));
  }
  std::string text_a;
  std::string text_b;
  google::protobuf::TextFormat::PrintFieldValueToString(a, &field, index,
                                                        &text_a);
  google::protobuf::TextFormat::PrintFieldValueToString(b, &field, index,
                                                        &text_b);
  return text_a == text_b;
}

void TrimZeroTails(Message& message, const Message& zero);

// Whether a count governs lists of this name: those keep their counted
// entries, zero or not, so that count and list agree.
bool Counted(const FieldDescriptor& field) {
  for (const CountRule& rule : AllCountRules()) {
    std::string_view path = rule.array_path;
    path.remove_prefix(path.find_last_of('.') + 1);
    if (path.ends_with("[]")) path.remove_suffix(2);
    if (path == field.name()) return true;
  }
  return false;
}

// Whether `entry` (already trimmed) reads back as `zero_entry`, the entry of
// an all-zero record, when it is left out.
bool ReadsAsZero(const Message& entry, const Message& zero_entry) {
  std::unique_ptr<Message> trimmed_zero(zero_entry.New());
  trimmed_zero->CopyFrom(zero_entry);
  TrimToCounts(*trimmed_zero);
  TrimZeroTails(*trimmed_zero, zero_entry);
  return google::protobuf::util::MessageDifferencer::Equals(entry,
                                                            *trimmed_zero);
}

void TrimZeroTails(Message& message, const Message& zero) {
  const auto& descriptor = *message.GetDescriptor();
  const Reflection& reflection = *message.GetReflection();
  const Reflection& zero_reflection = *zero.GetReflection();
  for (int i = 0; i < descriptor.field_count(); ++i) {
    const FieldDescriptor* field = descriptor.field(i);
    const bool is_message =
        field->cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE;
    if (!field->is_repeated()) {
      if (is_message && reflection.HasField(message, field)) {
        TrimZeroTails(*reflection.MutableMessage(&message, field),
                      zero_reflection.GetMessage(zero, field));
      }
      continue;
    }
    const int zero_size = zero_reflection.FieldSize(zero, field);
    // Past the zero form's length the record has no room: such entries are
    // over capacity and left for the lint to report.
    if (reflection.FieldSize(message, field) > zero_size) continue;
    if (is_message) {
      for (int j = 0; j < reflection.FieldSize(message, field); ++j) {
        TrimZeroTails(*reflection.MutableRepeatedMessage(&message, field, j),
                      zero_reflection.GetRepeatedMessage(zero, field, j));
      }
      if (field->name() == kKeptWhole) continue;
    }
    if (Counted(*field)) continue;
    for (int last = reflection.FieldSize(message, field) - 1; last >= 0;
         --last) {
      const bool zero_entry =
          is_message
              ? ReadsAsZero(reflection.GetRepeatedMessage(message, field, last),
                            zero_reflection.GetRepeatedMessage(zero, field,
                                                               last))
              : SameScalar(message, zero, *field, last);
      if (!zero_entry) break;
      reflection.RemoveLast(&message, field);
    }
  }
}

}  // namespace

void CompactTableMessage(Message& table, const Message& zero_form) {
  TrimToCounts(table);
  TrimZeroTails(table, zero_form);
}

}  // namespace q3a_tool
