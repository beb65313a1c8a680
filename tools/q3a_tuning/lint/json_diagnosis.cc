#include "tools/q3a_tuning/lint/json_diagnosis.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <variant>

#include "protomsg/internal/json_number.h"
#include "tools/q3a_tuning/io/nearest_name.h"
#include "tools/q3a_tuning/lint/lint_rules.h"

namespace q3a_tool {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;
using Type = JsonValue::Type;

// protobuf also accepts numbers written as strings, and these words for
// floats.
bool IsFloatWord(std::string_view text) {
  return text == "NaN" || text == "Infinity" || text == "-Infinity";
}

std::optional<double> NumberOf(const JsonValue& value) {
  if (value.type() != Type::kNumber && value.type() != Type::kString) {
    return std::nullopt;
  }
  const std::string_view text = value.text();
  double number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

// Whether one scalar (not a list) is acceptable for `field`; `detail` says
// why not.
bool ScalarFits(const JsonValue& value, const FieldDescriptor& field,
                std::string& detail) {
  switch (field.cpp_type()) {
    case FieldDescriptor::CPPTYPE_INT32: {  // the schema's only integers
      if (value.type() == Type::kNumber) {
        // Unquoted, as the library reads it.
        const auto number = protomsg::internal::ParseJsonNumber(value.text());
        if (number && protomsg::internal::JsonNumberToInt32(*number)) {
          return true;
        }
        detail =
            number &&
                    number->kind ==
                        protomsg::internal::JsonNumber::Kind::kDouble &&
                    number->double_value != std::floor(number->double_value)
                ? "expected an integer, not a fraction"
                : "integer does not fit 32 bits";
        return false;
      }
      const std::optional<double> number = NumberOf(value);
      if (!number) {
        detail = "expected an integer";
        return false;
      }
      if (*number != std::floor(*number)) {
        detail = "expected an integer, not a fraction";
        return false;
      }
      if (*number < std::numeric_limits<std::int32_t>::min() ||
          *number > std::numeric_limits<std::int32_t>::max()) {
        detail = "integer does not fit 32 bits";
        return false;
      }
      return true;
    }
    case FieldDescriptor::CPPTYPE_FLOAT:
      if (value.type() == Type::kNumber) {
        const auto number = protomsg::internal::ParseJsonNumber(value.text());
        if (number && protomsg::internal::JsonNumberToFloat(*number)) {
          return true;
        }
        detail = "beyond the range of a float";
        return false;
      }
      if (NumberOf(value) ||
          (value.type() == Type::kString && IsFloatWord(value.text()))) {
        return true;
      }
      detail = "expected a number";
      return false;
    case FieldDescriptor::CPPTYPE_BOOL:
      if (value.type() == Type::kBool) return true;
      detail = "expected true or false";
      return false;
    case FieldDescriptor::CPPTYPE_ENUM:
      if (value.type() == Type::kNumber) return NumberOf(value).has_value();
      if (value.type() == Type::kString &&
          field.enum_type()->FindValueByName(std::string(value.text())) != nullptr) {
        return true;
      }
      detail = fmt::format("\"{}\" is not a value of {}{}", value.text(),
                           field.enum_type()->name(),
                           SuggestEnumValue(value.text(), *field.enum_type()));
      return false;
    default:  // a message: the schema has no other kinds (IsEditableFieldType)
      break;
  }
  detail = "expected an object";
  return value.type() == Type::kObject;
}

std::optional<JsonLocation> CheckObject(const JsonValue& object,
                                        const Descriptor& descriptor,
                                        const std::string& path);

std::optional<JsonLocation> CheckElement(const JsonValue& value,
                                         const FieldDescriptor& field,
                                         const std::string& path) {
  if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE &&
      value.type() == Type::kObject) {
    return CheckObject(value, *field.message_type(), path);
  }
  std::string detail;
  if (ScalarFits(value, field, detail)) return std::nullopt;
  return JsonLocation{value.position(), path, detail};
}

std::optional<JsonLocation> CheckObject(const JsonValue& object,
                                        const Descriptor& descriptor,
                                        const std::string& path) {
  if (object.type() != Type::kObject) {
    return JsonLocation{object.position(), path, "expected an object"};
  }
  for (const JsonMember& member : object.members()) {
    const FieldDescriptor* field = nullptr;
    for (int i = 0; i < descriptor.field_count() && field == nullptr; ++i) {
      if (JsonKeyMatches(member.key, descriptor.field(i)->name())) {
        field = descriptor.field(i);
      }
    }
    const std::string member_path =
        path.empty() ? std::string(member.key)
                     : fmt::format("{}.{}", path, member.key);
    if (field == nullptr) {
      return JsonLocation{
          member.key_position, member_path,
          fmt::format("{} has no field \"{}\"{}", descriptor.name(),
                      member.key, SuggestField(member.key, descriptor))};
    }
    const JsonValue& value = member.value;
    if (value.type() == Type::kNull) continue;
    if (!field->is_repeated()) {
      if (auto problem = CheckElement(value, *field, member_path)) {
        return problem;
      }
      continue;
    }
    if (value.type() != Type::kArray) {
      return JsonLocation{value.position(), member_path, "expected a list"};
    }
    const auto elements = value.elements();
    for (std::size_t i = 0; i < elements.size(); ++i) {
      if (auto problem = CheckElement(elements[i], *field,
                                      fmt::format("{}[{}]", member_path, i))) {
        return problem;
      }
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<JsonLocation> FindSchemaProblem(const JsonValue& root,
                                              const Descriptor& descriptor) {
  return CheckObject(root, descriptor, "");
}

JsonLocation LocateJsonFailure(std::string_view text,
                               const Descriptor& descriptor) {
  std::vector<Diagnostic> leniencies;
  auto parsed = ParseJsonDocument(text, &leniencies);
  // The library stops at the first form it refuses, before any error the
  // reader found further on.
  for (const Diagnostic& leniency : leniencies) {
    if (!RefusedByTheLibrary(leniency)) continue;
    return JsonLocation{{leniency.line, leniency.column},
                        "",
                        leniency.rule == lint_rule::kComment
                            ? "a comment: JSON has none, and the library's "
                              "reader refuses it"
                            : "a byte-order mark, which the library's reader "
                              "refuses",
                        leniency.rule};
  }
  if (const auto* error = std::get_if<JsonSyntaxError>(&parsed)) {
    return JsonLocation{error->position, "", error->reason};
  }
  if (auto problem =
          FindSchemaProblem(std::get<JsonDocument>(parsed).root(), descriptor)) {
    return *problem;
  }
  return JsonLocation{};
}

}  // namespace q3a_tool
