// Differential fuzzing of the JSON tuning file readers against protobuf.
//
// The input is a script, not a file: it picks a table, optionally one of its
// top-level fields, a whitespace style, a list of structural mutations at
// numbered values of the writer's form of that table (drop, duplicate,
// reorder, camelCase or escape keys; null, wrong types, other spellings of
// numbers and enum names; a number of one of the hard families of
// tests/support/number_spellings.h; shorter and longer lists; unknown keys)
// and a few byte edits of the resulting text. The library's reader must then
// agree with JsonStringToMessage followed by ConvertToStruct: same true/false,
// the same record bytes on true, the record untouched on false.
#include <fuzzer/FuzzedDataProvider.h>
#include <google/protobuf/util/json_util.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "fuzz/fuzz_support.h"
#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "protomsg/internal/json_options.h"
#include "protomsg/internal/json_writer.h"
#include "protomsg/internal/message_for.h"
#include "protomsg/record_conversions.h"
#include "protomsg/tuning_table_traits.h"
#include "tests/support/number_spellings.h"
#include "tests/support/record_leaves.h"

namespace {

using q3a_fuzz::Check;

enum MutationKind : std::uint8_t {
  kNull,
  kRespell,
  kWrongType,
  kTruncate,
  kExtend,
  kDropKey,
  kDuplicateKey,
  kCamelKeys,
  kEscapeKey,
  kShuffleKeys,
  kUnknownKey,
  kSpellNumber,
  kKindCount,
};

struct Mutation {
  std::uint32_t node;
  MutationKind kind;
  std::uint8_t param;
};

std::string CamelCase(const std::string& name) {
  std::string camel;
  bool upper = false;
  for (const char c : name) {
    if (c == '_') {
      upper = true;
    } else {
      camel += upper ? static_cast<char>(std::toupper(c)) : c;
      upper = false;
    }
  }
  return camel;
}

std::string Printf(const char* format, double value) {
  char buffer[64];
  std::snprintf(buffer, sizeof(buffer), format, value);
  return buffer;
}

// A number spelled from script bytes: sign, digits, fraction, exponent.
std::string RandomNumber(FuzzedDataProvider& script) {
  std::string text = script.ConsumeBool() ? "-" : "";
  const int digits = script.ConsumeIntegralInRange(1, 24);
  for (int i = 0; i < digits; ++i) {
    text += static_cast<char>('0' +
                              script.ConsumeIntegralInRange(i == 0 ? 1 : 0, 9));
  }
  if (script.ConsumeBool()) {
    text += '.';
    const int fraction = script.ConsumeIntegralInRange(1, 24);
    for (int i = 0; i < fraction; ++i) {
      text += static_cast<char>('0' + script.ConsumeIntegralInRange(0, 9));
    }
  }
  if (script.ConsumeBool()) {
    text += script.ConsumeBool() ? 'e' : 'E';
    const int sign = script.ConsumeIntegralInRange(0, 2);
    if (sign == 1) text += '-';
    if (sign == 2) text += '+';
    text += std::to_string(script.ConsumeIntegralInRange(0, 60));
  }
  return text;
}

// Other spellings of a value, space-separated: protobuf's edges and plain
// mistakes. Past the fixed ones, a random number.
constexpr std::string_view kFloatSpellings =
    "-0 -0.0 0e5 3.4028235e38 3.4028236e38 1e400 1e-46 7.006e-46 "
    "-3.40282357e+38 9007199254740993 -18446744073709551616 \"NaN\" "
    "\"-Infinity\" 1. 01 16777217 1E+2";
constexpr std::string_view kIntegerSpellings =
    "2147483647 2147483648 -2147483648 -2147483649 -0 1e2 4294967296 00 true";
constexpr std::string_view kOtherSpellings =
    "\"true\" 1 false 3 \"3\" \"kQAWBFrameSummaryTypeGrey\" "
    "\"kqawbframesummarytypegrey\" \"\\u006bQAWBFrameSummaryTypeFace\" "
    "\"kQAWBFrameSummaryTypeNone\"";

std::string Spelling(std::string_view spellings, std::size_t index,
                     FuzzedDataProvider& script) {
  std::size_t start = 0;
  for (; index > 0 && start != std::string_view::npos; --index) {
    start = spellings.find(' ', start);
    if (start != std::string_view::npos) ++start;
  }
  if (start == std::string_view::npos) return RandomNumber(script);
  return std::string(
      spellings.substr(start, spellings.find(' ', start) - start));
}

std::string RespellFloat(float value, std::uint8_t pick,
                         FuzzedDataProvider& script) {
  const double wide = value;
  const double up = std::nextafter(value, std::numeric_limits<float>::max());
  switch (pick % 32) {
    case 0:
      return Printf("%.17g", wide);
    case 1:
      return Printf("%.9e", wide);
    case 2:
      return Printf("%.0f", std::trunc(wide));
    case 3:
      return Printf("%.25g", (wide + up) / 2);  // halfway to the next
    case 4:
      return "\"" + Printf("%.9g", wide) + "\"";
    default:
      return Spelling(kFloatSpellings, pick % 32 - 5, script);
  }
}

std::string RespellInteger(std::int32_t value, std::uint8_t pick,
                           FuzzedDataProvider& script) {
  const std::string plain = std::to_string(value);
  switch (pick % 16) {
    case 0:
      return plain + ".0";
    case 1:
      return plain + "e0";
    case 2:
      return plain + ".5";
    case 3:
      return "\"" + plain + "\"";
    default:
      return Spelling(kIntegerSpellings, pick % 16 - 4, script);
  }
}

// Writes a record's message as JSON text while applying the mutations
// aimed at its values, numbered in pre-order (the record itself first).
class Emitter {
 public:
  // Lists are written with at most `max_elements` elements.
  Emitter(std::vector<Mutation> mutations, FuzzedDataProvider& script,
          std::size_t max_elements, std::string newline, std::string indent)
      : mutations_(std::move(mutations)),
        max_elements_(max_elements),
        script_(script),
        newline_(std::move(newline)),
        indent_(std::move(indent)) {
    std::sort(
        mutations_.begin(), mutations_.end(),
        [](const Mutation& a, const Mutation& b) { return a.node < b.node; });
  }

