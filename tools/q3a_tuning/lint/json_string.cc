#include "tools/q3a_tuning/lint/json_string.h"

#include <cstdint>

#include "tools/q3a_tuning/io/utf8.h"

namespace q3a_tool {
namespace {

constexpr std::uint32_t kFirstHighSurrogate = 0xD800;
constexpr std::uint32_t kFirstLowSurrogate = 0xDC00;
constexpr std::uint32_t kLastLowSurrogate = 0xDFFF;

std::optional<std::uint32_t> HexQuad(std::string_view text) {
  if (text.size() < 4) return std::nullopt;
  std::uint32_t code = 0;
  for (char c : text.substr(0, 4)) {
    int digit;
    if (c >= '0' && c <= '9') {
      digit = c - '0';
    } else if (c >= 'a' && c <= 'f') {
      digit = c - 'a' + 10;
    } else if (c >= 'A' && c <= 'F') {
      digit = c - 'A' + 10;
    } else {
      return std::nullopt;
    }
    code = code << 4 | static_cast<std::uint32_t>(digit);
  }
  return code;
}

void AppendUtf8(std::uint32_t code, std::string& out) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | code >> 6);
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0 | code >> 12);
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | code >> 18);
    out += static_cast<char>(0x80 | (code >> 12 & 0x3F));
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

// Decodes the \u escape at `at` (and the low surrogate that must follow a
// high one). Returns the raw length consumed, or 0 with `error` set.
std::size_t DecodeUnicodeEscape(std::string_view raw, std::size_t at,
                                std::string& out,
                                std::optional<JsonStringError>& error) {
  const auto code = HexQuad(raw.substr(at + 2));
  if (!code) {
    error = JsonStringError{at, "invalid \\u escape: four hex digits must "
                                "follow"};
    return 0;
  }
  if (*code >= kFirstLowSurrogate && *code <= kLastLowSurrogate) {
    error = JsonStringError{at, "a low surrogate without a high one before "
                                "it"};
    return 0;
  }
  if (*code < kFirstHighSurrogate || *code >= kFirstLowSurrogate) {
    AppendUtf8(*code, out);
    return 6;
  }
  const std::string_view next = raw.substr(at + 6);
  if (!next.starts_with("\\u")) {
    error = JsonStringError{at, "a high surrogate without a low one after "
                                "it"};
    return 0;
  }
  const auto low = HexQuad(next.substr(2));
  if (!low) {
    error = JsonStringError{at + 6, "invalid \\u escape: four hex digits "
                                    "must follow"};
    return 0;
  }
  if (*low < kFirstLowSurrogate || *low > kLastLowSurrogate) {
    error = JsonStringError{at + 6, "a high surrogate followed by something "
                                    "other than a low one"};
    return 0;
  }
  AppendUtf8(0x10000 + ((*code - kFirstHighSurrogate) << 10) +
                 (*low - kFirstLowSurrogate),
             out);
  return 12;
}

}  // namespace

bool IsPlainJsonString(std::string_view raw) {
  for (char c : raw) {
    if (c == '\\' || static_cast<unsigned char>(c) >= 0x80) return false;
  }
  return true;
}

DecodedJsonString DecodeJsonString(std::string_view raw) {
  DecodedJsonString decoded;
  std::string& out = decoded.text;
  out.reserve(raw.size());
  std::size_t at = 0;
  while (at < raw.size() && !decoded.error) {
    const char c = raw[at];
    if (static_cast<unsigned char>(c) >= 0x80) {
      const std::size_t length = Utf8SequenceLength(raw.substr(at));
      if (length == 0) {
        decoded.error = JsonStringError{at, "the text is not UTF-8"};
        break;
      }
      out.append(raw.substr(at, length));
      at += length;
      continue;
    }
    if (c != '\\' || at + 1 >= raw.size()) {
      out += c;
      ++at;
      continue;
    }
    const char escape = raw[at + 1];
    if (escape == 'u') {
      at += DecodeUnicodeEscape(raw, at, out, decoded.error);
      continue;
    }
    static constexpr std::string_view kJson = "\"\\/bfnrt";
    static constexpr std::string_view kNamed = "bfnrtv";
    static constexpr std::string_view kNamedDecoded = "\b\f\n\r\t\v";
    const std::size_t named = kNamed.find(escape);
    out += named != std::string_view::npos ? kNamedDecoded[named] : escape;
    if (kJson.find(escape) == std::string_view::npos) {
      decoded.lenient_escapes.push_back(at);
    }
    at += 2;
  }
  return decoded;
}

}  // namespace q3a_tool
