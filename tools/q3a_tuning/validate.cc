#include "tools/q3a_tuning/validate.h"

#include <variant>

#include "tools/q3a_tuning/json_document.h"
#include "tools/q3a_tuning/lint.h"
#include "tools/q3a_tuning/table_diagnostics.h"

namespace q3a_tool {

ValidationReport ValidateTableFile(const std::string& path, FileFormat format,
                                   TableKind kind) {
  ValidationReport report;
  return VisitTableKind(kind, [&](auto type) {
    using Record = typename decltype(type)::type;
    auto table = MakeZeroedTable<Record>();
    std::string error;
    if (!LoadTableFile(path, format, *table, error)) {
      report.problems.push_back(error);
      return report;
    }
    report.accepted = true;
    report.version = VersionString(table->version);

    std::string read_error;
    const std::optional<std::string> content = ReadWholeFile(path, read_error);
    typename TableTraits<Record>::Message message;
    if (!content || ParseTableMessage(*content, format, message)) {
      report.problems.push_back(path +
                                ": the file changed while it was checked");
      return report;
    }
    std::optional<JsonValue> document;
    if (format == FileFormat::kJson) {
      auto parsed = ParseJsonDocument(*content);
      if (auto* root = std::get_if<JsonValue>(&parsed)) {
        document = std::move(*root);
      }
    }
    for (const Finding& finding : LintTableMessage(message)) {
      report.problems.push_back(
          PositionPrefix(path, document ? &*document : nullptr, finding.path) +
          finding.path + ": " + finding.message);
    }
    return report;
  });
}

}  // namespace q3a_tool