  std::uint32_t nodes() const { return node_; }

  // The object of `record`, keeping only field `only` if it is not -1.
  template <typename Record>
  std::string Object(const Record& record, int depth, int only = -1) {
    const Mutation* mutation = Take();
    std::vector<std::pair<std::string, std::string>> members;
    int index = 0;
    ForEachField(record, [&](const char* name, const auto& field) {
      if (only < 0 || index == only) {
        members.emplace_back(std::string("\"") + name + "\"",
                             Value(field, depth + 1));
      }
      ++index;
    });
    if (mutation != nullptr) MutateObject(*mutation, members);
    std::string text = "{";
    for (std::size_t i = 0; i < members.size(); ++i) {
      if (i > 0) text += ',';
      text += newline_ + Indent(depth + 1) + members[i].first + ": " +
              members[i].second;
    }
    if (!members.empty()) text += newline_ + Indent(depth);
    text += '}';
    return Finish(mutation, std::move(text));
  }

 private:
  template <typename Field>
  std::string Value(const Field& field, int depth) {
    if constexpr (std::is_array_v<Field>) {
      const Mutation* mutation = Take();
      std::vector<std::string> elements;
      protomsg::internal::ForEachFlat(field, [&](const auto& element) {
        if (elements.size() < max_elements_) {
          elements.push_back(Value(element, depth + 1));
        }
      });
      if (mutation != nullptr && mutation->kind == kTruncate) {
        elements.resize(mutation->param % (elements.size() + 1));
      } else if (mutation != nullptr && mutation->kind == kExtend &&
                 !elements.empty()) {
        const std::string last = elements.back();
        for (int i = 0; i <= mutation->param % 8; ++i) {
          elements.push_back(i % 3 == 2 ? "null" : last);
        }
      }
      std::string text = "[";
      for (std::size_t i = 0; i < elements.size(); ++i) {
        if (i > 0) text += ',';
        text += newline_ + Indent(depth + 1) + elements[i];
      }
      if (!elements.empty()) text += newline_ + Indent(depth);
      text += ']';
      return Finish(mutation, std::move(text));
    } else if constexpr (qawb::DescribedRecord<Field>) {
      return Object(field, depth);
    } else {
      const Mutation* mutation = Take();
      std::string text;
      if constexpr (std::is_same_v<Field, float>) {
        text.assign(buffer_, protomsg::internal::PrintFloat(field, buffer_));
      } else if constexpr (protomsg::internal::kIsFrameSummary<Field>) {
        text = "\"" +
               std::string(protomsg::internal::FrameSummaryName(
                   protomsg::ConvertToMessage(field))) +
               "\"";
      } else if constexpr (std::is_same_v<Field, bool>) {
        text = protomsg::internal::WidenScalar(field) ? "true" : "false";
      } else {
        text = std::to_string(static_cast<std::int32_t>(field));
      }
      if (mutation != nullptr && mutation->kind == kSpellNumber) {
        auto pick = [this](int lo, int hi) {
          return script_.ConsumeIntegralInRange(lo, hi);
        };
        text = q3a_test::SpellNumber(
            static_cast<q3a_test::NumberFamily>(
                mutation->param %
                static_cast<int>(q3a_test::NumberFamily::kCount)),
            pick);
      }
      if (mutation != nullptr && mutation->kind == kRespell) {
        if constexpr (std::is_same_v<Field, float>) {
          text = RespellFloat(field, mutation->param, script_);
        } else if constexpr (std::is_integral_v<Field> &&
                             !std::is_same_v<Field, bool>) {
          text = RespellInteger(static_cast<std::int32_t>(field),
                                mutation->param, script_);
        } else {
          text = Spelling(kOtherSpellings, mutation->param % 9, script_);
        }
      }
      return Finish(mutation, std::move(text));
    }
  }

