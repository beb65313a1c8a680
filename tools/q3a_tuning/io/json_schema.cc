#include "tools/q3a_tuning/io/json_schema.h"

#include <fmt/format.h>
#include <google/protobuf/descriptor.h>

#include <cstdint>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tools/q3a_tuning/io/count_rules.h"
#include "tools/q3a_tuning/io/field_limits.h"
#include "tools/q3a_tuning/io/json_text.h"
#include "tools/q3a_tuning/io/table_id.h"

namespace q3a_tool {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
using google::protobuf::FieldDescriptor;

constexpr char kDraft[] = "https://json-schema.org/draft/2020-12/schema";

// protobuf's JSON parser takes a float up to the text that the largest
// float prints as, 3.4028235e38, which is slightly above the largest float
// itself, so that every printed float reads back.
constexpr double kFloatLimit = 3.4028235e38;

std::string DefRef(std::string_view name) {
  return fmt::format("#/$defs/{}", name);
}

// The field of `message` that an array path's first step names.
const FieldDescriptor* StepField(const Descriptor& message,
                                 std::string_view name) {
  return message.FindFieldByName(std::string(name));
}

// The capacity of the list at `array_path` below `message`, 0 if unknown.
int PathCapacity(const Descriptor* message, std::string_view array_path) {
  while (message != nullptr) {
    const ArrayPathStep step = FirstArrayPathStep(array_path);
    const FieldDescriptor* field = StepField(*message, step.field);
    if (field == nullptr) return 0;
    if (step.rest.empty()) {
      const FieldLimit* limit = FindFieldLimit(message->name(), field->name());
      return limit == nullptr ? 0 : limit->capacity;
    }
    message = field->message_type();
    array_path = step.rest;
  }
  return 0;
}

// What the tool knows of a field beyond its type: which count says how much
// of a list is used, which lists a count counts, and how a narrow integer is
// stored.
std::string FieldDescription(const Descriptor& message,
                             const FieldDescriptor& field,
                             const FieldLimit* limit) {
  std::vector<std::string> parts;
  if (limit != nullptr && limit->capacity > 0) {
    parts.push_back(fmt::format("At most {} values, the record's capacity.",
                                limit->capacity));
  }
  for (const CountRule& rule : AllCountRules()) {
    if (rule.message != message.name()) continue;
    if (rule.array_path == field.name()) {
      parts.push_back(
          rule.per_entry > 1
              ? fmt::format("{} values per entry counted by {}; the rest "
                            "are kept but not read.",
                            rule.per_entry, rule.count_field)
              : fmt::format("The first {} are in use; the rest are kept "
                            "but not read.",
                            rule.count_field));
    }
    if (rule.count_field == field.name()) {
      const int capacity = PathCapacity(&message, rule.array_path);
      parts.push_back(fmt::format(
          "Entries in use of {} (which holds {}{}).", rule.array_path,
          capacity / rule.per_entry,
          rule.per_entry > 1 ? fmt::format(" of {} values", rule.per_entry)
                             : std::string()));
    }
  }
  if (limit != nullptr && limit->narrow) {
    parts.push_back(fmt::format("Stored as {} in the record.",
                                limit->type_name));
  }
  std::string text;
  for (const std::string& part : parts) {
    if (!text.empty()) text += ' ';
    text += part;
  }
  return text;
}

class SchemaWriter {
 public:
  std::string Write(const Descriptor& table, std::string_view table_name) {
    Collect(table);
    json_.BeginObject();
    json_.Key("$schema").String(kDraft);
    json_.Key("title").String(
        fmt::format("q3a-tuning {} table ({})", table_name, table.name()));
    json_.Key("description")
        .String(fmt::format(
            "A JSON tuning file of the {} AWB table, as the library's "
            "readers take it. Checks names, types, ranges and list "
            "capacities; `q3a-tuning validate` decides the rest (counts "
            "against their lists, duplicate keys).",
            table_name));
    json_.Key("$ref").String(DefRef(table.name()));
    json_.Key("$defs").BeginObject();
    WriteScalarDefs();
    for (const auto& [name, message] : messages_) WriteMessage(*message);
    for (const auto& [name, enum_type] : enums_) WriteEnum(*enum_type);
    json_.EndObject();
    json_.EndObject();
    return json_.Text() + "\n";
  }

 private:
  // Every message and enum the table reaches, by name.
  void Collect(const Descriptor& message) {
    if (!messages_.emplace(message.name(), &message).second) return;
    for (int i = 0; i < message.field_count(); ++i) {
      const FieldDescriptor& field = *message.field(i);
      if (field.message_type() != nullptr) Collect(*field.message_type());
      if (field.enum_type() != nullptr) {
        enums_.emplace(field.enum_type()->name(), field.enum_type());
      }
    }
  }

