#include "tools/q3a_tuning/io/tuning_binary_file.h"

#include <fmt/format.h>

#include <cstring>
#include <memory>

#include "tools/q3a_tuning/io/output_file.h"

namespace q3a_tool {
namespace {

// The bytes the container's dump of `tuning` must hold.
std::string ExpectedDump(const qawb::QAWBTuning& tuning) {
  std::string bytes;
  for (qawb::TableId kind : kAllTableIds) {
    qawb::VisitTable(kind, [&]<typename Record>() {
      const Record* table = qawb::GetTable<Record>(tuning);
      bytes.append(reinterpret_cast<const char*>(table), sizeof(Record));
    });
  }
  return bytes;
}

}  // namespace

Result<> WriteTuningBinaryFile(const std::string& path,
                               const qawb::MutableQAWBTuning& tuning,
                               const OutputOptions& options) {
  const std::string bytes = ExpectedDump(tuning);
  OutputOptions output = options;
  output.text = false;
  output.verify = [&](const std::string& written) -> std::optional<std::string> {
    auto back = std::make_unique<qawb::MutableQAWBTuning>();
    if (back->ReadFromFile(written) && ExpectedDump(*back) == bytes) {
      return std::nullopt;
    }
    return "the tuning binary file written does not read back as written";
  };
  return WriteOutputFile(path, bytes, output);
}

TuningBinaryFileInfo ReadTuningBinaryHeads(std::string_view content) {
  TuningBinaryFileInfo info;
  info.size = content.size();
  info.size_ok = info.size == qawb::MutableQAWBTuning::kTuningBinaryFileSize;
  std::size_t offset = 0;
  for (std::size_t i = 0; i < kAllTableIds.size(); ++i) {
    const qawb::TableId kind = kAllTableIds[i];
    TableHead& head = info.tables[i];
    head.kind = kind;
    head.offset = offset;
    head.size = qawb::VisitTable(
        kind, []<typename Record>() { return sizeof(Record); });
    if (offset + sizeof(qawb::QAWBParameterVersion) <= content.size()) {
      qawb::QAWBParameterVersion version;
      std::memcpy(&version, content.data() + offset, sizeof(version));
      head.version = version;
    }
    offset += head.size;
  }
  return info;
}

bool TuningBinaryFileInfo::Plausible() const {
  for (const TableHead& head : tables) {
    if (!head.implausible.empty()) return false;
  }
  return true;
}

std::string TuningBinaryFileInfo::ImplausibleText(
    const std::string& path) const {
  std::string text = fmt::format(
      "{}: not a tuning binary file: its tables hold what no table holds",
      path);
  for (const TableHead& head : tables) {
    if (head.implausible.empty()) continue;
    text += fmt::format("\n  {}: {}", TableName(head.kind),
                        head.implausible.front());
    if (head.implausible.size() > 1) {
      text += fmt::format(" (and {} more)", head.implausible.size() - 1);
    }
  }
  return text;
}

}  // namespace q3a_tool