  // Mutations that replace a value of any kind.
  std::string Finish(const Mutation* mutation, std::string text) {
    if (mutation == nullptr) return text;
    if (mutation->kind == kNull) return "null";
    if (mutation->kind == kWrongType) {
      switch (mutation->param % 5) {
        case 0:
          return "true";
        case 1:
          return "\"x\"";
        case 2:
          return "[]";
        case 3:
          return "{}";
        default:
          return "[" + text + "]";
      }
    }
    return text;
  }

  void MutateObject(const Mutation& mutation,
                    std::vector<std::pair<std::string, std::string>>& members) {
    if (members.empty()) return;
    auto& member = members[mutation.param % members.size()];
    switch (mutation.kind) {
      case kDropKey:
        members.erase(members.begin() + mutation.param % members.size());
        break;
      case kDuplicateKey:
        members.push_back(member);
        break;
      case kCamelKeys:
        for (auto& each : members) {
          if (mutation.param % 2 == 0 || &each == &member) {
            each.first = CamelCase(each.first);
          }
        }
        break;
      case kEscapeKey: {
        char escaped[8];
        std::snprintf(escaped, sizeof(escaped), "\\u%04x",
                      static_cast<unsigned char>(member.first[1]));
        member.first = "\"" + std::string(escaped) + member.first.substr(2);
        break;
      }
      case kShuffleKeys:
        std::rotate(members.begin(),
                    members.begin() + mutation.param % members.size(),
                    members.end());
        if (mutation.param & 0x80) std::reverse(members.begin(), members.end());
        break;
      case kUnknownKey:
        members.emplace(members.begin() + mutation.param % members.size(),
                        mutation.param % 2 ? "\"bogus\"" : "\"Version\"", "1");
        break;
      default:
        break;
    }
  }

  const Mutation* Take() {
    const std::uint32_t node = node_++;
    while (next_ < mutations_.size() && mutations_[next_].node < node) ++next_;
    if (next_ < mutations_.size() && mutations_[next_].node == node) {
      return &mutations_[next_++];
    }
    return nullptr;
  }

  std::string Indent(int depth) const {
    std::string text;
    for (int i = 0; i < depth; ++i) text += indent_;
    return text;
  }

