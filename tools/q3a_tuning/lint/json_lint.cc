#include "tools/q3a_tuning/lint/json_lint.h"

#include <fmt/format.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tools/q3a_tuning/lint/lint_rules.h"

namespace q3a_tool {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;
using Type = JsonValue::Type;

// What a leniency the library's reader takes is: a trailing comma, single
// quotes, an unquoted key, an escape JSON lacks, or odd whitespace.
std::string_view LeniencyText(std::string_view rule) {
  if (rule == lint_rule::kTrailingComma) {
    return "a comma before the closing bracket";
  }
  if (rule == lint_rule::kSingleQuote) return "a string in single quotes";
  if (rule == lint_rule::kUnquotedKey) return "a field name without quotes";
  if (rule == lint_rule::kInvalidEscape) {
    return "a backslash before a character JSON does not escape (the "
           "library's reader keeps the character)";
  }
  return "a form feed or vertical tab as space";
}

const FieldDescriptor* FieldOfKey(const Descriptor& descriptor,
                                  std::string_view key) {
  for (int i = 0; i < descriptor.field_count(); ++i) {
    if (JsonKeyMatches(key, descriptor.field(i)->name())) {
      return descriptor.field(i);
    }
  }
  return nullptr;
}

// A leniency's path, keys as written, with the schema's field names.
std::string SchemaPath(std::string_view written, const Descriptor& table) {
  std::string path;
  const Descriptor* at = &table;
  while (!written.empty()) {
    if (written.front() == '[') {
      const std::size_t close = written.find(']');
      path += written.substr(0, close + 1);
      written.remove_prefix(close == std::string_view::npos ? written.size()
                                                            : close + 1);
      continue;
    }
    if (written.front() == '.') written.remove_prefix(1);
    const std::size_t stop = written.find_first_of(".[");
    const std::string_view key = written.substr(0, stop);
    const FieldDescriptor* field = at ? FieldOfKey(*at, key) : nullptr;
    if (!path.empty()) path += '.';
    path += field != nullptr ? std::string_view(field->name()) : key;
    at = field != nullptr ? field->message_type() : nullptr;
    written.remove_prefix(stop == std::string_view::npos ? written.size()
                                                         : stop);
  }
  return path;
}

class DocumentLinter {
 public:
  std::vector<Diagnostic> Run(const JsonValue& root, const Descriptor& table) {
    if (root.type() == Type::kObject && root.members().empty()) {
      Add(root.position(), lint_rule::kEmptyObject,
          "the file is an empty object: every field of the table loads as 0 "
          "(and lists keep what the table held, zero for an override)");
      return std::move(findings_);
    }
    if (FindJsonPath(root, "version") == nullptr) {
      path_ = "version";
      Add(root.position(), lint_rule::kMissingVersion,
          "the file has no version: the table reads version 0.0");
      path_.clear();
    }
    if (root.type() == Type::kObject) {
      const JsonValue* const object[] = {&root};
      VisitObject(object, table);
    }
    return std::move(findings_);
  }

 private:
  void Add(TextPosition position, const char* rule, std::string message) {
    findings_.push_back(LintFinding(path_, std::move(message), rule, position));
  }

  // Appends a step to the path for the life of the object.
  class Step {
   public:
    Step(std::string& path, std::string_view name) : path_(path) {
      size_ = path.size();
      if (!path.empty()) path += '.';
      path += name;
    }
    Step(std::string& path, std::size_t index) : path_(path) {
      size_ = path.size();
      fmt::format_to(std::back_inserter(path), "[{}]", index);
    }
    ~Step() { path_.resize(size_); }

   private:
    std::string& path_;
    std::size_t size_;
  };

