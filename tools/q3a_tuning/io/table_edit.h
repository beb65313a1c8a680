// Reading and changing single values of a table message by path, for `get`
// and `set`: "face_tuning_table.max_face_count", "cct_list[3]",
// "region_list.region_bv_list[2].bv_value". Changes go through the schema:
// the value must parse as the field's type, fit the record's field (narrow
// integers) and lie within the list's capacity.
#ifndef TOOLS_Q3A_TUNING_IO_TABLE_EDIT_H_
#define TOOLS_Q3A_TUNING_IO_TABLE_EDIT_H_

#include <google/protobuf/message.h>

#include <string>
#include <string_view>

#include "tools/q3a_tuning/io/tool_error.h"

namespace q3a_tool {

// One segment of such a path: "name" or "name[index]".
struct PathSegment {
  std::string_view text;  // as written
  std::string_view name;
  int index = -1;  // -1 where none is given
};

// Takes the first segment and the dot after it off `path`. A usage error
// where the segment is neither NAME nor NAME[INDEX].
Result<PathSegment> TakePathSegment(std::string_view& path);

// The value at `path` as JSON: a number, string, bool, list or object. A
// usage error names the first path segment the table lacks.
Result<std::string> GetValueJson(const google::protobuf::Message& table,
                                 std::string_view path);

// Sets the scalar at `path` to `value` (written as in a JSON file, without
// quotes for enum names). Returns the value before the change, as JSON.
// Lists grow with zero entries up to an index within capacity.
Result<std::string> SetValue(google::protobuf::Message& table,
                             std::string_view path, std::string_view value);

// The field types the schema has and get/set handle: 32-bit integers,
// floats, flags, enums and messages. A test walks the schema against it, so
// a field of another type fails the build's tests instead of reaching
// get/set.
bool IsEditableFieldType(google::protobuf::FieldDescriptor::CppType type);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_TABLE_EDIT_H_
