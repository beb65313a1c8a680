// The four top-level AWB tables described once for generic code: for each
// table record, the message that carries it, its name (the override
// loader's key), its place in the tuning binary file, its tuning file
// readers and the container getter that hands it out.
#ifndef PROTOMSG_TUNING_TABLE_TRAITS_H_
#define PROTOMSG_TUNING_TABLE_TRAITS_H_

#include <string_view>

#include "libs_v4/qAWB/proto/qawb_tuning.pb.h"
#include "libs_v4/qAWB/src/base/qawb_tuning.h"
#include "protomsg/tuning_files.h"

namespace protomsg {

template <typename Table>
struct TuningTableTraits;

template <>
struct TuningTableTraits<qawb::QAWBBasicTuningTable> {
  using Message = qawb::tuning::QAWBBasicTuningTable;
  static constexpr std::string_view kName = "basic";
  static constexpr int kIndex = 0;
  static constexpr auto kReadJson = &ReadQAWBBasicTuningTableWithJson;
  static constexpr auto kReadProtobuf = &ReadQAWBBasicTuningTableFromProtobuf;
  static constexpr auto kGet = &qawb::QAWBTuning::GetBasicTuningTable;
};

template <>
struct TuningTableTraits<qawb::QAWBAdvanceTuningTable> {
  using Message = qawb::tuning::QAWBAdvanceTuningTable;
  static constexpr std::string_view kName = "advance";
  static constexpr int kIndex = 1;
  static constexpr auto kReadJson = &ReadQAWBAdvanceTuningTableWithJson;
  static constexpr auto kReadProtobuf = &ReadQAWBAdvanceTuningTableFromProtobuf;
  static constexpr auto kGet = &qawb::QAWBTuning::GetAdvanceTuningTable;
};

template <>
struct TuningTableTraits<qawb::QAWBColorControlTuningTable> {
  using Message = qawb::tuning::QAWBColorControlTuningTable;
  static constexpr std::string_view kName = "color";
  static constexpr int kIndex = 2;
  static constexpr auto kReadJson = &ReadQAWBColorControlTuningTableWithJson;
  static constexpr auto kReadProtobuf =
      &ReadQAWBColorControlTuningTableFromProtobuf;
  static constexpr auto kGet = &qawb::QAWBTuning::GetColorControlTuningTable;
};

template <>
struct TuningTableTraits<qawb::QAWBFeatureTuningTable> {
  using Message = qawb::tuning::QAWBFeatureTuningTable;
  static constexpr std::string_view kName = "feature";
  static constexpr int kIndex = 3;
  static constexpr auto kReadJson = &ReadQAWBFeatureTuningTableWithJson;
  static constexpr auto kReadProtobuf = &ReadQAWBFeatureTuningTableFromProtobuf;
  static constexpr auto kGet = &qawb::QAWBTuning::GetFeatureTuningTable;
};

// Calls `fn.template operator()<Table>()` for the four tables, in the order
// of the tuning binary file.
template <typename Fn>
void ForEachTuningTable(Fn&& fn) {
  fn.template operator()<qawb::QAWBBasicTuningTable>();
  fn.template operator()<qawb::QAWBAdvanceTuningTable>();
  fn.template operator()<qawb::QAWBColorControlTuningTable>();
  fn.template operator()<qawb::QAWBFeatureTuningTable>();
}

}  // namespace protomsg

#endif  // PROTOMSG_TUNING_TABLE_TRAITS_H_
