// Reads the JSON text of an AWB record's message straight into the record,
// tokenised by simdjson's On-Demand API: when ReadCanonicalJson returns
// true, `record` holds exactly what parsing the text with JsonStringToMessage
// and TuningFileParseOptions() and then calling ConvertToStruct gives.
//
// It takes the forms the writer prints and those people commonly write: any
// key order and whitespace, snake_case or lowerCamelCase names, enum values
// by name, arrays longer than the record holds (the rest are still checked),
// and every number protobuf takes without quotes, for float and integer
// fields alike. simdjson only finds the structure: a number's value comes
// from its token text, read as protobuf reads it (json_number.h), never
// from simdjson's number parsing. Anything it is not certain of protobuf's
// answer for makes it return false without deciding: duplicate keys,
// `null`, escapes in keys or enum names, numbers and booleans as strings,
// "NaN" and the infinities, enum values as numbers, unknown keys, anything
// that is not strict JSON, invalid UTF-8, text after the object. The caller
// then asks protobuf, which also refuses what the reader finds out of range.
// On false `record` is partly written and must be discarded.
#ifndef PROTOMSG_INTERNAL_JSON_READER_H_
#define PROTOMSG_INTERNAL_JSON_READER_H_

#include <simdjson.h>

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <type_traits>

#include "awb_records/record_description.h"
#include "protomsg/internal/field_codec.h"
#include "protomsg/internal/json_number.h"
#include "protomsg/internal/json_writer.h"
#include "protomsg/internal/message_for.h"
#include "protomsg/internal/wire_format.h"
#include "protomsg/record_conversions.h"

namespace protomsg::internal {

namespace ondemand = simdjson::ondemand;

class JsonRecordReader {
 public:
  // Reads the members of `object` into `record`, after setting the record's
  // scalars to what a message without them converts to.
  template <typename Record>
  static bool ReadObject(ondemand::object object, Record& record) {
    ResetScalars(record);
    const FieldTable<Record>& table = FieldTableOf<Record>();
    std::bitset<FieldCount<Record>()> seen;
    std::size_t next = 0;
    for (auto member : object) {
      ondemand::field field;
      std::string_view key;
      if (std::move(member).get(field) || !PlainString(field.key(), key)) {
        return false;
      }
      const std::size_t index = table.Find(key, next);
      if (index == kNotFound || seen[index]) return false;
      seen[index] = true;
      next = index + 1;
      const FieldEntry& entry = table.entries[index];
      if (!entry.read(field.value(),
                      reinterpret_cast<char*>(&record) + entry.offset)) {
        return false;
      }
    }
    return true;
  }

 private:
  static constexpr std::size_t kNotFound = ~std::size_t{0};

  // One field of a record: its two JSON names, where it lives in the record
  // and how to read its value there.
  struct FieldEntry {
    std::string_view name;
    std::string_view json_name;
    std::ptrdiff_t offset;
    bool (*read)(ondemand::value value, char* field);
  };

  template <typename Record>
  struct FieldTable {
    std::array<FieldEntry, FieldCount<Record>()> entries;

