// The tuning registry as the tool shows it: node names, keys as text, every
// registration in a stable order with a readable label for its object, and
// the AWB containers with labels for the tables they share.
#ifndef TOOLS_Q3A_TUNING_IO_REGISTRY_VIEW_H_
#define TOOLS_Q3A_TUNING_IO_REGISTRY_VIEW_H_

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "coordinator/tuning_key.h"
#include "coordinator/tuning_map.h"
#include "libs_v4/qAWB/src/base/qawb_tuning.h"
#include "tools/q3a_tuning/io/table_id.h"

namespace q3a_tool {

// "ae", "af", "awb", "cdaf", "actuator", "static_camera_characteristics",
// "camera_session_parameters"; the number for any other node type.
std::string NodeName(q3a_api::NodeType node);

// Five comma-separated integers in key order: use_case, sensor_mode,
// camera_position, lens_type, reserved ("0,-1,1,0,-1").
std::optional<q3a_api::TuningKey> ParseTuningKey(std::string_view text);
std::string FormatTuningKey(const q3a_api::TuningKey& key);

struct Registration {
  q3a_api::NodeType node;
  q3a_api::TuningKey key;
  const q3abase::TuningCommon* object;
  // The tuning header's base name for objects that carry one, else the node
  // name and the object's number within its node ("awb#3"), numbered in
  // this list's order.
  std::string label;
};

// Every registration, by node type and then by camera position, lens type,
// use case, sensor mode and reserved, so that one camera's keys sit
// together and the order does not depend on hashing.
std::vector<Registration> ListRegistrations(const TuningMap& registry);

// The AWB container registered under `key`, or null.
const qawb::QAWBTuning* FindAwbContainer(const TuningMap& registry,
                                         const q3a_api::TuningKey& key);

// The distinct tables of the AWB containers, labelled by kind and order of
// first use in ListRegistrations: B1, B2, ... for basic tables, A, C and F
// for the others.
class AwbTableLabels {
 public:
  explicit AwbTableLabels(const std::vector<Registration>& registrations);

  // The table's label, or "-" for a null table.
  std::string Label(qawb::TableId kind, const void* table) const;
  // The containers (their labels) that hold the table.
  const std::vector<std::string>& Users(qawb::TableId kind,
                                        const void* table) const;
  // Labels of the other tables of the same kind with the very same bytes.
  std::vector<std::string> SameBytesAs(qawb::TableId kind,
                                       const void* table) const;

 private:
  struct Entry {
    std::string label;
    std::vector<std::string> users;
    std::vector<std::string> same_bytes_as;
  };
  std::array<std::map<const void*, Entry>, 4> tables_;
};

// The table pointer of `kind` in `tuning`, untyped, for labelling.
const void* TablePointer(const qawb::QAWBTuning& tuning, qawb::TableId kind);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_REGISTRY_VIEW_H_
