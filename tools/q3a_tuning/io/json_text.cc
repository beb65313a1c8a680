#include "tools/q3a_tuning/io/json_text.h"

#include <fmt/format.h>

namespace q3a_tool {

void JsonText::Newline() {
  text_ += '\n';
  text_.append(2 * has_element_.size(), ' ');
}

void JsonText::BeforeValue() {
  if (after_key_) {
    after_key_ = false;
    return;
  }
  if (has_element_.empty()) return;
  if (has_element_.back()) text_ += ',';
  has_element_.back() = true;
  Newline();
}

JsonText& JsonText::Open(char bracket) {
  BeforeValue();
  text_ += bracket;
  has_element_.push_back(false);
  return *this;
}

JsonText& JsonText::Close(char bracket) {
  const bool had_element = has_element_.back();
  has_element_.pop_back();
  if (had_element) Newline();
  text_ += bracket;
  return *this;
}

JsonText& JsonText::Key(std::string_view key) {
  String(key);
  text_ += ": ";
  after_key_ = true;
  return *this;
}

JsonText& JsonText::String(std::string_view value) {
  BeforeValue();
  text_ += '"';
  for (char c : value) {
    switch (c) {
      case '"':
        text_ += "\\\"";
        break;
      case '\\':
        text_ += "\\\\";
        break;
      case '\n':
        text_ += "\\n";
        break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          text_ += fmt::format("\\u{:04x}", static_cast<int>(c));
        } else {
          text_ += c;
        }
    }
  }
  text_ += '"';
  return *this;
}

JsonText& JsonText::Number(long long value) {
  BeforeValue();
  text_ += std::to_string(value);
  return *this;
}

JsonText& JsonText::Real(double value) {
  BeforeValue();
  text_ += fmt::format("{}", value);
  return *this;
}

JsonText& JsonText::Bool(bool value) {
  BeforeValue();
  text_ += value ? "true" : "false";
  return *this;
}

}  // namespace q3a_tool
