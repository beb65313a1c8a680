// Fuzzes the override loader with a mix of absent keys, empty paths, missing
// files, valid files and the fuzzed file. Input: byte 0 holds two bits per
// table in load order (advance, basic, color, feature): 0 key absent, 1 empty
// path or missing file, 2 a valid file, 3 the fuzzed file; byte 1's low four
// bits choose a missing file over an empty path per table and bit 4 passes a
// null fallback container. The rest is the fuzzed file, offered to every
// table in mode 3.
//
// A model of the four tables predicts each call's outcome: a table whose file
// fails to read keeps every byte of what it held before the call.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "coordinator/tuning_map.h"
#include "fuzz/fuzz_support.h"
#include "libs_v4/qAWB/src/base/fixed_qawb_tuning.h"
#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "libs_v4/qAWB/src/base/table_access.h"
#include "protomsg/tuning_files.h"
#include "protomsg/tuning_table_traits.h"
#include "tuning/qawb/load_qawb_tuning_from_file.h"

namespace q3a_fuzz {
namespace {

using Files = std::unordered_map<std::string_view, std::string>;

enum class Mode { kAbsent, kNoFile, kValid, kFuzzed };

// Where the loader's scratch record starts: zero, except the feature table's
// model entries, marked unused.
template <typename Table>
void PrepareScratch(Table& table) {
  std::memset(&table, 0, sizeof(table));
}

void PrepareScratch(qawb::QAWBFeatureTuningTable& table) {
  std::memset(&table, 0, sizeof(table));
  for (auto& model : table.asd_aggregator_tuning_table.model_tuning) {
    model.bipolar_factor = -1.0f;
  }
}

// Everything one table needs: its key, its reader, a valid file and the
// table that file loads as, and the model's expectation for the table.
template <typename Table>
struct TableCase {
  static constexpr std::string_view key = qawb::TuningTable<Table>::kName;
  static constexpr auto read = protomsg::TuningTableTraits<Table>::kReadJson;
  // The two mode bits of the table in the input's first byte.
  static constexpr int kModeBit = 2 * qawb::TuningTable<Table>::kLoadPosition;

  std::string valid_path;
  std::unique_ptr<Table> valid_loaded;
  std::unique_ptr<Table> expected;

  void Init(const Table& valid_source, const Table& initial) {
    valid_path = ScratchPath(std::string(key) + ".json");
    protomsg::SaveTuningTableWithJson(valid_path, valid_source);
    valid_loaded = std::make_unique<Table>();
    PrepareScratch(*valid_loaded);
    Check(read(valid_path, *valid_loaded), "valid file does not read");
    expected = std::make_unique<Table>(initial);
  }

  // Adds this table's entry to `files` and updates the expectation for a
  // call with `fixed` as the fallback.
  void Arrange(Mode mode, bool missing_file, const std::string& fuzzed_path,
               const qawb::QAWBTuning& fixed, Files& files) {
    switch (mode) {
      case Mode::kAbsent:
        *expected = *qawb::GetTable<Table>(fixed);
        return;
      case Mode::kNoFile:
        files[key] = missing_file ? ScratchPath("missing.json") : "";
        return;
      case Mode::kValid:
        files[key] = valid_path;
        *expected = *valid_loaded;
        return;
      case Mode::kFuzzed: {
        files[key] = fuzzed_path;
        auto scratch = std::make_unique<Table>();
        PrepareScratch(*scratch);
        if (read(fuzzed_path, *scratch)) *expected = *scratch;
        return;
      }
    }
  }

  void CheckLoaded(const qawb::QAWBTuning& loaded) const {
    Check(std::memcmp(qawb::GetTable<Table>(loaded), expected.get(),
                      sizeof(Table)) == 0,
          key.data());
  }
};

template <typename List>
struct TableCases;
template <typename... Tables>
struct TableCases<qawb::TypeList<Tables...>> {
  using type = std::tuple<TableCase<Tables>...>;
};

struct Harness {
  // The loader's container starts with the default tables.
  qawb::MutableQAWBTuning defaults;
  // The fallback: a built-in AWB tuning from the registry.
  const qawb::QAWBTuning* fixed = nullptr;
  TableCases<qawb::TuningTables>::type cases;

  template <typename Fn>
  void ForEachCase(Fn&& fn) {
    std::apply([&](auto&... table) { (fn(table), ...); }, cases);
  }

  Harness() {
    const NodeTuningMap& awb =
        *q3a_coordinator::GetTuningMap().at(q3a_api::NodeType::kAwb);
    fixed = static_cast<const qawb::FixedQAWBTuning*>(awb.begin()->second);
    // Valid files hold the default tables under another version, so a load
    // from one is told apart from the defaults and from `fixed`.
    ForEachCase([&]<typename Table>(TableCase<Table>& table) {
      Table valid = *qawb::GetTable<Table>(defaults);
      valid.version = {7, 7};
      table.Init(valid, *qawb::GetTable<Table>(defaults));
    });
  }

  void Run(const uint8_t* data, std::size_t size) {
    if (size < 2) return;
    const uint8_t modes = data[0];
    const uint8_t flags = data[1];
    const std::string fuzzed_path = ScratchPath("fuzzed.json");
    WriteBytes(fuzzed_path, data + 2, size - 2);

    const bool null_fixed = (flags & 0x10) != 0;

    Files files;
    // Near misses of the keys (another letter case, a letter more) are
    // ignored; the strings must outlive the calls.
    std::vector<std::pair<std::string, std::string>> near_misses;
    if (null_fixed) {
      // Nothing is read or changed, so the expectations stay.
      ForEachCase([&](auto& table) { files[table.key] = table.valid_path; });
      Check(q3a_coordinator::LoadQawbTuningFromFile(files, nullptr) == nullptr,
            "null fallback gave a tuning");
    } else {
      ForEachCase([&]<typename Table>(TableCase<Table>& table) {
        const int bit = TableCase<Table>::kModeBit;
        table.Arrange(static_cast<Mode>((modes >> bit) & 3),
                      ((flags >> (bit / 2)) & 1) != 0, fuzzed_path, *fixed,
                      files);
        std::string upper(table.key);
        upper[0] = static_cast<char>(upper[0] - 'a' + 'A');
        near_misses.push_back({upper, table.valid_path});
        near_misses.push_back({std::string(table.key) + "s", table.valid_path});
      });
      for (const auto& [key, path] : near_misses) files[key] = path;
      Check(q3a_coordinator::LoadQawbTuningFromFile(files, fixed) != nullptr,
            "no tuning returned");
    }
    // Read through a call that names no file and has every table present:
    // any mode, so the container as it stands is what comes back.
    Files keep;
    ForEachCase([&](auto& table) { keep[table.key] = ""; });
    const qawb::QAWBTuning* loaded =
        q3a_coordinator::LoadQawbTuningFromFile(keep, fixed);
    Check(loaded != nullptr, "no tuning returned");
    ForEachCase([&](auto& table) { table.CheckLoaded(*loaded); });
  }
};

}  // namespace
}  // namespace q3a_fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static auto* harness = new q3a_fuzz::Harness();
  harness->Run(data, size);
  return 0;
}
