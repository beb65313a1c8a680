#include "tools/q3a_tuning/table_diagnostics.h"

#include <fmt/format.h>

#include "tools/q3a_tuning/json_diagnosis.h"

namespace q3a_tool {
namespace {

// protobuf's JSON errors can run over several lines with a copy of the
// input; the first line is the reason.
std::string FirstLine(std::string_view text) {
  return std::string(text.substr(0, text.find('\n')));
}

}  // namespace

std::string DescribeReadFailure(const std::string& path, FileFormat format,
                                TableKind kind) {
  std::string error;
  const std::optional<std::string> content = ReadWholeFile(path, error);
  if (!content) return fmt::format("{}: cannot read the file: {}", path, error);
  if (content->empty()) return fmt::format("{}: the file is empty", path);
  return VisitTableKind(kind, [&](auto type) {
    typename TableTraits<typename decltype(type)::type>::Message message;
    const std::optional<ParseFailure> failure =
        ParseTableMessage(*content, format, message);
    if (!failure) {
      return fmt::format("{}: the library's reader refused the file", path);
    }
    if (format == FileFormat::kBinary) {
      return fmt::format("{}: {}", path, failure->reason);
    }
    const JsonLocation where =
        LocateJsonFailure(*content, *message.GetDescriptor());
    std::string text = fmt::format("{}:{}:{}: ", path, where.position.line,
                                   where.position.column);
    std::string reason = FirstLine(failure->reason);
    if (where.path.empty()) {
      // A syntax error: protobuf's words, with the tool's in brackets.
      text += reason;
      if (!where.detail.empty()) text += " (" + where.detail + ")";
      return text;
    }
    // protobuf prefixes some reasons with the path, which is printed anyway.
    for (const std::string& prefix :
         {"(" + where.path + "): ", where.path + ": "}) {
      if (reason.starts_with(prefix)) reason.erase(0, prefix.size());
    }
    // ... or with the enclosing message's path in brackets.
    if (reason.starts_with("(") && reason.find(") ") != std::string::npos) {
      reason.erase(0, reason.find(") ") + 2);
    }
    const std::string last =
        where.path.substr(where.path.find_last_of(".]") + 1);
    if (reason.starts_with(last + ": ")) reason.erase(0, last.size() + 2);
    text += where.path + ": ";
    // protobuf does not always name the value it stopped at; when its reason
    // does not mention the located field, lead with what the tool found.
    if (failure->reason.find(last) != std::string::npos) {
      text += reason;
      if (!where.detail.empty()) text += " (" + where.detail + ")";
    } else {
      text += where.detail + " (protobuf: " + reason + ")";
    }
    return text;
  });
}

std::string PositionPrefix(const std::string& file, const JsonValue* document,
                           std::string_view json_path) {
  if (document == nullptr) return file + ": ";
  std::string_view path = json_path;
  while (true) {
    if (const JsonValue* value = FindJsonPath(*document, path)) {
      return fmt::format("{}:{}:{}: ", file, value->position.line,
                         value->position.column);
    }
    const std::size_t cut = path.find_last_of(".[");
    if (cut == std::string_view::npos || cut == 0) break;
    path = path.substr(0, cut);
  }
  return fmt::format("{}:{}:{}: ", file, document->position.line,
                     document->position.column);
}

}  // namespace q3a_tool
