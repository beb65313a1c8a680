// The four AWB tables as the tool names them: the list of qawb::TableId in
// file order, each table's name, and its version in a container. Everything
// here derives from the table list (awb_records/tuning_tables.h); per-table
// facts come from protomsg::TuningTableTraits and qawb::VisitTable runs one
// generic function on the record type behind an id.
#ifndef TOOLS_Q3A_TUNING_IO_TABLE_ID_H_
#define TOOLS_Q3A_TUNING_IO_TABLE_ID_H_

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "awb_records/tuning_tables.h"
#include "libs_v4/qAWB/src/base/table_access.h"
#include "protomsg/tuning_table_traits.h"

namespace q3a_tool {

// kBasic, kAdvance, kColor, kFeature: in the order of the tuning binary file.
inline constexpr auto kAllTableIds = [] {
  std::array<qawb::TableId, qawb::TuningTables::kSize> ids{};
  std::size_t next = 0;
  qawb::ForEachTable([&]<typename Record>() {
    ids[next++] = protomsg::TuningTableTraits<Record>::kId;
  });
  return ids;
}();

// "basic", "advance", "color", "feature": the loader's file map keys
// (qawb::FindTable is the inverse).
std::string_view TableName(qawb::TableId id);

// "basic, advance, color or feature", for messages and help texts.
std::string TableNames();

// The version head of `id`'s table in `tuning`, or nullopt when the
// container hands back a null table.
std::optional<qawb::QAWBParameterVersion> TableVersion(
    const qawb::QAWBTuning& tuning, qawb::TableId id);

// "3.5"
std::string VersionString(const qawb::QAWBParameterVersion& version);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_TABLE_ID_H_
