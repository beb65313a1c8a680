#include "tools/q3a_tuning/lint/lint.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string_view>

#include "tools/q3a_tuning/io/count_rules.h"
#include "tools/q3a_tuning/io/field_limits.h"
#include "tools/q3a_tuning/lint/lint_rules.h"

namespace q3a_tool {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::Message;
using google::protobuf::Reflection;

// Message values of the frame-summary enum that name a real kind of
// statistics: Invalid (0) reads as -1 in the record and Max (10) is the
// number of kinds.
constexpr int kFirstFrameSummaryKind = 1;
constexpr int kLastFrameSummaryKind = 9;

std::string Join(const std::string& path, std::string_view name) {
  return path.empty() ? std::string(name) : fmt::format("{}.{}", path, name);
}

// "value 4" or "values 4..7".
std::string Range(std::string_view noun, int first, int last) {
  if (first == last) return fmt::format("{} {} is", noun, first);
  return fmt::format("{} {}..{} are",
                     noun == "entry" ? "entries" : std::string(noun) + "s",
                     first, last);
}

std::string EnumName(const FieldDescriptor& field, int value) {
  const auto* named = field.enum_type()->FindValueByNumber(value);
  return named != nullptr ? std::string(named->name()) : std::to_string(value);
}

// One list a count rule applies to.
struct CountedList {
  std::string path;
  int given;
  int capacity;
};

// Resolves `array_path` below `message` into every list it names.
void ResolveArrayPath(const Message& message, std::string_view array_path,
                      const std::string& path,
                      std::vector<CountedList>& lists) {
  const auto [segment, each, rest] = FirstArrayPathStep(array_path);
  const Descriptor& descriptor = *message.GetDescriptor();
  const FieldDescriptor* field =
      descriptor.FindFieldByName(std::string(segment));
  const FieldLimit* limit = FindFieldLimit(descriptor.name(), segment);
  if (field == nullptr || limit == nullptr) return;
  const Reflection& reflection = *message.GetReflection();
  const std::string field_path = Join(path, segment);

  if (rest.empty()) {
    lists.push_back(
        {field_path, reflection.FieldSize(message, field), limit->capacity});
    return;
  }
  if (!each) {
    ResolveArrayPath(reflection.GetMessage(message, field), rest, field_path,
                     lists);
    return;
  }
  const int rows =
      std::min(reflection.FieldSize(message, field), limit->capacity);
  for (int i = 0; i < rows; ++i) {
    ResolveArrayPath(reflection.GetRepeatedMessage(message, field, i), rest,
                     fmt::format("{}[{}]", field_path, i), lists);
  }
}

void CheckCount(const CountRule& rule, int count, const CountedList& list,
                const std::string& count_path,
                std::vector<Diagnostic>& findings) {
  const int expected = EntriesFor(rule, count);
  const int entries_in_use = list.capacity / rule.per_entry;
  if (count < 0) {
    findings.push_back(
        LintFinding(count_path,
                    fmt::format("{} is {}: a count cannot be negative",
                                rule.count_field, count),
                    lint_rule::kCount));
    return;
  }
  if (count > entries_in_use) {
    findings.push_back(LintFinding(
        count_path,
        fmt::format("{} is {} but {} holds at most {} entries",
                    rule.count_field, count, list.path, entries_in_use),
        lint_rule::kCount));
    return;
  }
  // Full capacity is how the writers emit every list; longer lists are
  // reported by the capacity check.
  if (list.given >= list.capacity) return;
  if (list.given < expected) {
    findings.push_back(LintFinding(
        list.path,
        fmt::format("{} is {} but the list gives {} of {} values: {} kept "
                    "as the table held it before (zero when loaded as an "
                    "override)",
                    rule.count_field, count, list.given, expected,
                    Range("value", list.given, expected - 1)),
        lint_rule::kCount));
  } else if (list.given > expected) {
    findings.push_back(LintFinding(
        list.path,
        fmt::format("the list gives {} values but {} is {}: the last {} "
                    "are not used",
                    list.given, rule.count_field, count, list.given - expected),
        lint_rule::kCount));
  }
}

// The count rule whose array is `field` of `descriptor` itself, if any, and
// so the number of entries of it in use.
std::optional<int> CountOfList(const Message& message,
                               const FieldDescriptor& field) {
  const Descriptor& descriptor = *message.GetDescriptor();
  for (const CountRule& rule : AllCountRules()) {
    if (rule.message != descriptor.name() || rule.array_path != field.name()) {
      continue;
    }
    const FieldDescriptor* count =
        descriptor.FindFieldByName(std::string(rule.count_field));
    if (count == nullptr) continue;
    return EntriesFor(rule,
                      message.GetReflection()->GetInt32(message, count));
  }
  return std::nullopt;
}

class Linter {
 public:
  std::vector<Diagnostic> Run(const Message& table) {
    Visit(table, "");
    return std::move(findings_);
  }

