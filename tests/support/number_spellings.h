// Hard spellings of numbers for JSON tuning files, generated family by
// family from a source of choices, so a test can draw thousands from fixed
// seeds and a fuzz target can draw them from its input: many significant
// digits with an integer part of 0, runs of zeros, exponents far out,
// decimals at and next to the midpoint between two floats, the float range's
// edges, integers past 2^53 and 2^64, negative zero, integer forms, and the
// forms protobuf's parser takes beyond JSON.
#ifndef TESTS_SUPPORT_NUMBER_SPELLINGS_H_
#define TESTS_SUPPORT_NUMBER_SPELLINGS_H_

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

namespace q3a_test {

enum class NumberFamily : int {
  kZeroIntegerPart,
  kSignificantDigits,
  kZeroRuns,
  kExponents,
  kMidpoints,
  kFloatEdges,
  kBigIntegers,
  kNegativeZero,
  kIntegerForms,
  kBeyondJson,
  kCount,
};

inline constexpr std::array<std::string_view,
                            static_cast<int>(NumberFamily::kCount)>
    kNumberFamilyNames = {"zero_integer_part", "significant_digits",
                          "zero_runs",         "exponents",
                          "midpoints",         "float_edges",
                          "big_integers",      "negative_zero",
                          "integer_forms",     "beyond_json"};

// `Pick` is called as pick(lo, hi) and returns an integer in [lo, hi].
template <typename Pick>
class NumberSpeller {
 public:
  explicit NumberSpeller(Pick& pick) : pick_(pick) {}

  std::string Spell(NumberFamily family) {
    switch (family) {
      case NumberFamily::kZeroIntegerPart: {
        std::string text = Sign() + "0.";
        text += Digits(Choose(1, 80), false);
        return text + MaybeExponent();
      }
      case NumberFamily::kSignificantDigits:
        return SignificantDigits();
      case NumberFamily::kZeroRuns:
        return ZeroRuns();
      case NumberFamily::kExponents:
        return Exponents();
      case NumberFamily::kMidpoints: {
        const std::string sign = Sign();
        return sign + Tweak(Midpoint(RandomFloat()));
      }
      case NumberFamily::kFloatEdges:
        return FloatEdge();
      case NumberFamily::kBigIntegers:
        return BigInteger();
      case NumberFamily::kNegativeZero:
        return NegativeZero();
      case NumberFamily::kIntegerForms:
        return IntegerForm();
      case NumberFamily::kBeyondJson:
      case NumberFamily::kCount:
        break;
    }
    return BeyondJson();
  }

 private:
  int Choose(int lo, int hi) { return static_cast<int>(pick_(lo, hi)); }

  template <std::size_t N>
  std::string_view OneOf(const std::array<std::string_view, N>& list) {
    return list[static_cast<std::size_t>(Choose(0, static_cast<int>(N) - 1))];
  }

  std::string Sign() { return Choose(0, 2) == 0 ? "-" : ""; }

  std::string Digits(int count, bool first_nonzero) {
    std::string text;
    for (int i = 0; i < count; ++i) {
      text += static_cast<char>('0' + Choose(i == 0 && first_nonzero, 9));
    }
    return text;
  }

  // e or E, an optional sign, leading zeros, then `value`.
  std::string Exponent(int value) {
    std::string text = Choose(0, 1) ? "e" : "E";
    if (value < 0) {
      text += '-';
    } else if (Choose(0, 1)) {
      text += '+';
    }
    text += std::string(Choose(0, 2) == 0 ? Choose(1, 30) : 0, '0');
    return text + std::to_string(std::abs(value));
  }

  std::string MaybeExponent() {
    return Choose(0, 3) == 0 ? Exponent(Choose(-50, 50)) : "";
  }

  // Parts of one spelling are drawn in separate statements, so the draws
  // come in the same order whatever the compiler.
  std::string ZeroRuns() {
    std::string text = Sign();
    text += Choose(0, 1) ? "0" : Digits(Choose(1, 3), true);
    text += "." + std::string(Choose(0, 45), '0');
    text += Digits(Choose(1, 20), true);
    text += std::string(Choose(0, 120), '0');
    return text + MaybeExponent();
  }

  // 1 to 80 significant digits with the point anywhere, scaled back near
  // the float range by the exponent.
  std::string SignificantDigits() {
    const std::string sign = Sign();
    const int count = Choose(1, 80);
    const std::string digits = Digits(count, true);
    const int point = Choose(0, count);
    std::string text = sign + (point == 0 ? "0" : digits.substr(0, point));
    if (point < count) text += "." + digits.substr(point);
    if (Choose(0, 1)) text += Exponent(Choose(-46, 39) - point + 1);
    return text;
  }

