// What protobuf 3.21's JSON parser makes of a number written without
// quotes, and what a float or an integer field then holds, in one place for
// the library's direct JSON reader and the tool's own JSON reader.
//
// Protobuf takes as the number token the longest run of digits, '.', 'e',
// 'E', '+', '-' and 'x' and reads it as strtod does when it holds '.', 'e'
// or 'E' (so hexadecimal forms such as 0x1.8 pass); otherwise as a 64-bit
// unsigned integer (a leading zero refused), then as a signed one ("-0"
// included, "-0..." refused), then as a double. The double is refused if it
// is infinite. A float field narrows a double (so a decimal is rounded
// twice, to double and then to float, and one that rounds to infinity is
// refused) and converts an integer directly; an integer field takes a double
// only if it is a whole number in range.
//
// Decimal text is converted by std::from_chars, which libstdc++ 12 rounds
// correctly for any number of digits, as glibc's strtod (protobuf's
// converter) does; the rare hexadecimal, underflowing or overflowing text
// goes to strtod itself.
#ifndef PROTOMSG_INTERNAL_JSON_NUMBER_H_
#define PROTOMSG_INTERNAL_JSON_NUMBER_H_

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace protomsg::internal {

// A number as protobuf's parser hands it on.
struct JsonNumber {
  enum class Kind : std::uint8_t { kUnsigned, kSigned, kDouble };
  Kind kind = Kind::kUnsigned;
  std::uint64_t unsigned_value = 0;
  std::int64_t signed_value = 0;
  double double_value = 0;
};

// Whether `c` continues a number token in protobuf's parser.
constexpr bool IsJsonNumberChar(char c) {
  return (c >= '0' && c <= '9') || c == '.' || c == 'e' || c == 'E' ||
         c == '+' || c == '-' || c == 'x';
}

// The length of the number token at the start of `text`.
inline std::size_t JsonNumberTokenLength(std::string_view text) {
  std::size_t length = 0;
  while (length < text.size() && IsJsonNumberChar(text[length])) ++length;
  return length;
}

namespace json_number_detail {

// strtod over the whole of `token`, as protobuf calls it.
inline std::optional<double> Strtod(std::string_view token) {
  const std::string copy(token);
  char* end = nullptr;
  const double value = std::strtod(copy.c_str(), &end);
  if (copy.empty() || end != copy.c_str() + copy.size()) return std::nullopt;
  return value;
}

// std::from_chars over the whole of `token`: its error, or invalid_argument
// where it stops short of the end.
template <typename T>
std::errc FromCharsWhole(std::string_view token, T& value) {
  const char* const end = token.data() + token.size();
  const auto [stop, error] = std::from_chars(token.data(), end, value);
  return stop == end ? error : std::errc::invalid_argument;
}

// The exact double of plain decimal text (-?digits[.digits][(e|E)[+-]digits])
// when its digits make an integer below 2^53 and its power of ten is within
// 10^±22: both are doubles exactly, so one multiplication or division
// rounds correctly (Clinger's fast path). Nothing for other text.
inline std::optional<double> FastDecimal(std::string_view token) {
  std::size_t at = token[0] == '-' ? 1 : 0;
  std::uint64_t digits = 0;
  int count = 0;  // significant digits taken, leading zeros not counted
  int scale = 0;  // digits after the point
  bool any = false;
  bool point = false;
  for (; at < token.size(); ++at) {
    const char c = token[at];
    if (c >= '0' && c <= '9') {
      any = true;
      if (digits != 0 || c != '0') {
        if (++count > 19) return std::nullopt;
        digits = digits * 10 + static_cast<std::uint64_t>(c - '0');
      }
      if (point) ++scale;
    } else if (c == '.' && !point) {
      point = true;
    } else {
      break;
    }
  }
  if (!any) return std::nullopt;
  int exponent = 0;
  if (at < token.size()) {
    if (token[at] != 'e' && token[at] != 'E') return std::nullopt;
    ++at;
    bool negative = false;
    if (at < token.size() && (token[at] == '+' || token[at] == '-')) {
      negative = token[at++] == '-';
    }
    if (at == token.size()) return std::nullopt;
    for (; at < token.size(); ++at) {
      const char c = token[at];
      if (c < '0' || c > '9' || exponent > 1000) return std::nullopt;
      exponent = exponent * 10 + (c - '0');
    }
    if (negative) exponent = -exponent;
  }
  exponent -= scale;
  if (digits > (std::uint64_t{1} << 53) || exponent < -22 || exponent > 22) {
    return std::nullopt;
  }
  constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  double value = static_cast<double>(digits);
  value = exponent < 0 ? value / kPowers[-exponent] : value * kPowers[exponent];
  return token[0] == '-' ? -value : value;
}

// A finite double from text that strtod would read whole, as protobuf
// requires before it takes the number.
inline std::optional<double> FiniteDouble(std::string_view token) {
  if (const std::optional<double> fast = FastDecimal(token)) return fast;
  const std::size_t sign = token[0] == '-' ? 1 : 0;
  std::optional<double> value;
  if (token.substr(sign, 2) == "0x") {
    value = Strtod(token);
  } else {
    double parsed = 0;
    const std::errc error = FromCharsWhole(token, parsed);
    if (error == std::errc()) {
      value = parsed;
    } else if (error == std::errc::result_out_of_range) {
      value = Strtod(token);  // an underflow to zero or an overflow
    }
  }
  if (!value || !std::isfinite(*value)) return std::nullopt;
  return value;
}

}  // namespace json_number_detail

// The number protobuf's parser reads from the whole of `token` (one number
// token, nothing around it); nothing if it refuses the text.
inline std::optional<JsonNumber> ParseJsonNumber(std::string_view token) {
  // A value that starts otherwise is not a number to protobuf.
  if (token.empty() ||
      !(token[0] == '-' || (token[0] >= '0' && token[0] <= '9')) ||
      JsonNumberTokenLength(token) != token.size()) {
    return std::nullopt;
  }
  const bool negative = token[0] == '-';
  bool floating = false;
  for (const char c : token) {
    if (c == '.' || c == 'e' || c == 'E') floating = true;
  }
  JsonNumber number;
  if (!floating) {
    const std::string_view digits = token.substr(negative ? 1 : 0);
    if (digits.size() >= 2 && digits[0] == '0') return std::nullopt;
    const std::errc error =
        negative
            ? json_number_detail::FromCharsWhole(token, number.signed_value)
            : json_number_detail::FromCharsWhole(token, number.unsigned_value);
    if (error == std::errc()) {
      number.kind =
          negative ? JsonNumber::Kind::kSigned : JsonNumber::Kind::kUnsigned;
      return number;
    }
  }
  const std::optional<double> value = json_number_detail::FiniteDouble(token);
  if (!value) return std::nullopt;
  number.kind = JsonNumber::Kind::kDouble;
  number.double_value = *value;
  return number;
}

// What a float field holds for `number`; nothing where protobuf refuses.
inline std::optional<float> JsonNumberToFloat(const JsonNumber& number) {
  switch (number.kind) {
    case JsonNumber::Kind::kUnsigned:
      return static_cast<float>(number.unsigned_value);
    case JsonNumber::Kind::kSigned:
      return static_cast<float>(number.signed_value);
    case JsonNumber::Kind::kDouble:
      break;
  }
  const float narrowed = static_cast<float>(number.double_value);
  if (std::isinf(narrowed)) return std::nullopt;
  return narrowed;
}

// What a 32-bit integer field holds for `number`; nothing where protobuf
// refuses.
inline std::optional<std::int32_t> JsonNumberToInt32(const JsonNumber& number) {
  switch (number.kind) {
    case JsonNumber::Kind::kUnsigned:
      if (number.unsigned_value > INT32_MAX) return std::nullopt;
      return static_cast<std::int32_t>(number.unsigned_value);
    case JsonNumber::Kind::kSigned:
      if (number.signed_value < INT32_MIN) return std::nullopt;
      return static_cast<std::int32_t>(number.signed_value);
    case JsonNumber::Kind::kDouble:
      break;
  }
  const double value = number.double_value;
  if (!(value >= INT32_MIN && value <= INT32_MAX) ||
      value != std::trunc(value)) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(value);
}

}  // namespace protomsg::internal

#endif  // PROTOMSG_INTERNAL_JSON_NUMBER_H_
