// Writes the fuzz targets' seed corpora and the JSON dictionary into a
// directory, from the library itself: the tuning file writers' output of the
// built-in AWB tables, tuning binary files of the built-in table sets, and
// every field and enumeration name of the interchange schema. Generated at
// build time so that seeds follow the tables and the schema.
//
// Usage: q3a-fuzz-seeds OUTPUT_DIR
#include <google/protobuf/util/json_util.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "coordinator/tuning_map.h"
#include "libs_v4/qAWB/proto/qawb_tuning.pb.h"
#include "libs_v4/qAWB/src/base/fixed_qawb_tuning.h"
#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "libs_v4/qAWB/src/base/table_access.h"
#include "protomsg/internal/json_options.h"
#include "protomsg/record_conversions.h"
#include "protomsg/tuning_files.h"
#include "protomsg/tuning_table_traits.h"
#include "tests/support/file_bytes.h"

namespace {

namespace fs = std::filesystem;

using q3a_test::ReadFile;

void WriteFile(const fs::path& path, const std::string& bytes) {
  q3a_test::WriteFile(path.string(), bytes);
}

class SeedWriter {
 public:
  explicit SeedWriter(fs::path out) : out_(std::move(out)) {
    for (const char* dir : {"json", "protobuf", "binary_file", "loader"}) {
      fs::create_directories(out_ / dir);
    }
  }

  // A table's JSON and binary tuning files as seeds of the per-table
  // targets, with the selector byte of its table in front.
  // Up to three tables of each type: whole tables are large, and more of
  // them add little coverage but slow every pass over the corpus.
  template <typename Table>
  void AddTable(const Table& table) {
    const char selector = Selector<Table>();
    if (++per_table_[static_cast<int>(selector)] > 3) return;
    const std::string n = std::to_string(count_++);
    const fs::path scratch = out_ / "scratch";
    protomsg::SaveTuningTableWithJson(scratch, table);
    const std::string json = ReadFile(scratch);
    WriteFile(out_ / "json" / n, selector + json);
    protomsg::SaveTuningTableWithProtobuf(scratch, table);
    WriteFile(out_ / "protobuf" / n, selector + ReadFile(scratch));
    fs::remove(scratch);
    // Loader: this table from the fuzzed file (mode 3), the others mixed.
    const int shift = 2 * qawb::TuningTable<Table>::kLoadPosition;
    const char modes = static_cast<char>((0x3 << shift) | (0x2 << (shift ^ 2)));
    WriteFile(out_ / "loader" / n, std::string{modes, '\x00'} + json);
  }

  // One seed per top-level field of the table, in the writer's JSON form:
  // small inputs that each reach one sub-table's conversion, which whole
  // tables reach only at a few executions a second.
  template <typename Table>
  void AddFieldSeeds(const Table& table) {
    using Message = typename protomsg::TuningTableTraits<Table>::Message;
    const char selector = Selector<Table>();
    Message whole;
    protomsg::ConvertToMessage(table, whole);
    const auto* descriptor = whole.GetDescriptor();
    const auto* reflection = whole.GetReflection();
    for (int keep = 0; keep < descriptor->field_count(); ++keep) {
      Message part = whole;
      for (int f = 0; f < descriptor->field_count(); ++f) {
        if (f != keep) reflection->ClearField(&part, descriptor->field(f));
      }
      std::string json;
      if (!google::protobuf::util::MessageToJsonString(
               part, &json, protomsg::internal::TuningFilePrintOptions())
               .ok()) {
        continue;
      }
      WriteFile(out_ / "json" /
                    ("field_" + std::to_string(static_cast<int>(selector)) +
                     "_" + descriptor->field(keep)->name()),
                selector + json);
    }
  }

  void AddSmallSeeds() {
    for (char selector = 0; selector < 4; ++selector) {
      const std::string n = std::to_string(selector);
      WriteFile(out_ / "json" / ("empty_" + n), selector + std::string("{}"));
      WriteFile(
          out_ / "json" / ("version_" + n),
          selector + std::string(R"({"version": {"major": 3, "minor": 1}})"));
      WriteFile(out_ / "protobuf" / ("version_" + n),
                selector + std::string("\x0a\x04\x08\x06\x10\x02", 6));
    }
    WriteFile(out_ / "loader" / "all_kinds", std::string("\x1b\x03{}", 4));
  }

  // A few tuning binary files; more would only repeat the same layout.
  void AddTuningBinaryFile(const qawb::QAWBTuning& tables) {
    if (binary_count_ == 4) return;
    qawb::MutableQAWBTuning tuning;
    qawb::CopyTables(tables, tuning);
    tuning.WriteToFile(out_ / "binary_file" /
                       (std::to_string(binary_count_++) + ".bin"));
  }

  // One quoted token a line: every field name (as the JSON files spell
  // them) and every enumeration name of the schema, plus JSON's special
  // number spellings.
  void WriteDictionary() {
    std::set<std::string> names;
    const auto* file = qawb::tuning::QAWBBasicTuningTable::descriptor()->file();
    for (int m = 0; m < file->message_type_count(); ++m) {
      const auto* message = file->message_type(m);
      for (int f = 0; f < message->field_count(); ++f) {
        names.insert(message->field(f)->name());
      }
    }
    for (int e = 0; e < file->enum_type_count(); ++e) {
      const auto* type = file->enum_type(e);
      for (int v = 0; v < type->value_count(); ++v) {
        names.insert(type->value(v)->name());
      }
    }
    std::ofstream dict(out_ / "tuning_json.dict", std::ios::trunc);
    for (const std::string& name : names) {
      dict << "\"\\\"" << name << "\\\"\"\n";
    }
    for (const char* token : {"NaN", "Infinity", "-Infinity", "1e39",
                              "-2147483649", "4294967296", "true", "null"}) {
      dict << "\"" << token << "\"\n";
    }
  }

 private:
  // The per-table targets' first byte for the table: its place in the
  // tuning binary file.
  template <typename Table>
  static char Selector() {
    return static_cast<char>(qawb::TuningTable<Table>::kId);
  }

  fs::path out_;
  int count_ = 0;
  int per_table_[qawb::TuningTables::kSize] = {};
  int binary_count_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s OUTPUT_DIR\n", argv[0]);
    return 2;
  }
  SeedWriter seeds(argv[1]);
  std::set<const void*> seen;
  qawb::MutableQAWBTuning defaults;
  std::vector<const qawb::QAWBTuning*> tunings = {&defaults};
  const auto& awb =
      *q3a_coordinator::GetTuningMap().at(q3a_api::NodeType::kAwb);
  for (const auto& [key, object] : awb) {
    tunings.push_back(static_cast<const qawb::FixedQAWBTuning*>(object));
  }
  for (const qawb::QAWBTuning* tuning : tunings) {
    if (seen.insert(tuning).second) seeds.AddTuningBinaryFile(*tuning);
    qawb::ForEachTable([&]<typename Table>() {
      const Table* table = qawb::GetTable<Table>(*tuning);
      if (seen.insert(table).second) seeds.AddTable(*table);
    });
  }
  qawb::ForEachTable([&]<typename Table>() {
    seeds.AddFieldSeeds(*qawb::GetTable<Table>(defaults));
  });
  seeds.AddSmallSeeds();
  seeds.WriteDictionary();
  return 0;
}
