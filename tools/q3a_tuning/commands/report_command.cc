// `report`: one HTML page about a registered AWB container, optionally with
// tuning files compared against its tables.
#include <fmt/format.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "coordinator/tuning_map.h"
#include "protomsg/record_conversions.h"
#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/plot_inputs.h"
#include "tools/q3a_tuning/io/output_file.h"
#include "tools/q3a_tuning/io/registry_view.h"
#include "tools/q3a_tuning/lint/lint.h"
#include "tools/q3a_tuning/lint/validate.h"
#include "tools/q3a_tuning/plot/html_report.h"
#include "tools/q3a_tuning/plot/plot_render.h"
#include "tools/q3a_tuning/plot/table_plots.h"

namespace q3a_tool {
namespace {

struct ReportOptions {
  std::string key;
  std::vector<std::string> against;
  std::string output;
  std::string from;
};

std::string Join(const std::vector<std::string>& parts) {
  std::string out;
  for (const std::string& p : parts) out += (out.empty() ? "" : ", ") + p;
  return out;
}

void AddRegistration(const qawb::QAWBTuning& container, ReportData& data,
                     const std::map<qawb::TableId, std::string>& files) {
  const std::vector<Registration> registrations =
      ListRegistrations(q3a_coordinator::GetTuningMap());
  const AwbTableLabels labels(registrations);
  std::string own_label;
  for (const Registration& r : registrations) {
    if (r.object == static_cast<const void*>(&container)) {
      own_label = r.label;
      data.registrations.push_back(fmt::format(
          "{} {} ({}), key fields use_case, sensor_mode, camera_position, "
          "lens_type, reserved",
          NodeName(r.node), FormatTuningKey(r.key), r.label));
    }
  }
  for (qawb::TableId kind : kAllTableIds) {
    const void* table = TablePointer(container, kind);
    const auto version = TableVersion(container, kind);
    const auto file = files.find(kind);
    std::vector<std::string> others;
    if (table != nullptr) {
      for (const std::string& user : labels.Users(kind, table)) {
        if (user != own_label) others.push_back(user);
      }
    }
    data.tables.push_back({std::string(TableName(kind)),
                           labels.Label(kind, table),
                           version ? VersionString(*version) : "-",
                           Join(others),
                           Join(labels.SameBytesAs(kind, table)),
                           file != files.end() ? file->second : ""});
  }
}

// The container's table linted as the message a tuning file would carry.
template <typename Record>
void LintContainerTable(const Record& table, const std::string& source,
                        ReportData& data) {
  typename protomsg::TuningTableTraits<Record>::Message message;
  protomsg::ConvertToMessage(table, message);
  for (Diagnostic& f : LintTableMessage(message)) {
    f.file = source;
    data.findings.push_back(
        {std::string(protomsg::TuningTableTraits<Record>::kName), f});
  }
}

int RunReport(const ReportOptions& options) {
  const Result<const qawb::QAWBTuning*> registered =
      RegisteredContainer(options.key);
  if (!registered.ok()) return ReportError(registered.error());
  const qawb::QAWBTuning& container = **registered;
  const OutputOptions output{.inputs = options.against, .text = true};
  if (auto error = CheckOutputPath(options.output, output); !error.ok()) {
    return ReportError(error.error());
  }
  // Which table each file holds; two files for one table are refused.
  std::map<qawb::TableId, std::string> files;
  for (const std::string& path : options.against) {
    const Result<FileFormat> format = InputFormat(path, options.from);
    if (!format.ok()) return ReportError(format.error());
    const Result<qawb::TableId> kind = ResolveTable(path, *format, "");
    if (!kind.ok()) return ReportError(kind.error());
    if (!files.emplace(*kind, path).second) {
      return ReportError(
          {fmt::format("--against: {} and {} are both {} tables", files[*kind],
                       path, TableName(*kind)),
           kExitUsage});
    }
  }
  ReportData data;
  data.key = options.key;
  AddRegistration(container, data, files);
  const std::string container_name = "container " + options.key;
  for (qawb::TableId kind : kAllTableIds) {
    const Result<> failure =
        qawb::VisitTable(kind, [&]<typename Record>() -> Result<> {
          const Record* built_in = qawb::GetTable<Record>(container);
          if (built_in == nullptr) return {};
          ReportSection section;
          section.id = std::string(TableName(kind));
          PlotNames names;
          names.table = fmt::format("{} table {} of {}", TableName(kind),
                                    VersionString(built_in->version),
                                    container_name);
          LintContainerTable(*built_in, container_name, data);
          auto edited = MakeZeroedTable<Record>();
          const auto file = files.find(kind);
          TablePlots plots;
          if (file != files.end()) {
            const Result<FileFormat> format =
                InputFormat(file->second, options.from);
            if (!format.ok()) return format.error();
            if (auto error = LoadTableFile(file->second, *format, *edited);
                !error.ok()) {
              return error;
            }
            // A new version is what an edited file is meant to carry: it is
            // shown with the differences, not as a finding.
            for (const Diagnostic& problem :
                 ValidateTableFile(file->second, *format, kind).problems) {
              data.findings.push_back({section.id, problem});
            }
            names.before = names.table;
            names.table = fmt::format("{} table {} from {}", TableName(kind),
                                      VersionString(edited->version),
                                      file->second);
            section.compared = true;
            section.compared_note = fmt::format(
                "{} (after) against the {} (before), field by field{}:",
                names.table, names.before,
                VersionString(edited->version) ==
                        VersionString(built_in->version)
                    ? ""
                    : fmt::format(" (the version changes from {} to {})",
                                  VersionString(built_in->version),
                                  VersionString(edited->version)));
            section.differences = DiffRecords(*built_in, *edited);
            plots = PlotTable(*edited, built_in, names);
          } else {
            plots = PlotTable(*built_in, nullptr, names);
          }
          section.heading = names.table;
          for (const Diagnostic& finding : plots.findings) {
            data.findings.push_back({section.id, finding});
          }
          for (const Figure& figure : plots.figures) {
            section.figures.push_back(RenderFigureSvg(figure));
          }
          data.sections.push_back(std::move(section));
          return {};
        });
    if (!failure.ok()) return ReportError(failure.error());
  }
  return WriteAndReport(options.output, RenderHtmlReport(data), output);
}

}  // namespace

void AddReportCommand(CLI::App& app, int& exit_code) {
  auto [command, options] = AddSubcommand(app, exit_code, "report", RunReport);
  AddKeyOption(*command, options->key, "the container to report on")
      ->required();
  command->add_option("--against", options->against,
                      "Tuning files to compare, at most one per table");
  AddFromOption(*command, options->from);
  AddOutputOption(*command, options->output,
                  "HTML file to write; - for stdout")
      ->required();
}

}  // namespace q3a_tool
