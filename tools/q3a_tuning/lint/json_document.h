// A small JSON reader that keeps where every value and key starts (line and
// column, both 1-based), so the tool can point at the place in a tuning file
// that the protobuf parser or the lint complains about. It checks syntax
// only; what the values mean is the schema's business.
//
// Why not simdjson, the project's strict JSON tokenizer: the lint must
// locate and report what protobuf's JSON parser accepts beyond JSON
// (trailing commas, single quotes, unquoted keys) and what it refuses
// (comments, a byte-order mark), keep every member of an object with a
// duplicated key, and give line and column of each value; simdjson rejects
// such text outright and its DOM keeps no positions. Tuning files are small,
// so a hand-written recursive reader costs nothing that matters.
#ifndef TOOLS_Q3A_TUNING_LINT_JSON_DOCUMENT_H_
#define TOOLS_Q3A_TUNING_LINT_JSON_DOCUMENT_H_

#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace q3a_tool {

struct TextPosition {
  int line = 1;
  int column = 1;
};

struct JsonMember;

struct JsonValue {
  enum class Type { kObject, kArray, kString, kNumber, kBool, kNull };

  Type type = Type::kNull;
  TextPosition position;
  // The decoded string, or a number's or literal's text as written.
  std::string text;
  std::vector<JsonMember> members;  // kObject, in file order
  std::vector<JsonValue> elements;  // kArray
};

struct JsonMember {
  std::string key;
  TextPosition key_position;
  JsonValue value;
};

struct JsonSyntaxError {
  TextPosition position;
  std::string reason;
};

// A departure from strict JSON that the tolerant mode read past.
struct JsonLeniency {
  TextPosition position;
  // "trailing-comma", "single-quote", "unquoted-key", "comment",
  // "byte-order-mark".
  std::string rule;
};

// Parses `text` as one JSON value with nothing but whitespace after it.
// With `leniencies` the reader also accepts the forms listed there, and
// records each one it meets.
std::variant<JsonValue, JsonSyntaxError> ParseJsonDocument(
    std::string_view text, std::vector<JsonLeniency>* leniencies = nullptr);

// Whether a JSON object key names the schema field `field_name`: protobuf
// accepts the snake_case name and the lowerCamelCase JSON name.
bool JsonKeyMatches(std::string_view key, std::string_view field_name);

// Where the value at `path` (written as the tool prints paths:
// "region_list.region_bv_list[3].bv_value") starts, or null if the document
// has no such value.
const JsonValue* FindJsonPath(const JsonValue& root, std::string_view path);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_LINT_JSON_DOCUMENT_H_
