// The four AWB tables as the tool handles them: a table chosen at run time
// (TableKind), its name, and a way to run one generic function on the record
// type behind it. Everything here derives from the table list
// (awb_records/tuning_tables.h).
#ifndef TOOLS_Q3A_TUNING_IO_TABLE_KIND_H_
#define TOOLS_Q3A_TUNING_IO_TABLE_KIND_H_

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "awb_records/tuning_tables.h"
#include "libs_v4/qAWB/src/base/table_access.h"
#include "protomsg/tuning_table_traits.h"

namespace q3a_tool {

// kBasic, kAdvance, kColor, kFeature: in the order of the tuning binary file.
using TableKind = qawb::TableId;

inline constexpr auto kAllTableKinds = [] {
  std::array<TableKind, qawb::TuningTables::kSize> kinds{};
  std::size_t next = 0;
  qawb::ForEachTable([&]<typename Record>() {
    kinds[next++] = qawb::TuningTable<Record>::kId;
  });
  return kinds;
}();

// "basic", "advance", "color", "feature": the loader's file map keys.
std::string_view TableName(TableKind kind);

// The inverse of TableName; nullopt for anything else (case-sensitive, as
// the loader is).
std::optional<TableKind> ParseTableKind(std::string_view name);

// "basic, advance, color or feature", for messages and help texts.
std::string TableNames();

// Static facts about one table record type: its name, message and readers.
template <typename Record>
using TableTraits = protomsg::TuningTableTraits<Record>;

// A value that carries only a record type, to pass types through lambdas.
template <typename Record>
struct TableType {
  using type = Record;
};

// Calls `fn(TableType<Record>{})` for the record type of `kind` and returns
// its result.
template <typename Fn>
decltype(auto) VisitTableKind(TableKind kind, Fn&& fn) {
  return qawb::VisitTable(
      kind, [&]<typename Record>() { return fn(TableType<Record>{}); });
}

// The version head of `kind`'s table in `tuning`, or nullopt when the
// container hands back a null table.
std::optional<qawb::QAWBParameterVersion> TableVersion(
    const qawb::QAWBTuning& tuning, TableKind kind);

// "3.5"
std::string VersionString(const qawb::QAWBParameterVersion& version);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_TABLE_KIND_H_
