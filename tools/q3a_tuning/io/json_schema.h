// JSON Schemas (draft 2020-12) of the tuning files, one per table, made from
// the table's message descriptor and the records' field limits, so that an
// editor checks a tuning file while it is typed. A schema says what one
// value may be: the field names (snake_case and lowerCamelCase, as the
// readers take both), integer ranges of the record fields, float values
// with protobuf's "NaN", "Infinity" and "-Infinity", list capacities and
// enum names. What needs two values at once (a count against its list) or
// the text itself (duplicate keys) is left to `validate`.
#ifndef TOOLS_Q3A_TUNING_IO_JSON_SCHEMA_H_
#define TOOLS_Q3A_TUNING_IO_JSON_SCHEMA_H_

#include <string>

#include "awb_records/tuning_tables.h"

namespace q3a_tool {

// The schema of `id`'s tuning file as indented JSON text.
std::string TableJsonSchema(qawb::TableId id);

// "basic.schema.json": the name export gives a table's schema beside its
// file.
std::string SchemaFileName(qawb::TableId id);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_JSON_SCHEMA_H_