  std::vector<Mutation> mutations_;
  std::size_t max_elements_;
  std::size_t next_ = 0;
  std::uint32_t node_ = 0;
  FuzzedDataProvider& script_;
  std::string newline_;
  std::string indent_;
  char buffer_[protomsg::internal::kMaxFloatText];
};

template <typename Table>
int TopLevelFieldCount() {
  int count = 0;
  const auto table = std::make_unique<Table>();
  ForEachField(*table, [&](const char*, const auto&) { ++count; });
  return count;
}

template <typename Table>
std::string MakeText(const Table& source, FuzzedDataProvider& script) {
  static const int kFields = TopLevelFieldCount<Table>();
  // Mostly one top-level field: whole tables parse at a few per second.
  const int pick = script.ConsumeIntegralInRange(0, kFields);
  const int only = pick == kFields ? -1 : pick;
  static const std::pair<const char*, const char*> kStyles[] = {
      {"\n", " "},  {"", ""},   {" ", ""},  {"\r\n", "\t"},
      {"\n", "  "}, {"\v", ""}, {"\f", " "}};
  const auto& style = kStyles[script.ConsumeIntegralInRange<std::size_t>(
      0, std::size(kStyles) - 1)];

  // Mostly short lists too: a list the file leaves short keeps the rest of
  // the record's elements, and short texts parse many times faster.
  constexpr std::size_t kShortLists[] = {1, 2, 3, SIZE_MAX};
  const std::size_t max_elements = kShortLists[script.ConsumeIntegralInRange(
      0, static_cast<int>(std::size(kShortLists)) - 1)];
  Emitter counter({}, script, max_elements, "", "");
  (void)counter.Object(source, 0, only);
  std::vector<Mutation> mutations(script.ConsumeIntegralInRange(0, 8));
  for (Mutation& mutation : mutations) {
    mutation.node =
        script.ConsumeIntegralInRange<std::uint32_t>(0, counter.nodes() - 1);
    mutation.kind = static_cast<MutationKind>(
        script.ConsumeIntegralInRange<int>(0, kKindCount - 1));
    mutation.param = script.ConsumeIntegral<std::uint8_t>();
  }
  Emitter emitter(std::move(mutations), script, max_elements, style.first,
                  style.second);
  std::string text = emitter.Object(source, 0, only) + "\n";

  // A few byte edits: inserted, replaced or removed bytes, trailing text.
  const int edits = script.ConsumeIntegralInRange(0, 3);
  for (int i = 0; i < edits && !text.empty(); ++i) {
    const std::size_t at =
        script.ConsumeIntegralInRange<std::size_t>(0, text.size() - 1);
    const char byte = script.ConsumeIntegral<char>();
    switch (script.ConsumeIntegralInRange(0, 3)) {
      case 0:
        text.insert(at, 1, byte);
        break;
      case 1:
        text[at] = byte;
        break;
      case 2:
        text.erase(at, 1);
        break;
      default:
        text += script.ConsumeBool() ? "{}" : "x";
        break;
    }
  }
  return text;
}

// A source table unlike the start one in every scalar, so a value read
// into the wrong place, or not read, shows.
template <typename Table>
const Table& Source() {
  static const Table* const source = [] {
    auto* table = new Table;
    std::memset(static_cast<void*>(table), 0, sizeof(Table));
    int next = 1;
    q3a_test::ForEachLeaf(*table, [&](auto& field) {
      using Field = std::remove_cvref_t<decltype(field)>;
      if constexpr (protomsg::internal::kIsFrameSummary<Field>) {
        field = static_cast<Field>(next++ % 11 - 1);
      } else if constexpr (std::is_same_v<Field, bool>) {
        field = next++ % 2 == 1;
      } else if constexpr (std::is_floating_point_v<Field>) {
        field = static_cast<float>(next++) * -0.37f;
      } else {
        field = static_cast<Field>(next++ * 7);
      }
    });
    return table;
  }();
  return *source;
}

template <typename Table>
void CheckTable(FuzzedDataProvider& script, const Table& start) {
  using Message = typename protomsg::TuningTableTraits<Table>::Message;
  const std::string text = MakeText(Source<Table>(), script);
  const std::string path = q3a_fuzz::ScratchPath("input.json");
  q3a_fuzz::WriteBytes(path, reinterpret_cast<const uint8_t*>(text.data()),
                       text.size());

  auto read = std::make_unique<Table>(start);
  const bool ok = protomsg::TuningTableTraits<Table>::kReadJson(path, *read);

  auto expected = std::make_unique<Table>(start);
  Message message;
  const bool parsed =
      google::protobuf::util::JsonStringToMessage(
          text, &message, protomsg::internal::TuningFileParseOptions())
          .ok();
  if (parsed) protomsg::ConvertToStruct(message, *expected);

  Check(ok == parsed, "reader and protobuf disagree on acceptance");
  Check(std::memcmp(read.get(), expected.get(), sizeof(Table)) == 0,
        ok ? "read record differs from protobuf's"
           : "failed read changed the table");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const auto* start = new qawb::MutableQAWBTuning();
  FuzzedDataProvider script(data, size);
  switch (script.ConsumeIntegralInRange(0, 3)) {
    case 0:
      CheckTable(script, *start->GetBasicTuningTable());
      break;
    case 1:
      CheckTable(script, *start->GetAdvanceTuningTable());
      break;
    case 2:
      CheckTable(script, *start->GetColorControlTuningTable());
      break;
    default:
      CheckTable(script, *start->GetFeatureTuningTable());
      break;
  }
  return 0;
}
