#include "tools/q3a_tuning/commands/table_sources.h"

#include <fmt/format.h>

#include <variant>

#include "coordinator/tuning_map.h"
#include "tools/q3a_tuning/io/input_file.h"
#include "tools/q3a_tuning/io/registry_view.h"
#include "tools/q3a_tuning/lint/json_document.h"
#include "tools/q3a_tuning/lint/plausibility.h"
#include "tools/q3a_tuning/lint/table_guess.h"

namespace q3a_tool {
namespace {

// A usage error for a name that does not tell a tuning file's format; a
// .bin is named as what the tool means by it.
ToolError UnknownFormat(const std::string& path, std::string_view advice) {
  return ToolError{
      fmt::format("{}: cannot tell the format from the name (.json or .pb{}); "
                  "{}",
                  path,
                  path.ends_with(".bin")
                      ? "; a .bin is a tuning binary file, for inspect, dump "
                        "and restore --base"
                      : "",
                  advice),
      kExitUsage};
}

}  // namespace

Result<const qawb::QAWBTuning*> RegisteredContainer(
    std::string_view key_text, std::string_view label) {
  const std::optional<q3a_api::TuningKey> key = ParseTuningKey(key_text);
  if (!key) {
    return ToolError{
        fmt::format("{}: '{}' is not a key: five comma-separated integers "
                    "use_case,sensor_mode,camera_position,lens_type,reserved "
                    "(e.g. 0,-1,1,0,-1)",
                    label, key_text),
        kExitUsage};
  }
  const qawb::QAWBTuning* container =
      FindAwbContainer(q3a_coordinator::GetTuningMap(), *key);
  if (container == nullptr) {
    return ToolError{fmt::format("{}: no AWB container is registered under "
                                 "{} (see `q3a-tuning list`)",
                                 label, key_text),
                     kExitUsage};
  }
  return container;
}

std::unique_ptr<qawb::MutableQAWBTuning> DefaultContainer() {
  return std::make_unique<qawb::MutableQAWBTuning>();
}

Result<TableOperand> ParseTableOperand(std::string_view text,
                                       const qawb::QAWBTuning& defaults,
                                       const std::string& from) {
  TableOperand operand;
  operand.name = std::string(text);
  operand.from = from;
  auto table_of = [&](std::string_view name) -> Result<qawb::TableId> {
    if (const auto kind = qawb::FindTable(name)) return *kind;
    return ToolError{fmt::format("{}: '{}' is not a table: use {}",
                                 operand.name, name, TableNames()),
                     kExitUsage};
  };
  std::string_view table_name;
  if (text.starts_with("awb:")) {
    const std::string_view rest = text.substr(4);
    const std::size_t colon = rest.rfind(':');
    if (colon == std::string_view::npos) {
      return ToolError{fmt::format("{}: expected awb:KEY:TABLE, e.g. "
                                   "awb:0,-1,1,0,-1:feature",
                                   operand.name),
                       kExitUsage};
    }
    const auto container =
        RegisteredContainer(rest.substr(0, colon), operand.name);
    if (!container.ok()) return container.error();
    operand.container = *container;
    table_name = rest.substr(colon + 1);
  } else if (text.starts_with("defaults:")) {
    operand.container = &defaults;
    table_name = text.substr(9);
  } else {
    operand.file = std::string(text);
    return operand;
  }
  const Result<qawb::TableId> kind = table_of(table_name);
  if (!kind.ok()) return kind.error();
  operand.kind = *kind;
  return operand;
}

Result<> RequireFileOperand(std::string_view text, std::string_view command) {
  std::string export_command;
  if (text.starts_with("awb:")) {
    const std::string_view rest = text.substr(4);
    export_command = fmt::format("q3a-tuning export --key {} -o DIR",
                                 rest.substr(0, rest.rfind(':')));
  } else if (text.starts_with("defaults:")) {
    export_command = "q3a-tuning export --defaults -o DIR";
  } else {
    return {};
  }
  return ToolError{fmt::format("{}: {} takes a tuning file (.json, .pb, "
                               "or another name with --from), not a "
                               "container's table; `{}` writes its tables as "
                               "files",
                               text, command, export_command),
                   kExitUsage};
}

Result<FileFormat> InputFormat(const std::string& path,
                               const std::string& from) {
  if (auto refused = CheckInputFile(path); !refused.ok()) {
    return refused.error();
  }
  if (from.empty() && !FormatFromPath(path)) {
    return UnknownFormat(path, "give --from json or --from binary");
  }
  return ResolveFormat(path, from);
}

Result<qawb::TableId> OperandKind(const TableOperand& operand,
                                  const std::string& table_option) {
  if (operand.kind) return *operand.kind;
  const Result<FileFormat> format = InputFormat(operand.file, operand.from);
  if (!format.ok()) return format.error();
  return ResolveTable(operand.file, *format, table_option);
}

Result<qawb::TableId> ParseTableOption(std::string_view text) {
  if (const std::optional<qawb::TableId> kind = qawb::FindTable(text))
    return *kind;
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
  return UnknownFormat(path, "give --from/--to json|binary");
}

Result<qawb::TableId> ResolveTable(const std::string& path, FileFormat format,
                                   const std::string& table_option,
                                   TableGuess* guess_out) {
  const Result<std::string> content = ReadInputFile(path);
  if (!content.ok()) return content.error();
  if (!table_option.empty()) {
    const Result<qawb::TableId> kind = ParseTableOption(table_option);
    if (!kind.ok()) return kind;
    if (auto refused = CheckTableFits(path, *content, format, *kind);
        !refused.ok()) {
      return refused.error();
    }
    return kind;
  }
  if (content->empty() && format == FileFormat::kJson) {
    return ToolError{fmt::format("{}: the file is empty", path)};
  }
  const TableGuess guess = GuessTable(*content, format);
  if (guess_out != nullptr) *guess_out = guess;
  if (guess.kind) return *guess.kind;
  // A syntax error reads the same whichever table the file was meant to be.
  if (format == FileFormat::kJson &&
      std::holds_alternative<JsonSyntaxError>(ParseJsonDocument(*content))) {
    return ToolError{DescribeReadFailure(path, format, qawb::TableId::kBasic)};
  }
  return ToolError{fmt::format("{}: {}", path, guess.note)};
}

Result<> ReadTuningBinaryFile(const std::string& path,
                              qawb::MutableQAWBTuning& tuning) {
  const Result<TuningBinaryFileInfo> info = InspectTuningBinaryFile(path);
  if (!info.ok()) return info.error();
  if (!info->size_ok) {
    return ToolError{fmt::format(
        "{}: {} bytes, but a tuning binary file has exactly {}", path,
        info->size, qawb::MutableQAWBTuning::kTuningBinaryFileSize)};
  }
  if (!info->Plausible()) return ToolError{info->ImplausibleText(path)};
  if (!tuning.ReadFromFile(path)) {
    return ToolError{path + ": the container refused the file"};
  }
  return {};
}

}  // namespace q3a_tool
