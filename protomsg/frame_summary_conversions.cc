#include <cstdint>

#include "protomsg/record_conversions.h"

namespace protomsg {

qawb::tuning::QAWBFrameSummaryType ConvertToMessage(
    qawb::QAWBFrameSummaryType type) {
  const auto value = static_cast<std::uint32_t>(type);
  return value <= qawb::kQAWBFrameSummaryTypeMax
             ? static_cast<qawb::tuning::QAWBFrameSummaryType>(value + 1)
             : qawb::tuning::kQAWBFrameSummaryTypeInvalid;
}

qawb::QAWBFrameSummaryType ConvertToStruct(
    qawb::tuning::QAWBFrameSummaryType type) {
  const auto value = static_cast<std::int32_t>(type);
  return value >= 1 && value <= qawb::tuning::kQAWBFrameSummaryTypeMax
             ? static_cast<qawb::QAWBFrameSummaryType>(value - 1)
             : qawb::kQAWBFrameSummaryTypeInvalid;
}

}  // namespace protomsg
