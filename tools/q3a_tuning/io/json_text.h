// A minimal JSON writer for the tool's machine-readable output: indented,
// keys in the order written, strings escaped.
#ifndef TOOLS_Q3A_TUNING_IO_JSON_TEXT_H_
#define TOOLS_Q3A_TUNING_IO_JSON_TEXT_H_

#include <string>
#include <string_view>
#include <vector>

namespace q3a_tool {

// Calls must nest properly (every Begin has its End, Key only inside an
// object, followed by one value); the writer does not check.
class JsonText {
 public:
  JsonText& BeginObject() { return Open('{'); }
  JsonText& EndObject() { return Close('}'); }
  JsonText& BeginArray() { return Open('['); }
  JsonText& EndArray() { return Close(']'); }
  JsonText& Key(std::string_view key);
  JsonText& String(std::string_view value);
  JsonText& Number(long long value);
  // The shortest text that reads back as `value`; finite values only.
  JsonText& Real(double value);
  JsonText& Bool(bool value);

  const std::string& Text() const { return text_; }

 private:
  void BeforeValue();
  JsonText& Open(char bracket);
  JsonText& Close(char bracket);
  void Newline();

  std::string text_;
  // Per open container: whether it has an element yet.
  std::vector<bool> has_element_;
  bool after_key_ = false;
};

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_JSON_TEXT_H_
