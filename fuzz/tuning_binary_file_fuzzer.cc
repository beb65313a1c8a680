// Fuzzes MutableQAWBTuning::ReadFromFile. A rejected file leaves all four
// tables as they were; an accepted one is taken byte for byte, so the
// tables then hold exactly the file and WriteToFile gives it back. The raw
// bytes can put any value in any field (a bool that is neither 0 nor 1, an
// out-of-range frame-summary kind), so accepted tables are also converted
// to their messages, as the tools do when they export a dump.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "fuzz/fuzz_support.h"
#include "libs_v4/qAWB/proto/qawb_tuning.pb.h"
#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "protomsg/record_conversions.h"
#include "tests/support/file_bytes.h"
#include "tests/support/tuning_bytes.h"

namespace {

using q3a_test::TableBytes;

void ConvertAll(const qawb::MutableQAWBTuning& tuning) {
  qawb::tuning::QAWBBasicTuningTable basic;
  protomsg::ConvertToMessage(*tuning.GetBasicTuningTable(), basic);
  qawb::tuning::QAWBAdvanceTuningTable advance;
  protomsg::ConvertToMessage(*tuning.GetAdvanceTuningTable(), advance);
  qawb::tuning::QAWBColorControlTuningTable color_control;
  protomsg::ConvertToMessage(*tuning.GetColorControlTuningTable(),
                             color_control);
  qawb::tuning::QAWBFeatureTuningTable feature;
  protomsg::ConvertToMessage(*tuning.GetFeatureTuningTable(), feature);
}

}  // namespace

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
  q3a_fuzz::Check(q3a_test::ReadFile(written) == file,
                  "written file differs from the one read");
  ConvertAll(*tuning);
  return 0;
}
