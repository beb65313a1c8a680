// The inside of a JSON string as protobuf's JSON parser decodes it, so that
// the tool reads a key written with escapes ("max_face\u005fcount") as the
// library does. protobuf takes any character after a backslash ("\_" is
// "_"), "\v" besides JSON's escapes, and UTF-16 surrogate pairs; it refuses
// a \u escape without four hex digits, a lone surrogate, and text that is
// not UTF-8.
#ifndef TOOLS_Q3A_TUNING_LINT_JSON_STRING_H_
#define TOOLS_Q3A_TUNING_LINT_JSON_STRING_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace q3a_tool {

struct JsonStringError {
  std::size_t offset;  // in the raw text
  std::string reason;
};

struct DecodedJsonString {
  std::string text;
  // Offsets in the raw text of escapes JSON lacks ("\_", "\v", "\'").
  std::vector<std::size_t> lenient_escapes;
  std::optional<JsonStringError> error;
};

// Decodes `raw`, the text between the quotes, as protobuf does.
DecodedJsonString DecodeJsonString(std::string_view raw);

// Whether `raw` is its own decoding: no backslash and only ASCII.
bool IsPlainJsonString(std::string_view raw);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_LINT_JSON_STRING_H_
