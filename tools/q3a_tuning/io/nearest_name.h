// "did you mean ...?" for a misspelt field or enum value name: the nearest
// schema name by edit distance, when it is near enough to be a likely typo.
#ifndef TOOLS_Q3A_TUNING_IO_NEAREST_NAME_H_
#define TOOLS_Q3A_TUNING_IO_NEAREST_NAME_H_

#include <google/protobuf/descriptor.h>

#include <string>
#include <string_view>

namespace q3a_tool {

// "; did you mean max_face_count?" or "" when no field of `descriptor` is
// near `name`.
std::string SuggestField(std::string_view name,
                         const google::protobuf::Descriptor& descriptor);

// The same for a value name of `enum_type`.
std::string SuggestEnumValue(std::string_view name,
                             const google::protobuf::EnumDescriptor& enum_type);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_NEAREST_NAME_H_
