// `list`: the registry as a table, or as JSON with --json.
#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "coordinator/tuning_map.h"
#include "tools/q3a_tuning/commands/command_options.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/io/json_text.h"
#include "tools/q3a_tuning/io/registry_view.h"

namespace q3a_tool {
namespace {

std::string TablesColumn(const qawb::QAWBTuning& tuning,
                         const AwbTableLabels& labels) {
  std::string column;
  for (qawb::TableId kind : kAllTableIds) {
    const std::optional<qawb::QAWBParameterVersion> version =
        TableVersion(tuning, kind);
    column += fmt::format("  {} {:<3} {:<5}", TableName(kind),
                          labels.Label(kind, TablePointer(tuning, kind)),
                          version ? VersionString(*version) : "-");
  }
  return column;
}

void PrintTable(const std::vector<Registration>& registrations,
                const AwbTableLabels& labels) {
  fmt::print("{:<30} {:<16} {:<34}{}\n", "NODE", "KEY", "OBJECT",
             "  AWB TABLES (label version)");
  for (const Registration& r : registrations) {
    std::string tables;
    if (r.node == q3a_api::kAwb) {
      tables =
          TablesColumn(*static_cast<const qawb::QAWBTuning*>(r.object), labels);
    }
    std::string line = fmt::format("{:<30} {:<16} {:<34}{}", NodeName(r.node),
                                   FormatTuningKey(r.key), r.label, tables);
    line.erase(line.find_last_not_of(' ') + 1);
    fmt::print("{}\n", line);
  }
  fmt::print("\nAWB tables shared by several containers:\n");
  std::vector<const void*> seen;
  for (const Registration& r : registrations) {
    if (r.node != q3a_api::kAwb) continue;
    const auto& tuning = *static_cast<const qawb::QAWBTuning*>(r.object);
    for (qawb::TableId kind : kAllTableIds) {
      const void* table = TablePointer(tuning, kind);
      if (std::find(seen.begin(), seen.end(), table) != seen.end()) continue;
      seen.push_back(table);
      const auto& users = labels.Users(kind, table);
      const auto same = labels.SameBytesAs(kind, table);
      if (users.size() < 2 && same.empty()) continue;
      fmt::print("  {:<4} {:<8} used by {}", labels.Label(kind, table),
                 TableName(kind), fmt::join(users, ", "));
      if (!same.empty()) {
        fmt::print("; same bytes as {}", fmt::join(same, ", "));
      }
      fmt::print("\n");
    }
  }
}

void PrintJson(const std::vector<Registration>& registrations,
               const AwbTableLabels& labels) {
  JsonText json;
  json.BeginArray();
  for (const Registration& r : registrations) {
    json.BeginObject();
    json.Key("node").String(NodeName(r.node));
    json.Key("node_type").Number(static_cast<int>(r.node));
    json.Key("key").BeginObject();
    json.Key("use_case").Number(r.key.use_case);
    json.Key("sensor_mode").Number(r.key.sensor_mode);
    json.Key("camera_position").Number(r.key.camera_position);
    json.Key("lens_type").Number(r.key.lens_type);
    json.Key("reserved").Number(r.key.reserved);
    json.EndObject();
    json.Key("object").String(r.label);
    if (r.node == q3a_api::kAwb) {
      const auto& tuning = *static_cast<const qawb::QAWBTuning*>(r.object);
      json.Key("tables").BeginObject();
      for (qawb::TableId kind : kAllTableIds) {
        const void* table = TablePointer(tuning, kind);
        const auto version = TableVersion(tuning, kind);
        json.Key(TableName(kind)).BeginObject();
        json.Key("label").String(labels.Label(kind, table));
        json.Key("version").String(version ? VersionString(*version) : "");
        json.Key("shared_with").BeginArray();
        for (const std::string& user : labels.Users(kind, table)) {
          if (user != r.label) json.String(user);
        }
        json.EndArray();
        json.Key("same_bytes_as").BeginArray();
        for (const std::string& label : labels.SameBytesAs(kind, table)) {
          json.String(label);
        }
        json.EndArray();
        json.EndObject();
      }
      json.EndObject();
    }
    json.EndObject();
  }
  json.EndArray();
  fmt::print("{}\n", json.Text());
}

struct ListOptions {
  bool json = false;
};

int RunList(const ListOptions& options) {
  const std::vector<Registration> registrations =
      ListRegistrations(q3a_coordinator::GetTuningMap());
  const AwbTableLabels labels(registrations);
  if (options.json) {
    PrintJson(registrations, labels);
  } else {
    PrintTable(registrations, labels);
  }
  return kExitOk;
}

}  // namespace

void AddListCommand(CLI::App& app, int& exit_code) {
  auto [command, options] = AddSubcommand(app, exit_code, "list", RunList);
  command->add_flag("--json", options->json, "Machine-readable output");
}

}  // namespace q3a_tool
