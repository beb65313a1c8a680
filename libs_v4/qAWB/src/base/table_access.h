// The containers' part of each top-level table's description: its getter on
// every container and its setter on the mutable one, so that generic code
// reaches a table by its record type (awb_records/tuning_tables.h).
#ifndef LIBS_V4_QAWB_SRC_BASE_TABLE_ACCESS_H_
#define LIBS_V4_QAWB_SRC_BASE_TABLE_ACCESS_H_

#include "awb_records/tuning_tables.h"
#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "libs_v4/qAWB/src/base/qawb_tuning.h"

namespace qawb {

template <typename Record>
struct TableAccess;

// Plain functions rather than member pointers: a call through a member
// pointer tests at run time whether the member is virtual.
#define QAWB_INTERNAL_TABLE_ACCESS(Id, Stem, name, load_position)         \
  template <>                                                             \
  struct TableAccess<QAWB##Stem> {                                        \
    static const QAWB##Stem* Get(const QAWBTuning& tuning) {              \
      return tuning.Get##Stem();                                          \
    }                                                                     \
    static bool Set(MutableQAWBTuning& tuning, const QAWB##Stem* table) { \
      return tuning.Set##Stem(table);                                     \
    }                                                                     \
  };
QAWB_TUNING_TABLES(QAWB_INTERNAL_TABLE_ACCESS)
#undef QAWB_INTERNAL_TABLE_ACCESS

// `tuning`'s table of type Record, as its getter returns it (may be null).
template <typename Record>
const Record* GetTable(const QAWBTuning& tuning) {
  return TableAccess<Record>::Get(tuning);
}

// Copies `table` over `tuning`'s table of type Record; false, and nothing
// changed, if `table` is null.
template <typename Record>
bool SetTable(MutableQAWBTuning& tuning, const Record* table) {
  return TableAccess<Record>::Set(tuning, table);
}

// Copies every table of `from` over `to`'s; a null table of `from` leaves
// `to`'s as it was.
inline void CopyTables(const QAWBTuning& from, MutableQAWBTuning& to) {
  ForEachTable(
      [&]<typename Record>() { SetTable(to, GetTable<Record>(from)); });
}

}  // namespace qawb

#endif  // LIBS_V4_QAWB_SRC_BASE_TABLE_ACCESS_H_
