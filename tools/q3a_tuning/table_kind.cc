#include "tools/q3a_tuning/table_kind.h"

#include <fmt/format.h>

namespace q3a_tool {

std::string_view TableName(TableKind kind) {
  return VisitTableKind(kind, [](auto type) {
    return TableTraits<typename decltype(type)::type>::kName;
  });
}

std::optional<TableKind> ParseTableKind(std::string_view name) {
  for (TableKind kind : kAllTableKinds) {
    if (TableName(kind) == name) return kind;
  }
  return std::nullopt;
}

std::optional<qawb::QAWBParameterVersion> TableVersion(
    const qawb::QAWBTuning& tuning, TableKind kind) {
  return VisitTableKind(
      kind, [&](auto type) -> std::optional<qawb::QAWBParameterVersion> {
        using Record = typename decltype(type)::type;
        const Record* table = TableTraits<Record>::Get(tuning);
        if (table == nullptr) return std::nullopt;
        return table->version;
      });
}

std::string VersionString(const qawb::QAWBParameterVersion& version) {
  return fmt::format("{}.{}", version.major, version.minor);
}

}  // namespace q3a_tool
