// The tool's JSON output writer: every string, control characters and
// non-ASCII text included, reads back through protobuf's JSON parser as
// written, and nested containers keep their order.
#include "tools/q3a_tuning/io/json_text.h"

#include <google/protobuf/struct.pb.h>
#include <google/protobuf/util/json_util.h>
#include <gtest/gtest.h>

#include <string>

namespace q3a_tool {
namespace {

google::protobuf::Struct Parsed(const std::string& text) {
  google::protobuf::Struct parsed;
  const auto status =
      google::protobuf::util::JsonStringToMessage(text, &parsed);
  EXPECT_TRUE(status.ok()) << status << "\n" << text;
  return parsed;
}

TEST(JsonText, EveryStringReadsBackAsWritten) {
  std::string every_ascii;
  for (int c = 1; c < 0x80; ++c) every_ascii += static_cast<char>(c);
  const std::string texts[] = {every_ascii, "", "tab\there \"quoted\" \\",
                               "line\nbreak\r\n",
                               "\xC2\xB5m 5000\xE2\x80\xAF"
                               "K"};
  for (const std::string& text : texts) {
    JsonText json;
    json.BeginObject().Key(text).String(text).Key("list").BeginArray();
    json.Real(0.1).Number(-7).Bool(true).EndArray().EndObject();
    const google::protobuf::Struct parsed = Parsed(json.Text());
    ASSERT_EQ(parsed.fields().count(text), 1u) << json.Text();
    EXPECT_EQ(parsed.fields().at(text).string_value(), text);
    const auto& list = parsed.fields().at("list").list_value().values();
    ASSERT_EQ(list.size(), 3);
    EXPECT_EQ(list[0].number_value(), 0.1);
    EXPECT_EQ(list[1].number_value(), -7);
    EXPECT_TRUE(list[2].bool_value());
  }
}

}  // namespace
}  // namespace q3a_tool
