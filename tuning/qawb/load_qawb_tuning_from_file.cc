#include "tuning/qawb/load_qawb_tuning_from_file.h"

#include <android-base/logging.h>
#include <android-base/no_destructor.h>
#include <fmt/format.h>

#include <cstring>
#include <memory>
#include <new>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "libs_v4/qAWB/src/base/table_access.h"
#include "protomsg/tuning_table_traits.h"

namespace q3a_coordinator {
namespace {

constexpr char kLogTag[] = "Q3ACoordinator";

using Files = std::unordered_map<std::string_view, std::string>;

// Whatever a file leaves out reads as zero.
template <typename Table>
void PrepareScratch(Table& table) {
  std::memset(&table, 0, sizeof(table));
}

// Model entries missing from the file are marked unused by a bipolar factor
// of -1, which the AWB algorithm checks for.
void PrepareScratch(qawb::QAWBFeatureTuningTable& table) {
  std::memset(&table, 0, sizeof(table));
  for (qawb::QAWBAsdModelTuning& model :
       table.asd_aggregator_tuning_table.model_tuning) {
    model.bipolar_factor = -1.0f;
  }
}

// Loads one table into `tuning` by the rules of LoadQawbTuningFromFile.
template <typename Table>
void LoadTable(const Files& files, const qawb::QAWBTuning& fixed,
               qawb::MutableQAWBTuning& tuning) {
  using Description = protomsg::TuningTableTraits<Table>;
  const auto file = files.find(Description::kName);
  if (file == files.end()) {
    qawb::SetTable(tuning, qawb::GetTable<Table>(fixed));
    return;
  }
  const std::string& path = file->second;
  if (path.empty()) return;

  // Tables are up to 40 KB, too much for the stack of a camera thread.
  const std::unique_ptr<Table> scratch(new (std::nothrow) Table);
  if (scratch == nullptr) return;  // LCOV_EXCL_BR_LINE: memory exhausted
  PrepareScratch(*scratch);
  if (!Description::kReadJson(path, *scratch)) return;
  qawb::SetTable(tuning, scratch.get());

  if (android::base::ShouldLog(android::base::DEBUG, kLogTag)) {
    const qawb::QAWBParameterVersion& version =
        qawb::GetTable<Table>(tuning)->version;
    android::base::LogMessage(__FILE__, __LINE__, android::base::DEBUG, kLogTag,
                              -1)
            .stream()
        << fmt::format("{} with file \"{}\". (Version:{}.{})",
                       Description::kSetterName, path, unsigned{version.major},
                       unsigned{version.minor});
  }
}

}  // namespace

const qawb::QAWBTuning* LoadQawbTuningFromFile(const Files& files,
                                               const qawb::QAWBTuning* fixed) {
  // Built on the first call even without `fixed`, so it starts from the
  // default tables; every later call overwrites it in place. Never
  // destroyed: an AWB thread may still read it while the process exits.
  static android::base::NoDestructor<qawb::MutableQAWBTuning> container;
  qawb::MutableQAWBTuning& tuning = *container;
  if (fixed == nullptr) return nullptr;

  qawb::ForEachTableInLoadOrder(
      [&]<typename Table>() { LoadTable<Table>(files, *fixed, tuning); });
  return &tuning;
}

}  // namespace q3a_coordinator