 private:
  void Visit(const Message& message, const std::string& path) {
    const Descriptor& descriptor = *message.GetDescriptor();
    const Reflection& reflection = *message.GetReflection();
    for (int i = 0; i < descriptor.field_count(); ++i) {
      const FieldDescriptor& field = *descriptor.field(i);
      const FieldLimit* limit = FindFieldLimit(descriptor.name(), field.name());
      const std::string field_path = Join(path, field.name());
      if (field.is_repeated()) {
        VisitList(message, field, limit, field_path);
      } else if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
        if (reflection.HasField(message, &field)) {
          Visit(reflection.GetMessage(message, &field), field_path);
        }
      } else {
        CheckScalar(message, field, -1, limit, field_path);
      }
    }
    for (const CountRule& rule : AllCountRules()) {
      if (rule.message != descriptor.name()) continue;
      const FieldDescriptor* count =
          descriptor.FindFieldByName(std::string(rule.count_field));
      if (count == nullptr) continue;
      std::vector<CountedList> lists;
      ResolveArrayPath(message, rule.array_path, path, lists);
      for (const CountedList& list : lists) {
        CheckCount(rule, reflection.GetInt32(message, count), list,
                   Join(path, rule.count_field), findings_);
      }
    }
  }

  void VisitList(const Message& message, const FieldDescriptor& field,
                 const FieldLimit* limit, const std::string& path) {
    const Reflection& reflection = *message.GetReflection();
    const int size = reflection.FieldSize(message, &field);
    int kept = size;
    if (limit != nullptr && size > limit->capacity) {
      kept = limit->capacity;
      findings_.push_back(LintFinding(
          fmt::format("{}[{}]", path, limit->capacity),
          fmt::format("{} entries given but the table holds {}: {} dropped",
                      size, limit->capacity,
                      Range("entry", limit->capacity, size - 1)),
          lint_rule::kOverCapacity));
    }
    if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
      for (int i = 0; i < kept; ++i) {
        Visit(reflection.GetRepeatedMessage(message, &field, i),
              fmt::format("{}[{}]", path, i));
      }
      return;
    }
    // Entries past the count are unused; only the used ones must make sense.
    const int in_use =
        std::min(kept, CountOfList(message, field).value_or(kept));
    for (int i = 0; i < in_use; ++i) {
      CheckScalar(message, field, i, limit, fmt::format("{}[{}]", path, i));
    }
  }

  // `index` is -1 for a singular field.
  void CheckScalar(const Message& message, const FieldDescriptor& field,
                   int index, const FieldLimit* limit,
                   const std::string& path) {
    const Reflection& reflection = *message.GetReflection();
    if (field.cpp_type() == FieldDescriptor::CPPTYPE_ENUM) {
      const int value =
          index < 0 ? reflection.GetEnumValue(message, &field)
                    : reflection.GetRepeatedEnumValue(message, &field, index);
      if (value >= kFirstFrameSummaryKind && value <= kLastFrameSummaryKind) {
        return;
      }
      findings_.push_back(LintFinding(
          path,
          fmt::format("{} is not a kind of frame statistics; the "
                      "record stores {}",
                      EnumName(field, value),
                      value == kLastFrameSummaryKind + 1 ? "the count "
                                                           "of kinds"
                                                         : "-1 "
                                                           "(invalid)"),
          lint_rule::kFrameSummary));
      return;
    }
    if (limit == nullptr || !limit->narrow ||
        field.cpp_type() != FieldDescriptor::CPPTYPE_INT32) {
      return;
    }
    const std::int64_t value =
        index < 0 ? reflection.GetInt32(message, &field)
                  : reflection.GetRepeatedInt32(message, &field, index);
    if (value >= limit->min && value <= limit->max) return;
    findings_.push_back(
        LintFinding(path,
                    fmt::format("{} does not fit the record's {} field; it is "
                                "stored as {}",
                                value, limit->type_name, limit->stored(value)),
                    lint_rule::kNarrowInteger));
  }

  std::vector<Diagnostic> findings_;
};

}  // namespace

