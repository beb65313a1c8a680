#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"

#include <android/log.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

#include "libs_v4/qAWB/src/base/default_qawb_tuning_tables.h"

namespace qawb {
namespace {

// The tables sit right after the vtable pointer with no gap, as the tuning
// binary file lays them out.
static_assert(sizeof(MutableQAWBTuning) ==
              sizeof(void*) + MutableQAWBTuning::kTuningBinaryFileSize);
static_assert(MutableQAWBTuning::kTuningBinaryFileSize == 102944);

constexpr const char* BaseName(const char* path) {
  const char* base = path;
  for (const char* p = path; *p != '\0'; ++p) {
    if (*p == '/') base = p + 1;
  }
  return base;
}

constexpr const char* kSourceFileName = BaseName(__FILE__);

// The setters' rule: a null table is refused, anything else copied whole.
template <typename Table>
bool CopyUnlessNull(const Table* table, Table& owned) {
  if (table == nullptr) return false;
  std::memcpy(&owned, table, sizeof(owned));
  return true;
}

}  // namespace

// Error lines carry no tag of their own, so liblog uses its default tag; the
// head names the source location the way the AWB library's other logs do.
#define QAWB_TUNING_LOG_ERROR(format, ...)                                     \
  do {                                                                         \
    if (__android_log_is_loggable_len(ANDROID_LOG_ERROR, nullptr, 0,           \
                                      ANDROID_LOG_DEBUG)) {                    \
      __android_log_print(ANDROID_LOG_ERROR, nullptr,                          \
                          "%s: %s:%d] %s: " format, "Tuning", kSourceFileName, \
                          __LINE__, __func__, __VA_ARGS__);                    \
    }                                                                          \
  } while (0)

MutableQAWBTuning::MutableQAWBTuning()
    : basic_(internal::kDefaultBasicTuningTable),
      advance_(internal::kDefaultAdvanceTuningTable),
      color_control_(internal::kDefaultColorControlTuningTable),
      feature_(internal::kDefaultFeatureTuningTable) {}

MutableQAWBTuning::~MutableQAWBTuning() = default;

const QAWBBasicTuningTable* MutableQAWBTuning::GetBasicTuningTable() const {
  return &basic_;
}

const QAWBAdvanceTuningTable* MutableQAWBTuning::GetAdvanceTuningTable() const {
  return &advance_;
}

const QAWBColorControlTuningTable*
MutableQAWBTuning::GetColorControlTuningTable() const {
  return &color_control_;
}

const QAWBFeatureTuningTable* MutableQAWBTuning::GetFeatureTuningTable() const {
  return &feature_;
}

bool MutableQAWBTuning::SetBasicTuningTable(const QAWBBasicTuningTable* table) {
  return CopyUnlessNull(table, basic_);
}

bool MutableQAWBTuning::SetAdvanceTuningTable(
    const QAWBAdvanceTuningTable* table) {
  return CopyUnlessNull(table, advance_);
}

bool MutableQAWBTuning::SetColorControlTuningTable(
    const QAWBColorControlTuningTable* table) {
  return CopyUnlessNull(table, color_control_);
}

bool MutableQAWBTuning::SetFeatureTuningTable(
    const QAWBFeatureTuningTable* table) {
  return CopyUnlessNull(table, feature_);
}

bool MutableQAWBTuning::ReadFromTable(
    const QAWBBasicTuningTable* basic, const QAWBAdvanceTuningTable* advance,
    const QAWBColorControlTuningTable* color_control,
    const QAWBFeatureTuningTable* feature) {
  std::memcpy(&basic_, basic, sizeof(basic_));
  std::memcpy(&advance_, advance, sizeof(advance_));
  std::memcpy(&color_control_, color_control, sizeof(color_control_));
  std::memcpy(&feature_, feature, sizeof(feature_));
  return true;
}

void MutableQAWBTuning::WriteToFile(const std::string& path) const {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) {
    QAWB_TUNING_LOG_ERROR("Could not open debug dump file: %s", path.c_str());
    return;
  }
  // Each table goes out in one write, straight from the table.
  std::setvbuf(file, nullptr, _IONBF, 0);
  std::fwrite(&basic_, sizeof(basic_), 1, file);
  std::fwrite(&advance_, sizeof(advance_), 1, file);
  std::fwrite(&color_control_, sizeof(color_control_), 1, file);
  std::fwrite(&feature_, sizeof(feature_), 1, file);
  std::fclose(file);
}

bool MutableQAWBTuning::ReadFromFile(const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) {
    QAWB_TUNING_LOG_ERROR("Could not open the tuning binary file: %s",
                          path.c_str());
    return false;
  }
  // Each table comes in with one read, straight into the table.
  std::setvbuf(file, nullptr, _IONBF, 0);
  // ftell gives -1 when the size cannot be taken, which the size check
  // rejects like any other wrong size.
  std::fseek(file, 0, SEEK_END);
  const long file_size = std::ftell(file);
  std::fseek(file, 0, SEEK_SET);
  if (file_size != static_cast<long>(kTuningBinaryFileSize)) {
    QAWB_TUNING_LOG_ERROR(
        "The size of tuning binary file does not match ideal file "
        "size.ideal_file_size=%d file_size=%d",
        static_cast<int32_t>(kTuningBinaryFileSize),
        static_cast<int32_t>(file_size));
    std::fclose(file);
    return false;
  }
  std::fread(&basic_, sizeof(basic_), 1, file);
  std::fread(&advance_, sizeof(advance_), 1, file);
  std::fread(&color_control_, sizeof(color_control_), 1, file);
  std::fread(&feature_, sizeof(feature_), 1, file);
  std::fclose(file);
  return true;
}

}  // namespace qawb
