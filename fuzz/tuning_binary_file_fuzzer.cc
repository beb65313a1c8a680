// Fuzzes MutableQAWBTuning::ReadFromFile. A rejected file leaves all four
// tables as they were; an accepted one is taken byte for byte, so the
// tables then hold exactly the file and WriteToFile gives it back.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "fuzz/fuzz_support.h"
#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"

namespace {

// The four tables' bytes in file order.
std::string TableBytes(const qawb::MutableQAWBTuning& tuning) {
  std::string bytes;
  auto append = [&bytes](const auto* table) {
    bytes.append(reinterpret_cast<const char*>(table), sizeof(*table));
  };
  append(tuning.GetBasicTuningTable());
  append(tuning.GetAdvanceTuningTable());
  append(tuning.GetColorControlTuningTable());
  append(tuning.GetFeatureTuningTable());
  return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  q3a_fuzz::SilenceLogs();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static auto* tuning = new qawb::MutableQAWBTuning();
  const std::string input = q3a_fuzz::ScratchPath("input.bin");
  q3a_fuzz::WriteBytes(input, data, size);

  const std::string before = TableBytes(*tuning);
  if (!tuning->ReadFromFile(input)) {
    q3a_fuzz::Check(TableBytes(*tuning) == before,
                    "rejected file changed the tables");
    return 0;
  }
  const std::string file(reinterpret_cast<const char*>(data), size);
  q3a_fuzz::Check(TableBytes(*tuning) == file,
                  "accepted file not taken byte for byte");
  const std::string written = q3a_fuzz::ScratchPath("written.bin");
  tuning->WriteToFile(written);
  q3a_fuzz::Check(q3a_fuzz::ReadBytes(written) == file,
                  "written file differs from the one read");
  return 0;
}
