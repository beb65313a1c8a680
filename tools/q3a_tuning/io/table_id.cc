#include "tools/q3a_tuning/io/table_id.h"

#include <fmt/format.h>

namespace q3a_tool {

std::string_view TableName(qawb::TableId id) {
  return qawb::VisitTable(id, []<typename Record>() {
    return protomsg::TuningTableTraits<Record>::kName;
  });
}

std::string TableNames() {
  std::string names;
  for (std::size_t i = 0; i < kAllTableIds.size(); ++i) {
    if (i > 0) names += i + 1 == kAllTableIds.size() ? " or " : ", ";
    names += TableName(kAllTableIds[i]);
  }
  return names;
}

std::optional<qawb::QAWBParameterVersion> TableVersion(
    const qawb::QAWBTuning& tuning, qawb::TableId id) {
  return qawb::VisitTable(
      id, [&]<typename Record>() -> std::optional<qawb::QAWBParameterVersion> {
        const Record* table = qawb::GetTable<Record>(tuning);
        if (table == nullptr) return std::nullopt;
        return table->version;
      });
}

std::string VersionString(const qawb::QAWBParameterVersion& version) {
  return fmt::format("{}.{}", version.major, version.minor);
}

}  // namespace q3a_tool
