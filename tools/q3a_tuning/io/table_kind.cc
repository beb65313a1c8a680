#include "tools/q3a_tuning/io/table_kind.h"

#include <fmt/format.h>

namespace q3a_tool {

std::string_view TableName(TableKind kind) {
  return qawb::VisitTable(
      kind, []<typename Record>() { return TableTraits<Record>::kName; });
}

std::optional<TableKind> ParseTableKind(std::string_view name) {
  return qawb::FindTable(name);
}

std::string TableNames() {
  std::string names;
  for (std::size_t i = 0; i < kAllTableKinds.size(); ++i) {
    if (i > 0) names += i + 1 == kAllTableKinds.size() ? " or " : ", ";
    names += TableName(kAllTableKinds[i]);
  }
  return names;
}

std::optional<qawb::QAWBParameterVersion> TableVersion(
    const qawb::QAWBTuning& tuning, TableKind kind) {
  return qawb::VisitTable(
      kind,
      [&]<typename Record>() -> std::optional<qawb::QAWBParameterVersion> {
        const Record* table = qawb::GetTable<Record>(tuning);
        if (table == nullptr) return std::nullopt;
        return table->version;
      });
}

std::string VersionString(const qawb::QAWBParameterVersion& version) {
  return fmt::format("{}.{}", version.major, version.minor);
}

}  // namespace q3a_tool