Diagnostic LintFinding(std::string path, std::string message,
                       std::string_view rule, std::optional<TextPosition> at) {
  Diagnostic finding;
  finding.path = std::move(path);
  finding.message = std::move(message);
  finding.rule = std::string(rule);
  if (at) {
    finding.line = at->line;
    finding.column = at->column;
  }
  return finding;
}

std::vector<Diagnostic> LintTableMessage(const Message& table) {
  return Linter().Run(table);
}

namespace {

void FindAbsentFields(const Message& message, const std::string& path,
                      std::vector<Diagnostic>& findings) {
  const Descriptor& descriptor = *message.GetDescriptor();
  const Reflection& reflection = *message.GetReflection();
  std::vector<std::string_view> absent;
  for (int i = 0; i < descriptor.field_count(); ++i) {
    const FieldDescriptor& field = *descriptor.field(i);
    const bool is_message =
        field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE;
    const std::string field_path = Join(path, field.name());
    if (field.is_repeated()) {
      const int size = reflection.FieldSize(message, &field);
      if (size == 0) absent.push_back(field.name());
      for (int e = 0; is_message && e < size; ++e) {
        FindAbsentFields(reflection.GetRepeatedMessage(message, &field, e),
                         fmt::format("{}[{}]", field_path, e), findings);
      }
    } else if (is_message && !reflection.HasField(message, &field)) {
      if (path.empty() && field.name() == "version") {
        findings.push_back(
            LintFinding("version",
                        "the file has no version: the table reads "
                        "version 0.0",
                        lint_rule::kMissingVersion));
      } else {
        absent.push_back(field.name());
      }
    } else if (is_message) {
      FindAbsentFields(reflection.GetMessage(message, &field), field_path,
                       findings);
    }
  }
  if (!absent.empty()) {
    findings.push_back(LintFinding(path, MissingFieldsText(absent, path),
                                   lint_rule::kMissingFields));
  }
}

}  // namespace

std::vector<Diagnostic> LintAbsentFields(const Message& table) {
  std::vector<Diagnostic> findings;
  FindAbsentFields(table, "", findings);
  return findings;
}

std::string MissingFieldsText(const std::vector<std::string_view>& missing,
                              std::string_view path) {
  constexpr std::size_t kNamed = 3;
  const std::vector<std::string_view> named(
      missing.begin(), missing.begin() + std::min(kNamed, missing.size()));
  return fmt::format("{} field{} missing from {} ({}{}); {} as 0",
                     missing.size(), missing.size() == 1 ? "" : "s",
                     path.empty() ? "the table" : path, fmt::join(named, ", "),
                     missing.size() > kNamed ? ", ..." : "",
                     missing.size() == 1 ? "it loads" : "they load");
}

std::vector<Diagnostic> CollapseFindings(std::vector<Diagnostic> findings) {
  auto pattern_of = [](const std::string& path) {
    std::string pattern;
    bool in_index = false;
    for (char c : path) {
      if (c == '[') in_index = true;
      if (!in_index || c == '[' || c == ']') pattern += c;
      if (c == ']') in_index = false;
    }
    return pattern;
  };
  std::vector<Diagnostic> kept;
  std::vector<std::string> keys;
  std::vector<int> repeats;
  for (Diagnostic& finding : findings) {
    const std::string key = finding.rule + " " + pattern_of(finding.path);
    const auto it = std::find(keys.begin(), keys.end(), key);
    if (it != keys.end()) {
      ++repeats[it - keys.begin()];
      continue;
    }
    keys.push_back(key);
    repeats.push_back(0);
    kept.push_back(std::move(finding));
  }
  for (std::size_t i = 0; i < kept.size(); ++i) {
    if (repeats[i] == 0) continue;
    const std::string pattern = pattern_of(kept[i].path);
    kept[i].message +=
        pattern.empty()
            ? fmt::format(" (and {} more like it)", repeats[i])
            : fmt::format(" (and {} more like it at {})", repeats[i], pattern);
  }
  return kept;
}

}  // namespace q3a_tool
