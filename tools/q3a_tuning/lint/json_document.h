// A JSON reader that keeps where every value and key starts (line and
// column, both 1-based, columns in bytes), so the tool can point at the
// place in a tuning file that the protobuf parser or the lint complains
// about. It reads the grammar of protobuf's JSON parser: keys and strings
// are decoded as that parser decodes them, and the forms it takes beyond
// JSON (trailing commas, single quotes, unquoted keys, escapes JSON lacks,
// form feeds and vertical tabs as whitespace) are read and recorded; so are
// comments and a byte-order mark, which it refuses. It checks syntax only;
// what the values mean is the schema's business.
//
// Why not simdjson, the project's strict JSON tokenizer: the lint must
// locate and report what protobuf's parser accepts beyond JSON and what it
// refuses, keep every member of an object with a duplicated key, and give
// line and column of each value; simdjson rejects such text outright and
// its DOM keeps no positions. The reader keeps up with large files by
// holding values in a few large blocks rather than one allocation each.
#ifndef TOOLS_Q3A_TUNING_LINT_JSON_DOCUMENT_H_
#define TOOLS_Q3A_TUNING_LINT_JSON_DOCUMENT_H_

#include <cstdint>
#include <deque>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tools/q3a_tuning/io/diagnostic.h"

namespace q3a_tool {

struct TextPosition {
  int line = 1;
  int column = 1;
};

struct JsonMember;

// One value of a JsonDocument; it refers into the document and lives as
// long as the document does.
class JsonValue {
 public:
  enum class Type : std::uint8_t {
    kObject,
    kArray,
    kString,
    kNumber,
    kBool,
    kNull
  };

  Type type() const { return type_; }
  TextPosition position() const {
    return {static_cast<int>(line_), static_cast<int>(column_)};
  }
  // The decoded string, or a number's or literal's text as written; empty
  // for objects and arrays.
  std::string_view text() const {
    return IsContainer() ? std::string_view() : std::string_view(chars_, size_);
  }
  // An object's members in file order, duplicates included.
  std::span<const JsonMember> members() const;
  std::span<const JsonValue> elements() const;

 private:
  friend class JsonDocumentParser;

  bool IsContainer() const {
    return type_ == Type::kObject || type_ == Type::kArray;
  }

  union {
    const char* chars_ = nullptr;
    const JsonValue* elements_;
    const JsonMember* members_;
  };
  std::uint32_t size_ = 0;
  std::uint32_t line_ = 1;
  std::uint32_t column_ = 1;
  Type type_ = Type::kNull;
};

struct JsonMember {
  std::string_view key;  // decoded
  TextPosition key_position;
  JsonValue value;
};

inline std::span<const JsonMember> JsonValue::members() const {
  if (type_ != Type::kObject) return {};
  return {members_, size_};
}

inline std::span<const JsonValue> JsonValue::elements() const {
  if (type_ != Type::kArray) return {};
  return {elements_, size_};
}

// A parsed text: its root value and the storage every value refers to.
// Moving it keeps every value and view valid.
class JsonDocument {
 public:
  const JsonValue& root() const { return root_; }

 private:
  friend class JsonDocumentParser;

  std::unique_ptr<char[]> text_;
  std::deque<std::string> decoded_;  // strings that held escapes
  std::vector<std::unique_ptr<JsonValue[]>> value_blocks_;
  std::vector<std::unique_ptr<JsonMember[]>> member_blocks_;
  JsonValue root_;
};

struct JsonSyntaxError {
  TextPosition position;
  std::string reason;
};

// Parses `text` as one JSON value with nothing but whitespace after it. The
// document holds its own copy of `text`.
//
// With `leniencies`, each form read past that protobuf's JSON parser takes
// but JSON lacks ("trailing-comma", "single-quote", "unquoted-key",
// "invalid-escape", "whitespace"), or that it refuses although JSON tools
// commonly skip it ("comment", "byte-order-mark"), is recorded as a
// diagnostic of that rule with its line and column and, keys as written,
// the path of the value concerned: the member or element before a trailing
// comma, the quoted string's member or element, the member of the key, the
// member or element being read at a comment or whitespace; empty for the
// whole document. The message is left to the caller.
std::variant<JsonDocument, JsonSyntaxError> ParseJsonDocument(
    std::string_view text, std::vector<Diagnostic>* leniencies = nullptr);

// Whether the library's reader refuses a text that holds this leniency.
bool RefusedByTheLibrary(const Diagnostic& leniency);

// Whether a JSON object key names the schema field `field_name`: protobuf
// takes the snake_case name and the lowerCamelCase JSON name, exactly.
bool JsonKeyMatches(std::string_view key, std::string_view field_name);

// Where the value at `path` (written as the tool prints paths:
// "region_list.region_bv_list[3].bv_value") starts, or null if the document
// has no such value. Of duplicated keys the last counts, as in protobuf.
const JsonValue* FindJsonPath(const JsonValue& root, std::string_view path);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_LINT_JSON_DOCUMENT_H_
