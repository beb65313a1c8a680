#include "tools/q3a_tuning/io/table_edit.h"

#include <fmt/format.h>

#include <charconv>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "protomsg/internal/json_number.h"
#include "tools/q3a_tuning/io/field_limits.h"
#include "tools/q3a_tuning/io/nearest_name.h"
#include "tools/q3a_tuning/io/table_file.h"

namespace q3a_tool {
namespace {

using google::protobuf::FieldDescriptor;
using google::protobuf::Message;
using google::protobuf::Reflection;

// A field of a message, one entry of it (index >= 0) or the whole field.
struct Place {
  Message* message;
  const FieldDescriptor* field;
  int index;
};

ToolError PathError(std::string_view path, std::string_view why) {
  return {fmt::format("{}: {}", path, why), kExitUsage};
}

int Capacity(const Message& message, const FieldDescriptor& field) {
  const FieldLimit* limit =
      FindFieldLimit(message.GetDescriptor()->name(), field.name());
  return limit != nullptr ? limit->capacity : std::numeric_limits<int>::max();
}

// Adds default entries to the list until it has `size`.
void Grow(Message& message, const FieldDescriptor& field, int size) {
  const Reflection& reflection = *message.GetReflection();
  while (reflection.FieldSize(message, &field) < size) {
    switch (field.cpp_type()) {
      case FieldDescriptor::CPPTYPE_MESSAGE:
        reflection.AddMessage(&message, &field);
        break;
      case FieldDescriptor::CPPTYPE_INT32:
        reflection.AddInt32(&message, &field, 0);
        break;
      case FieldDescriptor::CPPTYPE_FLOAT:
        reflection.AddFloat(&message, &field, 0);
        break;
      case FieldDescriptor::CPPTYPE_BOOL:
        reflection.AddBool(&message, &field, false);
        break;
      case FieldDescriptor::CPPTYPE_ENUM:
        reflection.AddEnumValue(&message, &field, 0);
        break;
      default:  // not in the schema (IsEditableFieldType)
        return;
    }
  }
}

Result<Place> Locate(Message& root, std::string_view path, bool grow) {
  Message* message = &root;
  std::string_view rest = path;
  while (true) {
    const Result<PathSegment> taken = TakePathSegment(rest);
    if (!taken.ok()) return PathError(path, taken.error().message);
    const std::string_view segment = taken->name;
    const int index = taken->index;
    const auto& descriptor = *message->GetDescriptor();
    const FieldDescriptor* field =
        descriptor.FindFieldByName(std::string(segment));
    if (field == nullptr) {
      return PathError(path, fmt::format("{} has no field \"{}\"{}",
                                         descriptor.name(), segment,
                                         SuggestField(segment, descriptor)));
    }
    const Reflection& reflection = *message->GetReflection();
    if (index >= 0) {
      if (!field->is_repeated()) {
        return PathError(path, fmt::format("{} is not a list", segment));
      }
      const int size = reflection.FieldSize(*message, field);
      const int capacity = Capacity(*message, *field);
      if (index >= capacity) {
        return PathError(path, fmt::format("{} holds {} entries; index {} is "
                                           "past its capacity",
                                           segment, capacity, index));
      }
      if (index >= size) {
        if (!grow) {
          return PathError(path, fmt::format("{} has {} entries", segment,
                                             size));
        }
        Grow(*message, *field, index + 1);
      }
    }
    if (rest.empty()) return Place{message, field, index};
    if (field->cpp_type() != FieldDescriptor::CPPTYPE_MESSAGE) {
      return PathError(path, fmt::format("{} is a value, not a table",
                                         segment));
    }
    if (field->is_repeated() && index < 0) {
      return PathError(path, fmt::format("{} is a list: give an index, "
                                         "{}[0]",
                                         segment, segment));
    }
    message = field->is_repeated()
                  ? reflection.MutableRepeatedMessage(message, field, index)
                  : reflection.MutableMessage(message, field);
  }
}

std::string ScalarJson(const Message& message, const FieldDescriptor& field,
                       int index) {
  const Reflection& r = *message.GetReflection();
  const bool each = index >= 0;
  switch (field.cpp_type()) {
    case FieldDescriptor::CPPTYPE_INT32:
      return fmt::format("{}", each ? r.GetRepeatedInt32(message, &field, index)
                                    : r.GetInt32(message, &field));
    case FieldDescriptor::CPPTYPE_FLOAT:
      return fmt::format("{}", each ? r.GetRepeatedFloat(message, &field, index)
                                    : r.GetFloat(message, &field));
    case FieldDescriptor::CPPTYPE_BOOL:
      return (each ? r.GetRepeatedBool(message, &field, index)
                   : r.GetBool(message, &field))
                 ? "true"
                 : "false";
    case FieldDescriptor::CPPTYPE_ENUM:
      return fmt::format("\"{}\"",
                         (each ? r.GetRepeatedEnum(message, &field, index)
                               : r.GetEnum(message, &field))
                             ->name());
    default:  // a message, or not in the schema (IsEditableFieldType)
      break;
  }
  return "null";
}

std::string PlaceJson(const Place& place) {
  const Message& message = *place.message;
  const Reflection& r = *message.GetReflection();
  const FieldDescriptor& field = *place.field;
  const bool is_message = field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE;
  if (field.is_repeated() && place.index < 0) {
    std::vector<std::string> entries;
    for (int i = 0; i < r.FieldSize(message, &field); ++i) {
      entries.push_back(
          is_message ? SerializeTableMessage(
                           r.GetRepeatedMessage(message, &field, i),
                           FileFormat::kJson, true)
                     : ScalarJson(message, field, i));
    }
    return fmt::format("[{}]", fmt::join(entries, is_message ? ",\n" : ", "));
  }
  if (is_message) {
    return SerializeTableMessage(
        field.is_repeated() ? r.GetRepeatedMessage(message, &field, place.index)
                            : r.GetMessage(message, &field),
        FileFormat::kJson, true);
  }
  return ScalarJson(message, field, place.index);
}

// A value given on the command line reads as it would in a JSON tuning file,
// through the library's own number reader: a float as the loader narrows
// it, an integer as a whole number (kept wide, so that the message can say
// it does not fit). One exception: "-0", which a JSON file reads as the
// integer 0, is kept as the negative zero the engineer typed, so that a
// binary file holds it and a JSON file's writer says it became 0.
std::optional<float> ParseFloat(std::string_view text) {
  const auto number = protomsg::internal::ParseJsonNumber(text);
  if (!number) return std::nullopt;
  if (text == "-0") return -0.0f;
  return protomsg::internal::JsonNumberToFloat(*number);
}

std::optional<long long> ParseInteger(std::string_view text) {
  using Kind = protomsg::internal::JsonNumber::Kind;
  const auto number = protomsg::internal::ParseJsonNumber(text);
  if (!number) return std::nullopt;
  switch (number->kind) {
    case Kind::kUnsigned:
      if (number->unsigned_value >
          static_cast<std::uint64_t>(std::numeric_limits<long long>::max())) {
        return std::nullopt;
      }
      return static_cast<long long>(number->unsigned_value);
    case Kind::kSigned:
      return number->signed_value;
    case Kind::kDouble:
      break;
  }
  return protomsg::internal::JsonNumberToInt32(*number);
}

// Stores `text` into the scalar at `place`; the error says what the field
// takes.
std::optional<std::string> StoreScalar(const Place& place,
                                       std::string_view text) {
  Message& message = *place.message;
  const Reflection& r = *message.GetReflection();
  const FieldDescriptor& field = *place.field;
  const bool each = place.index >= 0;
  switch (field.cpp_type()) {
    case FieldDescriptor::CPPTYPE_INT32: {
      const auto value = ParseInteger(text);
      if (!value) return "expected an integer";
      const FieldLimit* limit =
          FindFieldLimit(message.GetDescriptor()->name(), field.name());
      long long low = std::numeric_limits<std::int32_t>::min();
      long long high = std::numeric_limits<std::int32_t>::max();
      if (limit != nullptr && limit->narrow) {
        low = limit->min;
        high = limit->max;
      }
      if (*value < low || *value > high) {
        return fmt::format("{} does not fit the record's field ({}..{})",
                           *value, low, high);
      }
      const auto i = static_cast<std::int32_t>(*value);
      each ? r.SetRepeatedInt32(&message, &field, place.index, i)
           : r.SetInt32(&message, &field, i);
      return std::nullopt;
    }
    case FieldDescriptor::CPPTYPE_FLOAT: {
      const auto value = ParseFloat(text);
      if (!value) return "expected a finite number";
      const float f = *value;
      each ? r.SetRepeatedFloat(&message, &field, place.index, f)
           : r.SetFloat(&message, &field, f);
      return std::nullopt;
    }
    case FieldDescriptor::CPPTYPE_BOOL: {
      if (text != "true" && text != "false") return "expected true or false";
      each ? r.SetRepeatedBool(&message, &field, place.index, text == "true")
           : r.SetBool(&message, &field, text == "true");
      return std::nullopt;
    }
    case FieldDescriptor::CPPTYPE_ENUM: {
      const auto* value = field.enum_type()->FindValueByName(std::string(text));
      if (value == nullptr) {
        return fmt::format("\"{}\" is not a value of {}{}", text,
                           field.enum_type()->name(),
                           SuggestEnumValue(text, *field.enum_type()));
      }
      each ? r.SetRepeatedEnumValue(&message, &field, place.index,
                                    value->number())
           : r.SetEnumValue(&message, &field, value->number());
      return std::nullopt;
    }
    default:  // a message, or not in the schema (IsEditableFieldType)
      break;
  }
  return "a table, not a value: set its fields one by one";
}

}  // namespace

Result<PathSegment> TakePathSegment(std::string_view& path) {
  const std::size_t dot = path.find('.');
  const std::string_view text = path.substr(0, dot);
  path = dot == std::string_view::npos ? "" : path.substr(dot + 1);
  PathSegment segment{.text = text, .name = text};
  if (const std::size_t open = segment.text.find('[');
      open != std::string_view::npos) {
    std::string_view digits = segment.text.substr(open + 1);
    const bool closed = digits.ends_with(']');
    if (closed) digits.remove_suffix(1);
    const char* const digits_end = digits.data() + digits.size();
    const auto [end, error] =
        std::from_chars(digits.data(), digits_end, segment.index);
    if (!closed || error != std::errc() || end != digits_end ||
        segment.index < 0) {
      return ToolError{
          fmt::format("'{}' is not NAME or NAME[INDEX]", segment.text),
          kExitUsage};
    }
    segment.name = segment.text.substr(0, open);
  }
  return segment;
}

bool IsEditableFieldType(FieldDescriptor::CppType type) {
  switch (type) {
    case FieldDescriptor::CPPTYPE_MESSAGE:
    case FieldDescriptor::CPPTYPE_INT32:
    case FieldDescriptor::CPPTYPE_FLOAT:
    case FieldDescriptor::CPPTYPE_BOOL:
    case FieldDescriptor::CPPTYPE_ENUM:
      return true;
    default:
      return false;
  }
}

Result<std::string> GetValueJson(const Message& table, std::string_view path) {
  std::unique_ptr<Message> copy(table.New());
  copy->CopyFrom(table);
  const Result<Place> place = Locate(*copy, path, /*grow=*/false);
  if (!place.ok()) return place.error();
  return PlaceJson(*place);
}

Result<std::string> SetValue(Message& table, std::string_view path,
                             std::string_view value) {
  const Result<Place> place = Locate(table, path, /*grow=*/true);
  if (!place.ok()) return place.error();
  if (place->field->is_repeated() && place->index < 0) {
    return PathError(path, "a list: set one entry, e.g. " + std::string(path) +
                               "[0]");
  }
  std::string before = PlaceJson(*place);
  if (auto refused = StoreScalar(*place, value)) {
    return PathError(path, *refused);
  }
  return before;
}

}  // namespace q3a_tool
