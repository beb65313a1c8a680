// Prints an AWB record straight as the JSON text of its message, without
// building the message: PrintJson(record) is byte for byte what
// MessageToJsonString with TuningFilePrintOptions() gives for the message
// that ConvertToMessage fills from `record`.
//
// That text, with the options of json_options.h, as protobuf 3.21 prints
// it: an object per message with one
// field per line in field-number order, indented one space per level,
// `"name": value` with the schema's snake_case names; every array at full
// capacity, one element per line (`[]` when empty); floats in the shortest
// of the %.6g and %.9g forms that reads back to the same float (so -0.0f is
// `-0`), non-finite floats as the strings "NaN", "Infinity", "-Infinity";
// sint32 and bool as JSON numbers and literals; enum values by name; a
// newline after the closing brace.
#ifndef PROTOMSG_INTERNAL_JSON_WRITER_H_
#define PROTOMSG_INTERNAL_JSON_WRITER_H_

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "awb_records/record_description.h"
#include "protomsg/internal/field_codec.h"
#include "protomsg/internal/json_options.h"
#include "protomsg/record_conversions.h"

namespace protomsg::internal {

// The one form this writer prints; a change of the options must come with
// a writer for the new form.
static_assert(kTuningFilePrintForm.add_whitespace,
              "the writer prints indented text");
static_assert(kTuningFilePrintForm.always_print_primitive_fields,
              "the writer prints every scalar");
static_assert(!kTuningFilePrintForm.always_print_enums_as_ints,
              "the writer prints enum values by name");
static_assert(kTuningFilePrintForm.preserve_proto_field_names,
              "the writer prints the schema's field names");

// The longest text one float takes: `"-Infinity"`, or a %.9g form such as
// -1.17549435e-38.
inline constexpr std::size_t kMaxFloatText = 16;

// Writes `value` as protobuf's JSON printer does and returns the end.
inline char* PrintFloat(float value, char* out) {
  if (std::isnan(value)) return std::strcpy(out, "\"NaN\"") + 5;
  if (std::isinf(value)) {
    return value > 0 ? std::strcpy(out, "\"Infinity\"") + 10
                     : std::strcpy(out, "\"-Infinity\"") + 11;
  }
  // Printed as a double by %g; the float converts exactly. Protobuf's
  // check of the short form reads it with strtof and takes any underflow
  // report as a failure, which a subnormal's short form always gets.
  const double wide = value;
  if (std::fpclassify(value) != FP_SUBNORMAL) {
    char* end = std::to_chars(out, out + kMaxFloatText, wide,
                              std::chars_format::general, 6)
                    .ptr;
    float back;
    // It always reads back (to_chars printed it); only the value may differ.
    const auto parsed = std::from_chars(out, end, back);
    const bool same = parsed.ec == std::errc() &&  // LCOV_EXCL_BR_LINE
                      back == value;
    if (same) return end;
  }
  return std::to_chars(out, out + kMaxFloatText, wide,
                       std::chars_format::general, 9)
      .ptr;
}

// How many fields `Record`'s field list has.
template <typename Record>
consteval std::size_t FieldCount() {
  std::size_t count = 0;
  Record record{};
  ForEachField(record, [&](const char*, const auto&) { ++count; });
  return count;
}

// The schema's name of a frame-summary message value.
inline std::string_view FrameSummaryName(
    qawb::tuning::QAWBFrameSummaryType value) {
  return qawb::tuning::QAWBFrameSummaryType_Name(value);
}

class JsonPrinter {
 public:
  // Room for the text of any `Record` value: the printer writes into a
  // buffer of this size without checking.
  template <typename Record>
  static std::size_t MaxSize() {
    static const std::size_t size = RecordBound<Record>(0);
    return size;
  }

  explicit JsonPrinter(char* out) : out_(out) {}

  char* end() const { return out_; }

  // Every record has fields, so the braces always stand on lines of their
  // own (an empty message would print as {}).
  template <typename Record>
  void PrintRecord(const Record& record, int depth) {
    static_assert(FieldCount<Record>() > 0);
    std::string_view before = "{\n";
    ForEachField(record, [&](const char* name, const auto& field) {
      Append(before);
      before = ",\n";
      Indent(depth + 1);
      Put('"');
      Append(name);
      Append("\": ");
      PrintField(field, depth + 1);
    });
    Put('\n');
    Indent(depth);
    Put('}');
  }

