#include "tools/q3a_tuning/tuning_binary_file.h"

#include <cstring>

#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "tools/q3a_tuning/table_file.h"

namespace q3a_tool {

std::optional<TuningBinaryFileInfo> InspectTuningBinaryFile(
    const std::string& path, std::string& error) {
  const std::optional<std::string> content = ReadWholeFile(path, error);
  if (!content) return std::nullopt;
  TuningBinaryFileInfo info;
  info.size = content->size();
  info.size_ok = info.size == qawb::MutableQAWBTuning::kTuningBinaryFileSize;
  std::size_t offset = 0;
  for (std::size_t i = 0; i < kAllTableKinds.size(); ++i) {
    const TableKind kind = kAllTableKinds[i];
    TableHead& head = info.tables[i];
    head.kind = kind;
    head.offset = offset;
    head.size = VisitTableKind(
        kind, [](auto type) { return sizeof(typename decltype(type)::type); });
    if (offset + sizeof(qawb::QAWBParameterVersion) <= content->size()) {
      qawb::QAWBParameterVersion version;
      std::memcpy(&version, content->data() + offset, sizeof(version));
      head.version = version;
    }
    offset += head.size;
  }
  return info;
}

}  // namespace q3a_tool
