// The four top-level AWB tables, described once.
//
// QAWB_TUNING_TABLES lists them in the order of the tuning binary file, one
// line each: X(Id, Stem, name, load_position). `Stem` is what follows "QAWB"
// in the record's and the message's name and "Get"/"Set" in the containers'
// accessors, so each layer derives its own part of the description from
// this list (protomsg/tuning_table_traits.h: message, readers;
// libs_v4/qAWB/src/base/table_access.h: getter, setter). `name` is the one
// name users write: the override loader's key, the tool's table name, the
// data manifest's kind. `load_position` is where the override loader takes
// the table. Adding or renaming a table is an edit of this list.
#ifndef AWB_RECORDS_TUNING_TABLES_H_
#define AWB_RECORDS_TUNING_TABLES_H_

#include <cstddef>
#include <optional>
#include <string_view>

#include "awb_records/qawb_advance_tuning_table.h"
#include "awb_records/qawb_basic_tuning_table.h"
#include "awb_records/qawb_color_control_tuning_table.h"
#include "awb_records/qawb_feature_tuning_table.h"
#include "awb_records/type_list.h"

#define QAWB_TUNING_TABLES(X)                   \
  X(Basic, BasicTuningTable, "basic", 1)        \
  X(Advance, AdvanceTuningTable, "advance", 0)  \
  X(Color, ColorControlTuningTable, "color", 2) \
  X(Feature, FeatureTuningTable, "feature", 3)

namespace qawb {

// A table chosen at run time; its value is the table's position in the
// tuning binary file.
enum class TableId {
#define QAWB_INTERNAL_TABLE_ID(Id, Stem, name, load_position) k##Id,
  QAWB_TUNING_TABLES(QAWB_INTERNAL_TABLE_ID)
#undef QAWB_INTERNAL_TABLE_ID
};

// The four table records, in the order of the tuning binary file.
#define QAWB_INTERNAL_TABLE_TYPE(Id, Stem, name, load_position) , QAWB##Stem
using TuningTables = internal::DropPlaceholder<void QAWB_TUNING_TABLES(
    QAWB_INTERNAL_TABLE_TYPE)>::type;
#undef QAWB_INTERNAL_TABLE_TYPE

namespace internal {

template <typename Record, typename... Tables>
consteval std::size_t BytesBefore(TypeList<Tables...> tables) {
  constexpr std::size_t kSizes[] = {sizeof(Tables)...};
  std::size_t bytes = 0;
  for (std::size_t i = 0; i < IndexOf<Record>(tables); ++i) bytes += kSizes[i];
  return bytes;
}

}  // namespace internal

// What the records layer knows of each table record: its id, its name, the
// record's type name, the container setter's name (the override loader's
// log line names it), the loader's position and its offset in the tuning
// binary file.
template <typename Record>
struct TuningTable;

#define QAWB_INTERNAL_DESCRIBE_TABLE(Id, Stem, name, load_position) \
  template <>                                                       \
  struct TuningTable<QAWB##Stem> {                                  \
    static constexpr TableId kId = TableId::k##Id;                  \
    static constexpr std::string_view kName = name;                 \
    static constexpr std::string_view kRecordName = "QAWB" #Stem;   \
    static constexpr std::string_view kSetterName = "Set" #Stem;    \
    static constexpr int kLoadPosition = load_position;             \
    static constexpr std::size_t kFileOffset =                      \
        internal::BytesBefore<QAWB##Stem>(TuningTables{});          \
  };
QAWB_TUNING_TABLES(QAWB_INTERNAL_DESCRIBE_TABLE)
#undef QAWB_INTERNAL_DESCRIBE_TABLE

// Calls `fn.template operator()<Record>()` for the four table records, in
// the order of the tuning binary file.
template <typename Fn>
constexpr void ForEachTable(Fn&& fn) {
  ForEachType<TuningTables>(fn);
}

namespace internal {

consteval bool EachLoadPositionOnce() {
  int tables_at[TuningTables::kSize] = {};
  bool once = true;
  ForEachTable([&]<typename Record>() {
    const int position = TuningTable<Record>::kLoadPosition;
    once = once && position >= 0 &&
           position < static_cast<int>(TuningTables::kSize) &&
           tables_at[position]++ == 0;
  });
  return once;
}
static_assert(EachLoadPositionOnce(),
              "the load positions must number the tables from 0");

}  // namespace internal

// The same, in the order the override loader takes the tables.
template <typename Fn>
constexpr void ForEachTableInLoadOrder(Fn&& fn) {
  for (int position = 0; position < static_cast<int>(TuningTables::kSize);
       ++position) {
    ForEachTable([&]<typename Record>() {
      if (TuningTable<Record>::kLoadPosition == position) {
        fn.template operator()<Record>();
      }
    });
  }
}

// Calls `fn.template operator()<Record>()` for the record type of `id` and
// returns its result.
template <typename Fn>
decltype(auto) VisitTable(TableId id, Fn&& fn) {
  return VisitType<TuningTables>(static_cast<std::size_t>(id), fn);
}

// The table whose name is `name` (case-sensitive, as the loader matches its
// keys); nullopt if none is.
constexpr std::optional<TableId> FindTable(std::string_view name) {
  std::optional<TableId> found;
  ForEachTable([&]<typename Record>() {
    if (TuningTable<Record>::kName == name) found = TuningTable<Record>::kId;
  });
  return found;
}

}  // namespace qawb

#endif  // AWB_RECORDS_TUNING_TABLES_H_
