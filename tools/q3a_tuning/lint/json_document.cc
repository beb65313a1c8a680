#include "tools/q3a_tuning/lint/json_document.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <type_traits>
#include <utility>

#include "protomsg/internal/json_number.h"
#include "tools/q3a_tuning/lint/json_string.h"
#include "tools/q3a_tuning/lint/lint_rules.h"

namespace q3a_tool {
namespace {

// Nesting deeper than any tuning table could need is refused rather than
// risking the stack on a hostile file.
constexpr int kMaxDepth = 64;

// Values are placed in blocks of at least this many.
constexpr std::size_t kBlockSize = 4096;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// protobuf's unquoted keys: a letter, '_' or '$', then also digits.
bool IsKeyStart(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         c == '$';
}
bool IsKeyChar(char c) { return IsKeyStart(c) || IsDigit(c); }

// Hands out contiguous runs of T from a few large blocks.
template <typename T>
class BlockArena {
 public:
  explicit BlockArena(std::vector<std::unique_ptr<T[]>>& blocks)
      : blocks_(blocks) {}

  T* Place(const T* first, std::size_t count) {
    if (count > free_) {
      const std::size_t size = std::max(count, kBlockSize);
      blocks_.push_back(std::make_unique_for_overwrite<T[]>(size));
      next_ = blocks_.back().get();
      free_ = size;
    }
    T* placed = next_;
    std::copy(first, first + count, placed);
    next_ += count;
    free_ -= count;
    return placed;
  }

 private:
  std::vector<std::unique_ptr<T[]>>& blocks_;
  T* next_ = nullptr;
  std::size_t free_ = 0;
};

}  // namespace

class JsonDocumentParser {
 public:
  JsonDocumentParser(std::string_view text, std::vector<Diagnostic>* notes)
      : notes_(notes),
        values_(document_.value_blocks_),
        members_(document_.member_blocks_) {
    document_.text_ = std::make_unique<char[]>(text.size() + 1);
    std::memcpy(document_.text_.get(), text.data(), text.size());
    begin_ = at_ = line_start_ = document_.text_.get();
    end_ = begin_ + text.size();
    // Room for every value ("1,") and member ("a:1,") the text can hold,
    // so the stacks never move; only the part in use is ever touched.
    value_stack_.reserve(text.size() / 2 + 1);
    member_stack_.reserve(text.size() / 4 + 1);
  }

  std::variant<JsonDocument, JsonSyntaxError> Parse() && {
    if (std::string_view(begin_, end_ - begin_).starts_with("\xEF\xBB\xBF")) {
      Note(lint_rule::kByteOrderMark, Here(), "");
      at_ += 3;
    }
    SkipWhitespace();
    if (!ParseValue(document_.root_, 0)) return std::move(error_);
    SkipWhitespace();
    if (at_ < end_) {
      Fail("unexpected text after the end of the document");
      return std::move(error_);
    }
    return std::move(document_);
  }

 private:
  // One step of the path to the value being read, for leniencies.
  struct Step {
    bool in_array = false;
    std::string_view key;
    std::size_t index = 0;
  };

  bool ParseValue(JsonValue& value, int depth) {
    SetPosition(value);
    if (at_ >= end_) return Fail("unexpected end of file");
    if (depth > kMaxDepth) return Fail("nesting too deep");
    const char c = *at_;
    if (c == '{') return ParseObject(value, depth);
    if (c == '[') return ParseArray(value, depth);
    if (c == '"' || c == '\'') {
      const TextPosition start = Here();
      value.type_ = JsonValue::Type::kString;
      std::string_view text;
      if (!ParseString(text)) return false;
      if (c == '\'') Note(lint_rule::kSingleQuote, start, Path());
      NoteEscapes();
      SetText(value, text);
      return true;
    }
    if (c == '-' || IsDigit(c)) return ParseNumber(value);
    for (auto [word, type] : {std::pair<std::string_view, JsonValue::Type>{
                                  "true", JsonValue::Type::kBool},
                              {"false", JsonValue::Type::kBool},
                              {"null", JsonValue::Type::kNull}}) {
      if (Rest().starts_with(word)) {
        value.type_ = type;
        SetText(value, std::string_view(at_, word.size()));
        at_ += word.size();
        return true;
      }
    }
    return Fail("expected a value");
  }

  bool ParseObject(JsonValue& value, int depth) {
    value.type_ = JsonValue::Type::kObject;
    return ParseItems(value, '}', Step{}, member_stack_, members_,
                      [&](JsonMember& member) {
                        member.key_position = Here();
                        if (!ParseKey(member.key)) return false;
                        SkipWhitespace();
                        if (Peek() != ':') {
                          return Fail("expected ':' after the field name");
                        }
                        ++at_;
                        SkipWhitespace();
                        return ParseValue(member.value, depth + 1);
                      });
  }

