// The JSON options the tuning files use, so that the benchmarks' protobuf
// baselines do exactly the printing and parsing work the library asks for.
#ifndef BENCH_PROTOBUF_OPTIONS_H_
#define BENCH_PROTOBUF_OPTIONS_H_

#include <google/protobuf/util/json_util.h>

namespace q3a_bench {

inline google::protobuf::util::JsonPrintOptions TuningFilePrintOptions() {
  google::protobuf::util::JsonPrintOptions options;
  options.add_whitespace = true;
  options.always_print_primitive_fields = true;
  options.always_print_enums_as_ints = false;
  options.preserve_proto_field_names = true;
  return options;
}

inline google::protobuf::util::JsonParseOptions TuningFileParseOptions() {
  google::protobuf::util::JsonParseOptions options;
  options.ignore_unknown_fields = false;
  options.case_insensitive_enum_parsing = false;
  return options;
}

}  // namespace q3a_bench

#endif  // BENCH_PROTOBUF_OPTIONS_H_
