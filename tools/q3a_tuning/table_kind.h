// The four AWB tables as the tool names them, and a way to run one generic
// function on the record type behind a name chosen at run time.
#ifndef TOOLS_Q3A_TUNING_TABLE_KIND_H_
#define TOOLS_Q3A_TUNING_TABLE_KIND_H_

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "awb_records/qawb_advance_tuning_table.h"
#include "awb_records/qawb_basic_tuning_table.h"
#include "awb_records/qawb_color_control_tuning_table.h"
#include "awb_records/qawb_feature_tuning_table.h"
#include "libs_v4/qAWB/proto/qawb_tuning.pb.h"
#include "libs_v4/qAWB/src/base/qawb_tuning.h"

namespace q3a_tool {

// In the order of the override loader's file map keys' documentation and of
// the tuning binary file: basic first.
enum class TableKind { kBasic, kAdvance, kColor, kFeature };

inline constexpr std::array<TableKind, 4> kAllTableKinds = {
    TableKind::kBasic, TableKind::kAdvance, TableKind::kColor,
    TableKind::kFeature};

// "basic", "advance", "color", "feature": the loader's file map keys.
std::string_view TableName(TableKind kind);

// The inverse of TableName; nullopt for anything else (case-sensitive, as
// the loader is).
std::optional<TableKind> ParseTableKind(std::string_view name);

// Static facts about one table record type.
template <typename Record>
struct TableTraits;

template <>
struct TableTraits<qawb::QAWBBasicTuningTable> {
  using Record = qawb::QAWBBasicTuningTable;
  using Message = qawb::tuning::QAWBBasicTuningTable;
  static constexpr TableKind kKind = TableKind::kBasic;
  static const Record* Get(const qawb::QAWBTuning& t) {
    return t.GetBasicTuningTable();
  }
};

template <>
struct TableTraits<qawb::QAWBAdvanceTuningTable> {
  using Record = qawb::QAWBAdvanceTuningTable;
  using Message = qawb::tuning::QAWBAdvanceTuningTable;
  static constexpr TableKind kKind = TableKind::kAdvance;
  static const Record* Get(const qawb::QAWBTuning& t) {
    return t.GetAdvanceTuningTable();
  }
};

template <>
struct TableTraits<qawb::QAWBColorControlTuningTable> {
  using Record = qawb::QAWBColorControlTuningTable;
  using Message = qawb::tuning::QAWBColorControlTuningTable;
  static constexpr TableKind kKind = TableKind::kColor;
  static const Record* Get(const qawb::QAWBTuning& t) {
    return t.GetColorControlTuningTable();
  }
};

template <>
struct TableTraits<qawb::QAWBFeatureTuningTable> {
  using Record = qawb::QAWBFeatureTuningTable;
  using Message = qawb::tuning::QAWBFeatureTuningTable;
  static constexpr TableKind kKind = TableKind::kFeature;
  static const Record* Get(const qawb::QAWBTuning& t) {
    return t.GetFeatureTuningTable();
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
