// JSON tuning files whose numbers are written in chosen spellings: the
// writer's text of a table whose floats and integers all hold a marker
// value, with each marker token replaced in turn by the next spelling.
#ifndef TESTS_SUPPORT_SPELLED_TABLES_H_
#define TESTS_SUPPORT_SPELLED_TABLES_H_

#include <google/protobuf/util/json_util.h>

#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "awb_records/qawb_basic_tuning_table.h"
#include "awb_records/record_description.h"
#include "protomsg/internal/json_number.h"
#include "protomsg/internal/json_options.h"
#include "protomsg/internal/json_writer.h"
#include "protomsg/internal/message_for.h"
#include "tests/support/number_spellings.h"
#include "tests/support/record_leaves.h"
#include "tests/support/record_values.h"

namespace q3a_test {

// Choices from a fixed-seed generator.
struct SeededPick {
  std::mt19937 engine;
  int operator()(int lo, int hi) {
    return std::uniform_int_distribution<int>(lo, hi)(engine);
  }
};

// `per_seed` spellings of `family` from each of the seeds 1..`seeds`.
inline std::vector<std::string> FamilySpellings(NumberFamily family, int seeds,
                                                int per_seed) {
  std::vector<std::string> spellings;
  for (int seed = 1; seed <= seeds; ++seed) {
    SeededPick pick{std::mt19937(
        static_cast<unsigned>(seed * 1000 + static_cast<int>(family)))};
    for (int i = 0; i < per_seed; ++i) {
      spellings.push_back(SpellNumber(family, pick));
    }
  }
  return spellings;
}

// Spellings sorted by protobuf's verdict for a float and for a sint32
// field.
struct SortedSpellings {
  std::vector<std::string> floats;    // taken for a float
  std::vector<std::string> integers;  // taken for a sint32
  std::string refused_float;          // the last refused for a float, if any
};

inline SortedSpellings SortByProtobuf(
    const std::vector<std::string>& spellings) {
  using Message = protomsg::internal::MessageFor<qawb::QAWBStatsResize>::type;
  const auto takes = [](const std::string& key, const std::string& value) {
    Message message;
    return google::protobuf::util::JsonStringToMessage(
               "{\"" + key + "\": " + value + "}", &message,
               protomsg::internal::TuningFileParseOptions())
        .ok();
  };
  SortedSpellings sorted;
  for (const std::string& spelling : spellings) {
    if (takes("crop_maximum_ratio", spelling)) {
      sorted.floats.push_back(spelling);
    } else {
      sorted.refused_float = spelling;
    }
    if (takes("zoom_crop_enable_flag", spelling)) {
      sorted.integers.push_back(spelling);
    }
  }
  return sorted;
}

// Printed "1.25" and "77"; no other scalar of the marked table prints so.
inline constexpr float kFloatMarker = 1.25f;
inline constexpr int kIntegerMarker = 77;

template <typename Record>
std::unique_ptr<Record> MarkedRecord() {
  auto record = MakeRecord<Record>(1);
  ForEachLeaf(*record, [](auto& field) {
    using Field = std::remove_cvref_t<decltype(field)>;
    if constexpr (std::is_same_v<Field, float>) {
      field = kFloatMarker;
    } else if constexpr (std::is_integral_v<Field> &&
                         !std::is_same_v<Field, bool>) {
      field = static_cast<Field>(kIntegerMarker);
    }
  });
  return record;
}

// `text` with every number token "1.25" replaced by the next of `floats` and
// every "77" by the next of `integers` (in turn, starting again after the
// last; an empty list leaves its marker). Quoted text is left alone.
inline std::string Respell(std::string_view text,
                           const std::vector<std::string>& floats,
                           const std::vector<std::string>& integers) {
  std::string out;
  std::size_t next_float = 0;
  std::size_t next_integer = 0;
  std::size_t at = 0;
  while (at < text.size()) {
    if (text[at] == '"') {
      const std::size_t close = text.find('"', at + 1);
      out.append(text.substr(at, close + 1 - at));
      at = close + 1;
      continue;
    }
    const std::size_t length =
        protomsg::internal::JsonNumberTokenLength(text.substr(at));
    if (length == 0) {
      out += text[at++];
      continue;
    }
    const std::string_view token = text.substr(at, length);
    if (token == "1.25" && !floats.empty()) {
      out += floats[next_float++ % floats.size()];
    } else if (token == "77" && !integers.empty()) {
      out += integers[next_integer++ % integers.size()];
    } else {
      out.append(token);
    }
    at += length;
  }
  return out;
}

// The marked table's text with its floats and its integers spelled.
template <typename Record>
std::string SpelledTableText(const std::vector<std::string>& floats,
                             const std::vector<std::string>& integers) {
  std::string text;
  protomsg::internal::PrintJson(*MarkedRecord<Record>(), text);
  return Respell(text, floats, integers);
}

}  // namespace q3a_test

#endif  // TESTS_SUPPORT_SPELLED_TABLES_H_