  bool ParseArray(JsonValue& value, int depth) {
    value.type_ = JsonValue::Type::kArray;
    return ParseItems(
        value, ']', Step{true, {}, 0}, value_stack_, values_,
        [&](JsonValue& element) { return ParseValue(element, depth + 1); });
  }

  // The members or elements of the container whose opening bracket is at
  // the cursor, up to `close`, each read by `parse_item`: gathered on
  // `stack` while nested containers use the stack above them, then placed
  // in `arena` as the container's own.
  template <typename Item, typename ParseItem>
  bool ParseItems(JsonValue& value, char close, Step step,
                  std::vector<Item>& stack, BlockArena<Item>& arena,
                  ParseItem parse_item) {
    ++at_;
    SkipWhitespace();
    if (Peek() == close) {
      ++at_;
      return true;
    }
    const std::size_t first = stack.size();
    path_.push_back(step);
    while (true) {
      SkipWhitespace();
      path_.back().index = stack.size() - first;
      Item item;
      if (!parse_item(item)) return false;
      stack.push_back(item);
      bool closed = false;
      if (!AfterItem(close, closed)) return false;
      if (closed) break;
    }
    path_.pop_back();
    const std::size_t count = stack.size() - first;
    const Item* placed = arena.Place(stack.data() + first, count);
    if constexpr (std::is_same_v<Item, JsonMember>) {
      value.members_ = placed;
    } else {
      value.elements_ = placed;
    }
    value.size_ = static_cast<std::uint32_t>(count);
    stack.resize(first);
    return true;
  }

  bool ParseKey(std::string_view& key) {
    const TextPosition start = Here();
    const char c = Peek();
    if (c == '"' || c == '\'') {
      if (!ParseString(key)) return false;
      path_.back().key = key;
      if (c == '\'') Note(lint_rule::kSingleQuote, start, Path());
      NoteEscapes();
      return true;
    }
    if (!IsKeyStart(c)) return Fail("expected a field name in quotes");
    const char* first = at_;
    while (at_ < end_ && IsKeyChar(*at_)) ++at_;
    key = std::string_view(first, at_ - first);
    path_.back().key = key;
    Note(lint_rule::kUnquotedKey, start, Path());
    return true;
  }

  // After a member or element: steps over the ',' or the `close` that must
  // follow; `closed` tells which (a trailing comma before `close` counts as
  // closed).
  bool AfterItem(char close, bool& closed) {
    SkipWhitespace();
    if (Peek() == ',') {
      closed = TrailingComma(close);
      return true;
    }
    if (Peek() != close) {
      return Fail(std::string("expected ',' or '") + close + "'");
    }
    ++at_;
    closed = true;
    return true;
  }

  // Steps over the ',' at the cursor. True if `close` follows it (a
  // trailing comma), which is then consumed.
  bool TrailingComma(char close) {
    const TextPosition comma = Here();
    ++at_;
    SkipWhitespace();
    if (Peek() != close) return false;
    Note(lint_rule::kTrailingComma, comma, Path());
    ++at_;
    return true;
  }

  // The string whose quote is at the cursor, decoded as protobuf decodes it.
  bool ParseString(std::string_view& out) {
    const char quote = *at_++;
    const char* first = at_;
    while (at_ < end_ && *at_ != quote) {
      if (*at_ == '\\' && at_ + 1 < end_) ++at_;
      if (*at_ == '\n') NewLine(at_);
      ++at_;
    }
    if (at_ >= end_) return Fail("unterminated string");
    const std::string_view raw(first, at_ - first);
    ++at_;
    if (IsPlainJsonString(raw)) {
      out = raw;
      return true;
    }
    DecodedJsonString decoded = DecodeJsonString(raw);
    if (decoded.error) {
      at_ = first + decoded.error->offset;
      return Fail(decoded.error->reason);
    }
    for (std::size_t offset : decoded.lenient_escapes) {
      escapes_.push_back(PositionOf(first + offset));
    }
    out = document_.decoded_.emplace_back(std::move(decoded.text));
    return true;
  }

  // The escapes JSON lacks in the string just read, noted once the path
  // names the string's member.
  void NoteEscapes() {
    for (const TextPosition& escape : escapes_) {
      Note(lint_rule::kInvalidEscape, escape, Path());
    }
    escapes_.clear();
  }

  // The token and its verdict are the library's (json_number.h), so the
  // tool refuses exactly the numbers the library's reader refuses.
  bool ParseNumber(JsonValue& value) {
    value.type_ = JsonValue::Type::kNumber;
    const char* first = at_;
    const std::string_view token(
        first, protomsg::internal::JsonNumberTokenLength(std::string_view(
                   first, static_cast<std::size_t>(end_ - first))));
    at_ = first + token.size();
    SetText(value, token);
    if (!protomsg::internal::ParseJsonNumber(token)) {
      error_ = {value.position(),
                "malformed number, or one beyond the range of a double"};
      return false;
    }
    return true;
  }