 private:
  template <typename Field>
  void PrintField(const Field& field, int depth) {
    if constexpr (std::is_array_v<Field>) {
      using Element = std::remove_all_extents_t<Field>;
      if constexpr (kFlatCapacity<Field> == 0) {
        Append("[]");
      } else {
        bool first = true;
        Put('[');
        ForEachFlat(field, [&](const Element& element) {
          if (!first) Put(',');
          first = false;
          Put('\n');
          Indent(depth + 1);
          PrintElement(element, depth + 1);
        });
        Put('\n');
        Indent(depth);
        Put(']');
      }
    } else {
      PrintElement(field, depth);
    }
  }

  template <typename Element>
  void PrintElement(const Element& element, int depth) {
    if constexpr (qawb::DescribedRecord<Element>) {
      PrintRecord(element, depth);
    } else if constexpr (kIsFrameSummary<Element>) {
      Put('"');
      Append(FrameSummaryName(ConvertToMessage(element)));
      Put('"');
    } else if constexpr (std::is_same_v<Element, float>) {
      out_ = PrintFloat(element, out_);
    } else if constexpr (std::is_same_v<Element, bool>) {
      Append(WidenScalar(element) ? std::string_view("true")
                                  : std::string_view("false"));
    } else {
      out_ = std::to_chars(out_, out_ + 11, WidenScalar(element)).ptr;
    }
  }

  void Put(char c) { *out_++ = c; }

  void Append(std::string_view text) {
    std::memcpy(out_, text.data(), text.size());
    out_ += text.size();
  }

  void Indent(int depth) {
    std::memset(out_, ' ', static_cast<std::size_t>(depth));
    out_ += depth;
  }

  // Upper bounds of the printed size at nesting depth `depth`.
  template <typename Element>
  static std::size_t ElementBound(int depth) {
    if constexpr (qawb::DescribedRecord<Element>) {
      return RecordBound<Element>(depth);
    } else if constexpr (kIsFrameSummary<Element>) {
      std::size_t longest = 0;
      for (int v = 0; v <= qawb::tuning::QAWBFrameSummaryType_MAX; ++v) {
        longest = std::max(
            longest,
            FrameSummaryName(static_cast<qawb::tuning::QAWBFrameSummaryType>(v))
                .size());
      }
      return longest + 2;
    } else if constexpr (std::is_same_v<Element, float>) {
      return kMaxFloatText;
    } else {
      return 11;  // -2147483648, true, false
    }
  }

  template <typename Record>
  static std::size_t RecordBound(int depth) {
    // Braces, the closing indent and a newline.
    std::size_t size = 3 + static_cast<std::size_t>(depth);
    const auto record = std::make_unique<Record>();
    ForEachField(*record, [&](const char* name, const auto& field) {
      using Field = std::remove_cvref_t<decltype(field)>;
      using Element = std::remove_all_extents_t<Field>;
      size += 2 + static_cast<std::size_t>(depth + 1) + std::strlen(name) + 4;
      if constexpr (std::is_array_v<Field>) {
        size +=
            4 + static_cast<std::size_t>(depth + 1) +
            kFlatCapacity<Field> * (2 + static_cast<std::size_t>(depth + 2) +
                                    ElementBound<Element>(depth + 2));
      } else {
        size += ElementBound<Element>(depth + 1);
      }
    });
    return size;
  }

  char* out_;
};

// The JSON text of `record`'s message into `text` (replacing its contents;
// its capacity is reused). Never fails.
template <typename Record>
void PrintJson(const Record& record, std::string& text) {
  text.resize(JsonPrinter::MaxSize<Record>());
  JsonPrinter printer(text.data());
  printer.PrintRecord(record, 0);
  char* end = printer.end();
  *end++ = '\n';
  text.resize(static_cast<std::size_t>(end - text.data()));
}

}  // namespace protomsg::internal

#endif  // PROTOMSG_INTERNAL_JSON_WRITER_H_
