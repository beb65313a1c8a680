#include "tools/q3a_tuning/io/table_guess.h"

#include <fmt/format.h>
#include <google/protobuf/unknown_field_set.h>

#include <cmath>
#include <variant>
#include <vector>

#include "protomsg/record_conversions.h"
#include "tools/q3a_tuning/io/input_file.h"
#include "tools/q3a_tuning/lint/json_document.h"
#include "tools/q3a_tuning/lint/lint.h"
#include "tools/q3a_tuning/lint/table_diagnostics.h"
#include "tools/q3a_tuning/io/tuning_binary_file.h"

namespace q3a_tool {
namespace {

using google::protobuf::FieldDescriptor;
using google::protobuf::Message;
using google::protobuf::Reflection;

// How well a file fits one table's schema; lower is better.
struct Fit {
  bool parses = false;
  bool canonical = false;  // re-encodes to the file's own bytes
  int unknown = 0;         // unknown fields and wire-type mismatches
  int implausible = 0;     // lint findings and absurd floats
  long Score() const { return unknown * 1000L + implausible; }
};

// Floats decoded from bytes that were something else look like this.
bool AbsurdFloat(double value) {
  const double magnitude = std::fabs(value);
  return !std::isfinite(value) ||
         (magnitude != 0 && (magnitude < 1e-30 || magnitude > 1e12));
}

void CountOddities(const Message& message, Fit& fit) {
  const Reflection& reflection = *message.GetReflection();
  fit.unknown += reflection.GetUnknownFields(message).field_count();
  std::vector<const FieldDescriptor*> fields;
  reflection.ListFields(message, &fields);
  for (const FieldDescriptor* field : fields) {
    const int size =
        field->is_repeated() ? reflection.FieldSize(message, field) : 1;
    for (int i = 0; i < size; ++i) {
      const bool repeated = field->is_repeated();
      switch (field->cpp_type()) {
        case FieldDescriptor::CPPTYPE_MESSAGE:
          CountOddities(repeated
                            ? reflection.GetRepeatedMessage(message, field, i)
                            : reflection.GetMessage(message, field),
                        fit);
          break;
        case FieldDescriptor::CPPTYPE_FLOAT:
          fit.implausible += AbsurdFloat(
              repeated ? reflection.GetRepeatedFloat(message, field, i)
                       : reflection.GetFloat(message, field));
          break;
        default:
          break;
      }
    }
  }
}

template <typename Record>
Fit FitOf(std::string_view content, FileFormat format) {
  using Message = typename TableTraits<Record>::Message;
  Fit fit;
  Message message;
  if (ParseTableMessage(content, format, message)) return fit;
  fit.parses = true;
  CountOddities(message, fit);
  fit.implausible += static_cast<int>(LintTableMessage(message).size());
  if (format == FileFormat::kBinary) {
    auto record = MakeZeroedTable<Record>();
    protomsg::ConvertToStruct(message, *record);
    Message again;
    protomsg::ConvertToMessage(*record, again);
    fit.canonical = again.SerializeAsString() == content;
  }
  return fit;
}

std::string KindList(const std::vector<TableKind>& kinds) {
  std::vector<std::string_view> names;
  for (TableKind kind : kinds) names.push_back(TableName(kind));
  return fmt::format("{}", fmt::join(names, ", "));
}

// For a JSON file no reader accepts: the table whose fields its top-level
// keys name most.
std::optional<TableKind> MostNamedTable(std::string_view content) {
  auto parsed = ParseJsonDocument(content);
  const auto* root = std::get_if<JsonValue>(&parsed);
  if (root == nullptr) return std::nullopt;
  std::optional<TableKind> best_kind;
  int best = 0;
  for (TableKind kind : kAllTableKinds) {
    const int known = VisitTableKind(kind, [&](auto type) {
      using Message =
          typename TableTraits<typename decltype(type)::type>::Message;
      int count = 0;
      for (const JsonMember& member : root->members) {
        const auto& descriptor = *Message::descriptor();
        for (int i = 0; i < descriptor.field_count(); ++i) {
          if (JsonKeyMatches(member.key, descriptor.field(i)->name())) {
            ++count;
            break;
          }
        }
      }
      return count;
    });
    if (known > best) {
      best = known;
      best_kind = kind;
    }
  }
  return best_kind;
}

}  // namespace

TableGuess GuessTable(std::string_view content, FileFormat format) {
  TableGuess guess;
  if (LooksLikeTuningBinaryFile(content)) {
    guess.container_dump = true;
    guess.note = fmt::format(
        "this is a tuning binary file (the container's dump of all four "
        "tables, {} bytes), not a tuning file; look at it with `q3a-tuning "
        "inspect` or split it with `q3a-tuning dump`",
        content.size());
    return guess;
  }
  std::vector<std::pair<TableKind, Fit>> fits;
  for (TableKind kind : kAllTableKinds) {
    const Fit fit = VisitTableKind(kind, [&](auto type) {
      return FitOf<typename decltype(type)::type>(content, format);
    });
    if (fit.parses) fits.emplace_back(kind, fit);
  }
  std::vector<TableKind> canonical;
  for (const auto& [kind, fit] : fits) {
    if (fit.canonical) canonical.push_back(kind);
  }
  if (canonical.size() == 1) {
    guess.kind = canonical.front();
    guess.certain = true;
    return guess;
  }
  if (fits.empty()) {
    if (format == FileFormat::kJson) guess.kind = MostNamedTable(content);
    if (!guess.kind) {
      guess.note = "the file is not a tuning file of any table";
    }
    return guess;
  }
  long best = fits.front().second.Score();
  for (const auto& [kind, fit] : fits) best = std::min(best, fit.Score());
  std::vector<TableKind> best_kinds;
  for (const auto& [kind, fit] : fits) {
    if (fit.Score() == best) best_kinds.push_back(kind);
  }
  if (best_kinds.size() == 1) {
    guess.kind = best_kinds.front();
    guess.certain = true;
    return guess;
  }
  guess.note = fmt::format("the file fits several tables ({}); give --table",
                           KindList(best_kinds));
  return guess;
}

std::string TableMismatch(std::string_view name, TableKind is,
                          TableKind expected) {
  return fmt::format("{}: this is {} {} table, not {} {} table", name,
                     is == TableKind::kAdvance ? "an" : "a", TableName(is),
                     expected == TableKind::kAdvance ? "an" : "a",
                     TableName(expected));
}

Result<TableKind> ParseTableOption(std::string_view text) {
  if (const std::optional<TableKind> kind = ParseTableKind(text)) return *kind;
  return ToolError{
      fmt::format("--table: '{}' is not a table: use {}", text, TableNames()),
      kExitUsage};
}

Result<FileFormat> ResolveFormat(const std::string& path,
                                 const std::string& format_option) {
  if (!format_option.empty()) {
    if (const auto format = ParseFileFormat(format_option)) return *format;
    return ToolError{fmt::format("'{}' is not a format: use json or binary",
                                 format_option),
                     kExitUsage};
  }
  if (const auto format = FormatFromPath(path)) return *format;
  return ToolError{
      fmt::format("{}: cannot tell the format from the name (.json, .pb or "
                  ".bin); give --from/--to json|binary",
                  path),
      kExitUsage};
}

std::optional<ToolError> CheckTableFits(const std::string& path,
                                        std::string_view content,
                                        FileFormat format, TableKind kind) {
  const TableGuess guess = GuessTable(content, format);
  if (guess.container_dump) {
    return ToolError{fmt::format("{}: {}", path, guess.note), kExitFailure};
  }
  if (guess.certain && *guess.kind != kind) {
    return ToolError{TableMismatch(path, *guess.kind, kind), kExitFailure};
  }
  return std::nullopt;
}

Result<TableKind> ResolveTable(const std::string& path, FileFormat format,
                               const std::string& table_option) {
  const Result<std::string> content = ReadInputFile(path);
  if (!content.ok()) return content.error();
  if (!table_option.empty()) {
    const Result<TableKind> kind = ParseTableOption(table_option);
    if (!kind.ok()) return kind;
    if (auto refused = CheckTableFits(path, *content, format, *kind)) {
      return *refused;
    }
    return kind;
  }
  if (content->empty() && format == FileFormat::kJson) {
    return ToolError{fmt::format("{}: the file is empty", path)};
  }
  const TableGuess guess = GuessTable(*content, format);
  if (guess.kind) return *guess.kind;
  // A syntax error reads the same whichever table the file was meant to be.
  if (format == FileFormat::kJson &&
      std::holds_alternative<JsonSyntaxError>(ParseJsonDocument(*content))) {
    return ToolError{DescribeReadFailure(path, format, TableKind::kBasic)};
  }
  return ToolError{fmt::format("{}: {}", path, guess.note)};
}

}  // namespace q3a_tool
