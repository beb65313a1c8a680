// A camera service's use of the installed library: find the AWB tuning of one
// camera in the registry, then run it with the advance table read from a
// JSON tuning file.
//   consumer ADVANCE_TABLE.json
#include <cstdio>
#include <string>
#include <string_view>
#include <unordered_map>

#include "coordinator/tuning_map.h"
#include "libs_v4/qAWB/src/base/qawb_tuning.h"
#include "tuning/qawb/load_qawb_tuning_from_file.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: consumer ADVANCE_TABLE.json\n");
    return 2;
  }
  const TuningMap& registry = q3a_coordinator::GetTuningMap();
  const auto awb = registry.find(q3a_api::kAwb);
  if (awb == registry.end()) return 1;
  const auto found = awb->second->find({0, -1, 1, 0, -1});
  if (found == awb->second->end()) return 1;
  const auto* fixed = static_cast<const qawb::QAWBTuning*>(found->second);

  const std::unordered_map<std::string_view, std::string> files = {
      {"advance", argv[1]}};
  const qawb::QAWBTuning* tuning =
      q3a_coordinator::LoadQawbTuningFromFile(files, fixed);
  const qawb::QAWBParameterVersion& version =
      tuning->GetAdvanceTuningTable()->version;
  if (tuning->GetAdvanceTuningTable() == fixed->GetAdvanceTuningTable() ||
      version.major == 0) {
    std::fprintf(stderr, "consumer: %s was not loaded\n", argv[1]);
    return 1;
  }
  std::printf("%zu node types; advance table %u.%u from %s\n",
              registry.size(), unsigned{version.major},
              unsigned{version.minor}, argv[1]);
  return 0;
}
