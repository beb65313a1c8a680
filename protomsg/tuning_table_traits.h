// The conversion layer's part of each top-level table's description: the
// message that carries the record and the record's tuning file readers, on
// top of what the records layer describes (awb_records/tuning_tables.h).
#ifndef PROTOMSG_TUNING_TABLE_TRAITS_H_
#define PROTOMSG_TUNING_TABLE_TRAITS_H_

#include "awb_records/tuning_tables.h"
#include "libs_v4/qAWB/proto/qawb_tuning.pb.h"
#include "protomsg/tuning_files.h"

namespace protomsg {

template <typename Record>
struct TuningTableTraits;

#define PROTOMSG_INTERNAL_TABLE_TRAITS(Id, Stem, name, load_position)    \
  template <>                                                            \
  struct TuningTableTraits<qawb::QAWB##Stem>                             \
      : qawb::TuningTable<qawb::QAWB##Stem> {                            \
    using Message = qawb::tuning::QAWB##Stem;                            \
    static constexpr auto kReadJson = &ReadQAWB##Stem##WithJson;         \
    static constexpr auto kReadProtobuf = &ReadQAWB##Stem##FromProtobuf; \
  };
QAWB_TUNING_TABLES(PROTOMSG_INTERNAL_TABLE_TRAITS)
#undef PROTOMSG_INTERNAL_TABLE_TRAITS

}  // namespace protomsg

#endif  // PROTOMSG_TUNING_TABLE_TRAITS_H_
