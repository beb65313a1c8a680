#include "tools/q3a_tuning/io/registry_view.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <tuple>

#include "coordinator/actuator_tuning.h"
#include "coordinator/qaf_tuning.h"

namespace q3a_tool {
namespace {

using q3a_api::NodeType;

constexpr std::pair<NodeType, std::string_view> kNodeNames[] = {
    {q3a_api::kAe, "ae"},
    {q3a_api::kAf, "af"},
    {q3a_api::kAwb, "awb"},
    {q3a_api::kCdaf, "cdaf"},
    {q3a_api::kActuator, "actuator"},
    {q3a_api::kStaticCameraCharacteristics, "static_camera_characteristics"},
    {q3a_api::kCameraSessionParameters, "camera_session_parameters"},
};

std::string BaseName(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

// The objects whose first member is the source path of their tuning header.
std::optional<std::string> HeaderName(NodeType node,
                                      const q3abase::TuningCommon* object) {
  switch (node) {
    case q3a_api::kAf:
      return BaseName(
          static_cast<const qaf::QAFTuningStructure*>(object)->name);
    case q3a_api::kCdaf:
      return BaseName(
          static_cast<const qaf::CDAFTuningStructure*>(object)->name);
    case q3a_api::kActuator:
      return BaseName(
          static_cast<const actuator::ActuatorTuning*>(object)->name);
    default:
      return std::nullopt;
  }
}

std::size_t TableSize(qawb::TableId kind) {
  return qawb::VisitTable(kind,
                          []<typename Record>() { return sizeof(Record); });
}

}  // namespace

std::string NodeName(NodeType node) {
  for (const auto& [value, name] : kNodeNames) {
    if (value == node) return std::string(name);
  }
  return std::to_string(static_cast<int>(node));
}

std::optional<q3a_api::TuningKey> ParseTuningKey(std::string_view text) {
  std::int32_t fields[5];
  const char* at = text.data();
  const char* const end = text.data() + text.size();
  for (int i = 0; i < 5; ++i) {
    if (i > 0) {
      if (at == end || *at != ',') return std::nullopt;
      ++at;
    }
    const auto [stop, error] = std::from_chars(at, end, fields[i]);
    if (error != std::errc()) return std::nullopt;
    at = stop;
  }
  if (at != end) return std::nullopt;
  return q3a_api::TuningKey{fields[0], fields[1], fields[2], fields[3],
                            fields[4]};
}

std::string FormatTuningKey(const q3a_api::TuningKey& key) {
  return fmt::format("{},{},{},{},{}", key.use_case, key.sensor_mode,
                     key.camera_position, key.lens_type, key.reserved);
}

std::vector<Registration> ListRegistrations(const TuningMap& registry) {
  std::vector<Registration> list;
  for (const auto& [node, table] : registry) {
    for (const auto& [key, object] : *table) {
      list.push_back({node, key, object, ""});
    }
  }
  auto order = [](const Registration& r) {
    return std::make_tuple(static_cast<int>(r.node), r.key.camera_position,
                           r.key.lens_type, r.key.use_case, r.key.sensor_mode,
                           r.key.reserved);
  };
  std::sort(list.begin(), list.end(),
            [&](const Registration& a, const Registration& b) {
              return order(a) < order(b);
            });
  std::map<std::pair<NodeType, const void*>, std::string> labels;
  std::map<NodeType, int> numbers;
  for (Registration& r : list) {
    auto [it, added] = labels.try_emplace({r.node, r.object});
    if (added) {
      const std::optional<std::string> header = HeaderName(r.node, r.object);
      it->second =
          header ? *header
                 : fmt::format("{}#{}", NodeName(r.node), ++numbers[r.node]);
    }
    r.label = it->second;
  }
  return list;
}

const qawb::QAWBTuning* FindAwbContainer(const TuningMap& registry,
                                         const q3a_api::TuningKey& key) {
  const auto node = registry.find(q3a_api::kAwb);
  if (node == registry.end()) return nullptr;
  const auto entry = node->second->find(key);
  if (entry == node->second->end()) return nullptr;
  return static_cast<const qawb::QAWBTuning*>(entry->second);
}

const void* TablePointer(const qawb::QAWBTuning& tuning, qawb::TableId kind) {
  return qawb::VisitTable(kind, [&]<typename Record>() -> const void* {
    return qawb::GetTable<Record>(tuning);
  });
}

AwbTableLabels::AwbTableLabels(const std::vector<Registration>& registrations) {
  static constexpr char kLetters[] = {'B', 'A', 'C', 'F'};
  for (const Registration& r : registrations) {
    if (r.node != q3a_api::kAwb) continue;
    const auto& tuning = *static_cast<const qawb::QAWBTuning*>(r.object);
    for (qawb::TableId kind : kAllTableIds) {
      const void* table = TablePointer(tuning, kind);
      if (table == nullptr) continue;
      auto& tables = tables_[static_cast<int>(kind)];
      auto [it, added] = tables.try_emplace(table);
      if (added) {
        it->second.label = fmt::format("{}{}", kLetters[static_cast<int>(kind)],
                                       tables.size());
        // Named from both sides: each of the pair lists the other.
        for (auto& [other, entry] : tables) {
          if (other != table &&
              std::memcmp(other, table, TableSize(kind)) == 0) {
            it->second.same_bytes_as.push_back(entry.label);
            entry.same_bytes_as.push_back(it->second.label);
          }
        }
      }
      if (std::find(it->second.users.begin(), it->second.users.end(),
                    r.label) == it->second.users.end()) {
        it->second.users.push_back(r.label);
      }
    }
  }
}

std::string AwbTableLabels::Label(qawb::TableId kind, const void* table) const {
  const auto& tables = tables_[static_cast<int>(kind)];
  const auto it = tables.find(table);
  return it == tables.end() ? "-" : it->second.label;
}

const std::vector<std::string>& AwbTableLabels::Users(qawb::TableId kind,
                                                      const void* table) const {
  static const std::vector<std::string> kNone;
  const auto& tables = tables_[static_cast<int>(kind)];
  const auto it = tables.find(table);
  return it == tables.end() ? kNone : it->second.users;
}

std::vector<std::string> AwbTableLabels::SameBytesAs(qawb::TableId kind,
                                                     const void* table) const {
  const auto& tables = tables_[static_cast<int>(kind)];
  const auto it = tables.find(table);
  return it == tables.end() ? std::vector<std::string>{}
                            : it->second.same_bytes_as;
}

}  // namespace q3a_tool
