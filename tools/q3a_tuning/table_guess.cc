#include "tools/q3a_tuning/table_guess.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <variant>
#include <vector>

#include "tools/q3a_tuning/json_document.h"
#include "tools/q3a_tuning/table_diagnostics.h"

namespace q3a_tool {
namespace {

// How many top-level keys of a JSON document name fields of the message.
int KnownTopLevelKeys(const JsonValue& root,
                      const google::protobuf::Descriptor& descriptor) {
  int known = 0;
  for (const JsonMember& member : root.members) {
    for (int i = 0; i < descriptor.field_count(); ++i) {
      if (JsonKeyMatches(member.key, descriptor.field(i)->name())) {
        ++known;
        break;
      }
    }
  }
  return known;
}

std::string KindList(const std::vector<TableKind>& kinds) {
  std::vector<std::string_view> names;
  for (TableKind kind : kinds) names.push_back(TableName(kind));
  return fmt::format("{}", fmt::join(names, ", "));
}

}  // namespace

TableGuess GuessTable(std::string_view content, FileFormat format) {
  TableGuess guess;
  const std::vector<TableKind> candidates = CandidateTables(content, format);
  if (candidates.size() == 1) {
    guess.kind = candidates.front();
    guess.parses = true;
    return guess;
  }
  if (candidates.size() > 1) {
    guess.note = fmt::format("the file fits several tables ({}); give --table",
                             KindList(candidates));
    return guess;
  }
  if (format == FileFormat::kJson) {
    auto parsed = ParseJsonDocument(content);
    if (const auto* root = std::get_if<JsonValue>(&parsed)) {
      int best = 0;
      for (TableKind kind : kAllTableKinds) {
        const int known = VisitTableKind(kind, [&](auto type) {
          using Message =
              typename TableTraits<typename decltype(type)::type>::Message;
          return KnownTopLevelKeys(*root, *Message::descriptor());
        });
        if (known > best) {
          best = known;
          guess.kind = kind;
        }
      }
      if (guess.kind) return guess;
    }
  }
  guess.note =
      "the file is not a tuning file of any table; give --table to "
      "see why";
  return guess;
}

FileFormat ResolveFormat(const std::string& path,
                         const std::string& format_option) {
  if (!format_option.empty()) {
    const std::optional<FileFormat> format = ParseFileFormat(format_option);
    if (!format) {
      throw CLI::ValidationError(
          "format", fmt::format("'{}' is not a format: use json or binary",
                                format_option));
    }
    return *format;
  }
  const std::optional<FileFormat> format = FormatFromPath(path);
  if (!format) {
    throw CLI::ValidationError(
        path,
        "cannot tell the format from the name (.json, .pb or .bin); "
        "give --from/--to json|binary");
  }
  return *format;
}

std::optional<TableKind> ResolveTable(const std::string& path,
                                      FileFormat format,
                                      const std::string& table_option,
                                      std::string& error) {
  if (!table_option.empty()) {
    const std::optional<TableKind> kind = ParseTableKind(table_option);
    if (!kind) {
      throw CLI::ValidationError(
          "--table", fmt::format("'{}' is not a table: use basic, advance, "
                                 "color or feature",
                                 table_option));
    }
    return kind;
  }
  std::string read_error;
  const std::optional<std::string> content = ReadWholeFile(path, read_error);
  if (!content) {
    error = fmt::format("{}: cannot read the file: {}", path, read_error);
    return std::nullopt;
  }
  if (content->empty() && format == FileFormat::kJson) {
    error = fmt::format("{}: the file is empty", path);
    return std::nullopt;
  }
  TableGuess guess = GuessTable(*content, format);
  if (guess.kind) return guess.kind;
  // A syntax error reads the same whichever table the file was meant to be.
  if (format == FileFormat::kJson &&
      std::holds_alternative<JsonSyntaxError>(ParseJsonDocument(*content))) {
    error = DescribeReadFailure(path, format, TableKind::kBasic);
  } else {
    error = fmt::format("{}: {}", path, guess.note);
  }
  return guess.kind;
}

}  // namespace q3a_tool
