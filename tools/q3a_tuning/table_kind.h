// The four AWB tables as the tool names them, and a way to run one generic
// function on the record type behind a name chosen at run time.
#ifndef TOOLS_Q3A_TUNING_TABLE_KIND_H_
#define TOOLS_Q3A_TUNING_TABLE_KIND_H_

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "libs_v4/qAWB/src/base/qawb_tuning.h"
#include "protomsg/tuning_table_traits.h"

namespace q3a_tool {

// In the order of the tuning binary file: basic first.
enum class TableKind { kBasic, kAdvance, kColor, kFeature };

inline constexpr std::array<TableKind, 4> kAllTableKinds = {
    TableKind::kBasic, TableKind::kAdvance, TableKind::kColor,
    TableKind::kFeature};

// "basic", "advance", "color", "feature": the loader's file map keys.
std::string_view TableName(TableKind kind);

// The inverse of TableName; nullopt for anything else (case-sensitive, as
// the loader is).
std::optional<TableKind> ParseTableKind(std::string_view name);

// Static facts about one table record type: the library's description plus
// the tool's name for it and a call of its container getter.
template <typename Record>
struct TableTraits : protomsg::TuningTableTraits<Record> {
  using Base = protomsg::TuningTableTraits<Record>;
  static constexpr TableKind kKind = static_cast<TableKind>(Base::kIndex);
  static const Record* Get(const qawb::QAWBTuning& t) {
    return (t.*Base::kGet)();
  }
};

// A value that carries only a record type, to pass types through lambdas.
template <typename Record>
struct TableType {
  using type = Record;
};

// Calls `fn(TableType<Record>{})` for the record type of `kind` and returns
// its result.
template <typename Fn>
decltype(auto) VisitTableKind(TableKind kind, Fn&& fn) {
  switch (kind) {
    case TableKind::kBasic:
      return fn(TableType<qawb::QAWBBasicTuningTable>{});
    case TableKind::kAdvance:
      return fn(TableType<qawb::QAWBAdvanceTuningTable>{});
    case TableKind::kColor:
      return fn(TableType<qawb::QAWBColorControlTuningTable>{});
    case TableKind::kFeature:
      break;
  }
  return fn(TableType<qawb::QAWBFeatureTuningTable>{});
}

// The version head of `kind`'s table in `tuning`, or nullopt when the
// container hands back a null table.
std::optional<qawb::QAWBParameterVersion> TableVersion(
    const qawb::QAWBTuning& tuning, TableKind kind);

// "3.5"
std::string VersionString(const qawb::QAWBParameterVersion& version);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_TABLE_KIND_H_
