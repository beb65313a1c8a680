#include "tools/q3a_tuning/table_file.h"

#include <fmt/format.h>
#include <google/protobuf/util/json_util.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

#include "protomsg/tuning_files.h"

namespace q3a_tool {
namespace {

using google::protobuf::Message;
using google::protobuf::Reflection;

bool EndsWith(std::string_view text, std::string_view suffix) {
  return text.size() >= suffix.size() &&
         text.substr(text.size() - suffix.size()) == suffix;
}

// True if neither `message` nor any sub-message holds fields the schema does
// not know.
bool HasNoUnknownFields(const Message& message) {
  const Reflection* reflection = message.GetReflection();
  if (!reflection->GetUnknownFields(message).empty()) return false;
  std::vector<const google::protobuf::FieldDescriptor*> fields;
  reflection->ListFields(message, &fields);
  for (const auto* field : fields) {
    if (field->cpp_type() !=
        google::protobuf::FieldDescriptor::CPPTYPE_MESSAGE) {
      continue;
    }
    if (field->is_repeated()) {
      for (int i = 0; i < reflection->FieldSize(message, field); ++i) {
        if (!HasNoUnknownFields(
                reflection->GetRepeatedMessage(message, field, i))) {
          return false;
        }
      }
    } else if (!HasNoUnknownFields(reflection->GetMessage(message, field))) {
      return false;
    }
  }
  return true;
}

}  // namespace

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

bool ReadTableFile(const std::string& path, FileFormat format,
                   qawb::QAWBBasicTuningTable& table) {
  return format == FileFormat::kJson
             ? protomsg::ReadQAWBBasicTuningTableWithJson(path, table)
             : protomsg::ReadQAWBBasicTuningTableFromProtobuf(path, table);
}

bool ReadTableFile(const std::string& path, FileFormat format,
                   qawb::QAWBAdvanceTuningTable& table) {
  return format == FileFormat::kJson
             ? protomsg::ReadQAWBAdvanceTuningTableWithJson(path, table)
             : protomsg::ReadQAWBAdvanceTuningTableFromProtobuf(path, table);
}

bool ReadTableFile(const std::string& path, FileFormat format,
                   qawb::QAWBColorControlTuningTable& table) {
  return format == FileFormat::kJson
             ? protomsg::ReadQAWBColorControlTuningTableWithJson(path, table)
             : protomsg::ReadQAWBColorControlTuningTableFromProtobuf(path,
                                                                     table);
}

bool ReadTableFile(const std::string& path, FileFormat format,
                   qawb::QAWBFeatureTuningTable& table) {
  return format == FileFormat::kJson
             ? protomsg::ReadQAWBFeatureTuningTableWithJson(path, table)
             : protomsg::ReadQAWBFeatureTuningTableFromProtobuf(path, table);
}

std::optional<std::string> ReadWholeFile(const std::string& path,
                                         std::string& error) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) {
    error = std::strerror(errno);
    return std::nullopt;
  }
  std::string content;
  char buffer[65536];
  std::size_t n = 0;
  while ((n = std::fread(buffer, 1, sizeof(buffer), file)) > 0) {
    content.append(buffer, n);
  }
  const bool failed = std::ferror(file) != 0;
  const int read_errno = errno;
  std::fclose(file);
  if (failed) {
    error = std::strerror(read_errno);
    return std::nullopt;
  }
  return content;
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
  google::protobuf::util::JsonParseOptions options;
  options.ignore_unknown_fields = false;
  options.case_insensitive_enum_parsing = false;
  const auto status = google::protobuf::util::JsonStringToMessage(
      std::string(content), &message, options);
  if (status.ok()) return std::nullopt;
  return ParseFailure{std::string(status.message())};
}

std::vector<TableKind> CandidateTables(std::string_view content,
                                       FileFormat format) {
  std::vector<TableKind> candidates;
  for (TableKind kind : kAllTableKinds) {
    const bool fits = VisitTableKind(kind, [&](auto type) {
      typename TableTraits<typename decltype(type)::type>::Message message;
      return !ParseTableMessage(content, format, message).has_value() &&
             HasNoUnknownFields(message);
    });
    if (fits) candidates.push_back(kind);
  }
  return candidates;
}

bool WriteTableFiles(const qawb::QAWBTuning& tuning,
                     const std::string& directory, FileFormat format) {
  std::error_code error;
  std::filesystem::create_directories(directory, error);
  if (error) {
    fmt::print(stderr, "{}: cannot create the directory: {}\n", directory,
               error.message());
    return false;
  }
  bool all_written = true;
  for (TableKind kind : kAllTableKinds) {
    const std::string path =
        (std::filesystem::path(directory) /
         (std::string(TableName(kind)) + std::string(FileExtension(format))))
            .string();
    const bool written = VisitTableKind(kind, [&](auto type) {
      using Record = typename decltype(type)::type;
      const Record* table = TableTraits<Record>::Get(tuning);
      return table != nullptr && WriteTableFile(path, format, *table);
    });
    if (written) {
      fmt::print("{}\n", path);
    } else {
      fmt::print(stderr, "{}: could not write the {} table\n", path,
                 TableName(kind));
      all_written = false;
    }
  }
  return all_written;
}

}  // namespace q3a_tool
