#include "tools/q3a_tuning/table_sources.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "coordinator/tuning_map.h"
#include "tools/q3a_tuning/registry_view.h"

namespace q3a_tool {

const qawb::QAWBTuning& RegisteredContainer(std::string_view key_text) {
  const std::optional<q3a_api::TuningKey> key = ParseTuningKey(key_text);
  if (!key) {
    throw CLI::ValidationError(
        "--key", fmt::format("'{}' is not a key: five comma-separated "
                             "integers use_case,sensor_mode,camera_position,"
                             "lens_type,reserved (e.g. 0,-1,1,0,-1)",
                             key_text));
  }
  const qawb::QAWBTuning* container =
      FindAwbContainer(q3a_coordinator::GetTuningMap(), *key);
  if (container == nullptr) {
    throw CLI::ValidationError(
        "--key", fmt::format("no AWB container is registered under {} "
                             "(see `q3a-tuning list`)",
                             key_text));
  }
  return *container;
}

std::unique_ptr<qawb::MutableQAWBTuning> DefaultContainer() {
  return std::make_unique<qawb::MutableQAWBTuning>();
}

TableOperand ParseTableOperand(std::string_view text,
                               const qawb::QAWBTuning& defaults) {
  TableOperand operand;
  operand.name = std::string(text);
  auto table_of = [&](std::string_view name) {
    const std::optional<TableKind> kind = ParseTableKind(name);
    if (!kind) {
      throw CLI::ValidationError(
          operand.name, fmt::format("'{}' is not a table: use basic, advance, "
                                    "color or feature",
                                    name));
    }
    return kind;
  };
  if (text.starts_with("awb:")) {
    const std::string_view rest = text.substr(4);
    const std::size_t colon = rest.rfind(':');
    if (colon == std::string_view::npos) {
      throw CLI::ValidationError(operand.name,
                                 "expected awb:KEY:TABLE, e.g. "
                                 "awb:0,-1,1,0,-1:feature");
    }
    operand.container = &RegisteredContainer(rest.substr(0, colon));
    operand.kind = table_of(rest.substr(colon + 1));
    return operand;
  }
  if (text.starts_with("defaults:")) {
    operand.container = &defaults;
    operand.kind = table_of(text.substr(9));
    return operand;
  }
  operand.file = std::string(text);
  return operand;
}

}  // namespace q3a_tool
