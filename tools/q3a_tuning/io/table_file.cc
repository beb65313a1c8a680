#include "tools/q3a_tuning/io/table_file.h"

#include <fmt/format.h>
#include <google/protobuf/util/json_util.h>

#include <filesystem>

#include "protomsg/internal/json_options.h"
#include "protomsg/tuning_files.h"

namespace q3a_tool {
namespace {

using google::protobuf::Message;

bool EndsWith(std::string_view text, std::string_view suffix) {
  return text.size() >= suffix.size() &&
         text.substr(text.size() - suffix.size()) == suffix;
}

// The library's print options for tuning files; the compact form leaves
// default values out.
google::protobuf::util::JsonPrintOptions TuningFilePrintOptions(bool full) {
  auto options = protomsg::internal::TuningFilePrintOptions();
  options.always_print_primitive_fields = full;
  return options;
}

}  // namespace

std::string SerializeTableMessage(const google::protobuf::Message& message,
                                  FileFormat format, bool full) {
  std::string text;
  if (format == FileFormat::kBinary) {
    message.SerializeToString(&text);
  } else {
    (void)google::protobuf::util::MessageToJsonString(
        message, &text, TuningFilePrintOptions(full));
  }
  return text;
}

std::optional<FileFormat> FormatFromPath(std::string_view path) {
  if (EndsWith(path, ".json")) return FileFormat::kJson;
  if (EndsWith(path, ".pb") || EndsWith(path, ".bin")) {
    return FileFormat::kBinary;
  }
  return std::nullopt;
}

std::optional<FileFormat> ParseFileFormat(std::string_view name) {
  if (name == "json") return FileFormat::kJson;
  if (name == "binary" || name == "pb") return FileFormat::kBinary;
  return std::nullopt;
}

std::string_view FileExtension(FileFormat format) {
  return format == FileFormat::kJson ? ".json" : ".pb";
}

std::optional<ParseFailure> ParseTableMessage(std::string_view content,
                                              FileFormat format,
                                              Message& message) {
  if (format == FileFormat::kBinary) {
    if (message.ParseFromArray(content.data(),
                               static_cast<int>(content.size()))) {
      return std::nullopt;
    }
    return ParseFailure{"not a valid binary " +
                        std::string(message.GetDescriptor()->name()) +
                        " message"};
  }
  if (content.empty()) return ParseFailure{"the file is empty"};
  const auto status = google::protobuf::util::JsonStringToMessage(
      std::string(content), &message,
      protomsg::internal::TuningFileParseOptions());
  if (status.ok()) return std::nullopt;
  return ParseFailure{std::string(status.message())};
}

std::optional<ToolError> WriteTableFiles(const qawb::QAWBTuning& tuning,
                                         const std::string& directory,
                                         FileFormat format, bool compact,
                                         std::span<const std::string> inputs,
                                         std::vector<std::string>& written) {
  std::error_code error;
  std::filesystem::create_directories(directory, error);
  if (error || !std::filesystem::is_directory(directory, error)) {
    return ToolError{
        fmt::format("{}: cannot create the directory: {}", directory,
                    error ? error.message() : "a file of that name exists"),
        kExitFailure};
  }
  for (TableKind kind : kAllTableKinds) {
    const std::string path =
        (std::filesystem::path(directory) /
         (std::string(TableName(kind)) + std::string(FileExtension(format))))
            .string();
    std::optional<ToolError> failed =
        VisitTableKind(kind, [&](auto type) -> std::optional<ToolError> {
          using Record = typename decltype(type)::type;
          const Record* table = qawb::GetTable<Record>(tuning);
          if (table == nullptr) {
            return ToolError{fmt::format("{}: the container has no {} table",
                                         path, TableName(kind)),
                             kExitFailure};
          }
          return WriteTableFile(path, format, *table, inputs, compact);
        });
    if (failed) return failed;
    written.push_back(path);
  }
  return std::nullopt;
}

}  // namespace q3a_tool
