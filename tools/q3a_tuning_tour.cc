// A short look at the library: the registry's node types and one record
// converted to its interchange message.
#include <google/protobuf/util/json_util.h>

#include <cstdio>
#include <string>

#include "coordinator/tuning_map.h"
#include "protomsg/record_conversions.h"

int main() {
  const TuningMap& registry = q3a_coordinator::GetTuningMap();
  std::printf("registry: %zu node types\n", registry.size());
  for (const auto& [node_type, table] : registry) {
    std::printf("  node %d: %zu tunings\n", static_cast<int>(node_type),
                table->size());
  }

  const qawb::QAWBGains gains = {1.93594f, 1.0f, 2.0033f};
  qawb::tuning::QAWBGains message;
  protomsg::ConvertToMessage(gains, message);
  std::string json;
  google::protobuf::util::JsonPrintOptions options;
  options.always_print_primitive_fields = true;
  options.preserve_proto_field_names = true;
  (void)google::protobuf::util::MessageToJsonString(message, &json, options);
  std::printf("QAWBGains as a message: %s\n", json.c_str());
  return 0;
}
