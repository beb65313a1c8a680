#include "tools/q3a_tuning/lint/validate.h"

#include <fmt/format.h>

#include <cstring>
#include <variant>

#include "tools/q3a_tuning/lint/json_document.h"
#include "tools/q3a_tuning/lint/json_lint.h"
#include "tools/q3a_tuning/lint/lint.h"
#include "tools/q3a_tuning/lint/table_diagnostics.h"

namespace q3a_tool {
namespace {

template <typename Record>
bool AllZero(const Record& table) {
  static const auto zero = MakeZeroedTable<Record>();
  return std::memcmp(&table, zero.get(), sizeof(Record)) == 0;
}

// Findings about the table as it reads: its version, and a table of zeros.
template <typename Record>
std::vector<Finding> LintReadTable(const Record& table, bool has_version,
                                   const qawb::QAWBTuning* built_in) {
  std::vector<Finding> findings;
  const auto& version = table.version;
  if (AllZero(table)) {
    findings.push_back({"", "every value of the table is 0: the algorithm "
                            "would run on nothing",
                        "all-zero"});
  }
  if (has_version && version.major == 0 && version.minor == 0) {
    findings.push_back({"version", "the version is 0.0", "zero-version"});
  }
  const Record* reference =
      built_in != nullptr ? qawb::GetTable<Record>(*built_in) : nullptr;
  if (reference != nullptr &&
      (reference->version.major != version.major ||
       reference->version.minor != version.minor)) {
    findings.push_back(
        {"version",
         fmt::format("version {} but the container's built-in {} table is "
                     "version {}",
                     VersionString(version), TableTraits<Record>::kName,
                     VersionString(reference->version)),
         "version-mismatch"});
  }
  return findings;
}

}  // namespace

ValidationReport ValidateTableFile(const std::string& path, FileFormat format,
                                   TableKind kind,
                                   const qawb::QAWBTuning* built_in,
                                   bool compact) {
  ValidationReport report;
  const Result<std::string> content = ReadInputFile(path);
  if (!content.ok()) {
    report.unreadable = content.error();
    return report;
  }
  if (auto refused = CheckTableFits(path, *content, format, kind)) {
    report.problems.push_back(
        {path, 0, 0, "", "wrong-table",
         refused->message.substr(path.size() + 2)});
    return report;
  }
  return VisitTableKind(kind, [&](auto type) {
    using Record = typename decltype(type)::type;
    auto table = MakeZeroedTable<Record>();
    if (!ReadTableFile(path, format, *table)) {
      report.problems.push_back(DiagnoseReadFailure(path, format, kind));
      return report;
    }
    report.accepted = true;
    report.version = VersionString(table->version);

    typename TableTraits<Record>::Message message;
    (void)ParseTableMessage(*content, format, message);
    std::vector<Finding> findings;
    std::optional<JsonValue> document;
    std::vector<JsonLeniency> leniencies;
    if (format == FileFormat::kJson) {
      auto parsed = ParseJsonDocument(*content, &leniencies);
      if (auto* root = std::get_if<JsonValue>(&parsed)) {
        document = std::move(*root);
        findings = LintJsonDocument(*document, leniencies,
                                    *message.GetDescriptor());
      }
    }
    for (Finding& finding : LintTableMessage(message)) {
      findings.push_back(std::move(finding));
    }
    const bool has_version =
        format == FileFormat::kBinary || !document ||
        FindJsonPath(*document, "version") != nullptr;
    for (Finding& finding : LintReadTable(*table, has_version, built_in)) {
      findings.push_back(std::move(finding));
    }
    if (compact) {
      std::erase_if(findings, [](const Finding& finding) {
        return finding.rule == "missing-fields";
      });
    }
    for (const Finding& finding : CollapseFindings(std::move(findings))) {
      Problem problem{path, 0, 0, finding.path, finding.rule, finding.message};
      if (document) {
        const TextPosition at = finding.position
                                    ? *finding.position
                                    : PositionOfPath(*document, finding.path);
        problem.line = at.line;
        problem.column = at.column;
      }
      report.problems.push_back(std::move(problem));
    }
    return report;
  });
}

}  // namespace q3a_tool
