// Field-by-field comparison of two records of the same type, walked through
// the records' field lists, so every field the conversions carry is compared
// and named by its JSON path.
#ifndef TOOLS_Q3A_TUNING_IO_RECORD_DIFF_H_
#define TOOLS_Q3A_TUNING_IO_RECORD_DIFF_H_

#include <fmt/format.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "awb_records/qawb_shared_records.h"
#include "awb_records/record_description.h"
#include "libs_v4/qAWB/proto/qawb_tuning.pb.h"
#include "protomsg/record_conversions.h"

namespace q3a_tool {

struct Difference {
  std::string path;  // "region_list.region_bv_list[3].bv_value"
  std::string old_value;
  std::string new_value;
};

namespace internal {

// Values print as the JSON tuning file shows them: floats in their shortest
// exact form, frame-summary kinds by name (with the stored number where the
// name does not tell it, as for every value the message calls invalid).
template <typename T>
std::string FormatValue(const T& value) {
  if constexpr (std::is_same_v<T, bool>) {
    return qawb::StoredByte(value) != 0 ? "true" : "false";
  } else if constexpr (std::is_same_v<T, qawb::QAWBFrameSummaryType>) {
    const auto message_value = protomsg::ConvertToMessage(value);
    const std::string& name =
        qawb::tuning::QAWBFrameSummaryType_Name(message_value);
    if (protomsg::ConvertToStruct(message_value) == value) return name;
    return fmt::format("{} (stored {})", name,
                       static_cast<std::int32_t>(value));
  } else if constexpr (std::is_floating_point_v<T>) {
    return fmt::format("{}", value);
  } else {
    return fmt::format("{}", static_cast<std::int64_t>(value));
  }
}

template <typename T>
bool SameValue(const T& a, const T& b, double tolerance) {
  if constexpr (std::is_floating_point_v<T>) {
    if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
    return a == b || std::fabs(static_cast<double>(a) - b) <= tolerance;
  } else if constexpr (std::is_same_v<T, bool>) {
    return qawb::StoredByte(a) == qawb::StoredByte(b);
  } else {
    return a == b;
  }
}

class RecordDiffer {
 public:
  explicit RecordDiffer(double tolerance) : tolerance_(tolerance) {}

  template <typename T>
  void Compare(const T& a, const T& b, const std::string& path) {
    if constexpr (std::is_array_v<T> && std::rank_v < T >> 1) {
      // The flag matrix is one flat list in the message, so in paths too.
      using Element = std::remove_all_extents_t<T>;
      const auto* flat_a = reinterpret_cast<const Element*>(&a);
      const auto* flat_b = reinterpret_cast<const Element*>(&b);
      for (std::size_t i = 0; i < sizeof(T) / sizeof(Element); ++i) {
        Compare(flat_a[i], flat_b[i], fmt::format("{}[{}]", path, i));
      }
    } else if constexpr (std::is_array_v<T>) {
      for (std::size_t i = 0; i < std::extent_v<T>; ++i) {
        Compare(a[i], b[i], fmt::format("{}[{}]", path, i));
      }
    } else if constexpr (qawb::DescribedRecord<T>) {
      qawb::ForEachFieldPair(a, b, [&](const char* name, const auto& field_a,
                                       const auto& field_b) {
        Compare(field_a, field_b,
                path.empty() ? std::string(name)
                             : fmt::format("{}.{}", path, name));
      });
    } else if (!SameValue(a, b, tolerance_)) {
      differences_.push_back({path, FormatValue(a), FormatValue(b)});
    }
  }

  std::vector<Difference> Take() { return std::move(differences_); }

 private:
  double tolerance_;
  std::vector<Difference> differences_;
};

}  // namespace internal

// Every field of `a` and `b` that differs, in layout order. Floats within
// `tolerance` of each other count as equal; NaN equals only NaN. Padding is
// not compared.
template <typename Record>
std::vector<Difference> DiffRecords(const Record& a, const Record& b,
                                    double tolerance = 0.0) {
  internal::RecordDiffer differ(tolerance);
  differ.Compare(a, b, "");
  return differ.Take();
}

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_RECORD_DIFF_H_