  // `objects` are the values of one field given more than once, which the
  // reader merges: a field is missing only if none of them has it.
  void VisitObject(std::span<const JsonValue* const> objects,
                   const Descriptor& descriptor) {
    const auto matching = [&](const FieldDescriptor& field, auto&& visit) {
      for (const JsonValue* object : objects) {
        for (const JsonMember& member : object->members()) {
          if (JsonKeyMatches(member.key, field.name())) visit(member);
        }
      }
    };
    std::vector<std::string_view> missing;
    for (int i = 0; i < descriptor.field_count(); ++i) {
      const FieldDescriptor& field = *descriptor.field(i);
      int given = 0;
      const JsonMember* second = nullptr;
      const JsonValue* last_value = nullptr;  // null values set nothing
      matching(field, [&](const JsonMember& member) {
        if (++given == 2) second = &member;
        if (member.value.type() != Type::kNull) last_value = &member.value;
      });
      if (given == 0) {
        // The table's version has a rule of its own.
        if (!(path_.empty() && field.name() == "version")) {
          missing.push_back(field.name());
        }
        continue;
      }
      const Step step(path_, field.name());
      if (given > 1) Duplicated(field, given, *second, last_value);
      if (field.is_repeated() ||
          field.cpp_type() != FieldDescriptor::CPPTYPE_MESSAGE) {
        matching(field, [&](const JsonMember& member) {
          VisitValue(member.value, field);
        });
        continue;
      }
      std::vector<const JsonValue*> merged;
      matching(field, [&](const JsonMember& member) {
        if (member.value.type() == Type::kObject) {
          merged.push_back(&member.value);
        } else {
          VisitValue(member.value, field);
        }
      });
      if (!merged.empty()) VisitObject(merged, *field.message_type());
    }
    if (missing.empty()) return;
    const TextPosition at = objects.front()->position();
    if (missing.size() < static_cast<std::size_t>(descriptor.field_count())) {
      Add(at, lint_rule::kMissingFields, MissingFieldsText(missing, path_));
    } else if (!path_.empty()) {
      Add(at, lint_rule::kMissingFields,
          fmt::format("{} is an empty object: all its {} fields load as 0",
                      path_, missing.size()));
    }
  }

  void Duplicated(const FieldDescriptor& field, int given,
                  const JsonMember& second, const JsonValue* last_value) {
    std::string effect;
    if (field.is_repeated()) {
      effect = "the reader joins the lists one after the other";
    } else if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
      effect = "the reader merges the objects, later fields winning";
    } else if (last_value == nullptr) {
      effect = "every one is null: the field loads as 0";
    } else {
      const TextPosition last = last_value->position();
      effect = fmt::format("the last value that is not null (line {}, "
                           "column {}) wins",
                           last.line, last.column);
    }
    Add(second.key_position, lint_rule::kDuplicateKey,
        fmt::format("\"{}\" is given {} times: {}", field.name(), given,
                    effect));
  }

  void VisitValue(const JsonValue& value, const FieldDescriptor& field) {
    if (value.type() == Type::kNull) {
      Add(value.position(), lint_rule::kNull,
          field.is_repeated()
              ? "null: the list is empty, so its entries keep what the table "
                "held (zero for an override)"
              : field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE
                    ? "null: every field of it loads as 0"
                    : "null: the field loads as 0");
      return;
    }
    if (field.is_repeated() && value.type() == Type::kArray) {
      const auto elements = value.elements();
      for (std::size_t i = 0; i < elements.size(); ++i) {
        VisitElement(elements[i], field, i);
      }
      return;
    }
    VisitElement(value, field, std::nullopt);
  }

  void VisitElement(const JsonValue& value, const FieldDescriptor& field,
                    std::optional<std::size_t> index) {
    if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
      if (value.type() != Type::kObject) return;
      const JsonValue* const object[] = {&value};
      if (!index) return VisitObject(object, *field.message_type());
      const Step step(path_, *index);
      return VisitObject(object, *field.message_type());
    }
    const bool is_float = field.cpp_type() == FieldDescriptor::CPPTYPE_FLOAT ||
                          field.cpp_type() == FieldDescriptor::CPPTYPE_DOUBLE;
    const std::string_view text = value.text();
    if (is_float && value.type() == Type::kString &&
        (text == "NaN" || text == "Infinity" || text == "-Infinity")) {
      std::optional<Step> step;
      if (index) step.emplace(path_, *index);
      Add(value.position(), lint_rule::kNotANumber,
          fmt::format("\"{}\" is read as a float the algorithm cannot "
                      "compute with",
                      text));
    }
  }

  std::string path_;
  std::vector<Diagnostic> findings_;
};

}  // namespace

std::vector<Diagnostic> LintJsonDocument(
    const JsonValue& root, const std::vector<Diagnostic>& leniencies,
    const Descriptor& table) {
  std::vector<Diagnostic> findings;
  for (const Diagnostic& leniency : leniencies) {
    // A form the library refuses is the reader's refusal, not a finding.
    if (RefusedByTheLibrary(leniency)) continue;
    findings.push_back(LintFinding(
        SchemaPath(leniency.path, table),
        fmt::format("{}: the library's reader takes it, but other JSON tools "
                    "refuse the file",
                    LeniencyText(leniency.rule)),
        leniency.rule, TextPosition{leniency.line, leniency.column}));
  }
  std::vector<Diagnostic> document = DocumentLinter().Run(root, table);
  findings.insert(findings.end(), document.begin(), document.end());
  return findings;
}

}  // namespace q3a_tool