  void WriteScalarDefs() {
    json_.Key("int32").BeginObject();
    json_.Key("type").String("integer");
    json_.Key("minimum").Number(
        static_cast<long long>(std::numeric_limits<std::int32_t>::min()));
    json_.Key("maximum").Number(
        static_cast<long long>(std::numeric_limits<std::int32_t>::max()));
    json_.EndObject();
    WriteAnyOf("float",
               "A number in the float range, or \"NaN\", \"Infinity\" or "
               "\"-Infinity\" as strings.",
               [&] {
                 json_.BeginObject();
                 json_.Key("type").String("number");
                 json_.Key("minimum").Real(-kFloatLimit);
                 json_.Key("maximum").Real(kFloatLimit);
                 json_.EndObject();
                 WriteEnumOf([&] {
                   json_.String("NaN").String("Infinity").String("-Infinity");
                 });
               });
  }

  // protobuf's JSON parser takes an enum value by its name or by its
  // number; the names are what the writer prints.
  void WriteEnum(const EnumDescriptor& enum_type) {
    const int count = enum_type.value_count();
    WriteAnyOf(enum_type.name(),
               "By name, as the writer prints it, or by number.", [&] {
                 WriteEnumOf([&] {
                   for (int i = 0; i < count; ++i) {
                     json_.String(enum_type.value(i)->name());
                   }
                 });
                 WriteEnumOf([&] {
                   for (int i = 0; i < count; ++i) {
                     json_.Number(
                         static_cast<long long>(enum_type.value(i)->number()));
                   }
                 });
               });
  }

  // The def `name`: a value that any of the schemas `write_schemas` writes
  // accepts.
  void WriteAnyOf(std::string_view name, std::string_view description,
                  auto write_schemas) {
    json_.Key(name).BeginObject();
    json_.Key("description").String(description);
    json_.Key("anyOf").BeginArray();
    write_schemas();
    json_.EndArray();
    json_.EndObject();
  }

  // A schema that accepts only the values `write_values` writes.
  void WriteEnumOf(auto write_values) {
    json_.BeginObject();
    json_.Key("enum").BeginArray();
    write_values();
    json_.EndArray();
    json_.EndObject();
  }

  void WriteMessage(const Descriptor& message) {
    json_.Key(message.name()).BeginObject();
    json_.Key("type").String("object");
    json_.Key("properties").BeginObject();
    for (int i = 0; i < message.field_count(); ++i) {
      const FieldDescriptor& field = *message.field(i);
      json_.Key(field.name()).BeginObject();
      WriteField(message, field);
      json_.EndObject();
    }
    // The lowerCamelCase spellings refer to the snake_case ones.
    for (int i = 0; i < message.field_count(); ++i) {
      const FieldDescriptor& field = *message.field(i);
      if (field.json_name() == field.name()) continue;
      json_.Key(field.json_name()).BeginObject();
      json_.Key("$ref").String(fmt::format("{}/properties/{}",
                                           DefRef(message.name()),
                                           field.name()));
      json_.EndObject();
    }
    json_.EndObject();
    json_.Key("additionalProperties").Bool(false);
    json_.EndObject();
  }

  void WriteField(const Descriptor& message, const FieldDescriptor& field) {
    const FieldLimit* limit = FindFieldLimit(message.name(), field.name());
    const std::string description =
        FieldDescription(message, field, limit);
    if (!description.empty()) json_.Key("description").String(description);
    if (field.is_repeated()) {
      json_.Key("type").String("array");
      if (limit != nullptr && limit->capacity > 0) {
        json_.Key("maxItems").Number(static_cast<long long>(limit->capacity));
      }
      json_.Key("items").BeginObject();
      WriteValue(field, limit);
      json_.EndObject();
    } else {
      WriteValue(field, limit);
    }
  }

  // The members of the schema of one value of `field`.
  void WriteValue(const FieldDescriptor& field, const FieldLimit* limit) {
    switch (field.cpp_type()) {
      case FieldDescriptor::CPPTYPE_INT32:
        if (limit != nullptr && limit->narrow) {
          json_.Key("type").String("integer");
          json_.Key("minimum").Number(static_cast<long long>(limit->min));
          json_.Key("maximum").Number(static_cast<long long>(limit->max));
        } else {
          json_.Key("$ref").String(DefRef("int32"));
        }
        return;
      case FieldDescriptor::CPPTYPE_FLOAT:
        json_.Key("$ref").String(DefRef("float"));
        return;
      case FieldDescriptor::CPPTYPE_BOOL:
        json_.Key("type").String("boolean");
        return;
      case FieldDescriptor::CPPTYPE_ENUM:
        json_.Key("$ref").String(DefRef(field.enum_type()->name()));
        return;
      case FieldDescriptor::CPPTYPE_MESSAGE:
        json_.Key("$ref").String(DefRef(field.message_type()->name()));
        return;
      default:
        // The schema uses no other types; a new one fails the schema tests.
        json_.Key("not").BeginObject().EndObject();
        return;
    }
  }

  JsonText json_;
  std::map<std::string, const Descriptor*> messages_;
  std::map<std::string, const EnumDescriptor*> enums_;
};

}  // namespace

std::string TableJsonSchema(qawb::TableId id) {
  const Descriptor* table = qawb::VisitTable(id, []<typename Record>() {
    return protomsg::TuningTableTraits<Record>::Message::descriptor();
  });
  return SchemaWriter().Write(*table, TableName(id));
}

std::string SchemaFileName(qawb::TableId id) {
  return fmt::format("{}.schema.json", TableName(id));
}

}  // namespace q3a_tool
