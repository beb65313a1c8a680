#include "tools/q3a_tuning/lint/json_document.h"

#include <cctype>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace q3a_tool {
namespace {

// Nesting deeper than any tuning table could need is refused rather than
// risking the stack on a hostile file.
constexpr int kMaxDepth = 64;

class Parser {
 public:
  Parser(std::string_view text, std::vector<JsonLeniency>* leniencies)
      : text_(text), leniencies_(leniencies) {}

  std::variant<JsonValue, JsonSyntaxError> Parse() {
    JsonValue root;
    if (leniencies_ != nullptr && text_.starts_with("\xEF\xBB\xBF")) {
      Note("byte-order-mark");
      at_ = 3;
    } else if (text_.starts_with("\xEF\xBB\xBF")) {
      Fail("the file starts with a byte-order mark, which the library's "
           "reader refuses");
      return error_;
    }
    SkipWhitespace();
    if (!ParseValue(root, 0)) return error_;
    SkipWhitespace();
    if (at_ < text_.size()) {
      Fail("unexpected text after the end of the document");
      return error_;
    }
    return root;
  }

 private:
  bool ParseValue(JsonValue& value, int depth) {
    value.position = Here();
    if (at_ >= text_.size()) return Fail("unexpected end of file");
    if (depth > kMaxDepth) return Fail("nesting too deep");
    const char c = text_[at_];
    if (c == '{') return ParseObject(value, depth);
    if (c == '[') return ParseArray(value, depth);
    if (c == '"' || (c == '\'' && leniencies_ != nullptr)) {
      if (c == '\'') Note("single-quote");
      value.type = JsonValue::Type::kString;
      return ParseString(value.text);
    }
    if (c == '-' || std::isdigit(static_cast<unsigned char>(c))) {
      return ParseNumber(value);
    }
    for (auto [word, type] : {std::pair<std::string_view, JsonValue::Type>{
                                  "true", JsonValue::Type::kBool},
                              {"false", JsonValue::Type::kBool},
                              {"null", JsonValue::Type::kNull}}) {
      if (text_.substr(at_, word.size()) == word) {
        value.type = type;
        value.text = word;
        Advance(word.size());
        return true;
      }
    }
    return Fail("expected a value");
  }

  bool ParseObject(JsonValue& value, int depth) {
    value.type = JsonValue::Type::kObject;
    Advance(1);
    SkipWhitespace();
    if (Peek() == '}') {
      Advance(1);
      return true;
    }
    while (true) {
      SkipWhitespace();
      JsonMember member;
      member.key_position = Here();
      if (!ParseKey(member.key)) return false;
      SkipWhitespace();
      if (Peek() != ':') return Fail("expected ':' after the field name");
      Advance(1);
      SkipWhitespace();
      if (!ParseValue(member.value, depth + 1)) return false;
      value.members.push_back(std::move(member));
      SkipWhitespace();
      if (Peek() == ',') {
        if (TrailingComma('}')) return true;
        continue;
      }
      if (Peek() == '}') {
        Advance(1);
        return true;
      }
      return Fail("expected ',' or '}'");
    }
  }

  bool ParseArray(JsonValue& value, int depth) {
    value.type = JsonValue::Type::kArray;
    Advance(1);
    SkipWhitespace();
    if (Peek() == ']') {
      Advance(1);
      return true;
    }
    while (true) {
      SkipWhitespace();
      value.elements.emplace_back();
      if (!ParseValue(value.elements.back(), depth + 1)) return false;
      SkipWhitespace();
      if (Peek() == ',') {
        if (TrailingComma(']')) return true;
        continue;
      }
      if (Peek() == ']') {
        Advance(1);
        return true;
      }
      return Fail("expected ',' or ']'");
    }
  }

  bool ParseKey(std::string& key) {
    const char c = Peek();
    if (c == '"' || (c == '\'' && leniencies_ != nullptr)) {
      if (c == '\'') Note("single-quote");
      return ParseString(key);
    }
    if (leniencies_ == nullptr || !IsKeyChar(c)) {
      return Fail("expected a field name in quotes");
    }
    Note("unquoted-key");
    while (IsKeyChar(Peek())) {
      key += Peek();
      Advance(1);
    }
    return true;
  }

  static bool IsKeyChar(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
  }

  // Steps over the ',' at the cursor. True if `close` follows it (a
  // trailing comma, read past in tolerant mode), which is then consumed.
  bool TrailingComma(char close) {
    const TextPosition comma = Here();
    Advance(1);
    SkipWhitespace();
    if (leniencies_ == nullptr || Peek() != close) return false;
    leniencies_->push_back({comma, "trailing-comma"});
    Advance(1);
    return true;
  }

  void Note(const char* rule) {
    if (leniencies_ != nullptr) leniencies_->push_back({Here(), rule});
  }