  std::string Exponents() {
    const std::string sign = Sign();
    std::string mantissa = Digits(Choose(1, 25), Choose(0, 3) != 0);
    if (Choose(0, 1)) {
      mantissa.insert(static_cast<std::size_t>(
                          Choose(1, static_cast<int>(mantissa.size()))),
                      ".");
      if (mantissa.back() == '.') mantissa += '0';
    }
    if (mantissa.size() > 1 && mantissa[0] == '0' && mantissa[1] != '.') {
      mantissa[0] = '1';
    }
    if (Choose(0, 7) == 0) {  // past any int: 1e99999999999999999999
      std::string text = Choose(0, 1) ? "e" : "E";
      if (Choose(0, 2) > 0) text += Choose(0, 1) ? "-" : "+";
      text += std::string(Choose(0, 2), '0');
      return sign + mantissa + text + Digits(Choose(4, 25), true);
    }
    return sign + mantissa + Exponent(Choose(-400, 400));
  }

  // A finite positive float of random bits (subnormals included).
  float RandomFloat() {
    const auto high = static_cast<std::uint32_t>(Choose(0, 0x7F7F));
    const auto low = static_cast<std::uint32_t>(Choose(0, 0xFFFF));
    return std::bit_cast<float>(high << 16 | low);
  }

  // The exact decimal of the midpoint between `value` and the next float
  // up, which a double holds exactly.
  static double Midpoint(float value) {
    const float up = std::nextafter(value, std::numeric_limits<float>::max());
    return static_cast<double>(value) +
           (static_cast<double>(up) - static_cast<double>(value)) / 2;
  }

  // Every digit of `value` (a double of few significant bits), as
  // d.ddd...e±x with no trailing zeros.
  static std::string ExactDecimal(double value) {
    char buffer[400];
    std::snprintf(buffer, sizeof(buffer), "%.200e", value);
    std::string text = buffer;
    const std::size_t e = text.find('e');
    std::size_t last = e;
    while (text[last - 1] == '0') --last;
    if (text[last - 1] == '.') --last;
    return text.substr(0, last) + text.substr(e);
  }

  // `value` exactly, or just above or below it, or rounded to a few
  // digits: written with at least 40 significant digits except in the last
  // case, in exponent or plain form.
  std::string Tweak(double value) {
    std::string text = ExactDecimal(value);
    const std::size_t e = text.find('e');
    std::string mantissa = text.substr(0, e);
    const int exponent = std::stoi(text.substr(e + 1));
    if (mantissa.size() == 1) mantissa += '.';
    const auto pad = [&](std::size_t length) {
      if (mantissa.size() < length)
        mantissa.append(length - mantissa.size(), '0');
    };
    switch (Choose(0, 3)) {
      case 0:  // exact
        pad(static_cast<std::size_t>(Choose(41, 90)));
        break;
      case 1:  // a hair above
        pad(static_cast<std::size_t>(Choose(41, 90)));
        mantissa += std::string(Choose(0, 20), '0') + "1";
        break;
      case 2: {  // a hair below: the last digit one less, then nines
        std::size_t at = mantissa.size() - 1;
        while (mantissa[at] == '0' || mantissa[at] == '.') --at;
        mantissa[at] = static_cast<char>(mantissa[at] - 1);
        pad(static_cast<std::size_t>(Choose(41, 90)));
        mantissa += std::string(Choose(1, 20), '9');
        break;
      }
      default: {  // rounded
        char buffer[80];
        std::snprintf(buffer, sizeof(buffer), "%.*e", Choose(0, 12), value);
        return buffer;
      }
    }
    if (exponent >= -20 && exponent <= 20 && Choose(0, 1)) {
      return PlainForm(mantissa, exponent);
    }
    return mantissa + Exponent(exponent);
  }

  // d.ddd × 10^exponent without an exponent.
  static std::string PlainForm(const std::string& mantissa, int exponent) {
    std::string digits = mantissa.substr(0, 1) + mantissa.substr(2);
    if (exponent < 0) {
      return "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') +
             digits;
    }
    const auto point = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= point) digits.append(point - digits.size() + 1, '0');
    return digits.substr(0, point) + "." + digits.substr(point);
  }

  std::string FloatEdge() {
    constexpr double kFloatMax = std::numeric_limits<float>::max();
    // Past the largest float, halfway to the next power of two: the first
    // value that rounds to infinity.
    constexpr double kInfinityEdge = 0x1.ffffffp127;
    constexpr std::array<double, 9> kEdges = {
        kFloatMax,  kInfinityEdge,   0x1p-126, 0x1p-149,       0x1p-150,
        0x1.8p-149, 0x1.fffffcp-127, 0x1p128,  0x1.fffffep-127};
    const std::string sign = Sign();
    const int which = Choose(0, static_cast<int>(kEdges.size()));
    if (which == static_cast<int>(kEdges.size())) {
      // A random subnormal, or the midpoint above one.
      const float value =
          std::bit_cast<float>(static_cast<std::uint32_t>(Choose(1, 0x7FFFFF)));
      const double target =
          Choose(0, 1) ? static_cast<double>(value) : Midpoint(value);
      return sign + Tweak(target);
    }
    return sign + Tweak(kEdges[static_cast<std::size_t>(which)]);
  }

