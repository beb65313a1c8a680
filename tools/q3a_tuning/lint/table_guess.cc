#include "tools/q3a_tuning/lint/table_guess.h"

#include <fmt/format.h>
#include <google/protobuf/unknown_field_set.h>

#include <algorithm>
#include <array>
#include <variant>
#include <vector>

#include "protomsg/record_conversions.h"
#include "tools/q3a_tuning/lint/json_document.h"
#include "tools/q3a_tuning/lint/plausibility.h"
#include "tools/q3a_tuning/lint/table_diagnostics.h"

namespace q3a_tool {
namespace {

using google::protobuf::FieldDescriptor;

// How well a file fits one table's schema; lower is better.
struct Fit {
  qawb::TableId kind;
  bool canonical = false;  // re-encodes to the file's own bytes
  int unknown = 0;         // unknown fields and wire-type mismatches
  int implausible = 0;     // plausibility.h
  long Score() const { return unknown * 1000L + implausible; }
};

template <typename Message>
int UnknownFields(const Message& message) {
  const auto& reflection = *message.GetReflection();
  int unknown = reflection.GetUnknownFields(message).field_count();
  std::vector<const FieldDescriptor*> fields;
  reflection.ListFields(message, &fields);
  for (const FieldDescriptor* field : fields) {
    if (field->cpp_type() != FieldDescriptor::CPPTYPE_MESSAGE) continue;
    if (!field->is_repeated()) {
      unknown += UnknownFields(reflection.GetMessage(message, field));
      continue;
    }
    for (int i = 0; i < reflection.FieldSize(message, field); ++i) {
      unknown += UnknownFields(reflection.GetRepeatedMessage(message, field, i));
    }
  }
  return unknown;
}

// Whether `content` parses as the `Record` table; `score` also weighs how
// well, which only a tie between tables needs.
template <typename Record>
std::optional<Fit> FitOf(std::string_view content, FileFormat format,
                         bool score) {
  using Message = typename protomsg::TuningTableTraits<Record>::Message;
  Message message;
  if (ParseTableMessage(content, format, message)) return std::nullopt;
  Fit fit{protomsg::TuningTableTraits<Record>::kId};
  if (score) {
    fit.unknown = UnknownFields(message);
    fit.implausible = CountImplausibleValues(message);
  }
  if (format == FileFormat::kBinary) {
    auto record = MakeZeroedTable<Record>();
    protomsg::ConvertToStruct(message, *record);
    Message again;
    protomsg::ConvertToMessage(*record, again);
    fit.canonical = again.SerializeAsString() == content;
  }
  return fit;
}

using TableSet = std::array<bool, kAllTableIds.size()>;
constexpr TableSet kEveryTable = {true, true, true, true};

std::vector<Fit> Fits(std::string_view content, FileFormat format,
                      bool score, const TableSet& candidates) {
  std::vector<Fit> fits;
  for (qawb::TableId kind : kAllTableIds) {
    if (!candidates[static_cast<int>(kind)]) continue;
    const std::optional<Fit> fit =
        qawb::VisitTable(kind, [&]<typename Record>() {
          return FitOf<Record>(content, format, score);
        });
    if (fit) fits.push_back(*fit);
  }
  return fits;
}

std::string KindList(const std::vector<qawb::TableId>& kinds) {
  std::vector<std::string_view> names;
  for (qawb::TableId kind : kinds) names.push_back(TableName(kind));
  return fmt::format("{}", fmt::join(names, ", "));
}

// Which tables have a field the key names.
TableSet TablesNaming(std::string_view key) {
  TableSet has{};
  for (qawb::TableId kind : kAllTableIds) {
    has[static_cast<int>(kind)] =
        qawb::VisitTable(kind, [&]<typename Record>() {
          using Message = typename protomsg::TuningTableTraits<Record>::Message;
          const auto& descriptor = *Message::descriptor();
          for (int f = 0; f < descriptor.field_count(); ++f) {
            if (JsonKeyMatches(key, descriptor.field(f)->name())) return true;
          }
          return false;
        });
  }
  return has;
}

// What the top-level keys of a JSON file say of its table.
struct NamedTables {
  // Tables with a field for every key: no other table takes the file, as
  // protobuf refuses unknown fields.
  TableSet possible = kEveryTable;
  std::optional<qawb::TableId> kind;  // the table that names the most keys
  bool only = false;              // no other table names any of them
};

// Keys every table has (the version) tell nothing of which it is.
NamedTables NamedByKeys(const JsonValue& root) {
  NamedTables result;
  if (root.type() != JsonValue::Type::kObject) {
    result.possible = {};
    return result;
  }
  std::array<int, kAllTableIds.size()> named{};
  for (const JsonMember& member : root.members()) {
    const TableSet has = TablesNaming(member.key);
    for (std::size_t i = 0; i < has.size(); ++i) {
      result.possible[i] = result.possible[i] && has[i];
    }
    if (has == kEveryTable) continue;
    for (std::size_t i = 0; i < has.size(); ++i) named[i] += has[i];
  }
  const auto best = std::max_element(named.begin(), named.end());
  if (*best == 0 || std::count(named.begin(), named.end(), *best) > 1) {
    return result;
  }
  result.kind = kAllTableIds[best - named.begin()];
  result.only = std::count(named.begin(), named.end(), 0) ==
                static_cast<long>(named.size()) - 1;
  return result;
}

TableGuess GuessTableUncached(std::string_view content, FileFormat format) {
  TableGuess guess;
  if (LooksLikeTuningBinaryFile(content)) {
    guess.container_dump = true;
    guess.note = fmt::format(
        "this is a tuning binary file (the container's dump of all four "
        "tables, {} bytes), not a tuning file; look at it with `q3a-tuning "
        "inspect` or split it with `q3a-tuning dump`",
        content.size());
    return guess;
  }
  // A JSON file's keys rule out the tables that lack them, which protobuf
  // would only find at the end of a long file; a file they leave to one
  // table alone is that table's whether or not protobuf takes it.
  NamedTables named;
  if (format == FileFormat::kJson) {
    auto parsed = ParseJsonDocument(content);
    if (const auto* document = std::get_if<JsonDocument>(&parsed)) {
      named = NamedByKeys(document->root());
    }
    if (named.only &&
        std::count(named.possible.begin(), named.possible.end(), true) == 1) {
      guess.kind = named.kind;
      guess.certain = true;
      return guess;
    }
  }
  std::vector<Fit> fits =
      Fits(content, format, /*score=*/false, named.possible);
  if (fits.empty()) {
    guess.kind = named.kind;
    guess.certain = named.only;
    if (!guess.kind) guess.note = "the file is not a tuning file of any table";
    return guess;
  }
  std::vector<qawb::TableId> canonical;
  for (const Fit& fit : fits) {
    if (fit.canonical) canonical.push_back(fit.kind);
  }
  if (fits.size() > 1 && canonical.size() != 1) {
    fits = Fits(content, format, /*score=*/true, named.possible);
  }
  if (canonical.size() == 1) {
    guess.kind = canonical.front();
    guess.certain = true;
    return guess;
  }
  long best = fits.front().Score();
  for (const Fit& fit : fits) best = std::min(best, fit.Score());
  std::vector<qawb::TableId> best_kinds;
  for (const Fit& fit : fits) {
    if (fit.Score() == best) best_kinds.push_back(fit.kind);
  }
  if (best_kinds.size() == 1) {
    guess.kind = best_kinds.front();
    guess.certain = true;
    return guess;
  }
  guess.note = fmt::format("the file fits several tables ({}); give --table",
                           KindList(best_kinds));
  return guess;
}

}  // namespace

TableGuess GuessTable(std::string_view content, FileFormat format) {
  // Commands ask about one file more than once (which table it holds, then
  // whether it fits before each read); the answer for the last content is
  // kept so that a large file is parsed once.
  struct Answer {
    FileFormat format;
    std::string content;
    TableGuess guess;
  };
  thread_local std::optional<Answer> last;
  if (!last || last->format != format || last->content != content) {
    last = Answer{format, std::string(content),
                  GuessTableUncached(content, format)};
  }
  return last->guess;
}

std::string TableMismatch(std::string_view name, qawb::TableId is,
                          qawb::TableId expected) {
  return fmt::format("{}: this is {} {} table, not {} {} table", name,
                     is == qawb::TableId::kAdvance ? "an" : "a", TableName(is),
                     expected == qawb::TableId::kAdvance ? "an" : "a",
                     TableName(expected));
}

Result<> CheckTableFits(const std::string& path, std::string_view content,
                        FileFormat format, qawb::TableId kind) {
  const TableGuess guess = GuessTable(content, format);
  if (guess.container_dump) {
    return ToolError{fmt::format("{}: {}", path, guess.note), kExitFailure};
  }
  if (guess.certain && *guess.kind != kind) {
    return ToolError{TableMismatch(path, *guess.kind, kind), kExitFailure};
  }
  return {};
}

}  // namespace q3a_tool
