#include "tools/q3a_tuning/io/edit_counts.h"

#include <fmt/format.h>

#include <optional>
#include <string_view>

#include "tools/q3a_tuning/io/count_rules.h"
#include "tools/q3a_tuning/io/field_limits.h"
#include "tools/q3a_tuning/io/table_edit.h"

namespace q3a_tool {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::Message;

// One step of a path as `set` takes it, with the message that holds the
// field and the path up to it.
struct Step {
  PathSegment segment;
  const Message* holder;
  std::string holder_path;
};

// The steps of `path` in `table`; empty if the path does not walk (set has
// already refused such paths).
std::vector<Step> Walk(const Message& table, std::string_view path) {
  std::vector<Step> steps;
  const Message* message = &table;
  std::string walked;
  while (message != nullptr && !path.empty()) {
    const Result<PathSegment> segment = TakePathSegment(path);
    if (!segment.ok()) return {};
    const auto [text, name, index] = *segment;
    steps.push_back({*segment, message, walked});
    walked += (walked.empty() ? "" : ".") + std::string(text);
    const FieldDescriptor* field =
        message->GetDescriptor()->FindFieldByName(std::string(name));
    if (field == nullptr) return {};
    const auto& reflection = *message->GetReflection();
    if (field->cpp_type() != FieldDescriptor::CPPTYPE_MESSAGE) {
      message = nullptr;
    } else if (field->is_repeated()) {
      message = index >= 0 && index < reflection.FieldSize(*message, field)
                    ? &reflection.GetRepeatedMessage(*message, field, index)
                    : nullptr;
    } else {
      message = &reflection.GetMessage(*message, field);
    }
  }
  return path.empty() ? steps : std::vector<Step>{};
}

int CountValue(const Message& message, std::string_view count_field) {
  const FieldDescriptor* count =
      message.GetDescriptor()->FindFieldByName(std::string(count_field));
  return count == nullptr ? 0 : message.GetReflection()->GetInt32(message, count);
}

// The entries a counted array can hold: the capacity of the last field of
// its path, in counted entries.
std::optional<int> CountedCapacity(const Descriptor& holder,
                                   const CountRule& rule) {
  const Descriptor* descriptor = &holder;
  std::string_view rest = rule.array_path;
  while (descriptor != nullptr) {
    const ArrayPathStep step = FirstArrayPathStep(rest);
    if (step.rest.empty()) {
      const FieldLimit* limit = FindFieldLimit(descriptor->name(), step.field);
      if (limit == nullptr) return std::nullopt;
      return limit->capacity / rule.per_entry;
    }
    const FieldDescriptor* field =
        descriptor->FindFieldByName(std::string(step.field));
    descriptor = field == nullptr ? nullptr : field->message_type();
    rest = step.rest;
  }
  return std::nullopt;
}

// The index of the counted entry that steps[first..] reach through the
// rule's array, if they do.
std::optional<int> CountedEntry(std::span<const Step> steps,
                                const CountRule& rule) {
  std::string_view rest = rule.array_path;
  for (const Step& step : steps) {
    const ArrayPathStep array_step = FirstArrayPathStep(rest);
    const int index = step.segment.index;
    if (step.segment.name != array_step.field) return std::nullopt;
    if (array_step.rest.empty()) {
      if (index < 0) return std::nullopt;
      return index / rule.per_entry;
    }
    if (array_step.each != (index >= 0)) return std::nullopt;
    rest = array_step.rest;
  }
  return std::nullopt;
}

std::string Join(const std::string& path, std::string_view name) {
  return path.empty() ? std::string(name) : path + "." + std::string(name);
}

}  // namespace

EditCountCheck CheckEditedCounts(const Message& table,
                                 std::span<const std::string> paths) {
  EditCountCheck check;
  for (const std::string& path : paths) {
    const std::vector<Step> steps = Walk(table, path);
    for (std::size_t i = 0; i < steps.size(); ++i) {
      const Message& holder = *steps[i].holder;
      const Descriptor& descriptor = *holder.GetDescriptor();
      for (const CountRule& rule : AllCountRules()) {
        if (rule.message != descriptor.name()) continue;
        const int count = CountValue(holder, rule.count_field);
        const std::string count_path =
            Join(steps[i].holder_path, rule.count_field);
        if (i + 1 == steps.size() &&
            steps[i].segment.name == rule.count_field) {
          const std::optional<int> capacity =
              CountedCapacity(descriptor, rule);
          if (capacity && count > *capacity) {
            check.over_capacity.push_back(fmt::format(
                "{} is {} but {} holds at most {} entries: the algorithm "
                "would read past the list",
                count_path, count, Join(steps[i].holder_path, rule.array_path),
                *capacity));
            break;
          }
        }
        const std::optional<int> entry = CountedEntry(
            std::span(steps).subspan(i), rule);
        if (entry && *entry >= count) {
          check.unused_entries.push_back(
              {.path = path,
               .message = fmt::format("entry {} is at or past {} ({}): the "
                                      "algorithm reads only the first {}",
                                      *entry, count_path, count, count)});
        }
      }
    }
  }
  return check;
}

}  // namespace q3a_tool
