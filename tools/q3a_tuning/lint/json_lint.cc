#include "tools/q3a_tuning/lint/json_lint.h"

#include <fmt/format.h>

#include <string>
#include <string_view>

namespace q3a_tool {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;
using Type = JsonValue::Type;

std::string_view LeniencyText(std::string_view rule) {
  if (rule == "trailing-comma") return "a comma before the closing bracket";
  if (rule == "single-quote") return "a string in single quotes";
  if (rule == "unquoted-key") return "a field name without quotes";
  if (rule == "comment") return "a comment";
  return "a byte-order mark";
}

std::string Join(const std::string& path, std::string_view name) {
  return path.empty() ? std::string(name) : fmt::format("{}.{}", path, name);
}

std::string Where(const std::string& path) {
  return path.empty() ? "the table" : path;
}

class DocumentLinter {
 public:
  std::vector<Finding> Run(const JsonValue& root, const Descriptor& table) {
    if (root.type == Type::kObject && root.members.empty()) {
      Add(root.position, "", "empty-object",
          "the file is an empty object: every field of the table loads as 0 "
          "(and lists keep what the table held, zero for an override)");
      return std::move(findings_);
    }
    if (FieldValue(root, "version") == nullptr) {
      Add(root.position, "version", "missing-version",
          "the file has no version: the table reads version 0.0");
    }
    VisitObject(root, table, "");
    return std::move(findings_);
  }

 private:
  void Add(TextPosition position, std::string path, const char* rule,
           std::string message) {
    findings_.push_back(
        {std::move(path), std::move(message), rule, position});
  }

  static const JsonValue* FieldValue(const JsonValue& object,
                                     std::string_view field) {
    const JsonValue* found = nullptr;
    for (const JsonMember& member : object.members) {
      if (JsonKeyMatches(member.key, field)) found = &member.value;
    }
    return found;
  }

  void VisitObject(const JsonValue& object, const Descriptor& descriptor,
                   const std::string& path) {
    if (object.type != Type::kObject) return;
    std::vector<std::string> missing;
    for (int i = 0; i < descriptor.field_count(); ++i) {
      const FieldDescriptor& field = *descriptor.field(i);
      std::vector<const JsonMember*> given;
      for (const JsonMember& member : object.members) {
        if (JsonKeyMatches(member.key, field.name())) given.push_back(&member);
      }
      const std::string field_path = Join(path, field.name());
      if (given.empty()) {
        // The table's version has a rule of its own.
        if (!(path.empty() && field.name() == "version")) {
          missing.push_back(field.name());
        }
        continue;
      }
      if (given.size() > 1) Duplicated(field, given, field_path);
      for (const JsonMember* member : given) {
        VisitValue(member->value, field, field_path);
      }
    }
    if (!missing.empty() && missing.size() < static_cast<std::size_t>(
                                                 descriptor.field_count())) {
      ReportMissing(object, missing, path);
    } else if (!missing.empty() && !path.empty()) {
      Add(object.position, path, "missing-fields",
          fmt::format("{} is an empty object: all its {} fields load as 0",
                      path, missing.size()));
    }
  }

  void ReportMissing(const JsonValue& object,
                     const std::vector<std::string>& missing,
                     const std::string& path) {
    constexpr std::size_t kNamed = 3;
    std::vector<std::string> named(
        missing.begin(), missing.begin() + std::min(kNamed, missing.size()));
    Add(object.position, path, "missing-fields",
        fmt::format("{} field{} missing from {} ({}{}); {} as 0",
                    missing.size(), missing.size() == 1 ? "" : "s",
                    Where(path), fmt::join(named, ", "),
                    missing.size() > kNamed ? ", ..." : "",
                    missing.size() == 1 ? "it loads" : "they load"));
  }

  void Duplicated(const FieldDescriptor& field,
                  const std::vector<const JsonMember*>& given,
                  const std::string& path) {
    const JsonMember& second = *given[1];
    std::string effect;
    if (field.is_repeated()) {
      effect = "the reader joins the lists one after the other";
    } else if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
      effect = "the reader merges the objects, later fields winning";
    } else {
      const TextPosition last = given.back()->value.position;
      effect = fmt::format("the last value (line {}, column {}) wins",
                           last.line, last.column);
    }
    Add(second.key_position, path, "duplicate-key",
        fmt::format("\"{}\" is given {} times: {}", field.name(), given.size(),
                    effect));
  }

  void VisitValue(const JsonValue& value, const FieldDescriptor& field,
                  const std::string& path) {
    if (value.type == Type::kNull) {
      Add(value.position, path, "null",
          field.is_repeated()
              ? "null: the list is empty, so its entries keep what the table "
                "held (zero for an override)"
              : field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE
                    ? "null: every field of it loads as 0"
                    : "null: the field loads as 0");
      return;
    }
    if (field.is_repeated() && value.type == Type::kArray) {
      for (std::size_t i = 0; i < value.elements.size(); ++i) {
        VisitElement(value.elements[i], field, fmt::format("{}[{}]", path, i));
      }
      return;
    }
    VisitElement(value, field, path);
  }

  void VisitElement(const JsonValue& value, const FieldDescriptor& field,
                    const std::string& path) {
    if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
      VisitObject(value, *field.message_type(), path);
      return;
    }
    const bool is_float = field.cpp_type() == FieldDescriptor::CPPTYPE_FLOAT ||
                          field.cpp_type() == FieldDescriptor::CPPTYPE_DOUBLE;
    if (is_float && value.type == Type::kString &&
        (value.text == "NaN" || value.text == "Infinity" ||
         value.text == "-Infinity")) {
      Add(value.position, path, "not-a-number",
          fmt::format("\"{}\" is read as a float the algorithm cannot "
                      "compute with",
                      value.text));
    }
  }

  std::vector<Finding> findings_;
};

}  // namespace

std::vector<Finding> LintJsonDocument(
    const JsonValue& root, const std::vector<JsonLeniency>& leniencies,
    const Descriptor& table) {
  std::vector<Finding> findings;
  for (const JsonLeniency& leniency : leniencies) {
    findings.push_back(
        {"",
         fmt::format("{}: the library's reader takes it, but other JSON tools "
                     "refuse the file",
                     LeniencyText(leniency.rule)),
         leniency.rule, leniency.position});
  }
  std::vector<Finding> document = DocumentLinter().Run(root, table);
  findings.insert(findings.end(), document.begin(), document.end());
  return findings;
}

}  // namespace q3a_tool
