// The compact form of a tuning file: only what carries meaning. Lists end at
// their counts (count_rules.h), lists without a count lose their tail of
// entries that read as zero, and scalars at their default are left out. Read over a zeroed table
// the compact file gives the full file's table, except that entries past a
// list's count read as zero.
#ifndef TOOLS_Q3A_TUNING_IO_COMPACT_TABLE_H_
#define TOOLS_Q3A_TUNING_IO_COMPACT_TABLE_H_

#include <google/protobuf/message.h>


namespace q3a_tool {

// Trims `table`, a top-level table message as ConvertToMessage writes it.
// `zero_form` is the same table's message of an all-zero record: a trailing
// list entry equal to its counterpart there reads back as zero and can go.
void CompactTableMessage(google::protobuf::Message& table,
                         const google::protobuf::Message& zero_form);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_COMPACT_TABLE_H_
