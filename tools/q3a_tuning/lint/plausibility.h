// What values a real tuning table holds, as opposed to bytes that were
// something else: a tuning binary file of random bytes, or a binary tuning
// file decoded with another table's schema. The one place for these rules;
// `inspect`, the reading of tuning binary files and the table
// identification use them.
//
// A table is implausible where its version is not a small number (major 1
// to 99, minor 0 to 99), a count field is negative or larger than its list
// holds, a frame-summary kind is none the message can carry, or a flag byte
// is neither 0 nor 1.
#ifndef TOOLS_Q3A_TUNING_LINT_PLAUSIBILITY_H_
#define TOOLS_Q3A_TUNING_LINT_PLAUSIBILITY_H_

#include <google/protobuf/message.h>

#include <string>
#include <string_view>
#include <vector>

#include "tools/q3a_tuning/io/table_id.h"
#include "tools/q3a_tuning/io/tool_error.h"
#include "tools/q3a_tuning/io/tuning_binary_file.h"

namespace q3a_tool {

bool PlausibleVersion(long major, long minor);

// "PATH: why" for every implausible value of the `kind` table whose record
// bytes are `bytes` (exactly the record's size), in layout order.
std::vector<std::string> FindImplausibleValues(qawb::TableId kind,
                                               std::string_view bytes);

// For table identification: how many values of `table`, a message parsed
// from a file of unknown table, look like bytes of something else: the
// version and the lint's findings (counts, lists over capacity, kinds,
// narrow integers) by the rules above, and floats of absurd magnitude.
int CountImplausibleValues(const google::protobuf::Message& table);

// A tuning binary file's heads (ReadTuningBinaryHeads) with each whole
// table's implausible values.
TuningBinaryFileInfo InspectTuningBinaryContent(std::string_view content);

// Fails only if the file cannot be read (input_file.h).
Result<TuningBinaryFileInfo> InspectTuningBinaryFile(const std::string& path);

// Whether `content` is, by its size and its four version heads, a tuning
// binary file rather than a tuning file. Plausible versions are enough to
// tell it from a tuning file; the rest of its values may still be wrong.
bool LooksLikeTuningBinaryFile(std::string_view content);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_LINT_PLAUSIBILITY_H_