  // Escapes are checked for form; \u sequences are kept as written, which is
  // enough for locating values.
  bool ParseString(std::string& out) {
    const char quote = Peek();
    Advance(1);
    while (at_ < text_.size()) {
      const char c = text_[at_];
      if (c == quote) {
        Advance(1);
        return true;
      }
      if (static_cast<unsigned char>(c) < 0x20) {
        return Fail("control character in a string");
      }
      if (c == '\\') {
        if (at_ + 1 >= text_.size()) break;
        const char escape = text_[at_ + 1];
        static constexpr std::string_view kSimple = "\"\\/bfnrt'";
        static constexpr std::string_view kDecoded = "\"\\/\b\f\n\r\t'";
        const std::size_t simple = kSimple.find(escape);
        if (simple != std::string_view::npos) {
          out += kDecoded[simple];
          Advance(2);
          continue;
        }
        if (escape != 'u') return Fail("invalid escape in a string");
        for (std::size_t i = 2; i < 6; ++i) {
          if (at_ + i >= text_.size() ||
              !std::isxdigit(static_cast<unsigned char>(text_[at_ + i]))) {
            return Fail("invalid \\u escape in a string");
          }
        }
        out += text_.substr(at_, 6);
        Advance(6);
        continue;
      }
      out += c;
      Advance(1);
    }
    return Fail("unterminated string");
  }

  bool ParseNumber(JsonValue& value) {
    value.type = JsonValue::Type::kNumber;
    const std::size_t start = at_;
    if (Peek() == '-') Advance(1);
    if (!std::isdigit(static_cast<unsigned char>(Peek()))) {
      return Fail("expected a digit");
    }
    while (IsNumberChar(Peek())) Advance(1);
    value.text = std::string(text_.substr(start, at_ - start));
    double parsed = 0;
    const auto [end, error] = std::from_chars(
        value.text.data(), value.text.data() + value.text.size(), parsed);
    if ((error != std::errc() && error != std::errc::result_out_of_range) ||
        end != value.text.data() + value.text.size()) {
      error_ = {value.position, "malformed number"};
      return false;
    }
    return true;
  }

  static bool IsNumberChar(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) || c == '.' ||
           c == 'e' || c == 'E' || c == '+' || c == '-';
  }

  void SkipWhitespace() {
    while (at_ < text_.size()) {
      const char c = text_[at_];
      if (c == ' ' || c == '\t' || c == '\n' || c == '\r') {
        Advance(1);
      } else if (leniencies_ != nullptr && c == '/' &&
                 (Peek(1) == '/' || Peek(1) == '*')) {
        Note("comment");
        const bool line = Peek(1) == '/';
        Advance(2);
        while (at_ < text_.size() &&
               !(line ? text_[at_] == '\n'
                      : text_[at_] == '*' && Peek(1) == '/')) {
          Advance(1);
        }
        if (!line) Advance(2);
      } else {
        break;
      }
    }
  }

  char Peek(std::size_t ahead = 0) const {
    return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
  }

  void Advance(std::size_t n) {
    for (std::size_t i = 0; i < n && at_ < text_.size(); ++i, ++at_) {
      if (text_[at_] == '\n') {
        ++line_;
        column_ = 1;
      } else {
        ++column_;
      }
    }
  }

  TextPosition Here() const { return {line_, column_}; }

  bool Fail(std::string reason) {
    if (Peek() == '/' && (Peek(1) == '/' || Peek(1) == '*')) {
      reason = "a comment: JSON has none, and the library's reader refuses it";
    }
    error_ = {Here(), std::move(reason)};
    return false;
  }

  std::string_view text_;
  std::vector<JsonLeniency>* leniencies_;
  std::size_t at_ = 0;
  int line_ = 1;
  int column_ = 1;
  JsonSyntaxError error_;
};

}  // namespace

bool JsonKeyMatches(std::string_view key, std::string_view field_name) {
  // protobuf accepts both the schema's snake_case name and its lowerCamelCase
  // JSON name; both reduce to the same letters without underscores.
  auto next = [](std::string_view& s) {
    while (!s.empty() && s.front() == '_') s.remove_prefix(1);
    if (s.empty()) return '\0';
    const char c =
        static_cast<char>(std::tolower(static_cast<unsigned char>(s.front())));
    s.remove_prefix(1);
    return c;
  };
  while (true) {
    const char a = next(key);
    const char b = next(field_name);
    if (a != b) return false;
    if (a == '\0') return true;
  }
}

std::variant<JsonValue, JsonSyntaxError> ParseJsonDocument(
    std::string_view text, std::vector<JsonLeniency>* leniencies) {
  return Parser(text, leniencies).Parse();
}

const JsonValue* FindJsonPath(const JsonValue& root, std::string_view path) {
  const JsonValue* at = &root;
  while (!path.empty()) {
    if (path.front() == '.') path.remove_prefix(1);
    if (path.front() == '[') {
      const std::size_t close = path.find(']');
      if (close == std::string_view::npos) return nullptr;
      std::size_t index = 0;
      const auto [end, error] =
          std::from_chars(path.data() + 1, path.data() + close, index);
      if (error != std::errc() || end != path.data() + close) return nullptr;
      if (at->type != JsonValue::Type::kArray || index >= at->elements.size()) {
        return nullptr;
      }
      at = &at->elements[index];
      path.remove_prefix(close + 1);
      continue;
    }
    const std::size_t stop = path.find_first_of(".[");
    const std::string_view key = path.substr(0, stop);
    if (at->type != JsonValue::Type::kObject) return nullptr;
    const JsonValue* next = nullptr;
    for (const JsonMember& member : at->members) {
      if (JsonKeyMatches(member.key, key)) next = &member.value;
    }
    if (next == nullptr) return nullptr;
    at = next;
    path.remove_prefix(stop == std::string_view::npos ? path.size() : stop);
  }
  return at;
}

}  // namespace q3a_tool
