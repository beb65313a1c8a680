#include "tools/q3a_tuning/lint/validate.h"

#include <fmt/format.h>
#include <google/protobuf/util/message_differencer.h>

#include <type_traits>
#include <variant>

#include "protomsg/record_conversions.h"
#include "tools/q3a_tuning/io/compact_table.h"
#include "tools/q3a_tuning/io/record_walk.h"
#include "tools/q3a_tuning/lint/json_document.h"
#include "tools/q3a_tuning/lint/json_lint.h"
#include "tools/q3a_tuning/lint/lint.h"
#include "tools/q3a_tuning/lint/lint_rules.h"
#include "tools/q3a_tuning/lint/table_diagnostics.h"

namespace q3a_tool {
namespace {

// Whether every value of `table` is what a message of zeros converts to:
// 0, and for frame-summary kinds the record's invalid kind (or kind 0, what
// a zeroed record writes).
template <typename Record>
bool ReadsAsZero(const Record& table) {
  const qawb::QAWBFrameSummaryType zero_kind =
      protomsg::ConvertToStruct(qawb::tuning::QAWBFrameSummaryType{});
  bool zero = true;
  ForEachScalar(table, [&](const std::string&, const auto& value) {
    using T = std::remove_cvref_t<decltype(value)>;
    if constexpr (std::is_same_v<T, qawb::QAWBFrameSummaryType>) {
      zero = zero && (value == zero_kind || value == T{});
    } else if constexpr (std::is_same_v<T, bool>) {
      zero = zero && qawb::StoredByte(value) == 0;
    } else {
      zero = zero && value == T{};
    }
  });
  return zero;
}

// Findings about the table as it reads: its version, and a table of zeros.
template <typename Record>
std::vector<Diagnostic> LintReadTable(const Record& table, bool has_version,
                                      const qawb::QAWBTuning* built_in) {
  std::vector<Diagnostic> findings;
  const auto& version = table.version;
  if (ReadsAsZero(table)) {
    findings.push_back(
        LintFinding("",
                    "every value of the table is 0: the algorithm "
                    "would run on nothing",
                    lint_rule::kAllZero));
  }
  if (has_version && version.major == 0 && version.minor == 0) {
    findings.push_back(
        LintFinding("version", "the version is 0.0", lint_rule::kZeroVersion));
  }
  const Record* reference =
      built_in != nullptr ? qawb::GetTable<Record>(*built_in) : nullptr;
  if (reference != nullptr &&
      (reference->version.major != version.major ||
       reference->version.minor != version.minor)) {
    findings.push_back(LintFinding(
        "version",
        fmt::format("version {} but the container's built-in {} table is "
                    "version {}",
                    VersionString(version),
                    protomsg::TuningTableTraits<Record>::kName,
                    VersionString(reference->version)),
        lint_rule::kVersionMismatch));
  }
  return findings;
}

// Whether `message` is already in the compact form export --compact writes:
// every sub-table there (the writer converts them all), compacting changes
// nothing.
template <typename Record>
bool InCompactForm(const google::protobuf::Message& message) {
  const auto& descriptor = *message.GetDescriptor();
  for (int i = 0; i < descriptor.field_count(); ++i) {
    const auto* field = descriptor.field(i);
    if (field->message_type() != nullptr && !field->is_repeated() &&
        !message.GetReflection()->HasField(message, field)) {
      return false;
    }
  }
  typename protomsg::TuningTableTraits<Record>::Message zero_form;
  protomsg::ConvertToMessage(*MakeZeroedTable<Record>(), zero_form);
  std::unique_ptr<google::protobuf::Message> compacted(message.New());
  compacted->CopyFrom(message);
  CompactTableMessage(*compacted, zero_form);
  return google::protobuf::util::MessageDifferencer::Equals(message,
                                                            *compacted);
}

bool HasRule(const std::vector<Diagnostic>& findings, std::string_view rule) {
  for (const Diagnostic& finding : findings) {
    if (finding.rule == rule) return true;
  }
  return false;
}

}  // namespace

ValidationReport ValidateTableFile(const std::string& path, FileFormat format,
                                   qawb::TableId kind,
                                   const qawb::QAWBTuning* built_in,
                                   bool compact) {
  ValidationReport report;
  const Result<std::string> content = ReadInputFile(path);
  if (!content.ok()) {
    report.unreadable = content.error();
    return report;
  }
  if (auto refused = CheckTableFits(path, *content, format, kind);
      !refused.ok()) {
    report.problems.push_back(
        {path, 0, 0, "", lint_rule::kWrongTable,
         refused.error().message.substr(path.size() + 2)});
    return report;
  }
  return qawb::VisitTable(kind, [&]<typename Record>() {
    auto table = MakeZeroedTable<Record>();
    if (!ReadTableFile(path, format, *table)) {
      report.problems.push_back(DiagnoseReadFailure(path, format, kind));
      return report;
    }
    report.accepted = true;
    report.version = VersionString(table->version);

    typename protomsg::TuningTableTraits<Record>::Message message;
    (void)ParseTableMessage(*content, format, message);
    std::vector<Diagnostic> findings;
    std::optional<JsonDocument> document;
    bool has_version = message.has_version();
    if (format == FileFormat::kJson) {
      std::vector<Diagnostic> leniencies;
      auto parsed = ParseJsonDocument(*content, &leniencies);
      if (auto* parsed_document = std::get_if<JsonDocument>(&parsed)) {
        document = std::move(*parsed_document);
        findings = LintJsonDocument(document->root(), leniencies,
                                    *message.GetDescriptor());
        has_version = FindJsonPath(document->root(), "version") != nullptr;
      }
    } else {
      findings = LintAbsentFields(message);
    }
    for (Diagnostic& finding : LintTableMessage(message)) {
      findings.push_back(std::move(finding));
    }
    for (Diagnostic& finding : LintReadTable(*table, has_version, built_in)) {
      findings.push_back(std::move(finding));
    }
    if (compact) {
      std::erase_if(findings, [](const Diagnostic& finding) {
        return finding.rule == lint_rule::kMissingFields;
      });
    } else {
      report.reads_like_compact =
          HasRule(findings, lint_rule::kMissingFields) &&
          InCompactForm<Record>(message);
    }
    for (Diagnostic& finding : CollapseFindings(std::move(findings))) {
      finding.file = path;
      if (document && finding.line == 0) {
        const TextPosition at = PositionOfPath(document->root(), finding.path);
        finding.line = at.line;
        finding.column = at.column;
      }
      report.problems.push_back(std::move(finding));
    }
    return report;
  });
}

}  // namespace q3a_tool