    // The writer's order is tried first: `next` is the field after the
    // previous key's.
    std::size_t Find(std::string_view key, std::size_t next) const {
      if (next < entries.size() &&
          (entries[next].name == key || entries[next].json_name == key)) {
        return next;
      }
      for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].name == key || entries[i].json_name == key) return i;
      }
      return kNotFound;
    }
  };

  // Names from the generated descriptor, whose fields are in the order of
  // the record's field list; built once per record type.
  template <typename Record>
  static const FieldTable<Record>& FieldTableOf() {
    static const FieldTable<Record>* const table = [] {
      auto* made = new FieldTable<Record>;
      const auto* descriptor = MessageFor<Record>::type::descriptor();
      const auto record = std::make_unique<Record>();
      int index = 0;
      ForEachField(*record, [&](const char*, auto& field) {
        using Field = std::remove_cvref_t<decltype(field)>;
        const auto* described = descriptor->field(index);
        made->entries[static_cast<std::size_t>(index)] = {
            described->name(), described->json_name(),
            reinterpret_cast<const char*>(&field) -
                reinterpret_cast<const char*>(record.get()),
            &ReadFieldAt<Field>};
        ++index;
      });
      return made;
    }();
    return *table;
  }

  // The text of a string without escapes; false for one with any.
  static bool PlainString(ondemand::raw_json_string raw,
                          std::string_view& text) {
    const char* begin = raw.raw();
    const char* end = begin;
    // The structural index guarantees a closing quote.
    while (*end != '"') {
      if (*end == '\\') return false;
      ++end;
    }
    text = std::string_view(begin, static_cast<std::size_t>(end - begin));
    return true;
  }

  // A scalar's text: simdjson's token without the whitespace after it.
  static std::string_view ScalarText(ondemand::value& value) {
    std::string_view token = value.raw_json_token();
    while (!token.empty() && (token.back() == ' ' || token.back() == '\n' ||
                              token.back() == '\r' || token.back() == '\t')) {
      token.remove_suffix(1);
    }
    return token;
  }

  template <typename Record>
  static void ResetScalars(Record& record) {
    ForEachField(record, [](const char*, auto& field) {
      using Field = std::remove_cvref_t<decltype(field)>;
      if constexpr (qawb::DescribedRecord<Field>) {
        ResetScalars(field);
      } else if constexpr (kIsFrameSummary<Field>) {
        field = ConvertToStruct(qawb::tuning::QAWBFrameSummaryType{});
      } else if constexpr (!std::is_array_v<Field>) {
        field = Field{};
      }
    });
  }

  template <typename Field>
  static bool ReadFieldAt(ondemand::value value, char* field) {
    return ReadField(value, *reinterpret_cast<Field*>(field));
  }

  // Arrays take min(elements, capacity) elements; the rest are read into a
  // throwaway element, since protobuf rejects the text if one is invalid.
  template <typename Field>
  static bool ReadField(ondemand::value value, Field& field) {
    if constexpr (std::is_array_v<Field>) {
      using Element = std::remove_all_extents_t<Field>;
      ondemand::array array;
      if (value.get_array().get(array)) return false;
      std::size_t count = 0;
      for (auto item : array) {
        ondemand::value element;
        if (std::move(item).get(element)) return false;
        if (count < kFlatCapacity<Field>) {
          if (!ReadElement(element, FlatAt(field, count))) return false;
        } else {
          const auto extra = std::make_unique<Element>();
          if (!ReadElement(element, *extra)) return false;
        }
        ++count;
      }
      return true;
    } else {
      return ReadElement(value, field);
    }
  }

  template <typename Element>
  static bool ReadElement(ondemand::value value, Element& element) {
    if constexpr (qawb::DescribedRecord<Element>) {
      ondemand::object object;
      return !value.get_object().get(object) && ReadObject(object, element);
    } else if constexpr (kIsFrameSummary<Element>) {
      return ReadFrameSummary(value, element);
    } else if constexpr (std::is_same_v<Element, float>) {
      const auto number = ParseJsonNumber(ScalarText(value));
      const auto narrowed = number ? JsonNumberToFloat(*number) : std::nullopt;
      if (!narrowed) return false;
      element = *narrowed;
      return true;
    } else if constexpr (std::is_same_v<Element, bool>) {
      const std::string_view text = ScalarText(value);
      if (text != "true" && text != "false") return false;
      element = text.size() == 4;
      return true;
    } else {
      const auto number = ParseJsonNumber(ScalarText(value));
      const auto integer = number ? JsonNumberToInt32(*number) : std::nullopt;
      if (!integer) return false;
      element = NarrowScalar<Element>(*integer);
      return true;
    }
  }

  static bool ReadFrameSummary(ondemand::value value,
                               qawb::QAWBFrameSummaryType& element) {
    ondemand::raw_json_string raw;
    std::string_view name;
    if (value.get_raw_json_string().get(raw) || !PlainString(raw, name)) {
      return false;
    }
    for (int v = 0; v <= qawb::tuning::QAWBFrameSummaryType_MAX; ++v) {
      const auto type = static_cast<qawb::tuning::QAWBFrameSummaryType>(v);
      if (FrameSummaryName(type) == name) {
        element = ConvertToStruct(type);
        return true;
      }
    }
    return false;
  }
};

// The fast path on `text`: true with `record` read if the text is in the
// forms above, false otherwise (then `record` is partly written). `parser`
// keeps its buffers between calls.
template <typename Record>
bool ReadCanonicalJson(ondemand::parser& parser,
                       simdjson::padded_string_view text, Record& record) {
  ondemand::document document;
  ondemand::object object;
  if (parser.iterate(text).get(document) || document.get_object().get(object) ||
      !JsonRecordReader::ReadObject(object, record)) {
    return false;
  }
  // Anything after the object, even valid JSON, is protobuf's to judge.
  return document.current_location().error() == simdjson::OUT_OF_BOUNDS;
}

}  // namespace protomsg::internal

#endif  // PROTOMSG_INTERNAL_JSON_READER_H_
