// Prints an AWB record as a C++ aggregate initialiser that rebuilds exactly its
// bytes when compiled, so a table read at build time can be compiled into the
// library as constant data. Fields are walked generically through the records'
// field lists; zero fields are left out (designated initialisers zero them)
// and floats are printed as hexadecimal literals, which are exact.
#ifndef TOOLS_CODEGEN_RECORD_INITIALIZER_PRINTER_H_
#define TOOLS_CODEGEN_RECORD_INITIALIZER_PRINTER_H_

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string>
#include <type_traits>

#include "awb_records/qawb_shared_records.h"
#include "awb_records/record_description.h"

namespace q3a_codegen {
namespace internal {

template <typename T>
bool IsAllZeroBytes(const T& value) {
  unsigned char bytes[sizeof(T)];
  std::memcpy(bytes, &value, sizeof(T));
  for (unsigned char byte : bytes) {
    if (byte != 0) return false;
  }
  return true;
}

inline void Indent(std::string& out, int depth) {
  out.append(static_cast<std::size_t>(2 * depth), ' ');
}

// Returns false for values a C++ literal cannot spell (NaN, infinities).
inline bool AppendFloat(std::string& out, float value) {
  if (!std::isfinite(value)) return false;
  char text[48];
  std::snprintf(text, sizeof(text), "%af", static_cast<double>(value));
  out += text;
  return true;
}

template <typename T>
bool AppendValue(std::string& out, const T& value, int depth);

// Arrays of scalars stay on one line; arrays of records take a line per
// element. Trailing zero elements are left out.
template <typename Element, std::size_t kSize>
bool AppendArray(std::string& out, const Element (&array)[kSize], int depth) {
  std::size_t used = kSize;
  while (used > 0 && IsAllZeroBytes(array[used - 1])) --used;
  constexpr bool kOneLine = std::is_arithmetic_v<Element> ||
                            std::is_enum_v<Element> || std::is_array_v<Element>;
  out += '{';
  for (std::size_t i = 0; i < used; ++i) {
    if (i > 0) out += kOneLine ? ", " : ",";
    if (!kOneLine) {
      out += '\n';
      Indent(out, depth + 1);
    }
    if (!AppendValue(out, array[i], depth + 1)) return false;
  }
  out += '}';
  return true;
}

template <typename T>
bool AppendValue(std::string& out, const T& value, int depth) {
  if constexpr (std::is_same_v<T, bool>) {
    out += value ? "true" : "false";
  } else if constexpr (std::is_same_v<T, float>) {
    return AppendFloat(out, value);
  } else if constexpr (std::is_enum_v<T>) {
    out += "static_cast<::qawb::QAWBFrameSummaryType>(" +
           std::to_string(static_cast<long long>(value)) + ")";
  } else if constexpr (std::is_integral_v<T>) {
    out += std::to_string(static_cast<long long>(value));
  } else if constexpr (std::is_array_v<T>) {
    return AppendArray(out, value, depth);
  } else {
    static_assert(qawb::DescribedRecord<T>);
    if (IsAllZeroBytes(value)) {
      out += "{}";
      return true;
    }
    bool ok = true;
    bool first = true;
    out += '{';
    ForEachField(value, [&](const char* name, const auto& field) {
      if (!ok || IsAllZeroBytes(field)) return;
      out += first ? "\n" : ",\n";
      first = false;
      Indent(out, depth + 1);
      out += '.';
      out += name;
      out += " = ";
      ok = AppendValue(out, field, depth + 1);
    });
    out += '}';
    return ok;
  }
  return true;
}

}  // namespace internal

// Appends an initialiser of `record` to `out`. Returns false (leaving `out`
// partly written) if a float is NaN or infinite.
template <qawb::DescribedRecord Record>
bool AppendInitializer(std::string& out, const Record& record) {
  return internal::AppendValue(out, record, 0);
}

}  // namespace q3a_codegen

#endif  // TOOLS_CODEGEN_RECORD_INITIALIZER_PRINTER_H_
