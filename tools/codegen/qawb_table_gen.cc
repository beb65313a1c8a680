// Build-time generator of the built-in AWB tables.
//
//   q3a-qawb-table-gen MANIFEST SOURCE_DIR OUT_DIR
//
// MANIFEST lists one constant table a line: its table (basic, advance,
// color or feature), its qualified C++ name and its JSON tuning file
// relative to SOURCE_DIR; '#' starts a comment. Each file is read with the
// library's own JSON reader over a zeroed record, and the record is printed as
// a constexpr aggregate: OUT_DIR gets one source per table, named after the
// constant, and built_in_qawb_tables.h declaring them all. Files whose content
// would not change are left alone, so an edit recompiles only its table.
// Any error names the file and exits non-zero, which fails the build.
#include <google/protobuf/util/json_util.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "awb_records/tuning_tables.h"
#include "protomsg/internal/json_options.h"
#include "protomsg/tuning_table_traits.h"
#include "tools/codegen/record_initializer_printer.h"

namespace q3a_codegen {
namespace {

struct ManifestEntry {
  int line = 0;
  qawb::TableId table;
  std::string name;  // qualified, e.g. qawb::built_in::kMainStillBasic
  std::string source;
};

std::string TableNames() {
  std::string names;
  qawb::ForEachTable([&]<typename Record>() {
    names += (names.empty() ? "" : ", ") +
             std::string(qawb::TuningTable<Record>::kName);
  });
  return names;
}

std::string_view TableNameOf(qawb::TableId table) {
  return qawb::VisitTable(table, []<typename Record>() {
    return qawb::TuningTable<Record>::kName;
  });
}

std::string_view RecordName(qawb::TableId table) {
  return qawb::VisitTable(table, []<typename Record>() {
    return qawb::TuningTable<Record>::kRecordName;
  });
}

std::string ReadText(const std::string& path, bool& ok) {
  std::ifstream file(path);
  std::ostringstream text;
  text << file.rdbuf();
  ok = static_cast<bool>(file);
  return text.str();
}

bool ParseManifest(const std::string& path,
                   std::vector<ManifestEntry>& entries) {
  std::ifstream file(path);
  if (!file) {
    std::fprintf(stderr, "%s: cannot open the manifest\n", path.c_str());
    return false;
  }
  std::string text;
  for (int line = 1; std::getline(file, text); ++line) {
    text = text.substr(0, text.find('#'));
    std::istringstream fields(text);
    ManifestEntry entry;
    entry.line = line;
    std::string table;
    if (!(fields >> table)) continue;
    std::string extra;
    const std::optional<qawb::TableId> id = qawb::FindTable(table);
    if (!(fields >> entry.name >> entry.source) || fields >> extra || !id) {
      std::fprintf(stderr,
                   "%s:%d: expected 'TABLE NAME SOURCE' with TABLE one of "
                   "%s\n",
                   path.c_str(), line, TableNames().c_str());
      return false;
    }
    entry.table = *id;
    entries.push_back(entry);
  }
  return true;
}

// The reader reports only success, so on failure the file is parsed again
// with the same options to tell why.
template <typename Record>
std::string WhyNotReadable(const std::string& path) {
  bool ok = false;
  const std::string text = ReadText(path, ok);
  if (!ok) return "cannot be read";
  if (text.empty()) return "is empty";
  typename protomsg::TuningTableTraits<Record>::Message message;
  const auto status = google::protobuf::util::JsonStringToMessage(
      text, &message, protomsg::internal::TuningFileParseOptions());
  return status.ok() ? "was rejected by the reader"
                     : "is not a valid " +
                           std::string(qawb::TuningTable<Record>::kName) +
                           " table: " + std::string(status.message());
}

// Reads one source into an initialiser; false with a message on error.
bool Generate(const ManifestEntry& entry, const std::string& path,
              std::string& initializer) {
  return qawb::VisitTable(entry.table, [&]<typename Record>() {
    auto table = std::make_unique<Record>();  // value-initialised: all zero
    if (protomsg::TuningTableTraits<Record>::kReadJson(path, *table) &&
        AppendInitializer(initializer, *table)) {
      return true;
    }
    std::fprintf(stderr, "%s: error: %s\n", path.c_str(),
                 initializer.empty() ? WhyNotReadable<Record>(path).c_str()
                                     : "holds a float that is NaN or infinite");
    return false;
  });
}

// "a::b::kName" -> namespace "a::b", identifier "kName".
void SplitName(const std::string& name, std::string& space, std::string& id) {
  const std::size_t colon = name.rfind("::");
  space = colon == std::string::npos ? "" : name.substr(0, colon);
  id = colon == std::string::npos ? name : name.substr(colon + 2);
}

bool WriteIfChanged(const std::string& path, const std::string& content) {
  bool exists = false;
  if (ReadText(path, exists) == content && exists) return true;
  std::ofstream file(path, std::ios::out | std::ios::trunc);
  file << content;
  file.close();
  if (!file) {
    std::fprintf(stderr, "%s: error: cannot write\n", path.c_str());
    return false;
  }
  return true;
}

std::string Header(const std::vector<ManifestEntry>& entries) {
  std::string out =
      "// Generated by q3a-qawb-table-gen from the AWB tuning manifest; do not "
      "edit.\n"
      "// The built-in AWB tables, constant data compiled from JSON tuning "
      "files.\n"
      "#ifndef TUNING_QAWB_BUILT_IN_QAWB_TABLES_H_\n"
      "#define TUNING_QAWB_BUILT_IN_QAWB_TABLES_H_\n\n";
  out +=
      "#include <string_view>\n\n"
      "#include \"awb_records/tuning_tables.h\"\n\n";
  for (const ManifestEntry& entry : entries) {
    std::string space, id;
    SplitName(entry.name, space, id);
    out += "namespace " + space +
           " {\nextern const ::qawb::" + std::string(RecordName(entry.table)) +
           " " + id + ";  // " + entry.source + "\n}\n";
  }
  // The manifest itself, as data, for code that checks what was compiled.
  out +=
      "\nnamespace qawb::built_in_manifest {\n\n"
      "struct Entry {\n"
      "  std::string_view table;\n"
      "  std::string_view constant;  // qualified\n"
      "  std::string_view source;    // relative to the manifest\n"
      "};\n\n"
      "inline constexpr Entry kEntries[] = {\n";
  for (const ManifestEntry& entry : entries) {
    out += "    {\"" + std::string(TableNameOf(entry.table)) + "\", \"" +
           entry.name + "\", \"" + entry.source + "\"},\n";
  }
  out += "};\n\n}  // namespace qawb::built_in_manifest\n";
  out += "\n#endif  // TUNING_QAWB_BUILT_IN_QAWB_TABLES_H_\n";
  return out;
}

std::string Source(const ManifestEntry& entry, const std::string& initializer) {
  std::string space, id;
  SplitName(entry.name, space, id);
  return "// Generated by q3a-qawb-table-gen from " + entry.source +
         "; do not edit.\n"
         "#include \"tuning/qawb/built_in_qawb_tables.h\"\n\n"
         "namespace " +
         space +
         " {\n\nconstexpr ::qawb::" + std::string(RecordName(entry.table)) +
         " " + id + " = " + initializer + ";\n\n}  // namespace " + space +
         "\n";
}

int Main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr,
                 "usage: q3a-qawb-table-gen MANIFEST SOURCE_DIR OUT_DIR\n");
    return 2;
  }
  const std::string source_dir = argv[2];
  const std::string out_dir = argv[3];
  std::vector<ManifestEntry> entries;
  if (!ParseManifest(argv[1], entries)) return 1;

  bool ok =
      WriteIfChanged(out_dir + "/built_in_qawb_tables.h", Header(entries));
  for (const ManifestEntry& entry : entries) {
    std::string initializer;
    if (!Generate(entry, source_dir + "/" + entry.source, initializer)) {
      ok = false;
      continue;
    }
    std::string space, id;
    SplitName(entry.name, space, id);
    ok = WriteIfChanged(out_dir + "/" + id + ".cc",
                        Source(entry, initializer)) &&
         ok;
  }
  return ok ? 0 : 1;
}

}  // namespace
}  // namespace q3a_codegen

int main(int argc, char** argv) { return q3a_codegen::Main(argc, argv); }
