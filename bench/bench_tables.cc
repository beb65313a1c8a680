#include "bench/bench_tables.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "coordinator/tuning_map.h"
#include "tests/support/record_values.h"

namespace q3a_bench {

const char* ContentName(Content content) {
  return content == Content::kBuiltIn ? "built_in" : "full";
}

const qawb::QAWBTuning& BuiltInAwbTuning() {
  // Use case 8 (still), main camera: position 1, lens 0.
  const q3a_api::TuningKey key{8, -1, 1, 0, -1};
  const NodeTuningMap& awb = *q3a_coordinator::GetTuningMap().at(q3a_api::kAwb);
  return *static_cast<const qawb::QAWBTuning*>(awb.at(key));
}

template <typename Table>
const Table& TableContent(Content content) {
  static const Table* const built_in = [] {
    auto* table = new Table;
    *table = *(BuiltInAwbTuning().*TableTraits<Table>::kGet)();
    return table;
  }();
  static const Table* const full = q3a_test::MakeRecord<Table>(1).release();
  return content == Content::kBuiltIn ? *built_in : *full;
}

template const qawb::QAWBBasicTuningTable& TableContent(Content);
template const qawb::QAWBAdvanceTuningTable& TableContent(Content);
template const qawb::QAWBColorControlTuningTable& TableContent(Content);
template const qawb::QAWBFeatureTuningTable& TableContent(Content);

const std::string& ScratchDir() {
  static const std::string* const dir = [] {
    const std::filesystem::path root =
        std::filesystem::is_directory("/dev/shm")
            ? std::filesystem::path("/dev/shm")
            : std::filesystem::temp_directory_path();
    auto* path = new std::string(
        (root / ("q3a_bench_" + std::to_string(getpid()))).string());
    std::filesystem::create_directories(*path);
    std::atexit([] {
      std::error_code ignored;
      std::filesystem::remove_all(*dir, ignored);
    });
    return path;
  }();
  return *dir;
}

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

}  // namespace q3a_bench