  // protobuf's whitespace is C's: form feeds and vertical tabs too.
  void SkipWhitespace() {
    while (at_ < end_) {
      const char c = *at_;
      if (c == ' ' || c == '\t' || c == '\r') {
        ++at_;
      } else if (c == '\n') {
        NewLine(at_++);
      } else if (c == '\f' || c == '\v') {
        Note(lint_rule::kWhitespace, Here(), Path());
        ++at_;
      } else if (c == '/' && (Peek(1) == '/' || Peek(1) == '*')) {
        SkipComment();
      } else {
        break;
      }
    }
  }

  void SkipComment() {
    Note(lint_rule::kComment, Here(), Path());
    const bool line = Peek(1) == '/';
    at_ += 2;
    while (at_ < end_ && !(line ? *at_ == '\n' : *at_ == '*' && Peek(1) == '/')) {
      if (*at_ == '\n') NewLine(at_);
      ++at_;
    }
    if (!line) at_ = std::min(at_ + 2, end_);
  }

  void Note(const char* rule, TextPosition position, std::string path) {
    if (notes_ != nullptr) {
      notes_->push_back({.line = position.line,
                         .column = position.column,
                         .path = std::move(path),
                         .rule = rule});
    }
  }

  // "a.b[2]", keys as written; only built when a leniency is noted.
  std::string Path() const {
    if (notes_ == nullptr) return "";
    std::string path;
    for (const Step& step : path_) {
      if (step.in_array) {
        path += '[' + std::to_string(step.index) + ']';
      } else if (!step.key.empty()) {
        if (!path.empty()) path += '.';
        path += step.key;
      }
    }
    return path;
  }

  char Peek(std::size_t ahead = 0) const {
    return at_ + ahead < end_ ? at_[ahead] : '\0';
  }
  std::string_view Rest() const { return std::string_view(at_, end_ - at_); }

  void NewLine(const char* newline) {
    ++line_;
    line_start_ = newline + 1;
  }

  TextPosition Here() const { return PositionOf(at_); }

  // `at` lies on the current line.
  TextPosition PositionOf(const char* at) const {
    return {line_, static_cast<int>(at - line_start_) + 1};
  }

  void SetPosition(JsonValue& value) const {
    value.line_ = static_cast<std::uint32_t>(line_);
    value.column_ = static_cast<std::uint32_t>(at_ - line_start_ + 1);
  }

  static void SetText(JsonValue& value, std::string_view text) {
    value.chars_ = text.data();
    value.size_ = static_cast<std::uint32_t>(text.size());
  }

  // Failures end the parse, so their place is counted from the start: the
  // cursor may have moved back into a string that spans lines.
  bool Fail(std::string reason) {
    int line = 1;
    const char* line_start = begin_;
    for (const char* c = begin_; c < at_; ++c) {
      if (*c == '\n') {
        ++line;
        line_start = c + 1;
      }
    }
    error_ = {{line, static_cast<int>(at_ - line_start) + 1},
              std::move(reason)};
    return false;
  }

  JsonDocument document_;
  std::vector<Diagnostic>* notes_;
  BlockArena<JsonValue> values_;
  BlockArena<JsonMember> members_;
  std::vector<JsonValue> value_stack_;
  std::vector<JsonMember> member_stack_;
  std::vector<Step> path_;
  std::vector<TextPosition> escapes_;
  const char* begin_;
  const char* end_;
  const char* at_;
  int line_ = 1;
  const char* line_start_;
  JsonSyntaxError error_;
};

bool RefusedByTheLibrary(const Diagnostic& leniency) {
  return leniency.rule == lint_rule::kComment ||
         leniency.rule == lint_rule::kByteOrderMark;
}

bool JsonKeyMatches(std::string_view key, std::string_view field_name) {
  if (key == field_name) return true;
  // The JSON name: each '_' dropped and the letter after it capitalised.
  std::size_t at = 0;
  bool capitalize = false;
  for (char c : field_name) {
    if (c == '_') {
      capitalize = true;
      continue;
    }
    if (capitalize && c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    capitalize = false;
    if (at >= key.size() || key[at++] != c) return false;
  }
  return at == key.size();
}

std::variant<JsonDocument, JsonSyntaxError> ParseJsonDocument(
    std::string_view text, std::vector<Diagnostic>* leniencies) {
  return JsonDocumentParser(text, leniencies).Parse();
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
      const auto elements = at->elements();
      if (at->type() != JsonValue::Type::kArray || index >= elements.size()) {
        return nullptr;
      }
      at = &elements[index];
      path.remove_prefix(close + 1);
      continue;
    }
    const std::size_t stop = path.find_first_of(".[");
    const std::string_view key = path.substr(0, stop);
    const JsonValue* next = nullptr;
    for (const JsonMember& member : at->members()) {
      if (JsonKeyMatches(member.key, key)) next = &member.value;
    }
    if (next == nullptr) return nullptr;
    at = next;
    path.remove_prefix(stop == std::string_view::npos ? path.size() : stop);
  }
  return at;
}

}  // namespace q3a_tool