  // `value` (up to 2^127) in decimal.
  static std::string Decimal(unsigned __int128 value) {
    std::string text;
    do {
      text.insert(text.begin(), static_cast<char>('0' + value % 10));
      value /= 10;
    } while (value != 0);
    return text;
  }

  std::string BigInteger() {
    using U128 = unsigned __int128;
    const std::string sign = Sign();
    U128 value = 0;
    switch (Choose(0, 4)) {
      case 0: {  // next to 2^53, 2^63 or 2^64
        const int power = Choose(0, 2) == 0 ? 53 : Choose(63, 64);
        value = (U128{1} << power) - 2000 + static_cast<U128>(Choose(0, 4000));
        break;
      }
      case 1: {  // at and next to a float midpoint between 2^54 and 2^100
        const int power = Choose(54, 100);
        value = (U128{1} << power) +
                (static_cast<U128>(Choose(0, 0xFFFFFF)) << (power - 24)) +
                (U128{1} << (power - 25)) - 3;
        value += static_cast<U128>(Choose(0, 6));
        break;
      }
      default: {
        const std::string digits = Digits(Choose(16, 45), true);
        return sign + digits + (Choose(0, 3) == 0 ? ".0" : "");
      }
    }
    return sign + Decimal(value) + (Choose(0, 3) == 0 ? "e0" : "");
  }

  std::string NegativeZero() {
    static constexpr std::array<std::string_view, 16> kForms = {
        "-0",     "-0.0",    "-0e5",        "-0.000e-10",
        "-0E+0",  "-0e-400", "-0.0e400",    "-0.",
        "-00",    "-00.0",   "\"-0\"",      "\"-0.0\"",
        "-0x0.0", "-1e-400", "\"-1e-400\"", "-0.0E-0000"};
    if (Choose(0, 1)) return std::string(OneOf(kForms));
    std::string text = "-0";
    if (Choose(0, 1)) text += "." + std::string(Choose(1, 60), '0');
    if (Choose(0, 1)) text += Exponent(Choose(-400, 400));
    return text;
  }

  std::string IntegerForm() {
    static constexpr std::array<std::string_view, 24> kForms = {
        "2147483647",
        "2147483648",
        "-2147483648",
        "-2147483649",
        "1e2",
        "1.0",
        "1.5",
        "\"12\"",
        "\"-7\"",
        "2147483647.0",
        "-2147483648.0",
        "2147483647.5",
        "4294967296",
        "1E9",
        "1e10",
        "21474836470e-1",
        "0.1e1",
        "-0.0",
        "1e-400",
        "\"1e2\"",
        "2147483646.99999999999999999",
        "-2147483648.00000000001",
        "\" 5\"",
        "9223372036854775808"};
    if (Choose(0, 1)) return std::string(OneOf(kForms));
    static constexpr std::array<std::string_view, 6> kSuffixes = {
        "", ".0", "e0", ".5", "0e-1", ".000000000000000000001"};
    std::string text = std::to_string(Choose(-100000, 100000));
    text += OneOf(kSuffixes);
    return Choose(0, 4) == 0 ? "\"" + text + "\"" : text;
  }

  std::string BeyondJson() {
    static constexpr std::array<std::string_view, 44> kForms = {
        "01.5", "00.5", "-01.5", "1.", "-1.", "1.e5", "0x1.8", "0xe", "-0x1.8",
        "0x.8", "0x1e", "007", "01", "\"1.5\"", "\" 1.5\"", "\"1.5 \"",
        "\"NaN\"", "\"Infinity\"", "\"-Infinity\"", "\"nan\"", "\"inf\"",
        "\"0x10\"", "+1", ".5", "-.5", "1e", "1e+", "1.5.5", "1e5.5", "--1",
        "1-2", "0x", "Infinity", "NaN", "\"3.4028235e38\"", "1x", "-", "0.5\"",
        "1.5e+-3", "\"\\u0031\"",
        // 'x' continues any number token, so it can stand anywhere in one.
        "1e5x", "-1.5e-1x0", "2x5", "0.5x"};
    return std::string(OneOf(kForms));
  }

  Pick& pick_;
};

template <typename Pick>
std::string SpellNumber(NumberFamily family, Pick& pick) {
  return NumberSpeller<Pick>(pick).Spell(family);
}

}  // namespace q3a_test

#endif  // TESTS_SUPPORT_NUMBER_SPELLINGS_H_
