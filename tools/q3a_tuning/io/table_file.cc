#include "tools/q3a_tuning/io/table_file.h"

#include <fmt/format.h>
#include <google/protobuf/util/json_util.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <limits>

#include "protomsg/internal/json_options.h"
#include "protomsg/tuning_files.h"

namespace q3a_tool {
namespace {

using google::protobuf::FieldDescriptor;
using google::protobuf::Message;

bool EndsWith(std::string_view text, std::string_view suffix) {
  return text.size() >= suffix.size() &&
         text.substr(text.size() - suffix.size()) == suffix;
}

// The library's print options for tuning files; the compact form leaves
// default values out.
google::protobuf::util::JsonPrintOptions TableFilePrintOptions(bool full) {
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
        message, &text, TableFilePrintOptions(full));
  }
  return text;
}

std::optional<FileFormat> FormatFromPath(std::string_view path) {
  if (EndsWith(path, ".json")) return FileFormat::kJson;
  if (EndsWith(path, ".pb")) return FileFormat::kBinary;
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

TableFilesResult WriteTableFiles(const qawb::QAWBTuning& tuning,
                                 const std::string& directory,
                                 const TableFileOptions& options) {
  TableFilesResult result;
  std::error_code error;
  std::filesystem::create_directories(directory, error);
  if (error || !std::filesystem::is_directory(directory, error)) {
    result.errors.push_back(
        {fmt::format("{}: cannot create the directory: {}", directory,
                     error ? error.message() : "a file of that name exists"),
         kExitFailure});
    return result;
  }
  for (qawb::TableId kind : kAllTableIds) {
    const std::string path =
        (std::filesystem::path(directory) /
         (std::string(TableName(kind)) +
          std::string(FileExtension(options.format))))
            .string();
    qawb::VisitTable(kind, [&]<typename Record>() {
      const Record* table = qawb::GetTable<Record>(tuning);
      if (table == nullptr) {
        result.errors.push_back({fmt::format("{}: the container has no {} "
                                             "table",
                                             path, TableName(kind)),
                                 kExitFailure});
        return;
      }
      Result<std::vector<Diagnostic>> warnings =
          WriteTableFile(path, *table, options);
      if (!warnings.ok()) {
        result.errors.push_back(warnings.error());
        return;
      }
      result.written.push_back(path);
      for (Diagnostic& warning : *warnings) {
        result.warnings.push_back(std::move(warning));
      }
    });
  }
  return result;
}

namespace {

// Float fields only; the rest JSON holds exactly.
class JsonExactMaker {
 public:
  void Visit(Message& message, const std::string& path) {
    const auto& descriptor = *message.GetDescriptor();
    const auto& reflection = *message.GetReflection();
    for (int i = 0; i < descriptor.field_count(); ++i) {
      const FieldDescriptor& field = *descriptor.field(i);
      const std::string field_path =
          path.empty() ? std::string(field.name())
                       : path + "." + std::string(field.name());
      const int size = field.is_repeated()
                           ? reflection.FieldSize(message, &field)
                           : 1;
      for (int at = 0; at < size; ++at) {
        const std::string place =
            field.is_repeated() ? fmt::format("{}[{}]", field_path, at)
                                : field_path;
        if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
          Visit(field.is_repeated()
                    ? *reflection.MutableRepeatedMessage(&message, &field, at)
                    : *reflection.MutableMessage(&message, &field),
                place);
        } else if (field.cpp_type() == FieldDescriptor::CPPTYPE_FLOAT) {
          float value = field.is_repeated()
                            ? reflection.GetRepeatedFloat(message, &field, at)
                            : reflection.GetFloat(message, &field);
          if (!Fix(value, place)) continue;
          field.is_repeated()
              ? reflection.SetRepeatedFloat(&message, &field, at, value)
              : reflection.SetFloat(&message, &field, value);
        }
      }
    }
  }

  std::optional<std::string> Summary() const {
    std::vector<std::string> parts;
    for (const Change& change : changes_) {
      if (change.count == 0) continue;
      parts.push_back(fmt::format("{} {} written as {} (the first at {})",
                                  change.count, change.what, change.written,
                                  change.first));
    }
    if (parts.empty()) return std::nullopt;
    return fmt::format("{}, as JSON reads them back", fmt::join(parts, "; "));
  }

 private:
  struct Change {
    std::string_view what;
    std::string_view written;
    int count = 0;
    std::string first = "";
  };

  // Whether `value` changed.
  bool Fix(float& value, const std::string& place) {
    Change* change = nullptr;
    float fixed = value;
    if (value == 0 && std::signbit(value)) {
      change = &changes_[0];
      fixed = 0;
    } else if (std::isnan(value)) {
      fixed = std::numeric_limits<float>::quiet_NaN();
      if (std::memcmp(&fixed, &value, sizeof(float)) == 0) return false;
      change = &changes_[1];
    } else {
      return false;
    }
    if (change->count++ == 0) change->first = place;
    value = fixed;
    return true;
  }

  Change changes_[2] = {{"value(s) of -0", "0"},
                        {"NaN(s) with a sign or payload", "NaN"}};
};

}  // namespace

std::optional<std::string> MakeJsonExact(Message& message) {
  JsonExactMaker maker;
  maker.Visit(message, "");
  return maker.Summary();
}

}  // namespace q3a_tool
