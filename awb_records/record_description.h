// Compile-time description of the AWB records.
//
// Each record declares its fields once, as an X-macro list in layout order
// (`#define QAWB_GAINS_FIELDS(X) X(r_gain) X(g_gain) X(b_gain)`), and
// QAWB_DESCRIBE_RECORD turns that list into ForEachField, a visitor over the
// record's fields by name. Generic code (conversions, test data, printers)
// walks records through it instead of naming fields by hand. The description
// also proves the list complete: the listed fields plus the declared padding
// must fill the record exactly.
#ifndef AWB_RECORDS_RECORD_DESCRIPTION_H_
#define AWB_RECORDS_RECORD_DESCRIPTION_H_

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace qawb::internal {

// Calls `visit(name, field)` for every listed field of `record`, in order.
// Declared per record by QAWB_DESCRIBE_RECORD; found by argument-dependent
// lookup, so callers write `ForEachField(record, visit)` unqualified.
#define QAWB_INTERNAL_VISIT_FIELD(f) visit(#f, self.f);

template <typename Record>
consteval std::size_t ListedFieldBytes() {
  std::size_t bytes = 0;
  Record record{};
  ForEachField(record,
               [&](const char*, const auto& field) { bytes += sizeof(field); });
  return bytes;
}

}  // namespace qawb::internal

#define QAWB_DESCRIBE_RECORD_WITH_PADDING(Record, FIELDS, padding_bytes) \
  template <typename Self, typename Visitor>                             \
  requires std::same_as<std::remove_const_t<Self>, Record>               \
  constexpr void ForEachField(Self& self, Visitor&& visit) {             \
    FIELDS(QAWB_INTERNAL_VISIT_FIELD)                                    \
  }                                                                      \
  static_assert(std::is_trivially_copyable_v<Record> &&                  \
                std::is_standard_layout_v<Record>);                      \
  static_assert(                                                         \
      ::qawb::internal::ListedFieldBytes<Record>() + (padding_bytes) ==  \
          sizeof(Record),                                                \
      "the field list of " #Record " misses a field")

#define QAWB_DESCRIBE_RECORD(Record, FIELDS) \
  QAWB_DESCRIBE_RECORD_WITH_PADDING(Record, FIELDS, 0)

namespace qawb {

// A record type described by QAWB_DESCRIBE_RECORD.
template <typename T>
concept DescribedRecord = requires(T& record) {
  ForEachField(record, [](const char*, auto&) {});
};

// Calls `visit(name, field_of_a, field_of_b)` for every listed field of two
// records of the same type, in order: one walk where two records are compared
// or merged field by field.
template <DescribedRecord Record, typename Other, typename Visitor>
requires std::same_as<std::remove_const_t<Record>, std::remove_const_t<Other>>
void ForEachFieldPair(Record& a, Other& b, Visitor&& visit) {
  using OtherBytes =
      std::conditional_t<std::is_const_v<Other>, const char, char>;
  ForEachField(a, [&](const char* name, auto& field_of_a) {
    using Field = std::remove_cvref_t<decltype(field_of_a)>;
    using OtherField =
        std::conditional_t<std::is_const_v<Other>, const Field, Field>;
    const std::ptrdiff_t offset = reinterpret_cast<const char*>(&field_of_a) -
                                  reinterpret_cast<const char*>(&a);
    visit(name, field_of_a,
          *reinterpret_cast<OtherField*>(reinterpret_cast<OtherBytes*>(&b) +
                                         offset));
  });
}

// The byte a bool is stored in. A table restored from a tuning binary file may
// hold any byte there, and loading it as a bool would be undefined.
inline std::uint8_t StoredByte(const bool& value) {
  std::uint8_t byte;
  std::memcpy(&byte, &value, sizeof(byte));
  return byte;
}

}  // namespace qawb

#endif  // AWB_RECORDS_RECORD_DESCRIPTION_H_
