#include "tools/q3a_tuning/lint/plausibility.h"

#include <fmt/format.h>

#include <cmath>
#include <cstring>
#include <type_traits>

#include "protomsg/record_conversions.h"
#include "tools/q3a_tuning/io/input_file.h"
#include "tools/q3a_tuning/io/record_walk.h"
#include "tools/q3a_tuning/io/table_file.h"
#include "tools/q3a_tuning/lint/lint.h"
#include "tools/q3a_tuning/lint/lint_rules.h"

namespace q3a_tool {
namespace {

using google::protobuf::FieldDescriptor;
using google::protobuf::Message;
using google::protobuf::Reflection;

constexpr long kMaxVersionPart = 99;

// Floats decoded from bytes that were something else look like this.
bool AbsurdFloat(double value) {
  const double magnitude = std::fabs(value);
  return !std::isfinite(value) ||
         (magnitude != 0 && (magnitude < 1e-30 || magnitude > 1e12));
}

int CountAbsurdFloats(const Message& message) {
  const Reflection& reflection = *message.GetReflection();
  std::vector<const FieldDescriptor*> fields;
  reflection.ListFields(message, &fields);
  int absurd = 0;
  for (const FieldDescriptor* field : fields) {
    const bool repeated = field->is_repeated();
    const int size = repeated ? reflection.FieldSize(message, field) : 1;
    for (int i = 0; i < size; ++i) {
      if (field->cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
        absurd += CountAbsurdFloats(
            repeated ? reflection.GetRepeatedMessage(message, field, i)
                     : reflection.GetMessage(message, field));
      } else if (field->cpp_type() == FieldDescriptor::CPPTYPE_FLOAT) {
        absurd += AbsurdFloat(
            repeated ? reflection.GetRepeatedFloat(message, field, i)
                     : reflection.GetFloat(message, field));
      }
    }
  }
  return absurd;
}

template <typename Record>
std::vector<std::string> ImplausibleRecord(const Record& table) {
  std::vector<std::string> found;
  if (!PlausibleVersion(table.version.major, table.version.minor)) {
    found.push_back(fmt::format("version: {} is not a table version",
                                VersionString(table.version)));
  }
  ForEachScalar(table, [&](const std::string& path, const auto& value) {
    using T = std::remove_cvref_t<decltype(value)>;
    if constexpr (std::is_same_v<T, qawb::QAWBFrameSummaryType>) {
      // Only the values the message can carry come back unchanged.
      if (protomsg::ConvertToStruct(protomsg::ConvertToMessage(value)) !=
          value) {
        found.push_back(fmt::format("{}: {} is not a frame-summary kind",
                                    path, static_cast<int>(value)));
      }
    } else if constexpr (std::is_same_v<T, bool>) {
      if (qawb::StoredByte(value) > 1) {
        found.push_back(fmt::format("{}: byte {} is not a flag", path,
                                    qawb::StoredByte(value)));
      }
    }
  });
  typename protomsg::TuningTableTraits<Record>::Message message;
  protomsg::ConvertToMessage(table, message);
  // The message carries every list whole, so the count rule speaks only of
  // counts below zero or above the capacity.
  for (const Diagnostic& finding : LintTableMessage(message)) {
    if (finding.rule == lint_rule::kCount) {
      found.push_back(finding.path + ": " + finding.message);
    }
  }
  return found;
}

}  // namespace

bool PlausibleVersion(long major, long minor) {
  return major >= 1 && major <= kMaxVersionPart && minor >= 0 &&
         minor <= kMaxVersionPart;
}

std::vector<std::string> FindImplausibleValues(qawb::TableId kind,
                                               std::string_view bytes) {
  return qawb::VisitTable(kind, [&]<typename Record>() {
    auto table = MakeZeroedTable<Record>();
    std::memcpy(static_cast<void*>(table.get()), bytes.data(),
                std::min(bytes.size(), sizeof(Record)));
    return ImplausibleRecord(*table);
  });
}

int CountImplausibleValues(const Message& table) {
  int implausible = CountAbsurdFloats(table) +
                    static_cast<int>(LintTableMessage(table).size());
  const FieldDescriptor* version =
      table.GetDescriptor()->FindFieldByName("version");
  if (version != nullptr &&
      table.GetReflection()->HasField(table, version)) {
    const Message& head = table.GetReflection()->GetMessage(table, version);
    const auto* descriptor = head.GetDescriptor();
    const Reflection& reflection = *head.GetReflection();
    implausible += !PlausibleVersion(
        reflection.GetInt32(head, descriptor->FindFieldByName("major")),
        reflection.GetInt32(head, descriptor->FindFieldByName("minor")));
  }
  return implausible;
}

TuningBinaryFileInfo InspectTuningBinaryContent(std::string_view content) {
  TuningBinaryFileInfo info = ReadTuningBinaryHeads(content);
  for (TableHead& head : info.tables) {
    if (head.offset + head.size <= content.size()) {
      head.implausible = FindImplausibleValues(
          head.kind, content.substr(head.offset, head.size));
    }
  }
  return info;
}

Result<TuningBinaryFileInfo> InspectTuningBinaryFile(const std::string& path) {
  const Result<std::string> content = ReadInputFile(path);
  if (!content.ok()) return content.error();
  return InspectTuningBinaryContent(*content);
}

bool LooksLikeTuningBinaryFile(std::string_view content) {
  const TuningBinaryFileInfo info = ReadTuningBinaryHeads(content);
  if (!info.size_ok) return false;
  for (const TableHead& head : info.tables) {
    if (!head.version ||
        !PlausibleVersion(head.version->major, head.version->minor)) {
      return false;
    }
  }
  return true;
}

}  // namespace q3a_tool
